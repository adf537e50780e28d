"""Clicks, keys and the pointer on the timer window, through a whole count and its alert."""

from Xlib import X

from timer import DesktopTest

INSIDE, OUTSIDE = (26, 26), (27, 26)


class InputTest(DesktopTest):
    def test_each_way_starts_and_stops_and_a_held_key_counts_once(self):
        timer = self.launch()
        ways = {key: lambda key=key: self.desktop.key(key) for key in ("Return", "KP_Enter", "space", "ctrl+r")}
        ways["click"] = lambda: timer.click(*INSIDE)
        ways["menu"] = lambda: timer.choose("t", "Up", "Return")
        ways["left menu"] = lambda: (timer.choose("t", "Escape"), self.desktop.key("Return"))
        ways["held space"] = lambda: self.hold("space")
        ways["held ctrl+r"] = lambda: self.hold("ctrl+r")
        timer.window.change_attributes(event_mask=X.KeyPressMask)
        self.desktop.key("space")
        self.assert_stopped(timer)  # an empty one doesn't start
        timer.set_time(50, 0)
        self.desktop.key("x", "Escape", "Tab", "Down", "F5", "ctrl+space", "ctrl+Return")
        self.assert_stopped(timer)
        for name, toggle in ways.items():
            for state in ("running", "stopped"):
                with self.subTest(f"{name}: {state}"):
                    toggle()
                    timer.wait_for(state)
        timer.set_time(0, 1)
        self.desktop.key("space")
        timer.wait_for("alert")
        self.desktop.key("ctrl+t")  # not now
        self.desktop.key("ctrl+r")
        self.assert_stopped(timer)

    def hold(self, chord):
        self.desktop.hold(chord)
        for _ in range(10):
            self.wait_until(self.is_a_key_pressed, "the server repeats the key")
        self.desktop.let_go(chord)

    def is_a_key_pressed(self):
        display = self.desktop.display
        return display.pending_events() and display.next_event().type == X.KeyPress

    def test_the_icon_is_the_same_square_on_a_dense_screen_and_the_pointer_a_hand_there(self):
        timer = self.launch(scale=2)
        timer.set_time(50, 0)
        cursor = lambda: list(self.desktop.display.xfixes_get_cursor_image(self.desktop.root).cursor_image)
        arrow = cursor()
        timer.move(*INSIDE)
        self.wait_until(lambda: cursor() != arrow, "the pointer is a hand")
        timer.click(*OUTSIDE)
        self.wait_until(lambda: cursor() == arrow, "the pointer is an arrow")
        self.assert_stopped(timer)
        timer.click(*INSIDE)
        timer.wait_for("running")
