#!/usr/bin/python3
"""The snap benchmark's steps done by QGIS 3.22, for side-by-side figures:

    QT_QPA_PLATFORM=offscreen /usr/bin/python3 qgis_snap.py FILE.gpkg [--layer NAME] \
        --queries FILE [--tol-m M] [--dump FILE] [--first-picture] [--redraws N]

Prints the same JSON lines as bench_snap and dumps the point locator's answers in the same
"kind index x y distance" form. QGIS opens a GeoPackage for update and may rewrite it: give it a
copy.
"""

import argparse
import json
import math
import os
import sys
import time

from qgis.core import (QgsApplication, QgsMapRendererSequentialJob, QgsMapSettings,
                       QgsPointLocator, QgsPointXY, QgsVectorLayer)
from qgis.PyQt.QtCore import QSize


def memory():
    resident = peak = 0.0
    with open("/proc/self/status") as status:
        for line in status:
            if line.startswith("VmRSS:"):
                resident = float(line.split()[1]) / 1024.0
            if line.startswith("VmHWM:"):
                peak = float(line.split()[1]) / 1024.0
    return resident, peak


def emit(**fields):
    print(json.dumps(fields), flush=True)


def latency(step, micros, found, total):
    ordered = sorted(micros)
    at = lambda q: ordered[int(q * (len(ordered) - 1))] if ordered else 0.0
    emit(step=step, queries=len(micros), found=found, median_us=round(at(0.5), 3),
         p99_us=round(at(0.99), 3), total_s=round(total, 4))


def run(points, kind, search, tolerance, dump):
    micros, found = [], 0
    start = time.perf_counter()
    for i, (x, y) in enumerate(points):
        t0 = time.perf_counter()
        match = search(QgsPointXY(x, y), tolerance)
        micros.append((time.perf_counter() - t0) * 1e6)
        if not match.isValid():
            continue
        found += 1
        if dump:
            p = match.point()
            dump.write("%s %d %.6f %.6f %.6f\n" % (kind, i, p.x(), p.y(),
                                                   math.hypot(p.x() - x, p.y() - y)))
    return micros, found, time.perf_counter() - start


def draw(layer):
    settings = QgsMapSettings()
    settings.setLayers([layer])
    settings.setDestinationCrs(layer.crs())
    settings.setOutputSize(QSize(1600, 1000))
    settings.setExtent(layer.extent())
    t0 = time.perf_counter()
    job = QgsMapRendererSequentialJob(settings)
    job.start()
    job.waitForFinished()
    job.renderedImage()
    return time.perf_counter() - t0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--layer", default="")
    parser.add_argument("--queries", required=True)
    parser.add_argument("--tol-m", type=float, default=100.0)
    parser.add_argument("--dump", default="")
    parser.add_argument("--first-picture", action="store_true")
    parser.add_argument("--redraws", type=int, default=3)
    args = parser.parse_args()

    app = QgsApplication([], False)
    QgsApplication.setPrefixPath("/usr", True)
    QgsApplication.initQgis()
    with open(args.queries) as f:
        points = [tuple(map(float, line.split()[:2])) for line in f if line.strip()]
    base, _ = memory()

    start = time.perf_counter()
    uri = args.file + ("|layername=" + args.layer if args.layer else "")
    layer = QgsVectorLayer(uri, "bench", "ogr")
    if not layer.isValid():
        sys.exit("qgis_snap: cannot open " + uri)
    emit(step="open", s=round(time.perf_counter() - start, 4))
    if args.first_picture:
        draw(layer)
        emit(step="open to first picture", s=round(time.perf_counter() - start, 4))

    index_start = time.perf_counter()
    locator = QgsPointLocator(layer)
    locator.init()
    emit(step="index", s=round(time.perf_counter() - index_start, 4))
    emit(step="open+index", s=round(time.perf_counter() - start, 4))
    resident, peak = memory()
    emit(step="memory", base_mb=round(base, 1), layer_and_index_mb=round(resident - base, 1),
         peak_added_mb=round(peak - base, 1))
    emit(step="layer", features=layer.featureCount())

    dump = open(args.dump, "w") if args.dump else None
    latency("nearest vertex", *run(points, "vertex", locator.nearestVertex, args.tol_m, dump))
    latency("nearest segment", *run(points, "segment", locator.nearestEdge, args.tol_m, dump))
    if dump:
        dump.close()
    if args.redraws > 0:
        ms = sorted(draw(layer) * 1000.0 for _ in range(args.redraws))
        emit(step="full redraw 1600x1000", median_ms=round(ms[len(ms) // 2], 2))
    # Tearing QGIS down from Python can crash after the work is done; the figures are out.
    sys.stdout.flush()
    os._exit(0)


if __name__ == "__main__":
    main()
