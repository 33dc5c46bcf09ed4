"""The table of cases and random command lines, in a real shell."""

import itertools
from contextlib import closing

import cases
import model
from building import describe, option
from comparing import compare, expected
from random_tools import Maker

LINES = 12  # command lines for one random description
TRIES = 100  # to find a line for which the rules say what is offered


def check_table(context):
    """Every line of the table."""
    table = sorted(cases.cases(), key=lambda case: id(case.description))
    for _, group in itertools.groupby(table, key=lambda case: id(case.description)):
        group = list(group)
        description = group[0].description
        with closing(context.session(description)) as session:
            for case in group:
                compare(context, session, case.line, case.offer, case.rule, description, case.after)


def check_random(context, count, seed):
    """Random command lines for random descriptions, against the model."""
    maker = Maker(seed)
    for number in range(count):
        description = maker.description(number)
        lines = decided_lines(maker, description)
        with closing(context.session(description)) as session:
            for line, offer in lines:
                rule = "a random line: " + kind(line, offer)
                compare(context, session, line, offer, rule, description)


def decided_lines(maker, description):
    lines = []
    for _ in range(TRIES):
        line = maker.line(description)
        try:
            lines.append((line, expected(description, line)))
        except model.Undecided:
            continue
        if len(lines) == LINES:
            break
    return lines


def kind(line, offer):
    """What a line is about: broken cases are told by it."""
    before, word = cases.words_of(line)[:-1], cases.words_of(line)[-1]
    place = "after --" if "--" in before else "a value after =" if word[:1] == "-" and "=" in word \
        else "names" if word[:1] == "-" else "a word"
    return f"{place}, {'paths' if offer.paths else 'words' if offer.words else 'nothing'}"


DESCRIPTIONS = [
    "plain text", "a%sb %d %%", "a:b::c", "[x] a]b[", "`id` $(id) $HOME ${x}", "back\\slash \\n \\",
    "two\nlines\n\nthree", "tab\there\x01and\x1b[31m", "  blanks   around  ", "'q' \"q\"",
    "*?~#!;&|<>(){}", "é漢字 ß", "-- -x --y", "x" * 60, "%B bold %b %F{red}", "a (b) (c)", "%",
    "\\", "{a,b} {1..3}", "=x =ls", "^x !! !x", "&amp; @x",
]


def check_descriptions(context):
    """zsh and fish show the description beside a name, bash none."""
    if context.shell == "bash":
        return
    made = describe([option(f"n{i}x", type_="none", description=text)
                     for i, text in enumerate(DESCRIPTIONS)], name="shown")
    with closing(context.session(made)) as session:
        got = dict(session.descriptions("shown -"))
    wanted = model.descriptions(made, [])
    for i, text in enumerate(DESCRIPTIONS):
        shown = " ".join((got.get(f"-n{i}x") or "").split())
        least = wanted[f"n{i}x"][:40].rstrip()
        context.report.check(shown.startswith(least), f"{context.shell}: descriptions are shown",
                             f"{text!r} is shown as {shown!r}")
