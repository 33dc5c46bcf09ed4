"""A plain, slow model of what a completion script offers.

`offer(description, before, word)` answers what a shell has to offer for `word`, the word at the
cursor, when the words of `before` stand between the tool's name and it. All words are without
their quotes. The answer is an Offer: whole words (names with their dashes, values with what
stands before them in the same word), and whether files or folders are offered beside them.

Where the rules leave open what has to be offered, the model raises Undecided.
"""

from collections import Counter
from typing import NamedTuple, Optional


class Undecided(Exception):
    """The rules do not say what has to be offered here."""


class Offer(NamedTuple):
    words: frozenset = frozenset()
    paths: Optional[str] = None  # "files" or "folders" (a shell may fall back to files)
    stem: str = ""               # what stands before the path in the word at the cursor
    path: str = ""               # as much of the path as is typed


NOTHING = Offer()


class Scope:
    """The options that count at one place of the line: the tool's own, and those of a command."""

    def __init__(self, description, command=None):
        self.own, self.command = description, command
        parts = [description] + ([command] if command else [])
        annotations = description.get("annotations", {})
        self.two_dashes = annotations.get("dashes", [""])[0] == "two"
        self.lone_dash = annotations.get("loneDash", [""])[0] == "operand"
        self.options = [o for part in reversed(parts) for o in part["options"]]
        self.together = [group for part in parts for group in part["together"]]
        self.leftover = parts[-1]["leftoverArguments"]
        self.table = {}  # every name that may be typed, and its option
        self.counts = {}  # how often each of them is there
        for part in parts:
            self.table.update(names_of(part["options"]))
            self.counts.update(Counter(name for name, _ in forms_of(part["options"])))

    def resolve(self, typed):
        """The option that a name stands for, in full or cut short; None for none or several."""
        if not typed or typed.startswith("-"):
            return None
        if typed in self.table:
            return self.table[typed]
        fitting = [name for name in self.table if name.startswith(typed)]
        is_one = len(fitting) == 1 and self.counts[fitting[0]] == 1
        return self.table[fitting[0]] if is_one else None

    def operand(self):
        return next((o for o in self.options if o["positional"]), None)

    def goes(self, option, typed):
        """Whether an option or action is offered beside the actions that are typed."""
        if not typed:
            return True
        if option["kind"] == "action":
            needed = {a["names"][0] for a in typed + [option]}
            return all(option is not a for a in typed) and \
                any(needed <= set(group) for group in self.together)
        if "actions" not in option:
            return True
        deciding = min(typed, key=lambda action: min(n.encode() for n in action["names"]))
        return deciding["names"][0] in option["actions"]

    def offered_names(self, typed):
        """The names of all options that go and are shown, without dashes."""
        names = []
        for option in self.options:
            if option["hidden"] or option["positional"] or not self.goes(option, typed) \
                    or "deprecated" in option.get("annotations", {}):
                continue
            own = option["names"] + ["no-" + n for n in option["names"][:1]
                                     if option["type"] == "boolean"]
            names += [n for n in own if can_be_typed(n) and self.table[n] is option]
        return names


def forms_of(options):
    """Every name of the options, "no-" forms included, with its option."""
    for option in options:
        for name in option["names"]:
            yield name, option
            if option["type"] == "boolean":
                yield "no-" + name, option


def names_of(options):
    """Every name of the options, "no-" forms included, with the first option that has it."""
    table = {}
    for name, option in forms_of(options):
        table.setdefault(name, option)
    return table


def is_control(character):
    return ord(character) < 32 or ord(character) == 127


def can_be_typed(name):
    return name != "" and name[0] != "-" and "=" not in name and \
        not any(c.isspace() or is_control(c) for c in name)


def takes_value(option):
    return option is not None and option["type"] not in ("none", "boolean")


def split_option(word):
    """The dashes, the name, whether a "=" follows, and the value of a word with a dash."""
    dashes = "--" if word.startswith("--") else "-"
    name, equals, value = word[len(dashes):].partition("=")
    return dashes, name, bool(equals), value


class Line:
    """Walks the words before the cursor's as the parser walks them."""

    def __init__(self, description, before):
        self.description = description
        self.command = None      # the longest command that is complete
        self.typed_words = []    # words of commands, in full
        self.lost = False        # a word fits no command
        self.operands = 0        # words that are operands, since the last word of a command
        self.actions = []        # typed ones
        self.taker = None        # the option that takes the next word
        self.ended = False       # "--" was typed
        self.scope = Scope(description)
        for place, word in enumerate(before):
            self.walk(word, place == 0)

    def walk(self, word, first):
        taker, self.taker = self.taker, None
        lone = word == "-" and self.scope.lone_dash
        if self.ended or (taker and (lone or not word.startswith("-"))):
            return
        if word == "--":
            self.ended = True
        elif word.startswith("-") and not lone:
            self.walk_option(word)
        elif not (first and word.startswith("kivooption=")):
            self.walk_operand(word)

    def walk_option(self, word):
        _, name, _, value = split_option(word)
        option = self.scope.resolve(name)
        if option is None:
            return
        if option["kind"] == "action" and all(option is not a for a in self.actions):
            self.actions.append(option)
        if takes_value(option) and not value:
            self.taker = option

    def walk_operand(self, word):
        full = None if self.lost or self.operands else self.command_word(word)
        if full is not None:
            self.typed_words.append(full)
            self.enter(" ".join(self.typed_words))
        elif self.command or not self.commands():
            self.operands += 1
        else:
            self.lost = True

    def commands(self):
        return self.description.get("commands", [])

    def next_words(self):
        """The words with which a command goes on from here, with the commands they complete."""
        words, so_far = {}, self.typed_words
        for command in self.commands():
            parts = command["words"].split(" ")
            if parts[:len(so_far)] == so_far and len(parts) > len(so_far):
                complete = len(parts) == len(so_far) + 1
                word = parts[len(so_far)]
                words[word] = command if complete else words.get(word)
        return words

    def command_word(self, typed):
        """The next word of a command that a word stands for, in full or cut short."""
        words = self.next_words()
        if typed in words:
            return typed
        if typed == "" and words:
            raise Undecided("an empty word in place of a command's")
        fitting = [w for w in words if w.startswith(typed)]
        return fitting[0] if len(fitting) == 1 else None

    def enter(self, words):
        """Goes on with the options of a command if the words are a whole one."""
        for command in self.commands():
            if command["words"] == words:
                if any(a not in self.description["options"] for a in self.actions):
                    raise Undecided("an action of a shorter command was typed")
                self.command = command
                self.scope = Scope(self.description, command)
                return
        if self.actions and self.command:
            raise Undecided("an action of a shorter command was typed")
        self.command, self.scope = None, Scope(self.description)


def starting(words, typed, stem=""):
    return Offer(frozenset(stem + w for w in words if w.startswith(typed)))


def with_dashes(names, two_dashes):
    """For an empty word and for a dash alone: every name, with one dash or by `dashes`."""
    return frozenset(("--" if two_dashes and len(n) > 1 else "-") + n for n in names)


def offer_names(line, word):
    """Number 4: names for a word that begins with a dash."""
    names = line.scope.offered_names(line.actions)
    if word == "-":
        return Offer(with_dashes(names, line.scope.two_dashes))
    dashes, typed, _, _ = split_option(word)
    if dashes == "--" and line.scope.two_dashes:
        names = [n for n in names if len(n) > 1]
    return starting(names, typed, dashes)


def can_be_offered(option, value, separator):
    deprecated = [d["value"] for d in option.get("deprecated", [])]
    return value != "" and value not in deprecated and not any(map(is_control, value)) and \
        not (separator and separator in value)


def offer_values(option, typed, stem="", dashes_too=False):
    """The values of an option; `stem` stands before its value in the same word."""
    if option["type"] in ("none", "boolean"):
        return NOTHING
    separator = option["separator"]
    own_word = stem == ""
    if separator and separator in typed:
        items, typed = typed.rsplit(separator, 1)
        stem, own_word = stem + items + separator, False
    if option.get("allowed"):
        values = [v for v in option["allowed"] if can_be_offered(option, v, separator)]
        return starting([v for v in values if dashes_too or not own_word or v[0] != "-"],
                        typed, stem)
    hint = option.get("annotations", {}).get("hint", ["file"])[0]
    if option["type"] != "string" or hint == "none":
        return NOTHING
    return Offer(frozenset(), "folders" if hint == "directory" else "files", stem, typed)


def offer_operand(line, word, dashes_too=False):
    """Number 5: values of the operand; all names for an empty word where there is none."""
    option = line.scope.operand()
    if option is not None:
        goes = line.scope.goes(option, line.actions)
        return offer_values(option, word, dashes_too=dashes_too) if goes else NOTHING
    if word == "":
        return Offer(with_dashes(line.scope.offered_names(line.actions), line.scope.two_dashes))
    return NOTHING


def offer_after_end(line, word):
    """Number 1: what stands after "--"."""
    if line.scope.leftover == "kept":
        return Offer(frozenset(), "files", "", word)
    if line.scope.operand() is None:
        raise Undecided('after "--" where leftover arguments are operands, but there is none')
    return offer_operand(line, word, dashes_too=True)


def offer_after_equals(line, word):
    """Number 3: a value after "=" in the same word."""
    dashes, name, _, value = split_option(word)
    option = line.scope.resolve(name)
    if option is None:
        return NOTHING
    return offer_values(option, value, f"{dashes}{name}=")


def offer_word(line, word):
    """Number 5 for a tool of several commands."""
    next_words = starting(line.next_words(), word).words if not line.lost else frozenset()
    if not line.command:
        return Offer(next_words)
    if next_words and line.operands:
        raise Undecided("next words of a longer command after an operand of the shorter one")
    operand = offer_operand(line, word)
    if line.scope.operand() is None and word == "" and next_words:
        raise Undecided("next words of a longer command beside names for an empty word")
    return operand._replace(words=operand.words | next_words)


def offer(description, before, word):
    """What is offered for the word at the cursor, after the words before it."""
    line = Line(description, before)
    dash = word.startswith("-")
    value = dash and "=" in word
    if line.lost:
        names = dash and not value and not line.taker and not line.ended
        return offer_names(line, word) if names else NOTHING
    if line.ended:
        return offer_after_end(line, word)
    if line.taker:
        return NOTHING if dash else offer_values(line.taker, word)
    if value:
        return offer_after_equals(line, word)
    if dash:
        return offer_names(line, word)
    return offer_word(line, word) if line.commands() else offer_operand(line, word)


def squeezed(description):
    """A description as zsh and fish show it: white space and control characters as blanks."""
    return " ".join("".join(" " if is_control(c) else c for c in description).split())


def descriptions(description, before):
    """The description of every name that may be offered, without dashes."""
    scope = Line(description, before).scope
    return {name: squeezed(option["description"]) for name, option in scope.table.items()}
