"""What only fish does: what its editor inserts, and how fish reads a line."""

import os
from contextlib import closing

import hostile
import tools
from building import command, describe, encoded, option
from programs import run

# Ways to type a command that only fish has, and what is offered.
FORMS = [
    ("wrapping -brush t", "thick thin"),
    ("wrapping -list r", ""),
    ("listing r", ""),
    ("brushing t", "thick thin"),
    ("paints -list\npaints r", "red rose"),
    ("paints -list \\\n r", ""),
    ("paints \\\n -brush t", "thick thin"),
    ("echo (paints -brush t", "thick thin"),
    ("echo $(paints -brush t", "thick thin"),
    ("paints -brush (echo a b) r", "red rose"),
    ("paints (echo -list) r", "red rose"),
    ("paints -brush 'a\\' -list' r", "red rose"),
    ("paints -brush \"a\\\" -list\" r", "red rose"),
    ("paints -brush a\\; r", "red rose"),
    # The target of a redirection is no word of the tool.
    ("paints -brush > file t", "thick thin"),
    ("paints >-list r", "red rose"),
    ("paints -brush 2>>x <y t", "thick thin"),
    ("paints -brush 2>&1 t", "thick thin"),
    ("paints -brush &>x t", "thick thin"),
]
WRAPPING = ("complete -c wrapping --wraps paints\n"
            "complete -c listing --wraps 'paints -list'\n"
            "complete -c brushing --wraps 'paints -brush'\n")

# What stands before a path.
BEFORE_PATHS = ["-folder ", "-folder=", "--folder=", "-folder=\"", "-folder \""]


def check_forms(context):
    """Commands that wrap the tool, substitutions, redirections and several lines."""
    with closing(context.session(tools.PAINTS, after=WRAPPING)) as session:
        for line, wanted in FORMS:
            got = session.complete(line)
            context.report.check(got == wanted.split(), "fish: forms of a command",
                                 f"[{line}] {got}", encoded(tools.PAINTS))


def check_run(context):
    """Each value alone: inserted at the terminal, and the line run, the tool gets it."""
    made = describe([option(f"v{i}x", separator=None, allowed=[v])
                     for i, v in enumerate(hostile.values())], name="single")
    with closing(context.session(made)) as session:
        for i, value in enumerate(hostile.values()):
            check_runs(context, session.raw(f"single -v{i}x="), f"-v{i}x={value}")
            # Where nothing is typed, fish offers no word with a dot first. It never quotes "~".
            if value[0] not in "-.~":
                check_runs(context, session.raw(f"single -v{i}x "), value)


def check_runs(context, inserted, wanted):
    """A tool that gets what is inserted gets one word."""
    status, out, err = run(["fish", "--no-config", "-c",
                            "\n".join(f"printf '%s\\0' {word}" for word in inserted)])
    context.report.check(status == 0 and out.decode() == wanted + "\0" and not err,
                         "fish: the tool gets the value", f"{wanted!r}: {inserted} {out} {err}")


def check_variables(context):
    """Paths begin with what fish takes for a home, also after "=" and in a list."""
    home = context.folder / "variable"
    (home / "athome").mkdir(parents=True, exist_ok=True)
    made = describe([option("folder", separator=None, annotations={"hint": ["directory"]}),
                     option("paths")], name="homes")
    with closing(context.session(made, env=dict(os.environ, HOME=str(home)))) as session:
        for stem in [*BEFORE_PATHS, "-paths=x,", "-paths x,", "-paths $HOME/,"]:
            for root in ("$HOME", str(home), *["~"] * (stem[-1] != '"')):
                line = f"{stem}{root}/at"
                wanted = [line.split(" ")[-1].replace('"', "") + "home/"]
                got = session.complete(f"homes {line}")
                context.report.check(got == wanted, "fish: paths with a variable",
                                     f"[{line}] {got}", encoded(made))


def check_running(context):
    """A path is completed where a command is typed in it."""
    with closing(context.session(tools.FULL)) as session:
        for stem in ("-folder ", "-folder=", "-paths=x,", "-paths x,", "-path="):
            for text in ("({})", "$({})", "({})/s", "$({})/s", '"$({})"/s', '"$({})/s'):
                session.complete(f"full {stem}{text.format('touch ' + hostile.CANARY)}")
                hostile.check_canaries(context, stem + text, tools.FULL)


def check_summaries(context):
    """The summary of a command beside the word that completes it, and beside no other."""
    made = describe([], name="summed", commands=[
        command("list", [], summary="Lists\nall."), command("list all", [], summary="All: % $x."),
        command("make all", [], summary="Makes.")])
    with closing(context.session(made)) as session:
        for line, wanted in (("", {"list": "Lists all.", "make": ""}), ("make ", {"all": "Makes."}),
                             ("list a", {"all": "All: % $x."})):
            got = dict(session.descriptions(f"summed {line}"))
            context.report.check(got == wanted, "fish: the summaries of commands",
                                 f"[{line}] {got}", encoded(made))


def check(context):
    if context.shell == "fish":
        check_forms(context)
        check_run(context)
        check_variables(context)
        check_running(context)
        check_summaries(context)
