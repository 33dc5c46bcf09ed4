"""Runs the benchmark programs and the ten-option tools, and collects what they show.

Every benchmark of every peer runs in its own process. In each of several rounds, the peers run
each benchmark in a new random order, so that other load of the machine affects all peers alike.
Each benchmark warms up first: how long the system takes to provide memory varies too much.
The reported time is the median of the CPU times of all rounds.
"""

import json
import os
import random
import re
import resource
import statistics
import subprocess
import sys
from pathlib import Path

PEERS = {
    "kivo": "kivo",
    "getopt_long": "getopt_long",
    "popt": "popt",
    "boost": "Boost",
    "cli11": "CLI11",
    "cxxopts": "cxxopts",
    "args": "taywee/args",
    "gflags": "gflags",
    "kivo_tool": "kivo/tool.h",  # no peer: what the layer costs on top
}
CPP_PEERS = ("boost", "cli11", "cxxopts", "args", "gflags")
BASELINES = {"empty": "an empty program", "headers": "empty, with the three headers"}

LEFT_OUT = "left out: "
TOOL_ARGUMENTS = ["--verbose", "--jobs=8", "--level=5", "--ratio=0.75", "--output=result.txt",
                  "--mode=fast"]
TOOL_STATUS = 31
KIVO_TOOLS = ("kivo", "kivo_tool")
TOOL_LIBRARIES = {"popt": ["-lpopt"], "boost": ["-lboost_program_options"],
                  "gflags": ["-lgflags"]}


class Bench:
    def __init__(self, source, build, quick):
        self.source = Path(source).resolve()
        self.build = Path(build).resolve()
        self.rounds, self.seconds = (1, 0.005) if quick else (5, 0.05)
        self.largest = 10000 if quick else 1000000
        self.peers = [peer for peer in PEERS if self.program(peer).exists()]
        self.left_out = {}  # (peer, benchmark) -> the reason

    def program(self, peer):
        return self.build / "bench" / f"bench_{peer}"

    def describe(self):
        return self.build / "tools" / "kivo-describe" / "kivo-describe"

    def names(self):
        text = run([self.program("kivo"), "--benchmark_list_tests"]).stdout
        return [name for name in text.split() if int(name.split("/")[-1]) <= self.largest]

    def once(self, peer, name, *options, preload=None):
        """The figures of Google Benchmark for one benchmark, or None if the peer refuses it."""
        environment = dict(os.environ, LD_PRELOAD=str(preload)) if preload else None
        output = run([self.program(peer), f"--benchmark_filter=^{name}(/iterations:1)?$",
                      "--benchmark_format=json", *options], env=environment).stdout
        result = json.loads(output)["benchmarks"][0]
        message = result.get("error_message", "")
        if message.startswith(LEFT_OUT):
            self.left_out[peer, name] = message[len(LEFT_OUT):]
            return None
        if message:
            sys.exit(f"{PEERS[peer]}, {name}: {message}")
        return result

    def times(self):
        """(peer, benchmark) -> nanoseconds."""
        samples = {}
        for turn in range(self.rounds):
            for name in self.names():
                progress(f"round {turn + 1} of {self.rounds}: {name}")
                for peer in random.sample(self.peers, len(self.peers)):
                    if (peer, name) in self.left_out:
                        continue
                    result = self.once(peer, name, f"--benchmark_min_time={self.seconds}",
                                       f"--benchmark_min_warmup_time={self.seconds * 2}")
                    if result:
                        samples.setdefault((peer, name), []).append(result["cpu_time"])
        return {key: statistics.median(values) for key, values in samples.items()}

    def heap(self, name):
        """peer -> the figures of one run, with its heap allocations and their peak in bytes."""
        preload = self.build / "bench" / "libheap_use.so"
        results = {peer: self.once(peer, name, "--iterations=1", preload=preload)
                   for peer in self.peers if (peer, name) not in self.left_out}
        return {peer: result for peer, result in results.items() if result}

    def tools(self):
        """tool -> compile seconds, bytes and instructions of the ten-option tool."""
        self.install()
        seconds = {}
        tools = [*BASELINES, *self.peers]
        for turn in range(self.rounds):
            progress(f"round {turn + 1} of {self.rounds}: ten-option tools")
            for tool in random.sample(tools, len(tools)):
                seconds.setdefault(tool, []).append(self.compile(tool))
        return {tool: {"seconds": statistics.median(seconds[tool]), **self.link(tool)}
                for tool in tools}

    def instructions_above_empty(self):
        """The instructions of the ten-option tool minus those of an empty program."""
        self.install()
        for tool in ("kivo", "empty"):
            self.compile(tool)
        return self.link("kivo")["instructions"] - self.link("empty")["instructions"]

    def install(self):
        """Installs the library and its archive where pkg-config finds them, as a user would."""
        prefix = self.build / "bench" / "prefix"
        for build in (self.build, self.build.parent / "archive"):
            run(["cmake", "--install", build, "--prefix", prefix])
        self.library = next(prefix.rglob("libkivo.so"))
        self.compile_flags, self.link_flags = self.flags_of("kivo")

    def flags_of(self, package):
        """The flags to compile and to link with."""
        environment = dict(os.environ, PKG_CONFIG_PATH=str(self.library.parent / "pkgconfig"))
        return [run(["pkg-config", what, package], env=environment).stdout.split()
                for what in ("--cflags", "--libs")]

    def tool_path(self, tool):
        folder = self.build / "bench" / "tools"
        folder.mkdir(exist_ok=True)
        return folder / tool

    def tool_source(self, tool):
        return self.source / "bench" / "tools" / f"{tool}.cpp"

    def lines_of_code(self, tool):
        """The lines of a tool that are neither blank nor a comment."""
        lines = map(str.strip, self.tool_source(tool).read_text().splitlines())
        return sum(1 for line in lines if line and not line.startswith("//"))

    def compile(self, tool):
        flags = self.compile_flags if tool in KIVO_TOOLS else []
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        run(["g++", "-std=c++17", "-O2", "-c", *flags, self.tool_source(tool), "-o",
             f"{self.tool_path(tool)}.o"])
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime

    def link(self, tool):
        """Links a tool, checks its answers, and returns its bytes and instructions.

        All tools look for libraries in the same places, and the empty programs load those of the
        language too, so what a tool has above an empty program comes from the peer alone.
        """
        path = self.tool_path(tool)
        libraries = self.link_flags if tool in KIVO_TOOLS else TOOL_LIBRARIES.get(tool, [])
        run(["g++", f"{path}.o", "-s", "-o", path, f"-Wl,-rpath,{self.library.parent}",
             "-Wl,--no-as-needed" if tool in BASELINES else "-Wl,--as-needed", *libraries])
        status = subprocess.run([path, *TOOL_ARGUMENTS], check=False).returncode
        if status != (0 if tool in BASELINES else TOOL_STATUS):
            sys.exit(f"the ten-option tool of {tool} gives wrong answers: {status}")
        return {"bytes": path.stat().st_size, "lines": self.lines_of_code(tool),
                "instructions": executed([path, *TOOL_ARGUMENTS])}

    def instructions(self, name, peer="kivo"):
        """The instructions of one iteration, from two runs with different numbers of them."""
        few, many = 2, 12
        command = [self.program(peer), f"--benchmark_filter=^{name}/iterations:"]
        return (executed([*command, f"--iterations={many}"]) -
                executed([*command, f"--iterations={few}"])) / (many - few)

    def library_bytes(self):
        stripped = self.tool_path("libkivo.so")
        run(["strip", "-o", stripped, self.library])
        return stripped.stat().st_size


def run(command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed:\n{done.stdout}{done.stderr}")
    return done


def executed(command):
    """The instructions of a whole process, whatever its exit status."""
    output = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                             *command], capture_output=True, text=True, check=False).stderr
    return int(re.search(r"Collected : (\d+)", output).group(1))


def progress(text):
    print(text, file=sys.stderr, flush=True)
