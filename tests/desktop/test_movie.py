"""The road of a movie, from the menu command to a file that others can play."""

import os
import pathlib
import subprocess

from timer import DesktopTest, Dialog

KEY_TAKING_THEME = {"QT_QPA_PLATFORMTHEME": "gnome"}  # its boxes and groups would have Return for themselves


def probe(movie):
    """The codec, the width, the height and the number of frames, each of which has been decoded; "" if unfinished."""
    entries = "stream=codec_name,width,height,nb_read_frames"
    command = ["ffprobe", "-v", "error", "-count_frames", "-show_entries", entries, "-of", "csv=p=0", movie]
    return subprocess.run(command, capture_output=True, text=True).stdout.strip()


class MovieDialog(Dialog):
    """The Create Movie dialog, opened by its shortcut."""

    def __init__(self, timer):
        timer.desktop.key("ctrl+m")
        super().__init__(timer, "Create Movie")
        self.home = timer.file.parent.parent

    def over(self, title):
        """Another dialog, once it has opened over this one."""
        dialog = Dialog(self.timer, title)
        assert self.desktop.property("WM_TRANSIENT_FOR", dialog.window) == [self.window.id], f"whose is {title}?"
        return dialog

    def answer(self, title, *keys):
        dialog = self.over(title)
        self.desktop.key(*keys)
        dialog.wait_gone()

    def save(self, name, compression=()):
        """The dialogs after Start, by keys; `compression` are those for the second."""
        self.answer("Save As", *name, "Return")
        if compression:
            left, top, *_ = self.desktop.place(self.over("Compression Settings").window)
            blue = lambda x: self.desktop.pixel(left + x, top + 137) & 0xFF
            self.wait_until(lambda: blue(152) < 0xB0 and blue(172) > 0xF4, "the preview has the clock in its middle")
            self.desktop.key(*compression)

    def wait_finished(self, movie):
        found = self.wait_until(lambda: probe(movie), "the movie can be read")
        left, top, *_ = self.desktop.place(self.window)
        start = lambda: self.desktop.picture(left + 300, top + 280, 70, 20).convert("L")
        self.wait_until(lambda: start().getextrema()[0] == 0, "Start is black again")
        return found


class MovieTest(DesktopTest):
    def test_the_whole_road(self):
        opened, opener = self.desktop.home / "opened", self.desktop.home / "xdg-open"
        opener.write_text(f'#!/bin/sh\necho "$1" >> {opened}.part && cp {opened}.part {opened}\n')
        opener.chmod(0o700)
        path = f"{self.desktop.home}:{os.environ['PATH']}"
        timer = self.launch(environment=KEY_TAKING_THEME | {"PATH": path, "BROWSER": ""})
        timer.choose("alt+h", "v")
        self.wait_until(opened.exists, "the web site is opened")
        libraries = pathlib.Path(f"/proc/{timer.process.pid}/maps").read_text()
        self.assertNotIn("libav", libraries, "the start has waited for them")
        dialog = MovieDialog(timer)
        for text in ("3", "48", "33", "90", "10"):
            self.desktop.key("ctrl+a", *text, "Tab")
        self.desktop.key("space", "Tab", "space", "Return")  # no compression dialog; open the movie; Start
        dialog.save("first.mov")
        movie = dialog.home / "first.mov"  # without a folder for movies
        self.assertEqual(dialog.wait_finished(movie), "rawvideo,48,33,31")
        self.wait_until(lambda: opened.read_text() == f"http://www.example.org\n{movie.as_uri()}\n", "it is opened")

        self.desktop.key("alt+F4", "space", "shift+Tab", "space", "Return")  # it stays open; the other way round
        dialog.save("first")
        Dialog(timer, "Replace File")
        self.assertEqual(probe(movie), "rawvideo,48,33,31", "it is overwritten before the answer")
        dialog.answer("Replace File", "Return")  # no
        (dialog.home / "Videos").mkdir()
        dialog.answer("Save As", *"/nowhere/second", "Return")
        dialog.answer("Can't Save File", "Return")
        dialog.save("", compression=["alt+t", "Down", "alt+f", "2", "0", "Return"])
        movie = dialog.home / "Videos/second.mov"
        self.assertEqual(dialog.wait_finished(movie), "hevc,48,33,61")
        self.assertNotIn("second", opened.read_text())
        self.desktop.key("Escape")
        dialog.wait_gone()
