"""Instructions a turn, of rows that missed their goal: a file a job, so that a new measurement of the
job throws away what was counted of an older build."""

import json

from measurements import fastest_quarter, number

HEAD = """\

## Instructions of the lines that missed

Of one turn, counted by valgrind: `./tev bench --instructions`, which gives a row ten minutes. A new
measurement throws away the counts of the build before.

| Work | Size | ours | limit | ours / limit | fastest peer | ours / peer |
|---|--:|--:|--:|--:|--:|--:|
"""


def path(results, job):
    return results / "instructions" / f"{job}.json"


def read(results, job):
    """Row name to instructions; empty when none were counted."""
    file = path(results, job)
    return json.loads(file.read_text()) if file.exists() else {}


def add(results, job, name, counted):
    """Keeps the other rows of the job."""
    file = path(results, job)
    file.parent.mkdir(exist_ok=True)
    file.write_text(json.dumps({**read(results, job), name: counted}, indent=1))


def ways(row):
    """Way to the name of its row and its time; the peer is the fastest one."""
    prefix = f"{row.work}/{row.size}"
    yield "ours", f"{prefix}/ours", fastest_quarter(row.ours)
    if row.limit:
        yield "limit", f"{prefix}/limit", fastest_quarter(row.limit)
    if row.peers:
        peer = row.best_peer()
        yield "peer", f"{prefix}/peer:{peer}", fastest_quarter(row.peers[peer])


def line(row, counted):
    """A row of the table."""
    found = {way: counted.get(name) for way, name, _ in ways(row)}
    if found["ours"] is None:
        return f"| {row.job} {row.work} | {row.size or ''} | not counted | - | - | - | - |\n"
    cells = [f"{row.job} {row.work}", row.size or "", f"{found['ours']:,.0f}"]
    for way, name in (("limit", ""), ("peer", f" ({row.best_peer()})")):
        other = found.get(way)
        cells.append("-" if other is None else f"{other:,.0f}{name}")
        cells.append(number(found["ours"] / other) if other else "-")
    return "| " + " | ".join(str(cell) for cell in cells) + " |\n"


def table(results, rows):
    """What the rows that missed cost in instructions, which do not depend on the machine's mood."""
    text = "".join(line(row, read(results, row.job)) for row in rows if row.verdict() == "missed")
    return HEAD + text if text else ""
