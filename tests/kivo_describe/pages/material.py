"""Texts that a careless page would take for markup, and texts with odd characters."""


ROFF = [
    ".TH X 1", ".SH BAD", "'br", ".", "..", "'", ".\\\" gone", "\\fBbold\\fR", "\\", "\\\\", "\\e",
    "\\&", "\\(aq", "\\[u0041]", "\\n(yr", "\\*(Tm", "\\s+9", "\\c", "\\z", "\\h'5'", "\\w'a'",
    '"', '""', '"one two"', "`quoted'", "^ ~ ^", "a\n.TP\nb", "a\n'in 4\nb", "a\n.so /etc/group\nb",
    "a\n\n.de XX\nb", "end\\", "a\\\nb", "\\#", "\\\"", "\\$1", "@a@", "T{", ".TS\na\n.TE",
    "\\X'a'", "e.g. this", "etc.  Two blanks", "%d %s $HOME $(id)",
]
MARKDOWN = [
    "a|b", "|", "`code`", "``", "```", "```\nfence\n```", "~~~\nfence\n~~~", "<script>x</script>",
    "<b>", "</p>", "<!-- gone -->", "<?php?>", "<![CDATA[x]]>", "&amp;", "&#35;", "&copy;", "&",
    "<", ">", "_a_", "__a__", "*a*", "**a**", "a_b_c", "[x](y)", "[x]", "[x]: /y", "![i](j)", "![",
    "# head", "a\n# head", "a\n\n# head", "head\n====", "head\n----", "---", "***", "a\n\n---\n\nb",
    "- item", "* item", "+ item", "1. one", "2) two", "a\n- item", "a\n\n- item", "a\n\n1. one",
    "> quote", "a\n> quote", "<http://a.example/>", "<me@a.example>", "http://a.example/x_y_z",
    "www.a.example", "end\\", "\\*", "two  \nblanks", "    indented", "a\n\n    indented",
    "|a|b|\n|-|-|\n|c|d|", "~~a~~", "$a$", "a\tb", "`", "a`b``c", ":---", "[ ] task", "[^1]",
    "\\`a\\`", "!", "\\", "\\|", "a\\|b",
]
ODD = [
    "\u0000", "a\u0001b", "\u001b[31mred", "\u007f", "\u0080", "\u0085", "\u009b31m", "\r\n", "\r",
    "\v", "\f", "\b", "a\u001fb", "é", "e\u0301", "ß", "Ω", "漢字", "שלום", "\U0001f600",
    "\U0010fffd", "\u00a0", "a\u00a0b", "\u200b", "\u2028", "\u3000", "\ufeff", "\u202e", "\ufffd",
    "“q”", "‘q’", "–", "—", "…", "\u2010", "\u2011", "\u2212", "x" * 400, "é" * 200,
    "\ue000", "-option", "--option", "-no-option", "- option", "-",
]
EMPTY = ["", " ", "\n", " \n\t ", "\u00a0"]
HOSTILE = ROFF + MARKDOWN + ODD
TYPES = ["none", "boolean", "integer", "unsigned integer", "64 bit integer",
         "unsigned 64 bit or hex", "double", "string", "other"]
