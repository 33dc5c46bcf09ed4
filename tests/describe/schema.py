"""Checks the schema of descriptions, and the descriptions of tools with it.

  schema.py SCHEMA TOOL...

Each tool must describe itself in a form that the schema accepts. Each change of a description that
breaks a rule must be refused.
"""
import copy
import json
import subprocess
import sys

import jsonschema


def without_repeated_keys(pairs):
    keys = [key for key, _ in pairs]
    assert len(keys) == len(set(keys)), f"a key stands twice: {keys}"
    return dict(pairs)


def described(tool):
    run = subprocess.run([tool, "kivooption=kivodescribe=json"], capture_output=True, check=True)
    assert run.stderr == b"", run.stderr
    assert run.stdout.endswith(b"}\n"), run.stdout[-20:]
    return json.loads(run.stdout.decode("utf-8"), object_pairs_hook=without_repeated_keys)


OPTION = {"names": ["a"], "kind": "option", "type": "string", "description": "", "section": "",
          "hidden": False, "separator": ",", "positional": False}
DECLARATIONS = {"sections": [{"heading": "", "introduction": "", "hidden": False}],
                "options": [OPTION], "together": [["a", "b"]], "unknownArguments": "error",
                "dashArguments": "options", "leftoverArguments": "kept"}
COMMAND = {"words": "remote add", "summary": "", **DECLARATIONS}
WHOLE = {"schema": "kivo-description/1", "tool": {"name": "", "version": "", "summary": ""},
         **DECLARATIONS, "commands": [COMMAND], "annotations": {"footer": ["Bye."]}}


def changed(path, value):
    """A copy of WHOLE with another value at the path; without the last key if there is no value."""
    copied = copy.deepcopy(WHOLE)
    place = copied
    for step in path[:-1]:
        place = place[step]
    if value is None:
        del place[path[-1]]
    else:
        place[path[-1]] = value
    return copied


def required_fields():
    for field in ("schema", "tool", *DECLARATIONS):
        yield (field,)
    for field in ("words", "summary", *DECLARATIONS):
        yield ("commands", 0, field)
    for field in ("name", "version", "summary"):
        yield ("tool", field)
    for field in ("heading", "introduction", "hidden"):
        yield ("sections", 0, field)
    for field in OPTION:
        yield ("options", 0, field)


ALLOWED = [
    ((("options", 0, "separator")), "\ufffd"),
    (("options", 0, "default"), "x"),
    (("options", 0), {**OPTION, "type": "boolean", "default": False}),
    (("options", 0), {**OPTION, "kind": "modifier", "actions": []}),
    (("options", 0), {**OPTION, "deprecated": [{"value": "a", "replacement": ""}]}),
    (("options", 0, "annotations"), {"range": ["1 to 9", ""]}),
    (("options", 0, "later"), 7),
    (("later",), {"a": None}),
]
REFUSED = [
    (("schema",), "kivo-description/10"),
    (("options", 0, "names"), []),
    (("options", 0, "names"), "a"),
    (("options", 0, "kind"), "command"),
    (("options", 0, "kind"), "modifier"),
    (("options", 0, "type"), "float"),
    (("options", 0, "separator"), ""),
    (("options", 0, "separator"), ",,"),
    (("options", 0, "actions"), ["a"]),
    (("options", 0, "allowed"), []),
    (("options", 0, "allowed"), [1]),
    (("options", 0, "default"), ""),
    (("options", 0, "default"), True),
    (("options", 0), {**OPTION, "type": "boolean", "default": "true"}),
    (("options", 0), {**OPTION, "deprecated": [{"value": "a"}]}),
    (("options", 0, "annotations"), {}),
    (("options", 0, "annotations"), {"range": "1 to 9"}),
    (("together",), [["a", "a"]]),
    (("unknownArguments",), "dropped"),
    (("dashArguments",), "kept"),
    (("leftoverArguments",), "error"),
    (("commands",), []),
    (("commands", 0, "words"), ""),
    (("commands", 0, "words"), "remote  add"),
    (("commands", 0, "words"), "remote -add"),
    (("commands", 0, "commands"), [COMMAND]),
]


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        schema = json.load(file, object_pairs_hook=without_repeated_keys)
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    for tool in sys.argv[2:]:
        validator.validate(described(tool))
    validator.validate(WHOLE)
    for path, value in ALLOWED:
        validator.validate(changed(path, value))
    refused = REFUSED + [(path, None) for path in required_fields()]
    for path, value in refused:
        assert not validator.is_valid(changed(path, value)), (path, value)
    print(f"{len(sys.argv) - 2} tools described; {len(refused)} mistakes refused")


main()
