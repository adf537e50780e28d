"""The alert as it is heard, from a sound service of its own, and how the window asks for attention."""

import array
import subprocess

from Xlib import X

from desktop import start
from timer import DesktopTest

RATE = 8000
STEP = RATE // 10
THEME = "[Sound Theme]\nName=Default\nDirectories=stereo\n[stereo]\nOutputProfile=stereo\n"


class AlertTest(DesktopTest):
    def record(self, folder):
        """PulseAudio with a sink that leads nowhere, of which all goes into a file."""
        file, socket = folder / "recorded", folder / "socket"
        environment = self.desktop.environment(folder, PULSE_SERVER=f"unix:{socket}")
        modules = "module-null-sink sink_name=null", f"module-native-protocol-unix socket={socket} auth-anonymous=1"
        service = ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes"]
        service += [f"--load={module}" for module in modules]
        start(self.stack, service, env=environment, stderr=subprocess.DEVNULL)
        self.wait_until(socket.exists, "the sound service is there")
        form = "--format=s16le", f"--rate={RATE}", "--channels=1"
        recorder = ["parec", "-d", "null.monitor", "--latency-msec=20", *form]
        start(self.stack, recorder, env=environment, stdout=self.stack.enter_context(open(file, "wb")))
        self.wait_until(lambda: file.stat().st_size, "the recording has begun")
        return file

    def theme(self):
        """A desktop's folder of data with a theme whose bell is a short and soft tone."""
        data = self.desktop.home / "data"
        (data / "sounds/freedesktop/stereo").mkdir(parents=True)
        (data / "sounds/freedesktop/index.theme").write_text(THEME)
        tone = "-f", "lavfi", "-i", "sine=duration=0.1", data / "sounds/freedesktop/stereo/bell.wav"
        subprocess.run(["ffmpeg", "-v", "error", *tone], check=True)
        return data

    def loudness(self, file):
        """Of each tenth of a second."""
        samples = array.array("h", file.read_bytes()[: file.stat().st_size // 2 * 2])
        return [max(map(abs, samples[i : i + STEP])) for i in range(0, len(samples) - STEP, STEP)]

    def beeps(self, file):
        """In which tenth of a second each begins."""
        loud = [each > 1000 for each in self.loudness(file)]
        return [i for i in range(2, len(loud)) if loud[i] and not any(loud[i - 2 : i])]

    def test_one_beep_a_second_until_it_is_dismissed(self):
        for data, peak in ((self.theme(), 4096), ("/nowhere", 20000)):
            file = self.record(self.desktop.home / f"{peak}")
            server = f"unix:{file.parent}/socket"
            timer = self.launch(environment={"XDG_DATA_DIRS": f"{data}", "PULSE_SERVER": server})
            timer.set_time(0, 1)
            self.desktop.key("space")
            timer.wait_for("alert")
            begin = len(self.loudness(file))
            self.wait_until(lambda: len(self.beeps(file)) == 4, "there are four beeps")
            self.desktop.key("space")
            timer.wait_for("stopped")
            end = len(self.loudness(file))
            self.wait_until(lambda: len(self.loudness(file)) > end + 25, "some time has passed")
            first, *more = self.beeps(file)
            self.assertLessEqual(len(more), 4)
            self.assertGreater(first - begin, 5)  # a busy machine may take its time for the first
            self.assertAlmostEqual((more[-1] - first) / len(more), 10, delta=3)
            self.assertAlmostEqual(max(self.loudness(file)), peak, delta=peak / 10)
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
        state = lambda: self.desktop.property("_NET_WM_STATE", timer.window)
        self.wait_until(lambda: asking in state(), "attention is asked for")
        self.assertTrue(self.desktop.has_keys(other))
