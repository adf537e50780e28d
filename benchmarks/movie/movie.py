"""The movie job beside a script, beside its encoder alone, and beside itself without the reuse of equal pictures."""

import pathlib
import statistics
import tempfile

from support.measure import interleaved, median, run, table

SCRIPT = pathlib.Path(__file__).with_name("script.py")
DEFAULT = (320, 240, 3600, 1)
LARGE = (1920, 1080, 60, 30)


def command(programs, contender, codec, job, folder):
    """What makes a movie: `contender` is one of movie_bench's, or "script"."""
    width, height, seconds, rate = job
    program = ["/usr/bin/python3", SCRIPT] if contender == "script" else [programs / "movie_bench", contender]
    return [*program, codec, width, height, seconds, rate, f"{folder}/{contender}.mov"]


def versus_script(programs, rounds, folder):
    names = ("dialog", "script", "encoder", "frames")
    contenders = {name: command(programs, name, "h264", DEFAULT, folder) for name in names}
    runs = interleaved(contenders, rounds)
    job, script = runs["dialog"], runs["script"]
    table("Default movie: 3601 frames of 320 x 240, H.264. Whole processes",
          ["", "seconds", "CPU seconds", "script's time / its own", "script's CPU / its own"],
          [[name, median(each, "wall"), median(each, "cpu"), median(script, "wall") / median(each, "wall"),
            median(script, "cpu") / median(each, "cpu")]
           for name, each in (("Dwindledial", job), ("pycairo | ffmpeg", script))])
    table("The same movie beside its encoder and file alone, from the press of Start to the closed file",
          ["", "seconds", "job's time / its own"],
          [[name, median(each, "self_timed"), median(job, "self_timed") / median(each, "self_timed")]
           for name, each in (("Dwindledial", job), ("encoder, given drawn pictures", runs["encoder"]),
                              ("encoder, given converted frames", runs["frames"]))])


def with_and_without_reuse(programs, rounds, folder):
    rows, memory = [], []
    for codec in ("png", "h264"):
        contenders = {name: command(programs, name, codec, LARGE, folder) for name in ("dialog", "distinct")}
        runs = interleaved(contenders, rounds)
        for name, label in (("dialog", "as it is"), ("distinct", "no two pictures equal")):
            rows.append([f"{codec}, {label}", median(runs[name], "self_timed"), median(runs[name], "cpu"),
                         median(runs["distinct"], "self_timed") / median(runs[name], "self_timed"),
                         median(runs["distinct"], "cpu") / median(runs[name], "cpu")])
        memory.append([f"{codec}, 60 seconds", *over_time(runs["dialog"][-1].memory)])
    longer = run(command(programs, "dialog", "h264", (*LARGE[:2], 3 * LARGE[2], LARGE[3]), folder))
    memory.append(["h264, 180 seconds", *over_time(longer.memory)])
    table("1801 frames of 1920 x 1080, 30 a second: what the reuse of equal pictures saves",
          ["", "seconds", "CPU seconds", "times as fast", "CPU ratio"], rows)
    table("Memory over such a job, megabytes (resident, each 50 ms)",
          ["", "peak", "second fifth", "last fifth", "last / second"], memory)


def over_time(memory):
    fifth = len(memory) // 5
    early, late = statistics.median(memory[fifth : 2 * fifth]), statistics.median(memory[-fifth:])
    return max(memory), early, late, late / early


def report(programs, rounds):
    with tempfile.TemporaryDirectory(prefix="movie-bench-") as folder:
        versus_script(programs, rounds, folder)
        with_and_without_reuse(programs, rounds, folder)
