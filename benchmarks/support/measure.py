"""Runs contenders in turn, so that all of them see the same machine, and prints tables of medians and ratios."""

import dataclasses
import os
import statistics
import subprocess
import threading
import time

PAGE = os.sysconf("SC_PAGE_SIZE") / 2**20


@dataclasses.dataclass
class Run:
    """Seconds by the clock and on the processors, megabytes in memory over time, and what the program has said."""

    wall: float
    cpu: float
    memory: list
    output: str

    @property
    def self_timed(self):
        """The seconds that the program has measured itself, without its own start and end."""
        return float(self.output.split()[-1])


def resident(process):
    try:
        with open(f"/proc/{process}/statm") as file:
            return int(file.read().split()[1]) * PAGE
    except (FileNotFoundError, ProcessLookupError):
        return 0


def run(command):
    environment = os.environ | {"QT_LOGGING_RULES": "*=false"}
    start = time.monotonic()
    process = subprocess.Popen([str(word) for word in command], env=environment, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True)
    memory, over = [], threading.Event()

    def watch():
        while not over.wait(0.05):
            memory.append(resident(process.pid))

    watcher = threading.Thread(target=watch)
    watcher.start()
    output = process.stdout.read()
    _, status, used = os.wait4(process.pid, 0)
    wall = time.monotonic() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    over.set()
    watcher.join()
    if process.returncode != 0:
        raise SystemExit(f"{command} has ended with {process.returncode}")
    return Run(wall, used.ru_utime + used.ru_stime, [m for m in memory if m], output)


def interleaved(contenders, rounds):
    """Runs each command of a dictionary `rounds` times, in turn. The runs by name."""
    runs = {name: [] for name in contenders}
    for number in range(rounds):
        order = list(contenders) if number % 2 == 0 else list(reversed(contenders))
        for name in order:
            runs[name].append(run(contenders[name]))
    return runs


def median(runs, figure):
    return statistics.median(getattr(each, figure) for each in runs)


def table(title, columns, rows):
    cells = [columns, *([cell if isinstance(cell, str) else f"{cell:.3g}" if abs(cell) < 100 else f"{cell:.0f}"
                         for cell in row] for row in rows)]
    widths = [max(len(row[i]) for row in cells) for i in range(len(columns))]
    print(f"\n{title}\n")
    for row in cells:
        print("  " + "  ".join(f"{cell:<{w}}" if i == 0 else f"{cell:>{w}}" for i, (cell, w) in
                               enumerate(zip(row, widths))).rstrip(), flush=True)
        if row is cells[0]:
            print("  " + "  ".join("-" * width for width in widths))


def straightness(points):
    """How much of the costs a straight line explains (R squared), and the steepest of its pieces over the flattest."""
    x, y = zip(*points)
    slopes = [(b[1] - a[1]) / (b[0] - a[0]) for a, b in zip(points, points[1:])]
    return statistics.correlation(x, y) ** 2, max(slopes) / min(slopes)
