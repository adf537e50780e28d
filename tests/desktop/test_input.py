"""Clicks, keys and the pointer on the timer window."""

from Xlib import X

from timer import DesktopTest, main

KEYS = ("Return", "KP_Enter", "space", "ctrl+r")
INSIDE = ((10, 10), (26, 26), (10, 26), (26, 10))
OUTSIDE = ((9, 10), (27, 10), (10, 9), (10, 27), (220, 114))
ON_THE_BAR = (18, -3)


class InputTest(DesktopTest):
    def launch(self, **options):
        timer = super().launch(**options)
        timer.set_time(50, 0)
        return timer

    def ways(self, timer):
        """All that starts, stops and dismisses."""
        by_key = {key: lambda key=key: self.desktop.key(key) for key in KEYS}
        return by_key | {"click": lambda: timer.click(18, 18), "menu": lambda: timer.choose("t", "Up", "Return")}

    def test_each_way_starts_and_stops(self):
        timer = self.launch()
        for name, toggle in self.ways(timer).items():
            for state in ("running", "stopped"):
                with self.subTest(name):
                    toggle()
                    timer.wait_for(state)

    def test_a_click_within_the_icon_starts_and_stops(self):
        timer = self.launch()
        for state, place in zip(("running", "stopped") * 2, INSIDE):
            timer.click(*place)
            timer.wait_for(state)

    def test_a_click_outside_of_the_icon_does_nothing(self):
        timer = self.launch()
        for place in OUTSIDE:
            with self.subTest(place):
                timer.click(*place)
                self.assert_stopped(timer)

    def test_the_icon_is_the_same_square_on_a_dense_screen(self):
        timer = self.launch(scale=2)
        timer.click(27, 26)
        self.assert_stopped(timer)
        timer.click(26, 26)
        timer.wait_for("running")

    def test_the_pointer_is_a_hand_on_the_icon_only(self):
        timer = self.launch()
        arrow = self.desktop.cursor()
        timer.move(18, 18)
        self.wait_until(lambda: self.desktop.cursor() != arrow, "the pointer is a hand")
        hand = self.desktop.cursor()
        for outside in (*OUTSIDE, ON_THE_BAR):
            for inside in INSIDE:
                timer.move(*outside)
                self.wait_until(lambda: self.desktop.cursor() == arrow, f"the pointer is an arrow at {outside}")
                timer.move(*inside)
                self.wait_until(lambda: self.desktop.cursor() == hand, f"the pointer is a hand at {inside}")

    def test_other_keys_do_nothing(self):
        timer = self.launch()
        for key in ("x", "Escape", "Tab", "Down", "ctrl+space", "ctrl+Return"):
            with self.subTest(key):
                self.desktop.key(key)
                self.assert_stopped(timer)

    def test_a_held_key_counts_once(self):
        timer = self.launch()
        timer.window.change_attributes(event_mask=X.KeyPressMask)
        self.desktop.hold("space")
        timer.wait_for("running")
        for _ in range(10):
            self.wait_until(self.is_a_key_pressed, "the server repeats the key")
            self.assertEqual(timer.state(), "running")
        self.desktop.let_go("space")
        self.desktop.key("ctrl+r")
        self.assert_stopped(timer)

    def is_a_key_pressed(self):
        display = self.desktop.display
        return display.pending_events() and display.next_event().type == X.KeyPress

    def test_the_alert_is_dismissed_and_the_timer_not_started_again(self):
        timer = self.launch()
        for name, dismiss in self.ways(timer).items():
            with self.subTest(name):
                timer.set_time(0, 1)
                self.desktop.key("space")
                timer.wait_for("alert")
                dismiss()
                timer.wait_for("stopped")
                dismiss()
                self.assert_stopped(timer)

    def test_set_timer_opens_in_the_stopped_state_only(self):
        timer = self.launch()
        timer.set_time(0, 2)
        for state in ("running", "alert"):
            self.desktop.key("space")
            timer.wait_for(state)
            self.desktop.key("ctrl+t", "space")
            timer.wait_for("stopped")
            self.assertNotIn("Set Timer", self.desktop.windows())
        self.assert_stopped(timer)


if __name__ == "__main__":
    main()
