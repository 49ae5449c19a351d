# SPDX-License-Identifier: MIT
"""Real mail in three locales, on a terminal and in a pipe: locales.py TOOL CORPUS

One in seven messages of the corpus, or with TARVOMIME_WHOLE_CORPUS=1 every one, goes through every
command that reads messages, in the C locale, in one of UTF-8 and in one of 8 bits. Exit statuses
are the documented ones, no sanitizer speaks up, and no control character reaches the terminal.
Without corpus the test skips; without locale sources it does without the third locale.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import terminal

COMMANDS = (["show", "--no-pager"], ["tree"], ["list", "--files"], ["text"], ["calendar"],
            ["headers"], ["lint"], ["diff"], ["extract", "--all", "--out"])

# A byte that is no UTF-8 is one that the terminal of an 8-bit locale might obey.
CONTROLS = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f\x7f-\x9f\udc80-\udcff]")
SANITIZER = re.compile("ERROR: AddressSanitizer|LeakSanitizer|runtime error")


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


def run_on_terminal(tool, arguments, environment):
    process, screen = terminal.start(tool, arguments, 100, {"NO_COLOR": "1", **environment})
    shown = terminal.read_until(screen)
    os.close(screen)
    # On a slow machine a progress bar comes and goes: its own escapes are allowed.
    return os.waitstatus_to_exitcode(os.waitpid(process, 0)[1]), shown.replace("\r\x1b[K", "\r")


def run_in_pipe(tool, arguments, environment):
    result = subprocess.run([tool, *arguments], env=terminal.environment_with(environment),
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, check=False)
    return result.returncode, result.stdout.decode("utf-8", "surrogateescape")


def failure_of(run, status, shown):
    report = SANITIZER.search(shown)
    if report:
        text = shown[max(report.start() - 80, 0):][:3000]
        return f"has a sanitizer's report:\n{text.encode(errors='replace').decode()}"
    if status not in (0, 1):
        return f"ends with {status}: {shown[-300:]!r}"
    control = CONTROLS.search(shown) if run is run_on_terminal else None
    if control:
        return f"shows {shown[max(control.start() - 80, 0):control.end()]!r}"
    return "" if shown else "shows nothing"


def main(tool, corpus):
    step = 1 if os.environ.get("TARVOMIME_WHOLE_CORPUS") else 7
    files = sorted(str(path.resolve()) for path in pathlib.Path(corpus).rglob("*")
                   if path.is_file())[::step]
    if not files:
        print(f"skipped: no collection of real messages at {corpus}")
        return 77
    runs = failed = 0
    with tempfile.TemporaryDirectory() as folder:
        locales = [{"LC_ALL": "C"}, {"LC_ALL": "C.UTF-8"}, eight_bit_locale(folder)]
        for environment in filter(None, locales):
            for command in COMMANDS:
                for run in (run_on_terminal, run_in_pipe):
                    target = [f"{folder}/{runs}"] if command[-1] == "--out" else []
                    failure = failure_of(run, *run(tool, [*command, *target, *files], environment))
                    runs += 1
                    failed += bool(failure)
                    if failure:
                        print(f"{' '.join(command)} in {environment['LC_ALL']}, {run.__name__}, "
                              f"{failure}")
    print(f"{len(files)} messages, {runs} runs, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), sys.argv[2]))
