"""What only bash does: what one TAB leaves on the line, and what a tool gets when it is run."""

from contextlib import closing

import hostile
import tools
from building import describe, encoded, option

# Values, their separator, what is typed, and the line after one TAB.
TABS = [
    # readline inserts what the values have in common: no lone backslash ...
    (["two words", "two$x"], None, "-v=t", "-v=two"),
    (["two words", "two$x"], None, "-v t", "-v two"),
    (["two words", "two$x", "two*"], None, "-v=", "-v=two"),
    (["it's", "it$x"], None, "-v=", "-v=it"),
    (["a\\ b", "a\\\\"], None, "-v=", "-v=a\\\\"),
    (["[", "*"], None, "-v=", "-v="),
    # ... and nothing less than what is typed.
    (["a!", "a!b"], None, "-v=a!", "-v=a\\!"),
    (["[a", "[a]"], None, "-v=[a", "-v=\\[a"),
    (["x{a", "b}"], ",", "-v=x\\{a,", "-v=x\\{a,"),
    # A character that means something only together with what follows it.
    (["a[b"], None, "-v=", "-v=a[b "),
    (["a[b]"], None, "-v=", "-v=a\\[b] "),
    (["[a", "b]"], ":", "-v=[a:b", "-v=[a:b\\] "),
    (["a{b,c", "a.b}"], None, "-v=a{", "-v=a{b,c "),
    (["a{b.c}"], None, "-v=", "-v=a{b.c} "),
    (["a{1..3}"], None, "-v=", "-v=a\\{1..3} "),
    (["a!=b"], None, "-v=", "-v=a!=b "),
    (["a! b"], None, "-v=", "-v=a\\!\\ b "),
    (["x=a~b"], None, "-v ", "-v x=a~b "),
    (["x=~"], None, "-v ", "-v x=\\~ "),
    (["x=a:~b"], None, "-v ", "-v x=a:\\~b "),
    (["x-y=~"], None, "-v ", "-v x-y=~ "),
]

# Words that only bash reads like this, and what the last one becomes.
WORDS = [
    ("-brush $'it\\'s -list b' r", "red rose "),
    ("-brush $'a\\\\' -list r", "r"),
    ("-brush $\"a -list b\" r", "red rose "),
    ("-brush \"a\\'b -list\" r", "red rose "),
    ("-brush $x$ -list r", "r"),
    ("$'-list' r", "r"),
    ("$'re", "$'re"),
    # The target of a redirection is no word of the tool.
    ("-brush > file t", "thick thin "),
    (">-list r", "red rose "),
    ("-brush >>x <y t", "thick thin "),
    ("-list >not", "notes "),
]

# bash itself would run this when it completes a file.
RUNNING = '"${{a[$(touch {})]}}/'

RUN = "single() { printf '%s\\0' \"$@\" >\"$_session_file\"; printf '<%s>\\n' ran; }"


def check_tabs(context):
    """What one TAB leaves on the line."""
    for values, separator, typed, wanted in TABS:
        made = describe([option("v", separator=separator, allowed=values)], name="pressed")
        with closing(context.session(made)) as session:
            got = session.press_tab(f"pressed {typed}")
        context.report.check(got == f"pressed {wanted}", "bash: what one TAB leaves on the line",
                             f"{values} [{typed}] {got!r}", encoded(made))


def check_run(context):
    """Each value alone: inserted, and the line run, the tool gets it."""
    made = describe([option(f"v{i}x", separator=None, allowed=[v])
                     for i, v in enumerate(hostile.values())], name="single")
    with closing(context.session(made, after=f"set -o histexpand\n{RUN}")) as session:
        for i, value in enumerate(hostile.values()):
            got = session.arguments(f"single -v{i}x=")
            context.report.check(got == [f"-v{i}x={value}"], "bash: the tool gets the value",
                                 f"{value!r} arrives as {got!r}", encoded(made))
            if value[0] != "-":
                got = session.arguments(f"single -v{i}x ")
                context.report.check(got == [f"-v{i}x", value], "bash: the tool gets the value",
                                     f"{value!r} arrives as {got!r}", encoded(made))


def check_without_history(context):
    """Where no "!" is replaced, none is quoted."""
    made = describe([option("v", allowed=["a!b"])], name="pressed")
    with closing(context.session(made, after="set +o histexpand")) as session:
        got = session.press_tab("pressed -v=")
    context.report.check(got == "pressed -v=a!b ", "bash: ! without history expansion", got)


def check_words(context):
    """Quotes and redirections, as only bash has them."""
    with closing(context.session(tools.PAINTS)) as session:
        for line, wanted in WORDS:
            before = f"paints {line}".removesuffix(line.split()[-1].lstrip("<>"))
            got = session.inserted(f"paints {line}").removeprefix(before)
            context.report.check(got == wanted, "bash: quotes and redirections",
                                 f"[{line}] {got!r}", encoded(tools.PAINTS))


def check_running(context):
    """A file is completed where bash itself would run what is typed."""
    with closing(context.session(tools.FULL)) as session:
        for stem in ("", "-path ", "-folder ", "-- "):
            session.complete(f"full {stem}{RUNNING.format(hostile.CANARY)}")
            hostile.check_canaries(context, stem + RUNNING, tools.FULL)


def check_users(context):
    """The home of another user is completed as bash does."""
    with closing(context.session(tools.FULL)) as session:
        for stem in ("", "-path ", "-folder "):
            got = session.complete(f"full {stem}~roo")
            context.report.check(got == ["~root"], "bash: the home of a user", f"[{stem}] {got}")


def check(context):
    if context.shell == "bash":
        check_tabs(context)
        check_run(context)
        check_without_history(context)
        check_words(context)
        check_running(context)
        check_users(context)
