"""Clicks, keys and the pointer on the timer window."""

from Xlib import X

from timer import DesktopTest, main

BORDER = (((10, 10), (9, 10)), ((26, 26), (27, 26)), ((10, 26), (10, 27)), ((26, 10), (26, 9)))  # inside, outside
OTHER_KEYS = ("x", "Escape", "Tab", "Down", "F5", "ctrl+space", "ctrl+Return")


class InputTest(DesktopTest):
    def test_each_way_starts_stops_and_dismisses(self):
        timer = self.launch()
        for name, toggle in self.ways(timer).items():
            with self.subTest(name):
                timer.set_time(50, 0)
                for state in ("running", "stopped"):
                    toggle()
                    timer.wait_for(state)
                timer.set_time(0, 1)
                self.desktop.key("space")
                timer.wait_for("alert")
                self.desktop.key("ctrl+t")  # not now
                toggle()
                timer.wait_for("stopped")
                toggle()
                self.assert_stopped(timer)  # an empty one doesn't start

    def ways(self, timer):
        by_key = {key: lambda key=key: self.desktop.key(key) for key in ("Return", "KP_Enter", "space", "ctrl+r")}
        return by_key | {
            "click": lambda: timer.click(18, 18),
            "menu": lambda: timer.choose("t", "Up", "Return"),
            "left menu": lambda: (timer.choose("t", "Escape"), self.desktop.key("Return")),
        }

    def test_the_icon_is_a_square_of_the_same_size_on_each_screen(self):
        for scale in (1, 2):
            timer = self.launch(scale=scale)
            timer.set_time(50, 0)
            arrow = self.desktop.cursor()
            for (inside, outside), state in zip(BORDER, ("running", "stopped") * 2):
                timer.move(*inside)
                self.wait_until(lambda: self.desktop.cursor() != arrow, f"the pointer is a hand at {inside}")
                timer.click(*inside)
                timer.wait_for(state)
                timer.move(*outside)
                self.wait_until(lambda: self.desktop.cursor() == arrow, f"the pointer is an arrow at {outside}")
                timer.click(*outside)
            self.assert_stopped(timer)
            self.desktop.key("ctrl+q")
            timer.end()

    def test_other_keys_do_nothing_and_a_held_one_counts_once(self):
        timer = self.launch()
        timer.set_time(50, 0)
        for key in OTHER_KEYS:
            with self.subTest(key):
                self.desktop.key(key)
                self.assert_stopped(timer)
        timer.window.change_attributes(event_mask=X.KeyPressMask)
        self.desktop.hold("space")
        timer.wait_for("running")
        for _ in range(10):
            self.wait_until(self.is_a_key_pressed, "the server repeats the key")
            self.assertEqual(timer.state(), "running")
        self.desktop.let_go("space")

    def is_a_key_pressed(self):
        display = self.desktop.display
        return display.pending_events() and display.next_event().type == X.KeyPress


if __name__ == "__main__":
    main()
