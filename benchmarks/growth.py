#!/usr/bin/env python3
"""Measures how the cost of an operation grows with the number of entries and prints processor time in microseconds,
with * where it is over the curve's goal."""
import argparse
import collections
import colorsys
import math
import os
import subprocess
import tempfile

import page

LEFT, TOP, PLOT_WIDTH, PLOT_HEIGHT, NAMES, LINE = 50, 34, 430, 430, 390, 15  # of the picture, in pixels


def measure(program, names):
    """For each curve its goal and the microseconds by count."""
    curves = collections.OrderedDict()
    # In memory where there is such a place, so that no disk takes part.
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as scratch:
        with subprocess.Popen([program, *names], stdout=subprocess.PIPE, text=True,
                              env=dict(os.environ, BENCH_SCRATCH=scratch)) as running:
            for line in running.stdout:
                name, goal, count, microseconds = line.rstrip("\n").split("\t")
                curves.setdefault(name, (float(goal), {}))[1][int(count)] = float(microseconds)
    if running.returncode:
        raise SystemExit(f"growth.py: {program} ended with {running.returncode}")
    if not curves:
        raise SystemExit("growth.py: no such curve")
    return curves


def all_counts(curves):
    return sorted({count for _, measured in curves.values() for count in measured})


def short(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def cells(goal, measured, counts):
    return [short(measured[c]) + ("*" if measured[c] > goal else "") if c in measured else "" for c in counts]


def show(curves):
    counts = all_counts(curves)
    print(f"{'microseconds at':58}" + "".join(f"{count:>11,}" for count in counts) + f"{'goal':>8}")
    for name, (goal, measured) in curves.items():
        print(f"{name:58}" + "".join(f"{cell:>11}" for cell in cells(goal, measured, counts)) + f"{goal:>8g}")
    over = sum(any(value > goal for value in measured.values()) for goal, measured in curves.values())
    print(f"{over} curve(s) over their goal (*)" if over else "every curve stays under its goal")


def table(curves):
    counts = all_counts(curves)
    lines = ["| operation | " + " | ".join(f"{c:,}" for c in counts) + " | goal |",
             "|---|" + "---:|" * (len(counts) + 1)]
    for name, (goal, measured) in curves.items():
        shown = [cell.replace("*", " (over)") for cell in cells(goal, measured, counts)]
        lines.append(f"| {name} | {' | '.join(shown)} | {goal:g} |")
    return "\n".join(lines)


def spread(wanted, bottom):
    """The heights of names, each as near to its wanted one as the others allow."""
    places = []
    for y in wanted:
        places.append(max(y, places[-1] + LINE) if places else y)
    limit = bottom
    for i in reversed(range(len(places))):
        places[i] = min(places[i], limit)
        limit = places[i] - LINE
    return places


def colour_of(i):
    """One each, neighbours far apart, as bright as can be read on white and on black."""
    bright = (0.40, 0.5)[i % 2]
    shades = (colorsys.hls_to_rgb(i * 0.618 % 1, light / 100, 0.65) for light in range(15, 85))
    best = min(shades, key=lambda rgb: abs(0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2] - bright))
    return "#" + "".join(f"{round(part * 255):02x}" for part in best)


def picture(curves):
    """Lines over logarithmic axes, each with its name behind its end."""
    counts = all_counts(curves)
    values = [value for _, measured in curves.values() for value in measured.values()]
    low, high = math.floor(math.log10(min(values))), math.ceil(math.log10(max(values)))
    plot = max(PLOT_HEIGHT, LINE * len(curves))
    right, bottom = LEFT + PLOT_WIDTH, TOP + plot

    def x(count):
        return LEFT + math.log10(count / counts[0]) / max(math.log10(counts[-1] / counts[0]), 1) * PLOT_WIDTH

    def y(value):
        return bottom - (math.log10(value) - low) / (high - low) * plot

    drawn = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{right + NAMES}" height="{bottom + 30}" '
             'font-family="sans-serif" font-size="12">',
             "<style>rect{fill:#fff}text{fill:#222}.grid{stroke:#ddd}"
             "@media(prefers-color-scheme:dark){rect{fill:#14171c}text{fill:#ddd}.grid{stroke:#333a44}}</style>",
             '<rect width="100%" height="100%"/>',
             f'<text x="{LEFT}" y="18">microseconds of processor time an operation, by number of entries</text>']
    for power in range(low, high + 1):
        at = y(10 ** power)
        drawn.append(f'<line class="grid" x1="{LEFT}" x2="{right}" y1="{at:.1f}" y2="{at:.1f}"/>'
                     f'<text x="{LEFT - 6}" y="{at + 4:.1f}" text-anchor="end">{10 ** power:g}</text>')
    for count in counts:
        at = x(count)
        drawn.append(f'<line class="grid" x1="{at:.1f}" x2="{at:.1f}" y1="{TOP}" y2="{bottom}"/>'
                     f'<text x="{at:.1f}" y="{bottom + 18}" text-anchor="middle">{count:,}</text>')
    by_end = sorted(curves.items(), key=lambda curve: y(curve[1][1][max(curve[1][1])]))
    ends = spread([y(measured[max(measured)]) for _, (_, measured) in by_end], bottom)
    for i, ((name, (_, measured)), end) in enumerate(zip(by_end, ends)):
        colour, last = colour_of(i), max(measured)
        points = " ".join(f"{x(count):.1f},{y(value):.1f}" for count, value in measured.items())
        drawn.append(f'<polyline points="{points}" fill="none" stroke="{colour}" stroke-width="2"/>'
                     f'<line x1="{x(last):.1f}" y1="{y(measured[last]):.1f}" x2="{right + 12}" y2="{end:.1f}" '
                     f'stroke="{colour}" stroke-dasharray="2 3"/>'
                     f'<text x="{right + 16}" y="{end + 4:.1f}" style="fill:{colour}">{name}</text>')
    return "\n".join(drawn) + "\n</svg>\n"


def main():
    arguments = argparse.ArgumentParser(prog="./go bench growth", description=__doc__)
    arguments.add_argument("binaries", help=argparse.SUPPRESS)
    arguments.add_argument("names", nargs="*", metavar="NAME", help="how the names of curves begin, by default all")
    arguments.add_argument("--write", metavar="DIR", help="write growth.svg and its part of performance.md there, too")
    given = arguments.parse_args()
    curves = measure(os.path.join(given.binaries, "growth"), given.names)
    show(curves)
    if given.write:
        with open(os.path.join(given.write, "growth.svg"), "w") as file:
            file.write(picture(curves))
        page.write_growth(given.write, table(curves))


if __name__ == "__main__":
    main()
