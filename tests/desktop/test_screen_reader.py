"""What a screen reader finds and hears. The test has a message bus of its own, on which the reader and the program meet."""

import contextlib
import os

import pyatspi
from gi.repository import GLib

from timer import DesktopTest, main

CONTROLS = {
    "Set Timer": {("text", "Min"), ("text", "Sec"), ("push button", "Set"), ("push button", "Cancel")},
    "Preferences": {
        *(("push button", well) for well in ("Background", "Frame", "Face", "Wedge")),
        *(("push button", button) for button in ("OK", "Cancel", "Use Defaults")),
    },
    "Create Movie": {
        *(("text", field) for field in ("Start Time:", "Frame width", "Frame height", "Clock Size:", "Frame Rate:")),
        *(("check box", box) for box in ("Show Compression Settings", "Open Movie upon Completion")),
        *(("push button", button) for button in ("Cancel", "Start")),
    },
}


class ScreenReaderTest(DesktopTest):
    def setUp(self):
        super().setUp()
        bus = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        self.timer = self.launch(environment={"DBUS_SESSION_BUS_ADDRESS": bus, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        self.clock = self.find("image", "Clock")
        self.spoken = []
        pyatspi.Registry.registerEventListener(self.hear, "object:state-changed:showing")
        self.addCleanup(pyatspi.Registry.deregisterEventListener, self.hear, "object:state-changed:showing")

    def hear(self, event):
        with contextlib.suppress(GLib.GError):  # what has shown may be gone by now
            if event.detail1 and event.source.getRoleName() == "notification":
                self.spoken.append(event.source.name)

    def wait_for(self, condition, what):
        context = GLib.MainContext.default()

        def holds():
            while context.iteration(False):
                pass
            return condition()

        return self.wait_until(holds, what)

    def program(self):
        return next((p for p in pyatspi.Registry.getDesktop(0) if p and p.name == "Dwindledial"), None)

    def find(self, role, name, within=None):
        def search():
            root = within or self.program()
            return root and pyatspi.findDescendant(root, lambda o: o.getRoleName() == role and o.name == name)

        return self.wait_for(search, f"there is a {role} {name}")

    def test_every_control_has_its_name(self):
        for shortcut, title in (("ctrl+t", "Set Timer"), ("ctrl+comma", "Preferences"), ("ctrl+m", "Create Movie")):
            with self.subTest(title):
                self.desktop.key(shortcut)
                dialog = self.find("dialog", title)
                for role, name in CONTROLS[title]:
                    self.find(role, name, dialog)
                self.find("push button", "Cancel", dialog).queryAction().doAction(0)
                self.wait_until(lambda: title not in self.desktop.windows(), f"{title} closes")

    def test_a_timer_is_set_started_and_dismissed_without_looking(self):
        self.assertEqual(self.clock.description, "Stopped, no time left")
        self.desktop.key("ctrl+t")
        dialog = self.find("dialog", "Set Timer")
        self.find("text", "Min", dialog).queryEditableText().setTextContents("01")
        self.find("text", "Sec", dialog).queryEditableText().setTextContents("02")
        self.find("push button", "Set", dialog).queryAction().doAction(0)
        self.wait_for(lambda: self.clock.description == "Stopped, 1 minute 2 seconds left", "the time is told")
        self.assertEqual(self.clock.queryValue().currentValue, 62)

        self.clock.queryAction().doAction(0)
        self.wait_for(lambda: self.spoken == ["Running, 1 minute 2 seconds left"], "the start is said")
        self.wait_for(lambda: self.clock.queryValue().currentValue < 60, "the time goes on")
        self.assertEqual(len(self.spoken), 1)
        self.clock.queryAction().doAction(0)
        self.wait_for(lambda: len(self.spoken) == 2, "the stop is said")

        self.timer.set_time(0, 1)
        self.spoken.clear()
        self.desktop.key("space")
        said = ["Running, 1 second left", "Time is Up!"]
        self.wait_for(lambda: self.spoken == said, "the alert is said")
        self.assertEqual(self.clock.description, "Time is Up!")
        self.desktop.key("space")
        self.wait_for(lambda: self.spoken == [*said, "Stopped, no time left"], "the end of the alert is said")


if __name__ == "__main__":
    main()
