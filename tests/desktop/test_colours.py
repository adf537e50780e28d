"""The Preferences dialog: colours on the real pointer, live on the clock, and what is kept of them."""

from timer import COLOURS, DesktopTest, Dialog

BACKGROUND, FACE, WEDGE = (36, 30), (36, 68), (203, 68)
DEFAULTS = (70, 112)
ON_FACE, ON_WEDGE = (240, 190), (170, 194)  # on the clock at half an hour, below the dialog


class ColoursTest(DesktopTest):
    def test_the_whole_road(self):
        timer = self.launch(settings={"Color_Clock_Wedge": 0x00C040})
        timer.set_time(30, 0)
        self.desktop.key("ctrl+comma")
        dialog = Dialog(timer, "Preferences")
        (left, top, width, _), place = timer.place(), self.desktop.place(dialog.window)
        self.assertEqual(place[:2], (left + (width - place[2]) // 2, top + 30 - timer.bar))
        dialog.click(*DEFAULTS)
        self.wait_until(lambda: timer.pixel(*ON_WEDGE) == 0xFF0000, "the default shows")
        self.drag(dialog, FACE, WEDGE)
        self.assertEqual(self.desktop.windows().keys(), {"Dwindledial", "Preferences"}, "no key, no drag")
        self.drag(dialog, BACKGROUND, WEDGE, "ctrl")
        self.wait_until(lambda: timer.pixel(*ON_WEDGE) == 0x9F9F9F, "the dragged colour shows at once")
        dialog.click(*FACE)
        picker = Dialog(timer, "Pick a color:")
        self.desktop.key("alt+r", "1", "8", "Return")
        picker.wait_gone()
        self.wait_until(lambda: timer.pixel(*ON_FACE) == 0x12FFFF, "the picked colour shows")
        dialog.wait_for_keys()
        self.desktop.key("Return")  # OK, not the button that was clicked
        dialog.wait_closed()
        self.desktop.key("alt+h", "h")
        Dialog(timer, "Help")
        self.desktop.key("ctrl+q")  # from a window without a menu bar
        self.assertEqual(timer.end(), (0, ""))
        self.assertEqual(timer.saved(), COLOURS | {"Color_Clock_Wedge": 0x9F9F9F, "Color_Clock_Face": 0x12FFFF})

    def drag(self, dialog, start, end, chord=""):
        """From the middle of one well to that of another, as a hand does it: by and by."""
        left, top, *_ = self.desktop.place(dialog.window)
        self.desktop.hold(chord)
        self.desktop.press(left + start[0], top + start[1])
        for tenths in range(1, 11):
            x, y = (a + (b - a) * tenths // 10 for a, b in zip(start, end))
            self.desktop.move(left + x, top + y)
            self.desktop.settle()
        self.desktop.release()
        self.desktop.let_go(chord)
