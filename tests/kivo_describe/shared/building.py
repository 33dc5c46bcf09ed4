"""Builds descriptions of tools."""

import json


def option(*names, kind="option", type_="string", description="", section="", hidden=False,
           separator=",", positional=False, **more):
    """An option of a description; `more` are the fields that are not always there."""
    if kind == "modifier":
        more.setdefault("actions", [])
    return {"names": list(names), "kind": kind, "type": type_, "description": description,
            "section": section, "hidden": hidden, "separator": separator,
            "positional": positional, **more}


def section(heading="", introduction="", hidden=False):
    return {"heading": heading, "introduction": introduction, "hidden": hidden}


def declarations(options=(), sections=None, **more):
    """The fields that a tool and a command have in common."""
    options = list(options)
    if sections is None:
        headings = dict.fromkeys(o["section"] for o in options)
        sections = [section(h, "", h == "kivo_hidden") for h in headings]
    return {"sections": sections, "options": options, "together": [], "unknownArguments": "error",
            "dashArguments": "options", "leftoverArguments": "positional", **more}


def describe(options=(), sections=None, name="kivotool", version="1.0", summary="Tries a page.",
             **more):
    return {"schema": "kivo-description/1",
            "tool": {"name": name, "version": version, "summary": summary},
            **declarations(options, sections, **more)}


def command(words, options=(), sections=None, summary="Does a thing.", **more):
    return {"words": words, "summary": summary, **declarations(options, sections, **more)}


def encoded(description):
    return json.dumps(description, ensure_ascii=False).encode()
