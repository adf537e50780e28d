"""The Help and About windows beside the timer."""

from timer import DesktopTest, Dialog, main

ABOUT = " "  # its title is blank


class HelpAboutTest(DesktopTest):
    def test_each_command_shows_its_one_window_beside_the_timer(self):
        timer = self.launch()
        timer.arrange(820, 40, 441, 229)  # where the others leave it to be seen
        windows = {}
        for title, key in (("Help", "h"), (ABOUT, "a")) * 2:
            timer.choose("h", key)
            window = Dialog(timer, title).window
            self.desktop.settle()  # it may be moved at first
            left, top, width, height = self.desktop.place(window)
            if title in windows:
                self.assertEqual(window.id, windows[title].id)
            elif title == ABOUT:
                self.assertEqual((left + width // 2, top + height // 2), (640, 400), "it is in the middle")
            else:
                self.desktop.click(left + width - 43, top - 11)
                self.wait_until(lambda: self.desktop.property("_NET_WM_STATE", window), "Help is minimised")
            windows[title] = window
            timer.click(5, 220)  # where nothing is
            self.wait_until(lambda: self.desktop.has_keys(timer.window), "the timer has the keyboard")
        timer.set_time(0, 1)
        self.desktop.key("space")
        timer.choose("h", "a")
        about = Dialog(timer, ABOUT)
        timer.wait_for("alert")
        self.desktop.key("Escape")
        about.wait_closed()
        self.desktop.key("alt+F4")
        self.assertEqual(timer.end(), (0, ""))


if __name__ == "__main__":
    main()
