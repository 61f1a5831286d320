"""docs/performance.md and its bars, from the rows of a run."""
import datetime
import os
import platform
import subprocess

from goals import REMARKS

LEFT, BAR, LINE, TOP = 260, 420, 18, 30  # of the picture, in pixels
WIDEST = 8  # times the peer; longer bars are cut


def processor():
    with open("/proc/cpuinfo") as file:
        for line in file:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return platform.machine()


def versions():
    compiler = subprocess.run(["g++", "--version"], capture_output=True, text=True).stdout.splitlines()[0]
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True, text=True).stdout.strip()
    return f"{os.cpu_count()} x {processor()}, {compiler}, commit {commit}, {datetime.date.today():%d %B %Y}"


def bars(rows):
    compared = [row for row in rows if row.ratio]
    height = TOP + LINE * len(compared) + 10
    shown = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{LEFT + BAR + 60}" height="{height}" '
             'font-family="sans-serif" font-size="12">',
             f'<rect width="100%" height="100%" fill="#fff"/>',
             f'<text x="{LEFT}" y="18">times the best peer; the line is the peer itself</text>']
    for i, row in enumerate(compared):
        y = TOP + i * LINE
        width = min(row.ratio, WIDEST) / WIDEST * BAR
        colour = "#b44" if row.is_short else "#478"
        shown.append(f'<text x="{LEFT - 8}" y="{y + 13}" text-anchor="end">{row.path}</text>'
                     f'<rect x="{LEFT}" y="{y + 3}" width="{width:.1f}" height="{LINE - 6}" fill="{colour}"/>'
                     f'<text x="{LEFT + width + 5:.1f}" y="{y + 13}">{row.ratio:.2f}</text>')
    x = LEFT + BAR / WIDEST
    shown.append(f'<line x1="{x}" x2="{x}" y1="{TOP - 4}" y2="{height - 8}" stroke="#222"/></svg>')
    return "\n".join(shown) + "\n"


def table(rows):
    lines = ["| path | CoreKit | best peer | times | goal |", "|---|---:|---:|---:|---:|"]
    for row in rows:
        peer = f"{row.best} {row.human(row.peers[row.best])}" if row.best else "none"
        goal = f"{row.goal}{f' of {row.against}' if row.against != row.best else ''}" if row.goal else ""
        if row.least:
            goal = f"{row.least}{row.unit}"
        if row.is_short and row.limit_ratio():
            goal += f", nothing passes {row.limit_ratio():.2f}"
        lines.append(f"| {row.path} | {row.human(row.ours)} | {peer} | {f'{row.ratio:.2f}' if row.ratio else ''} | "
                     f"{goal}{' (short)' if row.is_short else ''} |")
    return "\n".join(lines)


def remarks(rows):
    """What stands in the way of the paths that are short."""
    lines = [f"- `{row.path}`: {REMARKS[row.path]}" for row in rows if row.is_short and row.path in REMARKS]
    return "\n## What stands in the way\n\n" + "\n".join(lines) + "\n" if lines else ""


GROWTH = "## Growth"  # what stands from there on is the other run's


def read(folder):
    """The page in two: what the peers' run wrote, and the growth's."""
    try:
        with open(os.path.join(folder, "performance.md")) as file:
            peers, heading, growth = file.read().partition(GROWTH)
            return peers, heading + growth
    except FileNotFoundError:
        return "# Performance\n\n", ""


def write(folder, rows, command):
    with open(os.path.join(folder, "performance.svg"), "w") as file:
        file.write(bars(rows))
    growth = read(folder)[1]
    with open(os.path.join(folder, "performance.md"), "w") as file:
        file.write(f"""# Performance

Each path is measured beside what one would use instead, in one process, with the same data; the median of a few
runs counts. `{command}` with `--write docs` made this page on {versions()}.

{table(rows)}

![Bars: times the best peer](performance.svg)
{remarks(rows)}{chr(10) + growth if growth else ""}""")


def write_growth(folder, curves):
    peers = read(folder)[0].rstrip("\n")
    with open(os.path.join(folder, "performance.md"), "w") as file:
        file.write(f"""{peers}

{GROWTH}

What an operation costs among few entries and among many, in microseconds of processor time; the best of a few runs
counts. `./go bench growth --write docs` made this part on {versions()}.

{curves}

![Lines: microseconds by number of entries](growth.svg)
""")
