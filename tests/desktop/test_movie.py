"""The road of a movie, from the menu command to a file that others can play."""

import os
import pathlib
import signal
import tempfile
import time
from unittest import mock

from movie import MovieDialog, probe
from timer import DesktopTest, Dialog, main


def libraries(timer):
    return pathlib.Path(f"/proc/{timer.process.pid}/maps").read_text()


class MovieTest(DesktopTest):
    def test_the_whole_road(self):
        opened = self.catch_opened_files()
        timer = self.launch()
        timer.choose("f", "Escape", "Escape")
        self.assertNotIn("libav", libraries(timer), "the start has waited for them")
        dialog = MovieDialog(timer)
        self.assertIn("libav", libraries(timer))
        dialog.enter(3, 48, 33, 10)
        self.desktop.key("space", "Tab", "space")  # no compression dialog; open the movie
        movie = dialog.start()
        self.assertEqual(dialog.wait_finished(movie), ("rawvideo", 48, 33, 31))
        self.wait_until(opened.exists, "the movie is opened")
        self.assertEqual(opened.read_text().strip(), movie.as_uri())

        self.desktop.key("alt+F4", "space", "shift+Tab", "space")  # it stays open; the other way round
        movie = dialog.start("second.mov", compression=["alt+t", "Down", "alt+f", "2", "0", "Return"])
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

    def test_cancel_in_a_dialog_leaves_no_file(self):
        dialog = MovieDialog(self.launch())
        self.desktop.key("Return")
        save = Dialog(dialog.timer, "Save As")
        self.desktop.key("Escape")
        save.wait_gone()
        dialog.start(compression=["Escape"])
        self.wait_until(lambda: not list(dialog.movies.iterdir()), "the file has gone again")
        dialog.wait_idle()

    def test_the_end_of_the_program_keeps_what_has_been_made(self):
        ways = {
            "signal": lambda timer: timer.process.send_signal(signal.SIGTERM),
            "task bar": lambda timer: self.desktop.ask("_NET_CLOSE_WINDOW", timer.window),
        }
        for name, leave in ways.items():
            with self.subTest(name):
                timer = self.launch()
                dialog = MovieDialog(timer)
                dialog.enter(3600, 320, 240, 30)
                movie = dialog.start(compression=["Return"])
                self.wait_until(lambda: movie.exists() and movie.stat().st_size > 100_000, "there are frames")
                begin = time.monotonic()
                leave(timer)
                self.assertEqual(timer.end(), (0, ""))
                self.assertLess(time.monotonic() - begin, 2)
                frames = probe(movie)[-1]
                self.assertTrue(1 < frames < 108_001, frames)


if __name__ == "__main__":
    main()
