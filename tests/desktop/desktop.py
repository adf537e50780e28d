"""A desktop of its own for a test: an X server in memory, a window manager, real keys and a real pointer."""

import contextlib
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

from PIL import ImageGrab
from Xlib import X, XK, display, error, protocol
from Xlib.ext import xtest

signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended from outside"))  # by way of all clean-up

MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L"}


def start(stack, command, end_by=signal.SIGKILL, **options):
    """A process that has ended by the time `stack` is closed."""
    process = stack.enter_context(subprocess.Popen(command, stdin=subprocess.DEVNULL, **options))
    stack.callback(process.send_signal, end_by)
    return process


class Desktop:
    def __init__(self, stack, size=(1280, 800), manager="openbox"):
        self.size = size
        self.home = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="desktop-")))
        # With a number given: a server that looks for a free one may take the socket of another.
        self.name = f":{100 + os.getpid() % 50000}"
        reader, writer = os.pipe()
        screen = "{}x{}x24".format(*size)
        command = ["Xvfb", self.name, "-displayfd", f"{writer}", "-nolisten", "tcp", "-screen", "0", screen]
        start(stack, command, end_by=signal.SIGTERM, pass_fds=[writer])
        os.close(writer)
        with open(reader) as answer:
            assert answer.readline(), "the X server has not started"
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

    def environment(self, home, **more):
        """For a program that is to find nothing but this desktop and an empty home."""
        inherited = {k: v for k, v in os.environ.items() if not k.startswith(("QT_", "XDG_", "XCURSOR", "WAYLAND"))}
        private = {"HOME": f"{home}", "XDG_CONFIG_HOME": f"{home}/config", "XDG_RUNTIME_DIR": f"{home}/runtime"}
        for folder in private.values():
            os.makedirs(folder, mode=0o700, exist_ok=True)
        return inherited | private | {
            "DISPLAY": self.name, "DBUS_SESSION_BUS_ADDRESS": f"unix:path={home}/no-bus", "LANG": "C.UTF-8", **more}

    def wait_until(self, condition, what, timeout=20):
        deadline = time.monotonic() + timeout
        while not (result := condition()):
            if time.monotonic() > deadline or self.manager.poll() is not None:
                raise AssertionError(f"not within {timeout} s, or without a window manager: {what}")
            self.ask("_NET_REQUEST_FRAME_EXTENTS", self.bystander)  # it oversleeps an event now and then
            time.sleep(0.01)
        return result

    def ask(self, request, window, *data):
        """The window manager, as a task bar asks it."""
        atom = self.display.get_atom(request)
        message = protocol.event.ClientMessage(window=window, client_type=atom, data=(32, [*data, 0, 0, 0, 0, 0][:5]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def settle(self):
        """Waits until the window manager has dealt with all that it was told before."""
        window = self.new_window()
        self.ask("_NET_REQUEST_FRAME_EXTENTS", window)
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

    def picture(self, left, top, width, height):
        return ImageGrab.grab((left, top, left + width, top + height), xdisplay=self.name)

    def pixel(self, x, y):
        """0xRRGGBB"""
        return int.from_bytes(self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFF).data[:3], "little")

    # Keys and pointer

    def send(self, event, detail=0, x=0, y=0):
        xtest.fake_input(self.display, event, detail, x=x, y=y)
        self.display.sync()

    def code(self, key):
        keysym = ord(key) if len(key) == 1 else XK.string_to_keysym(MODIFIERS.get(key, key))
        return self.display.keysym_to_keycode(keysym)

    def hold(self, chord):
        for key in filter(None, chord.split("+")):
            self.send(X.KeyPress, self.code(key))

    def let_go(self, chord):
        for key in filter(None, reversed(chord.split("+"))):
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
