"""Saves a picture of the program on a desktop of its own: screenshot.py PICTURE"""

import contextlib
import os
import sys

from desktop import Desktop
from timer import Timer

try:
    with contextlib.ExitStack() as stack:
        desktop = Desktop(stack, size=(1024, 640))
        Timer(stack, desktop, scale=int(os.environ.get("QT_SCALE_FACTOR", "1")))
        desktop.settle()  # the title bar shows that the window has the keyboard
        desktop.picture(0, 0, *desktop.size).save(sys.argv[1])
except Exception as fault:
    sys.exit(f"There is no screenshot: {fault}")
