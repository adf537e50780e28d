"""The Set Timer dialog over the timer, by the real keyboard and pointer."""

from timer import COLOURS, DesktopTest, SetTimer

JUST_AFTER_27_MINUTES = (200, 180)  # on the clock, below the dialog
# The keys in the dialog, which shows what was set before, and whether the wedge then reaches that place.
ROADS = (
    (["Escape", "4", "5", "Return"], True),  # Escape does nothing
    (["2", "KP_Enter"], False),
    (["2", "7", "Tab", "Tab", "shift+Tab", "5", "0", "Return"], True),  # by way of a button
    (["8", "Tab", "Tab", "Tab", "Return"], True),  # on Cancel
    (["9", "alt+F4"], True),
)


class SetTimerTest(DesktopTest):
    def test_the_whole_road(self):
        timer = self.launch()
        for keys, reaches in ROADS:
            dialog = SetTimer(timer)
            self.desktop.key(*keys)
            dialog.wait_closed()
            self.wait_for_wedge(timer, reaches, keys)
        timer.set_time(26, 46)
        self.wait_for_wedge(timer, False, "before the arrows")
        dialog = SetTimer(timer)
        timer.click(18, 18)  # the timer takes no input behind the dialog
        dialog.wait_for_keys()
        dialog.close(SetTimer.MINUTES_UP, SetTimer.SECONDS_DOWN, SetTimer.SET)
        self.wait_for_wedge(timer, True, "after the arrows")
        self.assert_stopped(timer)

    def wait_for_wedge(self, timer, reaches, what):
        colour = COLOURS["Color_Clock_Wedge" if reaches else "Color_Clock_Face"]
        self.wait_until(lambda: timer.pixel(*JUST_AFTER_27_MINUTES) == colour, f"the wedge shows {what}")
