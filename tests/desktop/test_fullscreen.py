"""Fullscreen: in and out, and the menu bar that comes when it is called."""

import time

from timer import DesktopTest, SetTimer, main


class FullscreenTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.timer = self.launch()
        self.timer.arrange(150, 170, 600, 350)
        self.timer.set_time(50, 0)

    def enter(self):
        self.desktop.key("ctrl+f")
        self.wait_until(lambda: self.timer.fills_the_screen() and not self.has_bar(), "the canvas alone fills it all")

    def has_bar(self):
        return self.timer.pixel(1000, 5) != self.timer.colours["Color_Window_Background"]

    def toggle(self, state):
        """What came before has been dealt with once this shows."""
        self.desktop.key("ctrl+r")
        self.timer.wait_for(state)

    def test_the_canvas_fills_the_screen(self):
        self.enter()
        picture = self.timer.picture()
        width, height = self.desktop.size
        self.assertEqual((picture.width, picture.height), (width, height))
        for x, y in ((0, 0), (width - 1, 0), (0, height - 1), (width - 1, height - 1)):
            self.assertEqual(picture.at(x, y), self.timer.colours["Color_Window_Background"])
        self.assertEqual(self.timer.seconds(), 50 * 60)

    def test_the_frame_comes_back_and_the_run_goes_on(self):
        began = time.monotonic()
        self.toggle("running")
        before = self.desktop.place(self.timer.window)
        for state, following in (("running", "stopped"), ("stopped", "running")):
            self.enter()
            self.timer.wait_for(state)
            self.desktop.key("ctrl+f")
            self.wait_until(lambda: self.desktop.place(self.timer.window) == before, f"the window is at {before} again")
            self.desktop.settle()
            self.toggle(following)
            self.assertEqual(self.desktop.place(self.timer.window), before)
        self.wait_until(lambda: 0 < 50 * 60 - self.timer.seconds() < time.monotonic() - began + 1, "the run goes on")

    def test_commands_work_without_the_bar(self):
        self.enter()
        self.toggle("running")
        self.toggle("stopped")
        self.timer.click(26, 26)
        self.timer.wait_for("running")
        self.desktop.key("Escape", "space")
        self.timer.wait_for("stopped")
        self.assertTrue(self.timer.fills_the_screen())
        self.assertFalse(self.has_bar())

    def test_set_timer_leaves_fullscreen_for_as_long_as_it_is_open(self):
        self.enter()
        dialog = SetTimer(self.timer)
        self.wait_until(lambda: not self.timer.fills_the_screen(), "the window leaves fullscreen")
        dialog.close(SetTimer.SET)
        self.wait_until(self.timer.fills_the_screen, "the window is back in fullscreen")

    def test_the_top_rows_call_the_bar(self):
        self.enter()
        clock = (0, 30, self.desktop.size[0], self.desktop.size[1] - 30)
        before = self.timer.picture().crop(*clock)
        for y, state in ((11, "running"), (400, "stopped")):
            self.timer.move(600, y)
            self.toggle(state)
            self.assertFalse(self.has_bar())
        self.timer.move(600, 10)
        self.wait_until(self.has_bar, "the bar comes")
        self.timer.move(600, self.timer.bar - 1)
        self.desktop.key("alt+t")
        self.wait_until(self.desktop.menus, "the bar still takes the key")
        self.desktop.key("Escape", "Escape")
        self.wait_until(lambda: not self.desktop.menus(), "the menu closes")
        self.assertTrue(self.has_bar())
        self.assertTrue(self.timer.picture().crop(*clock).rows == before.rows, "the clock stays where it is")
        self.timer.move(600, self.timer.bar)
        self.wait_until(lambda: not self.has_bar(), "the bar goes")

    def test_the_bar_stays_while_a_menu_is_open(self):
        self.enter()
        self.timer.move(600, 5)
        self.wait_until(self.has_bar, "the bar comes")
        self.desktop.key("alt+t")
        left, top, width, height = self.wait_until(self.desktop.menus, "the menu opens")[0]
        self.desktop.move(600, 400)
        before = self.desktop.picture(left, top, width, height).rows
        self.desktop.move(left + width // 2, top + height * 3 // 4)
        self.wait_until(lambda: self.desktop.picture(left, top, width, height).rows != before, "the item lights up")
        self.assertTrue(self.has_bar())
        self.desktop.key("Escape")
        self.wait_until(lambda: not self.desktop.menus(), "the menu closes")
        self.timer.move(600, 300)
        self.wait_until(lambda: not self.has_bar(), "the bar goes")


if __name__ == "__main__":
    main()
