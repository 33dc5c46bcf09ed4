"""Draws growth as SVG from the table of every workload in docs/performance.md: time over size, both
logarithmic, a line for each peer."""

import re
from math import ceil, floor, log10

import matplotlib
from matplotlib.figure import Figure
from matplotlib.ticker import FuncFormatter

from measure import PEERS

PICTURES = {
    "W2 declare one": ("declare-one.svg", "options"),
    "W2 three arguments": ("three-arguments.svg", "options"),
    "W2 one more argument": ("one-more-argument.svg", "options"),
    "W3 one argument": ("long-command-line.svg", "arguments"),
    "W4 one line": ("long-option-file.svg", "lines"),
}
# Each colour has a contrast of at least 3 to 1 on a white and on a dark page; on a dark page
# docs/site/picture_scheme.xml changes the colours of text, grid and background.
COLORS = dict(zip(PEERS.values(), ("#d62728", "#222222", "#808080", "#3a87c8", "#2a9d2a", "#9467bd",
                                   "#dd6b00", "#0e98a5")))
MARKERS = dict(zip(PEERS.values(), "osD^vPX*"))
INCHES = (3.75, 3.7)  # 360 CSS pixels wide: readable on a narrow page, and two fit on a wide one
STYLE = {
    "svg.fonttype": "none",
    "svg.hashsalt": "kivo",  # the same figures give the same file
    "font.family": "sans-serif",
    "font.size": 8.5,
    "text.color": "#222222",
    "axes.labelcolor": "#222222",
    "axes.edgecolor": "#dddddd",
    "axes.facecolor": "#ffffff",
    "figure.facecolor": "#ffffff",
    "grid.color": "#dddddd",
    "xtick.color": "#222222",
    "ytick.color": "#222222",
    "axes.titlesize": 10,
}


def growth(document):
    """work -> {peer: [(size, nanoseconds)]}, without the times that are lost in noise."""
    rows = re.search(r"^\| nanoseconds \|.*?\n\n", document, re.DOTALL | re.MULTILINE).group()
    header, _, *lines = (row.strip("| ").split(" | ") for row in rows.strip().splitlines())
    works = {}
    for row in lines:
        work, size = re.fullmatch(r"(.+?)(?:, ([\d,]+))?", row[0]).groups()
        for peer, cell in zip(header[1:], row[1:]):
            if size and peer in COLORS and re.fullmatch(r"[\d,.]+", cell.strip()):
                works.setdefault(work, {}).setdefault(peer, []).append(
                    (number(size), number(cell)))
    return works


def number(text):
    return float(text.replace(",", ""))


def draw(work, lines, unit, path, scheme):
    with matplotlib.rc_context(STYLE):
        figure = Figure(figsize=INCHES, layout="constrained")
        axes = figure.subplots()
        for order, (peer, points) in enumerate(lines.items()):
            axes.loglog(*zip(*points), label=peer, color=COLORS[peer], marker=MARKERS[peer],
                        linewidth=2.5 if peer == "kivo" else 1.3, markersize=4, zorder=9 - order)
        times = [log10(time) for points in lines.values() for _, time in points]
        axes.set_ylim(10 ** floor(min(times)), 10 ** ceil(max(times)))
        axes.set_title(f"{work}, nanoseconds")
        axes.set_xlabel(unit)
        axes.grid(True)
        axes.minorticks_off()
        for axis in (axes.xaxis, axes.yaxis):
            axis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:,.10g}"))
        axes.legend(loc="upper center", bbox_to_anchor=(0.45, -0.16), ncol=4, frameon=False,
                    columnspacing=1, handletextpad=0.4, handlelength=1.6)
        figure.savefig(path, metadata={"Date": None, "Creator": None})
    picture = path.read_text()
    path.write_text(picture.replace("<defs>", f"<defs>\n{scheme}", 1))


def draw_all(source):
    """Draws the pictures that docs/performance.md shows."""
    scheme = (source / "docs" / "site" / "picture_scheme.xml").read_text()
    works = growth((source / "docs" / "performance.md").read_text())
    for work, (name, unit) in PICTURES.items():
        draw(work, works[work], unit, source / "docs" / "performance" / name, scheme)


def references():
    """The lines of docs/performance.md that show the pictures."""
    return "\n".join(f"![{work}: the time over the number of {unit}](performance/{name})"
                     for work, (name, unit) in PICTURES.items()) + "\n"
