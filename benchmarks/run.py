#!/usr/bin/env python3
"""Runs the benchmark programs and prints, for every path measured, each peer's rate and how many times the best peer
CoreKit is. Benchmarks are named <subject>/<path>/<peer>."""
import argparse
import collections
import glob
import json
import os
import subprocess
import sys
import tempfile

import page
from goals import GOALS, LEAST, UNITS

TIME_UNITS = {"ns": 1e9, "us": 1e6, "ms": 1e3, "s": 1}


def rate_of(b):
    return b.get("items_per_second") or TIME_UNITS[b["time_unit"]] / b["cpu_time"]


def human(rate):
    for step, letter in ((1e9, "G"), (1e6, "M"), (1e3, "k")):
        if rate >= step:
            return f"{rate / step:.3g} {letter}/s"
    return f"{rate:.3g} /s"


def run(program, scratch, quick):
    result = os.path.join(scratch, os.path.basename(program) + ".json")
    repetitions, seconds = (3, 0.02) if quick else (5, 0.1)
    subprocess.run([program, f"--benchmark_repetitions={repetitions}", f"--benchmark_min_time={seconds}",
                    "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true",
                    f"--benchmark_out={result}",
                    "--benchmark_out_format=json"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                   env=dict(os.environ, BENCH_SCRATCH=scratch, QT_QPA_PLATFORM="offscreen"))
    with open(result) as file:
        return json.load(file)["benchmarks"]


def measure(programs, quick):
    """Rates by path and peer, in the order of the programs."""
    paths = collections.OrderedDict()
    # In memory where there is such a place, so that no disk takes part.
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as scratch:
        for program in programs:
            print(os.path.basename(program), file=sys.stderr)
            for b in run(program, scratch, quick):
                if b.get("aggregate_name") == "median":
                    name = b["run_name"].removesuffix("/real_time").removesuffix("/manual_time")
                    subject, path, peer = name.split("/", 2)
                    peer = peer.split("/")[0]  # arguments follow; the path's name tells them
                    paths.setdefault(f"{subject}/{path}", {})[peer] = rate_of(b)
    return paths


class Row:
    """One path: our rate, the best peer's, and whether the goal is reached."""

    def __init__(self, path, rates):
        self.path, self.rates = path, rates
        self.ours = rates.get("corekit", 0)
        self.peers = {k: v for k, v in rates.items() if k != "corekit" and not k.startswith("limit")}
        self.limit = max((v for k, v in rates.items() if k.startswith("limit")), default=None)
        self.best = max(self.peers, key=self.peers.get, default=None)
        self.ratio = self.ours / self.peers[self.best] if self.best else None
        goal = GOALS.get(path)
        self.goal, self.against = goal if isinstance(goal, tuple) else (goal, self.best)
        self.least = LEAST.get(path)
        self.is_short = bool(self.goal and self.best and self.ours < self.goal * self.peers[self.against]
                             or self.least and self.ours < self.least)

    def limit_ratio(self):
        """Times the peer that counts, what nothing could pass on this machine; None where nobody measured it."""
        return self.limit / self.peers[self.against or self.best] if self.limit and self.best else None

    @property
    def unit(self):
        return UNITS.get(self.path, " /s")

    def human(self, rate):
        return human(rate) if self.path not in UNITS else f"{rate:.3g}{self.unit}"

    def print(self):
        best = f"{self.best} {self.human(self.peers[self.best])}" if self.best else "-"
        print(f"{self.path:36} {self.human(self.ours):>10} {best:>28} {self.ratio or 0:7.2f} {self.goal or '':>6}"
              f"{' of ' + self.against if self.goal and self.against != self.best else ''}"
              f"{f'  {self.least}{self.unit} wanted' if self.least else ''}{'  short' if self.is_short else ''}")
        for peer in sorted(self.rates, key=self.rates.get, reverse=True):
            if peer not in ("corekit", self.best):
                print(f"{'':36} {'':>10} {peer + ' ' + self.human(self.rates[peer]):>28}")


def main():
    arguments = argparse.ArgumentParser(prog="./go bench", description=__doc__)
    arguments.add_argument("binaries", help=argparse.SUPPRESS)
    arguments.add_argument("names", nargs="*", metavar="NAME", help="subjects, by default all")
    arguments.add_argument("--quick", action="store_true", help="shorter and less sure")
    arguments.add_argument("--write", metavar="DIR", help="write performance.md and performance.svg there, too")
    given = arguments.parse_args()
    programs = sorted(glob.glob(os.path.join(given.binaries, "bench_*")))
    if given.names:
        programs = [p for p in programs if os.path.basename(p)[6:] in given.names]
    if not programs:
        sys.exit("run.py: no such benchmark")
    rows = [Row(path, rates) for path, rates in measure(programs, given.quick).items()]
    print(f"{'path':36} {'CoreKit':>10} {'best peer':>28} {'ratio':>7} {'goal':>6}")
    for row in rows:
        row.print()
    short = sum(row.is_short for row in rows)
    print(f"{short} path(s) short of their goal" if short else "every path reaches its goal")
    if given.write:
        command = " ".join(["./go bench", *(["--quick"] if given.quick else []), *given.names])
        page.write(given.write, rows, command)


main()
