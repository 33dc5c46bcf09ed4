"""What is offered, case by case.

Each group begins with a rule and the tool that it is shown with (see tools.py). A line of it has
what is typed after the tool's name, and what is offered: whole words (several are separated by
blanks), FILES, FOLDERS or NOTHING. The cursor is where "|" stands, or else at the end of the line.

Run as a program, this module compares the table with the model.
"""

import re
import shlex
import sys
from typing import NamedTuple

import model
from cases_commands import COMMANDS
from cases_cursor import AT_THE_CURSOR
from cases_line import TYPED_ALREADY
from cases_names import NAMES
from cases_values import VALUES
from tools import FILES, FOLDERS

GROUPS = TYPED_ALREADY + NAMES + AT_THE_CURSOR + VALUES + COMMANDS


CURSOR = "|"


class Case(NamedTuple):
    """A line of the table."""
    rule: str
    description: dict
    line: str   # as far as the cursor
    after: str  # what is on the line after the cursor
    offer: model.Offer


def words_of(line):
    """The words of a line, without quotes, the last one being the word at the cursor."""
    words = shlex.split(line + "\x01", comments=False)
    return words[:-1] + [words[-1].rstrip("\x01")]


def offer_of(line, offered):
    """What the table says is offered for a line, as an Offer."""
    if offered not in (FILES, FOLDERS):
        return model.Offer(frozenset(offered.split()))
    word = words_of(line)[-1]
    path = re.split("[=,]", word)[-1]
    stem = word[:len(word) - len(path)]
    return model.Offer(frozenset(), "files" if offered is FILES else "folders", stem, path)


def cases():
    """Every line of the table."""
    for rule, description, lines in GROUPS:
        for typed, offered in lines:
            line, _, after = typed.partition(CURSOR)
            yield Case(rule, description, line, after, offer_of(line, offered))


def main():
    """Compares the table with the model."""
    broken = 0
    for case in cases():
        *before, word = words_of(case.line)
        answer = model.offer(case.description, before, word)
        if answer != case.offer:
            broken += 1
            print(f"{case.rule}: [{case.line}]\n  table {case.offer}\n  model {answer}")
    print(f"{sum(1 for _ in cases())} lines, {broken} broken")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
