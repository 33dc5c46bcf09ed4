"""The checks of one description, in both formats."""

import json
import random
import re
from pathlib import Path

from building import encoded
from common import EPOCH, FORMATS, LONG, SECRET, WIDTH
from expectations import (annotation, exit_lines, expected, forms, hidden_texts, listed, scopes,
    strings, texts_of, without_hidden)
from programs import environment, run
from rendering import Page, page_of_terminal, plain, read_markdown
from texts import CONTROL, holds, holds_word, joined, normal, pattern


class Case:
    """One description, its pages, and all checks of them."""

    def __init__(self, describe_path, report, description, folder, number):
        self.path, self.report, self.description = describe_path, report, description
        self.data = encoded(description)
        self.two = annotation(description, "dashes") == "two"
        self.visible = without_hidden(description)
        self.own_texts = list(strings(self.visible))
        self.all_texts = normal("\n".join(self.own_texts)) + "\n" + \
            normal("\n".join(CONTROL.sub("", t) for t in self.own_texts))
        self.all_joined = joined(self.all_texts)
        self.file = Path(folder) / f"{number}.1"

    def check(self, good, rule, detail=""):
        return self.report.check(good, rule, detail, self.data)

    def make(self, format_, data=None):
        status, out, err = run([self.path, format_], self.data if data is None else data,
                               environment(SOURCE_DATE_EPOCH=EPOCH))
        self.check(status == 0 and not err and out, "a valid description becomes a page",
                   f"{format_}: status {status}, {err[:200]!r}")
        return out

    def run(self):
        page, markdown = (self.make(format_) for format_ in FORMATS)
        if not page or not markdown:
            return
        self.file.write_bytes(page)
        for format_, out in zip(FORMATS, (page, markdown)):
            self.check_bytes(format_, out)
            self.check_variants(format_, out)
        self.check_manual(page)
        self.check_markdown(markdown)

    def check_bytes(self, format_, out):
        """No control characters; the text is UTF-8."""
        try:
            text = out.decode()
        except UnicodeDecodeError as error:
            self.check(False, "a page is UTF-8", f"{format_}: {error}")
            return
        odd = re.findall(r"[^\n\t -~\u00a0-\U0010ffff]", text)
        self.check(not odd, "no control character is in a page", f"{format_}: {odd[:5]}")
        self.check(SECRET not in text, "nothing hidden or replaced is in a page",
                   f"{format_}, its source")
        if "kivo_hidden" not in self.all_texts:
            self.check("kivo_hidden" not in text.replace("\\_", "_"),
                       "the word kivo_hidden is never written", f"{format_}, its source")

    def check_variants(self, format_, out):
        """Layout and order of keys, and what is hidden, change nothing."""
        self.check(self.make(format_, shuffled(self.description)) == out,
                   "order and layout of the keys change nothing", format_)
        fewer = encoded(without_hidden(self.description, actions_too=False))
        self.check(self.make(format_, fewer) == out,
                   "a page is the same without the hidden options", format_)

    def check_manual(self, page):
        status, out, err = run(["mandoc", "-T", "utf8", "-O", f"width={WIDTH}", str(self.file)])
        self.check(status == 0 and not err, "mandoc renders the page", repr(err[:200]))
        rendered = page_of_terminal(out.decode())
        self.check_texts("mandoc", rendered)
        self.check_manual_form(page.decode(errors="replace"), rendered)
        self.check_exit_status(rendered)
        self.check_operands("mandoc", rendered)
        self.check_footer("mandoc", rendered.body())
        self.check_commands("mandoc", rendered)
        self.check_man(rendered.title())

    def check_man(self, title):
        """The same page as man shows it."""
        env = environment(MANWIDTH=WIDTH, MAN_KEEP_FORMATTING="1", HOME="/")
        viewer = ["man", "--warnings", "--nh", "--nj", "-l", str(self.file)]
        status, out, err = run(viewer, env=env)
        self.check(status == 0 and not err, "man --warnings has nothing to say", repr(err[:200]))
        page = Page(plain(out.decode(errors="replace")).split("\n"), [])
        self.check_texts("man", page)
        if len(title) < 300:  # the parts of a longer one overlap
            self.check(sorted(page.title().split()) == sorted(title.split()),
                       "man shows the same title line as mandoc",
                       f"{page.title()!r}, not {title!r}")
        if all(len(word) < LONG for text in self.own_texts for word in text.split()):
            err = run(viewer, env={**env, "MANWIDTH": "80"})[2]
            self.check(not err, "man --warnings has nothing to say", f"80 columns: {err[:200]!r}")

    def check_markdown(self, markdown):
        reader = read_markdown(markdown)
        page = Page(reader.lines, reader.headings)
        self.check(not reader.odd, "rendered Markdown has plain elements only",
                   f"{reader.odd[:5]}")
        first = page.headings[0][1] if page.headings else ""
        self.check(reader.elements[:1] and re.fullmatch("h[1-6]", reader.elements[0]) and
                   self.description["tool"]["name"] in first,
                   "Markdown begins with a heading that has the name of the tool", first)
        self.check_texts("Markdown", page)
        self.check_operands("Markdown", page)
        self.check_footer("Markdown", page.text)
        self.check_commands("Markdown", page)

    def check_texts(self, renderer, page):
        """What has to be in a page, and what must not be."""
        for rule, text in expected(self.description):
            self.check(holds(page.joined, text), rule, f"{renderer}: {text!r}")
        for declared in scopes(self.description):
            for one in listed(declared):
                for shown in forms(one, self.two):
                    self.check(holds_word(page.text, shown),
                               "every visible name is in the page with its dash",
                               f"{renderer}: {shown!r}")
        self.check_absent(renderer, page)
        self.check_dashes(renderer, page)

    def check_absent(self, renderer, page):
        found = re.findall(SECRET + r"\S*", page.text)
        self.check(not found, "nothing hidden or replaced is in a page",
                   f"{renderer}: {found[:5]}")
        for text in hidden_texts(self.description):
            if len(text) > 4 and not holds(self.all_joined, text):
                self.check(not holds_word(page.text, text), "nothing hidden is in a page",
                           f"{renderer}: {text!r}")

    def check_dashes(self, renderer, page):
        """Whatever looks like an option is one, or comes from a text of the tool."""
        known = [pattern(f) for d in scopes(self.visible) for o in d["options"]
                 for f in forms(o, self.two)]
        known = re.compile("|".join(f for f in known if f) or r"(?!)")
        for found in re.finditer(r"(?:^|(?<=[\s\[(|{<\"']))(-{1,2}\w[\w-]*)", page.text):
            good = known.match(page.text, found.start()) or found[1] in self.all_texts
            self.check(good, "what looks like an option is one",
                       f"{renderer}: {page.text[max(0, found.start() - 30):found.end() + 20]!r}")

    def check_operands(self, renderer, page):
        """Positional options are not listed among the options."""
        for title in ("actions", "options"):
            found = page.find(title)
            if not found:
                continue
            text = page.part(*found[1:])
            for one in self.visible["options"]:
                for shown in forms(one, self.two) if one["positional"] else []:
                    if shown not in self.all_texts:
                        self.check(not holds_word(text, shown),
                                   "a positional option is not listed among the options",
                                   f"{renderer}: {shown!r}")

    def check_footer(self, renderer, body):
        text = annotation(self.description, "footer")
        if text is not None and pattern(text):
            self.check(re.search(pattern(text) + "$", body),
                       "the footer is the last paragraph",
                       f"{renderer}: {body[-100:]!r}, not {text!r}")

    def check_manual_form(self, source, page):
        """Headings and their order, title line, date, and dashes in the source."""
        name = self.description["tool"]["name"]
        self.check(page.lines[0].casefold().startswith(f"{name}(1)".casefold()),
                   "the manual page is of section 1", page.lines[0][:80])
        self.check(page.find("NAME") and page.headings[0][1] == "NAME",
                   "the first heading is NAME", str(page.headings[:1]))
        self.check("2001-09-09" in page.title(), "the date is the day of SOURCE_DATE_EPOCH",
                   page.title())
        self.check_headings(page)
        for declared in scopes(self.description):
            for one in listed(declared):
                for shown in forms(one, self.two):
                    if re.fullmatch(r"[A-Za-z0-9-]+", shown):
                        written = shown.replace("-", "\\-")
                        self.check(written in source, "dashes of names are written \\-", shown)

    def check_headings(self, page):
        kinds = [o["kind"] for o in listed(self.description)]
        any_other = any(o["kind"] != "action" for o in self.visible["options"])
        any_action = any(o["kind"] == "action" for d in scopes(self.visible) for o in d["options"])
        many = "commands" in self.description
        wanted = ["NAME", "SYNOPSIS", "DESCRIPTION"] + ["COMMANDS"] * many
        wanted += ["ACTIONS"] * ("action" in kinds and not many)
        wanted += ["OPTIONS"] * any(k != "action" for k in kinds) + ["EXIT STATUS"]
        titles = [text for level, text, _ in page.headings if level == 1]
        found = [title for title in titles if title in wanted]
        self.check(found == wanted, "the headings stand in their order", f"{titles}, not {wanted}")
        if not any_action:
            self.check("ACTIONS" not in titles, "ACTIONS only if a visible option is one", "")
        if not any_other and not many:
            self.check("OPTIONS" not in titles, "OPTIONS only if a visible option is none", "")
        for place in self.visible["sections"]:
            heading = place["heading"]
            used = any(o["section"] == heading for o in listed(self.visible))
            if used and pattern(heading):
                subs = [normal(text) for level, text, _ in page.headings if level == 2]
                self.check(any(re.fullmatch(pattern(heading), s) for s in subs),
                           "sections are subheadings", repr(heading))

    def check_exit_status(self, page):
        """One line a status, in the order of their numbers."""
        found = page.find("EXIT STATUS")
        entries = []
        for line in page.lines[found[1] + 1:found[2]] if found else []:
            number = re.match(r" +([0-9]+)(?=\s|$)(.*)", line)
            if number:
                entries.append([int(number[1]), number[2]])
            elif entries:
                entries[-1][1] += "\n" + line
        numbers = [number for number, _ in entries]
        wanted = exit_lines(self.description)
        self.check([n for n in numbers if n in wanted] == sorted(wanted),
                   "EXIT STATUS has each number at the beginning of a line, in order",
                   f"{numbers}, not {sorted(wanted)}")
        texts = dict(entries)
        for number, text in wanted.items():
            told = normal(texts.get(number, ""))
            good = told if text is None else re.match(pattern(text), told)
            self.check(good, "EXIT STATUS tells of each number",
                       f"{number}: {told!r}, not {text!r}")

    def check_commands(self, renderer, page):
        """COMMANDS with a part for each command, its options in that part."""
        commands = self.description.get("commands")
        if not commands:
            return
        whole = page.find("COMMANDS")
        if not self.check(whole, "there is a section COMMANDS", renderer):
            return
        begins, at = [], whole[1]
        for one in commands:
            at = self.heading_of(page, one["words"], at, whole)
            if not self.check(at, "each command has a subheading, in order",
                              f"{renderer}: {one['words']!r}"):
                return
            begins.append(at)
        for one, begin, end in zip(commands, begins, begins[1:] + [whole[2]]):
            self.check_command(renderer, one, page.part(begin, end))
        self.check_synopsis(renderer, page)
        rest = page.part(whole[2], None)
        for one in listed(self.description):
            for shown in forms(one, self.two):
                self.check(holds_word(rest, shown), "the tool's own options follow COMMANDS",
                           f"{renderer}: {shown!r}")

    def heading_of(self, page, words, after, whole):
        """The line of the next subheading that ends with the words of a command."""
        for level, text, line in page.headings:
            if after < line < whole[2] and level > whole[0] and \
                    re.fullmatch(f"(.* )?{pattern(words)}", normal(text)):
                return line
        return None

    def check_command(self, renderer, one, text):
        rule = "a command has its summary, options, operands and sections in its part"
        for what, wanted in [("summary", one["summary"])] + list(texts_of(one)):
            self.check(holds(joined(text), wanted), rule,
                       f"{renderer}: {one['words']!r}: {what}: {wanted!r}")
        for listed_one in listed(one):
            for shown in forms(listed_one, self.two):
                self.check(holds_word(text, shown), rule,
                           f"{renderer}: {one['words']!r}: {shown!r}")

    def check_synopsis(self, renderer, page):
        found = page.find("SYNOPSIS")
        if not self.check(found, "there is a SYNOPSIS", renderer):
            return
        lines = [normal(line) for line in page.lines[found[1] + 1:found[2]] if line.strip()]
        self.check_synopsis_operands(renderer, normal(" ".join(lines)))
        at = -1
        for one in self.description["commands"]:
            words = rf"(?<!\S){pattern(one['words'])}(?!\S)"
            at = next((n for n in range(at + 1, len(lines)) if re.search(words, lines[n])), None)
            if not self.check(at is not None, "SYNOPSIS shows one line a command",
                              f"{renderer}: {one['words']!r} in {lines[:6]}"):
                return

    def check_synopsis_operands(self, renderer, synopsis):
        """Each visible operand that tells what it takes is shown, in order."""
        place = 0
        for one in self.description["options"]:
            facts = one.get("annotations", {})
            if not one["positional"] or one["hidden"] or "takes" not in facts:
                continue
            name = one["names"][0] if "allowed" in one else facts.get("placeholder", one["names"])[0]
            at = synopsis.find(normal(name), place)
            self.check(at >= 0, "SYNOPSIS shows the operands that tell what they take",
                       f"{renderer}: {name!r} in {synopsis!r}")
            place = max(at, place)


def shuffled(description):
    """The same description with other orders of keys, other escapes and other layout."""
    maker = random.Random(len(json.dumps(description)))

    def turn(value):
        if isinstance(value, dict):
            items = [(k, turn(v)) for k, v in value.items()]
            maker.shuffle(items)
            return dict(items)
        return [turn(v) for v in value] if isinstance(value, list) else value
    text = json.dumps(turn(description), indent=maker.choice([1, "\t"]), ensure_ascii=True)
    return ("\r\n " + text.replace("/", "\\/") + " \t\n").encode()


def check_batches(report, cases):
    """mandoc's lint and lexgrog read all pages at once."""
    cases = {str(case.file): case for case in cases if case.file.exists()}
    env = environment(SOURCE_DATE_EPOCH=EPOCH)
    _, out, err = run(["mandoc", "-T", "lint", "-W", "warning", *cases], env=env)
    said = {}
    for line in (out + err).decode(errors="replace").splitlines():
        name = re.search(r"(/\S+\.1):", line)
        said.setdefault(name[1] if name else next(iter(cases)), []).append(line)
    _, out, err = run(["lexgrog", *cases], env=env)
    found = dict(re.findall(r'^(/\S+\.1): "(.*)"$', out.decode(errors="replace"), re.M))
    for name, case in cases.items():
        case.check(name not in said, "mandoc -T lint has nothing to say", str(said.get(name))[:300])
        tool = case.description["tool"]
        line = found.get(name, "")
        case.check(re.match(re.escape(tool["name"]) + " - ", line), "lexgrog parses the page",
                   f"{line!r} {err.decode(errors='replace')[:100]}")
        if pattern(tool["summary"]):
            case.check(re.fullmatch(".*? - " + pattern(tool["summary"]), normal(line)),
                       "lexgrog gives name and summary", f"{line!r}, not {tool['summary']!r}")
