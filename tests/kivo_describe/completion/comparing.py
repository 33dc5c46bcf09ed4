"""Compares what a shell offers with what it has to offer."""

import model
from building import encoded
from cases import CURSOR, words_of
from shells import paths_of


def without_slash(words):
    """Shells may leave out the slash after a folder."""
    return sorted(w[:-1] if w.endswith("/") else w for w in words)


def answers(offer):
    """The lists of words that are right for an Offer; the first is the usual one."""
    words = list(offer.words)
    if offer.paths is None:
        return [words]
    files, folders = paths_of(offer)
    if offer.paths == "files":
        return [words + files]
    return [words + folders] if folders else [words, words + files]


def left_to_shell(shell, offer):
    """bash and fish complete files after some characters by their own rules."""
    characters = {"bash": ":=@", "fish": ":="}.get(shell, "")
    return offer.paths and any(c in offer.path for c in characters)


def shown(shell, word, words):
    """fish leaves out what begins with a dot unless a dot was typed."""
    dotted = shell == "fish" and word == ""
    return [w for w in words if not (dotted and w[0] == ".")]


def compare(context, session, line, offer, rule, description, after=""):
    """Asks a session for a line, and checks what it offers against an Offer. `after` is what is on
    the line after the cursor."""
    word = words_of(line)[-1]
    got = session.complete(f"{description['tool']['name']} {line}", after=after)
    if context.shell == "fish":  # guesses may follow, but not begin with what was typed
        got = [w for w in got if w.startswith(word)]
    if left_to_shell(context.shell, offer):
        return
    right = [shown(context.shell, word, answer) for answer in answers(offer)]
    good = without_slash(got) in [without_slash(r) for r in right]
    missing = sorted(set(without_slash(right[0])) - set(without_slash(got)))
    surplus = sorted(set(without_slash(got)) - set(without_slash(right[0])))
    context.report.check(
        good, f"{context.shell}: {rule}",
        f"[{line}{after and CURSOR + after}] missing {missing[:6]}, surplus {surplus[:6]},"
        f" got {len(got)} words",
        encoded(description))


def expected(description, line):
    *before, word = words_of(line)
    return model.offer(description, before, word)
