"""Which values are offered (see cases.py)."""

from tools import BARE, FILES, FOLDERS, FULL, NOTHING, PAINTS

VALUES = [
    ("of a list the last item is completed, what stands before it stays", BARE, [
        ("-what=words,l", "-what=words,lines"),
        ("-what words,l", "words,lines"),
        ("-what=x,y,", "-what=x,y,lines -what=x,y,words -what=x,y,bytes"),
        ("--wha=,w", "--wha=,words"),
        ("-what words,", "words,lines words,words words,bytes"),
    ]),
    ("any item may be offered again", BARE, [
        ("-what=lines,lines,l", "-what=lines,lines,lines"),
    ]),
    ("an operand may be a list", PAINTS, [
        ("red:r", "red:red red:rose"),
        ("red:-", "red:-blue"),
        ("-- red:-b", "red:-blue"),
    ]),
    ("without separator nothing is split", FULL, [
        ("-mode=fast,s", NOTHING),
        ("-mode fast,s", NOTHING),
    ]),
    ("deprecated values are not offered", BARE, [
        ("-what=o", NOTHING),
        ("-what ", "lines words bytes"),
    ]),
    ("nor empty ones, those with a control character or with the separator", FULL, [
        ("-signs=", "-signs=-minus -signs=plus"),
        ("-signs=t", NOTHING),
        ("-signs=a", NOTHING),
    ]),
    ("as a word of its own none that begins with -", FULL, [
        ("-sign ", "plus"),
        ("-sign=", "-sign=-minus -sign=plus"),
        ("-sign=-", "-sign=-minus"),
        ("-signs plus,", "plus,-minus plus,plus"),
        ("-signs plus,-", "plus,-minus"),
        ("-signs ", "plus"),
    ]),
    ("without allowed: files for string", FULL, [
        ("-path fi", FILES),
        ("-path=fi", FILES),
        ("--path=", FILES),
    ]),
    ("... the last item of a list too", FULL, [
        ("-paths fi", FILES),
        ("-paths file1.txt,fi", FILES),
        ("-paths=file1.txt,no", FILES),
        ("-paths=a,b,", FILES),
        ("-paths=a,*", FILES),
        ("-paths a,f?", FILES),
    ]),
    ("... by hint folders", FULL, [
        ("-folder ", FOLDERS),
        ("-folder su", FOLDERS),
        ("-folder=su", FOLDERS),
    ]),
    ("... by hint nothing", FULL, [
        ("-note ", NOTHING),
        ("-note fi", NOTHING),
        ("-note=fi", NOTHING),
    ]),
    ("nothing for numbers", FULL, [
        ("-level=", NOTHING),
        ("-ratio ", NOTHING),
        ("-ratio=1,", NOTHING),
        ("-ratio fi", NOTHING),
    ]),
    ("an option with the annotation deprecated is not offered", FULL, [
        ("-sta", NOTHING),
        ("--st", NOTHING),
    ]),
    ("... but counts when typed", FULL, [
        ("-stale=", "-stale=old -stale=older"),
        ("-sta ol", "old older"),
        ("-stale x -fl", "-flag -fly"),
    ]),
    ("capital and small letters differ", FULL, [
        ("-c", "-colour"),
        ("-FL", NOTHING),
        ("-Mode=f", NOTHING),
    ]),
    ("... also in values", FULL, [
        ("-mode F", "Fast"),
        ("-mode=f", "-mode=fast"),
        ("-mode=SL", NOTHING),
    ]),
    ("what is typed is no pattern", BARE, [
        ("-format=p*", NOTHING),
        ("-what=words,?ines", NOTHING),
        ("-format [pc]", NOTHING),
    ]),
]
