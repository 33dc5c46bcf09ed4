"""Measures a TAB in real shells: among the options of tools with a script of kivo-describe, and in
bash among those of two tools for which the package bash-completion has a completion."""

import random
import statistics
import sys
import tempfile
import time
from contextlib import ExitStack

SIZES = (24, 500)
PEERS = ("gzip -", "gcc -m")  # about as many options, counted in every run
SCRIPTS_OF_PEERS = "source /usr/share/bash-completion/bash_completion"


class Question:
    """A command line in a shell; `session` is one of those that test the completion scripts."""

    def __init__(self, session, line):
        self.session, self.line = session, line
        self.offered = len(set(session.complete(line)))
        self.seconds = []

    def ask(self):
        begin = time.perf_counter()
        self.session.complete(self.line)
        self.seconds.append(time.perf_counter() - begin)

    def milliseconds(self):
        return statistics.median(self.seconds) * 1000


def measured(source, program, rounds):
    """(shell, line) -> a Question that has been asked so often."""
    tests = source / "tests" / "kivo_describe"
    sys.path[:0] = [str(tests / "completion"), str(tests / "shared")]
    import costs
    import shells
    from context import Context
    from programs import Report
    questions = {}
    with tempfile.TemporaryDirectory() as folder, ExitStack() as open_sessions:
        for shell in shells.SHELLS:
            context = Context(shell, program, Report("bench"), folder)
            for size in SIZES:
                session = context.session(costs.tool_of(size))
                open_sessions.callback(session.close)
                questions[shell, size] = Question(session, f"tool{size} -")
        for line in PEERS:
            session = shells.session("bash", None, tool=line, settings=SCRIPTS_OF_PEERS)
            open_sessions.callback(session.close)
            questions["bash", line] = Question(session, line)
        for _ in range(rounds):
            for question in random.sample(list(questions.values()), len(questions)):
                question.ask()
    return questions


def rows(questions):
    """For the tables of tables.py: what is completed, the words offered, and milliseconds."""
    def cell(shell, what):
        asked = questions.get((shell, what))
        return f"{asked.milliseconds():.1f}" if asked else ""

    names = {size: f"a tool of {size} options" for size in SIZES}
    names.update({line: f"`{line}`, of the package bash-completion" for line in PEERS})
    return [[text, questions["bash", what].offered,
             *(cell(shell, what) for shell in ("bash", "zsh", "fish"))]
            for what, text in names.items()]
