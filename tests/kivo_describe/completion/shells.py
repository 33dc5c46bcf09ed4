"""The three shells: how their scripts are checked, and the settings that must change nothing."""

import importlib
import shlex
from pathlib import Path

SHELLS = ("bash", "zsh", "fish")

SYNTAX = {
    "bash": (["bash", "-n"], ["bash", "--posix", "-n"], ["shellcheck", "--shell=bash"]),
    "zsh": (["zsh", "-n"],),
    "fish": (["fish", "--no-config", "-n"],),
}

# Settings under which the results must be the same.
SETTINGS = {
    "bash": {
        "set -u": "set -u", "set -f": "set -f", "IFS=x": "IFS=x", "IFS=": "IFS=",
        "failglob": "shopt -s failglob", "nullglob": "shopt -s nullglob",
        "without extglob": "shopt -u extglob", "posix": "set -o posix",
        "nocasematch": "shopt -s nocasematch", "nocaseglob": "shopt -s nocaseglob",
        "breaks": "COMP_WORDBREAKS=${COMP_WORDBREAKS//[:=@]}",
    },
    "zsh": {
        "ksh_arrays": "setopt ksh_arrays", "sh_word_split": "setopt sh_word_split",
        "glob_subst": "setopt glob_subst", "extended_glob": "setopt extended_glob",
        "no_glob": "setopt no_glob", "null_glob": "setopt null_glob",
        "rc_quotes": "setopt rc_quotes", "no_case_match": "setopt no_case_match",
        "IFS=x": "IFS=x",
    },
    "fish": {},
}
ONLY_BEFORE = {"nocasematch", "nocaseglob"}  # not among the settings that are promised


def session(shell, *arguments, **more):
    """A shell that has read a script; see the module of the shell's sessions."""
    module = importlib.import_module(f"{shell}_session")
    name = next(n for n in vars(module) if n.lower() in ("session", f"{shell}session"))
    return getattr(module, name)(*arguments, **more)


def source(shell, path):
    """The command with which a shell reads a script."""
    del shell  # the same in all three
    return f"source {shlex.quote(str(path))}"


def script_name(shell, tool):
    return {"bash": tool, "zsh": f"_{tool}", "fish": f"{tool}.fish"}[shell]


def listed(folder):
    """The names in a folder that do not begin with a dot; those of folders end with a slash."""
    try:
        return sorted(p.name + ("/" if p.is_dir() else "") for p in Path(folder or ".").iterdir()
                      if p.name[0] != ".")
    except OSError:
        return []


def paths_of(offer):
    """The paths that go on from what is typed of one: all that fit, and the folders among them."""
    folder, slash, begin = offer.path.rpartition("/")
    found = [n for n in listed(folder + slash) if n.startswith(begin)]
    words = [offer.stem + folder + slash + n for n in found]
    return words, [w for w in words if w.endswith("/")]
