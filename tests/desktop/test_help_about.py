"""The Help and About windows beside the timer."""

import contextlib

from timer import DesktopTest, main

HELP, ABOUT = "Help", " "  # their titles: that of the About window is blank


class HelpAboutTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.timer = self.launch()
        self.timer.arrange(820, 40, 441, 229)  # where the others leave it to be seen

    def choose(self, title):
        """The item by the pointer: the first one of the Help menu, or the last."""
        self.desktop.key("alt+h")
        left, top, width, height = self.wait_until(self.desktop.menus, "the menu opens")[-1]
        self.desktop.click(left + 30, top + (12 if title == HELP else height - 12))
        self.wait_until(lambda: not self.desktop.menus(), "the menu closes")
        return self.wait_for_front(title)

    def wait_for_front(self, title):
        def in_front():
            window = self.desktop.windows().get(title)
            with contextlib.suppress(IndexError):
                top = self.desktop.property("_NET_CLIENT_LIST_STACKING")[-1]
                return window and window.id == top and self.desktop.has_keys(window) and window

        return self.wait_until(in_front, f"the window with the title '{title}' is in front")

    def back_to_timer(self):
        self.timer.click(5, 220)  # where nothing is
        self.wait_until(lambda: self.desktop.has_keys(self.timer.window), "the timer has the keyboard")

    def test_each_command_shows_its_one_window(self):
        first = {HELP: self.choose(HELP)}
        self.back_to_timer()
        first[ABOUT] = self.choose(ABOUT)
        self.assertEqual(self.desktop.place(first[HELP])[2:], (400, 400))
        left, top, width, height = self.desktop.place(first[ABOUT])
        self.assertEqual((left + width // 2, top + height // 2, width, height), (640, 400, 284, 366))
        for title, keys in ((HELP, "h"), (ABOUT, "a")):
            self.back_to_timer()
            self.timer.choose("h", keys)
            self.assertEqual(self.wait_for_front(title).id, first[title].id)
        self.assertEqual(len(self.desktop.property("_NET_CLIENT_LIST")), 3)
        self.desktop.key("Escape")
        self.wait_until(lambda: ABOUT not in self.desktop.windows(), "Escape closes it")
        self.assertEqual(self.timer.process.poll(), None)

    def test_a_minimised_window_comes_back(self):
        window = self.choose(HELP)
        left, top, width, _ = self.desktop.place(window)
        self.desktop.click(left + width - 43, top - 11)
        self.wait_until(lambda: self.desktop.property("_NET_WM_STATE", window), "Help is minimised")
        self.back_to_timer()
        self.choose(HELP)

    def test_the_count_goes_on_and_the_end_of_the_timer_is_the_end(self):
        self.timer.set_time(0, 2)
        self.desktop.key("space")
        for title in (HELP, ABOUT):
            self.choose(title)
            self.back_to_timer()
        self.timer.wait_for("alert")
        self.desktop.key("alt+F4")
        self.assertEqual(self.timer.end(), (0, ""))


if __name__ == "__main__":
    main()
