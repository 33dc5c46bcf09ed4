"""What counts of the words before the cursor (see cases.py)."""

from tools import (BARE, DOTTED, FILES, FORMS, FULL, LONE, NOT_LONE, NOTHING, ONE, PAINTS, SMALLEST,
                   TWICE_LONE)

TYPED_ALREADY = [
    ("-- ends the options; after it nothing is an option", PAINTS, [
        ("-- -list r", "red rose"),
        ("-list -- r", NOTHING),
        ("-- -brush thin r", "red rose"),
        ("-- -- -b", "-blue"),
    ]),
    ("-- ends the options even where a value is missing", PAINTS, [
        ("-brush -- r", "red rose"),
    ]),
    ("an option has up to two dashes", BARE, [
        ("-count -w", "-what -w"),
        ("--count --w", "--what --w"),
        ("---count -se", "-search"),
        ("-count ---wh", NOTHING),
    ]),
    ("the value stands after the first =", FULL, [
        ("-mode=fast=slow -fl", "-flag -fly"),
        ("-path= -fl", NOTHING),
        ("-mode=f", "-mode=fast"),
        ("-mode=fast=", NOTHING),
    ]),
    ("a name in full counts as itself, though others begin that way", FULL, [
        ("-path x -fl", "-flag -fly"),
        ("-sign=p", "-sign=plus"),
        ("-sign ", "plus"),
    ]),
    ("a name cut short stands for the only one that begins that way", BARE, [
        ("-cou -w", "-what -w"),
        ("--forma=p", "--forma=plain"),
        ("-form ", "plain csv Pretty"),
        ("-checks -w", NOTHING),
    ]),
    ("all names of all options count when a name is cut short: of hidden ones", FULL, [
        ("-mo ", "fast slow Fast"),
        ("-m ", FILES),
        ("-mas c", "carnival casual"),
        ("-hus m", FILES),
    ]),
    ("... of positional ones", FULL, [
        ("-secon n", "never"),
        ("-second=n", "-second=never"),
        ("-fil ", FILES),
        ("-f ", FILES),
    ]),
    ("... and the no- forms of every name of a boolean", BARE, [
        ("-no-loud -no-", "-no-verbose"),
        ("-no-v=", NOTHING),
        ("-no-l -count -w", "-what -w"),
    ]),
    ("... so that such a form makes a name cut short stand for several", FORMS, [
        ("-no-l h", NOTHING),
        ("-no-la h", "here"),
        ("-no-l=", NOTHING),
        ("-no-la=", "-no-la=here"),
    ]),
    ("two names of one option are several as well", SMALLEST, [
        ("-or -gon", "-gone"),
        ("-ord -gon", NOTHING),
        ("-orde -gon", "-gone"),
    ]),
    ("a word without a name means nothing, though there is only one name", ONE, [
        ("-=", NOTHING),
        ("--=h", NOTHING),
        ("-= h", NOTHING),
        ("- h", NOTHING),
        ("-o h", "here"),
        ("---dash=", NOTHING),
    ]),
    ("a word that stands for several names, or for none, means nothing", BARE, [
        ("-t -w", "-what -w"),
        ("-unheard -w", "-what -w"),
        ("-unheard ", "-count -c -hash -x -checksum -search -z -what -w -pattern -p -basis -traced"
                      " -orphan -verbose -v -loud -no-verbose -format -f"),
    ]),
    ("an option with a value takes the next word without =", PAINTS, [
        ("-brush -list r", NOTHING),
        ("-brush list r", "red rose"),
        ("-brush t", "thin thick"),
        ("-brush paint -lis", "-list"),
    ]),
    ("... and with = and nothing after it", PAINTS, [
        ("-brush= t", "thin thick"),
        ("--br= t", "thin thick"),
        ("-brush=thin t", NOTHING),
        ("-brush=thin r", "red rose"),
    ]),
    ("... unless that begins with -", BARE, [
        ("-format -count -w", "-what -w"),
        ("-format - -w", "-what -w"),
        ("-format - c", NOTHING),
    ]),
    ("none and boolean take no next word", BARE, [
        ("-count wor -w", "-what -w"),
        ("-verbose -count -w", "-what -w"),
        ("-verbose= ", "-count -c -hash -x -checksum -search -z -what -w -pattern -p -basis -traced"
                       " -orphan -verbose -v -loud -no-verbose -format -f"),
    ]),
    ("a number, and a type that options cannot have, take the next word too", FULL, [
        ("-level ", NOTHING),
        ("-level fi", NOTHING),
        ("-odd fi", NOTHING),
        ("-level 3 fi", FILES),
    ]),
    ("a lone - is no value", NOT_LONE, [
        ("-in - x", "x"),
        ("-in -write -wri", "-written"),
    ]),
    ("... but one with loneDash", LONE, [
        ("-in - x", "x"),
        ("-in - -wri", "-write -written"),
        ("-in ", "here"),
        ("- -wri", "-write -written"),
    ]),
    ("... so that the option waits no longer", TWICE_LONE, [
        ("--in - -ou", "-out"),
        ("--in - h", NOTHING),
    ]),
    ("all other words are operands", PAINTS, [
        ("list paint r", "red rose"),
        ("red -brush ", "thin thick"),
    ]),
    ("a first word kivooption=... means nothing", PAINTS, [
        ("kivooption=trace r", "red rose"),
        ("kivooption=kivodescribe=json -lis", "-list"),
    ]),
    ("a quoted word is one word", PAINTS, [
        ("-brush 'a -list b' r", "red rose"),
        ("-brush \"a -list b\" r", "red rose"),
        ("-brush a\\ -list\\ b r", "red rose"),
        ("'a -list b' r", "red rose"),
        ("-brush 'a -list' -pa", "-paint"),
        ("'-list' r", NOTHING),
        ("-li\"st\" r", NOTHING),
    ]),
    ("an empty word is a word", PAINTS, [
        ("-brush '' r", "red rose"),
        ("-brush '' t", NOTHING),
        ("-brush \"\" -lis", "-list"),
    ]),
    ("words after the cursor do not count: no action", BARE, [
        ("-wh| -search", "-what"),
        ("-co| -count", "-count"),
        ("-count -pat| -search", NOTHING),
        ("-search | -search", "-hash -x -checksum -pattern -p -verbose -v -loud -no-verbose -format"
                              " -f"),
    ]),
    ("... no smaller action, which would decide", SMALLEST, [
        ("-go -gon| -list", "-gone"),
        ("-list -liste| -go", "-listed"),
    ]),
    ("... no --, no operand and no value", PAINTS, [
        ("r| -list", "red rose"),
        ("-brush | -- thin", "thin thick"),
        ("-bru| -- red", "-brush"),
        ("-brush t| red", "thin thick"),
        ("-list r| -paint", NOTHING),
    ]),
    ("a name is no pattern", DOTTED, [
        ("-a.b=", "-a.b=right"),
        ("-a. ", "right"),
        ("-... r", NOTHING),
    ]),
]
