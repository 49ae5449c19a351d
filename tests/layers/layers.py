#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the include lines of the sources against the order of the rooms.

A file may include what stands below it or in its own room. An arrow upward means that a rule sits
in the wrong room: move what both need down, or the rule up. Prints what is wrong and what to do
about it; the exit status is 0 only when nothing is.
"""

import fnmatch
import re
import sys
from pathlib import Path

# From the bottom up. Rooms on one row do not know each other. The first pattern that fits decides.
ROOMS = [
    {"types": ["types/*"]},
    {"the numbers": ["utility/EMAIL_Numbers.h"]},
    {"text": ["utility/text/*"], "vectors": ["utility/vectors/*"]},
    {"file": ["utility/file/*"], "time": ["utility/time/*"]},
    {"codec": ["utility/codec/*"]},
    {
        "the components' headers": [
            f"utility/EMAIL_{name}.h"
            for name in (
                "AddrList BaseComponent Body BodyPart ContentType DateTime DispositionType Entity "
                "Field Header Message"
            ).split()
        ]
    },
    {"header": ["utility/header/*"]},
    {"tree": ["utility/tree/*"]},
    {
        "the components' sources": [
            f"utility/EMAIL_{name}{part}.cpp"
            for name in (
                "AddrList BaseComponent Body BodyPart ContentType DateTime DispositionType Entity "
                "Field Header Message"
            ).split()
            for part in ("", "_*")
        ]
    },
    {"the face": ["utility/EMAIL_Util.*", "utility/EMAIL_Cal.*"]},
    {"the message API": ["utility/EMAIL_*", "utility/RefusedBody.h"]},
    {"extra": ["extra/*"]},
    {"the tool": ["tools/*"]},
]

INCLUDE = re.compile(r'^\s*#\s*include\s+["<]((?:types|utility|extra|tools)/[^">]+)[">]', re.M)


def room_of(path):
    for rank, row in enumerate(ROOMS):
        for room, patterns in row.items():
            if any(fnmatch.fnmatchcase(path, pattern) for pattern in patterns):
                return rank, room
    return None


def read_sources(root):
    folders = ("types", "utility", "extra", "tools")
    files = (f for folder in folders for f in sorted((root / folder).rglob("*")))
    return {
        str(f.relative_to(root)): f.read_text(encoding="utf-8")
        for f in files
        if f.suffix in (".h", ".cpp")
    }


def upward_arrows(includes):
    for path, targets in includes.items():
        home = room_of(path)
        if home is None:
            yield f"{path} is in no room: give its folder a row in {Path(__file__).name}"
            continue
        for target in targets:
            there = room_of(target)
            if there is None:
                yield f"{path} includes {target}, which is in no room"
            elif there[0] > home[0]:
                yield (
                    f"{path} ({home[1]}) includes {target} ({there[1]}), which stands above it: "
                    f"move what both need down, or this rule up"
                )
            elif there[0] == home[0] and there[1] != home[1]:
                yield (
                    f"{path} ({home[1]}) includes {target} ({there[1]}), its neighbour: "
                    f"move what both need below them"
                )


def circles(includes):
    """The headers that reach themselves, each circle once, found without recursion."""
    headers = {p: [t for t in ts if t in includes] for p, ts in includes.items() if p.endswith(".h")}
    state = {}
    for first in headers:
        trail, work = [], [(first, False)]
        while work:
            path, leaving = work.pop()
            if leaving:
                trail.pop()
                state[path] = "done"
            elif state.get(path) == "open":
                circle = trail[trail.index(path) :] + [path]
                yield f"a circle of headers: {' -> '.join(circle)}: a declaration in place of one include cuts it"
            elif path not in state:
                state[path] = "open"
                trail.append(path)
                work.append((path, True))
                work.extend((target, False) for target in headers.get(path, ()))


def calls_of_the_face(sources):
    for path, text in sources.items():
        if not path.startswith("utility/") or path.startswith("utility/EMAIL_Util."):
            continue
        for number, line in enumerate(text.splitlines(), 1):
            if "EMAIL_Util::" in line.split("//")[0]:
                yield f"{path}:{number} calls EMAIL_Util, the face for applications: call the kernel behind it"


def main():
    root = Path(sys.argv[1])
    sources = read_sources(root)
    if not sources:
        sys.exit(f"there are no sources below {root}")
    includes = {path: INCLUDE.findall(text) for path, text in sources.items()}
    found = [*upward_arrows(includes), *circles(includes), *calls_of_the_face(sources)]
    for line in found:
        print(line)
    print(f"{len(sources)} files, {sum(map(len, includes.values()))} includes, {len(found)} findings")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
