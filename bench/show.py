#!/usr/bin/env python3
"""show.py FILE.json...: the ratios of the jobs that were just measured, as text."""

import pathlib
import sys

from measurements import BadMeasurement, median, number, read_goals, read_rows

FORMAT = "{:<34} {:>9}  {:>6} {:>6} {:>6}  {:>6} {:>6} {:>6}  {:<12} {}"


def show(row):
    print(FORMAT.format(
        f"{row.job} {row.work}", row.size,
        number(row.limit_ratio()), number(row.limit_ratio(median)), number(row.goal.limit),
        number(row.peer_ratio()), number(row.peer_ratio(median)), number(row.goal.peer),
        row.best_peer() or "-", row.verdict()))


def main(paths):
    goals = read_goals()
    print("ours / limit and ours / best peer: fastest quarter, median, goal")
    print(FORMAT.format("", "size", "limit", "median", "goal", "peer", "median", "goal", "", ""))
    try:
        for path in paths:
            for row in read_rows(pathlib.Path(path), goals):
                show(row)
    except BadMeasurement as error:
        sys.exit(f"tev: {error}")


main(sys.argv[1:])
