# SPDX-License-Identifier: MIT
"""Makes sources of the C++ snippets in a page: extract_snippets.py PAGE PREFIX

The n-th ```cpp block becomes PREFIX<n>.cpp. A block with a main() stays as it is; the statements of
any other become the body of a function, behind their include lines.
"""
import pathlib
import re
import sys

BLOCK = re.compile(r"^```cpp\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def source_of(code):
    if "int main(" in code:
        return code
    lines = code.splitlines()
    includes = [line for line in lines if line.startswith("#include")]
    statements = [line for line in lines if not line.startswith("#include")]
    return "\n".join([*includes, "void snippet();", "void snippet()", "{", *statements, "}", ""])


def main(page, prefix):
    for number, code in enumerate(BLOCK.findall(pathlib.Path(page).read_text(encoding="utf-8")), 1):
        path = pathlib.Path(f"{prefix}{number}.cpp")
        source = source_of(code)
        if not path.exists() or path.read_text(encoding="utf-8") != source:
            path.write_text(source, encoding="utf-8")
        print(path)


if __name__ == "__main__":
    main(*sys.argv[1:])
