"""The alert as it is heard, from a sound service of its own, and how the window asks for attention."""

import array
import subprocess

from Xlib import X

from desktop import start
from timer import DesktopTest

RATE = 8000
STEP = RATE // 10


class AlertTest(DesktopTest):
    def start_recording(self):
        """PulseAudio with a sink that leads nowhere, of which all goes into a file."""
        home = self.desktop.home
        self.file, self.server = home / "recorded", home / "socket"
        environment = self.desktop.environment(home, PULSE_SERVER=f"unix:{self.server}")
        modules = "null-sink sink_name=null", f"native-protocol-unix socket={self.server} auth-anonymous=1"
        service = ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes"]
        service += [f"--load=module-{module}" for module in modules]
        start(self.stack, service, env=environment, stderr=subprocess.DEVNULL)
        self.wait_until(self.server.exists, "the sound service is there")
        form = "--format=s16le", f"--rate={RATE}", "--channels=1"
        recorder = ["parec", "-d", "null.monitor", "--latency-msec=20", *form]
        start(self.stack, recorder, env=environment, stdout=self.stack.enter_context(open(self.file, "wb")))
        self.wait_until(lambda: self.file.stat().st_size, "the recording has begun")

    def loudness(self):
        """Of each tenth of a second."""
        samples = array.array("h", self.file.read_bytes()[: self.file.stat().st_size // 2 * 2])
        return [max(map(abs, samples[i : i + STEP])) for i in range(0, len(samples) - STEP, STEP)]

    def beeps(self):
        """In which tenth of a second each begins."""
        loud = [each > 1000 for each in self.loudness()]
        return [i for i in range(2, len(loud)) if loud[i] and not any(loud[i - 2 : i])]

    def test_it_beeps_once_a_second_and_asks_for_attention_until_it_is_dismissed(self):
        self.start_recording()
        timer = self.launch(environment={"XDG_DATA_DIRS": "/nowhere", "PULSE_SERVER": f"unix:{self.server}"})
        timer.set_time(0, 1)
        begin = len(self.loudness())
        self.desktop.key("space")
        other = self.desktop.root.create_window(5, 5, 90, 90, 0, X.CopyFromParent)
        other.map()
        self.wait_until(lambda: self.desktop.has_keys(other), "another window has the keyboard")
        asks = self.desktop.display.get_atom("_NET_WM_STATE_DEMANDS_ATTENTION")
        self.wait_until(lambda: asks in self.desktop.property("_NET_WM_STATE", timer.window), "it asks")
        self.assertTrue(self.desktop.has_keys(other))
        self.wait_until(lambda: len(self.beeps()) == 4, "there are four beeps")
        timer.click(18, 18)
        timer.wait_for("stopped")
        end = len(self.loudness())
        self.wait_until(lambda: len(self.loudness()) > end + 25, "some time has passed")
        first, *more = self.beeps()
        self.assertGreater(first - begin, 15)  # a second of time, another to the beep, more on a busy machine
        self.assertAlmostEqual((more[-1] - first) / len(more), 10, delta=3)
        self.assertAlmostEqual(max(self.loudness()), 20000, delta=2000)
