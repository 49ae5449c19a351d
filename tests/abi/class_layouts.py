# SPDX-License-Identifier: MIT
"""Compares the layouts of the public classes with a list: class_layouts.py LIBRARY LIST [--update]

Of each class the size, the bases, the members and the virtual functions with their places, as
libabigail reads them from the debugging information; what belongs to Qt shows as a name only.
"""
import difflib
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

OUR_NAME = re.compile(r"EMAIL_\w+|QCString|QPtrList<.*|QValueList<.*")


def abi_of(library):
    options = ["--no-corpus-path", "--no-comp-dir-path", "--no-show-locs", "--exported-interfaces-only"]
    run = subprocess.run(["abidw", *options, library], check=True, capture_output=True, text=True)
    return xml.etree.ElementTree.fromstring(run.stdout)


class Types:
    def __init__(self, abi):
        self.elements = {element.get("id"): element for element in abi.iter() if element.get("id")}

    def name(self, identity):
        element = self.elements.get(identity)
        if element is None:
            return "?"
        if element.get("name"):
            return element.get("name")
        inner = self.name(element.get("type-id"))
        return inner + {"pointer-type-def": "*", "reference-type-def": "&"}.get(element.tag, "")


def lines_of(declaration, types):
    yield f"{declaration.get('name')}: {int(declaration.get('size-in-bits')) // 8} bytes"
    for base in declaration.findall("base-class"):
        yield f"  base at {int(base.get('layout-offset-in-bits')) // 8}: {types.name(base.get('type-id'))}"
    for member in declaration.findall("data-member"):
        variable = member.find("var-decl")
        if member.get("layout-offset-in-bits") is not None:
            place = int(member.get("layout-offset-in-bits")) // 8
            yield f"  {place}: {variable.get('name')}, {types.name(variable.get('type-id'))}"
    virtuals = [(int(member.get("vtable-offset")), member.find("function-decl").get("name"))
                for member in declaration.findall("member-function") if member.get("vtable-offset")]
    for place, name in sorted(virtuals):
        yield f"  virtual {place if place >= 0 else '-'}: {name}"


def layouts_of(library):
    abi = abi_of(library)
    types = Types(abi)
    classes = {element.get("name"): element for element in abi.iter("class-decl")
               if element.get("size-in-bits") and OUR_NAME.fullmatch(element.get("name"))}
    for name in sorted(classes):
        yield from lines_of(classes[name], types)


def main(library, list_path, *options):
    path = pathlib.Path(list_path)
    try:
        found = list(layouts_of(library))
    except FileNotFoundError:
        print("skipped: abidw is missing; it is in Debian's abigail-tools")
        return 0
    if "--update" in options:
        path.write_text("\n".join(found) + "\n", encoding="utf-8")
        return 0
    expected = path.read_text(encoding="utf-8").splitlines()
    for line in difflib.unified_diff(expected, found, list_path, library, lineterm=""):
        print(line)
    return 0 if found == expected and found else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
