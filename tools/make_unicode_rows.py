#!/usr/bin/env python3
"""Write corekit/unicode/tables/UnicodeRows.inc from a UnicodeData file.

    tools/make_unicode_rows.py UnicodeData-2.0.14.txt > corekit/unicode/tables/UnicodeRows.inc

The output holds runs of equal facts: types, case mappings, numeric values, mirroring. Where this library
departs from the published data, the departure is made here and nowhere else; rows of our own that the
published data does not know stand in OwnRows.inc.
"""
import os
import re
import sys

NONE = 0xFFFF
BIDI = {"L": "L", "R": "R", "EN": "EN", "ES": "ES", "ET": "ET", "AN": "AN", "CS": "CS", "B": "B", "WS": "WS",
        "ON": "ON", "S": "ON"}
GENERAL = {"Me": "Mn", "Nl": "No", "Cf": "Cc", "Co": "Cs", "Pc": "Po", "Sk": "So"}
TITLE_LIKE = {0x20A8, 0x2116, 0x3390, 0x33A9, 0x33C3, 0x33C7, 0x33C9, 0x33DC, 0x33DD}
SPACE_LIKE = {0x200B, 0xFEFF}
PRIVATE_SURROGATES = {0xDB80, 0xDBFF}
# Added to the standard one version later; scripts of today are full of it.
EURO = "20AC;EURO SIGN;Sc;0;ET;;;;;N;;;;;"


def general_type(code, category):
    if code in TITLE_LIKE:
        return "Lt"
    if code in SPACE_LIKE:
        return "Zs"
    if code in PRIVATE_SURROGATES:
        return "Cp"
    return GENERAL.get(category, category)


def whole(text):
    """The integer part of a numeric field such as 10, -1 or 1/4; -1 when it is empty."""
    if not text:
        return -1
    top, _, bottom = text.partition("/")
    return int(top) // int(bottom) if bottom else int(top)


def read(path):
    rows = {}
    with open(path, encoding="ascii") as lines:
        for line in [*lines, EURO]:
            f = line.rstrip("\r\n").split(";")
            if len(f) != 15:
                sys.exit(f"{path}: a row has {len(f)} fields instead of 15: {line!r}")
            code = int(f[0], 16)
            case = tuple(int(x, 16) if x else NONE for x in f[12:15])
            rows[code] = {"type": (general_type(code, f[2]), BIDI[f[4]]), "case": case,
                          "number": (whole(f[6]), whole(f[8])), "mirrored": f[9] == "Y"}
    return rows


def runs(facts, follows):
    """Cover the codes of `facts` with runs (first, last, step), longest first from the lowest code up.

    follows(a, b, distance) says whether fact b is what fact a becomes `distance` codes on.
    """
    left = dict(facts)
    for first in sorted(facts):
        if first not in left:
            continue
        best = (first, first, 1)
        for step in (1, 2):
            last = first
            while last + step in left and follows(facts[first], facts[last + step], last + step - first):
                last += step
            if (last - first) // step > (best[1] - best[0]) // best[2]:
                best = (first, last, step)
        # An alternation needs at least three to be worth a step.
        if best[2] == 2 and best[1] - best[0] < 4:
            best = (first, first, 1)
        for code in range(best[0], best[1] + 1, best[2]):
            del left[code]
        yield best


def equal(a, b, _):
    return a == b


def moved(a, b, distance):
    return all(x == y == NONE or NONE not in (x, y) and y == x + distance for x, y in zip(a, b))


def counted(a, b, distance):
    return all(x == y == -1 or x >= 0 and y == x + distance for x, y in zip(a, b))


def table(name, comment, lines):
    print(f"\n// {comment}\ninline constexpr {name}[] = {{")
    for line in lines:
        print(f"    {{{line}}},")
    print("};")


def select(rows, key, empty):
    return {code: row[key] for code, row in rows.items() if row[key] != empty}


def span(run):
    first, last, step = run
    return f"0x{first:04X}, 0x{last:04X}, {step}"


def hexes(values):
    return ", ".join("None" if v == NONE else f"0x{v:04X}" for v in values)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    path = sys.argv[1]
    version = re.search(r"\d+\.\d+\.\d+", os.path.basename(path))
    rows = read(path)
    types, case = select(rows, "type", None), select(rows, "case", (NONE,) * 3)
    number, mirrored = select(rows, "number", (-1, -1)), select(rows, "mirrored", False)
    print("// clang-format off\n"
          "// Made by tools/make_unicode_rows.py from the Unicode character database, version "
          f"{version.group() if version else 'unknown'},\n"
          f"// {len(rows)} rows with the Euro sign. Change the tool, not this file.")
    table("TypeRun typeRuns", "first, last, step, general type, bidirectional type",
          (f"{span(r)}, {types[r[0]][0]}, {types[r[0]][1]}" for r in runs(types, equal)))
    table("CaseRun caseRuns", "first, last, step, upper, lower and title case of first; they move along with the code",
          (f"{span(r)}, {hexes(case[r[0]])}" for r in runs(case, moved)))
    table("NumberRun numberRuns", "first, last, step, decimal and numeric value of first; they count up with the code",
          (f"{span(r)}, {number[r[0]][0]}, {number[r[0]][1]}" for r in runs(number, counted)))
    table("MirrorRun mirrorRuns", "first, last, step",
          (span(r) for r in runs(mirrored, equal)))


main()
