"""Settings, variables and other tools: what a TAB must not depend on, and not change."""

import os
import re
import shlex
import signal
import time
from contextlib import closing
from pathlib import Path

import shells
import tools
from building import describe, encoded, option
from comparing import compare, expected
from programs import run

# Where these hold, the same lines are asked again; each names what a careless script trips over.
LINES = [
    "", "-", "--", "-count -", "-hash -count -wh", "-what=words,l", "-what words,l", "-what ",
    "'a -search b' -wh", "-format=", "-count -what=x,y,", "-search -pat", "-unheard -fo",
    "-form c", "-basis 3 -fo", "-- fi", "-pattern fi", "-pattern a,fi", "-pattern=a,fi",
    "-pattern a,*",
]
PATHS = ["-path fi", "-path=fi", "-paths file1.txt,fi", "-paths=file1.txt,no", "sub", "-folder su",
         "-C -fl", "-note ", "-mode=", "-mode F", "-mode=f", "-FL", "-signs=plus,"]

# What a shell has set and defined; {} is the file that it goes to.
STATE = {
    "bash": "{{ declare -p; declare -f; shopt -p; shopt -po; trap; }} > {}",
    "zsh": "{{ typeset -p; functions ${{(k)functions:#_*}}; setopt; }} > {} 2>/dev/null",
    "fish": "begin; set; functions -n | string split ', '; end > {}",
}
TRAP = {
    "bash": "trap {} USR1", "zsh": "trap {} USR1",
    "fish": "function user_state --on-signal USR1; eval {}; end",
}
PID = {"bash": "echo $$ > {}", "zsh": "echo $$ > {}", "fish": "echo $fish_pid > {}"}

# Variables that change with every line, or that a completion has to set.
VOLATILE = re.compile(
    r"^(declare -\S+|typeset( -\S+)*|set|export|readonly)? ?(_|BASH_|BASHOPTS|COMP_|COMPREPLY"
    r"|READLINE_|PENDING|EPOCH"
    r"|FUNCNAME|LINENO|RANDOM|SECONDS|SRANDOM|PIPESTATUS|BASHPID|HISTCMD|TTYIDLE|pipestatus|status"
    r"|CMD_DURATION|\?|ERRNO|RPS|PS|_comp|compstate|historywords|history|jobs|options|parameters"
    r"|functions|registers|killring|CUTBUFFER|YANK|UNDO|widgets|keymaps|commands|modules|dirstack"
    r"|COLUMNS|LINES)")


def settings_of(shell):
    """Pairs of arguments for a session: each setting before the script, and after it."""
    for name, code in shells.SETTINGS[shell].items():
        yield {"settings": code}
        if name not in shells.ONLY_BEFORE and shell == "bash":
            yield {"after": code}


def check_settings(context):
    """The same results under settings that change what careless scripts do."""
    bare, full = tools.BARE | {"leftoverArguments": "kept"}, tools.FULL
    for more in settings_of(context.shell):
        rule = f"the same under {more}"
        for description, lines in ((bare, LINES), (full, PATHS)):
            with closing(context.session(description, **more)) as session:
                for line in lines:
                    compare(context, session, line, expected(description, line), rule,
                            description)


def check_c_locale(context):
    """The locale C, for ASCII."""
    env = dict(os.environ, LC_ALL="C", LANG="C")
    with closing(context.session(tools.BARE_KEPT, env=env)) as session:
        for line in LINES:
            compare(context, session, line, expected(tools.BARE_KEPT, line),
                    "the same in the locale C", tools.BARE_KEPT)


def lines_of_state(path):
    text = Path(path).read_text(errors="replace")
    return [line for line in text.split("\n") if not VOLATILE.match(line)]


def dump(session, pid, state):
    """Lets the shell write down its state; a TAB makes sure that the trap has run."""
    Path(state).unlink(missing_ok=True)
    os.kill(pid, signal.SIGUSR1)
    session.complete("no-such-tool-of-ours x")
    end = time.time() + 5
    while not Path(state).exists() and time.time() < end:
        time.sleep(0.05)
    time.sleep(0.3)
    return lines_of_state(state)


# Settings that a careless script leaves as they are by default.
UNUSUAL = {
    "bash": ["", "set -f; shopt -s failglob", "shopt -s failglob nullglob",
             "set -u; shopt -u extglob", "set -o posix", "shopt -s nocasematch nocaseglob; set -e"],
    "zsh": ["", "setopt no_glob null_glob ksh_arrays sh_word_split"], "fish": [""],
}


def check_unchanged(context):
    """A TAB changes no setting, variable or function of the user, whatever they are."""
    for unusual in UNUSUAL[context.shell]:
        check_unchanged_under(context, unusual)


def check_unchanged_under(context, unusual):
    state, pid = context.folder / "state", context.folder / "pid"
    code = STATE[context.shell].format(shlex.quote(str(state)))
    mine = {"bash": "i=1 j=2 word=3 cur=4 x=5 REPLY=6 name=7 value=8 line=9 words=a IFS=:x",
            "zsh": "i=1 j=2 word=3 cur=4 x=5 REPLY=6 name=7 value=8 line=9 reply=a IFS=:x",
            "fish": "set -g i 1; set -g j 2; set -g word 3; set -g x 5; set -g name 7"}
    after = "\n".join([mine[context.shell], unusual, TRAP[context.shell].format(shlex.quote(code)),
                       PID[context.shell].format(shlex.quote(str(pid)))])
    with closing(context.session(tools.BARE_KEPT, after=after)) as session:
        session.complete("no-such-tool-of-ours x")
        number = int(pid.read_text())
        before = dump(session, number, state)
        for line in LINES:
            session.complete("bare " + line)
        after_them = dump(session, number, state)
    changed = sorted(set(before) ^ set(after_them))
    context.report.check(not changed and before,
                         f"{context.shell}: a TAB changes nothing of the user",
                         f"under [{unusual}]: {changed[:8]}")


def check_added(context):
    """What a script adds begins with an underscore."""
    state, pid = context.folder / "state", context.folder / "pid"
    code = STATE[context.shell].format(shlex.quote(str(state)))
    names = re.compile(r"^(?:declare -\S+ |typeset(?: -\S+)* )?([A-Za-z][\w.-]*)(?:=| \(\)|$| )")
    found = []
    empty = context.folder / "empty"
    empty.write_text("")
    for script in (context.script(tools.BARE_KEPT), empty):
        after = TRAP[context.shell].format(shlex.quote(code)) + "\n" + \
            PID[context.shell].format(shlex.quote(str(pid)))
        session = shells.session(context.shell, str(script), tool="bare", after=after)
        with closing(session):
            session.complete("bare -count -wh")
            lines = dump(session, int(pid.read_text()), state)
        found.append({m.group(1) for m in map(names.match, lines) if m})
    added = sorted(found[0] - found[1])
    context.report.check(not added and found[1],
                         f"{context.shell}: what a script adds begins with _", str(added[:8]))


def check_alike(context):
    """Tools whose names are alike live in one shell."""
    names = ["fx-tool", "fx.tool", "fx_tool", "fx_2dtool", "fx_2etool", "fx+tool", "fx__tool",
             "fxtool", "0fx", "_fx", "FX-tool"]
    made = [describe([option(f"only{i}", type_="none"), option("v", allowed=[f"w{i}"]),
                      option(f"o{i}", positional=True, allowed=[f"p{i}"])], name=name)
            for i, name in enumerate(names)]
    code = "\n".join(shells.source(context.shell, context.script(d)) for d in made[1:])
    session = shells.session(context.shell, str(context.script(made[0])), tool=names[0], after=code)
    with closing(session):
        for description in made:
            for line in ("-o", "-v=", "-v ", ""):
                compare(context, session, line, expected(description, line),
                        "tools whose names are alike", description)


def check_home(context):
    """Files below ~/."""
    home = context.folder / "home"
    home.mkdir(exist_ok=True)
    (home / "athome").write_text("")
    env = dict(os.environ, HOME=str(home))
    with closing(context.session(tools.FULL, env=env)) as session:
        for stem in ("", "-path ", "-paths ", "-paths x,", "-- "):
            got = session.complete(f"full {stem}~/at")
            in_list = stem[-2:] == "x,"  # where no shell takes "~" for a home
            right = [[], ["x,~/athome"], [f"x,{home}/athome"]] if in_list else \
                [["~/athome"], [f"{home}/athome"]]
            context.report.check(
                got in right,
                f"{context.shell}: files below ~/", f"[{stem}~/at] {got}")


def check_typed_forms(context):
    """A command with a path, after a semicolon, and after assignments."""
    made = describe([option("only", type_="none")], name="formed")
    Path("formed").write_text("#!/bin/sh\n")
    Path("formed").chmod(0o755)
    forms = ["./formed -o", f"{os.getcwd()}/formed -o", "true; formed -o", "a=1 b=2 formed -o",
             "a='x y' formed -o", "true && formed -o", "true | formed -o",
             "formed x; formed -o", "a=1 ./formed -o"]
    if context.shell == "fish":
        forms = [f.replace("b=2 ", "") for f in forms]
    with closing(context.session(made)) as session:
        for line in forms:
            got = session.complete(line)
            context.report.check("-only" in got, f"{context.shell}: forms of a command",
                                 f"[{line}] {got}", encoded(made))
    Path("formed").unlink()


def check_syntax(context, descriptions):
    """The shells and shellcheck have nothing to say."""
    for description in descriptions:
        path = context.script(description)
        for command in shells.SYNTAX[context.shell]:
            status, out, err = run(command + [str(path)])
            context.report.check(
                status == 0 and not out and not err, f"{context.shell}: {' '.join(command)}",
                (out + err).decode(errors="replace")[:300], encoded(description))


def check_no_evaluation(context, description):
    """No eval, no command substitution and no process substitution outside of quotes."""
    text = context.script(description).read_text()
    if context.shell == "fish":
        bare = re.findall(r"^\s*eval\b", text, re.M)
    else:
        outside = re.sub(r"'[^']*'|\\.|#[^\n]*", "", text)
        bare = re.findall(r"\beval\b|\$\((?!\()|`|<\(", outside)
    context.report.check(not bare, f"{context.shell}: nothing that evaluates", str(bare),
                         encoded(description))


def check_form(context):
    """What is found at the first TAB, by the name of the file."""
    path = context.script(tools.BARE)
    if context.shell == "zsh":
        first = path.read_text().split("\n")[0]
        context.report.check(first == "#compdef bare", "zsh: the first line", first)
    after = {
        "bash": f"BASH_COMPLETION_USER_DIR={path.parent.parent}\n"
                "source /usr/share/bash-completion/bash_completion",
        "zsh": f"fpath=({path.parent} $fpath)\nautoload -Uz compinit\ncompinit -u -D",
        "fish": f"set -p fish_complete_path {path.parent}",
    }
    if context.shell == "bash":
        path.parent.rename(path.parent.with_name("completions"))
    tool = context.folder / "bare"  # fish looks for the scripts of commands that exist
    tool.write_text("#!/bin/sh\n")
    tool.chmod(0o755)
    env = dict(os.environ, PATH=f"{context.folder}:{os.environ['PATH']}")
    empty = context.folder / "empty"  # a script that does nothing
    empty.write_text("")
    session = shells.session(context.shell, str(empty), tool="bare", after=after[context.shell],
                             env=env)
    with closing(session):
        for line in ("-wh", "-wh", "-what=w"):
            compare(context, session, line, expected(tools.BARE, line),
                    "found in its folder, from the first TAB on", tools.BARE)


PARTS = {
    "settings": check_settings, "C locale": check_c_locale, "unchanged": check_unchanged,
    "added": check_added, "alike": check_alike, "forms": check_typed_forms, "form": check_form,
    "home": check_home,
}
