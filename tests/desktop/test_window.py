"""The frame of the timer window: what shows while it is resized, and fullscreen, there and back."""

from timer import COLOURS, DesktopTest, SetTimer, main

BACKGROUND = COLOURS["Color_Window_Background"]
FACE = (255, 255, 255)


class ResizeTest(DesktopTest):
    def drag_corner(self, timer, right, down, steps=25):
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
            self.wait_until(lambda: self.has_clock(timer) and self.desktop.place(timer.window)[2:] == size, f"it is {size}")
        self.desktop.release()
        self.desktop.settle()

    def has_clock(self, timer):
        picture, bare = timer.picture(), BACKGROUND.to_bytes(3, "big") * 12
        self.assertFalse(bare in picture.tobytes(), "the window's own background shows")
        self.assertEqual(picture.getpixel((picture.width // 2 + 9, picture.height // 2 + 9)), FACE)
        return True

    def test_a_resize_never_shows_the_canvas_without_a_clock_and_has_an_end(self):
        timer = self.launch(settings={"Color_Window_Background": 0x204060})
        timer.arrange(60, 60, 500, 250)
        self.drag_corner(timer, 600, 400)
        self.drag_corner(timer, -800, -550)
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

    def wait_for_frame(self, frame):
        self.wait_until(lambda: self.frame() == frame, f"the window is at {frame} again")

    def enter(self):
        self.desktop.key("ctrl+f")
        self.wait_until(lambda: self.timer.fills_the_screen() and not self.has_bar(), "the canvas alone fills it all")

    def has_bar(self):
        return self.timer.pixel(1000, 5) != BACKGROUND

    def run_and_stop(self):
        """What came before has been dealt with once this has shown."""
        for state in ("running", "stopped"):
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
                self.run_and_stop()
                dialog = SetTimer(self.timer)
                self.wait_for_frame(before)  # the dialog lies over the window as it was
                dialog.close(SetTimer.SET)
                self.wait_until(self.timer.fills_the_screen, "the window is back in fullscreen")
                self.desktop.key("ctrl+f")
                self.wait_for_frame(before)
                self.desktop.settle()
                self.run_and_stop()
                self.assertEqual(self.frame(), before)
                self.ask_for(False, *names)
                self.wait_for_frame(normal)

    def test_a_fullscreen_that_the_window_manager_makes_is_a_large_window(self):
        before = self.frame()
        self.enter()
        self.ask_for(False, "FULLSCREEN")
        self.wait_for_frame(before)
        self.ask_for(True, "FULLSCREEN")
        self.wait_until(lambda: self.timer.fills_the_screen() and self.has_bar(), "the bar has room of its own")

    def test_the_bar_comes_when_it_is_called(self):
        self.enter()
        below_the_bar = (0, 30, self.desktop.size[0], self.desktop.size[1] - 30)
        clock = self.desktop.picture(*below_the_bar)
        self.timer.move(600, 11)
        self.run_and_stop()
        self.assertFalse(self.has_bar())
        self.timer.move(600, 10)
        self.wait_until(self.has_bar, "the bar comes")
        self.timer.move(600, self.timer.bar - 1)
        self.desktop.key("alt+t")
        left, top, width, height = self.wait_until(self.desktop.menus, "the menu opens")[0]
        self.desktop.move(left + width // 2, top + height * 3 // 4)
        self.desktop.key("Escape", "Escape")
        self.wait_until(lambda: not self.desktop.menus() and self.has_bar(), "the bar has stayed")
        self.assertEqual(self.desktop.picture(*below_the_bar), clock, "it has stayed")
        self.timer.move(600, self.timer.bar)
        self.wait_until(lambda: not self.has_bar(), "the bar goes")


class OtherManagerTest(FullscreenTest):
    """It answers in another order, and takes other requests for a wish to end the maximised state."""

    MANAGER = "metacity"


if __name__ == "__main__":
    main()
