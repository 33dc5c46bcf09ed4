"""Checks of single rules, each with a description of its own."""

import re
import tempfile

from building import describe, encoded, option, section
from common import EPOCH, FORMATS, WIDTH
from descriptions import hostile
from material import HOSTILE, ODD
from programs import environment, run
from rendering import plain, read_markdown
from texts import normal


def check_surroundings(path, report):
    """Locale, time zone, width, home and folder change nothing; nor does the way of input."""
    data = encoded(hostile(HOSTILE[:9] + ODD, "around"))
    odd = [{"LC_ALL": "C"}, {"LC_ALL": "C.UTF-8"}, {"LANG": "tr_TR.UTF-8", "LC_ALL": ""},
           {"LC_ALL": "de_DE.UTF-8"}, {"TZ": "Pacific/Kiritimati"}, {"TZ": "America/Adak"},
           {"COLUMNS": "20"}, {"COLUMNS": "900", "LINES": "3"}, {"HOME": "/nonexistent"},
           {"TERM": "dumb"}, {"MANWIDTH": "30"}, {"PATH": ""}, {"TMPDIR": "/nonexistent"},
           {"LC_NUMERIC": "fr_FR.UTF-8"}, {"NO_COLOR": "1"}, {"POSIXLY_CORRECT": "1"}]
    with tempfile.NamedTemporaryFile(suffix=".json") as file:
        file.write(data)
        file.flush()
        for format_ in FORMATS:
            base = run([path, format_], data, environment(SOURCE_DATE_EPOCH=EPOCH))
            for more in odd:
                env = environment(SOURCE_DATE_EPOCH=EPOCH)
                got = run([path, format_], data, {**env, **more}, cwd="/")
                report.check(got == base, "the environment changes nothing", f"{more}", data)
            for arguments in ([format_, file.name], ["-" + format_, file.name], ["-" + format_]):
                got = run([path, *arguments], data, environment(SOURCE_DATE_EPOCH=EPOCH))
                report.check(got == base, "one dash or two, FILE or standard input",
                             f"{arguments}", data)


def check_dates(path, report):
    """The day of SOURCE_DATE_EPOCH in UTC, whatever the time zone; no date without it."""
    data = encoded(describe(name="dated", version=""))
    days = {"0": "1970-01-01", "86399": "1970-01-01", "86400": "1970-01-02",
            "951782400": "2000-02-29", "1709251199": "2024-02-29", "1709251200": "2024-03-01",
            "4102444799": "2099-12-31", "4102444800": "2100-01-01", "2147483648": "2038-01-19",
            "4107542400": "2100-03-01"}
    for epoch, day in days.items():
        for zone in ("UTC", "Pacific/Kiritimati", "America/Adak", "XYZ12"):
            _, out, _ = run([path, "-man"], data, environment(SOURCE_DATE_EPOCH=epoch, TZ=zone))
            title = re.search(rb"^\.TH .*$", out, re.M)
            report.check(title and day.encode() in title[0],
                         "the date is the day of SOURCE_DATE_EPOCH", f"{epoch} {zone}: {title}",
                         data)
    _, out, _ = run([path, "-man"], data, environment())
    report.check(not re.search(rb"\d{4}-\d\d-\d\d|\b(19|20)\d\d\b", out),
                 "without SOURCE_DATE_EPOCH there is no date", repr(out[:200]), data)
    _, said, _ = run(["mandoc", "-T", "lint", "-W", "warning"], out)
    report.check(all(b"date" in line for line in said.splitlines()),
                 "mandoc -T lint has nothing to say but of the date", repr(said[:300]), data)


def rendered_pair(path, description):
    """The description's pages as normal() text: (renderer, text)."""
    _, out, _ = run([path, "-man"], encoded(description), environment(SOURCE_DATE_EPOCH=EPOCH))
    _, shown, _ = run(["mandoc", "-T", "utf8", "-O", f"width={WIDTH}"], out)
    yield "mandoc", normal(plain(shown.decode(errors="replace")))
    _, out, _ = run([path, "-markdown"], encoded(description))
    yield "Markdown", normal("\n".join(read_markdown(out).lines))


def check_facts(path, report):
    """Single facts change a page, and stand in the entry of their option."""
    def told(one):
        return dict(rendered_pair(path, describe([option("aa", description="Before nu1."), one,
                                                  option("zz", description="After nu2.")])))
    base = {"description": "Between nu3.", "type_": "unsigned integer"}
    without = told(option("mm", **base))
    for key, text in (("range", "1 to 12"), ("environment", "KIVO_NU"), ("required", "required"),
                      ("shownDefault", "SHOWN"), ("placeholder", "PLACE"), ("deprecated", "Old.")):
        one = option("mm", **base, default="4711", annotations={key: [text]})
        for renderer, page in told(one).items():
            between = page[page.rfind("nu1."):page.rfind("nu2.")]
            report.check(text in between and page.count(text) > without[renderer].count(text),
                         f"the annotation {key} is told beside the description",
                         f"{renderer}: {between!r}", encoded(describe([one])))
            if key == "placeholder":
                report.check("unsigned integer" not in page, "a placeholder replaces the type",
                             f"{renderer}: {between!r}", encoded(describe([one])))
    for default in (True, False):
        one = option("mm", description="Between nu3.", type_="boolean", default=default)
        bare = told(option("mm", description="Between nu3.", type_="boolean"))
        for renderer, page in told(one).items():
            word = str(default).lower()
            report.check(page.count(word) > bare[renderer].count(word),
                         "every default is in the page", f"{renderer}: {word}",
                         encoded(describe([one])))


def check_deprecated_values(path, report):
    """A deprecated value never stands among the allowed ones."""
    one = option("mode", description="Mode xi1.", allowed=["keep1", "outofuse", "keep2"],
                 deprecated=[{"value": "outofuse", "replacement": "other"}])
    for renderer, page in rendered_pair(path, describe([one])):
        report.check(not re.search("keep1(?:(?!keep2).)*outofuse.*?keep2", page),
                     "deprecated values are not among the allowed", f"{renderer}: {page!r}",
                     encoded(describe([one])))


def check_order(path, report):
    """The order of options and sections counts: another order is another page."""
    def made(turn):
        places = ["One", "Two"][::turn]
        names = ["aa", "bb"][::turn]
        return describe([option(n, description=f"Text {n}.", section=p) for p in places
                         for n in names], [section(p) for p in places])
    for format_ in FORMATS:
        pages = [run([path, format_], encoded(made(turn)))[1] for turn in (1, -1)]
        report.check(pages[0] != pages[1], "the order of options and sections counts", format_,
                     encoded(made(1)))
