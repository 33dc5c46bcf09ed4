"""A real zsh at a pseudo terminal, asked for all candidates of its completion."""

import codecs
import os
import pathlib
import re
import shutil
import tempfile

import pexpect

# Widgets of the shell. They work under any options: each sets its own before it uses an array.
# The words are written to a file, because a terminal changes line ends.
WIDGETS = r"""
_session_all() {
  _main_complete || true
  typeset -g _session_count=${compstate[nmatches]} _session_alone=0
  local tags=${_lastcomp[tags]}
  if [[ -n $QIPREFIX || $tags == *files* || $tags == *directories* ]]; then
    _session_alone=1
  fi
  compstate[insert]=${NUMERIC:-all}
  compstate[list]=
}
_session_list() {
  _main_complete || true
  compstate[insert]=
  compstate[list]='list force'
}
_session_answer() {
  local quotes=0
  [[ -o rcquotes ]] && quotes=1
  emulate -L zsh
  print -rNn -- $_session_count $_session_alone $quotes "$BUFFER" > $_session_file
  _session_end
}
_session_end() {
  emulate -L zsh
  BUFFER=
  print -n -- "<session" "end>"
}
zle -C session-all complete-word _session_all
zle -C session-list list-choices _session_list
zle -N session-answer _session_answer
zle -N session-end _session_end
bindkey -e
bindkey '^X^A' session-all '^X^L' session-list '^X^P' session-answer '^X^E' session-end
"""

# $'...' in zsh, which it inserts for control characters.
CODED = re.compile(r"\$'((?:[^\\']|\\.)*)'")

PASTE_BEGIN, PASTE_END = "\x1b[200~", "\x1b[201~"
LEFT, ALL, LIST, ANSWER, END = "\x02", "\x18\x01", "\x18\x0c", "\x18\x10", "\x18\x05"


class ZshSession:
    """Loads one completion script, or a list of them, and completes lines.

    With `autoload`, the script is put as `_TOOL` into a folder of fpath, and zsh reads it at the
    first completion; otherwise it is read with `source` after compinit. `settings` are read before
    the script and `after` after it.
    """

    def __init__(self, script_path, *, tool, settings="", after="", env=None, autoload=False):
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="zsh-session-"))
        self._answer = self._folder / "answer"
        load = f"source {_quoted(script_path)}"
        before = ""
        if autoload:
            functions = self._folder / "functions"
            functions.mkdir()
            shutil.copy(script_path, functions / f"_{tool}")
            before, load = f"fpath=({_quoted(functions)} $fpath)", ""
        start = "\n".join([
            "PS1='<prompt''>' PS2= RPS1= LISTMAX=0 HISTFILE= KEYTIMEOUT=100",
            "unsetopt prompt_cr prompt_sp beep list_beep",
            before, "autoload -Uz compinit", "compinit -u -D",
            f"typeset -g _session_file={_quoted(self._answer)} _session_count=0 _session_alone=0",
            WIDGETS, settings, load, after, "",
        ])
        (self._folder / ".zshrc").write_text(start)
        environment = {
            "PATH": os.environ["PATH"], "HOME": str(self._folder), "LANG": "C.UTF-8",
            "TERM": "dumb", **(env or {}), "ZDOTDIR": str(self._folder),
        }
        self._zsh = pexpect.spawn("zsh", ["-d", "-i"], env=environment, timeout=20,
                                  encoding="utf-8", codec_errors="replace",
                                  dimensions=(4000, 2000), echo=False, maxread=1 << 20)
        self._zsh.delaybeforesend = None
        self._zsh.expect_exact("<prompt>")
        self._ask(ANSWER)

    def complete(self, line, after=""):
        """All candidates, as the words that the tool would get; `after` is behind the cursor."""
        return self._words(line + after, len(line))[1]

    def raw(self, line, after=""):
        """All candidates, quoted as they are inserted."""
        return self._words(line + after, len(line))[0]

    def descriptions(self, line):
        """The listed names or commands, with the description beside each, maybe empty."""
        shown = self._ask(_typed(line, None) + LIST + END)
        descriptions = {}
        for row in shown.replace("\r", "\n").split("\n"):
            name, _, description = row.partition("  -- ")
            if name.strip() and not row.strip().endswith(line.strip()):
                descriptions[name.rstrip()] = description.rstrip()
        return descriptions

    def close(self):
        self._zsh.close(force=True)
        shutil.rmtree(self._folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _words(self, line, cursor):
        count, alone, words = self._inserted(line, cursor, "")
        # If all are inserted at once, zsh closes an open quote and marks a folder for one only.
        if count > 1 and alone:
            words = []
            for number in range(1, count + 1):
                words += self._inserted(line, cursor, _argument(number))[2]
        return [raw for raw, _ in words], [plain for _, plain in words]

    def _inserted(self, line, cursor, argument):
        self._ask(_typed(line, cursor) + argument + ALL + ANSWER)
        texts = self._answer.read_bytes().decode(errors="surrogateescape").split("\0")
        count, alone, rc_quotes = int(texts[0]), texts[1] == "1", texts[2] == "1"
        inserted = texts[3]
        if count == 0:
            return 0, alone, []
        place = len(line) if cursor is None else cursor
        word = next(((start, end) for start, end, _ in _words(line, rc_quotes)
                     if start <= place <= end), (place, place))
        rest = len(line) - word[1]
        region = inserted[word[0]:len(inserted) - rest]
        return count, alone, [(region[start:end], plain)
                              for start, end, plain in _words(region, rc_quotes)]

    def _ask(self, keys):
        self._zsh.send(keys)
        self._zsh.expect_exact("<session end>")
        return self._zsh.before


def _words(text, rc_quotes):
    """Where each word of a command line begins and ends, and what it is without quotes.

    A quote may be open at the end. Operators of the shell end a word and are words.
    """
    words, start, plain, quote, i = [], None, "", "", 0
    while i < len(text):
        piece, length = text[i], 1
        if not quote and piece in " \t\n":
            if start is not None:
                words.append((start, i, plain))
            start, plain, i = None, "", i + 1
            continue
        if not quote and piece in ";&|<>()":
            if start is not None:
                words.append((start, i, plain))
            words.append((i, i + 1, piece))
            start, plain, i = None, "", i + 1
            continue
        if start is None:
            start = i
        coded = CODED.match(text, i)
        if not quote and coded:
            piece, length = _decoded(coded[1]), coded.end() - i
        elif quote == "'" and rc_quotes and text.startswith("''", i):
            length = 2
        elif quote == piece or (not quote and piece in "'\""):
            quote, piece = ("" if quote else piece), ""
        elif piece == "\\" and i + 1 < len(text) and (
                not quote or (quote == '"' and text[i + 1] in '"\\$`')):
            piece, length = text[i + 1], 2
        plain += piece
        i += length
    if start is not None:
        words.append((start, len(text), plain))
    return words


def _decoded(codes):
    text = codecs.escape_decode(codes.encode(errors="surrogateescape"))[0]
    return text.decode(errors="surrogateescape")


def _typed(line, cursor):
    moves = 0 if cursor is None else len(line) - cursor
    return PASTE_BEGIN + line + PASTE_END + LEFT * moves


def _argument(number):
    return "".join("\x1b" + digit for digit in str(number))


def _quoted(text):
    return "'" + str(text).replace("'", "'\\''") + "'"
