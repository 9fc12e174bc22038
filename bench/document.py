#!/usr/bin/env python3
"""document.py RESULTS DLL EMPTY OBJDUMP: writes docs/performance.md and its plots from the results
of all jobs, the goals, and the notes that people write."""

import datetime
import json
import math
import pathlib
import re
import subprocess
import sys

import plots
from measurements import HERE, BadMeasurement, median, number, read_goals, read_rows, read_run

ROOT = HERE.parent
DOCUMENT = ROOT / "docs" / "performance.md"
PICTURES = ROOT / "docs" / "performance"
FEWEST_REPETITIONS = 15
INTRODUCTION = """\
# Performance

<!-- Written by ./tev bench; edit bench/notes.md and bench/goals.txt instead. -->

Version {version}, measured on {date}.

Each line is one piece of work of one size, done in three ways in one run: by this library through its
DLL, by what a host would use instead (the fastest of the peers that `bench/` has), and as the bare
work, the limit. The figures are ratios of times, ours / limit and ours / peer: first of the fastest
quarter of {repetitions} repetitions, interleaved at random, then of the medians. The first one is
judged, since machines of this kind jump between two speeds. A line is *met* at its goal, *close* within
1.15 of it, else *missed*; without a goal it is shown only. A `-` stands where there is no such row.

{summary}
"""
HEAD = """\
| Work | Size | Limit | ours / limit | median | goal | Peer | ours / peer | median | goal | |
|---|--:|---|--:|--:|--:|---|--:|--:|--:|---|
"""


def version():
    text = (ROOT / "CMakeLists.txt").read_text()
    return re.search(r"project\(TEVSystemLib VERSION ([0-9.]+)", text)[1]


def read_notes():
    """Job to prose."""
    parts = re.split(r"^## (\S+)\n", (HERE / "notes.md").read_text(), flags=re.M)
    return dict(zip(parts[1::2], (prose.strip() for prose in parts[2::2])))


def line(row):
    cells = [row.work, row.size or "", row.limit_name or "-",
             number(row.limit_ratio()), number(row.limit_ratio(median)), number(row.goal.limit),
             row.best_peer() or "-",
             number(row.peer_ratio()), number(row.peer_ratio(median)), number(row.goal.peer),
             row.verdict()]
    return "| " + " | ".join(str(cell) for cell in cells) + " |\n"


def growth(rows):
    """How many times the cost grows where the size grows tenfold, from each size to the next."""
    text = []
    for work in dict.fromkeys(row.work for row in rows):
        sized = [row for row in rows if row.work == work and row.size and row.ours]
        steps = [f"{10 ** slope(a, b):.1f}" for a, b in zip(sized, sized[1:])]
        if steps:
            text.append(f"`{work}` {', '.join(steps)}")
    if not text:
        return ""
    return ("\nOur cost grows, where the size grows tenfold, by the factors (10 is linear) "
            + "; ".join(text) + ".\n")


def slope(smaller, larger):
    grown = math.log(plots.cost(larger.ours) / plots.cost(smaller.ours))
    return grown / math.log(larger.size / smaller.size)


def imports(objdump, dll):
    """The DLLs that one needs, and how many functions of them."""
    text = subprocess.run([objdump, "-p", dll], check=True, capture_output=True, text=True).stdout
    tables = text.partition("The Import Tables")[2].partition("The Export Tables")[0]
    return (len(re.findall(r"DLL Name:", tables)),
            len(re.findall(r"^\t[0-9a-f]+\t", tables, flags=re.M)))


def memory(results):
    bytes_of = {}
    for entry in read_run(results / "start.json")["benchmarks"]:
        if entry["run_type"] == "iteration":
            bytes_of.setdefault(entry["name"].split("/")[2], []).append(entry["bytes"])
    return median(bytes_of["ours"]), median(bytes_of["limit"])


def start(results, dll, empty, objdump):
    ours, limit = imports(objdump, dll), imports(objdump, empty)
    facts = [("size of the file", dll.stat().st_size, empty.stat().st_size, "bytes"),
             ("memory", *memory(results), "bytes"),
             ("DLLs imported", ours[0], limit[0], ""),
             ("functions imported", ours[1], limit[1], "")]
    text = "\n| | TEVSystemLib.dll | an empty DLL | ratio |\n|---|--:|--:|--:|\n"
    for name, one, other, unit in facts:
        ratio = number(one / other) if other > 0 else "-"
        text += f"| {name} | {one:,.0f} {unit} | {other:,.0f} {unit} | {ratio} |\n"
    return text


def section(job, rows, notes):
    text = f"\n## {job}\n\n{HEAD}" + "".join(line(row) for row in rows)
    text += growth(rows)
    if plots.draw(rows, PICTURES / f"{job}.svg"):
        text += f"\n![Cost against size](performance/{job}.svg)\n"
    return text + (f"\n{notes[job]}\n" if job in notes else "")


def instructions(results, rows):
    """What the rows that missed cost in instructions, which do not depend on the machine's mood."""
    path = results / "instructions.json"
    counts = json.loads(path.read_text()) if path.exists() else {}
    text = ""
    for row in rows:
        prefix = f"{row.job}/{row.work}/{row.size}"
        ours = counts.get(f"{prefix}/ours")
        if row.verdict() != "missed" or ours is None:
            continue
        limit = counts.get(f"{prefix}/limit")
        peer = next((f"{value:,.0f} ({name.rpartition('peer:')[2]})" for name, value in counts.items()
                     if name.startswith(f"{prefix}/peer:")), "-")
        text += (f"| {row.job} {row.work} | {row.size or ''} | {ours:,.0f} | "
                 + (f"{limit:,.0f} | {number(ours / limit) if limit else '-'}" if limit is not None
                    else "- | -") + f" | {peer} |\n")
    if not text:
        return ""
    return ("\n## Instructions of the lines that missed\n\nOf one turn, counted by valgrind "
            "(`./tev bench --instructions`).\n\n"
            "| Work | Size | ours | limit | ours / limit | fastest peer |\n"
            "|---|--:|--:|--:|--:|--:|\n" + text)


def summary(rows):
    verdicts = [row.verdict() for row in rows]
    counts = ", ".join(f"{verdicts.count(name)} {name}" for name in ("met", "close", "missed"))
    return f"Of {len(verdicts) - verdicts.count('')} lines with a goal: {counts}."


def main(results, dll, empty, objdump):
    goals, notes = read_goals(), read_notes()
    jobs = {path.name.removesuffix("_bench.cpp"): None for path in sorted(HERE.glob("*_bench.cpp"))}
    for job in jobs:
        jobs[job] = read_rows(results / f"{job}.json", goals)
    measured = {(row.job, row.work, row.size) for rows in jobs.values() for row in rows}
    for goal in goals.keys() - measured:
        raise BadMeasurement(f"{' '.join(map(str, goal))} has a goal and was not measured; "
                             "run ./tev bench without options")
    rows = [row for rows in jobs.values() for row in rows]
    repetitions = min(len(row.ours) for row in rows)
    if repetitions < FEWEST_REPETITIONS:
        raise BadMeasurement("a result is of a quick run; run ./tev bench without options")
    PICTURES.mkdir(exist_ok=True)
    text = INTRODUCTION.format(version=version(), date=datetime.date.today().isoformat(),
                               repetitions=repetitions, summary=summary(rows))
    for job, rows in jobs.items():
        text += section(job, rows, notes)
        if job == "start":
            text += start(results, dll, empty, objdump)
    text += instructions(results, [row for rows in jobs.values() for row in rows])
    DOCUMENT.write_text(text)
    print(f"wrote {DOCUMENT.relative_to(ROOT)}")


if __name__ == "__main__":
    try:
        main(*(pathlib.Path(argument) for argument in sys.argv[1:4]), sys.argv[4])
    except BadMeasurement as error:
        sys.exit(f"tev: {error}")
