"""What is offered, case by case.

Each group begins with a rule and the tool that it is shown with (see tools.py). A line of it has
what is typed after the tool's name, with the cursor at its end, and what is offered: whole words
(several are separated by blanks), FILES, FOLDERS or NOTHING.

Run as a program, this module compares the table with the model.
"""

import re
import shlex
import sys

import model
from cases_commands import COMMANDS
from cases_cursor import AT_THE_CURSOR
from cases_line import TYPED_ALREADY
from cases_names import NAMES
from cases_values import VALUES
from tools import FILES, FOLDERS

GROUPS = TYPED_ALREADY + NAMES + AT_THE_CURSOR + VALUES + COMMANDS


def words_of(line):
    """The words of a line, without quotes, the last one being the word at the cursor."""
    words = shlex.split(line + "\x01", comments=False)
    return words[:-1] + [words[-1].rstrip("\x01")]


def cases():
    """Every line of the table: rule, description, line and Offer."""
    for rule, description, lines in GROUPS:
        for line, offered in lines:
            *before, word = words_of(line)
            if offered in (FILES, FOLDERS):
                path = re.split("[=,]", word)[-1]
                stem = word[:len(word) - len(path)]
                kind = "files" if offered is FILES else "folders"
                yield rule, description, line, model.Offer(frozenset(), kind, stem, path)
            else:
                yield rule, description, line, model.Offer(frozenset(offered.split()))


def main():
    """Compares the table with the model."""
    broken = 0
    for rule, description, line, expected in cases():
        *before, word = words_of(line)
        answer = model.offer(description, before, word)
        if answer != expected:
            broken += 1
            print(f"{rule}: [{line}]\n  table {expected}\n  model {answer}")
    print(f"{sum(1 for _ in cases())} lines, {broken} broken")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
