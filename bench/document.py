#!/usr/bin/env python3
"""document.py RESULTS DLL EMPTY OBJDUMP: writes docs/performance.md and its plots from the results
of all jobs, the goals, and the notes that people write."""

import hashlib
import math
import pathlib
import re
import sys

import counts
import plots
import startup
from measurements import HERE, BadMeasurement, median, number, read_goals, read_rows, read_run

ROOT = HERE.parent
DOCUMENT = ROOT / "docs" / "performance.md"
PICTURES = ROOT / "docs" / "performance"
FEWEST_REPETITIONS = 15
# Jobs whose cost is that of a search.
LOGARITHMIC = {"lookup"}
GROUND = "The ground"
INTRODUCTION = """\
# Performance

<!-- Written by ./tev bench; edit bench/notes.md and bench/goals.txt instead. -->

Version {version}, measured {date}.{builds}

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
    """Job, or another heading, to prose."""
    parts = re.split(r"^## (.+)\n", (HERE / "notes.md").read_text(), flags=re.M)
    return dict(zip(parts[1::2], (prose.strip() for prose in parts[2::2])))


def line(row):
    cells = [row.work, row.size or "", row.limit_name or "-",
             number(row.limit_ratio()), number(row.limit_ratio(median)), number(row.goal.limit),
             row.best_peer() or "-",
             number(row.peer_ratio()), number(row.peer_ratio(median)), number(row.goal.peer),
             row.verdict()]
    return "| " + " | ".join(str(cell) for cell in cells) + " |\n"


def logarithmic(rows):
    """The factors of a search in a sorted table, between the sizes of these rows."""
    sizes = sorted({row.size for row in rows})
    steps = [math.log(math.log(b) / math.log(a)) / math.log(b / a) for a, b in zip(sizes, sizes[1:])]
    return "the logarithm's are " + ", ".join(f"{10 ** step:.1f}" for step in steps)


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
    expected = logarithmic(rows) if rows[0].job in LOGARITHMIC else "10 is linear"
    return (f"\nOur cost grows, where the size grows tenfold, by the factors ({expected}) "
            + "; ".join(text) + ".\n")


def slope(smaller, larger):
    grown = math.log(plots.cost(larger.ours) / plots.cost(smaller.ours))
    return grown / math.log(larger.size / smaller.size)


def section(job, rows, notes):
    text = f"\n## {job}\n\n{HEAD}" + "".join(line(row) for row in rows)
    text += growth(rows)
    if plots.draw(rows, PICTURES / f"{job}.svg"):
        text += f"\n![Cost against size](performance/{job}.svg)\n"
    return text + (f"\n{notes[job]}\n" if job in notes else "")


def summary(rows):
    verdicts = [row.verdict() for row in rows]
    counts = ", ".join(f"{verdicts.count(name)} {name}" for name in ("met", "close", "missed"))
    return f"Of {len(verdicts) - verdicts.count('')} lines with a goal: {counts}."


def days(results, jobs):
    found = sorted({read_run(results / f"{job}.json")["context"]["date"][:10] for job in jobs})
    return f"on {found[0]}" if len(found) == 1 else f"from {found[0]} to {found[-1]}"


def builds(results, jobs, dll):
    """A sentence on the jobs whose results are of another build of the DLL than the one at hand."""
    present = hashlib.sha256(dll.read_bytes()).hexdigest()
    others = {}
    for job in jobs:
        path = results / f"{job}.sha256"
        measured = path.read_text().strip() if path.exists() else ""
        if measured != present:
            others.setdefault(measured, []).append(job)
    text = "".join(f" Of {f'another build, {measured[:12]}' if measured else 'an unrecorded build'}:"
                   f" {'all' if len(names) == len(jobs) else ', '.join(names)}."
                   for measured, names in others.items())
    if text:
        print(f"tev: not all is of one build; run ./tev bench without options.{text}",
              file=sys.stderr)
    return text


def tell_unexplained(rows, notes):
    """A line that misses its goal has its work named in the notes of its job."""
    works = dict.fromkeys((row.job, row.work) for row in rows if row.verdict() == "missed")
    for job, work in works:
        if f"`{work}`" not in notes.get(job, ""):
            print(f"no reason in bench/notes.md: {job} {work}", file=sys.stderr)


def fewest_repetitions(rows):
    fewest = min(len(times) for row in rows
                 for times in (row.ours, row.limit, *row.peers.values()) if times)
    if fewest < FEWEST_REPETITIONS:
        raise BadMeasurement("a result is of a quick run; run ./tev bench without options")
    return fewest


def all_rows(results, goals):
    """Job to rows; every goal has its row."""
    names = sorted(path.name.removesuffix("_bench.cpp") for path in HERE.glob("*_bench.cpp"))
    jobs = {job: read_rows(results / f"{job}.json", goals) for job in names}
    measured = {(row.job, row.work, row.size) for rows in jobs.values() for row in rows}
    for goal in goals.keys() - measured:
        raise BadMeasurement(f"{' '.join(map(str, goal))} has a goal and was not measured; "
                             "run ./tev bench without options")
    return jobs


def main(results, dll, empty, objdump):
    notes = read_notes()
    jobs = all_rows(results, read_goals())
    rows = [row for rows in jobs.values() for row in rows]
    repetitions = fewest_repetitions(rows)
    PICTURES.mkdir(exist_ok=True)
    text = INTRODUCTION.format(version=version(), date=days(results, jobs),
                               builds=builds(results, jobs, dll), repetitions=repetitions,
                               summary=summary(rows))
    for job, its in jobs.items():
        text += section(job, its, notes)
        if job == "start":
            text += startup.table(results, dll, empty, objdump)
    text += counts.table(results, rows) + f"\n## {GROUND}\n\n{notes[GROUND]}\n"
    DOCUMENT.write_text(text)
    tell_unexplained(rows, notes)
    print(f"wrote {DOCUMENT.relative_to(ROOT)}")


if __name__ == "__main__":
    try:
        main(*(pathlib.Path(argument) for argument in sys.argv[1:4]), sys.argv[4])
    except BadMeasurement as error:
        sys.exit(f"tev: {error}")
