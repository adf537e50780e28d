"""A count-down on Wayland. The compositor has neither keys nor a pointer, so a screen reader's hands do the work."""

import contextlib
import os
import pathlib
import signal
import struct
import subprocess
import tempfile
import unittest

from desktop import Picture, start, wait_until
from reader import Reader
from timer import COLOURS, PROGRAM, main, seconds_shown


class Compositor:
    def __init__(self, stack, scale):
        self.home = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="wayland-")))
        self.home.chmod(0o700)
        inherited = {k: v for k, v in os.environ.items() if not k.startswith(("QT_", "XDG_"))}
        home = {name: f"{self.home}" for name in ("HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME")}
        self.environment = inherited | home | {"WAYLAND_DISPLAY": "wayland-test"}
        screen = ["--width=1280", "--height=800", f"--scale={scale}", f"--shell={self.shell()}-shell.so"]
        command = ["weston", "--backend=headless-backend.so", "--use-pixman", "--debug", "--idle-time=0"]
        start(stack, [*command, "--socket=wayland-test", *screen], signal.SIGTERM, env=self.environment,
              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until((self.home / "wayland-test").exists, "the compositor is there")

    def shell(self):
        """Newer desktop shells leave a fullscreen window where it was without a pointer; older kiosks show nothing."""
        version = subprocess.run(["weston", "--version"], capture_output=True, text=True, check=True).stdout
        return "kiosk" if int(version.split()[1].split(".")[0]) >= 14 else "desktop"

    def screen(self):
        """A picture of the whole screen."""
        shoot = ["weston-screenshooter"]
        subprocess.run(shoot, cwd=self.home, env=self.environment, check=True, stdout=subprocess.DEVNULL)
        (file,) = self.home.glob("*.png")
        width, height = struct.unpack_from(">II", file.read_bytes(), 16)
        decode = ["ffmpeg", "-v", "error", "-i", file, "-f", "rawvideo", "-pix_fmt", "bgr0", "-"]
        pixels = subprocess.run(decode, capture_output=True, check=True).stdout
        file.unlink()
        return Picture([pixels[4 * width * y :][: 4 * width] for y in range(height)])


class WaylandTest(unittest.TestCase):
    def test_a_count_down(self):
        for scale in (1, 2):
            with self.subTest(scale=scale), contextlib.ExitStack() as stack:
                self.count_down(stack, Compositor(stack, scale))

    def count_down(self, stack, compositor):
        errors = stack.enter_context(tempfile.TemporaryFile("w+"))
        environment = compositor.environment | Reader.ENVIRONMENT
        process = start(stack, [PROGRAM, "-platform", "wayland"], env=environment, stderr=errors)
        reader = Reader(stack, process, wait_until)
        self.choose(reader, "View", "Toggle Fullscreen")
        background = COLOURS["Color_Window_Background"]
        wait_until(lambda: compositor.screen().at(0, 0) == background, "the timer fills the screen")

        self.set_time(reader, "20", "00", "20 minutes")
        wait_until(lambda: seconds_shown(compositor.screen()) == 1200, "the wedge shows what was set")
        reader.press(reader.clock)
        wait_until(lambda: 1190 < seconds_shown(compositor.screen()) < 1200, "the wedge shrinks")
        reader.press(reader.clock)
        self.set_time(reader, "00", "01", "1 second")
        reader.press(reader.clock)
        reader.wait_for(lambda: "Time is Up!" in reader.spoken, "the alert is said")
        wait_until(lambda: seconds_shown(compositor.screen()) > 0, "the alert's text lies on the clock")
        reader.press(reader.clock)
        wait_until(lambda: seconds_shown(compositor.screen()) == 0, "the clock is empty")

        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(20), 0)
        errors.seek(0)
        self.assertEqual(errors.read(), "")

    def choose(self, reader, menu, item):
        reader.press(reader.find("menu item", menu), "ShowMenu")
        reader.press(reader.find("menu item", item))

    def set_time(self, reader, minutes, seconds, words):
        self.choose(reader, "Timer", "Set...")
        dialog = reader.find("dialog", "Set Timer")
        reader.enter(reader.find("text", "Min", dialog), minutes)
        reader.enter(reader.find("text", "Sec", dialog), seconds)
        self.assertNotIn("Press", reader.actions(reader.clock), "it lies behind the dialog")
        reader.press(reader.find("button", "Set", dialog))
        said = f"Stopped, {words} left"
        reader.wait_for(lambda: reader.clock.description == said, "the time is set")


if __name__ == "__main__":
    main()
