"""The Set Timer dialog. What it has set is read off the clock, in a window where a second is wide enough to see."""

from timer import DesktopTest, SetTimer, main


class SetTimerTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.timer = self.launch()
        self.timer.arrange(20, 40, 1200, 720)

    def wait_for_time(self, time):
        minutes, seconds = map(int, time.split(":"))
        self.wait_until(lambda: self.timer.seconds() == 60 * minutes + seconds, f"the wedge shows {time}")

    def test_the_set_time_is_offered_again_not_what_remains(self):
        self.timer.set_time(12, 34)
        self.desktop.key("space")
        self.wait_for_time("12:33")
        self.desktop.key("space")
        SetTimer(self.timer).close(SetTimer.MINUTES_UP, SetTimer.SECONDS_DOWN, SetTimer.SET)
        self.wait_for_time("13:33")

    def test_typing_replaces_the_minutes_and_each_enter_key_sets(self):
        for minutes, key in (("5", "Return"), ("6", "KP_Enter")):
            self.timer.set_time(12, 34)
            dialog = SetTimer(self.timer)
            self.desktop.key("Escape", minutes, key)  # the first does nothing
            dialog.wait_closed()
            self.wait_for_time(f"{minutes}:34")

    def test_leaving_by_cancel_or_the_close_button_sets_nothing(self):
        self.timer.set_time(12, 34)
        dialog = SetTimer(self.timer)
        dialog.enter("20", "10")
        dialog.close(SetTimer.CANCEL)
        dialog = SetTimer(self.timer)
        dialog.enter("20", "10")
        self.desktop.key("alt+F4")
        dialog.wait_closed()
        self.desktop.key("space")
        self.wait_for_time("12:33")
        self.desktop.key("space")
        SetTimer(self.timer).close(SetTimer.SET)
        self.wait_for_time("12:34")

    def test_the_timer_takes_no_input_behind_the_dialog(self):
        self.timer.set_time(12, 34)
        dialog = SetTimer(self.timer)
        self.timer.click(18, 18)
        dialog.close(SetTimer.CANCEL)
        self.assert_stopped(self.timer)

    def test_it_opens_below_the_menu_bar_in_the_middle(self):
        left, top, width, _ = self.desktop.place(self.timer.window)
        place = self.desktop.place(SetTimer(self.timer).window)
        self.assertEqual(place, (left + (width - 300) // 2, top + 30, 300, 74))



if __name__ == "__main__":
    main()
