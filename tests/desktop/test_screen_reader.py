"""What a screen reader finds and hears. It meets the program on a message bus of the test's own."""

import contextlib
import os
import subprocess
import tempfile

import pyatspi
from gi.repository import Atspi, GLib

from timer import DesktopTest

EVENT = "object:state-changed:showing"
# Where the bus of screen readers has its socket. In a folder that is shared it takes the place of another test's or the
# user's, and programs that come later no longer find that one.
RUNTIME = tempfile.TemporaryDirectory(prefix="reader-")
subprocess.run(["dbus-update-activation-environment", f"XDG_RUNTIME_DIR={RUNTIME.name}"], check=True)
Atspi.set_timeout(2000, 0)  # also for a program that has just begun: what opens a dialog answers once that is closed


class ScreenReaderTest(DesktopTest):
    def hear(self, event):
        with contextlib.suppress(GLib.GError):  # what has shown may be gone by now
            if event.detail1 and event.source.getRoleName() == "notification":
                self.spoken.append(event.source.name)

    def has_said(self, words):
        while GLib.MainContext.default().iteration(False):
            pass
        return self.spoken == words

    def find(self, role, name, within=None):
        """What can be used, of that role and name."""

        def fits(item):
            named = item.getRoleName().removeprefix("push ")  # a button's role has had two names
            return named == role and item.name == name and item.getState().contains(pyatspi.STATE_SENSITIVE)

        def search():
            with contextlib.suppress(GLib.GError):  # something may just be ending
                roots = [within] if within else pyatspi.Registry.getDesktop(0)
                mine = (p for p in roots if p and p.get_process_id() == self.timer.process.pid)
                return next(filter(None, (pyatspi.findDescendant(root, fits) for root in mine)), None)

        return self.wait_until(search, f"there is a {role} {name}")

    def press(self, role, name, within=None):
        with contextlib.suppress(GLib.GError):  # what opens a dialog doesn't answer in time
            self.find(role, name, within).queryAction().doAction(0)

    def test_the_program_is_used_without_looking(self):
        bus = {"DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"]}
        self.spoken = []
        pyatspi.Registry.registerEventListener(self.hear, EVENT)  # so early that the program knows of it in time
        self.addCleanup(pyatspi.Registry.deregisterEventListener, self.hear, EVENT)
        self.timer = self.launch(environment=bus | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        self.press("menu item", "Set...")
        dialog = self.find("dialog", "Set Timer")
        self.press("button", "Sec up", dialog)
        self.press("button", "Set", dialog)
        said = ["Stopped, 1 second left"]
        for more in ["Running, 1 second left", "Time is Up!"], ["Stopped, no time left"], []:
            self.wait_until(lambda: self.has_said(said), f"what is said is {said}")
            self.assertEqual(self.find("image", "Clock").description, said[-1])
            if more:
                self.press("image", "Clock")
                said += more
