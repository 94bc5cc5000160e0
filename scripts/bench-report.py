#!/usr/bin/env python3
"""Reads the benchmarks' CSV results (build/bench/*.csv) and prints each
budgeted figure beside the ratio it stands for and its budget."""
import csv
import pathlib
import sys

FRAME_MS = 16.0


def load(folder):
    """{(bench, function, tag): milliseconds per iteration}"""
    figures = {}
    for path in pathlib.Path(folder).glob("*.csv"):
        with open(path, newline="") as file:
            for row in csv.reader(file):
                if len(row) >= 4 and row[2] == "WalltimeMilliseconds":
                    figures[(path.stem, row[0], row[1])] = float(row[3])
    return figures


def main(folder):
    f = load(folder)

    def get(bench, function, tag=""):
        return f.get((bench, function, tag))

    rows = []  # (figure, value in ms, ratio text, budget text, within)

    def add(name, value, ratio, budget, within):
        rows.append((name, value, ratio, budget, within))

    start = get("bench_ToolRoundTrips", "showToolToReadyWindow")
    bare = get("bench_ToolRoundTrips", "barePageConstruction")
    if start is not None and bare:
        add("start-up to ready, every page real", start, f"{start / bare:.1f}x bare construction of the pages ({bare:.1f} ms)",
            "<= 150 ms and <= 1.5x", start <= 150 and start / bare <= 1.5)
    for function, name, budget in (("packLargestModel", "TPC V3 page: packing", 1.0),
                                   ("updateLargestModel", "TPC V3 page: update", 1.0)):
        value = get("bench_Binding", function)
        if value is not None:
            add(name, value, f"{value / FRAME_MS:.3f} of a 16 ms frame", f"<= {budget:g} ms", value <= budget)
    band = get("bench_CalDataPages", "bandChange")
    if band is not None:
        add("band change on the TPC V3 page", band, f"{band / FRAME_MS:.2f} of a frame", "<= 2 ms", band <= 2.0)
    drawn = get("bench_CalDataPages", "bandChangeUntilDrawn")
    if drawn is not None:
        add("band change until the page is drawn again", drawn, f"{drawn / FRAME_MS:.2f} of a frame", "<= 16 ms",
            drawn <= FRAME_MS)
    layer = get("bench_Budgets", "calIniLayerOnFullExport")
    alone = get("bench_Budgets", "simpleIniAloneOnFullExport")
    if layer is not None and alone:
        add("Cal/INI layer, full export", layer, f"{layer / alone:.2f}x SimpleIni alone ({alone:.1f} ms)", "<= 1.3x",
            layer / alone <= 1.3)
    export = get("bench_Budgets", "fullExportFromTarget")
    if export is not None:
        add("full calibration export from the simulated target", export, f"{export / 300:.2f} of the budget",
            "<= 300 ms", export <= 300)
    delay = get("bench_Budgets", "eventLoopDelayDuringLongCall")
    if delay is not None:
        add("event loop delay during a 1 s target call", delay, f"{delay / 1000:.4f} of the call", "<= 20 ms",
            delay <= 20)
    for function, name in (("chartRedrawAfterEdit", "chart redraw after an edit, TPC V3"),
                           ("pathlossChartRedrawAfterEdit", "chart redraw after an edit, path loss")):
        value = get("bench_CalDataPages", function)
        if value is not None and band:
            add(name, value, f"{value / band:.2f}x a band change", "<= 16 ms", value <= FRAME_MS)

    width = max(len(r[0]) for r in rows) if rows else 10
    print(f"{'figure':<{width}}  {'ms':>9}  {'budget':<22}  {'':<6}  ratio")
    for name, value, ratio, budget, within in rows:
        print(f"{name:<{width}}  {value:>9.3f}  {budget:<22}  {'ok' if within else 'OVER':<6}  {ratio}")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1] if len(sys.argv) > 1 else "build/bench"))
