"""Black-box test of the pages that kivo-describe writes.

    python3 -B tests/kivo_describe/pages KIVO-DESCRIBE [--count N] [--seed S] [DESCRIPTION.json ...]

The test gives kivo-describe hand-made descriptions, N random ones, the named files and its own. It
renders each manual page with mandoc and with man, each Markdown page with cmark-gfm, and compares
the rendered text with the description: which texts must be there, which must not, and in which
order. Another part gives kivo-describe input that it must refuse.

The random descriptions are valid and depend on the seed alone. Texts that no page may show contain
the word SECRET. Each broken rule is printed once with its shortest cases; the input of a case is
written to a file in the folder for temporary files. Exit status: 0 if all checks pass, 1 if one
fails, 2 for a wrong command line.

Needs Debian's mandoc, man-db, groff and cmark-gfm, and nothing beside the standard library.
"""

import argparse
import json
import os
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent.parent / "shared"))

from descriptions import fixtures
from page_checks import Case, check_batches
from programs import Report, run
from random_descriptions import Maker
from refusals import check_arguments, check_optional, check_outputs, check_refusals
from rule_checks import (check_dates, check_deprecated_values, check_facts, check_order,
    check_surroundings)


def all_descriptions(arguments, path, report):
    """The hand-made, the random and the named ones, and the description of the tool itself."""
    maker = Maker(arguments.seed)
    made = fixtures() + [maker.description() for _ in range(arguments.count)]
    files = [Path(name).read_bytes() for name in arguments.descriptions]
    status, own, err = run([path, "kivooption=kivodescribe=json"])
    if report.check(status == 0 and own and not err, "the tool describes itself", repr(err[:200])):
        files.append(own)
    return made + [json.loads(data) for data in files]


def parse_arguments():
    parser = argparse.ArgumentParser(description="Tests the pages that kivo-describe writes.")
    parser.add_argument("describe", metavar="KIVO-DESCRIBE")
    parser.add_argument("--count", type=int, default=60, help="random descriptions (default: 60)")
    parser.add_argument("--seed", type=int, default=1, help="of the random descriptions")
    parser.add_argument("descriptions", nargs="*", metavar="DESCRIPTION.json")
    arguments = parser.parse_intermixed_args()
    if not os.access(arguments.describe, os.X_OK):
        parser.error(f"cannot run {arguments.describe}")
    return arguments


def main():
    arguments = parse_arguments()
    path = os.path.abspath(arguments.describe)
    report = Report("kivo-pages-")
    descriptions = all_descriptions(arguments, path, report)
    with tempfile.TemporaryDirectory() as folder, ThreadPoolExecutor(2) as pool:
        cases = [Case(path, report, made, folder, n) for n, made in enumerate(descriptions)]
        list(pool.map(Case.run, cases))
        check_batches(report, cases)
        for check in (check_surroundings, check_dates, check_facts, check_deprecated_values,
                      check_order, check_outputs):
            check(path, report)
        check_refusals(path, report, pool)
        check_optional(path, report, pool)
        check_arguments(path, report, folder)
    return report.conclude(f"{len(descriptions)} descriptions, ")


if __name__ == "__main__":
    sys.exit(main())
