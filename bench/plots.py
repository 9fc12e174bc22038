"""Cost against size, a picture a job, a panel a work; both axes logarithmic."""

import matplotlib

matplotlib.use("svg")
# The same data give the same file.
matplotlib.rcParams["svg.hashsalt"] = "bench"
matplotlib.rcParams["font.size"] = 8

from matplotlib import pyplot  # noqa: E402: the backend must be chosen first

from measurements import fastest_quarter as cost, number

COLUMNS = 3


def lines(rows):
    """Label, sizes and costs of each way of a work."""
    peers = dict.fromkeys(name for row in rows for name in row.peers)
    ways = [("ours", lambda row: row.ours), ("limit", lambda row: row.limit)]
    ways += [(name, lambda row, name=name: row.peers.get(name)) for name in peers]
    for label, times in ways:
        points = [(row.size, cost(times(row))) for row in rows if times(row)]
        if points:
            yield label, *zip(*points)


def panel(axes, work, rows):
    for label, sizes, costs in lines(rows):
        axes.plot(sizes, costs, marker="o", markersize=3, label=label)
    for row in rows:
        ratio = row.limit_ratio()
        if ratio is not None:
            axes.annotate(number(ratio), (row.size, cost(row.ours)), textcoords="offset points",
                          xytext=(0, 4), ha="center", fontsize=6)
    axes.set(title=work, xlabel="size", ylabel="ns, marked with ours / limit", xscale="log",
             yscale="log")
    axes.legend(fontsize=6)
    axes.grid(True, alpha=0.3)


def draw(rows, path):
    """False, and no picture, for a job whose works have no sizes."""
    works = list(dict.fromkeys(row.work for row in rows if row.size))
    if not works:
        return False
    columns = min(COLUMNS, len(works))
    height = -(-len(works) // columns)
    figure, axes = pyplot.subplots(height, columns, squeeze=False,
                                   figsize=(3.6 * columns, 3 * height), layout="constrained")
    for place in axes.flat[len(works):]:
        place.remove()
    for place, work in zip(axes.flat, works):
        panel(place, work, [row for row in rows if row.work == work])
    figure.savefig(path, metadata={"Date": None})
    pyplot.close(figure)
    return True
