# SPDX-License-Identifier: MIT
"""Compares the exported symbols of a library with a list: exported_symbols.py NM LIBRARY LIST [--update]

Inline functions and instances of foreign templates are left out: which of them end up in a library
is up to the compiler and to how far it optimises. Qt 5 and Qt 6 name their list of texts differently.
"""
import pathlib
import re
import subprocess
import sys

OUR_NAME = re.compile(r"(?:(?:vtable|typeinfo|typeinfo name) for )?(?:EMAIL_\w+|QCString|tarvomime)\b|\w+_Cal$")
STRONG_TYPES = "TDBR"
TYPE_INFORMATION = re.compile(r"(?:vtable|typeinfo|typeinfo name) for ")


def exported_symbols(nm, library):
    lines = subprocess.run(
        [nm, "--dynamic", "--defined-only", "--demangle", library],
        check=True, capture_output=True, text=True).stdout.splitlines()
    for line in lines:
        _, kind, name = line.split(" ", 2)
        name = name.replace("QList<QString>", "QStringList")
        if OUR_NAME.match(name) and (kind in STRONG_TYPES or TYPE_INFORMATION.match(name)):
            yield name


def main(nm, library, list_path, *options):
    path = pathlib.Path(list_path)
    found = sorted(set(exported_symbols(nm, library)))
    if "--update" in options:
        path.write_text("\n".join(found) + "\n", encoding="utf-8")
        return 0
    expected = path.read_text(encoding="utf-8").splitlines()
    for name in sorted(set(expected) - set(found)):
        print("missing:", name)
    for name in sorted(set(found) - set(expected)):
        print("not in the list:", name)
    return 0 if found == expected and found else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
