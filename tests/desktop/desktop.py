"""The real program on a desktop of its own: an X server in memory, a window manager, real keys and a real pointer."""

import contextlib
import math
import mmap
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest

from Xlib import X, XK, display, error, protocol
from Xlib.ext import xtest

PROGRAM = pathlib.Path(os.environ["DWINDLEDIAL"]).resolve()
COLOURS = {
    "Color_Window_Background": 0x9F9F9F,
    "Color_Clock_Wedge": 0xFF0000,
    "Color_Clock_Face": 0xFFFFFF,
    "Color_Clock_Frame": 0x000000,
}
MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L"}
STATES = {"stopped": "Pause", "running": "Run", "alert": "Alert"}


def wait_until(condition, what, timeout=20):
    deadline = time.monotonic() + timeout
    while not (result := condition()):
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {timeout} s: {what}")
        time.sleep(0.01)
    return result


def start(stack, command, **options):
    """A process that has ended by the time `stack` is closed."""
    process = stack.enter_context(subprocess.Popen(command, stdin=subprocess.DEVNULL, **options))
    stack.callback(process.kill)
    return process


def bitmap(name):
    """The rows of a picture among the program's resources, as the screen would hold them."""
    data = (PROGRAM.parent.parent / "Resources" / name).read_bytes()
    start, width, height = (struct.unpack_from("<i", data, at)[0] for at in (10, 18, 22))
    line = (3 * width + 3) // 4 * 4
    offsets = (start + line * y for y in reversed(range(height)))
    return [b"".join(data[at : at + 3] + b"\0" for at in range(o, o + 3 * width, 3)) for o in offsets]


class Picture:
    """Pixels of the screen: rows of bytes, four to a pixel: blue, green, red and nothing."""

    def __init__(self, rows):
        self.rows = rows
        self.width, self.height = len(rows[0]) // 4, len(rows)

    def at(self, x, y):
        """0xRRGGBB"""
        return int.from_bytes(self.rows[y][4 * x : 4 * x + 3], "little")

    def crop(self, left, top, width, height):
        return Picture([row[4 * left : 4 * (left + width)] for row in self.rows[top : top + height]])

    def places(self, colour):
        """Where a colour is: (x, y) of each of its pixels."""
        pixel = colour.to_bytes(4, "little")
        return [(x, y) for y, row in enumerate(self.rows) if pixel in row for x in range(self.width)
                if row[4 * x : 4 * x + 4] == pixel]


class Desktop:
    def __init__(self, stack, size=(1280, 800)):
        self.size = size
        self.home = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="desktop-")))
        reader, writer = os.pipe()
        screen = ["-screen", "0", "{}x{}x24".format(*size), "-fbdir", self.home]
        start(stack, ["Xvfb", "-displayfd", str(writer), *screen, "-nolisten", "tcp", "-noreset"],
              pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with open(reader) as answer:
            self.name = ":" + answer.readline().strip()
        self.display = stack.enter_context(contextlib.closing(display.Display(self.name)))
        self.display.xfixes_query_version()
        self.root = self.display.screen().root
        self.root.xfixes_hide_cursor()
        with open(self.home / "Xvfb_screen0", "rb") as file:
            self.memory = stack.enter_context(mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ))
        start(stack, ["openbox"], env=self.environment(self.home), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: self.property("_NET_SUPPORTING_WM_CHECK"), "there is a window manager")
        self.probe = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)

    def environment(self, home, **more):
        """For a program that is to find nothing but this desktop and an empty home."""
        inherited = {k: v for k, v in os.environ.items() if not k.startswith(("QT_", "XDG_", "XCURSOR", "WAYLAND"))}
        private = {"HOME": f"{home}", "XDG_CONFIG_HOME": f"{home}/config", "XDG_RUNTIME_DIR": f"{home}/runtime"}
        for folder in private.values():
            os.makedirs(folder, mode=0o700, exist_ok=True)
        return inherited | private | {
            "DISPLAY": self.name, "DBUS_SESSION_BUS_ADDRESS": f"unix:path={home}/no-bus", "LANG": "C.UTF-8", **more}

    def property(self, name, window=None):
        found = (window or self.root).get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        return list(found.value) if found else []

    def windows(self):
        """The windows of programs, by title."""
        found = {}
        for number in self.property("_NET_CLIENT_LIST"):
            with contextlib.suppress(error.XError):
                window = self.display.create_resource_object("window", number)
                found[window.get_wm_name()] = window
        return found

    def menus(self):
        """The places of the open menus, the latest last."""
        found = []
        for window in self.root.query_tree().children:
            with contextlib.suppress(error.XError):
                attributes, place = window.get_attributes(), self.place(window)
                if attributes.override_redirect and attributes.map_state == X.IsViewable and place[0] >= 0:
                    found.append(place)
        return found

    def place(self, window):
        """The inside of a window on the screen: left, top, width, height."""
        geometry, corner = window.get_geometry(), self.root.translate_coords(window, 0, 0)
        return corner.x, corner.y, geometry.width, geometry.height

    def has_keys(self, window):
        return self.display.get_input_focus().focus == window

    @contextlib.contextmanager
    def standing_still(self):
        self.display.grab_server()
        self.display.sync()
        try:
            yield
        finally:
            self.display.ungrab_server()
            self.display.flush()

    def picture(self, left, top, width, height):
        header = struct.unpack_from(">25I", self.memory)
        start, line = header[0] + 12 * header[19] + 4 * left, header[12]
        offsets = (start + line * y for y in range(top, top + height))
        rows = [bytearray(self.memory[offset : offset + 4 * width]) for offset in offsets]
        for row in rows:
            row[3::4] = bytes(width)  # programs write what they like there
        return Picture(rows)

    def cursor(self):
        return list(self.display.xfixes_get_cursor_image(self.root).cursor_image)

    def send(self, event, detail=0, x=0, y=0):
        xtest.fake_input(self.display, event, detail, x=x, y=y)
        self.display.sync()

    def hold(self, chord):
        for name in chord.split("+"):
            self.send(X.KeyPress, self.code(name))

    def let_go(self, chord):
        for name in reversed(chord.split("+")):
            self.send(X.KeyRelease, self.code(name))
        time.sleep(0.002)  # a press in the same millisecond would be the key's own repeat

    def code(self, name):
        keysym = ord(name) if len(name) == 1 else XK.string_to_keysym(MODIFIERS.get(name, name))
        return self.display.keysym_to_keycode(keysym)

    def key(self, *chords):
        for chord in chords:
            self.hold(chord)
            self.let_go(chord)

    def move(self, x, y):
        self.send(X.MotionNotify, x=x, y=y)

    def press(self, x, y):
        self.move(x, y)
        self.send(X.ButtonPress, 1)
        self.settle()

    def release(self):
        self.send(X.ButtonRelease, 1)

    def click(self, x, y):
        self.press(x, y)
        self.release()

    def let_go_of_all(self):
        self.release()
        for code, down in enumerate(byte >> bit & 1 for byte in self.display.query_keymap() for bit in range(8)):
            if down:
                self.send(X.KeyRelease, code)

    def settle(self):
        """The window manager holds up each press to have a look at it, and loses what comes too soon after."""
        self.probe.delete_property(self.display.intern_atom("_NET_FRAME_EXTENTS"))
        self.tell(self.probe, "_NET_REQUEST_FRAME_EXTENTS")
        wait_until(lambda: self.property("_NET_FRAME_EXTENTS", self.probe), "the window manager has caught up")

    def tell(self, window, message):
        event = protocol.event.ClientMessage(
            window=window, client_type=self.display.intern_atom(message), data=(32, [0] * 5))
        self.root.send_event(event, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)


class Dialog:
    """The Set Timer dialog, open."""

    MINUTES_UP, MINUTES_DOWN = (57, 36), (57, 49)
    SECONDS_UP, SECONDS_DOWN = (110, 36), (110, 49)
    CANCEL, SET = (178, 41), (250, 41)

    def __init__(self, timer):
        self.timer, self.desktop = timer, timer.desktop
        self.window = wait_until(lambda: self.desktop.windows().get("Set Timer"), "Set Timer opens")
        wait_until(lambda: self.desktop.has_keys(self.window), "Set Timer has the keyboard")

    def click(self, *places):
        (left, top, *_), scale = self.desktop.place(self.window), self.timer.scale
        for x, y in places:
            self.desktop.click(left + x * scale, top + y * scale)

    def enter(self, minutes, seconds):
        """The seconds first: while the minutes read 60, no key reaches them."""
        self.desktop.key("ctrl+a", "0", "Tab", "ctrl+a", *seconds, "shift+Tab", "ctrl+a", *minutes)

    def close(self, *places):
        """By clicks, the last of which closes it."""
        self.click(*places)
        self.wait_closed()

    def wait_closed(self):
        wait_until(lambda: "Set Timer" not in self.desktop.windows(), "Set Timer closes")
        wait_until(lambda: self.desktop.has_keys(self.timer.window), "the timer has the keyboard again")


class Timer:
    """The program, running. Positions are those of its canvas, in its own pixels."""

    def __init__(self, stack, desktop, path=PROGRAM, settings=None, scale=1):
        self.desktop, self.scale = desktop, scale
        self.colours = COLOURS | (settings or {})
        home = stack.enter_context(tempfile.TemporaryDirectory(prefix="timer-"))
        environment = desktop.environment(home, QT_SCALE_FACTOR=f"{scale}")
        self.file = pathlib.Path(home, "config", "DwindledialPrefs.plist")
        if settings:
            self.file.write_text("".join(f"<key>{k}</key><string>#{v:06X}</string>" for k, v in settings.items()))
        self.errors = stack.enter_context(tempfile.TemporaryFile("w+"))
        desktop.move(*(side - 1 for side in desktop.size))
        wait_until(lambda: not desktop.windows(), "nothing of the program before is left")
        self.process = start(stack, [path], env=environment, stderr=self.errors)
        self.window = wait_until(lambda: desktop.windows().get("Dwindledial"), "the timer is there")
        wait_until(lambda: desktop.has_keys(self.window), "the timer has the keyboard")
        self.bar = desktop.place(self.window)[3] - 229 * scale
        self.icons = {state: self.icon(name) for state, name in STATES.items()}
        self.wait_for("stopped")

    def icon(self, name):
        background = self.colours["Color_Window_Background"].to_bytes(4, "little") * 17
        rows = zip(bitmap(f"{name}_Icon.bmp"), bitmap(f"{name}_Mask.bmp"))
        return b"".join(bytes(p + (b - p) * m // 255 for p, m, b in zip(row, mask, background)) for row, mask in rows)

    def place(self):
        """The canvas on the screen: left, top, width, height."""
        left, top, width, height = self.desktop.place(self.window)
        bar = 0 if (width, height) == self.desktop.size else self.bar
        return left, top + bar, width, height - bar

    def picture(self):
        with self.desktop.standing_still():
            return self.desktop.picture(*self.place())

    def pixel(self, x, y):
        return self.picture().at(x * self.scale, y * self.scale)

    def state(self):
        """What the status icon tells; None if it looks like none of the three."""
        icon = self.picture().crop(*[10 * self.scale] * 2, *[17 * self.scale] * 2)
        shown = b"".join(row[4 * x : 4 * x + 4] for row in icon.rows[:: self.scale]
                         for x in range(0, icon.width, self.scale))
        differences = {state: sum(abs(a - b) for a, b in zip(shown, known)) for state, known in self.icons.items()}
        nearest = min(differences, key=differences.get)
        return nearest if differences[nearest] < 20 * len(shown) else None

    def wait_for(self, state):
        wait_until(lambda: self.state() == state, f"the timer is {state}")

    def seconds(self):
        """The time that the wedge shows, from its share of the disc inside of the marks. Wants the default colours."""
        picture = self.picture()
        x, y = picture.width // 2, picture.height // 2
        radius = int(0.35 * min(picture.width, picture.height))
        white = total = 0
        for dy in range(-radius, radius):
            reach = round(math.sqrt(radius**2 - (dy + 0.5) ** 2))
            white += sum(picture.rows[y + dy][4 * (x - reach) + 1 : 4 * (x + reach) : 4]) / 255
            total += 2 * reach
        return round(3600 * (1 - white / total))

    def move(self, x, y):
        left, top, *_ = self.place()
        self.desktop.move(left + x * self.scale, top + y * self.scale)

    def click(self, x, y):
        left, top, *_ = self.place()
        self.desktop.click(left + x * self.scale, top + y * self.scale)

    def arrange(self, left, top, width, height):
        """Moves the window and gives its canvas a size."""
        size = width, height + self.bar
        self.window.configure(x=left, y=top, width=size[0], height=size[1])
        wait_until(lambda: self.desktop.place(self.window)[2:] == size, f"the window is {size}")

    def open_dialog(self):
        self.desktop.key("ctrl+t")
        return Dialog(self)

    def set_time(self, minutes, seconds):
        dialog = self.open_dialog()
        dialog.enter(f"{minutes}", f"{seconds}")
        dialog.close(Dialog.SET)

    def choose(self, menu, *keys):
        """By the keyboard alone: Alt and the menu's letter, then keys within it."""
        before = len(self.desktop.menus())
        self.desktop.key(f"alt+{menu}")
        wait_until(lambda: len(self.desktop.menus()) > before, "the menu opens")
        self.desktop.key(*keys)
        wait_until(lambda: len(self.desktop.menus()) == before, "the menu closes")

    def end(self):
        """Waits for the program to end; its exit status and what it has written to standard error."""
        status = self.process.wait(20)
        self.errors.seek(0)
        return status, self.errors.read()


class DesktopTest(unittest.TestCase):
    """Each test starts programs of its own; a class shares one desktop."""

    @classmethod
    def setUpClass(cls):
        stack = contextlib.ExitStack()
        cls.addClassCleanup(stack.close)
        cls.desktop = Desktop(stack)

    def setUp(self):
        self.stack = contextlib.ExitStack()
        self.addCleanup(self.stack.close)
        self.addCleanup(self.desktop.let_go_of_all)
        self.addCleanup(self.keep_screen)

    def keep_screen(self):
        folder = os.environ.get("DWINDLEDIAL_SCREENSHOTS")
        if folder and not self._outcome.success:
            shutil.copy(self.desktop.home / "Xvfb_screen0", pathlib.Path(folder, f"{self.id()}.xwd"))

    def launch(self, **options):
        return Timer(self.stack, self.desktop, **options)

    def assert_stopped(self, timer):
        """That no input before has started the timer: only a stopped one opens Set Timer."""
        timer.open_dialog().close(Dialog.CANCEL)
        self.assertEqual(timer.state(), "stopped")


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended from outside"))  # by way of all clean-up
    unittest.main()
