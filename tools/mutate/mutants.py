"""Finds the small changes ("mutants") that can be made to a source file.

The sources are read as text in the shape that clang-format gives them: only a binary operator
has white space on both sides. Comments and literals are blanked out first, and each brace is
classified by what it opens: a namespace, a class, code, or an initializer.
"""
import collections
import pathlib
import re

OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",), "&&": ("||",), "||": ("&&",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
    "+=": ("=",), "-=": ("+=",), "&": ("|",), "|": ("&",),
}
OPERATOR = re.compile(r"(?<=\s)(%s)(?=\s)"
                      % "|".join(re.escape(op) for op in sorted(OPERATORS, key=len, reverse=True)))
SHIFT = re.compile(r"(?<=\s)(<<|>>)(?= \d)")
STEP = re.compile(r"\+\+|--")
NOT = re.compile(r"!(?=[\w(*])")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9A-Fa-f]+|\d+)(?=[uUlL]*(?![\w.']))")
TRUTH = re.compile(r"\b(true|false)\b")
LITERAL = r'"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\''
BLANK = re.compile(LITERAL + r"|//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|\bstatic_assert\([^;]*;",
                   re.DOTALL | re.MULTILINE)
COMMENT = re.compile(LITERAL + r"|//[^\n]*|/\*.*?\*/", re.DOTALL)
SPACE = re.compile(r"(\S) (?=(\S))")
ACCESS = re.compile(r"\s*(?:public|protected|private)\s*:(?!:)")
CALLABLE = re.compile(r"((?:\w+(?:<[^<>()]*>)?::)*"
                      r"(?:operator\s*(?:\(\)|[^\s(]+)|~?\w+(?:<[^<>()]*>)?))\s*\(")
CLASS = re.compile(r"\b(?:class|struct|union)\s+"
                   r"(?:(?:alignas\(\w+\)|\[\[.*?\]\])\s*)*(\w[\w:]*)")
PREFIX = re.compile(r"\s*(?:(else|do)\b|(?:case\b(?:::|[^:;])*|default\s*):(?!:)"
                    r"|(if constexpr|if|while|for|switch)\s*(?=\())")
EXPRESSION = re.compile(r"(?!return\b|auto\b)(?:throw\b|(?:\+\+|--|\*|\()*[\w:]+(?:<[\w:* ]+>)?\s*"
                        r"(?:\(|\.|->|\[|\+\+|--|(?:[-+*/%|&^]|<<|>>)?=(?!=)|<<|>>))")
# Values that `return {}` would not change, or could not replace.
DEFAULT = re.compile(r"\d+|true|false|nullptr|std::nullopt|__|\*this|[\w:<>*]*(\{\}|\(\))"
                     r"|\{.*\}", re.DOTALL)


def room_of(file):
    """The folder of tests/ that belongs to a source file."""
    parts = pathlib.PurePath(file).parts
    return parts[1] if parts[0] == "src" else parts[0]


class Mutant(collections.namedtuple("Mutant", "file original start end replacement place statement"
                                    " function nth", defaults=(1,))):
    """One change, and what it is in: the kind of place, the range of the statement, the names of
    the classes and the function around it. `nth` counts the mutants with the same key."""

    def text(self):
        return self.original[:self.start] + self.replacement + self.original[self.end:]

    @property
    def line(self):
        return self.original.count("\n", 0, self.start) + 1

    def key(self):
        """Names the mutant wherever its statement is moved to, and however it is formatted."""
        return f"{self.file}: {self._told()}"

    def change(self):
        """The statement without white space, the change in it between two marks."""
        old = self.original[self.start:self.end]
        new = self.replacement.replace(f"!({old})", "!(...)")
        begin, end = self.statement
        before, after = self.original[begin:self.start], self.original[self.end:end]
        return " ".join(part for part in (
            normal(before), f"@{normal(old)} -> {normal(new)}@", normal(after)) if part)

    def _told(self):
        nth = f" #{self.nth}" if self.nth > 1 else ""
        return (f"{self.function}: " if self.function else "") + self.change() + nth

    def __str__(self):
        return f"{self.file}:{self.line}: {self._told()}"


def normal(code):
    """Code without comments and without the white space that separates nothing."""
    code = COMMENT.sub(lambda found: found[0] if found[0][0] in "\"'" else " ", code)
    parts = re.split(f"({LITERAL})", code)  # every other one is a literal
    parts[::2] = [SPACE.sub(_needed, " ".join(part.split())) for part in parts[::2]]
    return "".join(parts)


def _needed(space):
    """A space stays between two words, and between two operators that would merge into one."""
    left, right = space[1], space[2]
    isWord = re.match(r"\w\w", left + right)
    return left + (" " if isWord or left == right and left in "+-&|<>=:" else "")


class Source:
    """A file with the meaning of its braces; finds what can be changed in it."""

    def __init__(self, text):
        self.original = text
        self.text = BLANK.sub(lambda found: re.sub(
            r"[^\n]", "_" if found[0][0] in "\"'" else " ", found[0]), text)
        self.partner = {}  # of a bracket, the offset of the other
        self.kind = {}     # of an opening brace, what it opens
        self.block = []    # of every character, the brace of what it is in; -1 outside of all
        self.ends = []     # the semicolons outside of round brackets
        stack = []
        for offset, character in enumerate(self.text):
            if character in "([{":
                if character == "{":
                    self.kind[offset] = self._kind(offset)
                stack.append(offset)
            elif character in ")]}":
                self.partner[offset] = stack.pop()
                self.partner[self.partner[offset]] = offset
            elif character == ";" and stack and self.text[stack[-1]] == "{":
                self.ends.append(offset)
            self.block.append(next((one for one in reversed(stack)
                                    if self._is_block(one) and one != offset), -1))

    def _is_block(self, offset):
        return self.kind.get(offset, "initializer") != "initializer"

    def place(self, offset):
        """What a character is in."""
        return self.kind.get(self.block[offset], "namespace")

    def function(self, offset):
        """The classes and the function that a character is in; empty outside of both."""
        names = []
        brace = self.block[offset]
        while brace >= 0:
            names.append(self._name(brace))
            brace = self.block[brace]
        return "::".join(name for name in reversed(names) if name)

    def _name(self, brace):
        """What the brace opens; empty for a namespace and for what has no name."""
        head = self.text[self.statement(brace, brace)[0]:brace]
        head = re.sub(r"template\s*<.*?>\s", "", head)
        pattern = {"class": CLASS, "code": CALLABLE}.get(self.kind[brace])
        isInner = self.kind[brace] == self.place(brace) == "code"
        found = pattern and not isInner and pattern.search(head)
        return normal(found[1]) if found else ""

    def statement(self, start, end):
        """The range of the statement that a change is in, with the conditions before it, up to its
        semicolon or the brace of its body."""
        first = self.block[start] + 1
        while True:
            while access := ACCESS.match(self.text, first):
                first = access.end()
            first += len(self.text[first:]) - len(self.text[first:].lstrip())
            last = self._end_of_statement(first)
            if start <= last:
                return first, max(last, end)
            first = (self.partner[last] if self.text[last] == "{" else last) + 1

    def _end_of_statement(self, first):
        while first < len(self.text) and self.text[first] not in ";}" and not self._is_block(first):
            first = self.partner[first] + 1 if self.text[first] in "([{" else first + 1
        return first

    def _kind(self, brace):
        head = re.split(r"[;{}]", self.text[max(0, brace - 1000):brace])[-1]
        head = re.sub(r"template\s*<.*?>\s", "", ACCESS.sub("", head)).strip()
        for word, kind in (("namespace", "namespace"), ("enum", "enum"),
                           ("(class|struct|union)", "class")):
            if re.match(rf"(inline\s+)?{word}\b", head):
                return kind
        if re.search(r"(^|[)\]:]|\b(const|noexcept|override|else|do|try))$", head):
            return "code"
        return "initializer"

    def changes(self):
        """Triples of start, end and replacement."""
        for found in OPERATOR.finditer(self.text):
            for other in OPERATORS[found[0]]:
                yield found.start(), found.end(), other
        for found in SHIFT.finditer(self.text):
            yield found.start(), found.end(), "<<" if found[0] == ">>" else ">>"
        for found in STEP.finditer(self.text):
            yield found.start(), found.end(), "--" if found[0] == "++" else "++"
        for found in NOT.finditer(self.text):
            yield found.start(), found.end(), ""
        for found in TRUTH.finditer(self.text):
            yield found.start(), found.end(), "false" if found[0] == "true" else "true"
        yield from self._numbers()
        yield from self._conditions()
        yield from self._choices()
        yield from self._statements()

    def _numbers(self):
        for found in NUMBER.finditer(self.text):
            value = int(found[0], 0)
            pure = re.search(r"(\)|const|noexcept)\s*=\s*$", self.text[:found.start()])
            if value == 1:
                yield found.start(), found.end(), "0"
            if not pure:
                yield found.start(), found.end(), str(value + 1)

    def _conditions(self):
        for found in re.finditer(r"\b(?:if|while)\s*(?=\()", self.text):
            yield from self._negated(found.end() + 1, self.partner[found.end()])

    def _choices(self):
        """Negates the condition of each choice between two values (?:)."""
        for found in re.finditer(r"\s\?\s", self.text):
            start = found.start()
            while self.text[start - 1] not in "([{,;?":
                if re.search(r"(\breturn|[^=!<>]=|\s:)\s$", self.text[:start]):
                    break
                start = self.partner[start - 1] if self.text[start - 1] in ")]}" else start - 1
            start += len(self.text[start:]) - len(self.text[start:].lstrip())
            yield from self._negated(start, found.start())

    def _negated(self, start, end):
        """Negates a condition. Not a declaration, nor a condition with a single operator, because
        changing that operator gives the same mutant."""
        condition = self.text[start:end]
        compound = re.search(r"&&|\|\|", condition)
        single = len(re.findall(r"\s(<|>|<=|>=|==|!=)\s", condition)) == 1
        declared = re.search(r"[^=!<>]=\s", condition)
        if not declared and (compound or not (single or condition[0] == "!")):
            yield start, end, f"!({self.original[start:end]})"

    def _statements(self):
        for end in (end for end in self.ends if self.place(end) == "code"):
            start = self._start_of_statement(end)
            statement = self.text[start:end]
            if statement in ("return", "break", "continue") or EXPRESSION.match(statement):
                yield start, end, ""
            elif statement.startswith("return "):
                value = statement[len("return "):].strip()
                if value == "status::success":
                    yield start, end, "return status::usageError"
                elif not DEFAULT.fullmatch(value):
                    yield start, end, "return {}"

    def _start_of_statement(self, end):
        start = end
        while self.text[start - 1] not in ";{":
            if self.text[start - 1] == "}" and self.kind[self.partner[start - 1]] != "initializer":
                break
            start = self.partner[start - 1] if self.text[start - 1] in ")]}" else start - 1
        while prefix := PREFIX.match(self.text, start, end):
            start = prefix.end()
            if prefix[2]:
                start = self.partner[start] + 1
        return start + len(self.text[start:end]) - len(self.text[start:end].lstrip())


def mutants_of(tree, file):
    """The mutants of one file, in their order. Headers are changed in inline code alone."""
    text = (pathlib.Path(tree) / file).read_text()
    source = Source(text)
    places = ("code", "class") if file.endswith(".h") else ("code", "class", "namespace")
    found = sorted({Mutant(file, text, start, end, replacement, source.place(start),
                           source.statement(start, end), source.function(start))
                    for start, end, replacement in source.changes()
                    if source.place(start) in places},
                   key=lambda mutant: (mutant.start, mutant.end, mutant.replacement))
    alike = collections.Counter()
    for mutant in found:
        alike[mutant.key()] += 1
        yield mutant._replace(nth=alike[mutant.key()])
