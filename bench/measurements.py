"""Reads what the benchmark programs left, and the goals; tells ratios."""

import json
import math
import pathlib
import statistics
from dataclasses import dataclass, field

HERE = pathlib.Path(__file__).parent
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
# A row this much above its goal still counts as there: the machine is not quieter than that.
TOLERANCE = 1.15


class BadMeasurement(Exception):
    """The message names the file and what is wrong with it."""


def median(times):
    return statistics.median(times)


def fastest_quarter(times):
    """Mean of the fastest quarter: machines that jump between two speeds are judged by it."""
    return statistics.fmean(sorted(times)[: math.ceil(len(times) / 4)])


@dataclass
class Goal:
    limit: float = None
    peer: float = None


@dataclass
class Row:
    """One work of one size: the times of its ways, in nanoseconds, one a repetition."""

    job: str
    work: str
    size: int
    goal: Goal
    ours: list = field(default_factory=list)
    limit: list = field(default_factory=list)
    limit_name: str = ""
    peers: dict = field(default_factory=dict)

    def best_peer(self):
        """The name of the fastest peer, or None."""
        return min(self.peers, key=lambda name: fastest_quarter(self.peers[name]), default=None)

    def ratio(self, other, measure):
        return measure(self.ours) / measure(other) if self.ours and other else None

    def limit_ratio(self, measure=fastest_quarter):
        return self.ratio(self.limit, measure)

    def peer_ratio(self, measure=fastest_quarter):
        return self.ratio(self.peers.get(self.best_peer()), measure)

    def verdict(self):
        """met, close or missed by the fastest quarter; empty without a goal."""
        pairs = [(self.limit_ratio(), self.goal.limit), (self.peer_ratio(), self.goal.peer)]
        parts = [ratio / goal for ratio, goal in pairs if ratio is not None and goal is not None]
        if not parts:
            return ""
        return "met" if max(parts) <= 1 else "close" if max(parts) <= TOLERANCE else "missed"


def read_goals(path=HERE / "goals.txt"):
    goals = {}
    for line in path.read_text().splitlines():
        if line.strip() and not line.startswith("#"):
            job, work, size, limit, peer = line.split()
            goals[job, work, int(size)] = Goal(*(None if g == "-" else float(g) for g in (limit, peer)))
    return goals


def read_run(path):
    try:
        return json.loads(path.read_text())
    except (OSError, ValueError) as error:
        raise BadMeasurement(f"{path}: {error}; the program died") from error


def read_rows(path, goals):
    """The rows of one job: its works in the order of the program, each from small to large."""
    rows = {}
    job = path.stem
    entries = [e for e in read_run(path)["benchmarks"] if e["run_type"] == "iteration"]
    if not entries:
        raise BadMeasurement(f"{path}: nothing was measured")
    # Interleaved at random: the family index tells the order in the source.
    for entry in sorted(entries, key=lambda e: e["family_index"]):
        work, size, way = entry["name"].split("/")[:3]
        if entry.get("error_occurred"):
            raise BadMeasurement(f"{path}: {work}/{size}/{way}: {entry['error_message']}")
        key = (work, int(size))
        row = rows.setdefault(key, Row(job, *key, goals.get((job, *key), Goal())))
        time = entry["real_time"] * NANOSECONDS[entry["time_unit"]]
        if way == "ours":
            row.ours.append(time)
        elif way == "limit":
            row.limit.append(time)
            row.limit_name = entry["label"]
        else:
            row.peers.setdefault(way.removeprefix("peer:"), []).append(time)
    works = list(dict.fromkeys(row.work for row in rows.values()))
    return sorted(rows.values(), key=lambda row: (works.index(row.work), row.size))


def number(ratio):
    if ratio is None:
        return "-"
    return f"{ratio:.2f}" if ratio < 9.995 else f"{ratio:.1f}" if ratio < 99.95 else f"{ratio:.0f}"
