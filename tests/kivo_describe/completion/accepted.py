"""Everything that is offered is accepted by the parser; every visible name is offered."""

import itertools
import json
from contextlib import closing
from pathlib import Path

import cases
from building import encoded
from comparing import compare, expected
from programs import run
from shells import listed

REFUSED_NAMES = (b"Unknown option", b"Ambiguous", b"doesn't accept option",
                 b"only one action possible")
REFUSED_VALUES = (b"does not allow value", b"is boolean and should", b"does not requires a value")
BEFORE = ["", "-count", "-search", "-hash", "-count -hash", "-help", "-coun --forma csv", "-x",
          "-search -pat a -i", "-hash -verb -no-q"]
AT_CURSOR = ["", "-", "--", "-what=", "-what ", "-format=", "-format ", "-what=lines,", "-w lines,"]


def values_for(names, description):
    """A value for an option that needs one, so that the parser says nothing of that."""
    for option in description["options"]:
        if names in option["names"]:
            if option["type"] in ("none", "boolean"):
                return []
            return [option.get("allowed", ["1"])[0]]
    return []


def check_textkit(context, textkit):
    """Runs what is offered by a real tool."""
    status, out, _ = run([textkit, "kivooption=kivodescribe=json"])
    context.report.check(status == 0, "textkit describes itself")
    description = json.loads(out)
    Path("input.txt").write_text("some words\n")
    with closing(context.session(description)) as session:
        for before, word in itertools.product(BEFORE, AT_CURSOR):
            line = f"{before} {word}".lstrip() if before else word
            compare(context, session, line, expected(description, line), "textkit", description)
            for offered in session.complete(f"textkit {line}"):
                run_offered(context, textkit, description, line, offered)
    Path("input.txt").unlink()


def run_offered(context, textkit, description, line, offered):
    """Runs a line with an offered word at its end. The parser checks a value before it finds that
    the option does not go, so the values of such an option are checked as well."""
    typed = cases.words_of(line)
    if context.shell == "fish" and not offered.startswith(typed[-1]):
        return  # a guess of fish
    if offered in listed(""):
        return  # a file, and its name may begin with a dash
    words = typed[:-1] + [offered]
    refused = REFUSED_VALUES
    if offered.startswith("-") and "=" not in offered:
        refused, name = REFUSED_NAMES, offered.lstrip("-")
        words += values_for(name, description)
    _, _, err = run([textkit, *words], b"some words\n")
    context.report.check(not any(text in err for text in refused),
                         f"{context.shell}: what is offered is accepted",
                         f"{words}: {err.decode(errors='replace').strip()}", encoded(description))


def check_visible(context, description):
    """Every visible name that can be typed is offered."""
    line = "-"
    with closing(context.session(description)) as session:
        compare(context, session, line, expected(description, line), "every visible name",
                description)
