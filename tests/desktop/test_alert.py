"""The alert as it is heard, from a sound service of its own, and how the window asks for attention."""

import array
import math
import os
import pathlib
import subprocess
import tempfile
import wave
from unittest import mock

from Xlib import X

from desktop import start
from timer import DesktopTest, main

RATE = 8000
THEME = "[Sound Theme]\nName=Default\nDirectories=stereo\n[stereo]\nOutputProfile=stereo\n"


class SoundService:
    """PulseAudio with a sink that leads nowhere, of which all is recorded."""

    def __init__(self, stack, desktop):
        self.desktop = desktop
        self.folder = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="sound-")))
        socket = self.folder / "socket"
        environment = desktop.environment(self.folder, PULSE_SERVER=f"unix:{socket}")
        modules = f"module-null-sink sink_name=null", f"module-native-protocol-unix socket={socket} auth-anonymous=1"
        load = [part for module in modules for part in ("-L", module)]
        service = ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes", *load]
        start(stack, service, env=environment, stderr=subprocess.DEVNULL)
        desktop.wait_until(socket.exists, "the sound service is there")
        self.file = self.folder / "recorded"
        recorder = ["parec", "-d", "null.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1"]
        start(stack, [*recorder, "--latency-msec=20"], env=environment, stdout=stack.enter_context(open(self.file, "wb")))
        desktop.wait_until(lambda: self.seconds() > 0, "the recording has begun")
        stack.enter_context(mock.patch.dict(os.environ, PULSE_SERVER=f"unix:{socket}"))

    def seconds(self):
        return self.file.stat().st_size / 2 / RATE

    def beeps(self):
        """When each begins: a fiftieth of a second that is loud, after a fifth that was not."""
        data = self.file.read_bytes()
        samples = array.array("h", data[: len(data) // 2 * 2])
        step = RATE // 50
        loud = [max(map(abs, samples[i : i + step])) > 1000 for i in range(0, len(samples), step)]
        return [i / 50 for i in range(10, len(loud)) if loud[i] and not any(loud[i - 10 : i])]


class AlertTest(DesktopTest):
    def theme(self):
        """A desktop's folder of data with a theme whose bell is a short tone."""
        data = pathlib.Path(self.stack.enter_context(tempfile.TemporaryDirectory(prefix="theme-")))
        (data / "sounds/freedesktop/stereo").mkdir(parents=True)
        (data / "sounds/freedesktop/index.theme").write_text(THEME)
        tone = array.array("h", (round(9000 * math.sin(i / 3)) for i in range(RATE // 10)))
        with wave.open(f"{data}/sounds/freedesktop/stereo/bell.wav", "wb") as file:
            file.setparams((1, 2, RATE, 0, "NONE", ""))
            file.writeframes(tone.tobytes())
        return data

    def loudest(self, sound):
        return max(map(abs, array.array("h", sound.file.read_bytes()[: int(sound.seconds() * RATE) * 2])))

    def test_one_beep_a_second_until_it_is_dismissed(self):
        for data, peak in ((self.theme(), 9000), ("/nowhere", 20000)):
            with self.subTest(data):
                sound = SoundService(self.stack, self.desktop)
                timer = self.launch(environment={"XDG_DATA_DIRS": f"{data}"})
                timer.set_time(0, 1)
                self.desktop.key("space")
                timer.wait_for("alert")
                end = sound.seconds()
                self.assertEqual(sound.beeps(), [])
                self.wait_until(lambda: len(sound.beeps()) == 4, "there are four beeps")
                self.desktop.key("space")
                timer.wait_for("stopped")
                self.assertAlmostEqual(self.loudest(sound), peak, delta=peak / 10)
                first, *_, last = sound.beeps()
                self.assertAlmostEqual(first - end, 1, delta=0.4)
                self.assertAlmostEqual(last - first, 3, delta=0.3)
                silent_from = sound.seconds()
                self.wait_until(lambda: sound.seconds() > silent_from + 2.5, "some time has passed")
                self.assertLessEqual(len(sound.beeps()), 5, "it beeps no more")
                self.desktop.key("ctrl+q")
                self.assertEqual(timer.end(), (0, ""))

    def test_the_window_asks_for_attention_and_leaves_the_keyboard_where_it_is(self):
        timer = self.launch()
        timer.set_time(0, 1)
        self.desktop.key("space")
        other = self.desktop.root.create_window(5, 5, 90, 90, 0, X.CopyFromParent)
        other.map()
        self.wait_until(lambda: self.desktop.has_keys(other), "another window has the keyboard")
        asking = self.desktop.display.get_atom("_NET_WM_STATE_DEMANDS_ATTENTION")
        self.wait_until(lambda: asking in self.desktop.property("_NET_WM_STATE", timer.window), "attention is asked for")
        self.assertTrue(self.desktop.has_keys(other))
        self.assertEqual(timer.state(), "alert")
        other.destroy()


if __name__ == "__main__":
    main()
