#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds that every source of the libraries has a test of the same stem, in the folder that mirrors
its own: `utility/codec/Base64.cpp` has `tests/unit/codec/Base64_test.cpp`. Headers without a source
are tested with what uses them. Prints what is missing and what to do about it; the exit status is 0
only when nothing is.
"""

import sys
from pathlib import Path, PurePosixPath

# Where the tests of a folder's sources stand; the first that fits decides.
HOMES = {"types": "tests/unit/types", "utility": "tests/unit", "extra": "tests/extra"}


def test_of(source):
    top, *rooms = source.parent.parts
    return PurePosixPath(HOMES[top], *rooms, f"{source.stem}_test.cpp")


def missing_tests(root, sources):
    for source in sources:
        test = test_of(source)
        if not (root / test).is_file():
            yield (
                f"{source} has no {test}: move the rows that are about it there out of the broader "
                f"test, or write them, and name the file in {test_list(root, test)}"
            )


def unlisted_tests(root, sources):
    for test in map(test_of, sources):
        listing = root / test_list(root, test)
        name = str(test.relative_to(test_list(root, test).parent))
        if (root / test).is_file() and name not in listing.read_text(encoding="utf-8").split():
            yield f"{test} is in no program: name it in {test_list(root, test)}"


def test_list(root, test):
    """The CMake list that is to name a test: the nearest one above it."""
    folder = test.parent
    while not (root / folder / "CMakeLists.txt").is_file() and folder.parent != folder:
        folder = folder.parent
    return folder / "CMakeLists.txt"


def main():
    root = Path(sys.argv[1])
    files = (f for folder in HOMES for f in sorted((root / folder).rglob("*.cpp")))
    sources = [PurePosixPath(f.relative_to(root)) for f in files]
    if not sources:
        sys.exit(f"there are no sources below {root}")
    found = [*missing_tests(root, sources), *unlisted_tests(root, sources)]
    for line in found:
        print(line)
    print(f"{len(sources)} sources, {len(found)} findings")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
