#!/usr/bin/env python3
"""Draws how costs grow: SVG files, of results of Google Benchmark. The same results give the same
files. Needs gnuplot (Debian package: gnuplot-nox)."""

import argparse
import dataclasses
import math
import os
import pathlib
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True  # leaves no folder beside the scripts

import bench_results  # noqa: E402

SIZES = [100, 1000, 10000, 100000, 1000000, 10000000]
UNITS = {"ns": 1, "µs": 1e3, "ms": 1e6}


@dataclasses.dataclass(frozen=True)
class Plot:
    name: str
    title: str
    group: str
    arguments: str  # with {} where what grows is put
    values: list
    x_title: str
    y_title: str
    unit: str
    limit: str = None  # the limit's variant
    limit_title: str = ""


RAW = "bare web channel (limit)"
PLOTS = [
    Plot("publish-topics", "Publishing to one handler, topics in turn", "publish", "{}/1",
         [1, 10, 100, 1000], "topics", "time for a message", "ns", "direct", "direct call (limit)"),
    Plot("publish-handlers", "Publishing to several handlers, 96 topics in turn", "publish",
         "96/{}", [1, 4, 16, 100], "handlers of each topic", "time for a message", "ns", "direct",
         "direct calls (limit)"),
    Plot("envelope-faces", "Making a face report into an envelope, 5 matches a face", "envelope",
         "{}/5", [1, 2, 5, 10, 20, 50, 100, 200], "faces", "time for a report", "µs"),
    Plot("events-bytes", "Events to the page, sent as fast as it takes them", "events", "{}", SIZES,
         "text of the event (bytes)", "time for an event", "ms", "raw", RAW),
    Plot("trips-bytes", "Round trips: the page asks, the host answers", "trips", "{}", SIZES,
         "text of the request and of the answer (bytes)", "time for a round trip", "ms", "raw",
         RAW),
]

# The limit lies broad and pale below, so that Panorel's line shows even where the two are one.
STYLES = {
    "limit": "lc '#b8b8b8' lw 8 pt 7 ps 1.2",
    "naive": "lc '#d55e00' lw 2 dt 2 pt 9 ps 1",
    "panorel": "lc '#0072b2' lw 2.5 pt 7 ps 0.8",
}

SETTINGS = """
set encoding utf8
set terminal svg size 700,420 font 'sans-serif,14' background '#ffffff'
set title "{title}" font ',16'
set logscale xy 10
set xlabel "{x_title}"
set ylabel "{y_title} ({unit})"
set tics out nomirror scale 0.7,0.35
set xtics ({ticks})
set format y "%.10g"
set xrange [{first}*0.85:{last}*1.18]
set border 3 lc '#444444'
set grid ytics lc '#dddddd' lw 1 lt 1
set yrange [{low:g}:{high:g}]
set key top left reverse Left samplen 3 width 1 invert
set style data linespoints
"""


def series_of(plot, results):
    """What there is to draw: title, style and points, from the lowest layer up. A line has a gap
    where a value was not measured."""
    layers = [(plot.limit, plot.limit_title, "limit"), ("naive", "naive", "naive"),
              ("panorel", "Panorel", "panorel")]
    series = []
    for variant, title, style in layers:
        points = [(value, results.time(plot.group, variant, plot.arguments.format(value)))
                  for value in plot.values]
        points = [(value, time and time / UNITS[plot.unit]) for value, time in points]
        if any(time for _, time in points):
            series.append((title, STYLES[style], points))
    return series


def short(value):
    for size, letter in [(1000000, "M"), (1000, "k")]:
        if value >= size:
            return f"{value // size}{letter}"
    return str(value)


def range_of(plot, series):
    """Whole decades, with room for the legend in the upper left corner."""
    points = [point for _, _, points in series for point in points if point[1]]
    low = 10 ** math.floor(math.log10(min(time for _, time in points)))
    high = max(10 * low, 10 ** math.ceil(math.log10(max(time for _, time in points))))
    left = plot.values[:len(plot.values) // 2]
    on_the_left = max((time for value, time in points if value in left), default=low)
    while on_the_left > high / (high / low) ** 0.35:
        high *= 10
    return {"low": low, "high": high}


def script_of(plot, series):
    name = short if plot.values is SIZES else str
    ticks = ", ".join(f'"{name(value)}" {value}' for value in plot.values)
    lines = [SETTINGS.format(ticks=ticks, first=plot.values[0], last=plot.values[-1],
                             **dataclasses.asdict(plot), **range_of(plot, series))]
    for number, (_, _, points) in enumerate(series):
        rows = "\n".join(f"{value} {time:.4g}" if time else "" for value, time in points)
        lines.append(f"$series{number} << END\n{rows}\nEND\n")
    lines.append("plot " + ", ".join(f'$series{number} title "{title}" {style}'
                                     for number, (title, style, _) in enumerate(series)))
    return "".join(lines) + "\n"


def draw(title, script):
    result = subprocess.run(["gnuplot"], input=script, env={**os.environ, "LC_ALL": "C.UTF-8"},
                            capture_output=True, encoding="utf-8", check=False)
    if result.returncode != 0 or "</svg>" not in result.stdout:
        sys.exit(f"bench-plots.py: gnuplot failed:\n{result.stderr}")
    return result.stdout.replace("<title>Gnuplot</title>", f"<title>{title}</title>")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("results", nargs="+", help="JSON output of Google Benchmark")
    parser.add_argument("--out", type=pathlib.Path, required=True, help="the folder for the files")
    options = parser.parse_args()

    if not shutil.which("gnuplot"):
        sys.exit("bench-plots.py: gnuplot is not installed (Debian package: gnuplot-nox).")
    results = bench_results.read_or_exit(options.results)
    options.out.mkdir(parents=True, exist_ok=True)
    for plot in PLOTS:
        series = series_of(plot, results)
        if not series:
            print(f"bench-plots.py: nothing was measured for {plot.name}.svg.", file=sys.stderr)
            continue
        (options.out / f"{plot.name}.svg").write_text(
            draw(plot.title, script_of(plot, series)), encoding="utf-8")


if __name__ == "__main__":
    main()
