"""The ways in which the program ends, and the colours on disk after each; and that it doesn't begin without a display."""

import os
import signal
import subprocess

from timer import COLOURS, PROGRAM, DesktopTest, SetTimer, main

CHANGED = {
    "Color_Window_Background": 0x204060,
    "Color_Clock_Wedge": 0x00C040,
    "Color_Clock_Face": 0xFFF0C0,
    "Color_Clock_Frame": 0x603010,
}


class EndingTest(DesktopTest):
    def start_in(self, state):
        timer = self.launch(settings=CHANGED)
        timer.set_time(0 if state == "alert" else 15, 1 if state == "alert" else 0)
        if state != "stopped":
            self.desktop.key("space")
        timer.wait_for(state)
        timer.file.unlink()
        return timer

    def click_close_button(self, timer):
        left, top, width, _ = self.desktop.place(timer.window)
        self.desktop.click(left + width - 10, top - 11)

    def close_in_fullscreen(self, timer):
        self.desktop.key("ctrl+f")
        self.wait_until(timer.fills_the_screen, "the canvas fills the screen")
        self.desktop.key("alt+F4")

    def end_from_outside(self, timer):
        timer.process.send_signal(signal.SIGHUP)  # which is ignored
        SetTimer(timer)
        timer.process.send_signal(signal.SIGTERM)

    def test_every_way_out_ends_well(self):
        self.addCleanup(signal.signal, signal.SIGHUP, signal.signal(signal.SIGHUP, signal.SIG_IGN))
        ways = {
            "close button": ("running", self.click_close_button),
            "shortcut": ("alert", lambda timer: self.desktop.key("ctrl+q")),
            "menu": ("running", lambda timer: timer.choose("f", "Up", "Return")),
            "from fullscreen": ("stopped", self.close_in_fullscreen),
            "signal": ("stopped", self.end_from_outside),
        }
        for name, (state, leave) in ways.items():
            with self.subTest(name):
                timer = self.start_in(state)
                leave(timer)
                self.assertEqual(timer.end(), (0, ""))
                self.assertEqual(timer.saved(), CHANGED)

    def test_the_colours_show_and_outlive_the_display(self):
        timer = self.start_in("stopped")
        places = ((2, 2), (170, 64), (270, 164), (220, 9))  # with the time at a quarter of an hour
        self.assertEqual(dict(zip(COLOURS, (timer.pixel(*place) for place in places))), CHANGED)
        timer.window.kill_client()
        self.desktop.display.flush()
        self.assertEqual(timer.process.wait(20), 1)
        self.assertEqual(timer.saved(), CHANGED)

    def test_without_a_display_one_line_says_so(self):
        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
        for display in ({}, {"DISPLAY": ":nowhere"}):
            command = [PROGRAM, "-platform", "offscreen"]  # there is no command line
            run = subprocess.run(command, env=environment | display, capture_output=True, timeout=20)
            self.assertEqual((run.returncode, run.stderr.count(b"\n")), (1, 1), run.stderr)


if __name__ == "__main__":
    main()
