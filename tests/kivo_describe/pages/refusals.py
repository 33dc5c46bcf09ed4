"""Input that has to be refused with one line, and odd input that has to be accepted."""

import copy
import json
import os
from pathlib import Path

from building import command, describe, encoded, option, section
from common import FORMATS, LEFT_OUT
from descriptions import hostile
from material import HOSTILE
from programs import run


def small():
    """A description with every required field, as small as can be."""
    return describe(
        [option("a", kind="action", type_="none"),
         option("b", kind="modifier", actions=["a"], allowed=["c"],
                deprecated=[{"value": "d", "replacement": "c"}], default="c",
                annotations={"range": ["e"]})],
        [section()], together=[["a"]], annotations={"footer": ["f"]}, name="t",
        commands=[command("r s", [option("p", positional=True)], [section()], summary="g")])

DECLARED = {"sections": list, "options": list, "together": list, "unknownArguments": str,
            "dashArguments": str, "leftoverArguments": str}
SECTION = {"heading": str, "introduction": str, "hidden": bool}
OPTION = {"names": list, "kind": str, "type": str, "description": str, "section": str,
          "hidden": bool, "separator": (str, type(None)), "positional": bool}
SAMPLES = [None, True, 1, -0.5, "text", [], [1], [None], {}]


def required_fields():
    """(path, types) of every required field of small()."""
    yield ("schema",), str
    yield ("tool",), dict
    for key in ("name", "version", "summary"):
        yield ("tool", key), str
    for scope in ((), ("commands", 0)):
        for keys, table in (((), DECLARED), (("sections", 0), SECTION), (("options", 0), OPTION)):
            for key, types in table.items():
                yield scope + keys + (key,), types
    for key in ("words", "summary"):
        yield ("commands", 0, key), str
    yield ("options", 1, "actions"), list
    for key in ("value", "replacement"):
        yield ("options", 1, "deprecated", 0, key), str


def changed(description, path, value):
    """The description as JSON, with one field replaced or left out."""
    made = copy.deepcopy(description)
    *folders, last = path
    place = made
    for key in folders:
        place = place[key]
    if value is LEFT_OUT:
        del place[last]
    else:
        place[last] = value
    return encoded(made)


def wrong_fields():
    """Required fields left out, and with values of every wrong type."""
    for path, types in required_fields():
        name = ".".join(map(str, path))
        yield f"{name} left out", changed(small(), path, LEFT_OUT)
        for value in SAMPLES:
            fits = isinstance(value, types)
            if not fits or value in ([1], [None]):
                yield f"{name} is {value!r}", changed(small(), path, value)
    for path in ((), ("commands", 0)):
        yield "together holds numbers", changed(small(), path + ("together",), [[1]])


def wrong_meanings():
    """Schemas, kinds, names and commands that are refused."""
    for text in ("", "kivo-description/10", "kivo-description/2", "kivo-description/", "1",
                 "kivo-description/1 ", " kivo-description/1", "Kivo-description/1",
                 "kivo-description/1.0", "kivo-description/1\0", "kivo-description/01"):
        yield f"schema {text!r}", changed(small(), ("schema",), text)
    for text in ("", "Action", "actions", "none", "option ", "option\0", "modifie"):
        yield f"kind {text!r}", changed(small(), ("options", 0, "kind"), text)
    for path in (("options", 0), ("commands", 0, "options", 0)):
        yield "no names", changed(small(), path + ("names",), [])
    for text in ("", "-x", ".x", "+x", "a b", "a/b", "é", "aé", "a\n", "a\0", "a\"", "a$b", " a",
                 "a ", "..", "a*", "a'", "a\\", "a=b", "a,b", "a:b", "a@b", "a%", "a~", "\ufeffa"):
        yield f"tool name {text!r}", changed(small(), ("tool", "name"), text)
    for text in ("", " ", "-r", "r -s", "r  s", " r", "r ", "--", "r -", "r\ts", "r\ns", "-"):
        yield f"words {text!r}", changed(small(), ("commands", 0, "words"), text)
    one = small()["commands"][0]
    for value in ([], {}, "x", 1, True, [1], [None], [[]], [one, one], [one, {**one, "x": 1}]):
        yield f"commands {str(value)[:30]}", changed(small(), ("commands",), value)
    for value in ([], [one], {}, None):
        yield f"a command with commands {str(value)[:20]}", \
            changed(small(), ("commands", 0, "commands"), value)


def objects(value, path=()):
    """The paths of all objects in a description."""
    if isinstance(value, dict):
        yield path
    if isinstance(value, (dict, list)):
        for key, item in value.items() if isinstance(value, dict) else enumerate(value):
            yield from objects(item, path + (key,))


def twice():
    """A key that stands twice, in every object, also spelt with an escape."""
    made = {**small(), "unheard": {"of": [{"this": 1}]}}
    for path in objects(made):
        place = made
        for key in path:
            place = place[key]
        first = next(iter(place))
        marked = json.loads(changed(made, path + ("QQQ",), 0))
        text = json.dumps(marked)
        same = json.dumps(place[first])
        for spelt in (first, f"\\u{ord(first[0]):04x}" + first[1:]):
            yield f"{spelt} twice at {path}", \
                text.replace('"QQQ": 0', f'"{spelt}": {same}').encode()
    empty = json.dumps(small())[:-1]
    yield "an empty key twice", (empty + ', "": 1, "": 2}').encode()


def no_json():
    """Documents that are no JSON."""
    whole = encoded(small())
    for end in range(len(whole)):
        yield f"cut short after {end} bytes", whole[:end]
    for more in (b"x", b"{}", b"]", b"}", b",", b"\0", b"\0x", b"//", b"1", b'"', b"null", b"\x0b",
                 b"\xa0"):
        yield f"followed by {more!r}", whole + b"\n" + more
        yield f"followed by {more!r} at once", whole + more
    for value in ("01", "1.", ".5", "+1", "1e", "-", "0x10", "NaN", "Infinity", "tru", "nul",
                  "True", "'a'", "[1,]", "[,1]", "{,}", '{"a":1,}', '{"a"}', '{"a" 1}', "{a:1}",
                  '{1:1}', "[1 2]", "/**/1", "// c\n1", "", "1,,", "[1}", "{]", "--1", "1e+",
                  "-01", "\u00a01", "\f1", "[\v]", "1_0", "undefined", "truefalse", "\ufeff1"):
        yield f"an unheard field is {value!r}", whole[:-1] + f', "x": {value}}}'.encode()
    for code in list(range(32)):
        for place in (f'"x": "a{chr(code)}b"', f'"x{chr(code)}": 1'):
            yield f"raw control character {code}", whole[:-1] + f", {place}}}".encode()
    for escape in ("\\x", "\\u12", "\\uZZZZ", "\\'", "\\0", "\\U0041", "\\u+123", "\\u 123", "\\",
                   "\\u123g", "\\u-123", "\\ud800", "\\udc00", "\\ud800x", "\\ud800\\u0041",
                   "\\udc00\\ud800", "\\ud800\\ud800", "\\ud83d\\n", "\\a", "\\v", "\\u{41}"):
        for place in (f'"x": "{escape}"', f'"x{escape}y": 1', f'"x": "{escape} "'):
            yield f"escape {escape}", whole[:-1] + f", {place}}}".encode()
    for raw in (b"\x80", b"\xff", b"\xfe", b"\xc3", b"\xc0\x80", b"\xc1\xbf", b"\xe0\x80\x80",
                b"\xed\xa0\x80", b"\xed\xb0\x80", b"\xf0\x80\x80\x80", b"\xf4\x90\x80\x80",
                b"\xf5\x80\x80\x80", b"\xe2\x82", b"\xf0\x9f\x98", b"\xc3\xc3\xa9", b"\xf8\x88"):
        for text in (b'"x": "' + raw + b'"', b'"' + raw + b'": 1', b'"x": ' + raw):
            yield f"bytes {raw!r}", whole[:-1] + b", " + text + b"}"
    for data in (b"[]", b"1", b'"x"', b"null", b"true", b"{}", b"\0", b"\0" + whole, b" ", b"\n"):
        yield "of another kind", data
    yield "UTF-16", whole.decode().encode("utf-16")


def deep(count=100_000):
    """Open brackets, closed or not: (label, JSON, whether it is valid)."""
    whole = encoded(small())
    for opening, closing in ((b"[", b"]"), (b'{"a":', b"}"), (b'[{"a":', b"}]")):
        closed = opening * count + b"1" + closing * count
        for label, value, valid in (("open", opening * count, False), ("closed", closed, True),
                                    ("short of one", closed[:-1], False)):
            yield f"{label} {opening!r} alone", value, False
            yield f"{label} {opening!r}", whole[:-1] + b', "x": ' + value + b"}", valid


def accepted():
    """Unheard fields and odd, but valid JSON; the pages are those of small()."""
    whole = encoded(small())
    for value in ("1", "-0", "0.5", "1E+5", "1e999", "9" * 400, "null", "true", "[]", "{}", '""',
                  '"\\u0000\\ud83d\\ude00"', '[[1,{"a":{"a":1}}], "a"]', '"\x7f"', '{"":""}'):
        yield f"an unheard field {value}", whole[:-1] + f', "x": {value}}}'.encode()
    for path in objects(small()):
        inside_texts = path and path[-1] == "annotations"
        value = ["x"] if inside_texts else {"y": [1, None]}
        yield f"an unheard key at {path}", changed(small(), path + ("unheard",), value)


def refused(report, label, result, data):
    status, out, err = result
    good = status > 0 and not out and err.endswith(b"\n") and err.count(b"\n") == 1 and \
        b"\r" not in err and len(err) > 1
    report.check(good, "what cannot be used is refused with one line",
                 f"{label}: status {status}, {len(out)} bytes written, said {err[:200]!r}", data)


def optional_fields():
    """Fields that may be left out, with values of a wrong type or form."""
    one = ("options", 1)
    paths = [one + (key,) for key in ("allowed", "deprecated", "default", "annotations")]
    paths += [one + ("annotations", "range"), ("annotations",), ("annotations", "footer"),
              ("annotations", "exitStatus"), ("annotations", "dashes"),
              ("commands", 0, "annotations")]
    for path in paths:
        for value in SAMPLES + [[[]], [{}], {"range": 1}, {"range": []}, {"range": [1]}]:
            yield f"{path} is {value!r}", changed(small(), path, value)
    for key, values in (("type", ("", "text")), ("separator", ("", "ab", "\0")),
                        ("section", ("unheard",)), ("hidden", (True,)), ("default", (True,)),
                        ("names", (["b", "b"], ["a"], [""])), ("actions", (["unheard"],))):
        yield from ((f"{key} is {v!r}", changed(small(), one + (key,), v)) for v in values)
    yield "a byte order mark", b"\xef\xbb\xbf" + encoded(small())


def check_optional(path, report, pool):
    """Whether such a field is refused is open; the tool must not fail in another way."""
    def either(item):
        label, data = item
        for format_ in FORMATS:
            result = run([path, format_], data)
            if result[0] != 0:
                refused(report, label, result, data)
            else:
                report.check(result[1] and not result[2], "a page is written without complaint",
                             f"{label}: {result[2][:200]!r}", data)
    list(pool.map(either, optional_fields()))


def check_refusals(path, report, pool):
    """Documents that are refused and documents that are not."""
    documents = [*wrong_fields(), *wrong_meanings(), *twice(), *no_json()]
    documents += [(label, data) for label, data, valid in deep() if not valid]

    def refuse(item):
        number, (label, data) = item
        refused(report, label, run([path, FORMATS[number % 2]], data), data)
    list(pool.map(refuse, enumerate(documents)))
    base = {f: run([path, f], encoded(small())) for f in FORMATS}
    fine = [*accepted(), *((label, data) for label, data, valid in deep() if valid)]
    fine += [(f"tool name {name!r}", changed(small(), ("tool", "name"), name))
             for name in ("_", "0", "a+", "A.b-c_d+e", "9-", "a..")]

    def accept(item):
        label, data = item
        for format_ in FORMATS:
            got = run([path, format_], data)
            same = got[0] == 0 and got[1] and not got[2] if "name" in label else \
                got == base[format_] and got[0] == 0
            report.check(same, "unheard fields and odd layout are passed over",
                         f"{label}: status {got[0]}, {got[2][:200]!r}", data)
    list(pool.map(accept, fine))


def check_arguments(path, report, folder):
    """Command lines that are refused."""
    data = encoded(small())
    good = Path(folder) / "good.json"
    good.write_bytes(data)
    loop = Path(folder) / "loop"
    loop.symlink_to(loop)
    lines = [[], [str(good)], ["-html"], ["-man", "-markdown"], ["--man", "--markdown"],
             ["-bash", "-man"], ["-man", str(good), str(good)], ["-man", folder],
             ["-man", "/nonexistent/file"], ["-man", "/proc/self/mem"], ["-man", str(loop)],
             ["-man", "/dev/null"], ["-man", "x" * 5000], ["-man", ""], ["-man", "no\nfile"],
             ["-man", "no\r\nfile\n"], ["-no\nformat"], ["-unheard=a\nb", "-man"], ["-"],
             ["-man", "\x1b[31m\nred"], ["-man", str(good), "two\nlines"], ["no\nfile"],
             ["-man", os.fsdecode(b"\xff\n\xfe")], [""], ["-manx"], ["-man", str(good) + "/"]]
    with open(folder + "/empty", "w+b") as empty:
        refused(report, "empty standard input", run([path, "-man"], stdin=empty), b"")
    closed = ["/bin/sh", "-c", 'exec "$0" -man <&-', path]
    refused(report, "closed standard input", run(closed), b"")
    opened = os.open(folder, os.O_RDONLY)
    refused(report, "a folder as standard input", run([path, "-man"], stdin=opened), b"")
    os.close(opened)
    secret = Path(folder) / "secret.json"
    secret.write_bytes(data)
    secret.chmod(0)
    if os.geteuid() != 0:
        lines.append(["-man", str(secret)])
    for arguments in lines:
        refused(report, f"arguments {[a[:40] for a in arguments]}", run([path, *arguments], data),
                data)


def check_outputs(path, report):
    """Output that cannot be written."""
    for data in (encoded(small()), encoded(hostile(HOSTILE, "large"))):
        for format_ in FORMATS:
            with open("/dev/full", "wb") as full:
                refused(report, f"{format_} to /dev/full", run([path, format_], data, stdout=full),
                        data)
            shell = ["/bin/sh", "-c", 'exec "$0" "$1" >&-', path, format_]
            refused(report, f"{format_} to a closed output", run(shell, data), data)
            reading, writing = os.pipe()
            os.close(reading)
            with os.fdopen(writing, "wb") as pipe:
                refused(report, f"{format_} to a closed pipe",
                        run([path, format_], data, stdout=pipe), data)
