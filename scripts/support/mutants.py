"""Where the sources can be changed a little: the mutants that scripts/mutate tests.

The sources are read as text, which clang-format has brought into shape: only a binary
operator has white space on both sides. Comments and literals are blanked out first, and
every brace is sorted into what it opens: a namespace, a class, code, or an initializer.
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
BLANK = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\''
                   r"|^[ \t]*#[^\n]*|\bstatic_assert\([^;]*;", re.DOTALL | re.MULTILINE)
PREFIX = re.compile(r"\s*(?:(else|do)\b|(?:case\b(?:::|[^:;])*|default\s*):(?!:)"
                    r"|(if constexpr|if|while|for|switch)\s*(?=\())")
EXPRESSION = re.compile(r"(?!return\b|auto\b)(?:throw\b|(?:\+\+|--|\*|\()*[\w:]+(?:<[\w:* ]+>)?\s*"
                        r"(?:\(|\.|->|\[|\+\+|--|(?:[-+*/%|&^]|<<|>>)?=(?!=)|<<|>>))")
# What `return {}` would not change, or could not compile to.
DEFAULT = re.compile(r"\d+|true|false|nullptr|std::nullopt|__|\*this|[\w:<>*]*(\{\}|\(\))|\{.*\}", re.DOTALL)


def room_of(file):
    """The folder of tests/ that belongs to a source file."""
    parts = pathlib.PurePath(file).parts
    return parts[1] if parts[0] == "src" else parts[0]


class Mutant(collections.namedtuple("Mutant", "file original start end replacement place nth",
                                    defaults=(1,))):
    """One change, and what it stands in; `nth` counts those of a file that read alike."""

    def text(self):
        return self.original[:self.start] + self.replacement + self.original[self.end:]

    @property
    def line(self):
        return self.original.count("\n", 0, self.start) + 1

    def change(self):
        first = self.original.rfind("\n", 0, self.start) + 1
        last = self.original.find("\n", self.end)
        before, after = self.original[first:self.start], self.original[self.end:last]
        return " -> ".join(" ".join((before + middle + after).split())
                           for middle in (self.original[self.start:self.end], self.replacement))

    def entry(self):
        """The mutant as tests/equivalent_mutants.txt names it, wherever its line has moved."""
        return f"{self.file}: {self._told()}"

    def _told(self):
        return self.change() + (f" #{self.nth}" if self.nth > 1 else "")

    def __str__(self):
        return f"{self.file}:{self.line}: {self._told()}"


class Source:
    """A file with the meaning of its braces; finds what can be changed in it."""

    def __init__(self, text):
        self.original = text
        self.text = BLANK.sub(lambda found: re.sub(
            r"[^\n]", "_" if found[0][0] in "\"'" else " ", found[0]), text)
        self.partner = {}  # of a bracket, the offset of the other
        self.kind = {}     # of an opening brace, what it opens
        self.place = []    # of every character, what it stands in
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
            kinds = [self.kind[one] for one in stack if one in self.kind]
            self.place.append(next((kind for kind in reversed(kinds) if kind != "initializer"),
                                   "namespace"))

    def _kind(self, brace):
        head = re.split(r"[;{}]", self.text[max(0, brace - 1000):brace])[-1]
        head = re.sub(r"template\s*<.*?>\s", "", head).strip()
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
        """A choice between two values, negated from what stands before its condition."""
        for found in re.finditer(r"\s\?\s", self.text):
            start = found.start()
            while self.text[start - 1] not in "([{,;?":
                if re.search(r"(\breturn|[^=!<>]=|\s:)\s$", self.text[:start]):
                    break
                start = self.partner[start - 1] if self.text[start - 1] in ")]}" else start - 1
            start += len(self.text[start:]) - len(self.text[start:].lstrip())
            yield from self._negated(start, found.start())

    def _negated(self, start, end):
        """Nothing for a declaration, nor where the change of its one operator says the same."""
        condition = self.text[start:end]
        compound = re.search(r"&&|\|\|", condition)
        single = len(re.findall(r"\s(<|>|<=|>=|==|!=)\s", condition)) == 1
        declared = re.search(r"[^=!<>]=\s", condition)
        if not declared and (compound or not (single or condition[0] == "!")):
            yield start, end, f"!({self.original[start:end]})"

    def _statements(self):
        for end in (end for end in self.ends if self.place[end] == "code"):
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
    found = sorted({Mutant(file, text, *change, source.place[change[0]])
                    for change in source.changes() if source.place[change[0]] in places},
                   key=lambda mutant: (mutant.start, mutant.end, mutant.replacement))
    alike = collections.Counter()
    for mutant in found:
        alike[mutant.change()] += 1
        yield mutant._replace(nth=alike[mutant.change()])
