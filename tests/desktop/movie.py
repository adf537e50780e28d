"""The Create Movie dialog, as somebody who sits before it knows it, and what another program reads in its movies."""

import subprocess
import time

from timer import Dialog


def probe(movie):
    """The codec, the width, the height and the number of frames, each of which has been decoded; None if unfinished."""
    entries = "stream=codec_name,width,height,nb_read_frames"
    command = ["ffprobe", "-v", "error", "-count_frames", "-show_entries", entries, "-of", "csv=p=0", movie]
    codec, *numbers = subprocess.run(command, capture_output=True, text=True).stdout.split(",")
    return (codec, *map(int, numbers)) if numbers else None


class MovieDialog(Dialog):
    """The Create Movie dialog, opened by its shortcut."""

    CANCEL, FACE_OF_CANCEL = (243, 290), (210, 290)
    LABELS, BOXES, BAR, START = (30, 40, 90, 130), (30, 170, 250, 65), (23, 290, 167, 1), (300, 280, 70, 20)
    TEXT, EMPTY_BAR = 0x000000, 0xFFFFFF

    def __init__(self, timer):
        timer.desktop.key("ctrl+m")
        super().__init__(timer, "Create Movie")
        self.movies = timer.file.parent.parent / "Videos"  # where the save dialog begins
        self.movies.mkdir(exist_ok=True)

    def enter(self, seconds, width, height, rate):
        """From the first field on; afterwards the keyboard is with the first box, to show the compression dialog."""
        for text in (f"{seconds}", f"{width}", f"{height}", "90", f"{rate}"):
            self.desktop.key("ctrl+a", *text, "Tab")

    def start(self, name="", compression=()):
        """Start and the dialogs after it, by keys; `compression` are those for the second. Gives the file."""
        self.wait_for_keys()
        self.desktop.key("Return")
        Dialog(self.timer, "Save As")
        self.desktop.key(*name, "Return")
        if compression:
            Dialog(self.timer, "Compression Settings")
            self.desktop.key(*compression)
        return self.movies / (name or "Dwindledial.mov")

    def wait_busy(self):
        """The dialogs after Start lie over this one and could pass for its bar."""
        for title in ("Save As", "Compression Settings"):
            self.wait_until(lambda: title not in self.desktop.windows(), f"{title} closes")
        self.wait_until(lambda: not self.is_enabled(), "the settings are disabled")

    def wait_finished(self, movie):
        found = self.wait_until(lambda: probe(movie), "the movie can be read")
        self.wait_until(self.is_idle, "the dialog is idle again")
        return found

    def at(self, x, y):
        left, top, *_ = self.desktop.place(self.window)
        return left + x, top + y

    def picture(self, left, top, width, height):
        return self.desktop.picture(*self.at(left, top), width, height)

    def bar(self):
        """The colours of the progress bar, from left to right."""
        picture = self.picture(*self.BAR)
        return [picture.at(x, 0) for x in range(picture.width)]

    def is_enabled(self):
        return any(self.picture(*part).places(self.TEXT) for part in (self.LABELS, self.START))

    def is_idle(self):
        return self.is_enabled() and len(set(self.bar())) == 1

    def part_to_do(self):
        """The share of the bar that is empty; 0 when it is indeterminate or hidden."""
        return self.bar().count(self.EMPTY_BAR) / self.BAR[2]

    def cancel(self):
        button, beside = self.at(*self.CANCEL), self.at(0, 0)
        self.desktop.click(*button)
        self.desktop.move(*beside)

    def face_of_cancel(self):
        return self.picture(*self.FACE_OF_CANCEL, 1, 1).at(0, 0)

    def wait_for_new_face(self, what, change):
        before = self.face_of_cancel()
        change()
        self.wait_until(lambda: self.face_of_cancel() != before, what)

    def time_to_answer(self):
        """How long the Cancel button takes to look pressed. Left before it is let go, it cancels nothing."""
        cancel, rest = self.at(*self.CANCEL), self.face_of_cancel()
        self.wait_for_new_face("the pointer is on the button", lambda: self.desktop.move(*cancel))
        begin = time.monotonic()
        self.wait_for_new_face("the button looks pressed", lambda: self.desktop.press(*cancel))
        answered = time.monotonic()
        self.desktop.move(*self.at(0, 0))
        self.desktop.release()
        self.wait_until(lambda: self.face_of_cancel() == rest, "the button has come up")
        return answered - begin
