"""The tools that the table of cases is about."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent.parent / "shared"))

from building import command, describe, option  # noqa: E402

HIDDEN = {"section": "kivo_hidden", "hidden": True}


def action(*names, **more):
    return option(*names, kind="action", type_="none", separator=None, **more)


def flag(*names, **more):
    return option(*names, type_="none", separator=None, **more)


def boolean(*names, **more):
    return option(*names, type_="boolean", separator=None, **more)


def text(*names, **more):
    more.setdefault("separator", None)
    return option(*names, **more)


def modifier(*names, actions, **more):
    return text(*names, kind="modifier", actions=actions, **more)


def without_operand(**more):
    """Actions, what goes with them, and no operand."""
    return describe([
        action("count", "c"), action("hash", "x", "checksum"), action("search", "z"),
        action("trace", **HIDDEN),
        modifier("what", "w", actions=["count"], separator=",",
                 allowed=["lines", "words", "octets", "bytes"],
                 deprecated=[{"value": "octets", "replacement": "bytes"}]),
        modifier("pattern", "p", actions=["search"], separator=","),
        modifier("basis", actions=["count", "hash"], type_="unsigned 64 bit or hex"),
        modifier("traced", actions=["trace"]),
        modifier("orphan", actions=[]),
        boolean("verbose", "v", "loud"),
        text("format", "f", allowed=["plain", "csv", "Pretty"]),
    ], name="bare", together=[["count", "hash", "nobody"], ["hash", "search"]], **more)


def with_operand(**more):
    """Options of every sort beside an operand that takes files."""
    return describe([
        flag("flag"), flag("fly"), flag("secret", "hush", **HIDDEN),
        boolean("colour", "C"), boolean("picked", allowed=["yes"], **HIDDEN),
        text("path"), text("paths", separator=","), text("folder", annotations={
            "hint": ["directory"]}),
        text("note", annotations={"hint": ["none", "file"]}),
        text("level", type_="integer"), text("ratio", type_="double", separator=","),
        text("odd", type_="other"), text("mode", allowed=["fast", "slow", "Fast"]),
        text("masked", allowed=["carnival", "casual"], **HIDDEN),
        text("signs", separator=",", allowed=["-minus", "plus", "", "a,b", "tab\there"]),
        text("sign", allowed=["-minus", "plus"]),
        text("stale", allowed=["old", "older"], annotations={"deprecated": ["use mode"]}),
        flag("a=b"), flag("a b"), flag("-dash"), flag("bell\a"), flag(""), flag("été"),
        text("file", "files", positional=True), text("second", positional=True,
                                                     allowed=["never"]),
    ], name="full", **more)


def with_values(**more):
    """The operand has values, and goes with one action alone."""
    return describe([
        action("paint"), action("list"),
        modifier("shade", actions=["paint"], separator=":", positional=True,
                 allowed=["red", "rose", "-blue"]),
        text("brush", allowed=["thin", "thick"]),
    ], name="paints", **more)


def smallest_name():
    """Of `list` (also `a1`) and `go` (also `b1`), the first one decides."""
    return describe([
        action("list", "a1"), action("go", "b1"), action("order", "ord", "orderly"),
        modifier("listed", actions=["list"]), modifier("gone", actions=["go"]),
    ], name="smallest", together=[["go", "list"]])


def two_dashes(**more):
    return describe([
        flag("all", "a"), boolean("wide", "w"), flag("é", "ü2"), boolean("q"),
        text("in", allowed=["here", "-"]),
        text("out", allowed=["here", "there"]),
    ], name="twice", annotations={"dashes": ["two", "one"], **more})


def lone_dash():
    """A dash alone is a value and an operand."""
    return describe([
        action("read"), action("write"), modifier("written", actions=["write"]),
        text("in", allowed=["here", "-"]), text("rest", positional=True, allowed=["x", "-"]),
    ], name="lone", annotations={"loneDash": ["operand"]})


def one_name():
    return describe([text("only", allowed=["here"]), flag("-dash")], name="one")


def no_forms():
    """A name begins like the "no-" form of another one."""
    return describe([boolean("verbose", "loud"), text("no-late", allowed=["here"])], name="forms")


def words_alike():
    """A word of a command is the beginning of another one."""
    return describe([], name="alike", commands=[
        command("list", [flag("short")]), command("listing", [flag("long")])])


def with_commands(**more):
    """Some commands begin alike, and one is the beginning of another."""
    return describe([
        boolean("quiet", "q"), text("config", allowed=["home", "work"]), flag("dry"),
    ], name="many", commands=[
        command("remote", [text("which", positional=True, allowed=["origin", "other"]),
                           flag("long")]),
        command("remote add", [text("url", positional=True, allowed=["near", "far"]),
                               flag("force"), text("dry", allowed=["humid", "arid"])]),
        command("remote adopt", []),
        command("rename", [text("old", positional=True), flag("config", **HIDDEN)]),
        command("stash pop", [flag("index")]), command("stash push", []),
        command("status", [flag("short")], leftoverArguments="kept"),
    ], **more)


def dotted_names():
    """A name that would fit another one if it were a pattern."""
    return describe([text("axb", allowed=["wrong"]), text("a.b", allowed=["right"])],
                    name="dotted")


def shared_by_commands():
    """Actions and an operand of the tool itself, beside those of its commands."""
    return describe([
        action("one"), action("two"), text("where", positional=True, allowed=["here", "there"]),
    ], name="shared", together=[["one", "two"]], commands=[
        command("run", [action("three"), action("four")], together=[["four", "three"]]),
        command("stop", [text("when", positional=True, allowed=["now", "then"])])])


def crossing_commands():
    """Lists of actions that name those of a command, and those of the tool itself."""
    return describe([action("one"), modifier("loud", actions=["three"])], name="crossing",
                    together=[["one", "three"]], commands=[
        command("run", [action("three"), action("two"), modifier("deep", actions=["one"])]),
        command("walk", [action("three")], together=[["one", "three"]])])


def half_of_longer():
    """A command, and longer ones of which it is not yet the next to last word."""
    return describe([flag("own")], name="half", commands=[
        command("remote", [text("origin", positional=True, allowed=["origin"]), flag("long")]),
        command("remote add url", [flag("url")]), command("remote add file", [])])


def names_of_styles(**more):
    return describe([flag("longs"), flag("longer"), flag("both"), flag("bothx"), flag("l")],
                    name="styles", **more)


def longer_after_kept():
    """A command that keeps words after "--", and is the beginning of a longer one."""
    return describe([], name="kept", commands=[
        command("list", [], leftoverArguments="kept"), command("list all", [])])


def same_form():
    """A name that is also the "no-" form of an option declared later."""
    return describe([
        action("walk"), action("run"), modifier("no-x", actions=["walk"], allowed=["here"]),
        boolean("x"),
    ], name="same")


FILES, FOLDERS, NOTHING = object(), object(), ""

BARE = without_operand()
BARE_KEPT = without_operand(leftoverArguments="kept")
FULL = with_operand()
FULL_KEPT = with_operand(leftoverArguments="kept")
PAINTS = with_values()
SMALLEST = smallest_name()
TWICE = two_dashes()
TWICE_LONE = two_dashes(loneDash=["operand"])
LONE = lone_dash()
NOT_LONE = {key: field for key, field in LONE.items() if key != "annotations"}
MANY = with_commands()
MANY_LONE = with_commands(annotations={"loneDash": ["operand"]})
ONE = one_name()
FORMS = no_forms()
ALIKE = words_alike()
MANY_TWO = with_commands(annotations={"dashes": ["two"]})
DOTTED = dotted_names()
SHARED = shared_by_commands()
CROSSING = crossing_commands()
SAME = same_form()
KEPT = longer_after_kept()
HALF = half_of_longer()
STYLES = names_of_styles()
STYLES_TWO = names_of_styles(annotations={"dashes": ["two"]})
