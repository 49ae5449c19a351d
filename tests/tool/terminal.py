# SPDX-License-Identifier: MIT
"""What the tool does on a terminal: terminal.py TOOL

Each row runs on a pseudo-terminal of its own, of a given width, which is standard output and standard
error; what the terminal got is compared.
"""
import fcntl
import os
import pathlib
import pty
import re
import signal
import struct
import sys
import tempfile
import termios
import time

import program

MAIL = ("From: Someone With A Long Name <someone@b.example>\nSubject: {}\n"
        "Date: Mon, 3 Jun 2024 10:15:00 +0000\n\n{}\n")

FILES = {
    "long.eml": MAIL.format("a subject that is longer than any narrow terminal is wide", "x"),
    "wide.eml": MAIL.format("日本語の件名はとても長いのでここで切られます😀", "x"),
    "quote.eml": MAIL.format("s", "> quoted\nown"),
    "bare.eml": "A: b\n\nx\n",
    "evil.eml": MAIL.format("s", "a\x1b[2J\x9b\x07b"),
    "many.eml": MAIL.format("s", "line\n" * 300),
}

PAGER = "sed 's/^/paged: /'"

# Name, arguments, columns, further environment, what the terminal must show.
ROWS = [
    ("list_fits", ["list", "long.eml", "--color", "never"], 72, {},
     r"^2024-06-03 10:15  Someone With A Lo…         a subject that is longer t…\r\n$"),
    ("list_counts_cells", ["list", "wide.eml", "--color", "never"], 72, {},
     r"^2024-06-03 10:15  Someone With A Lo…         日本語の件名はとても長いの…\r\n$"),
    ("list_ends_with_what_it_has", ["list", "quote.eml", "bare.eml", "--color", "never"], 40, {},
     r"^2024-06-03 10:15  Someone Wit…         s\r\n\r\n$"),
    ("list_of_a_wide_terminal", ["list", "long.eml"], 200, {}, r"narrow terminal is wide\r\n$"),
    ("colour", ["tree", "quote.eml"], 80, {}, r"\x1b\[33m1\x1b\[0m  text/plain"),
    ("no_color_is_heard", ["tree", "quote.eml"], 80, {"NO_COLOR": "1"}, r"^[^\x1b]*$"),
    ("no_color_is_outvoted", ["tree", "quote.eml", "--color", "always"], 80, {"NO_COLOR": "1"},
     r"\x1b\[33m"),
    ("dumb_terminal", ["tree", "quote.eml"], 80, {"TERM": "dumb"}, r"^[^\x1b]*$"),
    ("quotes_stand_back", ["show", "quote.eml"], 80, {"PAGER": ""},
     r"\x1b\[2m> quoted\x1b\[0m\r\nown\r\n$"),
    ("evil_text_is_harmless", ["show", "evil.eml"], 80, {"PAGER": "", "NO_COLOR": "1"},
     r"^[^\x1b\x9b\x07\udc80-\udcff]*$"),
    ("pager", ["show", "quote.eml"], 80, {"PAGER": PAGER}, r"paged: own\r\n$"),
    ("no_pager", ["show", "quote.eml", "--no-pager"], 80, {"PAGER": PAGER}, r"^(?!.*paged)"),
    ("pager_that_had_enough", ["show", "many.eml"], 80, {"PAGER": "head -1"},
     r"^\x1b\[36mFrom:\x1b\[0m [^\n]*\n$"),
    ("pager_that_is_none", ["show", "quote.eml"], 80, {"PAGER": "cat"}, r"own\r\n$"),
]


def open_terminal(columns):
    screen, terminal = pty.openpty()
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
    return screen, terminal


def become_tool(tool, arguments, terminal, environment):
    os.setsid()
    fcntl.ioctl(terminal, termios.TIOCSCTTY, 0)
    for number in (0, 1, 2):
        os.dup2(terminal, number)
    os.execve(tool, [tool, *arguments], environment)


def environment_with(further):
    """A plain environment of its own, so that nothing of the user's shows."""
    environment = {"PATH": os.environ["PATH"], "TZ": "UTC", "LC_ALL": "C.UTF-8", "TERM": "xterm"}
    for name in ("LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    return {**environment, **further}


def start(tool, arguments, columns, further):
    environment = environment_with(further)
    screen, terminal = open_terminal(columns)
    process = os.fork()
    if process == 0:
        become_tool(tool, arguments, terminal, environment)
    os.close(terminal)
    return process, screen


def read_until(screen, wanted=None):
    """All that comes, or what comes until the pattern `wanted` is in it."""
    shown = b""
    while wanted is None or not re.search(wanted, shown, re.DOTALL):
        try:
            block = os.read(screen, 65536)
        except OSError:
            break  # the last one has closed the terminal
        if not block:
            break
        shown += block
    return shown.decode("utf-8", "surrogateescape")


def failure_of_row(tool, arguments, columns, further, expected):
    process, screen = start(tool, arguments, columns, further)
    shown = read_until(screen)
    os.close(screen)
    status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
    if status == 0 and re.search(expected, shown, re.DOTALL):
        return ""
    return f"$ {' '.join(arguments)}\nexpected {expected!r}\n     got {status}: {shown!r}"


def sparse_message(size):
    with open("large.eml", "wb") as file:
        file.write(b"Content-Type: application/x-zero; name=z\n\nx")
        file.truncate(size)


def failure_of_progress_and_interrupt(tool):
    """The bar comes after a second, Ctrl-C ends the work with 130 and wipes the bar away."""
    sparse_message(1 << 28)
    # A pipe that is read slowly keeps the work from ending first.
    os.mkfifo("slow")
    process, screen = start(tool, ["decode", "quoted-printable", "large.eml", "--out", "slow"],
                            80, {})
    slow = os.open("slow", os.O_RDONLY)
    for _ in range(15):
        os.read(slow, 1 << 16)
        time.sleep(0.1)
    shown = read_until(screen, rb"\] 0 %")
    os.write(screen, b"\x03")
    while os.read(slow, 1 << 16):
        pass  # it waits for room in the pipe
    os.close(slow)
    shown += read_until(screen)
    os.close(screen)
    status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
    if status == 130 and "Writing [" in shown and shown.endswith("\r\x1b[K"):
        return ""
    return f"the bar or its end is missing: {status}, {shown!r}"


def main(tool):
    signal.alarm(300)
    failures = {}
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        for name, content in FILES.items():
            pathlib.Path(name).write_text(content, encoding="utf-8")
        rows = ROWS
        if not program.reads_locales(tool):
            print("locales have another byte order: list_counts_cells is left out")
            rows = [row for row in rows if row[0] != "list_counts_cells"]
        for name, *row in rows:
            failures[name] = failure_of_row(tool, *row)
        failures["progress_and_interrupt"] = failure_of_progress_and_interrupt(tool)
        os.chdir("/")
    failed = {name: text for name, text in failures.items() if text}
    for name, text in failed.items():
        print(f"FAILED {name}\n{text}")
    print(f"{len(failures) - len(failed)} of {len(failures)} rows passed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1])))
