"""What a screen reader finds and hears. The test has a message bus of its own, on which the reader and the program meet."""

from reader import Reader
from timer import DesktopTest, main

ARROWS = ["Min up", "Min down", "Sec up", "Sec down"]
WELLS = ["Background", "Frame", "Face", "Wedge"]
CONTROLS = {
    ("Set...", "Set Timer"): {"text": ["Min", "Sec"], "button": ["Set", *ARROWS]},
    ("Preferences...", "Preferences"): {"button": ["OK", "Use Defaults", *WELLS]},
    ("Create Movie...", "Create Movie"): {
        "text": ["Start Time:", "Frame width", "Frame height", "Clock Size:", "Frame Rate:"],
        "check box": ["Show Compression Settings", "Open Movie upon Completion"],
        "button": ["Start"],
    },
}


class ScreenReaderTest(DesktopTest):
    def test_the_program_is_used_without_looking(self):
        timer = self.launch(environment=Reader.ENVIRONMENT)
        reader = Reader(self.stack, timer.process, self.wait_until)

        def press(role, name, within=None):
            reader.press(reader.find(role, name, within))

        for (command, title), controls in CONTROLS.items():
            press("menu item", command)
            dialog = reader.find("dialog", title)
            for role, name in ((role, name) for role, names in controls.items() for name in names):
                reader.find(role, name, dialog)
            press("button", "Cancel", dialog)
            self.wait_until(lambda: title not in self.desktop.windows(), f"{title} closes")

        self.assertEqual(reader.actions(reader.clock), ["Press"])
        press("menu item", "Set...")
        dialog = reader.find("dialog", "Set Timer")
        press("button", "Sec up", dialog)
        press("button", "Set", dialog)
        said = ["Stopped, 1 second left"]
        for more in ["Running, 1 second left", "Time is Up!"], ["Stopped, no time left"]:
            reader.wait_for(lambda: reader.spoken == said, f"what is said is {said}")
            self.assertEqual(reader.clock.description, said[-1])
            reader.press(reader.clock)
            said += more
        reader.wait_for(lambda: reader.spoken == said, f"what is said is {said}")

        press("menu item", "Help...")
        text = reader.find("text", "", reader.find("frame", "Help")).queryText()
        self.desktop.key("Down")
        reader.wait_for(lambda: text.caretOffset > 0, "the caret moves")


if __name__ == "__main__":
    main()
