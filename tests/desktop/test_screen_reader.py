"""What a screen reader finds and hears. The test has a message bus of its own, on which the reader and the program meet."""

from reader import Reader
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
        self.timer = self.launch(environment=Reader.ENVIRONMENT)
        self.reader = Reader(self.stack, self.timer.process, self.wait_until)
        self.clock, self.find, self.wait_for = self.reader.clock, self.reader.find, self.reader.wait_for

    def test_every_control_has_its_name(self):
        for shortcut, title in (("ctrl+t", "Set Timer"), ("ctrl+comma", "Preferences"), ("ctrl+m", "Create Movie")):
            with self.subTest(title):
                self.desktop.key(shortcut)
                dialog = self.find("dialog", title)
                for role, name in CONTROLS[title]:
                    self.find(role, name, dialog)
                self.reader.press(self.find("push button", "Cancel", dialog))
                self.wait_until(lambda: title not in self.desktop.windows(), f"{title} closes")

    def test_a_timer_is_set_started_and_dismissed_without_looking(self):
        self.assertEqual(self.clock.description, "Stopped, no time left")
        self.desktop.key("ctrl+t")
        dialog = self.find("dialog", "Set Timer")
        self.reader.enter(self.find("text", "Min", dialog), "01")
        self.reader.enter(self.find("text", "Sec", dialog), "02")
        self.reader.press(self.find("push button", "Set", dialog))
        self.wait_for(lambda: self.clock.description == "Stopped, 1 minute 2 seconds left", "the time is told")
        self.assertEqual(self.clock.queryValue().currentValue, 62)

        self.reader.press(self.clock)
        self.wait_for(lambda: self.reader.spoken == ["Running, 1 minute 2 seconds left"], "the start is said")
        self.wait_for(lambda: self.clock.queryValue().currentValue < 60, "the time goes on")
        self.assertEqual(len(self.reader.spoken), 1)
        self.reader.press(self.clock)
        self.wait_for(lambda: len(self.reader.spoken) == 2, "the stop is said")

        self.timer.set_time(0, 1)
        self.reader.spoken.clear()
        self.desktop.key("space")
        said = ["Running, 1 second left", "Time is Up!"]
        self.wait_for(lambda: self.reader.spoken == said, "the alert is said")
        self.assertEqual(self.clock.description, "Time is Up!")
        self.desktop.key("space")
        self.wait_for(lambda: self.reader.spoken == [*said, "Stopped, no time left"], "the end of the alert is said")


if __name__ == "__main__":
    main()
