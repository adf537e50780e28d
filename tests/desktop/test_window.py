"""What the timer window shows: live resizing, the alert text, the icons through a link."""

import pathlib
import tempfile

from timer import COLOURS, PROGRAM, DesktopTest, main

FACE = 0xFFFFFF


class WindowTest(DesktopTest):
    def drag_corner(self, timer, right, down, looks_right=lambda: True, steps=25):
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

    def test_a_resize_never_shows_the_canvas_without_a_clock(self):
        timer = self.launch(settings={"Color_Window_Background": 0x204060})
        timer.arrange(60, 60, 500, 250)
        bare = COLOURS["Color_Window_Background"].to_bytes(4, "little") * 12

        def has_clock():
            picture = timer.picture()
            self.assertFalse(any(bare in row for row in picture.rows), "the window's own background shows")
            self.assertEqual(picture.at(picture.width // 2 + 9, picture.height // 2 + 9), FACE)
            return True

        self.drag_corner(timer, 600, 400, has_clock)
        self.drag_corner(timer, -600, -400, has_clock)

    def test_the_canvas_has_a_smallest_size(self):
        timer = self.launch()
        self.drag_corner(timer, -300, -200)
        self.assertEqual(timer.place()[2:], (400, 150))

    def test_the_alert_text_fills_the_clock_in_the_colour_of_its_frame(self):
        colour = 0x103050
        timer = self.launch(settings={"Color_Clock_Frame": colour})
        timer.set_time(0, 1)
        within_marks = lambda: timer.picture().crop(220 - 82, 114 - 40, 164, 80).places(colour)
        self.assertFalse(within_marks())
        self.desktop.key("space")
        timer.wait_for("alert")
        xs, ys = (sorted(axis) for axis in zip(*within_marks()))
        self.assertGreater(xs[-1] - xs[0], 140)
        self.assertAlmostEqual((xs[0] + xs[-1]) / 2, 82, delta=4)
        self.assertAlmostEqual((ys[0] + ys[-1]) / 2, 40, delta=6)
        self.desktop.key("space")
        timer.wait_for("stopped")
        self.assertFalse(within_marks())

    def test_a_link_to_the_program_finds_its_pictures(self):
        folder = self.stack.enter_context(tempfile.TemporaryDirectory())
        link = pathlib.Path(folder, "timer")
        link.symlink_to(PROGRAM)
        self.assertEqual(self.launch(path=link).state(), "stopped")


if __name__ == "__main__":
    main()
