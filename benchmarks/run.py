#!/usr/bin/env python3
"""run.py BINARIES [NAME...]: runs the benchmark programs and prints, for every path measured, each
peer's rate and how many times the best peer CoreKit is. Names are <subject>/<path>/<peer>."""
import collections
import glob
import json
import os
import subprocess
import sys
import tempfile

# What each path must reach, as a multiple of the best peer, or of the one named.
GOALS = {
    "chardata/general_type_random_bmp": 4, "chardata/general_type_text": 4,
    "chardata/bidi_type_random_bmp": 4, "chardata/bidi_type_text": 4,
    "chardata/to_upper_random_bmp": 4, "chardata/to_upper_text": 4,
    "bidi/latin": 8, "bidi/mixed_ltr": 5, "bidi/mixed_rtl": 5,
    "shaping/arabic": 3,
    "indic/devanagari": 20, "indic/bengali": 20, "indic/tamil": 20, "indic/mixed": 20,
    "streams/memory_write": 1.2, "streams/memory_read": 1.5,
    "streams/file_write": 1.5, "streams/file_read": 1.2,
    "strings/copy": 1, "strings/find_units": 1, "strings/make": (1, "qt6_qstring"), "strings/equal": (1, "qt6_qstring"),
    "edit/key_4_kib": 1, "edit/key_64_kib": 1, "list/fill_100000_rows": 1,
    "draw/measure": 5, "draw/raster": 1.5, "manager/start": 0.5,
    "registry/read": 2,
    "logging/flushed_line": (1.4, "spdlog"), "logging/filtered_out": 2,
    "words/lookup_hit": (3, "lmdb"), "words/lookup_miss": (3, "lmdb"), "words/wildcard_queries": (3, "sorted_fnmatch"),
    "settings/serialise": (1, "rapidjson"), "settings/deserialise": (2, "qt6_cbor"), "settings/lookup": (1, "jansson"), "settings/lookup_second_thread": (1, "jansson"),
    "conversion/wildcards": (1, "fnmatch"), "conversion/adler32": 5,
    "conversion/quicksort": 0.9, "conversion/sort_integers": 0.9, "conversion/sort_texts": 0.9,
    "records/add": (1.3, "lmdb"), "records/delete": (5, "lmdb"), "records/get": 1, "records/replace": 1,
    "ports/batch_of_10000": (1, "libuv"), "ports/round_trip": 1,
    "codepages/read_utf8": (1, "icu"), "codepages/write_utf8": (1, "icu"),
    "codepages/read_65001": (1, "icu"), "codepages/write_65001": (1, "icu"),
    "codepages/read_1256": 0.9, "codepages/write_1256": 0.9, "codepages/read_932": 0.9, "codepages/write_932": 0.9,
    "sockets/echo_64": 1, "sockets/echo_4096": 1,
    "ftp/upload_64_mib": 1, "ftp/download_64_mib": 1, "ftp/upload_small_files": 1, "ftp/download_small_files": 1,
    "graphics/load_24": 1, "graphics/save_24": 1, "graphics/draw_24": 0.83, "graphics/stretch_24": 0.83,
    "graphics/button": 0.83,
    "devices/serial_echo_64": 0.9, "devices/serial_echo_1024": 0.9, "devices/service_status": 0.9,
    "packing/deflate": 0.97, "packing/inflate": 0.97,
}

# How often a second at least, whatever peers do.
LEAST = {"graphics/flip": 250, "prompter/frame_40_lines": 250}
TIME_UNITS = {"ns": 1e9, "us": 1e6, "ms": 1e3, "s": 1}


def rate_of(b):
    return b.get("items_per_second") or TIME_UNITS[b["time_unit"]] / b["cpu_time"]


def human(rate):
    for step, letter in ((1e9, "G"), (1e6, "M"), (1e3, "k")):
        if rate >= step:
            return f"{rate / step:.3g} {letter}/s"
    return f"{rate:.3g} /s"


def run(program, scratch):
    result = os.path.join(scratch, os.path.basename(program) + ".json")
    subprocess.run([program, "--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                    "--benchmark_report_aggregates_only=true", f"--benchmark_out={result}",
                    "--benchmark_out_format=json"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                   env=dict(os.environ, BENCH_SCRATCH=scratch, QT_QPA_PLATFORM="offscreen"))
    with open(result) as file:
        return json.load(file)["benchmarks"]


def main():
    folder, names = sys.argv[1], sys.argv[2:]
    programs = sorted(glob.glob(os.path.join(folder, "bench_*")))
    if names:
        programs = [p for p in programs if os.path.basename(p)[6:] in names]
    if not programs:
        sys.exit("run.py: no such benchmark")
    paths = collections.OrderedDict()
    # In memory where there is such a place, so that no disk takes part.
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as scratch:
        for program in programs:
            print(os.path.basename(program), file=sys.stderr)
            for b in run(program, scratch):
                if b.get("aggregate_name") == "median":
                    subject, path, peer = b["run_name"].removesuffix("/real_time").removesuffix("/manual_time").split("/", 2)
                    paths.setdefault(f"{subject}/{path}", {})[peer] = rate_of(b)
    short = 0
    print(f"{'path':36} {'CoreKit':>10} {'best peer':>28} {'ratio':>7} {'goal':>6}")
    for path, rates in paths.items():
        ours = rates.get("corekit", 0)
        peers = {k: v for k, v in rates.items() if k != "corekit" and not k.startswith("limit")}
        best = max(peers, key=peers.get, default=None)
        ratio = ours / peers[best] if best else 0
        goal, against = GOALS.get(path), best
        if isinstance(goal, tuple):
            goal, against = goal
        mark = "" if not goal or not best or ours >= goal * peers[against] else "  short"
        least = LEAST.get(path)
        if least:
            mark += f"  {least} /s wanted" + ("" if ours >= least else ", short")
        short += "short" in mark
        print(f"{path:36} {human(ours):>10} {(best or '-') + ' ' + human(peers.get(best, 0)):>28} "
              f"{ratio:7.2f} {goal if goal else '':>6}"
              f"{' of ' + against if goal and against != best else ''}{mark}")
        for peer in sorted(rates, key=rates.get, reverse=True):
            if peer not in ("corekit", best):
                print(f"{'':36} {'':>10} {peer + ' ' + human(rates[peer]):>28}")
    print(f"{short} path(s) short of their goal" if short else "every path reaches its goal")


main()
