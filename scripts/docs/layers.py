#!/usr/bin/env python3
"""layers.py ROOT: the library's layers as a Graphviz graph, from what its files include.

A box is a class with all its sources, or a detail folder. The lowest boxes include no other; every
other one stands a layer above the highest of those it includes; two that include each other stand
side by side. What an arrow would only repeat, since another path leads there too, is left out.
"""
import pathlib
import re
import sys

FOREIGN = {"windows.h": "Windows", "cpl_vsi.h": "GDAL"}
# What every header includes: the export macro and what it refuses.
EVERYWHERE = {"TEVSystemExport", "TEVSystemAbi", "TEVSystemBuild"}
INCLUDE = re.compile(r"^#include [<\"]([^>\"]+)[>\"]", re.MULTILINE)


def box_of(file):
    """The box of a file that is named relative to the library's folder."""
    if "detail" in file.parts or file.parts[0] == "owned":
        return "/".join(file.parts[:-1])
    return "/".join(file.parts[:-1] + (re.split(r"[_.]", file.name)[0],))


def edges_of(root):
    edges, foreign = {}, {}
    library = root / "TEVSystemLib"
    for path in sorted([*library.rglob("*.h"), *library.rglob("*.cpp")]):
        file = path.relative_to(library)
        box = box_of(file)
        if box in EVERYWHERE:
            continue
        edges.setdefault(box, set())
        for name in INCLUDE.findall(path.read_text()):
            if name.startswith("TEVSystemLib/"):
                target = box_of(pathlib.Path(name).relative_to("TEVSystemLib"))
                edges[box] |= {target} - {box} - EVERYWHERE
            elif name in FOREIGN:
                foreign.setdefault(box, set()).add(FOREIGN[name])
    return edges, foreign


def reachable(edges, start):
    seen, left = set(), list(edges[start])
    while left:
        box = left.pop()
        if box not in seen:
            seen.add(box)
            left += edges[box]
    return seen


def merged(edges):
    """Boxes that include each other stand for one: its members, and what they include besides."""
    reach = {box: reachable(edges, box) for box in edges}
    part = {box: max({box} | {other for other in reach[box] if box in reach[other]},
                     key=lambda member: (len(edges[member]), member))
            for box in edges}
    groups = {}
    for box, targets in edges.items():
        groups.setdefault(part[box], set()).update(
            part[to] for to in targets if part[to] != part[box])
    return part, groups


def without_detours(groups):
    reach = {box: reachable(groups, box) for box in groups}
    return {box: {to for to in targets
                  if not any(to in reach[other] for other in targets - {to})}
            for box, targets in groups.items()}


def level_of(groups, box):
    return 1 + max((level_of(groups, to) for to in groups[box]), default=0)


def graph(edges, foreign):
    part, groups = merged(edges)
    level = {box: level_of(groups, part[box]) for box in edges}
    lines = ["digraph layers {", "    rankdir=TB; newrank=true; nodesep=0.25; ranksep=0.55;",
             '    bgcolor="white";',
             '    node [shape=box, style="filled", fontname="Helvetica", fontsize=11];',
             '    edge [color="#707070", arrowsize=0.7];']
    for box in sorted(edges):
        inner = "detail" in box
        label = box.removeprefix("util/") if inner else box.split("/")[-1]
        marks = "".join(f"\\n{mark}" for mark in sorted(foreign.get(box, ())))
        fill = "#e8eef7" if inner else "#fdf1d8"
        lines.append(f'    "{box}" [label="{label}{marks}", fillcolor="{fill}"];')
    for number in sorted(set(level.values()), reverse=True):
        same = " ".join(f'"{box}";' for box in sorted(edges) if level[box] == number)
        lines.append(f"    {{ rank=same; {same} }}")
    for box, targets in sorted(without_detours(groups).items()):
        lines += [f'    "{box}" -> "{to}";' for to in sorted(targets)]
    for box in sorted(set(edges) - set(groups)):
        lines.append(f'    "{part[box]}" -> "{box}" [dir=both, style=dashed];')
    return "\n".join(lines + ["}"]) + "\n"


if __name__ == "__main__":
    sys.stdout.write(graph(*edges_of(pathlib.Path(sys.argv[1]))))
