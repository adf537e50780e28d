"""A desktop of its own for a test: an X server in memory, a window manager, real keys and a real pointer."""

import contextlib
import mmap
import os
import pathlib
import random
import signal
import struct
import subprocess
import tempfile
import time
import zlib

from Xlib import X, XK, display, error, protocol
from Xlib.ext import xtest

MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L"}


def start(stack, command, end_by=signal.SIGKILL, **options):
    """A process that has ended by the time `stack` is closed."""
    process = stack.enter_context(subprocess.Popen(command, stdin=subprocess.DEVNULL, **options))
    stack.callback(process.send_signal, end_by)
    return process


def wait_until(condition, what, meanwhile=lambda: None, timeout=20):
    deadline = time.monotonic() + timeout
    while not (result := condition()):
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {timeout} s: {what}")
        meanwhile()
        time.sleep(0.01)
    return result


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
        return [(x, y) for y in range(self.height) for x in range(self.width) if self.at(x, y) == colour]

    def save(self, path):
        """As a PNG."""
        lines = bytearray()
        for row in self.rows:
            pixels = bytearray(3 * self.width)
            pixels[0::3], pixels[1::3], pixels[2::3] = row[2::4], row[1::4], row[0::4]
            lines += b"\0" + pixels
        header = struct.pack(">2I5B", self.width, self.height, 8, 2, 0, 0, 0)
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n")
            for kind, data in (b"IHDR", header), (b"IDAT", zlib.compress(lines)), (b"IEND", b""):
                file.write(struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data)))


class Desktop:
    def __init__(self, stack, size=(1280, 800), manager="openbox"):
        self.size = size
        self.home = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="desktop-")))
        self.start_server(stack)
        self.display = stack.enter_context(contextlib.closing(display.Display(self.name)))
        self.root = self.display.screen().root
        self.display.xfixes_query_version()
        self.root.xfixes_hide_cursor()  # which the server would draw over the pixels
        silent = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self.manager = start(stack, [manager], env=self.environment(self.home), **silent)
        self.bystander = self.new_window()
        self.wait_until(lambda: self.property("_NET_SUPPORTING_WM_CHECK"), "there is a window manager")
        self.settle()
        self.move(size[0] - 1, size[1] - 1)

    def start_server(self, stack):
        """With a number given: a server that looks for a free one may take the socket of another."""
        log = self.home / "server.log"
        for number in random.sample(range(100, 50000), 5):
            reader, writer = os.pipe()
            screen = ["-screen", "0", "{}x{}x24".format(*self.size), "-fbdir", self.home]
            command = ["Xvfb", f":{number}", "-displayfd", f"{writer}", "-nolisten", "tcp", *screen]
            with log.open("w") as errors:
                start(stack, command, end_by=signal.SIGTERM, pass_fds=[writer], stderr=errors)
            os.close(writer)
            with open(reader) as answer:
                if answer.readline():
                    break
        else:
            raise AssertionError("the X server has not started: " + " ".join(log.read_text().split()))
        self.name = f":{number}"
        with open(self.home / "Xvfb_screen0", "rb") as file:
            self.memory = stack.enter_context(mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ))

    def environment(self, home, **more):
        """For a program that is to find nothing but this desktop and an empty home."""
        inherited = {k: v for k, v in os.environ.items() if not k.startswith(("QT_", "XDG_", "XCURSOR", "WAYLAND"))}
        private = {"HOME": f"{home}", "XDG_CONFIG_HOME": f"{home}/config", "XDG_RUNTIME_DIR": f"{home}/runtime"}
        for folder in private.values():
            os.makedirs(folder, mode=0o700, exist_ok=True)
        return inherited | private | {
            "DISPLAY": self.name, "DBUS_SESSION_BUS_ADDRESS": f"unix:path={home}/no-bus", "LANG": "C.UTF-8", **more}

    def wait_until(self, condition, what):
        return wait_until(condition, what, self.keep_awake)

    def keep_awake(self):
        """The window manager oversleeps an event now and then, until the next one wakes it."""
        if self.manager.poll() is not None:
            raise AssertionError(f"the window manager has ended with {self.manager.returncode}")
        self.nudge(self.bystander)

    def ask(self, request, window, *data):
        """The window manager, as a task bar asks it."""
        atom = self.display.get_atom(request)
        message = protocol.event.ClientMessage(window=window, client_type=atom, data=(32, [*data, 0, 0, 0, 0, 0][:5]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def nudge(self, window):
        self.ask("_NET_REQUEST_FRAME_EXTENTS", window)

    def settle(self):
        """Waits until the window manager has dealt with all that it was told before."""
        window = self.new_window()
        self.nudge(window)
        self.wait_until(lambda: self.property("_NET_FRAME_EXTENTS", window), "the window manager has caught up")
        window.destroy()

    def new_window(self):
        return self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)

    # Windows

    def property(self, name, window=None):
        # In one request: the property may change between two.
        found = (window or self.root).get_property(self.display.get_atom(name), X.AnyPropertyType, 0, 1 << 20)
        return list(found.value) if found else []

    def windows(self):
        """The windows of programs, by title."""
        found = {}
        for number in self.property("_NET_CLIENT_LIST"):
            with contextlib.suppress(error.XError):  # it may be gone by now
                window = self.display.create_resource_object("window", number)
                found[window.get_wm_name()] = window
        return found

    def menus(self):
        """Where the open menus are, the latest last."""
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

    # The screen

    @contextlib.contextmanager
    def standing_still(self):
        self.display.grab_server()
        self.display.sync()
        try:
            yield
        finally:
            self.display.ungrab_server()
            self.display.flush()

    def picture(self, left=0, top=0, width=None, height=None):
        width, height = width or self.size[0], height or self.size[1]
        header = struct.unpack_from(">25I", self.memory)
        first, line = header[0] + 12 * header[19] + 4 * left, header[12]
        starts = range(first + line * top, first + line * (top + height), line)
        rows = [bytearray(self.memory[start : start + 4 * width]) for start in starts]
        for row in rows:
            row[3::4] = bytes(width)  # programs write what they like there
        return Picture(rows)

    def cursor(self):
        return list(self.display.xfixes_get_cursor_image(self.root).cursor_image)

    # Keys and pointer

    def send(self, event, detail=0, x=0, y=0):
        xtest.fake_input(self.display, event, detail, x=x, y=y)
        self.display.sync()

    def code(self, key):
        keysym = ord(key) if len(key) == 1 else XK.string_to_keysym(MODIFIERS.get(key, key))
        return self.display.keysym_to_keycode(keysym)

    def hold(self, chord):
        for key in chord.split("+"):
            self.send(X.KeyPress, self.code(key))

    def let_go(self, chord):
        for key in reversed(chord.split("+")):
            self.send(X.KeyRelease, self.code(key))
        time.sleep(0.002)  # a press in the same millisecond would be the key's own repeat

    def key(self, *chords):
        for chord in chords:
            self.hold(chord)
            self.let_go(chord)

    def move(self, x, y):
        self.send(X.MotionNotify, x=x, y=y)

    def press(self, x, y):
        self.move(x, y)
        self.send(X.ButtonPress, 1)
        self.settle()  # it stops the pointer at a press to have a look, and loses what comes too soon after

    def release(self):
        self.send(X.ButtonRelease, 1)

    def click(self, x, y):
        self.press(x, y)
        self.release()
