"""The window's icon; fullscreen, there and back."""

import contextlib
import signal

from Xlib import error

from desktop import start
from timer import COLOURS, PROGRAM, DesktopTest, SetTimer

BACKGROUND = COLOURS["Color_Window_Background"]


class IconTest(DesktopTest):
    def test_it_comes_before_the_window_shows(self):
        self.desktop.manager.send_signal(signal.SIGSTOP)  # which would show the window
        start(self.stack, [PROGRAM], env=self.desktop.environment(self.desktop.home))
        self.wait_until(self.is_there, "the window has its icon")

    def is_there(self):
        with contextlib.suppress(error.XError):  # some windows are soon gone
            return any(self.desktop.property("_NET_WM_ICON", w) for w in self.desktop.root.query_tree().children)


class FullscreenTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.timer = self.launch()
        self.timer.window.configure(x=150, y=170, width=600, height=372)
        self.wait_until(lambda: self.frame()[0][2:] == (600, 372), "the window has its size")
        self.timer.set_time(50, 0)

    def frame(self):
        """Where the window is, and what else the window manager has made of it."""
        names = ("MAXIMIZED_VERT", "MAXIMIZED_HORZ", "FULLSCREEN")
        state = self.desktop.property("_NET_WM_STATE", self.timer.window)
        return self.desktop.place(self.timer.window), {n for n in names if self.atom(n) in state}

    def ask_for(self, on, *names):
        self.desktop.ask("_NET_WM_STATE", self.timer.window, on, *map(self.atom, names))

    def atom(self, name):
        return self.desktop.display.get_atom(f"_NET_WM_STATE_{name}")

    def wait_for_frame(self, frame):
        self.wait_until(lambda: self.frame() == frame, f"the window is at {frame} again")

    def enter(self):
        self.desktop.key("ctrl+f")
        self.wait_until(lambda: self.timer.fills_the_screen() and not self.has_bar(), "the canvas alone fills it all")

    def has_bar(self):
        return self.timer.pixel(1000, 5) != BACKGROUND

    def run_and_stop(self):
        """What came before has been dealt with once this has shown."""
        for state in ("running", "stopped"):
            self.wait_until(lambda: self.desktop.has_keys(self.timer.window), "the timer has the keyboard")
            self.desktop.key("ctrl+r")
            self.timer.wait_for(state)

    def test_the_exact_frame_comes_back(self):
        normal = self.frame()
        vertically, fully = ("MAXIMIZED_VERT",), ("MAXIMIZED_VERT", "MAXIMIZED_HORZ")
        # The window's state, and what the user does under the dialog: a size last, once the program has set a place.
        for names, change in (
                ((), {}), (vertically, {}), (fully, {}), ((), {"x": 90, "y": 80}), ((), {"width": 700, "height": 400})):
            self.ask_for(True, *names)
            self.wait_until(lambda: self.frame()[1] == set(names), f"it is maximised: {names}")
            self.wait_until(lambda: (self.frame()[0] != normal[0]) == bool(names), "it lies accordingly")
            self.desktop.settle()
            before = self.frame()
            self.enter()
            self.run_and_stop()
            dialog = SetTimer(self.timer)
            self.wait_for_frame(before)  # the dialog lies over the window as it was
            self.timer.window.configure(**change)
            self.wait_until(lambda: bool(change) == (self.frame() != before), f"the window has changed: {change}")
            dialog.click(250, 41)  # Set
            dialog.wait_closed()
            self.wait_until(self.timer.fills_the_screen, "the window is back in fullscreen")
            self.desktop.key("ctrl+f")
            self.wait_for_frame(before)
            self.run_and_stop()
            self.assertEqual(self.frame(), before)
            self.ask_for(False, *names)
            self.wait_for_frame(normal)
        self.enter()
        self.ask_for(False, "FULLSCREEN")
        self.wait_for_frame(normal)
        self.ask_for(True, "FULLSCREEN")  # the window manager's is a large window
        self.wait_until(lambda: self.timer.fills_the_screen() and self.has_bar(), "the bar has room of its own")

    def test_the_bar_comes_when_it_is_called(self):
        self.enter()
        self.timer.move(600, 10)
        self.wait_until(self.has_bar, "the bar comes")
        self.timer.move(600, self.timer.bar - 1)
        self.desktop.key("alt+t")
        left, top, width, height = self.wait_until(self.desktop.menus, "the menu opens")[0]
        self.desktop.move(left + width // 2, top + height * 3 // 4)
        self.desktop.key("Escape", "Escape")
        self.wait_until(lambda: not self.desktop.menus() and self.has_bar(), "the bar has stayed")
        self.timer.move(600, self.timer.bar)
        self.wait_until(lambda: not self.has_bar(), "the bar goes")


class OtherManagerTest(FullscreenTest):
    """It answers in another order, and takes other requests for a wish to end the maximised state."""

    MANAGER = "metacity"
