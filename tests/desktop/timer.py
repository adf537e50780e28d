"""The program on a desktop, as somebody who sits before it knows it, and the base of its tests."""

import contextlib
import os
import pathlib
import re
import tempfile
import unittest

from desktop import Desktop, start

PROGRAM = pathlib.Path(os.environ["DWINDLEDIAL"]).resolve()
COLOURS = {
    "Color_Window_Background": 0x9F9F9F,
    "Color_Clock_Wedge": 0xFF0000,
    "Color_Clock_Face": 0xFFFFFF,
    "Color_Clock_Frame": 0x000000,
}
STATES = {"stopped": 0x2A4A7F, "running": 0x15702F, "alert": 0xA84300}  # the colour of the status icon


class Timer:
    """The program, running. Positions are those of its canvas, in its own pixels."""

    def __init__(self, stack, desktop, path=PROGRAM, settings=None, scale=1, environment=None):
        self.desktop, self.scale = desktop, scale
        home = stack.enter_context(tempfile.TemporaryDirectory(prefix="timer-"))
        environment = desktop.environment(home, QT_SCALE_FACTOR=f"{scale}", **(environment or {}))
        self.file = pathlib.Path(home, "config", "DwindledialPrefs.plist")
        if settings:
            self.file.write_text("".join(f"<key>{k}</key><string>#{v:06X}</string>" for k, v in settings.items()))
        self.errors = stack.enter_context(tempfile.TemporaryFile("w+"))
        desktop.wait_until(lambda: not desktop.windows(), "nothing of the program before is left")
        self.process = start(stack, [path], env=environment, stderr=self.errors)
        self.window = desktop.wait_until(self.find_window, "the timer is there")
        desktop.wait_until(lambda: desktop.has_keys(self.window), "the timer has the keyboard")
        self.bar = desktop.place(self.window)[3] - 229 * scale
        self.wait_for("stopped")

    def find_window(self):
        if self.process.poll() is not None:
            raise AssertionError("the program has ended with {}: {}".format(*self.end()))
        return self.desktop.windows().get("Dwindledial")

    def place(self):
        """The canvas on the screen: left, top, width, height."""
        left, top, width, height = self.desktop.place(self.window)
        bar = 0 if (width, height) == self.desktop.size else self.bar
        return left, top + bar, width, height - bar

    def fills_the_screen(self):
        return self.desktop.place(self.window) == (0, 0, *self.desktop.size)

    def on_screen(self, x, y):
        left, top, *_ = self.place()
        return left + x * self.scale, top + y * self.scale

    def pixel(self, x, y):
        return self.desktop.pixel(*self.on_screen(x, y))

    def wait_for(self, state):
        self.desktop.wait_until(lambda: self.pixel(12, 18) == STATES[state], f"the timer is {state}")

    def move(self, x, y):
        self.desktop.move(*self.on_screen(x, y))

    def click(self, x, y):
        self.desktop.click(*self.on_screen(x, y))

    def set_time(self, minutes, seconds):
        dialog = SetTimer(self)
        # The seconds first: while the minutes read 60, no key reaches them.
        self.desktop.key("ctrl+a", "0", "Tab", "ctrl+a", *f"{seconds}", "shift+Tab", "ctrl+a", *f"{minutes}", "Return")
        dialog.wait_closed()

    def choose(self, menu, *keys):
        """By the keyboard alone: the keys that open the menu, then those within it."""
        self.desktop.key(menu)
        self.desktop.wait_until(self.desktop.menus, "the menu opens")
        self.desktop.key(*keys)
        self.desktop.wait_until(lambda: not self.desktop.menus(), "the menu closes")

    def saved(self):
        """The colours in the settings file."""
        entries = re.findall(r"<key>(.*?)</key>\s*<string>#(.*?)</string>", self.file.read_text())
        return {key: int(value, 16) for key, value in entries}

    def end(self):
        """Waits for the program to end; its exit status and what it has written to standard error."""
        self.desktop.wait_until(lambda: self.process.poll() is not None, "the program ends")
        self.errors.seek(0)
        return self.process.returncode, self.errors.read()


class Dialog:
    """One of the timer's other windows, once it has opened. Positions are in its own pixels."""

    def __init__(self, timer, title):
        self.timer, self.desktop, self.title = timer, timer.desktop, title
        self.wait_until = self.desktop.wait_until
        self.window = self.wait_until(lambda: self.desktop.windows().get(title), f"{title} opens")
        self.wait_for_keys()

    def wait_for_keys(self):
        self.wait_until(lambda: self.desktop.has_keys(self.window), f"{self.title} has the keyboard")

    def click(self, x, y):
        (left, top, *_), scale = self.desktop.place(self.window), self.timer.scale
        self.desktop.click(left + x * scale, top + y * scale)

    def wait_closed(self):
        self.wait_gone()
        self.wait_until(lambda: self.desktop.has_keys(self.timer.window), "the timer has the keyboard again")

    def wait_gone(self):
        self.wait_until(lambda: self.title not in self.desktop.windows(), f"{self.title} closes")


class SetTimer(Dialog):
    """The Set Timer dialog, opened by its shortcut."""

    def __init__(self, timer):
        timer.desktop.key("ctrl+t")
        super().__init__(timer, "Set Timer")


class DesktopTest(unittest.TestCase):
    MANAGER = "openbox"

    def setUp(self):
        self.stack = contextlib.ExitStack()
        self.addCleanup(self.stack.close)
        self.desktop = Desktop(self.stack, manager=self.MANAGER)
        self.wait_until = self.desktop.wait_until

    def launch(self, **options):
        return Timer(self.stack, self.desktop, **options)

    def assert_stopped(self, timer):
        """That no input before has started the timer: only a stopped one opens Set Timer."""
        dialog = SetTimer(timer)
        dialog.click(178, 41)  # Cancel
        dialog.wait_closed()
        timer.wait_for("stopped")
