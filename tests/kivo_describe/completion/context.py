"""What all parts of the test share: the program, the report, and the folders it works in."""

import os
from pathlib import Path

import shells
from building import encoded
from programs import run

FILES = ("file1.txt", "file2.txt", "notes", "two words", "sub/inner", "subtle/deep/x", "-flat",
         "h\u00e9.txt")


class Context:
    """One shell under test."""

    def __init__(self, shell, program, report, folder):
        self.shell, self.program, self.report = shell, program, report
        self.folder = Path(folder)
        self.scripts = 0

    def script(self, description):
        """Writes the script of a description, and gives its path."""
        status, out, err = run([self.program, "-" + self.shell], encoded(description))
        self.report.check(status == 0 and out and not err, f"{self.shell}: a script is written",
                          repr(err[:200]), encoded(description))
        self.scripts += 1
        folder = self.folder / "scripts" / f"{self.shell}{self.scripts}"
        folder.mkdir(parents=True)
        path = folder / shells.script_name(self.shell, description["tool"]["name"])
        path.write_bytes(out)
        return path

    def session(self, description, **more):
        """A shell that has read the script of a description."""
        return shells.session(self.shell, str(self.script(description)),
                              tool=description["tool"]["name"], **more)


def make_files(folder):
    """Makes the files that the shells complete, and goes to their folder."""
    place = Path(folder) / "files"
    for name in FILES:
        path = place / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("")
    os.chdir(place)
