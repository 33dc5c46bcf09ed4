"""Which names are offered (see cases.py)."""

from tools import BARE, FULL, NOTHING, SAME, SMALLEST, STYLES, STYLES_TWO

NAMES = [
    ("an option goes if no action was typed", BARE, [
        ("-wh", "-what"),
        ("-pat", "-pattern"),
        ("-o", "-orphan"),
    ]),
    ("an option without actions goes always", BARE, [
        ("-count -fo", "-format"),
        ("-search -verb", "-verbose"),
    ]),
    ("an option with actions goes with the deciding one", BARE, [
        ("-count -wh", "-what"),
        ("-count -pat", NOTHING),
        ("-search -pat", "-pattern"),
        ("-search -wh", NOTHING),
        ("-hash -ba", "-basis"),
        ("-count -o", NOTHING),
        ("-checksum -ba", "-basis"),
    ]),
    ("a hidden action decides as well", BARE, [
        ("-trace -tr", "-traced"),
        ("-trace -wh", NOTHING),
        ("-count -tr", NOTHING),
    ]),
    ("of several actions the one with the smallest of all names decides", SMALLEST, [
        ("-list -listed", "-listed"),
        ("-list -gone", NOTHING),
        ("-go -gon", "-gone"),
        ("-list -go -liste", "-listed"),
        ("-go -list -liste", "-listed"),
        ("-b1 -a1 -gon", NOTHING),
        ("-go -list -gon", NOTHING),
    ]),
    ("an action goes if none was typed", BARE, [
        ("-h", "-hash"),
        ("-ch", "-checksum"),
        ("-verbose -se", "-search"),
    ]),
    ("... or if a set has all typed ones and it", BARE, [
        ("-count -h", "-hash"),
        ("-count -x", "-x"),
        ("-count -se", NOTHING),
        ("-hash -se", "-search"),
        ("-hash -cou", "-count"),
        ("-hash -count -se", NOTHING),
        ("-trace -h", NOTHING),
    ]),
    ("an action that was typed is not offered again, under none of its names", BARE, [
        ("-count -co", NOTHING),
        ("-count -c", "-checksum"),
        ("-hash -ch", NOTHING),
        ("-hash -x", NOTHING),
        ("-x -h", NOTHING),
    ]),
    ("options typed before are offered again", BARE, [
        ("-format csv -fo", "-format"),
        ("-count -what=lines -wh", "-what"),
        ("-verbose -verb", "-verbose"),
    ]),
    ("all names are offered, neither of hidden nor of positional ones", FULL, [
        ("-fl", "-flag -fly"),
        ("-hu", NOTHING),
        ("-se", NOTHING),
        ("-mask", NOTHING),
        ("-fi", NOTHING),
        ("-C", "-C"),
        ("-colour -col", "-colour"),
    ]),
    ("of a boolean, no- and its first name", BARE, [
        ("-no", "-no-verbose"),
        ("-no-v", "-no-verbose"),
        ("-no-l", NOTHING),
        ("--no-", "--no-verbose"),
    ]),
    ("names are offered bare", BARE, [
        ("-form", "-format"),
        ("-format", "-format"),
    ]),
    ("a name that cannot be typed is not offered", FULL, [
        ("-a", NOTHING),
        ("-b", NOTHING),
        ("--d", NOTHING),
        ("---", NOTHING),
        ("-", "-flag -fly -colour -C -no-colour -path -paths -folder -note -level -ratio -odd -mode"
              " -signs -sign -été"),
    ]),
    ("a name may have letters outside of ASCII", FULL, [
        ("-ét", "-été"),
        ("--é", "--été"),
    ]),
    ("no name changes with how many dashes it is offered", STYLES, [
        ("-", "-longs -longer -both -bothx -l"),
        ("--l", "--longs --longer --l"),
        ("--both", "--both --bothx"),
        ("-b", "-both -bothx"),
    ]),
    ("... also with two dashes", STYLES_TWO, [
        ("-", "--longs --longer --both --bothx -l"),
        ("--l", "--longs --longer"),
        ("-b", "-both -bothx"),
        ("-l", "-longs -longer -l"),
    ]),
    ("a name that two options have is none of them if it is cut short", SAME, [
        ("-no=", NOTHING),
    ]),
    ("of options with the same name, it stands for the first one", SAME, [
        ("-no", "-no-x"),
        ("-no-x=", "-no-x=here"),
        ("-no-x ", "here"),
        ("-walk -no", "-no-x"),
        ("-run -no", NOTHING),
        ("-run -x", "-x"),
    ]),
]
