"""The Set Timer dialog. What it has set is read off the clock, in a window where a second is wide enough to see."""

from timer import DesktopTest, SetTimer, main

# The keys in the dialog, which shows what was set before, and the time on the clock after it.
ROADS = (
    (["Escape", "5", "Return"], 5, 33),  # Escape does nothing
    (["6", "KP_Enter"], 6, 33),
    (["7", "Tab", "Tab", "shift+Tab", "3", "0", "Return"], 7, 30),  # by way of a button
    (["8", "Tab", "Tab", "Tab", "Return"], 7, 30),  # on Cancel
    (["9", "alt+F4"], 7, 30),
)


class SetTimerTest(DesktopTest):
    def test_the_whole_road(self):
        timer = self.launch()
        timer.arrange(20, 40, 1200, 720)
        timer.set_time(12, 34)
        self.desktop.key("space")
        self.wait_for_time(timer, 12, 33)
        self.desktop.key("space")

        dialog = SetTimer(timer)
        left, top, width, _ = self.desktop.place(timer.window)
        self.assertEqual(self.desktop.place(dialog.window), (left + (width - 300) // 2, top + 30, 300, 74))
        timer.click(18, 18)  # the timer takes no input behind the dialog
        dialog.close(SetTimer.MINUTES_UP, SetTimer.SECONDS_DOWN, SetTimer.SET)
        self.wait_for_time(timer, 13, 33)
        for keys, minutes, seconds in ROADS:
            with self.subTest(keys):
                dialog = SetTimer(timer)
                self.desktop.key(*keys)
                dialog.wait_closed()
                self.wait_for_time(timer, minutes, seconds)
        self.assert_stopped(timer)

    def wait_for_time(self, timer, minutes, seconds):
        self.wait_until(lambda: timer.seconds() == 60 * minutes + seconds, f"the wedge shows {minutes}:{seconds}")


if __name__ == "__main__":
    main()
