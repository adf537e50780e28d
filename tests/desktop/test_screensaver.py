"""The X server's screen saver and the timer."""

from Xlib import X
from Xlib.ext import screensaver

from timer import DesktopTest, main


class ScreenSaverTest(DesktopTest):
    def is_on(self):
        return self.desktop.root.screensaver_query_info().state == screensaver.StateOn

    def launch_running(self, minutes, seconds, patience):
        timer = self.launch()
        timer.set_time(minutes, seconds)
        self.desktop.key("space")
        timer.wait_for("running")
        self.desktop.display.set_screen_saver(patience, 0, X.DefaultBlanking, X.DefaultExposures)
        return timer

    def test_it_keeps_away_for_as_long_as_the_timer_runs(self):
        timer = self.launch_running(0, 10, patience=3)

        def has_ended():
            self.assertFalse(self.is_on(), "the saver comes on during the run")
            return timer.state() == "alert"

        self.wait_until(has_ended, "the run ends")
        self.wait_until(self.is_on, "the saver comes on by itself")

    def test_it_comes_on_once_the_timer_is_stopped(self):
        self.comes_on_after("space")

    def test_it_comes_on_once_the_timer_is_gone(self):
        self.comes_on_after("ctrl+q")

    def comes_on_after(self, key):
        self.launch_running(50, 0, patience=1)
        self.desktop.key(key)
        self.wait_until(self.is_on, "the saver comes on by itself")


if __name__ == "__main__":
    main()
