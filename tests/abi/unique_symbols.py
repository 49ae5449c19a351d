# SPDX-License-Identifier: MIT
"""No function or object is defined twice: unique_symbols.py NM OBJECT...

Shared libraries hide what is private to each. Static libraries do not: of two functions with one name
and different results a program gets the first for both.
"""
import collections
import subprocess
import sys

STRONG_TYPES = "TDBR"
# On i386 the compiler puts the same ones into every object, and the linker keeps one of each.
COMPILERS_OWN = "__x86.get_pc_thunk."


def defined_symbols(nm, objects):
    lines = subprocess.run([nm, "--defined-only", *objects], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    for line in lines:
        words = line.split(" ", 2)
        if (len(words) == 3 and words[1] in STRONG_TYPES
                and not words[2].startswith(COMPILERS_OWN)):
            yield words[2]


def main(nm, *objects):
    counts = collections.Counter(defined_symbols(nm, objects))
    for name, count in sorted(counts.items()):
        if count > 1:
            print("defined more than once:", name)
    return 0 if counts and max(counts.values()) == 1 else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
