# SPDX-License-Identifier: MIT
"""No function or object is defined twice: unique_symbols.py OBJECT...

Shared libraries hide what is private to each. Static libraries do not: of two functions with one name
and different results a program gets the first for both.
"""
import collections
import subprocess
import sys

STRONG_TYPES = "TDBR"


def defined_symbols(objects):
    lines = subprocess.run(["nm", "--defined-only", *objects], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    for line in lines:
        words = line.split(" ", 2)
        if len(words) == 3 and words[1] in STRONG_TYPES:
            yield words[2]


def main(*objects):
    counts = collections.Counter(defined_symbols(objects))
    for name, count in sorted(counts.items()):
        if count > 1:
            print("defined more than once:", name)
    return 0 if counts and max(counts.values()) == 1 else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
