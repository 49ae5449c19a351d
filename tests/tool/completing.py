# SPDX-License-Identifier: MIT
"""Completion with a real TAB: completing.py TOOL SCRIPTS

bash and zsh run on a pseudo-terminal with the scripts that are installed, and get what a user would
type. In front of the tool stands a word that shows its arguments instead of obeying them, so that a
completed line shows itself. fish tells its candidates without a terminal; other tests ask it.
"""
import os
import pathlib
import re
import shutil
import signal
import sys
import tempfile

import terminal

# Its parts are 1.1, 1.1.1 and 1.2.
MAIL = ("Content-Type: multipart/mixed; boundary=a\n\n"
        "--a\nContent-Type: multipart/mixed; boundary=b\n\n--b\n\nx\n--b--\n--a\n\nx\n--a--\n")
FILES = {"a.eml": MAIL, "two words.eml": MAIL}

PROMPT = "ready$ "
SHOWING = '''#!/bin/sh
if [ "$1" = __complete ]; then exec "$TOOL" "$@"; fi
printf ran:; printf '<%s>' "$@"; echo
'''

# How each shell starts and is told of its script in the folder $SCRIPTS.
SHELLS = {
    "bash": (["--norc", "--noprofile", "-i"], "source $SCRIPTS/tarvomime.bash"),
    "zsh": (["-f", "-i"], "unset zle_bracketed_paste; unsetopt prompt_sp; LISTMAX=999; bindkey -e; "
            "fpath=($SCRIPTS $fpath); autoload -Uz compinit; compinit -u -D"),
}

# The begin of a part's number that only one part has.
BEGUN = "1.1."

# Name, what is typed, and what the line becomes.
COMPLETED = [
    ("command", "tarvomime forw\t", "<forward>"),
    ("second_command", "tarvomime words enc\t", "<words><encode>"),
    ("option", "tarvomime compose --subj\t", "<compose><--subject>"),
    ("option_behind_a_file", "tarvomime show a.eml --no\t", "<show><a.eml><--no-pager>"),
    ("charset", "tarvomime text a.eml --charset koi\t", "<text><a.eml><--charset><koi8-u>"),
    ("charset_behind_equals", "tarvomime text --charset=koi\t", "<text><--charset=koi8-u>"),
    ("choice", "tarvomime tree --color alw\t", "<tree><--color><always>"),
    ("part", f"tarvomime extract a.eml --part {BEGUN}\t", "<extract><a.eml><--part><1.1.1>"),
    ("part_behind_equals", f"tarvomime extract a.eml --part={BEGUN}\t",
     "<extract><a.eml><--part=1.1.1>"),
    ("part_of_a_spaced_name", f"tarvomime extract two\\ words.eml --part {BEGUN}\t",
     "<extract><two words.eml><--part><1.1.1>"),
    ("file", "tarvomime show two\t", "<show><two words.eml>"),
]

# Name, what is typed, and what the shell offers.
OFFERED = [
    ("commands", "tarvomime re\t\t", ["reassemble", "reply"]),
    ("options", "tarvomime list --\t\t", ["--files", "--jobs", "--reverse", "--sort"]),
    ("charsets", "tarvomime text --charset iso-8859-1\t\t", ["iso-8859-15"]),
    ("parts", "tarvomime extract a.eml --part 1.\t\t", ["1.1.1", "1.1", "1.2"]),
]


class Typist:
    """Types into a shell on a terminal and reads what it shows."""

    def __init__(self, shell, folder, further):
        arguments, setup = SHELLS[shell]
        settings = {"HOME": folder, "INPUTRC": f"{folder}/inputrc", "PS1": PROMPT, **further}
        self.process, self.screen = terminal.start(shutil.which(shell), arguments, 80, settings)
        self.line(setup)

    def line(self, typed):
        """What the terminal shows until this line and one behind it, which tells its end, have run
        and the shell waits again: only then does it take a TAB as one."""
        os.write(self.screen, f"{typed}\ntarvomime end\n".encode())
        return terminal.read_until(self.screen,
                                   b"ran:<end>\r\n.*" + re.escape(PROMPT).encode())

    def close(self):
        os.close(self.screen)
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)


def failures_of(typist):
    for name, typed, line in COMPLETED:
        shown = typist.line(typed)
        if f"ran:{line}\r\n" not in shown:
            yield f"{name}: expected {line!r}\n     got {shown!r}"
    for name, typed, words in OFFERED:
        # The line is taken back once its candidates were shown.
        shown = typist.line(typed + "\x15")
        if not all(word in shown for word in words):
            yield f"{name}: expected {words!r}\n     got {shown!r}"


def failures_in(shell, tool, scripts):
    with tempfile.TemporaryDirectory() as folder:
        for name, content in FILES.items():
            pathlib.Path(folder, name).write_text(content, encoding="utf-8")
        pathlib.Path(folder, "bin").mkdir()
        showing = pathlib.Path(folder, "bin/tarvomime")
        showing.write_text(SHOWING, encoding="utf-8")
        showing.chmod(0o755)
        pathlib.Path(folder, "inputrc").write_text(
            "set completion-query-items 0\nset page-completions off\n"
            "set enable-bracketed-paste off\n", encoding="utf-8")
        os.chdir(folder)
        typist = Typist(shell, folder, {"TOOL": tool, "SCRIPTS": scripts,
                                        "PATH": f"{folder}/bin:{os.environ['PATH']}"})
        failures = [f"{shell}, {failure}" for failure in failures_of(typist)]
        typist.close()
        os.chdir("/")
    return failures


def main(tool, scripts):
    signal.alarm(600)
    failures = []
    present = [shell for shell in SHELLS if shutil.which(shell)]
    for shell in SHELLS:
        if shell in present:
            failures += failures_in(shell, tool, scripts)
        else:
            print(f"skipped: {shell} is not installed")
    for failure in failures:
        print(f"FAILED {failure}")
    rows = len(present) * len(COMPLETED + OFFERED)
    print(f"{rows - len(failures)} of {rows} rows passed in {', '.join(present)}")
    return 1 if failures else 0 if len(present) == len(SHELLS) else 77


if __name__ == "__main__":
    sys.exit(main(*map(os.path.abspath, sys.argv[1:3])))
