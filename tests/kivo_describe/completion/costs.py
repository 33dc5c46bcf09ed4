"""What completing costs: no process, and little time among many options."""

import os
import statistics
import time
from contextlib import closing
from pathlib import Path

import tools
from building import describe, encoded, option
from comparing import compare, expected
from programs import run

LIMIT = 0.3  # seconds for a TAB among 500 options
OPTIONS = 500
ASKED = 20  # the median of as many TABs counts
WORDS, BYTES = 20, 1000  # before the cursor


def tool_of(count):
    """A tool with that many options, of every sort."""
    actions = [option(f"act{i}", kind="action", type_="none", description=f"Acts {i}.")
               for i in range(count // 50)]
    first = [a["names"][0] for a in actions]
    others = [option(f"option-number-{i}", f"n{i}", type_=["string", "boolean", "none"][i % 3],
                     description=f"The option with the number {i}.",
                     kind=["option", "modifier"][i % 2 if actions else 0],
                     **({"actions": first[:5]} if actions and i % 2 else {}),
                     **({"allowed": [f"value{n}" for n in range(8)]} if i % 6 == 0 else {}))
              for i in range(count - len(actions))]
    return describe(actions + others, name=f"tool{count}", together=[first])


def long_line(count):
    """As many words and bytes as the limit is for."""
    texts = ["é" * 20, "x" * 40, "-act1", "--option-number-0=value1,value2",
             "-unheard=" + "y" * 40]
    words = [texts[i % len(texts)] for i in range(WORDS)]
    line = " ".join(words) if count else "x " * WORDS
    return line + " " + "z" * max(0, BYTES - len(line.encode()) - 1) + " "


def check_sizes(context):
    """0, 1 and 500 options."""
    for count in (0, 1, OPTIONS):
        made = tool_of(count)
        with closing(context.session(made)) as session:
            for line in ("", "-", "--", "--option-number-0", "-n", "-option-number-0=",
                         "-act0 -act", "-- ", long_line(count) + "-option-number-4"):
                if line != "-- ":
                    compare(context, session, line, expected(made, line),
                            f"a tool of {count} options", made)


def check_speed(context):
    """A TAB among 500 options; a slow script would make the random lines endless."""
    made = tool_of(OPTIONS)
    good = True
    with closing(context.session(made)) as session:
        for last in ("-option-number-49", "-", "-option-number-0=va", ""):
            line = f"{made['tool']['name']} {long_line(OPTIONS)}{last}"
            session.complete(line)
            taken = []
            for _ in range(ASKED):
                begin = time.perf_counter()
                session.complete(line)
                taken.append(time.perf_counter() - begin)
            median = statistics.median(taken)
            print(f"{context.shell}: {median * 1000:.0f} ms for a TAB after [...{last}]")
            good = context.report.check(
                median <= LIMIT, f"{context.shell}: a TAB among {OPTIONS} options takes at most "
                f"{LIMIT} s", f"{median:.3f} s after [...{last}]", encoded(made)) and good
    return good


def check_processes(context):
    """Completing starts no process."""
    library, noted = context.folder / "noting.so", context.folder / "noted"
    source = Path(__file__).parent / "noting.c"
    status, out, err = run(["cc", "-shared", "-fPIC", "-O1", "-o", str(library), str(source),
                            "-ldl"])
    context.report.check(status == 0, "the library that notes processes", str(out + err))
    env = dict(os.environ, LD_PRELOAD=str(library), KIVO_NOTED=str(noted))
    lines = ["-", "", "-what=w", "-what ", "-- ", "-unheard -", "-path ", "-path=su", "-folder ",
             "-paths file1.txt,", "-paths=file1.txt,fi", "-path ~/", "-folder=", "-C=", "fi",
             "-count -wh", "-paths ~/,fi", "-path sub/"]
    for made in (tools.BARE_KEPT, tools.FULL):
        with closing(context.session(made, env=env)) as session:
            session.complete(f"{made['tool']['name']} -x")
            for line in lines:
                before = noted.read_text() if noted.exists() else ""
                session.complete(f"{made['tool']['name']} {line}")
                after = noted.read_text() if noted.exists() else ""
                context.report.check(before == after, f"{context.shell}: no process is started",
                                     f"[{line}] {after[len(before):]!r}", encoded(made))
    with closing(context.session(tools.BARE, env=env, after="/bin/true")) as session:
        session.complete("bare -")
    context.report.check(noted.exists(), f"{context.shell}: processes are noted at all", "")
