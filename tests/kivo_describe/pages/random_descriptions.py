"""Valid descriptions made by chance; the same seed makes the same ones."""

import random
import re

from building import declarations, option, section
from common import SECRET
from material import EMPTY, HOSTILE, TYPES


class Maker:
    """Makes random descriptions that are valid; every text has a word of its own."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.words = 0

    def chance(self, percent):
        return self.random.randrange(100) < percent

    def word(self, secret=False):
        self.words += 1
        return f"{SECRET if secret else 'w'}{self.words}q"

    def text(self, secret=False):
        if not secret and self.chance(6):
            return self.random.choice(EMPTY)
        parts = [self.random.choice(HOSTILE) for _ in range(self.random.randrange(5))]
        if sum(map(len, parts)) > 500:  # one word has to fit into a line of WIDTH columns
            parts = parts[:1]
        parts.insert(self.random.randrange(len(parts) + 1), self.word(secret))
        gaps = [self.random.choice([" ", " ", "\n", "\n\n", "  ", "\t", "", "-"]) for _ in parts]
        return "".join(g + p for g, p in zip([""] + gaps, parts))

    def name(self, secret=False):
        name = self.word(secret)
        if self.chance(40):
            name += self.random.choice(HOSTILE)
        if self.chance(10):
            name = self.random.choice(HOSTILE) + name
        return name

    def annotations(self, keys, secret):
        chosen = [k for k in keys if self.chance(25)]
        return {k: [self.text(secret)] + [self.text(True) for _ in range(self.chance(30))]
                for k in chosen}

    def values(self, made, secret):
        """Adds allowed and deprecated values and a default."""
        if self.chance(30):
            made["allowed"] = [self.text(secret) for _ in range(self.random.randrange(1, 5))]
        if self.chance(15):
            made["deprecated"] = [{"value": self.text(secret), "replacement": self.text(secret)}]
        if self.chance(30):
            made["default"] = self.chance(50) if made["type"] == "boolean" \
                else self.text(secret) or "0"

    def option(self, sections, actions, taken):
        place = self.random.choice(sections)
        secret = place["hidden"]
        kind = self.random.choice(["action", "modifier", "option", "option"])
        names = [self.name(secret) for _ in range(self.random.choice([1, 1, 2, 3]))]
        letter = self.random.choice("abcdefghijkl")
        if not secret and letter not in taken and self.chance(20):
            names.append(letter)
            taken.add(letter)
        made = option(*names, kind=kind, type_=self.random.choice(TYPES),
                      description=self.text(secret), section=place["heading"], hidden=secret,
                      separator=self.random.choice([None, ",", ":", "|", "é"]),
                      positional=self.chance(12))
        if kind == "modifier":
            made["actions"] = [a for a in actions if self.chance(50)]
        elif kind == "action":
            actions.append(names[0])
        self.values(made, secret)
        keys = ("placeholder", "range", "environment", "required", "shownDefault", "deprecated",
                "unheard")
        self.annotate(made, self.annotations(keys, secret))
        return made

    def annotate(self, made, annotations):
        """Adds the annotations, and hides what they take the place of."""
        if "placeholder" in annotations and "allowed" in made:
            annotations["placeholder"] = [self.text(True)]
        if "shownDefault" in annotations and isinstance(made.get("default"), str):
            made["default"] = self.text(True)
        if annotations:
            made["annotations"] = annotations

    def declarations(self):
        sections = [section(), section("kivo_hidden", self.text(True), True)]
        sections += [section(self.word() + self.text(), self.text())
                     for _ in range(self.random.randrange(4))]
        self.random.shuffle(sections)
        actions, taken = [], set()
        options = [self.option(sections, actions, taken) for _ in range(self.random.randrange(9))]
        more = {"together": [sorted(actions)]} if actions else {}
        return declarations(options, sections, **more)

    def tool_annotations(self, secret=False):
        annotations = self.annotations(("footer", "unheard"), secret)
        if self.chance(30):
            annotations["dashes"] = ["two"]
        if self.chance(40):
            annotations["exitStatus"] = [f"{number} {self.text(secret)}" for number in
                                         self.random.sample(range(256), 3)]
        return {"annotations": annotations} if annotations else {}

    def description(self):
        made = {"schema": "kivo-description/1",
                "tool": {"name": "t" + self.word(), "version": self.text(), "summary": self.text()},
                **self.declarations(), **self.tool_annotations()}
        if self.chance(30):
            made["commands"] = [
                {"words": self.words_of_command(), "summary": self.text(), **self.declarations(),
                 **self.tool_annotations(True)} for _ in range(self.random.randrange(1, 5))]
        return made

    def words_of_command(self):
        endings = [f for f in HOSTILE if not re.search(r"[\s\x00-\x1f\x7f-\x9f]", f)]
        return " ".join(self.word() + (self.random.choice(endings) if self.chance(30) else "")
                        for _ in range(self.random.randrange(1, 4)))
