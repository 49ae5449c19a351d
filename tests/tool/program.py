# SPDX-License-Identifier: MIT
"""What kind of program the tool is: another processor's runs in an emulator."""
import pathlib
import shlex
import sys


def _beginning(tool):
    program = pathlib.Path(tool)
    if program.read_bytes().startswith(b"#!"):
        # It starts the emulator, with the program and the arguments behind it.
        program = pathlib.Path(shlex.split(program.read_text(encoding="utf-8"))[-2])
    with program.open("rb") as file:
        return file.read(6)


def has_64_bits(tool):
    return _beginning(tool)[4] == 2


def reads_locales(tool):
    """The C library refuses the files of locales in the other byte order, which are what an emulator
    of such a processor finds: there only ASCII is counted in cells."""
    return _beginning(tool)[5] == (1 if sys.byteorder == "little" else 2)
