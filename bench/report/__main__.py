"""Measures, prints the tables, and after a full run writes them into docs/performance.md.

    report SOURCE-DIRECTORY BUILD-DIRECTORY [--quick | --instructions | --linking | --draw]

Exits with 1 if a peer gives wrong answers. A target that is not met is no failure.
"""

import argparse
import datetime
import os
import re
from pathlib import Path

import completion
import linking
import plot
import tables
from measure import BASELINES, PEERS, Bench, progress, run

BEGIN = "<!-- written by scripts/bench, from here -->\n"
END = "<!-- to here -->\n"
LINKING = "### How a tool is linked\n"


def machine():
    model = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    compiler = run(["g++", "--version"]).stdout.splitlines()[0]
    packages = run(["bash", "-c", "dpkg-query --show --showformat='${Package} ${Version}, ' "
                    "libc6 libpopt-dev libboost-program-options1.74-dev libcli11-dev "
                    "libcxxopts-dev libargs-dev libgflags-dev libbenchmark-dev valgrind "
                    "bash zsh fish bash-completion "
                    "2>/dev/null || true"]).stdout.rstrip(", ")
    return (f"{datetime.date.today()}, {model.group(1) if model else 'unknown processor'}, "
            f"{os.cpu_count()} cores, load {os.getloadavg()[0]:.1f} at the beginning; "
            f"{compiler}; {packages}.\n")


def measured(bench):
    about = machine()
    figures = tables.Figures(bench.times())
    progress("heap use")
    cycle, parse = bench.heap("W1/cycle/1"), bench.heap("W1/parse/1")
    line = bench.heap(f"W3/{bench.largest}")
    tools = bench.tools()
    ways = linking.rows(bench)
    progress("completion")
    tabs = completion.measured(bench.source, bench.describe(), bench.rounds * 4)
    cycles = {peer: bench.instructions("W1/cycle/1", peer) for peer in ("kivo", "kivo_tool")}
    rows = tables.targets(figures, line, tools, bench.library_bytes(), cycles)
    text = "\n".join([
        about,
        "### Targets\n", tables.target_table(rows),
        "### Every workload\n", tables.work_table(figures, bench.peers),
        "### Memory\n", tables.heap_table(cycle, parse, line, bench.largest),
        "### A ten-option tool\n",
        tables.tool_table(tools, {**BASELINES, **PEERS}),
        LINKING, tables.linking_table(ways),
        "### A TAB\n", tables.completion_table(completion.rows(tabs)),
        "### What is missing\n", tables.left_out_table(bench.left_out),
    ])
    return text


def write(source, text):
    document = source / "docs" / "performance.md"
    before, rest = document.read_text().split(BEGIN)
    pictures = f"\n### Growth\n\n{plot.references()}\n"
    document.write_text(before + BEGIN + text + pictures + END + rest.split(END)[1])
    plot.draw_all(source)


def write_linking(source, table):
    """Replaces one table, and leaves the figures of the last full run as they are."""
    document = source / "docs" / "performance.md"
    before, rest = document.read_text().split(LINKING)
    after = rest[rest.index("\n### "):]
    document.write_text(f"{before}{LINKING}\n{table}{after}")


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("source", type=Path)
    arguments.add_argument("build", type=Path)
    mode = arguments.add_mutually_exclusive_group()
    mode.add_argument("--quick", action="store_true")
    mode.add_argument("--instructions", action="store_true")
    mode.add_argument("--linking", action="store_true")
    mode.add_argument("--draw", action="store_true")
    given = arguments.parse_args()
    if given.draw:
        plot.draw_all(given.source)
        return
    bench = Bench(given.source, given.build, given.quick or given.instructions)
    if given.linking:
        table = tables.linking_table(linking.rows(bench))
        print(table)
        write_linking(given.source, table)
        return
    if given.instructions:
        for name in bench.names():
            print(f"{name:20} {bench.instructions(name):14,.0f}", flush=True)
        print(f"{'B2':20} {bench.instructions_above_empty():14,}")
        return
    text = measured(bench)
    print(text)
    if not given.quick:
        write(given.source, text)


main()
