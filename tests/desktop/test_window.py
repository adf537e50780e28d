"""What the timer window shows while it is resized."""

from timer import COLOURS, DesktopTest, main

FACE = 0xFFFFFF


class WindowTest(DesktopTest):
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



if __name__ == "__main__":
    main()
