"""What is offered for the word at the cursor (see cases.py)."""

from tools import BARE, BARE_KEPT, FILES, FULL, FULL_KEPT, LONE, NOTHING, PAINTS, TWICE

AT_THE_CURSOR = [
    ("1. after --: files", FULL_KEPT, [
        ("-- ", FILES),
        ("-- fi", FILES),
        ("-- -fl", FILES),
        ("-- a -- fi", FILES),
        ("-mode -- fi", FILES),
    ]),
    ("1. ... also without operand", BARE_KEPT, [
        ("-- fi", FILES),
    ]),
    ("1. with leftoverArguments positional what the operand takes", PAINTS, [
        ("-- ", "red rose -blue"),
        ("-- re", "red"),
        ("-paint -- x r", "red rose"),
    ]),
    ("1. ... values with a dash too", PAINTS, [
        ("-- -", "-blue"),
        ("-- -b", "-blue"),
    ]),
    ("1. ... nothing where the operand does not go", PAINTS, [
        ("-list -- ", NOTHING),
        ("-list -- r", NOTHING),
    ]),
    ("1. ... files for an operand without values", FULL, [
        ("-- ", FILES),
        ("-- sub/", FILES),
        ("-- -fl", FILES),
    ]),
    ("2. the word before takes its value from here", FULL, [
        ("-mode ", "fast slow Fast"),
        ("-mode f", "fast"),
        ("--mod s", "slow"),
        ("-mode x", NOTHING),
        ("-path ", FILES),
        ("-path sub/", FILES),
    ]),
    ("2. nothing if the word begins with -", FULL, [
        ("-mode -", NOTHING),
        ("-mode -f", NOTHING),
        ("-path -fl", NOTHING),
        ("-sign -m", NOTHING),
        ("-mode -mode=f", NOTHING),
        ("-mode --", NOTHING),
    ]),
    ("2. ... with loneDash too", LONE, [
        ("-in -", NOTHING),
    ]),
    ("3. a dash and =: values, with dashes and name as typed before them", FULL, [
        ("-mode=", "-mode=fast -mode=slow -mode=Fast"),
        ("--mode=s", "--mode=slow"),
        ("--mo=F", "--mo=Fast"),
        ("-mod=", "-mod=fast -mod=slow -mod=Fast"),
    ]),
    ("3. ... of a hidden one", FULL, [
        ("-masked=c", "-masked=carnival -masked=casual"),
        ("--mas=car", "--mas=carnival"),
    ]),
    ("3. ... of one that does not go", BARE, [
        ("-search -what=w", "-what=words"),
    ]),
    ("3. nothing for none, boolean, and what means nothing", FULL, [
        ("-flag=", NOTHING),
        ("-colour=", NOTHING),
        ("-no-colour=", NOTHING),
        ("-picked=", NOTHING),
        ("-m=", NOTHING),
        ("-unheard=f", NOTHING),
        ("-=f", NOTHING),
        ("--=f", NOTHING),
    ]),
    ("4. a dash: the names, with one or two dashes as typed", BARE, [
        ("-fo", "-format"),
        ("--fo", "--format"),
        ("--f", "--format --f"),
        ("--", "--count --c --hash --x --checksum --search --z --what --w --pattern --p --basis"
               " --traced --orphan --verbose --v --loud --no-verbose --format --f"),
        ("-search -", "-hash -x -checksum -pattern -p -verbose -v -loud -no-verbose -format -f"),
    ]),
    ("4. dashes two: a dash alone is offered letters with one dash, names with two", TWICE, [
        ("-", "--all -a --wide -w --no-wide -é --ü2 -q --no-q --in --out"),
    ]),
    ("4. dashes two: after two dashes names of two letters and more", TWICE, [
        ("--", "--all --wide --no-wide --ü2 --no-q --in --out"),
        ("--a", "--all"),
        ("--q", NOTHING),
        ("--w", "--wide"),
    ]),
    ("4. dashes two: after one dash and letters as without it", TWICE, [
        ("-a", "-all -a"),
        ("-al", "-all"),
        ("-no", "-no-wide -no-q"),
        ("-é", "-é"),
    ]),
    ("4. -- itself is never offered", FULL, [
        ("--fl", "--flag --fly"),
        ("--", "--flag --fly --colour --C --no-colour --path --paths --folder --note --level"
               " --ratio --odd --mode --signs --sign --été"),
    ]),
    ("4. a word that is - alone is completed so even with loneDash", LONE, [
        ("-", "-read -write -written -in"),
        ("-write -", "-written -in"),
    ]),
    ("5. else the operand, if it goes", PAINTS, [
        ("", "red rose"),
        ("r", "red rose"),
        ("re", "red"),
        ("-paint r", "red rose"),
        ("-list ", NOTHING),
        ("-list r", NOTHING),
        ("blue ro", "rose"),
    ]),
    ("5. ... the first positional option", FULL, [
        ("", FILES),
        ("n", FILES),
        ("fi fi", FILES),
    ]),
    ("5. without operand an empty word is offered all names with one dash", BARE, [
        ("", "-count -c -hash -x -checksum -search -z -what -w -pattern -p -basis -traced -orphan"
             " -verbose -v -loud -no-verbose -format -f"),
        ("-search ", "-hash -x -checksum -pattern -p -verbose -v -loud -no-verbose -format -f"),
    ]),
    ("5. ... by dashes", TWICE, [
        ("", "--all -a --wide -w --no-wide -é --ü2 -q --no-q --in --out"),
        ("stray ", "--all -a --wide -w --no-wide -é --ü2 -q --no-q --in --out"),
    ]),
    ("5. ... and a word that is not empty nothing", BARE, [
        ("c", NOTHING),
        ("fi", NOTHING),
        ("-count w", NOTHING),
    ]),
]
