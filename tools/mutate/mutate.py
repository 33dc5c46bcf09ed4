"""Makes small defects ("mutants") in src/ and platform/, one at a time, and counts those that
the unit tests kill. Fails when the tests kill too few, or when one survives that is not listed
as equivalent.

  scripts/mutate [--sample N [--seed S]] [--jobs J] [FILE[:LINE] ...]

Without FILE all sources are mutated, headers only in inline code. All work is done on a copy in
build/mutate. Mutants that do not compile, and those that compile to the same code as the
original, do not count.

tools/mutate/equivalent_mutants.txt lists the survivors that no test can tell from the original,
with the reasons. An entry is a key, as this command prints it without the line number:

  FILE: CLASS::FUNCTION: STATEMENT #N

STATEMENT has no white space that C++ does not need, and "@old -> new@" where it is changed; #N
counts mutants of one function with the same statement, from 2 on. So an entry survives when its
statement is reformatted or moved within its function, and not when the statement changes.
mutants.py finds the mutants; mutants_test.py tests it.
"""
import argparse
import collections
import concurrent.futures
import fcntl
import json
import math
import os
import pathlib
import queue
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True
import mutants

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
WORK = ROOT / "build" / "mutate"
TREE = WORK / "tree"
OBJECTS = WORK / "objects"
LISTED = HERE / "equivalent_mutants.txt"
TARGET = 90.0
MEMORY_LIMIT = 2 << 30  # bytes: a mutant must not use up the memory of the machine


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          stdin=subprocess.DEVNULL, **options).returncode == 0


def copy_tree():
    """Updates the copy. Unchanged files keep their time stamps, so they are not compiled again."""
    listing = subprocess.run(["git", "ls-files", "-z", "-co", "--exclude-standard"], cwd=ROOT,
                             check=True, stdout=subprocess.PIPE, text=True).stdout
    wanted = {TREE / name for name in listing.split("\0") if name and (ROOT / name).is_file()}
    for path in [path for path in TREE.rglob("*") if path.is_file()]:
        if path not in wanted:
            path.unlink()
    for path in wanted:
        source = ROOT / path.relative_to(TREE)
        if not path.is_file() or path.read_bytes() != source.read_bytes():
            path.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, path)


class Build:
    """The unit tests without any mutant: how each object is made, and from what."""

    def __init__(self, jobs):
        for command in (
                ["cmake", "-S", TREE, "-B", OBJECTS, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
                 "-DCMAKE_CXX_COMPILER_LAUNCHER=", "-DKIVO_BUILD_EXAMPLES=OFF",
                 "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"],
                ["cmake", "--build", OBJECTS, f"-j{jobs}", "--target", "unit_tests"]):
            subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        commands = json.loads((OBJECTS / "compile_commands.json").read_text())
        commands = [shlex.split(entry["command"]) for entry in commands]
        self.link = self._ninja("-t", "commands", "-s", "tests/unit_tests").split(" && ")[1].split()
        for name in ("mold", "lld", "gold"):
            if shutil.which(name) or shutil.which("ld." + name):
                self.link.insert(1, "-fuse-ld=" + name)
                break
        self.compile = {command[command.index("-o") + 1]: command for command in commands}
        self.readers = collections.defaultdict(list)  # the objects made from each source or header
        for line in self._ninja("-t", "deps").splitlines():
            if line and not line.startswith(" "):
                made = line.split(":")[0]
            elif line.strip().startswith(str(TREE)) and made in self.compile:
                self.readers[os.path.relpath(line.strip(), TREE)].append(made)

    @staticmethod
    def _ninja(*arguments):
        return subprocess.run(["ninja", "-C", OBJECTS, "--quiet", *arguments], check=True,
                              stdout=subprocess.PIPE, text=True).stdout

    def nearest(self, file):
        """The objects of the header's own source and test, or of its folder."""
        path = pathlib.Path(file)
        ranked = sorted(self.readers[file], key=lambda made: (
            pathlib.Path(made).name.split(".")[0].removesuffix("_test") != path.stem,
            f"/{mutants.room_of(file)}" not in made))
        return ranked[:2]


class Tests:
    """Runs unit tests: those of the mutated file's own folder first, then all others."""

    def __init__(self):
        self.filters = {}
        for folder in (path for path in (TREE / "tests").iterdir() if path.is_dir()):
            suites = set()
            for file in folder.glob("*.cpp"):
                suites.update(re.findall(r"^\s*(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+)",
                                         file.read_text(), re.MULTILINE))
            self.filters[folder.name] = ":".join(f"{name}.*:*/{name}.*:{name}/*"
                                                 for name in sorted(suites))
        self.seconds = {}

    def parts(self, room):
        own = self.filters.get(room, "")
        return [own, "-" + own] if own else ["*"]

    def measure(self, binary, room):
        for part in self.parts(room):
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            self.seconds[part] = 60
            if not self._passes(binary, part):
                sys.exit("The unit tests fail without any mutant.")
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            self.seconds[part] = (after.ru_utime + after.ru_stime - before.ru_utime
                                  - before.ru_stime)

    def pass_all(self, binary, room):
        return all(self._passes(binary, part) for part in self.parts(room))

    def _passes(self, binary, part):
        """The limit is on processor time, so that a busy machine does not count as a kill."""
        limit = max(2, math.ceil(10 * self.seconds[part]))

        def confine():
            resource.setrlimit(resource.RLIMIT_CPU, (limit, limit))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        process = subprocess.Popen([binary, "--gtest_fail_fast", "--gtest_brief=1",
                                    "--gtest_filter=" + part], preexec_fn=confine, cwd=OBJECTS,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            return process.wait(timeout=30 + 10 * limit) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)  # and the processes that it has started
            except ProcessLookupError:
                pass
            process.wait()


class Job:
    """A folder for one mutant at a time, laid out like the tree."""

    def __init__(self, number, build, tests):
        self.folder = WORK / f"job{number}"
        self.build = build
        self.tests = tests
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)

    def test(self, mutant):
        path = self.folder / mutant.file
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(mutant.text())
        try:
            return (self._header(mutant) if mutant.file.endswith(".h")
                    else self._source(mutant, path))
        finally:
            path.unlink()

    def _source(self, mutant, path):
        made = self.build.readers[mutant.file]
        if not self._compile(made):
            return "does not compile"
        if not self._survives(made, mutant):
            return "killed"
        code = self._optimized(made[0])
        path.write_text(mutant.original)
        return "same code" if code == self._optimized(made[0]) else "survived"

    def _header(self, mutant):
        """The linker takes an inline function from the first object that has it. So two objects
        are enough to kill most mutants in functions; only for the others all objects that include
        the header are compiled. A mutant outside of functions always needs all objects, because
        they must agree on the layout of a class."""
        made = self.build.readers[mutant.file]
        near = self.build.nearest(mutant.file) if mutant.place == "code" else made
        if not self._compile(near):
            return "does not compile"
        if not self._survives(near, mutant):
            return "killed"
        if not self._compile([one for one in made if one not in near]):
            return "does not compile"
        if all((OBJECTS / one).read_bytes() == self._object(one).read_bytes() for one in made):
            return "same code"
        return "survived" if self._survives(made, mutant) else "killed"

    def _survives(self, made, mutant):
        binary = self.folder / "unit_tests"
        self.link(binary, made)
        return self.tests.pass_all(binary, mutants.room_of(mutant.file))

    def link(self, binary, made):
        command = [word for word in self.build.link if word not in made]
        command[command.index("-o") + 1] = str(binary)
        first = next(i for i, word in enumerate(command) if word.endswith(".o"))
        command[first:first] = [str(self._object(one)) for one in made]
        subprocess.run(command, cwd=OBJECTS, check=True)

    def _object(self, made):
        return self.folder / made.replace("/", "_")

    def _compile(self, made):
        return all(run(self._command(one), cwd=OBJECTS) for one in made)

    def _optimized(self, made):
        run(self._command(made) + ["-O2"], cwd=OBJECTS, check=True)
        return self._object(made).read_bytes()

    def _command(self, made):
        """The recorded command, in which the mutant is found before the file that it replaces."""
        command = []
        for word in self.build.compile[made]:
            if word.startswith(f"-I{TREE}"):
                command.append(word.replace(str(TREE), str(self.folder)))
            command.append(word)
        command[command.index("-o") + 1] = str(self._object(made))
        source = self.folder / os.path.relpath(command[-1], TREE)
        if source.is_file():
            command[-1] = str(source)
        return command


def source_files(build):
    return [path for path in build.readers if re.fullmatch(r"(src|platform)/.*\.(cpp|h)", path)]


def selected_mutants(arguments, build):
    everything = source_files(build)
    wanted = collections.defaultdict(set)
    for name in arguments.files:
        file, _, line = name.partition(":")
        wanted[file].add(line)
    for name in wanted.keys() - set(everything):
        sys.exit(f"{name}: not a source file of the unit tests")
    chosen = [mutant for file in sorted(wanted or everything)
              for mutant in mutants.mutants_of(TREE, file)
              if not wanted or wanted[file] & {"", str(mutant.line)}]
    if arguments.sample is not None and arguments.sample < len(chosen):
        order = {id(mutant): i for i, mutant in enumerate(chosen)}
        chosen = random.Random(arguments.seed).sample(chosen, arguments.sample)
        chosen.sort(key=lambda mutant: order[id(mutant)])
    return chosen


def listed_mutants():
    return {line for line in LISTED.read_text().splitlines() if line and line[0] not in " #"}


def stale_entries(build):
    """The entries of the list that are no mutants any more."""
    return listed_mutants() - {mutant.key() for file in source_files(build)
                               for mutant in mutants.mutants_of(TREE, file)}


def test_all(chosen, jobs, build, tests):
    """Prints each unexpected outcome when it is known, and returns the number of each outcome."""
    listed = listed_mutants()
    free = queue.Queue()
    for number in range(jobs):
        free.put(Job(number, build, tests))

    def test(mutant):
        job = free.get()
        try:
            outcome = job.test(mutant)
        finally:
            free.put(job)
        return outcome + ", listed" if mutant.key() in listed else outcome

    outcomes = collections.Counter()
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for mutant, outcome in zip(chosen, pool.map(test, chosen)):
            outcomes[outcome] += 1
            if outcome not in ("killed", "does not compile", "same code", "survived, listed"):
                print(f"{outcome}: {mutant}", flush=True)
    return outcomes


def report(outcomes, stale, seconds):
    """Prints the sums and returns whether they are good enough."""
    killed = outcomes["killed"]
    listed = outcomes["survived, listed"]
    counted = killed + outcomes["survived"] + listed
    share = 100.0 * killed / max(1, counted)
    print(f"{outcomes.total()} mutants in {seconds:.0f} s: {outcomes['does not compile']} do not "
          f"compile, {outcomes['same code']} are the same code, {counted} count")
    print(f"killed: {killed}, {share:.1f} % (target {TARGET:.0f} %); survived: {listed} listed as "
          f"equivalent, {outcomes['survived']} others")
    for entry in sorted(stale):
        print(f"{LISTED.relative_to(ROOT)} lists what is no mutant: {entry}")
    if outcomes["killed, listed"]:
        print(f"{LISTED.relative_to(ROOT)} lists mutants that are killed.")
    return (share >= TARGET and outcomes["survived"] == 0 and not stale
            and not outcomes["killed, listed"])


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sample", type=int, metavar="N", help="number of random mutants")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="seed of the choice")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), metavar="J")
    parser.add_argument("files", nargs="*", metavar="FILE[:LINE]")
    arguments = parser.parse_args()

    WORK.mkdir(parents=True, exist_ok=True)
    lock = open(WORK / "lock", "w")
    fcntl.flock(lock, fcntl.LOCK_EX)  # the folder serves one run at a time
    copy_tree()
    build = Build(arguments.jobs)
    chosen = selected_mutants(arguments, build)
    tests = Tests()
    plain = Job(0, build, tests)
    plain.link(plain.folder / "unit_tests", [])
    for room in sorted({mutants.room_of(mutant.file) for mutant in chosen}):
        tests.measure(plain.folder / "unit_tests", room)
    began = time.monotonic()
    outcomes = test_all(chosen, arguments.jobs, build, tests)
    good = report(outcomes, stale_entries(build), time.monotonic() - began)
    sys.exit(0 if good else 1)


if __name__ == "__main__":
    main()
