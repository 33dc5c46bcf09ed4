"""Makes tables of the measurements, and compares them with the targets."""

from measure import CPP_PEERS, PEERS

MORE = 50   # arguments of the longer command line of W2 and W6
FEW = 3     # arguments of the shorter command line
LOST = "lost in noise"
NOISE = 0.25  # the share of the shorter time below which a difference is noise


class Figures:
    """The nanoseconds of each peer for each work and size."""

    def __init__(self, times):
        self.times = times
        self.lines = {}  # (work, size) -> {peer: nanoseconds}
        for (peer, name), time in times.items():
            family, size = name.rsplit("/", 1)
            self.add(peer, family, int(size), time)

    def add(self, peer, family, size, time):
        whole = {"W1/cycle": "W1 whole cycle", "W1/parse": "W1 parse + read",
                 "W2/parse3": "W2 three arguments", "W7/unknown": "W7 unknown option",
                 "W7/ambiguous": "W7 ambiguous option", "W7/value": "W7 bad value"}
        each = {"W2/declare": "W2 declare one", "W3": "W3 one argument", "W4": "W4 one line",
                "W5": "W5 help, one option", "W8": "W8 declare + describe, one option"}
        if family in whole:
            self.put(whole[family], size, peer, time)
        elif family in each:
            self.put(each[family], size, peer, time / size)
        elif family.endswith("/parse50"):
            work = "W2 one more argument" if family.startswith("W2") else \
                "W6 one abbreviated argument"
            few = self.times[peer, f"{family[:2]}/parse3/{size}"]
            more = time - few if time - few > few * NOISE else 0
            self.put(work, size, peer, more / (min(MORE, size) - FEW))

    def put(self, work, size, peer, time):
        self.lines.setdefault((work, size), {})[peer] = time

    def sizes(self, work):
        return sorted(size for line, size in self.lines if line == work)

    def get(self, work, size, peer="kivo"):
        """None for a peer that does not do the work."""
        return self.lines[work, size].get(peer)

    def best(self, work, size):
        """The best C++ peer and its time; None for both if there is none. For a time that is lost
        in the noise, the peer's time at the largest smaller size counts, which is not longer."""
        times = {}
        for smaller in self.sizes(work):
            for peer in CPP_PEERS:
                time = self.get(work, smaller, peer)
                if time is None and smaller == size:
                    times.pop(peer, None)
                elif time and smaller <= size:
                    times[peer] = time
        return min(times.items(), key=lambda one: one[1], default=(None, None))


def table(header, rows):
    lines = [header, ["---"] + ["--:"] * (len(header) - 1), *rows]
    return "\n".join("| " + " | ".join(map(str, line)) + " |" for line in lines) + "\n"


def ratio(time, other):
    """None if there is no other time or if it is lost in the noise."""
    return time / other if other and other > 0 else None


def number(value):
    if value is None:
        return ""
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.1f}" if value >= 10 else f"{value:.2f}"


def number_above_zero(value):
    """For times that are differences of two times: these can be zero or negative."""
    return LOST if value is not None and value <= 0 else number(value)


def work_table(figures, peers):
    rows = []
    for work, size in sorted(figures.lines):
        line = figures.lines[work, size]
        best, least = figures.best(work, size)
        rows.append([work + (f", {size:,}" if size > 1 else ""),
                     *(number_above_zero(line.get(peer)) for peer in peers),
                     number_above_zero(ratio(line["kivo"], line.get("getopt_long"))),
                     number_above_zero(ratio(line["kivo"], least)),
                     PEERS.get(best, "")])
    return table(["nanoseconds", *(PEERS[peer] for peer in peers), "kivo / getopt_long",
                  "kivo / best C++ peer", "which is"], rows)


def heap_table(cycle, parse, line, values):
    rows = [[PEERS[peer], number(cycle[peer]["allocations"]) if peer in cycle else "",
             number(parse[peer]["allocations"]),
             number(line[peer]["peak"] / values) if peer in line else ""] for peer in parse]
    return table(["", "W1 whole cycle, allocations", "W1 parse + read, allocations",
                  f"W3 at {values:,}, peak bytes a value"], rows)


def tool_table(tools, names):
    empty, headers = tools["empty"], tools["headers"]
    rows = [[names[tool], f"{of['seconds']:.2f}", f"{of['seconds'] / headers['seconds']:.1f}",
             f"{of['bytes']:,}", f"{of['instructions'] - empty['instructions']:,}",
             of["lines"]]
            for tool, of in tools.items()]
    return table(["", "B1 compile, CPU seconds", "ratio to that with three headers",
                  "B1 stripped bytes", "B2 instructions above empty", "lines of code"], rows)


def linking_table(rows):
    return table(["", "processor time, µs", "instructions", "page faults", "stripped bytes"], rows)


def completion_table(rows):
    return table(["milliseconds", "words offered", "bash", "zsh", "fish"], rows)


def left_out_table(left_out):
    works = {}
    for (peer, name), reason in left_out.items():
        family, size = name.rsplit("/", 1)
        works.setdefault((PEERS[peer], reason), []).append(
            family if int(size) == 1 else f"{family} at {int(size):,}")
    return table(["left out", "where", "why"],
                 [[peer, ", ".join(names), reason] for (peer, reason), names in
                  sorted(works.items())])


def targets(figures, heap, tools, library_bytes, cycles):
    """Rows of the target, its upper limit, and the measured value. `cycles` are the instructions of
    W1's whole cycle."""
    rows = []

    def against_best(work, size, most):
        rows.append((f"{work}{f', {size:,}' if size > 1 else ''}, of the best C++ library's",
                     most, ratio(figures.get(work, size), figures.best(work, size)[1])))

    def growth(work, small, large, most):
        rows.append((f"{work} at {large:,}, of its own at {small:,}", most,
                     ratio(figures.get(work, large), figures.get(work, small))))

    def against(work, size, peer, most):
        rows.append((f"{work}, {size:,}, of {PEERS[peer]}'s", most,
                     ratio(figures.get(work, size), figures.get(work, size, peer))))

    options = figures.sizes("W2 declare one")
    arguments = figures.sizes("W3 one argument")
    against_best("W1 whole cycle", 1, 0.45)
    against_best("W1 parse + read", 1, 0.55)
    against_best("W2 declare one", options[-1], 0.6)
    growth("W2 declare one", options[1], options[-1], 1.3)
    against_best("W2 three arguments", options[-1], 0.1)
    against_best("W2 one more argument", options[-1], 0.5)
    growth("W2 one more argument", options[0], options[-1], 1.5)
    against_best("W3 one argument", arguments[-1], 0.85)
    against_best("W4 one line", arguments[-1], 0.3)
    growth("W3 one argument", arguments[0], arguments[-1], 1.5)
    rows.append((f"W3 peak bytes a stored value at {arguments[-1]:,}", 100,
                 heap["kivo"]["peak"] / arguments[-1]))
    for size in figures.sizes("W5 help, one option"):
        against_best("W5 help, one option", size, 0.5)
    against("W6 one abbreviated argument", 24, "boost", 0.2)
    against("W6 one abbreviated argument", 1000, "getopt_long", 0.1)
    for work in ("W7 unknown option", "W7 ambiguous option", "W7 bad value"):
        against_best(work, 1, 0.15)
    kivo, headers, empty = tools["kivo"], tools["headers"], tools["empty"]
    rows.append(("B1 compile, of the empty program's with three headers", 2.1,
                 kivo["seconds"] / headers["seconds"]))
    rows.append(("B1 stripped bytes above that program's", 10000,
                 kivo["bytes"] - headers["bytes"]))
    rows.append(("B2 instructions above an empty program's", 230000,
                 kivo["instructions"] - empty["instructions"]))
    rows.append(("B2 stripped bytes of `libkivo.so`", 340000, library_bytes))
    layer, cli11 = tools["kivo_tool"], tools.get("cli11")
    rows.append(("W1 whole cycle with kivo/tool.h, instructions, of those without", 1.8,
                 cycles["kivo_tool"] / cycles["kivo"]))
    rows.append(("B1 compile with kivo/tool.h, of that without", 1.5,
                 layer["seconds"] / kivo["seconds"]))
    rows.append(("B1 stripped bytes with kivo/tool.h", 24576, layer["bytes"]))
    if cli11:
        rows.append(("B1 compile with kivo/tool.h, of CLI11's", 0.12,
                     layer["seconds"] / cli11["seconds"]))
        rows.append(("B1 lines of code with kivo/tool.h, of CLI11's", 1,
                     layer["lines"] / cli11["lines"]))
    return rows


def target_table(rows):
    return table(["target", "at most", "measured", "met"],
                 [[text, number(most), number(measured), verdict(most, measured)]
                  for text, most, measured in rows])


def verdict(most, measured):
    if measured is None:
        return "nothing to hold it against"
    if measured <= 0:
        return LOST
    return "yes" if measured <= most else "**no**"
