"""The ways in which the program ends, and the colours on disk after each. Without a display it doesn't begin."""

import os
import signal
import subprocess

from timer import COLOURS, PROGRAM, DesktopTest, SetTimer

CHANGED = dict(zip(COLOURS, (0x204060, 0x00C040, 0xFFF0C0, 0x603010)))


class EndingTest(DesktopTest):
    def close_in_fullscreen(self, timer):
        self.desktop.key("ctrl+f")
        self.wait_until(timer.fills_the_screen, "the canvas fills the screen")
        self.desktop.key("alt+F4")

    def end_from_outside(self, timer):
        self.desktop.key("space")
        timer.process.send_signal(signal.SIGHUP)  # which is ignored
        SetTimer(timer)
        timer.process.send_signal(signal.SIGTERM)

    def lose_the_display(self, timer):
        timer.window.kill_client()
        self.desktop.display.flush()

    def test_every_way_out_keeps_the_colours(self):
        self.addCleanup(signal.signal, signal.SIGHUP, signal.signal(signal.SIGHUP, signal.SIG_IGN))
        ways = {
            "menu": (0, lambda timer: timer.choose("alt+f", "Up", "Return")),
            "from fullscreen": (0, self.close_in_fullscreen),
            "signal": (0, self.end_from_outside),
            "lost display": (1, self.lose_the_display),
        }
        for name, (status, leave) in ways.items():
            with self.subTest(name):
                timer = self.launch(settings=CHANGED)
                timer.file.unlink()
                timer.set_time(15, 0)
                self.assertEqual(timer.pixel(2, 2), CHANGED["Color_Window_Background"])
                self.desktop.key("space")
                timer.wait_for("running")
                leave(timer)
                self.assertEqual(timer.end()[0], status)
                self.assertEqual(timer.saved(), CHANGED)

    def test_without_a_display_one_line_says_so(self):
        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
        for display in ({}, {"DISPLAY": ":nowhere"}):
            command = [PROGRAM, "-platform", "offscreen"]  # there is no command line
            run = subprocess.run(command, env=environment | display, capture_output=True, timeout=20)
            self.assertEqual((run.returncode, run.stderr.count(b"\n")), (1, 1), run.stderr)
