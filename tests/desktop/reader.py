"""A screen reader, as far as finding, pressing and listening go. It meets the program on the test's own session bus."""

import contextlib
import os
import subprocess
import tempfile

import pyatspi
from gi.repository import Atspi, GLib

EVENT = "object:state-changed:showing"
# Where the bus of screen readers has its socket. In a folder that is shared it takes the place of another test's or the
# user's, and programs that come later no longer find that one.
RUNTIME = tempfile.TemporaryDirectory(prefix="reader-")
subprocess.run(["dbus-update-activation-environment", f"XDG_RUNTIME_DIR={RUNTIME.name}"], check=True)
Atspi.set_timeout(2000, 0)  # also for a program that has just begun: what opens a dialog answers once that is closed


class Reader:
    # What the program needs to be told.
    ENVIRONMENT = {k: os.environ[k] for k in ["DBUS_SESSION_BUS_ADDRESS"]} | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def __init__(self, stack, process, wait_until):
        self.process, self.wait_until, self.spoken = process, wait_until, []
        self.clock = self.find("image", "Clock")
        pyatspi.Registry.registerEventListener(self.hear, EVENT)
        stack.callback(pyatspi.Registry.deregisterEventListener, self.hear, EVENT)

    def hear(self, event):
        with contextlib.suppress(GLib.GError):  # what has shown may be gone by now
            if event.detail1 and event.source.getRoleName() == "notification":
                self.spoken.append(event.source.name)

    def wait_for(self, condition, what):
        def holds():
            while GLib.MainContext.default().iteration(False):
                pass
            with contextlib.suppress(GLib.GError):  # something may just be ending
                return condition()

        return self.wait_until(holds, what)

    def find(self, role, name, within=None):
        """What can be used, of that role and name."""

        def fits(item):
            named = item.getRoleName().removeprefix("push ")  # a button's role has had two names
            return named == role and item.name == name and item.getState().contains(pyatspi.STATE_SENSITIVE)

        def search():
            mine = (p for p in pyatspi.Registry.getDesktop(0) if p and p.get_process_id() == self.process.pid)
            root = within or next(mine, None)
            return root and pyatspi.findDescendant(root, fits)

        return self.wait_for(search, f"there is a {role} {name}")

    def actions(self, item):
        actions = item.queryAction()
        return [actions.getName(i) for i in range(actions.nActions)]

    def press(self, item, action="Press"):
        names = self.actions(item)
        with contextlib.suppress(GLib.GError):  # what opens a dialog doesn't answer in time
            item.queryAction().doAction(names.index(action))

    def enter(self, field, text):
        field.queryEditableText().setTextContents(text)
