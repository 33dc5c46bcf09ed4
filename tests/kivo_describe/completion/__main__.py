"""Black-box test of the completion scripts that kivo-describe writes, in real shells.

    /usr/bin/python3 -B tests/kivo_describe/completion KIVO-DESCRIBE [--shell bash|zsh|fish]...
                                                       [--count N] [--seed S] [--textkit TEXTKIT]
                                                       [--notebook NOTEBOOK] [--part NAME]...

For each shell: the table of cases (cases.py), the settings that must change nothing, hostile
texts, tools whose names are alike, N random descriptions with random command lines against the
model (model.py), the processes that a TAB costs, and what the shells and shellcheck say about the
scripts. With a TEXTKIT, everything that is offered for it is run; with a NOTEBOOK, what is offered
for it is compared with a table (real_commands.py). `--part NAME` runs one part alone; `--part speed` measures the time of a TAB, which no other run does.

The random descriptions depend on the seed alone. Each broken rule is printed once with its
shortest cases; the description of a case is written to a file in the folder for temporary files.
Exit status: 0 if all checks pass, 1 if one fails, 2 for a wrong command line.

Needs Debian's bash, zsh, fish, bash-completion, shellcheck, python3-pexpect and a C compiler.
"""

import argparse
import json
import os
import sys
import tempfile
import traceback
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent.parent / "shared"))

import accepted
import bash_only
import by_rules
import cases
import costs
import fish_only
import hostile
import manners
import real_commands
from context import Context, make_files
from programs import Report, run
from random_tools import Maker
from shells import SHELLS
from tools import BARE, FULL, MANY


def parse_arguments():
    parser = argparse.ArgumentParser(description="Tests the completion scripts of kivo-describe.")
    parser.add_argument("describe", metavar="KIVO-DESCRIBE")
    parser.add_argument("--shell", action="append", choices=SHELLS, help="(default: all three)")
    parser.add_argument("--count", type=int, default=60, help="random descriptions (default: 60)")
    parser.add_argument("--seed", type=int, default=1, help="of the random descriptions")
    parser.add_argument("--textkit", help="the example of this name, which runs what is offered")
    parser.add_argument("--notebook", help="the example of this name")
    parser.add_argument("--part", action="append", help="only these parts")
    arguments = parser.parse_args()
    if not os.access(arguments.describe, os.X_OK):
        parser.error(f"cannot run {arguments.describe}")
    names = all_parts(None, arguments)
    for part in arguments.part or ():
        if part not in names:
            parser.error(f"no part '{part}', but: {', '.join(names)}")
    return arguments


def own_description(context):
    status, out, err = run([context.program, "kivooption=kivodescribe=json"])
    context.report.check(status == 0 and out and not err, "kivo-describe describes itself",
                         repr(err[:200]))
    return json.loads(out)


def check_scripts(context, seed):
    """What the shells and shellcheck say about scripts."""
    maker = Maker(seed)
    made = [BARE, FULL, MANY, hostile.hostile_tool(), hostile.hostile_commands(),
            costs.tool_of(0), costs.tool_of(1), costs.tool_of(costs.OPTIONS)]
    manners.check_syntax(context, made + [maker.description(n) for n in range(10)])
    manners.check_no_evaluation(context, FULL)


def all_parts(context, arguments):
    """The parts of the test by their names, in the order in which they run."""
    return {
        "scripts": lambda: check_scripts(context, arguments.seed),
        "table": lambda: by_rules.check_table(context),
        "sizes": lambda: costs.check_sizes(context),
        "descriptions": lambda: by_rules.check_descriptions(context),
        "own": lambda: accepted.check_visible(context, own_description(context)),
        "processes": lambda: costs.check_processes(context),
        "hostile": lambda: hostile.check_hostile(context),
        "bash": lambda: bash_only.check(context),
        "fish": lambda: fish_only.check(context),
        **{name: lambda check=check: check(context) for name, check in manners.PARTS.items()},
        "random": lambda: by_rules.check_random(context, arguments.count, arguments.seed),
        "textkit": lambda: accepted.check_textkit(context, arguments.textkit),
        "notebook": lambda: real_commands.check_notebook(context, arguments.notebook),
        "speed": lambda: costs.check_speed(context),
    }


def chosen_parts(context, arguments):
    """Those that are asked for, or all. The time of a TAB depends on the load of the machine, and is
    measured only when it is asked for."""
    parts = all_parts(context, arguments)
    chosen = arguments.part or [name for name in parts if name != "speed"]
    for name, path in (("textkit", arguments.textkit), ("notebook", arguments.notebook)):
        if not path:
            chosen = [part for part in chosen if part != name]
    return {name: parts[name] for name in chosen}


def check_shell(shell, arguments, report, folder):
    """All parts in one shell; a part that cannot end is broken, and the others go on."""
    context = Context(shell, arguments.describe, report, folder)
    for name, part in chosen_parts(context, arguments).items():
        try:
            part()
        except Exception:  # a shell that does not answer, or dies
            report.check(False, f"{shell}: the part '{name}' ends", traceback.format_exc()[-300:])


def main():
    arguments = parse_arguments()
    arguments.describe = os.path.abspath(arguments.describe)
    arguments.textkit = arguments.textkit and os.path.abspath(arguments.textkit)
    arguments.notebook = arguments.notebook and os.path.abspath(arguments.notebook)
    if cases.main():
        return 1
    report = Report("kivo-completion-")
    with tempfile.TemporaryDirectory() as folder:
        make_files(folder)
        for shell in arguments.shell or SHELLS:
            check_shell(shell, arguments, report, folder)
        os.chdir("/")
    return report.conclude()


if __name__ == "__main__":
    sys.exit(main())
