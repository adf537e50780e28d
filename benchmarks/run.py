"""Prints the tables of the benchmark.

usage: run.py FOLDER-OF-PROGRAMS ROUNDS PART...
"""

import pathlib
import sys

from movie import curves, movie
from redraw import redraw
from startup import startup

PARTS = {"redraw": redraw, "movie": movie, "startup": startup, "curves": curves}


def main(programs, rounds, *parts):
    for part in parts:
        PARTS[part].report(pathlib.Path(programs).resolve(), int(rounds))


main(*sys.argv[1:])
