"""The Create Movie dialog, as somebody who sits before it knows it, and what another program reads in its movies."""

import subprocess

from timer import Dialog


def probe(movie):
    """The codec, the width, the height and the number of frames, each of which has been decoded; None if unfinished."""
    entries = "stream=codec_name,width,height,nb_read_frames"
    command = ["ffprobe", "-v", "error", "-count_frames", "-show_entries", entries, "-of", "csv=p=0", movie]
    codec, *numbers = subprocess.run(command, capture_output=True, text=True).stdout.split(",")
    return (codec, *map(int, numbers)) if numbers else None


class MovieDialog(Dialog):
    """The Create Movie dialog, opened by its shortcut."""

    LABELS, START = (30, 40, 90, 130), (300, 280, 70, 20)
    TEXT = 0x000000

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
        self.wait_for_keys()
        self.desktop.key("Return")
        return self.save(name, compression)

    def save(self, name="", compression=()):
        """The dialogs after Start, by keys; `compression` are those for the second. Gives the file."""
        Dialog(self.timer, "Save As")
        self.desktop.key(*name, "Return")
        if compression:
            Dialog(self.timer, "Compression Settings")
            self.desktop.key(*compression)
        return self.movies / (name or "Dwindledial.mov")

    def wait_finished(self, movie):
        found = self.wait_until(lambda: probe(movie), "the movie can be read")
        self.wait_idle()
        return found

    def wait_idle(self):
        self.wait_until(lambda: all(map(self.is_dark, (self.LABELS, self.START))), "the dialog is idle")

    def is_dark(self, part):
        left, top, *_ = self.desktop.place(self.window)
        x, y, *size = part
        return self.desktop.picture(left + x, top + y, *size).places(self.TEXT)
