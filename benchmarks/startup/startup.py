"""How soon the window shows, beside an empty one, and what a running count-down costs. On an X server of its own."""

import contextlib
import os
import pathlib
import statistics
import sys
import time

from Xlib import X

from support.measure import table

SECONDS = 20
ROWS = 200, 400


def desktop_of_the_tests(programs):
    os.environ["DWINDLEDIAL"] = str(programs / "dwindledial")
    sys.path.append(str(pathlib.Path(__file__).parents[2] / "tests" / "desktop"))
    import desktop
    import timer
    return desktop, timer


def shows(desktop):
    """Whether a piece of the window's grey, beside the clock, stands in one of two rows, wherever the window is put."""
    rows = (desktop.root.get_image(0, y, desktop.size[0], 1, X.ZPixmap, 0xFFFFFF).data for y in ROWS)
    return any(row.find((b"\x9f\x9f\x9f" + unused) * 90) >= 0 for row in rows for unused in (b"\0", b"\xff"))


def seconds_to_first_frame(desktops, desktop, command):
    desktop.wait_until(lambda: not desktop.windows() and not shows(desktop), "the screen is empty")
    with contextlib.ExitStack() as stack:
        start = time.monotonic()
        contender = desktops.start(stack, command, env=desktop.environment(desktop.home))
        while not shows(desktop):
            assert contender.poll() is None, f"{command} has ended"
            time.sleep(0.0005)
        return time.monotonic() - start


def compare_start(programs, rounds, desktops, desktop):
    contenders = {"Dwindledial": [programs / "dwindledial"], "empty window": [programs / "empty_window"],
                  "with a menu bar": [programs / "empty_window", "menus"]}
    times = {name: [] for name in contenders}
    for _ in range(4 * rounds):
        for name, command in contenders.items():
            times[name].append(1000 * seconds_to_first_frame(desktops, desktop, command))
    medians = {name: statistics.median(each) for name, each in times.items()}
    table(f"From the start of the process to the first painted frame, median of {4 * rounds}",
          ["", "milliseconds", "time / empty window's"],
          [[name, each, each / medians["empty window"]] for name, each in medians.items()])


def on_processor(process):
    """Nanoseconds that all threads of a process have run for."""
    return sum(int((task / "schedstat").read_text().split()[0])
               for task in pathlib.Path(f"/proc/{process}/task").iterdir())


def countdown_cost(timers, stack, desktop):
    timer = timers.Timer(stack, desktop)
    timer.set_time(25, 0)
    timer.desktop.key("Return")
    timer.wait_for("running")
    before, start = on_processor(timer.process.pid), time.monotonic()
    time.sleep(SECONDS)
    share = (on_processor(timer.process.pid) - before) / 1e9 / (time.monotonic() - start)
    table(f"A running count-down at the design size, over {SECONDS} s", ["", "% of one core"],
          [["Dwindledial", 100 * share]])


def report(programs, rounds):
    desktops, timers = desktop_of_the_tests(programs)
    with contextlib.ExitStack() as stack:
        desktop = desktops.Desktop(stack)
        compare_start(programs, rounds, desktops, desktop)
        countdown_cost(timers, stack, desktop)
