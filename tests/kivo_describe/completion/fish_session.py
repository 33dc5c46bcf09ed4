"""A real fish, asked for all candidates of its completion.

Candidates come from `complete -C`, which needs no terminal: one process answers many lines. What
depends on the line editor (a cursor inside of the line, the quotes that are inserted) is asked of
a second process at a pseudo terminal, which is started when it is needed.
"""

import itertools
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

import pexpect

# Answers lines that end with a null character; the answers end with one too.
LOOP = r"""
while read --null --local _session_line
    complete -C "$_session_line"
    printf '\0'
end
"""

# Inserts a line without typing it, and writes down the line that the editor shows.
EDITOR = r"""
function fish_prompt; end
function _session_take
    commandline -r -- (string collect <$_session_line)
    commandline -C (string collect <$_session_cursor)
    _session_done
end
function _session_tell
    commandline -b >$_session_answer
    commandline -P && echo listed >>$_session_answer
    _session_done
end
function _session_clear
    commandline -r ''
    _session_done
end
function _session_done
    printf '<%s>\n' done
end
bind \cx\ct _session_take
bind \cx\cp _session_tell
bind \cx\ce _session_clear
bind \cx\ca complete
bind \cx\cc cancel
"""
TAKE, TELL, CLEAR, COMPLETE, CANCEL = "\x18\x14", "\x18\x10", "\x18\x05", "\x18\x01", "\x18\x03"
MOST = 2000  # candidates

# A part of a typed word: an escaped character, a quoted part (its quote may be open), a command in
# parentheses, the rest.
PART = re.compile(r"""\\(.)|'((?:[^'\\]|\\.)*)\\?'?|"((?:[^"\\]|\\.)*)\\?"?|\\$"""
                  r"""|(\([^()]*\)|[^\\'"\s;&|<>()]+)""", re.DOTALL)


class FishSession:
    """Reads one completion script, and completes lines.

    `settings` are read before the script and `after` after it. With `autoload`, the script is put
    as `TOOL.fish` into a folder of fish_complete_path, and fish reads it at the first completion.
    With `terminal`, the answers of complete() are those that a TAB inserts at a terminal.
    """

    def __init__(self, script_path, *, tool, settings="", after="", env=None, autoload=False,
                 terminal=False):
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="fish-session-"))
        load = f"source {_quoted(script_path)}"
        if autoload:
            completions = self._folder / "completions"
            completions.mkdir()
            shutil.copy(script_path, completions / f"{tool}.fish")
            load = f"set -p fish_complete_path {_quoted(completions)}"
        self._code = "\n".join([settings, load, after, ""])
        self._environment = dict(
            os.environ if env is None else env, XDG_CONFIG_HOME=str(self._folder),
            XDG_DATA_HOME=str(self._folder), TERM="xterm", fish_greeting="")
        self._at_terminal = terminal
        self._editor = None
        self._fish = subprocess.Popen(  # closed by close()
            ["fish", "--no-config", "-c", self._code + LOOP], env=self._environment,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.pid = self._fish.pid

    def complete(self, line, after=""):
        """All candidates that begin with the word at the cursor, as the tool would get them.
        `after` is what is on the line after the cursor."""
        if self._at_terminal or after:
            return [unquoted(word) for word in self.raw(line, after)]
        typed = typed_word(line)
        return [word for word in self._candidates(line) if word.startswith(typed)]

    def descriptions(self, line):
        """The candidates, with the description beside each, maybe empty."""
        return self._candidates(line)

    def raw(self, line, after=""):
        """All candidates, quoted as they are inserted."""
        begin = begin_of_word(line)
        typed = unquoted(line[begin:])
        found = []
        for shown in self._inserted(line, after):
            word = shown[begin:len(shown) - len(after)]
            if word.endswith(" ") and begin_of_word(word) == len(word):
                word = word[:-1]  # the blank after a complete word
            if unquoted(word).startswith(typed):
                found.append(word)
        return found

    def close(self):
        if self._editor:
            self._editor.close(force=True)
        self._fish.stdin.close()
        self._fish.stdout.close()
        self._fish.wait(timeout=20)
        shutil.rmtree(self._folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _candidates(self, line):
        self._fish.stdin.write(line.encode() + b"\0")
        self._fish.stdin.flush()
        answer = bytearray()
        while not answer.endswith(b"\0"):
            some = self._fish.stdout.read1(1 << 16)
            if not some:
                raise EOFError("fish has ended")
            answer += some
        rows = answer[:-1].decode(errors="surrogateescape").split("\n")
        return dict(row.partition("\t")[::2] for row in rows if row)

    def _inserted(self, line, after):
        """The line after each candidate has been inserted. Of several, fish shows a list, and
        inserts the next one each time that the key is pressed again (the first one a time later if
        they fill the screen). It shows no guesses where a candidate begins with what was typed."""
        self._start_editor()
        (self._folder / "line").write_text(line + after)
        (self._folder / "cursor").write_text(str(len(line)))
        self._press(TAKE)
        begun, is_listed = self._pressed_tab()
        if not is_listed:
            shown = [begun] if begun != line + after else []
        else:
            shown = []
            texts = (self._pressed_tab()[0] for _ in range(MOST))
            for text in itertools.dropwhile(lambda text: text == begun, texts):
                if text in shown:
                    break
                shown.append(text)
            self._press(CANCEL + CLEAR)
        self._press(CLEAR)
        return shown

    def _pressed_tab(self):
        """The line after one more TAB, and whether a list is shown."""
        self._press(COMPLETE + TELL)
        text, _, is_listed = (self._folder / "answer").read_text().partition("\n")
        return text, is_listed != ""

    def _start_editor(self):
        if self._editor:
            return
        names = "\n".join(f"set -g _session_{name} {_quoted(self._folder / name)}"
                          for name in ("line", "cursor", "answer"))
        code = self._folder / "editor.fish"
        code.write_text(self._code + names + EDITOR)
        self._editor = pexpect.spawn(
            "fish", ["--no-config", "-i", "-C", f"source {_quoted(code)}"], timeout=20,
            env=self._environment, encoding="utf-8", codec_errors="replace",
            dimensions=(50, 200), echo=False, maxread=1 << 20)
        self._editor.delaybeforesend = None
        self._press(CLEAR)

    def _press(self, keys):
        self._editor.send(keys)
        self._editor.expect_exact("<done>")


def typed_word(line):
    """The word at the end of a line, without quotes."""
    return unquoted(line[begin_of_word(line):])


def begin_of_word(line):
    """Where the word at the end of a line begins."""
    begin = place = 0
    while place < len(line):
        part = PART.match(line, place)
        place = part.end() if part else place + 1
        if part is None:
            begin = place
    return begin


def unquoted(word):
    """A word as a tool would get it; its last quote may be open."""
    return PART.sub(_plain, word)


def _plain(part):
    escaped, single, double, rest = part.groups()
    if escaped is not None:
        return {"n": "\n", "t": "\t"}.get(escaped, escaped)
    if single is not None:
        return re.sub(r"\\([\\'])", r"\1", single)
    if double is not None:
        return re.sub(r"\\([\\\"$])", r"\1", double)
    return rest or ""


def _quoted(text):
    return "'" + str(text).replace("\\", "\\\\").replace("'", "\\'") + "'"
