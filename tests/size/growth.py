"""Counts the instructions of each kind of work for three sizes, each twice the one before, and fails
if the work grows faster than its input.

  growth.py GROWTH [SIZE]

The exponent comes from the differences between the sizes, which leave out what every process costs.
"""
import concurrent.futures
import math
import os
import re
import subprocess
import sys

MOST = 1.15  # n log n has about 1.1 at these sizes
# What is known not to be linear, with what bounds it.
BOUNDED = {
    # Each parse checks all names that the result holds against the declarations of its parser.
    "parsers into one result, with defaults": 2.3,
}


def instructions(program, work, size):
    shown = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", program,
                            work, str(size)], check=True, stderr=subprocess.PIPE, text=True).stderr
    return int(re.search(r"Collected : (\d+)", shown)[1])


def exponent(counts):
    return math.log2((counts[2] - counts[1]) / (counts[1] - counts[0]))


def main():
    program = sys.argv[1]
    size = int(sys.argv[2]) if len(sys.argv) > 2 else 500
    works = subprocess.run([program], check=True, stdout=subprocess.PIPE, text=True).stdout
    failed = False
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        counted = {work: [pool.submit(instructions, program, work, size * factor)
                          for factor in (1, 2, 4)] for work in works.splitlines()}
        for work, counts in counted.items():
            counts = [count.result() for count in counts]
            grown = exponent(counts)
            too_much = grown > BOUNDED.get(work, MOST)
            failed = failed or too_much
            print(f"{work:45} {counts[2]:15,} {grown:5.2f}{' too much' * too_much}", flush=True)
    sys.exit(failed)


if __name__ == "__main__":
    main()
