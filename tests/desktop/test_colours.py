"""The Preferences dialog: colours on the real pointer, live on the clock, and what is kept of them."""

from timer import COLOURS, DesktopTest, Dialog, main

FACE, WEDGE = (36, 68), (203, 68)
OK = (308, 112)
ON_FACE = (170, 194)  # on the clock at a quarter of an hour, below the dialog
CHANGED = {"Color_Clock_Wedge": 0x00C040, "Color_Clock_Face": 0xFFF0C0}


class ColoursTest(DesktopTest):
    def start(self, **options):
        timer = self.launch(**options)
        timer.set_time(15, 0)
        return timer

    def open_preferences(self, timer):
        self.desktop.key("ctrl+comma")
        return Dialog(timer, "Preferences")

    def drag(self, dialog, start, end, chord=None):
        """From the middle of one well to that of another, as a hand does it: by and by."""
        left, top, *_ = self.desktop.place(dialog.window)
        if chord:
            self.desktop.hold(chord)
        self.desktop.press(left + start[0], top + start[1])
        for step in range(1, 11):
            x, y = (a + (b - a) * step // 10 for a, b in zip(start, end))
            self.desktop.move(left + x, top + y)
            self.desktop.settle()
        self.desktop.release()
        if chord:
            self.desktop.let_go(chord)

    def test_a_colour_is_dragged_from_well_to_well_with_either_key(self):
        for chord in ("ctrl", "shift"):
            with self.subTest(chord):
                timer = self.start(settings=CHANGED)
                dialog = self.open_preferences(timer)
                self.drag(dialog, FACE, WEDGE)
                self.assertEqual(self.desktop.windows().keys(), {"Dwindledial", "Preferences"}, "no key, no drag")
                self.drag(dialog, FACE, WEDGE, chord)
                self.wait_until(lambda: timer.pixel(240, 190) == 0xFFF0C0, "the dragged colour shows at once")
                dialog.close(OK)
                self.desktop.key("ctrl+q")
                self.assertEqual(timer.end(), (0, ""))
                self.assertEqual(timer.saved(), COLOURS | CHANGED | {"Color_Clock_Wedge": 0xFFF0C0})

    def test_a_picked_colour_shows_and_is_kept(self):
        timer = self.start(settings=CHANGED)
        dialog = self.open_preferences(timer)
        dialog.click(FACE)
        picker = Dialog(timer, "Pick a color:")
        self.desktop.key("alt+r", "1", "8", "Return")
        picker.wait_gone()
        self.wait_until(lambda: timer.pixel(*ON_FACE) == 0x12F0C0, "the picked colour shows")
        dialog.close(OK)
        self.desktop.key("ctrl+q")
        self.assertEqual(timer.end(), (0, ""))
        self.assertEqual(timer.saved(), COLOURS | CHANGED | {"Color_Clock_Face": 0x12F0C0})


if __name__ == "__main__":
    main()
