"""The colours on disk, from the start to each way to end."""

from timer import COLOURS, DesktopTest, main

CHANGED = {
    "Color_Window_Background": 0x204060,
    "Color_Clock_Wedge": 0x00C040,
    "Color_Clock_Face": 0xFFF0C0,
    "Color_Clock_Frame": 0x603010,
}


class EndingTest(DesktopTest):
    def shown(self, timer):
        """The colours where each must be, with the time at a quarter of an hour."""
        places = ((2, 2), (170, 64), (270, 164), (220, 9))
        return dict(zip(COLOURS, (timer.pixel(*place) for place in places)))

    def bring_to(self, timer, state):
        timer.set_time(0 if state == "alert" else 15, 1 if state == "alert" else 0)
        if state != "stopped":
            self.desktop.key("space")
        timer.wait_for(state)

    def assert_ends_well(self, timer):
        self.assertEqual(timer.end(), (0, ""))

    def click_close_button(self, timer):
        left, top, width, _ = self.desktop.place(timer.window)
        self.desktop.click(left + width - 10, top - 11)

    def test_closing_keeps_all_colours_in_each_state(self):
        for state in ("stopped", "running", "alert"):
            with self.subTest(state):
                timer = self.launch(settings=CHANGED)
                self.bring_to(timer, state)
                if state == "stopped":
                    self.assertEqual(self.shown(timer), CHANGED)
                timer.file.unlink()
                self.desktop.key("alt+F4")
                self.assert_ends_well(timer)
                self.assertEqual(timer.saved(), CHANGED)

    def test_every_way_out_ends_well(self):
        ways = {
            "close button": self.click_close_button,
            "shortcut": lambda timer: self.desktop.key("ctrl+q"),
            "menu": lambda timer: timer.choose("f", "Up", "Return"),
            "from fullscreen": self.close_in_fullscreen,
        }
        for name, leave in ways.items():
            with self.subTest(name):
                timer = self.launch()
                self.bring_to(timer, "running")
                leave(timer)
                self.assert_ends_well(timer)
                self.assertEqual(timer.saved(), COLOURS)

    def close_in_fullscreen(self, timer):
        self.desktop.key("ctrl+f")
        self.wait_until(timer.fills_the_screen, "the canvas fills the screen")
        self.desktop.key("alt+F4")


if __name__ == "__main__":
    main()
