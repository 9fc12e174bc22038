#!/usr/bin/env python3
"""coverage-gaps.py ROOT LIST TRACE...: what no test runs is exactly what the reviewed list holds.

A line or a branch counts as run when one of the traces ran it. An entry of the list names a file, a
function, "line" or "branch" and how many there are; below, indented, the text of the line and the
reason. Exits with 1 when something else is not run, or something listed is.
"""
import json
import pathlib
import re
import sys
from collections import Counter


def function_of(lines, number):
    """The name in the nearest definition above: in this code it begins in the first column."""
    for line in reversed(lines[:number]):
        if re.match(r"[A-Za-z_]", line) and not re.match(r"(namespace|using|template)\b", line):
            name = re.search(r"([\w:~]+(?: \w+)?)\(", line)
            return name.group(1) if name else line.strip(" {;")
    return "-"


def gaps_and_totals(root, traces):
    runs, branches = {}, {}
    for trace in traces:
        for file in json.loads(pathlib.Path(trace).read_text())["files"]:
            for line in file["lines"]:
                place = (file["file"], line["line_number"])
                if line.get("gcovr/noncode"):
                    continue
                runs[place] = runs.get(place, 0) + line["count"]
                missing = sum(branch["count"] == 0 for branch in line["branches"])
                # Two compilers number branches differently: the better one tells.
                best = branches.get(place, (missing, 0))
                branches[place] = min(best, (missing, -len(line["branches"])))
    gaps = Counter()
    sources = {}
    for (file, number), count in sorted(runs.items()):
        missing = branches[file, number][0]
        if count > 0 and missing == 0:
            continue
        if file not in sources:
            sources[file] = (root / file).read_text().splitlines()
        text = sources[file][number - 1].strip()
        function = function_of(sources[file], number)
        kind = "line" if count == 0 else "branch"
        gaps[file, function, kind, text] += 1 if count == 0 else missing
    run_lines = sum(count > 0 for count in runs.values())
    all_branches = sum(-value[1] for value in branches.values())
    run_branches = all_branches - sum(value[0] for value in branches.values())
    return gaps, (run_lines, len(runs), run_branches, all_branches)


def read_list(path):
    entries = {}
    text = "\n".join(line for line in path.read_text().splitlines() if not line.startswith("#"))
    for block in re.split(r"\n\s*\n", text.strip("\n")):
        lines = block.splitlines()
        if not lines:
            continue
        head = re.fullmatch(r"(\S+) (.+) (line|branch) (\d+)", lines[0])
        if not head or len(lines) < 3:
            sys.exit(f"{path}: an entry needs a head, the line's text and a reason: {lines[0]}")
        file, function, kind, count = head.groups()
        entries[file, function, kind, lines[1].strip()] = int(count)
    return entries


def show(title, entries):
    if entries:
        print(title)
    for (file, function, kind, text), count in sorted(entries.items()):
        print(f"{file} {function} {kind} {count}\n    {text}")


def main():
    root, listed = pathlib.Path(sys.argv[1]), read_list(pathlib.Path(sys.argv[2]))
    gaps, totals = gaps_and_totals(root, sys.argv[3:])
    unlisted = {gap: count for gap, count in gaps.items() if listed.get(gap) != count}
    stale = {entry: count for entry, count in listed.items() if gaps.get(entry) != count}
    show("not run and not listed with this count:", unlisted)
    show("listed, but run or no longer there with this count:", stale)
    print(
        "lines: %d of %d, branches: %d of %d, " % totals
        + f"{sum(listed.values())} listed as unreachable, {sum(unlisted.values())} not listed"
    )
    return 1 if unlisted or stale else 0


sys.exit(main())
