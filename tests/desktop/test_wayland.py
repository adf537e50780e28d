"""The program on Wayland, with weston in a window of the X server."""

import signal
import subprocess

from desktop import start
from timer import COLOURS, PROGRAM, DesktopTest

BACKGROUND = COLOURS["Color_Window_Background"]


class WaylandTest(DesktopTest):
    def fills_the_screen(self):
        """Judged in a corner where weston's pointer never is."""
        return self.desktop.pixel(0, self.desktop.size[1] - 1) == BACKGROUND

    def test_fullscreen_around_a_dialog_at_twice_the_scale(self):
        home = self.desktop.home
        environment = self.desktop.environment(home, WAYLAND_DISPLAY="wayland-test", QT_QPA_PLATFORM="wayland")
        width, height = (length // 2 for length in self.desktop.size)
        command = ["weston", "--backend=x11-backend.so", "--use-pixman", "--idle-time=0", "--socket=wayland-test",
                   "--fullscreen", f"--width={width}", f"--height={height}", "--scale=2"]
        silent = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        compositor = start(self.stack, command, signal.SIGTERM, env=environment, **silent)
        self.wait_until((home / "runtime/wayland-test").exists, "the compositor is there")
        self.wait_until(self.desktop.windows, "it has a window")
        program = start(self.stack, [PROGRAM], env=environment, stderr=subprocess.DEVNULL)
        row = 100 * BACKGROUND.to_bytes(3, "big")
        self.wait_until(lambda: row in self.desktop.picture(0, 0, *self.desktop.size).tobytes(), "the timer is there")
        self.switch(True)
        self.desktop.key("ctrl+t")
        self.wait_until(lambda: not self.fills_the_screen(), "it makes room for the dialog")
        self.wait_until(lambda: self.desktop.key("Return") or self.fills_the_screen(), "the dialog closes")
        self.switch(False)
        self.switch(True)
        (kept := home / "config/DwindledialPrefs.plist").unlink()
        compositor.terminate()
        self.assertEqual(program.wait(20), 1)
        self.assertTrue(kept.exists(), "the colours outlive the display")

    def switch(self, on):
        self.desktop.key("ctrl+f")
        self.wait_until(lambda: self.fills_the_screen() == on, "Ctrl+F has done its work")
