"""The frame of the timer window: what shows while it is resized, and fullscreen, there and back."""

from timer import COLOURS, DesktopTest, SetTimer, main

FACE = 0xFFFFFF


class ResizeTest(DesktopTest):
    def drag_corner(self, timer, right, down, looks_right, steps=25):
        """Pulls the frame by its corner, step by step."""
        left, top, width, height = self.desktop.place(timer.window)
        x, y = left + width - 2, top + height + 2
        self.desktop.press(x, y)
        self.desktop.move(x + right // steps, y + down // steps)  # this only begins the drag
        self.desktop.settle()
        for step in range(2, steps + 1):
            dx, dy = right * step // steps, down * step // steps
            self.desktop.move(x + dx, y + dy)
            size = max(width + dx, 400), max(height + dy, 150 + timer.bar)
            self.wait_until(lambda: looks_right() and self.desktop.place(timer.window)[2:] == size, f"it is {size}")
        self.desktop.release()
        self.desktop.settle()

    def test_a_resize_never_shows_the_canvas_without_a_clock_and_has_an_end(self):
        timer = self.launch(settings={"Color_Window_Background": 0x204060})
        timer.arrange(60, 60, 500, 250)
        bare = COLOURS["Color_Window_Background"].to_bytes(4, "little") * 12

        def has_clock():
            picture = timer.picture()
            self.assertFalse(any(bare in row for row in picture.rows), "the window's own background shows")
            self.assertEqual(picture.at(picture.width // 2 + 9, picture.height // 2 + 9), FACE)
            return True

        self.drag_corner(timer, 600, 400, has_clock)
        self.drag_corner(timer, -800, -550, has_clock)
        self.assertEqual(timer.place()[2:], (400, 150), "the smallest size of the canvas")


class FullscreenTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.timer = self.launch()
        self.timer.arrange(150, 170, 600, 350)
        self.timer.set_time(50, 0)

    def frame(self):
        """Where the window is, and what else the window manager has made of it."""
        names = ("MAXIMIZED_VERT", "MAXIMIZED_HORZ", "FULLSCREEN")
        state = self.desktop.property("_NET_WM_STATE", self.timer.window)
        return self.desktop.place(self.timer.window), {n for n in names if self.atom(n) in state}

    def atom(self, name):
        return self.desktop.display.get_atom(f"_NET_WM_STATE_{name}")

    def ask_for(self, on, *names):
        self.desktop.ask("_NET_WM_STATE", self.timer.window, on, *map(self.atom, names))

    def enter(self):
        self.desktop.key("ctrl+f")
        self.wait_until(lambda: self.timer.fills_the_screen() and not self.has_bar(), "the canvas alone fills it all")

    def has_bar(self):
        return self.timer.pixel(1000, 5) != self.timer.colours["Color_Window_Background"]

    def toggle(self, state):
        """What came before has been dealt with once this shows."""
        self.desktop.key("ctrl+r")
        self.timer.wait_for(state)

    def test_the_exact_frame_comes_back(self):
        normal = self.frame()
        for names in ((), ("MAXIMIZED_VERT",), ("MAXIMIZED_VERT", "MAXIMIZED_HORZ")):
            with self.subTest(maximised=names):
                self.ask_for(True, *names)
                self.wait_until(lambda: self.frame()[1] == set(names), "it is maximised")
                self.desktop.settle()
                before = self.frame()
                self.enter()
                self.toggle("running")
                self.toggle("stopped")
                dialog = SetTimer(self.timer)
                self.wait_until(lambda: self.frame() == before, "the dialog lies over the window as it was")
                dialog.close(SetTimer.SET)
                self.wait_until(self.timer.fills_the_screen, "the window is back in fullscreen")
                self.desktop.key("ctrl+f")
                self.wait_until(lambda: self.frame() == before, f"the window is at {before} again")
                self.desktop.settle()
                self.toggle("running")
                self.toggle("stopped")
                self.assertEqual(self.frame(), before)
                self.ask_for(False, *names)
                self.wait_until(lambda: self.frame() == normal, f"the window is at {normal} again")

    def test_a_fullscreen_that_the_window_manager_makes_is_a_large_window(self):
        before = self.frame()
        self.enter()
        self.ask_for(False, "FULLSCREEN")
        self.wait_until(lambda: self.frame() == before, "it is taken away")
        self.ask_for(True, "FULLSCREEN")
        self.wait_until(lambda: self.timer.fills_the_screen() and self.has_bar(), "the bar has room of its own")

    def test_the_bar_comes_when_it_is_called(self):
        self.enter()
        picture = self.timer.picture()
        right, bottom = picture.width - 1, picture.height - 1
        for corner in ((0, 0), (right, 0), (0, bottom), (right, bottom)):
            self.assertEqual(picture.at(*corner), self.timer.colours["Color_Window_Background"])
        clock = (0, 30, right, bottom - 30)
        self.timer.move(600, 11)
        self.toggle("running")
        self.toggle("stopped")
        self.assertFalse(self.has_bar())
        self.timer.move(600, 10)
        self.wait_until(self.has_bar, "the bar comes")
        self.timer.move(600, self.timer.bar - 1)
        self.desktop.key("alt+t")
        left, top, width, height = self.wait_until(self.desktop.menus, "the menu opens")[0]
        self.desktop.move(left + width // 2, top + height * 3 // 4)
        self.desktop.key("Escape", "Escape")
        self.wait_until(lambda: not self.desktop.menus() and self.has_bar(), "the bar has stayed")
        self.assertTrue(self.timer.picture().crop(*clock).rows == picture.crop(*clock).rows, "the clock has stayed")
        self.timer.move(600, self.timer.bar)
        self.wait_until(lambda: not self.has_bar(), "the bar goes")


class OtherManagerTest(FullscreenTest):
    """It answers in another order, and takes other requests for a wish to end the maximised state."""

    MANAGER = "metacity"


if __name__ == "__main__":
    main()
