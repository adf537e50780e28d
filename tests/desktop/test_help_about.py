"""The Help and About windows beside the timer."""

from timer import DesktopTest, Dialog


class HelpAboutTest(DesktopTest):
    def test_they_come_beside_the_timer_and_it_goes_on(self):
        timer = self.launch()
        timer.arrange(820, 40, 441, 229)  # where the others leave it to be seen
        timer.choose("h", "h")
        guide = Dialog(timer, "Help").window
        self.desktop.settle()  # it may be moved at first
        left, top, width, _ = self.desktop.place(guide)
        self.desktop.click(left + width - 43, top - 11)
        self.wait_until(lambda: self.desktop.property("_NET_WM_STATE", guide), "it is minimised")
        for _ in range(2):
            timer.click(5, 220)  # where nothing is
            self.wait_until(lambda: self.desktop.has_keys(timer.window), "the timer has the keyboard")
            timer.choose("h", "h")
            self.assertEqual(Dialog(timer, "Help").window, guide)
        timer.click(5, 220)
        timer.set_time(0, 1)
        self.desktop.key("space")
        timer.choose("h", "a")
        about = Dialog(timer, " ")
        self.desktop.settle()
        left, top, width, height = self.desktop.place(about.window)
        self.assertEqual((left + width // 2, top + height // 2), (640, 400), "it is in the middle")
        timer.wait_for("alert")
        self.desktop.key("Escape")
        about.wait_closed()
        self.desktop.key("alt+F4")
        self.assertEqual(timer.end(), (0, ""))
