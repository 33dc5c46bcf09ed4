"""A real bash at a pseudo terminal, asked for all candidates of its completion."""

import os
import pathlib
import shlex
import shutil
import tempfile

import pexpect

# One key inserts all candidates, quoted as readline would insert one. Another one writes the line
# to a file, because a terminal changes line ends, and empties it. No process is started.
KEYS = r"""
_session_answer() {
  printf '%s' "$READLINE_LINE" >"$_session_file"
  READLINE_LINE= READLINE_POINT=0
  printf '<%s>\n' answered
}
bind 'set enable-bracketed-paste off'
bind 'set convert-meta off'
bind 'set input-meta on'
bind 'set output-meta on'
bind 'set bell-style none'
bind '"\C-xi": insert-completions'
bind -x '"\C-xp": _session_answer'
PS1='> ' PS2='' PROMPT_COMMAND=
"""
SPECIAL_IN_DOUBLE_QUOTES = '$`"\\\n'


def pieces(line):
    """Each character of a line: its place, what it stands for, and whether it is quoted."""
    quote, place = "", 0
    while place < len(line):
        here, after = line[place], line[place + 1:place + 2]
        escapes = after in SPECIAL_IN_DOUBLE_QUOTES if quote else True
        if here == "\\" and quote != "'" and after and escapes:
            yield place, after, True
            place += 1
        elif here == quote:
            quote = ""
            yield place, "", True
        elif not quote and here in "'\"":
            quote = here
            yield place, "", True
        else:
            yield place, here, bool(quote)
        place += 1


def split(line):
    """The words of a line as they stand there, with the place where each begins."""
    words, begin = [], None
    for place, character, quoted in pieces(line):
        blank = not quoted and character in " \t\n"
        if blank and begin is not None:
            words.append((begin, line[begin:place]))
            begin = None
        elif not blank and begin is None:
            begin = place
    if begin is not None:
        words.append((begin, line[begin:]))
    return words


def unquoted(word):
    """What a tool gets for a word. Variables and patterns are left as they are."""
    return "".join(character for _, character, _ in pieces(word))


def replaced_from(line, breaks):
    """Where the text begins that readline replaces, and the quote open there."""
    quote, opened, begin = "", 0, 0
    for place, character, quoted in pieces(line):
        if not quoted and character in breaks:
            begin = place if character in "@$" else place + 1
        if character == "" and quoted:
            quote, opened = ("" if quote else line[place]), place
    return (opened, quote) if quote else (begin, "")


class BashSession:
    """A shell that has read a script. `settings` and `after` are shell code that runs before and
    after it is read; without a script, `settings` has to bring completion along."""

    def __init__(self, script_path, *, tool="NAME", settings="", after="", env=None):
        self.tool = tool
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="bash-session-"))
        self.answer = self.folder / "answer"
        source = f"source {shlex.quote(os.path.abspath(script_path))}" if script_path else ""
        start = self.folder / "start"
        start.write_text(
            f"{settings}\n{source}\n{after}\n_session_file={shlex.quote(str(self.answer))}\n{KEYS}"
            "printf '%s' \"${COMP_WORDBREAKS-}\" >\"$_session_file\"\nprintf '<%s>\\n' started\n",
            encoding="utf-8")
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "TERM": "dumb",
                       "LC_ALL": "C.UTF-8", "INPUTRC": "/dev/null", "HISTFILE": ""}
        environment.update(env or {})
        self.terminal = pexpect.spawn(
            "bash", ["--norc", "--noprofile", "-i"], env=environment, encoding="utf-8",
            codec_errors="replace", timeout=30, dimensions=(50, 4000))
        self.terminal.delaybeforesend = None
        self.run(f"source {shlex.quote(str(start))}", "<started>")
        self.breaks = self.answer.read_text(encoding="utf-8")

    def run(self, code, mark="<done>"):
        """Runs shell code and returns what the terminal shows."""
        if mark == "<done>":
            code += "\nprintf '<%s>\\n' done"
        self.terminal.send(code + "\r")
        self.terminal.expect_exact(mark)
        return self.terminal.before

    def inserted(self, line, after="", keys="\x18i"):
        """The line after some keys, by default those that insert all candidates. `after` is what is
        on the line after the cursor."""
        self.terminal.send(line + after + "\x02" * len(after) + keys + "\x18p")
        self.terminal.expect_exact("<answered>")
        return self.answer.read_text(encoding="utf-8", errors="surrogateescape")

    def press_tab(self, line):
        """The line after one TAB."""
        return self.inserted(line, keys="\t")

    def raw(self, line, after=""):
        """All candidates as words that would stand on the line, quoted as they are inserted."""
        result = self.inserted(line, after)
        if result == line + after:
            return []
        result = result.removesuffix(after)
        begin, quote = replaced_from(line, self.breaks)
        words = split(line)
        word = words[-1][0] if words and words[-1][0] + len(words[-1][1]) == len(line) else begin
        kept = "" if quote and word == begin else line[word:begin]
        return [kept + candidate for _, candidate in split(result[begin:])]

    def complete(self, line, after=""):
        """All candidates as complete words, as the tool would get them."""
        return [unquoted(word) for word in self.raw(line, after)]

    def arguments(self, line):
        """What the tool gets when all candidates are inserted and the line is run. The tool has to
        write it to the file, each argument with a zero after it, and "<ran>" to the terminal."""
        self.terminal.send(line + "\x18i\r")
        if self.terminal.expect_exact(["<ran>", pexpect.TIMEOUT], timeout=5):
            self.terminal.send("\x03")
            return None
        return self.answer.read_text(encoding="utf-8").split("\0")[:-1]

    def close(self):
        """Ends the shell."""
        self.terminal.close(force=True)
        shutil.rmtree(self.folder, ignore_errors=True)
