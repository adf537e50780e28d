"""The road of a movie, from the menu command to a file that others can play."""

import os
import pathlib
import subprocess
import tempfile
from unittest import mock

from timer import DesktopTest, Dialog, main

KEY_TAKING_THEME = {"QT_QPA_PLATFORMTHEME": "gnome"}  # its boxes and groups would have Return for themselves


def libraries(timer):
    return pathlib.Path(f"/proc/{timer.process.pid}/maps").read_text()


def probe(movie):
    """The codec, the width, the height and the number of frames, each of which has been decoded; None if unfinished."""
    entries = "stream=codec_name,width,height,nb_read_frames"
    command = ["ffprobe", "-v", "error", "-count_frames", "-show_entries", entries, "-of", "csv=p=0", movie]
    codec, *numbers = subprocess.run(command, capture_output=True, text=True).stdout.split(",")
    return (codec, *map(int, numbers)) if numbers else None


class MovieDialog(Dialog):
    """The Create Movie dialog, opened by its shortcut."""

    LABELS, START = (30, 40, 90, 130), (300, 280, 70, 20)

    def __init__(self, timer):
        timer.desktop.key("ctrl+m")
        super().__init__(timer, "Create Movie")
        self.movies = timer.file.parent.parent / "Videos"  # where the save dialog begins
        self.movies.mkdir()

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
        self.wait_until(lambda: self.is_black(self.LABELS) and self.is_black(self.START), "the dialog is idle")
        return found

    def is_black(self, part):
        left, top, *_ = self.desktop.place(self.window)
        x, y, *size = part
        return self.desktop.picture(left + x, top + y, *size).convert("L").getextrema()[0] == 0


class MovieTest(DesktopTest):
    def test_the_whole_road(self):
        opened = self.catch_opened_files()
        timer = self.launch(environment=KEY_TAKING_THEME)
        timer.choose("f", "Escape")
        self.assertNotIn("libav", libraries(timer), "the start has waited for them")
        dialog = MovieDialog(timer)
        self.assertIn("libav", libraries(timer))
        dialog.enter(3, 48, 33, 10)
        self.desktop.key("space", "Tab", "space")  # no compression dialog; open the movie
        movie = dialog.start("first.mov")
        self.assertEqual(dialog.wait_finished(movie), ("rawvideo", 48, 33, 31))
        self.wait_until(opened.exists, "the movie is opened")
        self.assertEqual(opened.read_text().strip(), movie.as_uri())

        self.desktop.key("alt+F4", "space", "shift+Tab", "space")  # it stays open; the other way round
        dialog.start("first")
        question = Dialog(timer, "Replace File")
        self.assertEqual(probe(movie)[-1], 31, "it is overwritten before the answer")
        self.desktop.key("Return")  # no
        question.wait_gone()
        movie = dialog.save("second.mov", compression=["alt+t", "Down", "alt+f", "2", "0", "Return"])
        self.assertEqual(dialog.wait_finished(movie), ("hevc", 48, 33, 61))
        self.assertNotIn("second", opened.read_text())
        self.desktop.key("Escape")
        dialog.wait_gone()

    def catch_opened_files(self):
        """What the desktop opens is written into this file instead."""
        folder = pathlib.Path(self.stack.enter_context(tempfile.TemporaryDirectory()))
        opener = folder / "xdg-open"
        opener.write_text(f'#!/bin/sh\necho "$1" >> {folder}/part && cp {folder}/part {folder}/opened\n')
        opener.chmod(0o700)
        path = f"{folder}:{os.environ['PATH']}"
        self.stack.enter_context(mock.patch.dict(os.environ, PATH=path, BROWSER="", XDG_CURRENT_DESKTOP=""))
        return folder / "opened"

    def test_the_end_of_the_program_keeps_what_has_been_made(self):
        for leave in (
            lambda timer: self.desktop.ask("_NET_CLOSE_WINDOW", timer.window),
            lambda timer: self.desktop.key("ctrl+q"),
        ):
            timer = self.launch()
            dialog = MovieDialog(timer)
            dialog.enter(3600, 320, 240, 30)
            movie = dialog.start(compression=["Return"])
            self.wait_until(lambda: movie.exists() and movie.stat().st_size > 100_000, "there are frames")
            leave(timer)
            self.assertEqual(timer.end(), (0, ""))
            self.assertIn(probe(movie)[-1], range(2, 108_001))


if __name__ == "__main__":
    main()
