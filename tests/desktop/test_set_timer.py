"""The Set Timer dialog. What it has set is read off the clock, in a window where a second is wide enough to see."""

from timer import DesktopTest, SetTimer, main

# Neighbours differ in the result, so that none passes by what the one before has left on the clock.
STOPS = (
    ("59:30", SetTimer.MINUTES_UP, "60:00"),
    ("01:30", SetTimer.MINUTES_DOWN, "00:30"),
    ("60:00", SetTimer.MINUTES_UP, "60:00"),
    ("00:30", SetTimer.MINUTES_DOWN, "00:00"),
    ("05:59", SetTimer.SECONDS_UP, "06:00"),
    ("59:59", SetTimer.SECONDS_UP, "60:00"),
    ("05:00", SetTimer.SECONDS_DOWN, "04:59"),
    ("60:00", SetTimer.SECONDS_UP, "60:00"),
    ("60:00", SetTimer.SECONDS_DOWN, "59:59"),
    ("00:00", SetTimer.SECONDS_DOWN, "00:00"),
)


class SetTimerTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.timer = self.launch()
        self.timer.arrange(20, 40, 1200, 720)

    def wait_for_time(self, time):
        minutes, seconds = map(int, time.split(":"))
        self.wait_until(lambda: self.timer.seconds() == 60 * minutes + seconds, f"the wedge shows {time}")

    def test_the_arrows_stop_and_carry(self):
        for before, arrow, after in STOPS:
            with self.subTest(before=before, arrow=arrow):
                clicks = [arrow]
                if after == "60:00":  # the full disc would hide what is beyond it
                    clicks, after = [arrow, SetTimer.MINUTES_DOWN], "59:00"
                dialog = SetTimer(self.timer)
                dialog.enter(*before.split(":"))
                dialog.close(*clicks, SetTimer.SET)
                self.wait_for_time(after)

    def test_a_held_arrow_repeats(self):
        dialog = SetTimer(self.timer)
        left, top, *_ = self.desktop.place(dialog.window)
        looks = set()

        def has_counted():
            looks.add(b"".join(self.desktop.picture(left + 20, top + 31, 25, 22).rows))
            return len(looks) > 10  # a caret that blinks gives each number two of them

        self.desktop.press(left + SetTimer.MINUTES_UP[0], top + SetTimer.MINUTES_UP[1])
        self.wait_until(has_counted, "the minutes rise")
        self.desktop.release()
        dialog.close(SetTimer.SET)
        self.wait_until(lambda: self.timer.seconds() >= 5 * 60, "the arrow has counted five times")

    def test_typing_replaces_the_minutes(self):
        self.timer.set_time(12, 34)
        dialog = SetTimer(self.timer)
        self.desktop.key("5", "Return")
        dialog.wait_closed()
        self.wait_for_time("5:34")

    def test_the_set_time_is_offered_again_not_what_remains(self):
        self.timer.set_time(12, 34)
        self.desktop.key("space")
        self.wait_for_time("12:33")
        self.desktop.key("space")
        SetTimer(self.timer).close(SetTimer.SET)
        self.wait_for_time("12:34")

    def test_escape_does_not_close(self):
        dialog = SetTimer(self.timer)
        self.desktop.key("Escape")
        dialog.enter("12", "34")
        self.desktop.key("KP_Enter")
        dialog.wait_closed()
        self.wait_for_time("12:34")

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

    def test_what_is_no_digit_or_too_much_is_refused(self):
        self.timer.set_time("1x-2", "6a1")
        self.wait_for_time("12:06")
        self.timer.set_time("61", "59")
        self.wait_for_time("6:59")

    def test_sixty_minutes_can_have_seconds(self):
        self.timer.set_time(60, 30)
        self.wait_for_time("60:00")
        SetTimer(self.timer).close(SetTimer.MINUTES_DOWN, SetTimer.SET)
        self.wait_for_time("59:30")

    def test_one_digit_more_takes_the_seconds_from_sixty_minutes(self):
        dialog = SetTimer(self.timer)
        dialog.enter("601", "30")
        dialog.close(SetTimer.MINUTES_DOWN, SetTimer.SET)
        self.wait_for_time("59:00")

    def test_a_digit_before_the_caret_can_lead_past_sixty(self):
        dialog = SetTimer(self.timer)
        dialog.enter("1", "0")
        self.desktop.key("Home", "9")
        dialog.close(*[SetTimer.MINUTES_DOWN] * 40, SetTimer.SET)
        self.wait_for_time("51:00")


if __name__ == "__main__":
    main()
