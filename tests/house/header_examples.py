#!/usr/bin/env python3
"""header_examples.py COMPILER SOURCE: every example in the comments of a header compiles.

An example is a run of comment lines that are indented by four blanks; "..." in it stands for what a reader fills in.
header_examples.txt has for a header what its examples take for granted, see there."""
import pathlib
import re
import subprocess
import sys

compiler, source = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
sections = (source / "tests/house/header_examples.txt").read_text().split("\n== ")[1:]
frames = {name: frame.strip() for name, _, frame in (section.partition("\n") for section in sections)}


def examples(text):
    """The examples of a header; those with nothing between them but empty comment lines are one."""
    found, inside = [], False
    for line in text.split("\n"):
        if match := re.match(r"//    ( .*)", line):
            if not inside:
                found.append("")
            found[-1] += match[1] + "\n"
            inside = True
        elif line != "//":
            inside = False
    return [re.sub(r"(?m)^ *\.\.\.( *//.*)?$", ";", each).replace("{ ... }", "{}").replace("...", "{}") for each in found]


def framed(frame, runs):
    if "@" not in frame:  # the body of a window's function with these parameters
        declarations, _, parameters = frame.rpartition("\n")
        frame = f"{declarations}\nstruct Window : CFrameWnd {{\nvoid run{parameters} {{\n@\n}}\n}};"
    if "@1" in frame:
        runs = [part for run in runs for part in re.split(r"(?m)^ *;$", run)]
    for number, run in enumerate(runs, 1):
        frame = frame.replace(f"@{number}", run)
    return re.sub(r"@\d", "", frame).replace("@", "\n".join(runs))


program = '#include "corekit/CoreKitUI.h"\n#include "corekit/resources/Messages.h"\n#include <cstdio>\n#include <vector>\n'
for path in sorted((source / "corekit").rglob("*.h")):
    name = path.relative_to(source / "corekit").as_posix()
    runs, frame = examples(path.read_text()), frames.get(name, "()")
    if runs and frame != "text":
        program += f'#include "corekit/{name}"\n#line 1 "{name}"\nnamespace example_{len(program)} {{\n'
        program += framed(frame, runs) + "\n}\n"
flags = ["-std=c++20", "-fsyntax-only", "-Wno-psabi", "-x", "c++", f"-I{source}", "-"]
sys.exit(subprocess.run([compiler, *flags], input=program, text=True, cwd=source).returncode)
