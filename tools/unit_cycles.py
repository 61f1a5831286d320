#!/usr/bin/env python3
"""Prints units (a header with the source beside it) that include each other in a circle."""
import os
import re
import sys


def includes():
    graph = {}
    for folder, _, names in os.walk("corekit"):
        for name in names:
            if not name.endswith((".h", ".cpp")) or name.startswith("CoreKit"):
                continue
            path = os.path.join(folder, name)
            unit = os.path.splitext(path)[0]
            with open(path, encoding="utf-8") as file:
                found = re.findall(r'^ *#include "(corekit/[^"]+)\.\w+"', file.read(), re.MULTILINE)
            graph.setdefault(unit, set()).update(each for each in found if each != unit)
    return graph


def circles(graph):
    """Strongly connected parts of more than one unit, by Tarjan's algorithm."""
    order, low, waiting, found = {}, {}, [], []

    def visit(unit):
        order[unit] = low[unit] = len(order)
        waiting.append(unit)
        for other in graph.get(unit, ()):
            if other not in order:
                visit(other)
            if other in waiting:
                low[unit] = min(low[unit], low[other])
        if low[unit] == order[unit]:
            part = waiting[waiting.index(unit):]
            del waiting[waiting.index(unit):]
            if len(part) > 1:
                found.append(part)

    sys.setrecursionlimit(10000)
    for unit in sorted(graph):
        if unit not in order:
            visit(unit)
    return found


def shown(part):
    folder = os.path.dirname(sorted(part)[0])
    return f"{folder.removeprefix('corekit/')}: {' '.join(sorted(os.path.relpath(unit, folder) for unit in part))}"


found = sorted(map(shown, circles(includes())))
print("\n".join(found))
sys.exit(bool(found))
