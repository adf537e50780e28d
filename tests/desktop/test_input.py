"""Clicks, keys and the pointer on the timer window, on a dense screen."""

import itertools

from Xlib import X

from timer import DesktopTest

INSIDE, OUTSIDE = (26, 26), (27, 26)


class InputTest(DesktopTest):
    def test_each_way_starts_and_stops_and_a_held_key_counts_once(self):
        timer = self.launch(scale=2)
        ways = {key: lambda key=key: self.desktop.key(key) for key in ("Return", "KP_Enter", "space", "ctrl+r")}
        ways["click"] = lambda: timer.click(*INSIDE)
        ways["menu"] = lambda: timer.choose("alt+t", "Up", "Return")
        ways["first menu"] = lambda: timer.choose("F10", "Right", "Right", "Up", "Return")
        ways["left menu"] = lambda: (timer.choose("alt+t", "Escape"), self.desktop.key("Return"))
        ways["held space"] = lambda: self.hold("space")
        ways["held ctrl+r"] = lambda: self.hold("ctrl+r")
        timer.window.change_attributes(event_mask=X.KeyPressMask)
        self.desktop.key("space")
        self.assert_stopped(timer)  # an empty one doesn't start
        timer.set_time(50, 0)
        self.desktop.key("x", "Escape", "Tab", "Down", "F5", "ctrl+space", "ctrl+Return")
        timer.click(*OUTSIDE)
        self.assert_stopped(timer)
        for is_full in (False, True):
            for (name, toggle), state in itertools.product(ways.items(), ("running", "stopped")):
                with self.subTest(f"{name}, fullscreen {is_full}: {state}"):
                    toggle()
                    timer.wait_for(state)  # in fullscreen the menu bar would cover it
            self.desktop.key("ctrl+f")
            self.wait_until(lambda: timer.fills_the_screen() != is_full, "Ctrl+F has done its work")
        timer.set_time(0, 1)
        self.desktop.key("space")
        timer.wait_for("alert")
        self.desktop.key("ctrl+t", "ctrl+r")  # no dialog now
        self.assert_stopped(timer)

    def hold(self, chord):
        display = self.desktop.display
        is_pressed = lambda: display.pending_events() and display.next_event().type == X.KeyPress
        self.desktop.hold(chord)
        for _ in range(10):
            self.wait_until(is_pressed, "the server repeats the key")
        self.desktop.let_go(chord)
