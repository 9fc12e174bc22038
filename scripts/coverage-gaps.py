#!/usr/bin/env python3
"""coverage-gaps.py ROOT LIST TRACE...: what no test runs is exactly what the reviewed list holds.

A line or a branch counts as run when one of the traces ran it. The list has blocks: a reason, and
below it the entries that it stands for. An entry names a file, a function, "line" or "branch" and
how many there are; below, indented, stands the text of the line. Exits with 1 when something else
is not run, or something listed is.
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
                # Two compilers number branches differently: the one that knows the most tells, and
                # of two that know as many the better one.
                told = (-len(line["branches"]), missing)
                branches[place] = min(branches.get(place, told), told)
    gaps = Counter()
    sources = {}
    for (file, number), count in sorted(runs.items()):
        missing = branches[file, number][1]
        if count > 0 and missing == 0:
            continue
        if file not in sources:
            sources[file] = (root / file).read_text().splitlines()
        text = sources[file][number - 1].strip()
        function = function_of(sources[file], number)
        kind = "line" if count == 0 else "branch"
        gaps[file, function, kind, text] += 1 if count == 0 else missing
    run_lines = sum(count > 0 for count in runs.values())
    all_branches = -sum(value[0] for value in branches.values())
    run_branches = all_branches - sum(value[1] for value in branches.values())
    return gaps, (run_lines, len(runs), run_branches, all_branches)


HEAD = re.compile(r"(\S+\.\w+) (.+) (line|branch) (\d+)")


def entries_of(block):
    """The pairs of lines of a block, behind the lines of its reason."""
    lines = block.splitlines()
    first = next((i for i, line in enumerate(lines) if HEAD.fullmatch(line)), 0)
    pairs = list(zip(lines[first::2], lines[first + 1 :: 2]))
    if first == 0 or (len(lines) - first) % 2 != 0:
        sys.exit(f"a reason and the entries below it, two lines each, are expected: {lines[0]}")
    for head, text in pairs:
        match = HEAD.fullmatch(head)
        if not match or not text.startswith("    "):
            sys.exit(f"an entry needs a head and, indented, the line's text: {head}")
        file, function, kind, count = match.groups()
        yield (file, function, kind, text.strip()), int(count)


def read_list(path):
    entries = {}
    text = "\n".join(line for line in path.read_text().splitlines() if not line.startswith("#"))
    for block in re.split(r"\n\s*\n", text.strip("\n")):
        for entry, count in entries_of(block):
            if entry in entries:
                sys.exit(f"listed twice: {' '.join(entry)}")
            entries[entry] = count
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
