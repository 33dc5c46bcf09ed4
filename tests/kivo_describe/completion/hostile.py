"""Hostile names, values and descriptions: nothing runs, and every value arrives as it is."""

import subprocess
from contextlib import closing
from pathlib import Path

import cases
import model
from building import command, describe, encoded, option
from comparing import compare, expected, shown

CANARY = "canary"
# {} is the command that leaves a file behind.
RUNNING = ["$({})", "`{}`", "${{x:-$({})}}", "; {};", "| {}", "&& {}", "& {} &", "\n{}\n", "<({})",
           "x[$({})]", "a[$({})]=1", "$((x[$({})]))", "';{};'", "\";{};\"", "'$({})'", "\\`{}\\`",
           "({})", "{{ {}; }}", "(e:'{}':)", "*(e:'{}':)", "${{(e):-$({})}}", "%{{$({})%}}", "!{}",
           "~[{}]", "=({})", "#\n{}", ")\n{}\n(", "'\n{}\n'", "]]; {}; [[", "); {}; (", "EOF\n{}",
           "end; {}; begin", "{}"]
ODD = [
    ":", "a:b", "a::b", "a=b", "=x", "=ls", "a@b", "@host", "two words", " leading", "trailing ",
    "'", "\"", "it's", "say \"x\"", "'a' \"b\" `c`", "\\", "a\\", "\\\\", "a\\ b", "\\n", "*", "**",
    "?", "[a-z]", "~", "~root", "~/x", "a~b", "#", "#x", "a#b", "!", "!!", "!x", "a!b", ";", "a;b",
    "&", "|", "<", ">", "(", ")", "{", "}", "{a,b}", "$", "$HOME", "${HOME}", "$x$", "%", "%s",
    "%d%%",
    "^", "^a^b", "+", "+x", ",", "a,b", ".", "..", "./x", "/", "/etc", "é", "漢字", "ß'ß",
    "a b'c\"d", "$'x'", "$\"x\"", "a\u00a0b", "x" * 300, "-", "--", "-x", "--x=y", "1", "0x10",
    "a  b", "[", "]", "[[", "]]", "((", "))", "if", "for", "done", "alias", "true", "no-x", "a/b",
    "sub/", "file1.txt",
]
PLAIN_WORDS = ["lines,words", "a-b", "a.b", "a_b", "a/b", "plain", "x+y", "a%b", "10"]


def running(index=None):
    """The texts that try to run something."""
    made = [text.format(f"touch {CANARY}{i}") for i, text in enumerate(RUNNING)]
    return made if index is None else made[index]


def values():
    """All values: the odd ones, and the running ones that have no control character."""
    return ODD + [v for v in running() if not any(map(model.is_control, v))]


def hostile_tool():
    """Hostile texts everywhere in a description."""
    texts = running() + [t for t in ODD if "\u00a0" not in t]
    options = [option(f"v{i}", type_="string", separator=None, allowed=[text, text + "z", "other"],
                      description=text) for i, text in enumerate(values())]
    options += [option("name" + text, type_="none", description=text, separator=None)
                for text in texts]
    options += [option(text, kind="action", type_="none", separator=None, section=text)
                for text in running()]
    options.append(option("all", separator=None, allowed=values(), description="\n".join(texts)))
    options.append(option("many", separator=",", allowed=values()))
    options.append(option("operand", positional=True, separator=None, allowed=values()))
    return describe(options, name="hostile", version=texts[0], summary=texts[1],
                    together=[running(), ["x"] + texts])


def hostile_commands():
    words = [t for t in running() + ODD if t and t[0] != "-" and not any(c.isspace() for c in t)
             and not any(map(model.is_control, t))]
    return describe([option("own", type_="none", description=running(0))], name="hostile",
                    commands=[command(w, [option("v", allowed=values())], summary=w)
                              for w in words])


def canaries():
    return sorted(str(p) for p in Path(".").glob(CANARY + "*"))


def check_canaries(context, when, description):
    found = canaries()
    context.report.check(not found, f"{context.shell}: nothing runs", f"{when}: {found}",
                         encoded(description))
    for name in found:
        Path(name).unlink()


def check_texts(context, description, lines):
    """Lines of a hostile tool, by the model."""
    with closing(context.session(description)) as session:
        check_canaries(context, "reading the script", description)
        for line in lines:
            compare(context, session, line, expected(description, line), "hostile texts",
                    description)
            check_canaries(context, line, description)


def check_inserted(context):
    """Each value alone: inserted by a TAB, it arrives at the tool as it is."""
    for position, build in (("after =", "-v{}="), ("as a word", "-v{} ")):
        made = describe([option(f"v{i}x", separator=None, allowed=[v])
                         for i, v in enumerate(values())], name="single")
        with closing(context.session(made)) as session:
            for i, value in enumerate(values()):
                typed = build.format(f"{i}x")
                wanted = [typed + value] if typed[-1] == "=" else \
                    shown(context.shell, "", [value] if value[0] != "-" else [])
                got = session.complete("single " + typed)
                context.report.check(got == wanted, f"{context.shell}: values arrive, {position}",
                                     f"{value!r} arrives as {got!r}", encoded(made))
        check_canaries(context, position, made)


RUN = {"bash": ["bash", "--norc", "-c"], "zsh": ["zsh", "-f", "-c"],
       "fish": ["fish", "--no-config", "-c"]}


def check_run(context):
    """Each value alone: when the line is run, the tool gets it as it is, whatever files there are."""
    alone = [value for value in values() if value[0] != "-"]
    made = describe([option(f"v{i}x", separator=None, allowed=[value])
                     for i, value in enumerate(alone)], name="single")
    with closing(context.session(made)) as session:
        inserted = [session.raw(f"single -v{i}x ") for i in range(len(alone))]
    Path("u").touch()  # what "?" stands for, if it is not quoted
    try:
        for value, words in zip(alone, inserted):
            if not words:  # check_inserted() tells which are offered
                continue
            if context.shell == "fish" and value[0] == "~":  # fish never quotes it, see its script
                continue
            run = subprocess.run(RUN[context.shell] + [f"printf '%s' {words[0]}"], check=False,
                                 capture_output=True, text=True)
            context.report.check(run.stdout == value,
                                 f"{context.shell}: values are run as they are",
                                 f"{value!r} is inserted as {words[0]!r} and run as {run.stdout!r}",
                                 encoded(made))
    finally:
        Path("u").unlink()
    check_canaries(context, "running", made)


def check_not_quoted(context):
    """Nothing is quoted that need not be."""
    plain = [w for w in PLAIN_WORDS if context.shell != "fish" or "%" not in w]  # fish quotes it
    made = describe([option(f"v{i}x", separator=None, allowed=[v])
                     for i, v in enumerate(plain)], name="plain")
    with closing(context.session(made)) as session:
        for i, value in enumerate(plain):
            for typed in (f"-v{i}x=", f"-v{i}x "):
                raw = session.raw("plain " + typed)
                wanted = (typed if typed[-1] == "=" else "") + value
                context.report.check(raw == [wanted],
                                     f"{context.shell}: no needless quotes",
                                     f"{value!r} becomes {raw!r}", encoded(made))


def check_typed(context):
    """What is typed is never evaluated."""
    made = describe([option("what", separator=",", allowed=["words", "two words"]),
                     option("act", kind="action", type_="none"),
                     option("file", positional=True)], name="typed")
    texts = [t for t in running() if "\n" not in t]
    with closing(context.session(made)) as session:
        for text in texts:
            for line in (f"typed '{text.replace(chr(39), '')}' -wha",
                         f"typed -what=x{text} ", f"typed -what={text}", f"typed {text}",
                         f"typed -{text}=", f"typed -{text}", f"typed {text} -what=w",
                         f"typed -what=words,{text}", f"typed -- {text}"):
                try:
                    session.complete(line)
                finally:
                    check_canaries(context, line, made)


def check_begun(context):
    """A word that begins with a quote or a backslash may be left alone, but is never spoilt."""
    made = describe([option("what", separator=",", allowed=["words", "two words", "a'b", "$x"]),
                     option("file", positional=True, separator=None, allowed=["words", "two w"])],
                    name="begun")
    with closing(context.session(made)) as session:
        for line in ('"-what=wor', "'-what=wor", "-what='wor", '-what="two', "'-what=two w",
                     '"-what=a\'', "-wh\\at=wor", "-what=two\\ w", "-what 'two w",
                     '-what "wor', "'two", '"wo', "two\\ ", "-what=\\w", "'-wh", '"--wh',
                     "-what 'words,tw", '-what="words,two '):
            wanted = expected(made, line + open_quote(line)).words
            got = [w for w in session.complete(f"begun {line}")
                   if context.shell != "fish" or w.startswith(cases.words_of(
                       line + open_quote(line))[-1])]
            context.report.check(set(got) <= wanted, f"{context.shell}: a word begun with a quote",
                                 f"[{line}] {got}", encoded(made))


def open_quote(line):
    """The quote that is open at the end of a line."""
    quote = ""
    for character in line:
        if character == quote:
            quote = ""
        elif not quote and character in "'\"":
            quote = character
    return quote


def check_hostile(context):
    lines = [f"-v{i}=" for i in range(len(values()))] + [
        "-all=", "-all ", "-many=", "-many words,", "", "-", "--", "-name", "--name", "-- ", "-no"]
    check_texts(context, hostile_tool(), lines)
    check_texts(context, hostile_commands(), ["", "-", "a", "if ", "if -v=", "if -v "])
    check_inserted(context)
    check_run(context)
    check_not_quoted(context)
    check_begun(context)
    check_typed(context)
