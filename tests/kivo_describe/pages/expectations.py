"""What a page of a description has to say, and what it must not say."""

import copy
import re

from common import STATUSES
from texts import CONTROL, squeeze


def annotation(owner, key):
    """The text that counts, or None."""
    texts = owner.get("annotations", {}).get(key)
    return texts[0] if texts else None


def form(name, two):
    return ("--" if two and len(name) > 1 else "-") + name


def forms(one, two):
    """The names of an option as a page shows them."""
    shown = [form(name, two) for name in one["names"] if squeeze(CONTROL.sub("", name))]
    if one["type"] == "boolean" and squeeze(CONTROL.sub("", one["names"][0])):
        shown.append(form("no-" + one["names"][0], two))
    return shown


def listed(declared):
    """The options that are neither hidden nor positional."""
    return [o for o in declared["options"] if not o["hidden"] and not o["positional"]]


def scopes(description):
    return [description] + description.get("commands", [])


def allowed(one):
    out = {pair["value"] for pair in one.get("deprecated", [])}
    return [value for value in one.get("allowed", []) if value not in out]


def facts(one):
    """(rule, text) for each text that the entry of a visible option has."""
    yield "every description is in the page", one["description"]
    for value in allowed(one):
        yield "every allowed value is in the page", value
    shown = annotation(one, "shownDefault")
    if shown is not None and "default" in one:
        yield "shownDefault is shown instead of the default", shown
    elif "default" in one:
        default = one["default"]
        yield "every default is in the page", \
            str(default).lower() if isinstance(default, bool) else default
    if "allowed" not in one and one["type"] not in ("none", "boolean"):
        yield "a placeholder stands for the value", annotation(one, "placeholder") or ""
    for key in ("range", "environment", "deprecated"):
        yield f"the annotation {key} is told", annotation(one, key) or ""
    if annotation(one, "required") is not None:
        yield "the word \"required\" is told", "required"


def texts_of(declared):
    """(rule, text) for each text that one tool or command has in a page."""
    for one in declared["options"]:
        if not one["hidden"]:
            yield from facts(one)
    used = {o["section"] for o in declared["options"] if not o["hidden"]}
    for place in declared["sections"]:
        if not place["hidden"] and place["heading"] in used:
            yield "headings of sections with a visible option are in the page", place["heading"]
            yield "introductions of sections with a visible option are in the page", \
                place["introduction"]


def exit_lines(description):
    """What EXIT STATUS says: the text by number, None for the generator's own."""
    lines = dict.fromkeys(STATUSES)
    for text in description.get("annotations", {}).get("exitStatus", []):
        found = re.match(r"([0-9]{1,3})\s(.*)", text, re.S)
        if found:
            lines[int(found[1])] = found[2]
    return lines


def expected(description):
    """(rule, text) for each text that both pages have."""
    for key in ("name", "version", "summary"):
        yield f"{key} of the tool is in the page", description["tool"][key]
    for declared in scopes(description):
        yield from texts_of(declared)
    for one in description.get("commands", []):
        yield "the words of every command are in the page", one["words"]
        yield "the summary of every command is in the page", one["summary"]
    yield "the footer is in the page", annotation(description, "footer") or ""
    for text in exit_lines(description).values():
        yield "the exitStatus lines are in the page", text or ""


def strings(value):
    """All texts in a value, keys of objects aside."""
    if isinstance(value, str):
        yield value
    elif isinstance(value, (list, dict)):
        for item in value.values() if isinstance(value, dict) else value:
            yield from strings(item)


def without_hidden(description, actions_too=True):
    """A copy without hidden options and sections; hidden actions stay if so asked."""
    pruned = copy.deepcopy(description)
    for declared in scopes(pruned):
        gone = [o for o in declared["options"] if o["hidden"] and
                (actions_too or (o["kind"] != "action" and not o["positional"]))]
        names = {name for o in gone if o["kind"] == "action" for name in o["names"]}
        declared["options"] = [o for o in declared["options"] if o not in gone]
        used = {o["section"] for o in declared["options"]}
        declared["sections"] = [s for s in declared["sections"]
                                if not s["hidden"] or s["heading"] in used]
        for one in declared["options"]:
            if "actions" in one:
                one["actions"] = [a for a in one["actions"] if a not in names]
    return pruned


def hidden_texts(description):
    """Texts and names that no page has, unless a visible text has them too."""
    two = annotation(description, "dashes") == "two"
    for declared in scopes(description):
        for one in declared["options"]:
            if one["hidden"]:
                yield from forms(one, two)
                yield one["description"]
        yield from (s["introduction"] for s in declared["sections"] if s["hidden"])
