"""Runs programs, and collects what is broken."""

import os
import subprocess
import tempfile
from pathlib import Path

TIMEOUT = 60  # seconds for one process


def environment(**more):
    return {"PATH": os.environ.get("PATH", "/usr/bin:/bin"), "LC_ALL": "C.UTF-8", **more}


def run(arguments, data=b"", env=None, **more):
    """Status, standard output and standard error of a process."""
    more.setdefault("stdout", subprocess.PIPE)
    source = {} if "stdin" in more else {"input": data}
    done = subprocess.run(arguments, stderr=subprocess.PIPE, env=env or environment(), check=False,
                          timeout=TIMEOUT, **source, **more)
    return done.returncode, done.stdout or b"", done.stderr


class Report:
    """Counts the checks and keeps the failed ones, by the rule that they break."""

    SHOWN = 3  # cases of one broken rule that are printed

    def __init__(self, prefix):
        self.prefix = prefix  # of the folder for the input of failed cases
        self.checks = 0
        self.broken = {}

    def check(self, good, rule, detail="", data=b""):
        self.checks += 1
        if not good:
            self.broken.setdefault(rule, []).append((detail, data))
        return good

    def conclude(self, about=""):
        """Writes the report and returns the exit status. A run without a check fails, too."""
        self.write()
        broken = sum(map(len, self.broken.values()))
        print(f"{about}{self.checks} checks, {broken} broken")
        return 0 if self.checks and not broken else 1

    def write(self):
        """Prints the broken rules and writes the input of their shortest cases to files."""
        folder = None
        for rule, cases in sorted(self.broken.items()):
            print(f"BROKEN: {rule} ({len(cases)} times)")
            for detail, data in sorted(cases, key=lambda case: len(case[1]))[:self.SHOWN]:
                folder = folder or Path(tempfile.mkdtemp(prefix=self.prefix))
                name = folder / f"{len(list(folder.iterdir()))}.json"
                name.write_bytes(data)
                print(f"  {detail[:400]}\n    {name}")
