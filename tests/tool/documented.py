# SPDX-License-Identifier: MIT
"""The command lines of the documents, run as they stand there: documented.py TOOL README MANPAGE

Those of the README, of the man page and of every command's help run in a folder that holds the
files they name. Each must succeed and complain of nothing; the pipelines below must stand in both
documents, and print what is said here.
"""
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

SEPARATOR = "From a@b Mon Jun  3 10:15:00 2024\n"
PART = "--b\nContent-Type: text/plain\nContent-Disposition: attachment; filename={}.txt\n\nx\n"
MAIL = ("From: Joern <joern@b.example>\nTo: mira@a.example, mo@b.example\nSubject: Rechnung\n"
        "Date: Mon, 3 Jun 2024 10:15:00 +0000\nMessage-ID: <1@b.example>\n"
        "Received: from b.example\nList-Post: <mailto:list@b.example>\n"
        "Content-Type: multipart/mixed; boundary=b\n\n--b\nContent-Type: text/plain\n\ntext\n"
        + "".join(PART.format(number) for number in range(4)) + "--b--\n")
CALENDAR = ("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nMETHOD:{}\r\nBEGIN:VEVENT\r\nUID:1\r\n"
            "END:VEVENT\r\nEND:VCALENDAR\r\n")

FILES = {
    "mail.eml": MAIL,
    "draft.eml": MAIL,
    "archive.mbox": "\n".join([SEPARATOR + MAIL] * 3),
    "home/Maildir/cur/1.a:2,S": MAIL,
    "home/Maildir/new/2.b": "Subject: without\n\ntext\n",
    "invitation.eml": "Content-Type: text/calendar\n\n" + CALENDAR.format("REQUEST"),
    "meeting.ics": CALENDAR.format("REQUEST"),
    "off.ics": CALENDAR.format("CANCEL"),
    "letter.html": '<p>A letter with <img src="cid:map.png">',
    "answer.txt": "Ja.\n", "letter.txt": "A letter\n",
    "map.png": "x", "1.jpg": "x", "2.jpg": "x", "photo.jpg": "x", "photo.txt": "eA==\n",
}

# How a pipeline begins and ends, and what it prints at the end.
PIPELINES = [
    ("compose_and_show", r"^tarvomime compose .* --text Hello \| tarvomime show -$", "Hello"),
    ("list_and_jq", r"^tarvomime list --json ~/Maildir \| jq -r .*attachments > \d", "Rechnung"),
]


def commands_of_readme(text):
    blocks = re.findall(r"^```sh\n(.*?)^```", text, re.MULTILINE | re.DOTALL)
    return re.findall(r"^tarvomime .*", "\n".join(blocks), re.MULTILINE)


def commands_of_page(text):
    for escape, character in (("\\-", "-"), ("\\(aq", "'"), ("\\(dq", '"')):
        text = text.replace(escape, character)
    return re.findall(r"^\.B (tarvomime .*)", text, re.MULTILINE)


def commands_of_help(tool):
    def answer(*arguments):
        return subprocess.run([tool, *arguments], capture_output=True, check=True,
                              text=True).stdout
    commands = []
    for line in answer("__complete", "").splitlines()[1:]:
        shown = answer(line.split("\t")[0], "--help").replace("\\\n", "")
        commands += re.findall(r"^  (tarvomime .*)", shown, re.MULTILINE)
    return commands


def missing_program(command):
    """The first program of a pipeline that is not installed here."""
    words = list(shlex.shlex(command, posix=True, punctuation_chars=True))
    for before, name in zip(words, words[1:]):
        if before in ("|", "||") and name not in ("tarvomime", "echo") and not shutil.which(name):
            return name
    return None


def run(tool, command):
    """The exit status, the output and the complaints of a command line."""
    with tempfile.TemporaryDirectory() as folder:
        for name, content in FILES.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(content, encoding="utf-8", newline="")
        pathlib.Path(folder, "bin").mkdir()
        pathlib.Path(folder, "bin/tarvomime").symlink_to(tool)
        environment = dict(os.environ, HOME=f"{folder}/home", TZ="UTC", LC_ALL="C.UTF-8",
                           PATH=f"{folder}/bin:{os.environ['PATH']}")
        result = subprocess.run(["bash", "-c", f"set -o pipefail; {command}"], cwd=folder,
                                env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                                check=False, timeout=120)
    return result.returncode, result.stdout.decode(errors="replace"), result.stderr.decode()


def failures_of(tool, where, commands, pipelines):
    """What is wrong with the command lines of one document."""
    unseen = {name for name, _, _ in pipelines}
    for command in commands:
        missing = missing_program(command)
        expected = next((row for row in pipelines if re.search(row[1], command)), None)
        unseen -= {expected[0]} if expected else set()
        if missing:
            print(f"skipped, {missing} is not installed: $ {command}")
            continue
        status, out, complaints = run(tool, command)
        last = out.splitlines()[-1] if out else ""
        if status != 0 or complaints or (expected and last != expected[2]):
            yield f"{where}: $ {command}\nends with {status}: {out[-300:]!r}\n{complaints}"
    for name in sorted(unseen):
        yield f"{where}: the pipeline {name} does not stand there"


def main(tool, readme, page):
    of_readme = commands_of_readme(pathlib.Path(readme).read_text(encoding="utf-8"))
    of_page = commands_of_page(pathlib.Path(page).read_text(encoding="utf-8"))
    of_help = commands_of_help(tool)
    failures = [*failures_of(tool, "README", of_readme, PIPELINES),
                *failures_of(tool, "man page", of_page, PIPELINES),
                *failures_of(tool, "help", of_help, [])]
    for failure in failures:
        print(f"FAILED {failure}")
    print(f"{len(of_readme)} command lines of the README, {len(of_page)} of the man page, "
          f"{len(of_help)} of the help: {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), *sys.argv[2:]))
