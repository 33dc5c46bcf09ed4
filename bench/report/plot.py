"""Draws growth as SVG: time over size, both logarithmic, a line for each peer."""

from math import ceil, floor, log10

from measure import PEERS

COLORS = dict(zip(PEERS, ("#d62728", "#222222", "#8c8c8c", "#1f77b4", "#2ca02c", "#9467bd",
                          "#ff7f0e", "#17becf")))
WIDTH, HEIGHT = 330, 300
LEFT, TOP, RIGHT, BOTTOM = 56, 34, 26, 40
LEGEND = 30


def label(power):
    return f"{10 ** power:,}" if power >= 0 else f"{10 ** power}"


class Panel:
    """One diagram: `lines` is {peer: [(size, nanoseconds)]}."""

    def __init__(self, title, unit, lines, left):
        self.title, self.unit, self.lines, self.left = title, unit, lines, left
        sizes = [size for line in lines.values() for size, _ in line]
        times = [time for line in lines.values() for _, time in line]
        self.x_range = (log10(min(sizes)), log10(max(sizes)))
        self.y_range = (floor(log10(min(times))), ceil(log10(max(times))))

    def x(self, power):
        low, high = self.x_range
        return self.left + LEFT + (power - low) / (high - low) * (WIDTH - LEFT - RIGHT)

    def y(self, power):
        low, high = self.y_range
        return HEIGHT - BOTTOM - (power - low) / (high - low) * (HEIGHT - TOP - BOTTOM)

    def draw(self):
        yield text(self.left + WIDTH / 2, 18, self.title, "middle", 13)
        yield text(self.left + WIDTH / 2, HEIGHT - 6, self.unit, "middle", 11)
        for power in range(self.y_range[0], self.y_range[1] + 1):
            at = self.y(power)
            yield line(self.x(self.x_range[0]), at, self.x(self.x_range[1]), at)
            yield text(self.left + LEFT - 5, at + 4, label(power), "end", 10)
        for power in range(ceil(self.x_range[0]), floor(self.x_range[1]) + 1):
            at = self.x(power)
            yield line(at, self.y(self.y_range[0]), at, self.y(self.y_range[1]))
            yield text(at, HEIGHT - BOTTOM + 14, label(power), "middle", 10)
        for peer, points in reversed(self.lines.items()):
            places = [(self.x(log10(size)), self.y(log10(time))) for size, time in points]
            path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
            width = 3 if peer == "kivo" else 1.5
            yield (f'<polyline points="{path}" fill="none" stroke="{COLORS[peer]}" '
                   f'stroke-width="{width}"/>')
            for x, y in places:
                yield f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{width}" fill="{COLORS[peer]}"/>'


def text(x, y, content, anchor, size):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}" '
            f'fill="#222222">{content}</text>')


def line(x1, y1, x2, y2):
    return (f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" '
            'stroke="#dddddd"/>')


def legend(peers, width):
    step = (width - 12) / len(peers)
    for i, peer in enumerate(peers):
        x, y = 6 + i * step, HEIGHT + 14
        yield f'<rect x="{x:.1f}" y="{y - 8}" width="12" height="8" fill="{COLORS[peer]}"/>'
        yield text(x + 16, y, PEERS[peer], "start", 11)


def diagram(figures, works, unit, peers):
    """The growth of each of `works`, side by side."""
    parts = []
    drawn = set()
    for i, work in enumerate(works):
        lines = {}
        for peer in peers:
            points = [(size, figures.get(work, size, peer)) for size in figures.sizes(work)]
            lines[peer] = [(size, time) for size, time in points if time and time > 0]
        lines = {peer: points for peer, points in lines.items() if points}
        drawn.update(lines)
        parts += Panel(f"{work} (ns)", unit, lines, i * WIDTH).draw()
    width = WIDTH * len(works)
    parts += legend([peer for peer in peers if peer in drawn], width)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" '
            f'height="{HEIGHT + LEGEND}" font-family="sans-serif">\n'
            '<rect width="100%" height="100%" fill="white"/>\n' + "\n".join(parts) + "\n</svg>\n")
