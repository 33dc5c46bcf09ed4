"""Compares a text of a description with that of a page: white space is squeezed, and what stands
in the place of control characters is free."""

import re
import unicodedata

CONTROL = re.compile(r"[\x00-\x08\x0b-\x1f\x7f-\x9f]+")
GAP = ".{0,16}?"  # what may stand for control characters


def squeeze(text):
    return " ".join(text.split())


def normal(text):
    """White space squeezed, and characters composed: groff takes accents apart."""
    return unicodedata.normalize("NFC", squeeze(text))


def joined(text):
    """normal() text; a line may break after a hyphen, so no blank counts there."""
    return normal(text).replace("- ", "-")


def pattern(text, form_of=normal):
    """A regular expression that finds the text in form_of() text; empty for a text of blanks."""
    pieces = [form_of(piece) for piece in CONTROL.split(text)]
    return GAP.join(map(re.escape, pieces)) if any(pieces) else ""


def holds(page_text, text):
    """Whether the joined() text of a page has the text, to the letter."""
    if not CONTROL.search(text):
        return joined(text) in page_text
    return re.search(pattern(text, joined), page_text) is not None


def holds_word(page_text, text):
    """Whether the normal() text of a page has the text, and not as a part of a longer name."""
    found = pattern(text)
    begin = r"(?<![\w-])"
    end = r"(?![\w-])" if re.search(r"\w$", found) else ""
    return not found or re.search(begin + found + end, page_text) is not None
