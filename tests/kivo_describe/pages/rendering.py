"""Rendered pages: the text of a terminal, and the text and elements of HTML."""

import html.parser
import re

from programs import run
from texts import joined, normal, squeeze


class Page:
    """A rendered page: its lines, and its headings as (level, text, line number)."""

    def __init__(self, lines, headings):
        self.lines = lines
        self.headings = headings
        self.text = normal("\n".join(lines))
        self.joined = joined(self.text)

    def part(self, begin, end):
        """The text of some lines."""
        return normal("\n".join(self.lines[begin:end]))

    def body(self):
        """The page without the title line at its end, which may wrap."""
        return normal("\n".join(self.lines).rstrip("\n").rpartition("\n\n")[0])

    def title(self):
        """The title line at the end of a manual page."""
        return normal("\n".join(self.lines).rstrip("\n").rpartition("\n\n")[2])

    def find(self, title):
        """The lines of a section: (level, first line, line after the last), or None."""
        for level, text, line in self.headings:
            if squeeze(text).casefold() == title.casefold():
                ends = [n for l, _, n in self.headings if n > line and l <= level]
                return level, line, min(ends, default=len(self.lines))
        return None


def plain(text):
    """Terminal output without overstrikes and colours."""
    return re.sub(r"\x1b\[[0-9;]*m", "", re.sub(".\b", "", text))


def page_of_terminal(text):
    """Section headings stand at the margin, subheadings three columns further right."""
    lines = plain(text).rstrip("\n").split("\n")
    headings = []
    for number, line in enumerate(lines):
        indent = len(line) - len(line.lstrip(" "))
        if line.strip() and 0 < number < len(lines) - 1 and indent in (0, 3):
            headings.append((1 if indent == 0 else 2, line.strip(), number))
    return Page(lines, headings)


class Reader(html.parser.HTMLParser):
    """Turns the HTML that cmark-gfm writes into lines, and notes elements that are not plain."""

    BLOCKS = {"h1", "h2", "h3", "h4", "h5", "h6", "p", "ul", "ol", "li", "pre", "tr", "br", "table",
              "thead", "tbody"}
    INLINE = {"code", "strong", "em"}
    CELLS = {"td", "th"}

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.lines, self.headings, self.odd, self.elements = [""], [], [], []
        self.heading = None

    def handle_starttag(self, tag, attrs):
        self.elements.append(tag)
        if tag not in self.BLOCKS | self.INLINE | self.CELLS:
            self.odd.append(f"<{tag}>")
        align = tag in self.CELLS and {k for k, _ in attrs} <= {"align"}
        if attrs and not align:
            self.odd.append(f"<{tag} {attrs}>")
        self.gap(tag)
        if re.fullmatch("h[1-6]", tag):
            self.heading = (int(tag[1]), len(self.lines) - 1)

    def handle_endtag(self, tag):
        if re.fullmatch("h[1-6]", tag) and self.heading:
            level, line = self.heading
            self.headings.append((level, " ".join(self.lines[line:]), line))
            self.heading = None
        self.gap(tag)

    def gap(self, tag):
        if tag in self.BLOCKS:
            self.lines.append("")
        elif tag in self.CELLS:
            self.lines[-1] += " "

    def handle_data(self, data):
        first, *rest = data.split("\n")
        self.lines[-1] += first
        self.lines += rest

    def handle_comment(self, data):
        self.odd.append(f"<!--{data}-->")

    def handle_decl(self, decl):
        self.odd.append(f"<!{decl}>")

    def unknown_decl(self, data):
        self.odd.append(f"<![{data}]>")

    def handle_pi(self, data):
        self.odd.append(f"<?{data}>")


def read_markdown(markdown):
    """Renders Markdown; the Reader has what the HTML says."""
    _, out, _ = run(["cmark-gfm", "--unsafe", "-e", "table"], markdown)
    reader = Reader()
    reader.feed(out.decode(errors="replace"))
    reader.close()
    return reader
