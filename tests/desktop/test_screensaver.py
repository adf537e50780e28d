"""The X server's screen saver and the timer."""

from Xlib.ext import screensaver

from desktop import DesktopTest, main, wait_until


class ScreenSaverTest(DesktopTest):
    def is_on(self):
        return self.desktop.root.screensaver_query_info().state == screensaver.StateOn

    def test_it_keeps_away_for_as_long_as_the_timer_runs(self):
        timer = self.launch()
        timer.set_time(0, 8)
        self.desktop.key("space")
        timer.wait_for("running")
        self.desktop.display.set_screen_saver(2, 0, 1, 1)

        def has_ended():
            self.assertFalse(self.is_on(), "the saver comes on during the run")
            return timer.state() == "alert"

        wait_until(has_ended, "the run ends")
        wait_until(self.is_on, "the saver comes on by itself")


if __name__ == "__main__":
    main()
