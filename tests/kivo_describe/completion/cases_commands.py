"""What is offered to users of a tool with commands (see cases.py)."""

from tools import ALIKE, FILES, HALF, KEPT, MANY, MANY_LONE, MANY_TWO, NOTHING, SHARED

COMMANDS = [
    ("until a command is complete, the next words are offered", MANY, [
        ("", "remote rename stash status"),
        ("re", "remote rename"),
        ("st", "stash status"),
        ("stash ", "pop push"),
        ("stash po", "pop"),
        ("x", NOTHING),
    ]),
    ("... and the tool's own names", MANY, [
        ("-", "-quiet -q -no-quiet -config -dry"),
        ("-lo", NOTHING),
        ("stash -d", "-dry"),
        ("--co", "--config"),
    ]),
    ("the tool's own options are walked and take their values", MANY, [
        ("-config ", "home work"),
        ("-config=w", "-config=work"),
        ("-config remote r", "remote rename"),
        ("-quiet re", "remote rename"),
        ("-dry stash -config home p", "pop push"),
    ]),
    ("a word of a command may be cut short", MANY, [
        ("rem o", "origin other"),
        ("ren fi", FILES),
        ("stas pu", "push"),
        ("remote add f", "far"),
        ("rem ado -fo", NOTHING),
    ]),
    ("a word in full counts as itself, though others begin that way", ALIKE, [
        ("list -", "-short"),
        ("listi -", "-long"),
        ("lis -", NOTHING),
    ]),
    ("... as long as only one goes on", MANY, [
        ("re -lon", NOTHING),
        ("re -d", "-dry"),
        ("st po", NOTHING),
    ]),
    ("a word that fits none leaves nothing but names of options", MANY, [
        ("nothing re", NOTHING),
        ("nothing remote a", NOTHING),
        ("nothing -d", "-dry"),
        ("stash remote -d", "-dry"),
        ("nothing remote -lon", NOTHING),
        ("nothing ", NOTHING),
        ("nothing -config ", NOTHING),
        ("nothing -config=", NOTHING),
        ("nothing -config -", NOTHING),
        ("nothing -- ", NOTHING),
    ]),
    ("of a whole command and a longer one, the longer wins if the next word fits", MANY, [
        ("remote add n", "near"),
        ("remote adopt -lo", NOTHING),
        ("remote add -fo", "-force"),
        ("remote -quiet add -fo", "-force"),
        ("remote ori -lo", "-long"),
    ]),
    ("half of a longer command is none, though its beginning is one", HALF, [
        ("remote ", "origin add"),
        ("remote -", "-own -long"),
        ("remote add ", "file url"),
        ("remote add -", "-own"),
        ("remote add x ", NOTHING),
        ("remote add x -", "-own"),
        ("remote add url -", "-own -url"),
    ]),
    ("from a complete command on, its options and the tool's own count", MANY, [
        ("remote -", "-quiet -q -no-quiet -config -dry -long"),
        ("stash pop -", "-quiet -q -no-quiet -config -dry -index"),
        ("status -s", "-short"),
        ("status -config ", "home work"),
        ("stash pop -sh", NOTHING),
    ]),
    ("where both have a name, the command's counts", MANY, [
        ("remote add -dry ", "humid arid"),
        ("remote add -dry=", "-dry=humid -dry=arid"),
        ("remote -dry o", "origin other"),
        ("-dry remote add f", "far"),
        ("rename -con", NOTHING),
        ("stash pop -con", "-config"),
    ]),
    ("a command may have no operand", MANY, [
        ("stash pop ", "-quiet -q -no-quiet -config -dry -index"),
        ("stash pop i", NOTHING),
        ("stash push -i", NOTHING),
    ]),
    ("after -- words are operands, and no command begins there", MANY, [
        ("remote -- ", "origin other"),
        ("remote -- a", NOTHING),
        ("remote -- add n", NOTHING),
        ("status -- ", FILES),
        ("rename -- fi", FILES),
    ]),
    ("... also where these words are kept", KEPT, [
        ("list a", "all"),
        ("list -- ", FILES),
        ("list -- a", FILES),
    ]),
    ("the next words of longer commands are offered beside the operand's values", MANY, [
        ("remote ", "origin other add adopt"),
        ("remote a", "add adopt"),
        ("remote o", "origin other"),
    ]),
    ("the tool's dashes hold for its commands", MANY_TWO, [
        ("remote -", "--quiet -q --no-quiet --config --dry --long"),
        ("stash pop ", "--quiet -q --no-quiet --config --dry --index"),
        ("-", "--quiet -q --no-quiet --config --dry"),
    ]),
    ("a first word kivooption=... means nothing here too", MANY, [
        ("kivooption=trace re", "remote rename"),
        ("kivooption=trace kivooption=trace re", NOTHING),
        ("-dry kivooption=trace re", NOTHING),
    ]),
    ("with loneDash a dash alone is a value, and no word of a command", MANY_LONE, [
        ("-config - re", "remote rename"),
        ("- re", NOTHING),
    ]),
    ("... and without loneDash it is neither", MANY, [
        ("- re", "remote rename"),
        ("-config - re", "remote rename"),
    ]),
    ("words of a command after the cursor do not count", MANY, [
        ("re| add", "remote rename"),
        ("| remote", "remote rename stash status"),
        ("remote -lo| add", "-long"),
        ("-config | remote add", "home work"),
        ("remote o| add near", "origin other"),
    ]),
    ("a quoted word of a command is one word", MANY, [
        ("'remote add' n", NOTHING),
        ("\"remote\" 'add' n", "near"),
    ]),
    ("after an operand no word of a command follows", MANY, [
        ("remote origin add -fo", NOTHING),
        ("remote origin add -lo", "-long"),
    ]),
    ("a command without operand has that of the tool", SHARED, [
        ("run ", "here there"),
        ("run t", "there"),
        ("stop t", "then"),
        ("stop h", NOTHING),
    ]),
    ("the tool's actions go with each other in a command too", SHARED, [
        ("run -one -t", "-two"),
        ("-one run -t", "-two"),
        ("run -three -f", "-four"),
        ("run -three -t", NOTHING),
    ]),
]
