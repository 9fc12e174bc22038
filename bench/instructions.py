#!/usr/bin/env python3
"""instructions.py RESULTS PROGRAMS JOB...: counts the instructions of the rows that missed.

A row is run with some turns and with three times as many, in a program that valgrind watches under
Wine; the difference is that of the turns alone. RESULTS/instructions/JOB.json gets the instructions a
turn by the name of the row, as soon as they are counted; what was counted of other rows stays.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor, as_completed

import counts
from measurements import BadMeasurement, read_goals, read_rows

# So long, in nanoseconds, that starting the program does not count.
WORK = 3e6
# In seconds, of one run.
LONGEST = 600
WINE = "/usr/lib/wine/wine64"
VALGRIND = ["valgrind", "--tool=cachegrind", "--trace-children=yes", "--cache-sim=no",
            "--cachegrind-out-file=/dev/null"]


def literal(text):
    """As a regular expression of the C++ library, which knows fewer escapes than Python writes."""
    return re.sub(r"([.+*?()|])", r"[\1]", text)


def run(program, row, turns):
    """All instructions of the program, which is one of the processes that Wine starts."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(
            [*VALGRIND, f"--log-file={folder}/%p", WINE, str(program), f"--turns={turns}",
             f"--filter=^{literal(row)}$"],
            env={**os.environ, "WINELOADERNOEXEC": "1"}, check=False, timeout=LONGEST,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for log in pathlib.Path(folder).iterdir():
            text = log.read_text()
            counted = re.search(r"I +refs: +([0-9,]+)", text)
            if re.search(rf"Command: .*{program.name}", text) and counted:
                return int(counted[1].replace(",", ""))
    raise BadMeasurement(f"{program.name}: valgrind counted nothing for {row}")


def count(program, row, time):
    turns = max(1, round(WORK / time))
    # What the start costs differs a little from one to the next.
    few, many = (min(run(program, row, turns * factor) for _ in range(2)) for factor in (1, 3))
    return max(0, many - few) / (2 * turns)


def counted(results, job, name, future):
    """Writes down what was counted. A row that takes too long costs the others nothing."""
    try:
        instructions = future.result()
    except subprocess.TimeoutExpired:
        print(f"{'not counted':>14}  {job}/{name}: took more than {LONGEST} s", flush=True)
    except BadMeasurement as error:
        print(f"{'not counted':>14}  {job}/{name}: {error}", flush=True)
    else:
        counts.add(results, job, name, instructions)
        print(f"{instructions:>14,.0f}  {job}/{name}", flush=True)


def main(results, programs, jobs):
    goals = read_goals()
    tasks = [(job, name, time) for job in jobs for row in read_rows(results / f"{job}.json", goals)
             if row.verdict() == "missed" and row.job != "start"
             for _, name, time in counts.ways(row)]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        futures = {pool.submit(count, programs / f"bench_{job}.exe", name, time): (job, name)
                   for job, name, time in tasks}
        for future in as_completed(futures):
            counted(results, *futures[future], future)


if __name__ == "__main__":
    try:
        main(*(pathlib.Path(argument) for argument in sys.argv[1:3]), sys.argv[3:])
    except BadMeasurement as error:
        sys.exit(f"tev: {error}")
