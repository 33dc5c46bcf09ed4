"""Descriptions and command lines made by chance; the same seed makes the same ones."""

import random
import re

from building import command, declarations, describe, option

PARTS = ["a", "b", "c", "li", "list", "ab", "x", "-on", "st", "1", "A", "é"]
ODD_NAMES = ["a=b", "-ab", "a b", "", "x:y", "a@b", "a.b", "a\x01", "no-a", "a'b", "li%st"]
VALUES = ["fast", "fa", "slow", "Slow", "lines", "words", "é", "10", "x-y"]
ODD_VALUES = ["-ab", "", "a,b", "a:b", "a=b", "two words", "tab\there", "a'b", "a@b", "$HOME", "*"]
SEPARATORS = [None, None, ",", ",", ":", "@", "é", "+"]
TYPES = ["none", "boolean", "boolean", "integer", "double", "string", "string", "string", "other"]
TYPABLE = re.compile(r"[\w\-.,:@+/=%]*\Z")


class Maker:
    """Makes descriptions, and lines that suit them."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def chance(self, percent):
        return self.random.randrange(100) < percent

    def some(self, values, most):
        return [self.random.choice(values) for _ in range(self.random.randrange(most + 1))]

    def name(self, taken):
        """A name that is not among those taken, and neither is a no- form of it."""
        while True:
            name = "".join(self.some(PARTS, 3)) or self.random.choice(PARTS)
            if self.chance(8):
                name = self.random.choice(ODD_NAMES)
            forms = {name, "no-" + name, name.removeprefix("no-")}
            if not forms & taken:
                taken |= forms
                return name

    def values(self, made):
        if self.chance(50):
            chosen = self.some(VALUES, 6) + (self.some(ODD_VALUES, 3) if self.chance(40) else [])
            made["allowed"] = list(dict.fromkeys(chosen)) or ["only"]
            if self.chance(30):
                made["deprecated"] = [{"value": made["allowed"][-1], "replacement": "x"}]
        elif self.chance(30):
            hint = self.random.choice(["file", "directory", "none"])
            made.setdefault("annotations", {})["hint"] = [hint]

    def option(self, taken, actions, positional):
        kind = self.random.choice(["action", "modifier", "option"])
        type_ = self.random.choice(TYPES)
        if positional:
            kind, type_ = self.random.choice(["modifier", "option"]), "string"
        if kind == "action":
            type_ = self.random.choice(["none", "none", "string"])
        hidden = self.chance(10)
        made = option(*[self.name(taken) for _ in range(self.random.choice([1, 1, 1, 2, 3]))],
                      kind=kind, type_=type_, separator=self.random.choice(SEPARATORS),
                      section="kivo_hidden" if hidden else "", hidden=hidden,
                      positional=positional, description="About " + self.random.choice(PARTS))
        if type_ == "boolean" and not re.match(r"[^-\W]", made["names"][0]):
            made["type"] = "none"  # whether "no-" and an odd name can be typed is left open
        if kind == "action":
            actions.append(made["names"][0])
        if made["type"] not in ("none", "boolean"):
            self.values(made)
        if self.chance(5) and not positional:
            made.setdefault("annotations", {})["deprecated"] = ["gone"]
        return made

    def declarations(self, taken, operands):
        actions = []
        options = [self.option(taken, actions, False) for _ in range(self.random.randrange(9))]
        options += [self.option(taken, actions, True) for _ in range(operands)]
        self.random.shuffle(options)
        for made in options:
            if made["kind"] == "modifier":
                made["actions"] = [a for a in actions if self.chance(50)]
        together = [sorted(set(self.some(actions, 3))) for _ in range(2)] if actions else []
        return declarations(options, together=together,
                            leftoverArguments=self.random.choice(["positional", "kept"]),
                            dashArguments=self.random.choice(["positional", "options"]))

    def commands(self, taken, own):
        """Some have names of the tool's own options, but none that an own action has."""
        names = [n for o in own["options"] if o["kind"] == "action" for n in o["names"]]
        actions = {form for n in names for form in (n, "no-" + n, n.removeprefix("no-"))}
        words = ["a", "ab", "add", "a b", "a bc", "list", "list all", "list all now", "x y"]
        chosen = self.random.sample(words, self.random.randrange(1, 6))
        made = [command(w, **self.declarations(set(taken if self.chance(70) else actions),
                                               self.random.randrange(2))) for w in chosen]
        for each in made:
            self.cross(own, each)
        return made

    def cross(self, own, command_):
        """Lets lists of a command name actions of the tool itself, and the other way round."""
        sides = [[o["names"][0] for o in options if o["kind"] == "action"]
                 for options in (own["options"], command_["options"])]
        for part, actions in zip((own, command_), reversed(sides)):
            for listed in part["together"] + [o["actions"] for o in part["options"]
                                              if o["kind"] == "modifier"]:
                listed += [a for a in actions if a not in listed and self.chance(30)]

    def description(self, number):
        taken = set()
        with_commands = self.chance(35)
        made = describe(name=f"tool{number}")
        made.update(self.declarations(taken, 0 if with_commands
                                      else self.random.choice([0, 1, 1, 2])))
        if with_commands:
            made["commands"] = self.commands(taken, made)
        annotations = {key: [text] for key, text in (("dashes", "two"), ("loneDash", "operand"))
                       if self.chance(30)}
        return {**made, "annotations": annotations} if annotations else made

    def line(self, description):
        """A command line, quoted where it must be, and with the cursor at its end."""
        parts = [description] + description.get("commands", [])
        options = [o for part in parts[:1] + [self.random.choice(parts)] for o in part["options"]]
        words = []
        if len(parts) > 1 and self.chance(75):
            words = self.random.choice(parts[1:])["words"].split(" ")
            words = [self.cut(w, 20) for w in words[:self.random.choice([1, 2, 3, 3])]]
        for _ in range(self.random.choice([0, 1, 1, 2, 3, 5])):
            at = self.random.randrange(len(words) + 1)
            words[at:at] = self.words(options)
        words = ["".join(c for c in w if c.isprintable()) for w in words]  # they are typed by keys
        return " ".join([quoted(w) for w in words] + [self.last(options, parts)])

    def cut(self, text, percent):
        return text[:self.random.randrange(len(text) + 1)] if self.chance(percent) else text

    def name_of(self, option_):
        name = self.random.choice(option_["names"])
        if option_["type"] == "boolean" and self.chance(30):
            name = "no-" + name
        return self.random.choice(["-", "--"]) + self.cut(name, 25)

    def value_of(self, option_):
        values = self.some(option_.get("allowed", VALUES), 3) or [self.random.choice(VALUES)]
        if not option_["separator"]:
            values = values[:1]
        return (option_["separator"] or "").join(values)

    def words(self, options):
        """Some words before the cursor's."""
        if not options or self.chance(20):
            return [self.random.choice(["--", "-", "", "x", "-zz", "fast", "a b", "kivooption=x",
                                        "a -ab b", "file1.txt", "---x", "-x=", "$(x)", "a;b"])]
        chosen = self.random.choice(options)
        name = self.name_of(chosen)
        if chosen["type"] in ("none", "boolean"):
            return [name]
        value = self.value_of(chosen)
        return self.random.choice([[f"{name}={value}"], [name, value], [name + "=", value], [name]])

    def last(self, options, parts):
        """The word at the cursor, as it is typed without quotes."""
        chosen = self.random.choice(options) if options else None
        forms = ["", "-", "--", "f", "su", "sub/"] if chosen is None else \
            ["", "-", "--", self.name_of(chosen), self.cut(self.value_of(chosen), 70),
             f"{self.name_of(chosen)}={self.cut(self.value_of(chosen), 70)}",
             self.random.choice(parts[-1].get("words", "a").split(" "))[:1], "fi"]
        word = self.random.choice(forms)
        while not TYPABLE.match(word) or word.startswith(("=", "%", "+")):
            word = word[:-1]
        return word


def quoted(word):
    """A word as all three shells read it; None of those made here has a quote and a backslash."""
    if word != "" and TYPABLE.match(word) and word[0] not in "=%+":
        return word
    return '"' + word.replace("$", "\\$") + '"' if "'" in word else f"'{word}'"
