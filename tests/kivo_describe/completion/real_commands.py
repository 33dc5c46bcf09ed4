"""What a TAB offers for a real tool with commands, line by line."""

import json
from contextlib import closing

from comparing import compare, expected, without_slash
from programs import run
from shells import listed

# A line after the name of the tool, and what is offered there.
LINES = [
    ("", ["add", "list", "show", "tag"]),
    ("t", ["tag"]),
    ("tag ", ["add", "remove"]),
    ("tag r", ["remove"]),
    ("--style=full tag ", ["add", "remove"]),
    ("list --u", ["--undated"]),
    ("list --due", ["--due-by"]),
    ("add --due", ["--due"]),
    ("tag remove 1 --al", ["--all"]),
    ("list --sort ", ["due", "number", "priority"]),
    ("list -s p", ["priority"]),
    ("add --priority ", ["high", "low", "normal"]),
    ("--style ", ["brief", "full"]),
]
# Where a file is completed.
FILES = ["list --file ", "add --config ", "-f "]


def check_notebook(context, notebook):
    """Compares what is offered for a real tool with the lines above, and with the model."""
    status, out, _ = run([notebook, "kivooption=kivodescribe=json"])
    context.report.check(status == 0, "notebook describes itself")
    description = json.loads(out)
    with closing(context.session(description)) as session:
        for line, words in LINES:
            check_words(context, session, line, words)
            compare(context, session, line, expected(description, line), "notebook", description)
        for line in FILES:
            check_words(context, session, line, listed(""))


def check_words(context, session, line, words):
    """Checks that exactly these words are offered; fish may add guesses that begin otherwise."""
    got = [offered.rstrip() for offered in session.complete(f"notebook {line}")]
    if context.shell == "fish":
        got = [word for word in got if word.startswith(line.split(" ")[-1])]
    context.report.check(without_slash(got) == without_slash(words), f"{context.shell}: notebook",
                         f"[notebook {line}] got {sorted(got)}, not {sorted(words)}")
