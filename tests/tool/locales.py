# SPDX-License-Identifier: MIT
"""Real mail on a terminal, in three locales: locales.py TOOL CORPUS

One in seven messages of the corpus goes through every reading command, in the C locale, in one of
UTF-8 and in one of 8 bits. Exit statuses are the documented ones and no control character reaches the
terminal. Without corpus the test skips; without locale sources it does without the third locale.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import terminal

COMMANDS = (["show", "--no-pager"], ["tree"], ["list", "--files"], ["text"], ["calendar"],
            ["headers"], ["lint"])

CONTROLS = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f\x7f-\x9f]")


def eight_bit_locale(folder):
    """The environment of a locale made for this run; None where it cannot be made."""
    command = ["localedef", "-c", "-i", "en_US", "-f", "ISO-8859-1", f"{folder}/en_US.ISO-8859-1"]
    try:
        subprocess.run(command, capture_output=True, check=True)
    except (OSError, subprocess.CalledProcessError):
        print("an 8-bit locale cannot be made here")
        return None
    # newlocale() of the C library forgets what it cut LOCPATH into; no leak of ours has that name.
    suppressions = pathlib.Path(folder, "suppressions")
    suppressions.write_text("leak:argz_add_sep\n")
    return {"LOCPATH": folder, "LC_ALL": "en_US.ISO-8859-1",
            "LSAN_OPTIONS": f"suppressions={suppressions}:print_suppressions=0"}


def failure_of(tool, command, files, environment):
    process, screen = terminal.start(tool, [*command, *files], 100,
                                     {"NO_COLOR": "1", **environment})
    shown = terminal.read_until(screen)
    os.close(screen)
    status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
    control = CONTROLS.search(shown)
    where = f"{' '.join(command)} in {environment['LC_ALL']}"
    if status not in (0, 1):
        return f"{where} ends with {status}: {shown[-300:]!r}"
    if control:
        return f"{where} shows {shown[max(control.start() - 80, 0):control.end()]!r}"
    return "" if shown else f"{where} shows nothing"


def main(tool, corpus):
    files = sorted(str(path.resolve()) for path in pathlib.Path(corpus).rglob("*")
                   if path.is_file())[::7]
    if not files:
        print(f"there is no corpus at {corpus}")
        return 77
    failed = False
    with tempfile.TemporaryDirectory() as folder:
        locales = [{"LC_ALL": "C"}, {"LC_ALL": "C.UTF-8"}, eight_bit_locale(folder)]
        for environment in filter(None, locales):
            for command in COMMANDS:
                failure = failure_of(tool, command, files, environment)
                failed = failed or bool(failure)
                print(failure, end="\n" if failure else "")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), sys.argv[2]))
