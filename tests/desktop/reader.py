"""A screen reader, as far as finding, pressing and listening go. It meets the program on the session bus that the test has
for itself, whatever the display is."""

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
    """Knows a program by its process; `wait_until` waits for a condition."""

    # What the program needs to be told.
    ENVIRONMENT = {
        "DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"],
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
    }

    def __init__(self, stack, process, wait_until):
        self.process, self.wait_until = process, wait_until
        self.clock = self.find("image", "Clock")
        self.spoken = []
        pyatspi.Registry.registerEventListener(self.hear, EVENT)
        stack.callback(pyatspi.Registry.deregisterEventListener, self.hear, EVENT)

    def hear(self, event):
        with contextlib.suppress(GLib.GError):  # what has shown may be gone by now
            if event.detail1 and event.source.getRoleName() == "notification":
                self.spoken.append(event.source.name)

    def wait_for(self, condition, what):
        context = GLib.MainContext.default()

        def holds():
            while context.iteration(False):
                pass
            with contextlib.suppress(GLib.GError):  # something may just be ending
                return condition()

        return self.wait_until(holds, what)

    def program(self):
        return next((p for p in pyatspi.Registry.getDesktop(0) if p and p.get_process_id() == self.process.pid), None)

    def find(self, role, name, within=None):
        def search():
            root = within or self.program()
            return root and pyatspi.findDescendant(root, lambda o: o.getRoleName() == role and o.name == name)

        return self.wait_for(search, f"there is a {role} {name}")

    def actions(self, item):
        """What can be done to it now, by name."""
        actions = item.queryAction()
        return [actions.getName(i) for i in range(actions.nActions)]

    def press(self, item, action="Press"):
        actions, names = item.queryAction(), self.actions(item)
        with contextlib.suppress(GLib.GError):  # what opens a dialog doesn't answer in time
            actions.doAction(names.index(action))

    def enter(self, field, text):
        field.queryEditableText().setTextContents(text)
