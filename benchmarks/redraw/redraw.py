"""Redraw beside cairo and beside a plain fill."""

import json

from support.measure import run, table


def report(programs, rounds):
    output = run([programs / "redraw_bench", f"--benchmark_repetitions={3 * rounds}", "--benchmark_min_time=0.05",
                  "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true",
                  "--benchmark_format=json"]).output
    medians = {each["run_name"]: each["cpu_time"] / 1000 for each in json.loads(output)["benchmarks"]
               if each["aggregate_name"] == "median"}
    rows = []
    for size in (name.removeprefix("Redraw/") for name in medians if name.startswith("Redraw/")):
        redraw, cairo, fill = (medians[f"{name}/{size}"] for name in ("Redraw", "Cairo", "Fill"))
        rows.append([size.replace("/", " x "), redraw, cairo, fill, redraw / cairo, redraw / fill])
    rows.sort(key=lambda row: row[3])
    table("Redraw, microseconds of CPU",
          ["", "Redraw", "cairo", "fill", "Redraw / cairo", "Redraw / fill"], rows)
