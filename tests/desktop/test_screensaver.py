"""The X server's screen saver and the timer."""

import time

from Xlib import X
from Xlib.ext import screensaver

from timer import DesktopTest


class ScreenSaverTest(DesktopTest):
    def is_on(self):
        return self.desktop.root.screensaver_query_info().state == screensaver.StateOn

    def test_it_keeps_away_in_each_run_and_comes_on_by_itself_at_each_end(self):
        timer = self.launch()
        for seconds, end in ((4, []), (59, ["space"]), (59, ["ctrl+q"])):
            timer.set_time(0, seconds)
            self.desktop.key("space")
            timer.wait_for("running")
            self.desktop.display.set_screen_saver(1, 0, X.DefaultBlanking, X.DefaultExposures)
            watched = time.monotonic() + 3
            self.wait_until(lambda: self.is_on() or time.monotonic() > watched, "it has been watched")
            self.assertFalse(self.is_on())
            self.desktop.key(*end)
            self.wait_until(self.is_on, "the saver comes on")
            self.desktop.display.set_screen_saver(0, 0, X.DefaultBlanking, X.DefaultExposures)
            if not end:
                self.desktop.key("space")  # for the alert
