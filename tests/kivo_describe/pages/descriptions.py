"""Hand-made descriptions."""

import itertools
import re

from building import command, declarations, describe, option, section
from common import SECRET
from material import EMPTY, HOSTILE, TYPES


def every_kind():
    """One option of each kind and type, with and without the fields that may be left out."""
    options = [
        option("count", "c", kind="action", type_="none", description="Counts alpha1."),
        option("list", kind="action", type_="none", description="Lists alpha2."),
        option("verbose", "v", type_="boolean", description="Says more alpha3.", default=False),
        option("colour", type_="boolean", description="Uses colours alpha4.", default=True),
        option("what", kind="modifier", description="What alpha5.", actions=["count", "list"],
               allowed=["lines", "olden77", "words"], default="words77",
               deprecated=[{"value": "olden77", "replacement": "newer78"}]),
        option("bare", kind="modifier", description="", actions=[]),
        option("option-file", description="Reads options alpha6.", section="Common options"),
        option("input", "i", description="The input alpha7.", positional=True, default="in79"),
    ]
    options += [option(f"type{i}", type_=t, description=f"Of the type number beta{i}.")
                for i, t in enumerate(TYPES)]
    return describe(options, [section(), section("Common options", "These are common gamma1.")])


def hidden_things():
    """Hidden options of all kinds, and modifiers that go with hidden actions."""
    hidden = {"section": "kivo_hidden", "hidden": True}
    options = [
        option("shown", kind="action", type_="none", description="A shown action delta1."),
        option(SECRET + "1", SECRET + "2", kind="action", type_="none",
               description=SECRET + "3 text", **hidden),
        option("both", kind="modifier", description="Goes with both delta2.",
               actions=["shown", SECRET + "1"]),
        option("lonely", kind="modifier", description="Goes with a hidden one delta3.",
               actions=[SECRET + "1"]),
        option(SECRET + "4", type_="boolean", description=SECRET + "5", default=True, **hidden),
        option(SECRET + "6", description=SECRET + "7", allowed=[SECRET + "8"], default=SECRET + "9",
               deprecated=[{"value": SECRET + "10", "replacement": SECRET + "11"}],
               annotations={"placeholder": [SECRET + "12"], "range": [SECRET + "13"],
                            "environment": [SECRET + "14"], "required": [SECRET + "15"],
                            "shownDefault": [SECRET + "16"], "deprecated": [SECRET + "17"]},
               **hidden),
        option(SECRET + "18", description=SECRET + "19", positional=True, **hidden),
    ]
    sections = [section(), section("kivo_hidden", SECRET + "20 introduction", True)]
    return describe(options, sections, together=[["shown", SECRET + "1"]])


def all_annotations():
    """Every annotation that has a meaning, with a second text that does not count."""
    def second(number, text):
        return [text, f"{SECRET}{number}"]
    options = [
        option("file", description="A file eps1.", annotations={
            "placeholder": second(1, "PLACE1"), "environment": second(2, "KIVO_ENV_1"),
            "required": second(3, "yes"), "hint": second(4, "file"), "unheard": ["of"]}),
        option("times", type_="unsigned integer", description="How often eps2.",
               default=SECRET + "5", annotations={
                   "range": second(6, "1 to 12"), "shownDefault": second(7, "shown default 1")}),
        option("mode", description="A mode eps3.", allowed=["fast1", "slow1"],
               annotations={"placeholder": [SECRET + "8"]}),
        option("stale", "s", description="Out of use eps4.",
               annotations={"deprecated": second(9, "Use the newer1 one.")}),
        option("go", kind="action", type_="none", description="Goes eps5.",
               annotations={"required": ["x"], "environment": ["KIVO_GO"]}),
        option("in", description="Operand eps6.", positional=True,
               annotations={"placeholder": ["PATH1"], "environment": ["KIVO_IN"]}),
    ]
    return describe(options, annotations={
        "exitStatus": ["10 A file cannot be read1.", "2 " + SECRET + "10", "5 Five is told1.",
                       "2 Two is told anew1.", "100 The last1.", "9 Nine1."],
        "footer": second(11, "The footer1 is the last."), "dashes": second(12, "two"),
        "loneDash": second(13, "operand"), "unheard": ["of"]})


def sections_everywhere():
    """Sections without heading first, in the middle and last; sections without visible option."""
    def plain(name, heading, **more):
        return option(name, description=f"Text of {name}.", section=heading, **more)
    names = ["Zeta things", "", "Eta things", "Positional things", "Empty things"]
    sections = [section(h, f"Introduction {i}zeta." if h != "Empty things" else "")
                for i, h in enumerate(names)]
    options = [plain("za1", "Zeta things"), plain("za2", ""), plain("za3", "Eta things"),
               plain("za4", "Positional things", positional=True), plain("za5", "Zeta things"),
               plain("za6", "Eta things", kind="action"), plain("za7", "", kind="action"),
               plain("za8", "Eta things", kind="modifier", actions=["za7", "za6"])]
    turned = [sections[1:] + sections[:1], sections[::-1], sections]
    return [describe(options, s, name=f"turned{i}") for i, s in enumerate(turned)]


def positional_ones():
    """Several operands, one operand alone, a hidden one before a visible one."""
    several = [option("first", "f", description="First operand eta1.", positional=True,
                      allowed=["va1", "va2"], default="va2"),
               option("second", description="Second operand eta2.", positional=True,
                      type_="integer", separator=None, default="4711"),
               option("third", description="", positional=True)]
    hidden = option(SECRET + "1", description=SECRET + "2", section="kivo_hidden", hidden=True,
                    positional=True)
    alone = option("alone", description="Alone eta3.", section="Only operands", positional=True)
    return [describe(several, name="several"), describe([alone], name="alone"),
            describe([hidden], name="hiddenone"), describe([hidden] + several, name="mixed")]


def commands_of_all_sorts():
    """A tool of several commands, some of whose words begin alike."""
    own = [option("quiet", "q", type_="boolean", description="Says less theta1."),
           option("where", description="A folder theta2.", section="Places"),
           option(SECRET + "1", description=SECRET + "2", section="kivo_hidden", hidden=True)]
    add = [option("force", type_="none", description="Insists theta3."),
           option("url", description="The address theta4.", positional=True),
           option("dry", kind="action", type_="none", description="Only says theta5."),
           option(SECRET + "3", type_="none", description=SECRET + "4", hidden=True,
                  section="kivo_hidden")]
    listing = [option("long", "l", type_="boolean", description="All columns theta6.",
                      section="Columns of it")]
    ignored = {"dashes": ["two"], "footer": [SECRET + "5"], "exitStatus": ["11 " + SECRET + "6"],
               "loneDash": ["operand"]}
    commands = [
        command("remote add", add, summary="Adds one iota1.", annotations=ignored),
        command("remote", listing, [section("Columns of it", "Which columns iota2.")],
                summary="Lists them iota3."),
        command("status", summary=""), command("add", summary="Adds *all* of .them iota4."),
        command("a*b_c* `x` \\fB|.TH", [option("zed", description="Zed theta7.")])]
    sections = [section(), section("Places", "Where iota5."),
                section("kivo_hidden", SECRET + "7", True)]
    return describe(own, sections, commands=commands,
                    annotations={"exitStatus": ["12 Twelve1."], "footer": ["Commands end1."]})


def two_dashes():
    """The annotation `dashes` with names of one letter, also outside of ASCII."""
    options = [option("a", "all", type_="boolean", description="All kappa1."),
               option("wide", "w", type_="boolean", description="Wide kappa2.", default=True),
               option("é", "ü2", type_="none", description="Letters kappa3."),
               option("go-on", "g", kind="action", type_="none", description="Goes kappa4."),
               option("depth", kind="modifier", type_="integer", description="Depth kappa5.",
                      actions=["go-on"]),
               option("path", description="Path kappa6.", positional=True)]
    plain = describe(options, annotations={"dashes": ["two"]})
    other = describe(options, annotations={"dashes": ["one", "two"]}, name="onedash")
    commands = describe(options, annotations={"dashes": ["two"]}, name="sub", commands=[
        command("run", [option("run-it", "r", type_="boolean", description="Runs kappa7.")])])
    return [plain, other, commands]


def small_ones():
    """Nothing at all, only actions, only options, and texts that are empty."""
    empty = describe(version="", summary="", name="_")
    action = option("act", kind="action", type_="none", description="Acts lambda1.")
    other = option("opt", type_="none", description="Opts lambda2.")
    blank = [option(f"b{i}", description=text, section=text) for i, text in enumerate(EMPTY)]
    word = option("w", description="The word kivo_hidden is shown lambda3.")
    return [empty, describe(name="0.a+b-C_d"), describe([action]), describe([other]),
            describe([other, action]), describe([word]), describe([option("", "named")]),
            describe(blank, version=" ", summary=" \n", annotations={
                "footer": [""], "exitStatus": ["", " ", "x", "8", "5 "], "dashes": [""]}),
            describe(version="7%d 'a' \"b\" ^G 8"),
            describe([option("x", annotations={k: [""] for k in (
                "placeholder", "range", "environment", "required", "shownDefault", "hint",
                "deprecated")})])]


def with_and_without():
    """Each combination of texts that may be empty, as tools and as the commands of one tool."""
    commands, tools = [], []
    for number, there in enumerate(itertools.product((False, True), repeat=5)):
        summary, heading, introduction, description, positional = there
        place = f"Place {number}" if heading else ""
        one = option(f"pi{number}", section=place, positional=positional,
                     description=f"Text rho{number}." if description else "")
        places = [section(place, f"First sigma{number}." if introduction else "")]
        text = f"Does tau{number}." if summary else ""
        commands.append(command(f"do{number}", [one], places, summary=text))
        if number % 3 == 0:
            tools.append(describe([one], places, summary=text))
    return tools + [describe(commands=commands)]


def placed(fragment, word):
    """The fragment first, last, in the middle, and on a line of its own."""
    return [f"{fragment} {word}a", f"{word}b {fragment}", f"{word}c {fragment} {word}d",
            f"{word}e\n{fragment}\n{word}f"]


def placed_anew(fragment, word):
    """Endless texts, each with words of its own: the fragment first, last, in the middle..."""
    for number in itertools.count():
        yield placed(fragment, f"{word}y{number}")[number % 4]


def hostile_options(fragment, word, first, second):
    """Options of two sections that have the fragment in every kind of text."""
    text = placed_anew(fragment, word)
    some = [next(text) for _ in range(4)]
    table = [
        ("a", first, {"annotations": {"placeholder": [next(text)], "environment": [next(text)]}}),
        ("b", second, {"kind": "action", "annotations": {"deprecated": [next(text)]}}),
        ("c", first, {"allowed": some + [fragment],
                      "deprecated": [{"value": next(text), "replacement": next(text)}]}),
        ("d", second, {"kind": "modifier", "actions": [f"n{word}b"], "default": SECRET,
                       "annotations": {"range": [next(text)], "shownDefault": [next(text)]}}),
        ("e", second, {"kind": "modifier", "annotations": {"range": [next(text)]}}),
        ("f", second, {"description": fragment}),
        ("h", second, {"description": f"{fragment} {word}h", "type_": "none"}),
        ("g", first, {"positional": True, "annotations": {"placeholder": [next(text)]}}),
    ]
    return [option(f"n{word}{letter}", f"n{word}{letter}z{fragment}", section=heading,
                   **{"description": next(text), "default": next(text), **more})
            for letter, heading, more in table]


def hostile(fragments, tag):
    """A description that has each of the fragments in every kind of text."""
    options, sections = [], []
    for i, fragment in enumerate(fragments):
        first, second, _, line = placed(fragment, f"{tag}s{i}")
        sections += [section(first, line), section(second, f"{fragment} {tag}t{i}")]
        options += hostile_options(fragment, f"{tag}x{i}", first, second)
    _, last, middle, line = placed(fragments[0], tag)
    return describe(options, sections, version=f"7{last}", summary=f"{tag} {fragments[-1]}",
                    name=tag, annotations={"footer": [line], "exitStatus": [f"7 {middle}"]})


def hostile_commands(tag):
    """Hostile summaries, headings and footers of a tool of several commands."""
    chosen = [f for f in HOSTILE if f and not re.search(r"[\s\x00-\x1f\x7f-\x9f]", f)]
    commands = [command(f"w{i}{f}", [option(f"o{i}", description=placed(f, f"{tag}{i}")[3])],
                        summary=placed(f, f"{tag}{i}q")[i % 4]) for i, f in enumerate(chosen)]
    return describe([option("own", description="Own mu1.")], commands=commands, name=tag,
                    summary=".SH first", annotations={"footer": ["- last\n# mu2"]})


def fixtures():
    """All descriptions that are made by hand."""
    made = [every_kind(), hidden_things(), all_annotations(), commands_of_all_sorts()]
    made += sections_everywhere() + positional_ones() + two_dashes() + small_ones()
    made += with_and_without()
    for begin in range(0, len(HOSTILE), 8):
        made.append(hostile(HOSTILE[begin:begin + 8], f"hostile{begin}"))
    made += [hostile([f], f"first{i}") for i, f in enumerate(HOSTILE[3::17])]
    return made + [hostile_commands("hostcmd")]
