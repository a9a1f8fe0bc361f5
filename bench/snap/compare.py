#!/usr/bin/python3
"""Runs snap benchmarks side by side in alternating processes and prints the medians and ratios:

    bench/snap/compare.py FILE.gpkg --queries FILE [--rounds N] [--tol-m M]
        --run NAME=COMMAND [--run NAME=COMMAND ...]

Each COMMAND is a benchmark program taking bench_snap's arguments, e.g.
    --run ours=build/bench/snap/bench_snap
    --run qgis="/usr/bin/python3 bench/snap/qgis_snap.py"
QGIS is handed a fresh copy of the file each time, since it may rewrite it. Every round runs each
program twice, once as usual and once with --first-picture, in turn. The first program is the
one the ratios are taken for.
"""

import argparse
import json
import os
import shlex
import shutil
import statistics
import subprocess
import tempfile

FIGURES = [
    ("open", "open", "s"),
    ("index", "index", "s"),
    ("open+index", "open+index", "s"),
    ("open to first picture", "open to first picture", "s"),
    ("nearest vertex median (us)", "nearest vertex", "median_us"),
    ("nearest vertex p99 (us)", "nearest vertex", "p99_us"),
    ("nearest segment median (us)", "nearest segment", "median_us"),
    ("nearest segment p99 (us)", "nearest segment", "p99_us"),
    ("full redraw 1600x1000 (ms)", "full redraw 1600x1000", "median_ms"),
    ("memory added by layer + index (MB)", "memory", "layer_and_index_mb"),
    ("memory added at the peak (MB)", "memory", "peak_added_mb"),
]


def run(command, gpkg, args, extra):
    with tempfile.TemporaryDirectory() as scratch:
        copy = os.path.join(scratch, os.path.basename(gpkg))
        shutil.copy(gpkg, copy)
        env = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        out = subprocess.run(shlex.split(command) + [copy] + args + extra, env=env,
                             capture_output=True, text=True).stdout
    steps = {}
    for line in out.splitlines():
        if line.startswith("{"):
            record = json.loads(line)
            steps[record.get("step")] = record
    return steps


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--queries", required=True)
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--tol-m", default="100")
    parser.add_argument("--run", action="append", required=True)
    a = parser.parse_args()
    programs = [r.split("=", 1) for r in a.run]
    args = ["--queries", a.queries, "--tol-m", a.tol_m, "--redraws", "3"]
    values = {name: {label: [] for label, _, _ in FIGURES} for name, _ in programs}
    for _ in range(a.rounds):
        for extra in ([], ["--first-picture", "--redraws", "0"]):
            for name, command in programs:
                steps = run(command, a.file, args, extra)
                for label, step, key in FIGURES:
                    if step in steps and key in steps[step]:
                        if extra and step != "open to first picture":
                            continue
                        values[name][label].append(float(steps[step][key]))
    names = [name for name, _ in programs]
    print("| figure | " + " | ".join(names) + " | " +
          " | ".join("%s / %s" % (names[0], n) for n in names[1:]) + " |")
    print("|---" * (1 + 2 * len(names) - 1) + "|")
    for label, _, _ in FIGURES:
        medians = [statistics.median(values[n][label]) if values[n][label] else None
                   for n in names]
        if medians[0] is None:
            continue
        cells = ["%.4g" % m if m is not None else "-" for m in medians]
        ratios = ["%.2f" % (medians[0] / m) if m else "-" for m in medians[1:]]
        print("| %s | %s | %s |" % (label, " | ".join(cells), " | ".join(ratios)))


if __name__ == "__main__":
    main()
