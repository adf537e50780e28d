"""The movie job of each codec beside its encoder alone, and how its cost grows with the work."""

import tempfile

from movie.movie import command
from support.measure import interleaved, median, straightness, table

CODECS = ("h264", "h265", "mpeg4", "prores", "mjpeg", "png", "animation", "uncompressed")
FRAMES = [(320, 240, 3600, rate) for rate in (0.125, 0.25, 0.5, 1)]
AREAS = [(width, width * 3 // 4, 600, 1) for width in (320, 640, 960, 1280)]


def per_codec(programs, rounds, folder):
    job, rows = (320, 240, 900, 1), []
    for codec in CODECS:
        runs = interleaved({name: command(programs, name, codec, job, folder) for name in ("dialog", "encoder")}, rounds)
        whole, alone = (median(runs[name], "self_timed") for name in ("dialog", "encoder"))
        rows.append([codec, whole, alone, whole / alone])
    table("901 frames of 320 x 240, one a second: the job beside its encoder and file alone",
          ["", "job, seconds", "encoder alone", "ratio"], rows)


def curve(programs, rounds, folder, codec, jobs, work, unit):
    runs = interleaved({job: command(programs, "dialog", codec, job, folder) for job in jobs}, rounds)
    points = [(work(job), median(runs[job], "cpu")) for job in jobs]
    r_squared, spread = straightness(points)
    table(f"{codec}: CPU time of the whole process against {unit}. A straight line explains {r_squared:.4f} of it; "
          f"the steepest piece over the flattest: {spread:.2f}",
          [unit, "CPU seconds"], [[f"{units:g}", cost] for units, cost in points])


def report(programs, rounds):
    with tempfile.TemporaryDirectory(prefix="movie-bench-") as folder:
        per_codec(programs, rounds, folder)
        for codec in ("h264", "png"):
            curve(programs, rounds, folder, codec, FRAMES, lambda job: job[2] * job[3] + 1, "frames")
            curve(programs, rounds, folder, codec, AREAS,
                  lambda job: job[0] * job[1] * (job[2] * job[3] + 1) / 1e6, "megapixels")
