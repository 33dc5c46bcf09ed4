"""Measures the ten-option tool as a process, linked in several ways, beside some of the peers and an
empty program: most of what a process costs is spent before main()."""

import os
import random
import statistics
import sys

from measure import BASELINES, PEERS, TOOL_ARGUMENTS, TOOL_STATUS, executed, progress, run

NAMES = {**BASELINES, **PEERS}
LANGUAGE = ["-static-libstdc++", "-static-libgcc"]
WHOLE = ["-static"]
# A source, what the table says of the linking, the flags, and the name of the library for pkg-config.
WAYS = [
    ("empty", "dynamic", [], None),
    ("empty", "`-static`", WHOLE, None),
    ("kivo", "`libkivo.so`", [], "kivo"),
    ("kivo", "`libkivo.a`", [], "kivo-static"),
    ("kivo", "`libkivo.a -static-libstdc++ -static-libgcc`", LANGUAGE, "kivo-static"),
    ("kivo", "`libkivo.a -static`", WHOLE, "kivo-static"),
    *((peer, *way) for peer in ("cli11", "cxxopts", "getopt_long")
      for way in (("dynamic", [], None), ("`-static`", WHOLE, None))),
]


class Process:
    """A tool, linked in one way, with what its runs have cost."""

    def __init__(self, bench, tool, way, flags, package):
        self.name = f"{NAMES[tool]}, {way}"
        self.status = 0 if tool in BASELINES else TOOL_STATUS
        self.path = bench.tool_path("-".join([tool, package or "alone", *flags]))
        compile_flags, libraries = bench.flags_of(package) if package else ([], [])
        needed = "-Wl,--no-as-needed" if tool in BASELINES else "-Wl,--as-needed"
        run(["g++", "-std=c++17", "-O2", *compile_flags, bench.tool_source(tool), "-s", "-o",
             self.path, *flags, "-Wl,--gc-sections", f"-Wl,-rpath,{bench.library.parent}", needed,
             *libraries])
        self.microseconds, self.faults = [], []

    def start(self):
        child = os.posix_spawn(self.path, [self.path, *TOOL_ARGUMENTS], os.environ)
        _, status, usage = os.wait4(child, 0)
        if os.waitstatus_to_exitcode(status) != self.status:
            sys.exit(f"{self.name}: wrong answers")
        self.microseconds.append((usage.ru_utime + usage.ru_stime) * 1e6)
        self.faults.append(usage.ru_minflt + usage.ru_majflt)

    def row(self):
        return [self.name, f"{statistics.median(self.microseconds):,.0f}",
                f"{executed([self.path, *TOOL_ARGUMENTS]):,}",
                f"{statistics.median(self.faults):,.0f}", f"{self.path.stat().st_size:,}"]


def rows(bench):
    """For the table of tables.py. Each tool runs so often, and they take turns."""
    bench.install()
    tools = [Process(bench, *way) for way in WAYS if way[0] in BASELINES or way[0] in bench.peers]
    runs = bench.rounds * 400
    progress(f"{runs} runs of each of {len(tools)} processes")
    for _ in range(runs):
        for tool in random.sample(tools, len(tools)):
            tool.start()
    return [tool.row() for tool in tools]
