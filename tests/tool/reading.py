# SPDX-License-Identifier: MIT
"""What the reading commands print: reading.py TOOL [NAME]

Each row is a command line, run in a folder with the files below, and what it must print. Arguments
are words of a shell, so that pipelines stand here as their users write them. NAME is that of the HTML
parser's library, where it is opened when it is needed.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import program

SEPARATOR = b"From a@b Mon Jun  3 10:15:00 2024\n"


def mail(subject, text=b"text", date=b"Mon, 3 Jun 2024 10:15:00 +0000", header=b""):
    return (b"From: =?utf-8?Q?J=C3=B6rn?= <j@b.example>\nTo: a@b.example\nSubject: " + subject
            + b"\nDate: " + date + b"\n" + header + b"\n" + text + b"\n")


MIXED = (b"Subject: mixed\nContent-Type: multipart/mixed; boundary=b\n\n"
         b"--b\nContent-Type: text/html\n\n<p>first<p>second &amp; last\n"
         b"--b\nContent-Type: image/png; name=x.png\nContent-Transfer-Encoding: base64\n\nYWJj\n"
         b"--b\nContent-Type: message/rfc822\n\nSubject: =?utf-8?Q?Gr=C3=BC=C3=9Fe?=\n\ninner\n"
         b"--b\nContent-Type: application/pdf\n\n" + b"x" * 12345 + b"\n"
         b"--b--\n")

FILES = {
    "a.eml": mail(b"=?utf-8?Q?Gr=C3=BC=C3=9Fe?="),
    "mixed.eml": MIXED,
    "html.eml": mail(b"h", b"<p>one<p>two", header=b"Content-Type: text/html\n"),
    "image.eml": b"Subject: i\nContent-Type: image/png\n\nx\n",
    "latin.eml": b"A: b\n\n\xe9\n",
    "wide.eml": mail("日本語の件名".encode()),
    "midnight.eml": mail(b"m", date=b"Mon, 31 Dec 2023 23:30:00 +0000"),
    "years.mbox": b"\n".join(SEPARATOR + mail(b"y", date=b"1 May " + year + b" 10:15:00 +0000")
                              for year in (b"95", b"108", b"50", b"00", b"1969")),
    "none.eml": b"A: b\n\nx\n",
    "sender.eml": mail(b""),
    "marks.eml": b"Content-Type: image/png\n\nx\n",
    "archive.mbox": SEPARATOR + mail(b"one") + b"\n" + SEPARATOR
                    + mail(b"two", b"x\n\n>From here on") + b"\n" + SEPARATOR + mail(b"three"),
    "sort/1": mail(b"Re: b", b"x" * 500, b"Tue, 4 Jun 2024 10:15:00 +0000"),
    "sort/2": mail(b"a", b"x", b"Wed, 5 Jun 2024 10:15:00 +0000"),
    "sort/3": mail(b"C", b"x" * 100, b"Mon, 3 Jun 2024 10:15:00 +0000"),
    "Maildir/cur/1717409700.a:2,S": mail(b"seen"),
    "Maildir/new/1717409800.b": mail(b"fresh"),
    b"caf\xe9.eml": mail(b"latin name"),
}

SECOND = len(SEPARATOR + mail(b"one") + b"\n" + SEPARATOR)
THIRD = SECOND + len(mail(b"two", b"x\n\n>From here on") + b"\n" + SEPARATOR)
SUBJECTS = " | jq -r .subject"

# Name, command line, what is printed, and the exit status.
ROWS = [
    # Several inputs, standard input, a message of an mbox.
    ("standard_input", "$T text - < a.eml", "text\n", 0),
    ("standard_input_from_a_pipe", "cat a.eml | $T text -", "text\n", 0),
    ("standard_input_beside_a_file", "cat a.eml | $T text - latin.eml",
     "==> standard input <==\ntext\n\n==> latin.eml <==\né\n", 0),
    ("standard_input_is_an_mbox", "cat archive.mbox | $T text - --message 3", "text\n", 0),
    ("standard_input_without_anything", "$T text - < /dev/null",
     "tarvomime: standard input: is empty\n", 1),
    ("standard_input_of_nothing", "true | $T text -", "tarvomime: standard input: is empty\n", 1),
    ("message_by_number", "$T text archive.mbox --message 2", "x\n\nFrom here on\n", 0),
    ("message_by_offset", f"$T text archive.mbox --offset {SECOND}", "x\n\nFrom here on\n", 0),
    ("message_by_a_byte_of_it", f"$T text archive.mbox --offset {SECOND + 9}",
     "x\n\nFrom here on\n", 0),
    ("message_that_is_not_there", "$T text archive.mbox --message 4",
     "tarvomime: archive.mbox: has no message 4\n", 1),
    ("byte_that_is_not_there", "$T text archive.mbox --offset 99999",
     "tarvomime: archive.mbox: has no message at byte 99999\n", 1),
    ("a_file_is_message_one", "$T text a.eml --message 1", "text\n", 0),
    ("number_and_offset", "$T text a.eml --message 1 --offset 1 2>/dev/null", "", 2),
    ("mbox_as_headings", "$T headers archive.mbox | grep '==>'",
     "==> archive.mbox, message 1 <==\n==> archive.mbox, message 2 <==\n"
     "==> archive.mbox, message 3 <==\n", 0),
    ("folder", "$T headers sort | grep -c '^Subject'", "3\n", 0),
    ("maildir", "$T list --json Maildir" + SUBJECTS, "seen\nfresh\n", 0),
    ("tree_of_an_mbox", "$T tree --json archive.mbox | jq -c '[.message, .offset]' | head -2",
     f"[1,34]\n[2,{SECOND}]\n", 0),
    ("lint_of_an_mbox", "$T lint --json archive.mbox | jq -c '[.message, .findings]' | tail -1",
     "[3,[]]\n", 0),
    # list
    ("list_is_local_time", "TZ=Asia/Tokyo $T list midnight.eml",
     "2024-01-01 08:30  Jörn <j@b.example>                     m\n", 0),
    ("list_reads_short_years", "$T list years.mbox | cut -c 1-16 | cut -d ' ' -f 1",
     "1995-05-01\n2008-05-01\n1950-05-01\n2000-05-01\n1969-05-01\n", 0),
    ("list_json_reads_short_years",
     "$T list --json --sort date years.mbox | jq -r .date | cut -c 1-10",
     "1950-05-01\n1969-05-01\n1995-05-01\n2000-05-01\n2008-05-01\n", 0),
    ("list_counts_cells", "$T list wide.eml --files",
     "2024-06-03 10:15  Jörn <j@b.example>                     "
     "日本語の件名                              wide.eml\n", 0),
    ("list_ends_with_what_it_has", "for mail in none sender marks; do "
     "$T list $mail.eml; $T list $mail.eml --color always; done",
     "\n\n"
     "2024-06-03 10:15  Jörn <j@b.example>\n"
     "\x1b[2m2024-06-03 10:15  \x1b[0mJörn <j@b.example>\n"
     + 18 * " " + 32 * " " + "@1\n"
     "\x1b[2m" + 18 * " " + "\x1b[0m" + 32 * " " + "\x1b[33m@1\x1b[0m\n", 0),
    ("list_names_files", "$T list archive.mbox --files | sed 's/.*  //' | tail -1",
     "archive.mbox --message 3\n", 0),
    ("list_by_date", "$T list --json --sort date sort" + SUBJECTS, "C\nRe: b\na\n", 0),
    ("list_by_subject", "$T list --json --sort subject sort" + SUBJECTS, "a\nRe: b\nC\n", 0),
    ("list_by_size", "$T list --json --sort size --reverse sort" + SUBJECTS, "Re: b\nC\na\n", 0),
    ("list_turned_round", "$T list --json --reverse sort" + SUBJECTS, "C\na\nRe: b\n", 0),
    ("list_on_threads", "for i in $(seq 40); do cat archive.mbox; echo; done > many.mbox; "
     "$T list --jobs 1 many.mbox > one; $T list --jobs 7 many.mbox | cmp - one && wc -l < one",
     "120\n", 0),
    ("list_counts_attachments", "$T list --json mixed.eml image.eml html.eml | "
     "jq -c '[.attachments, .hasAttachment]'", "[3,true]\n[1,true]\n[0,false]\n", 0),
    # show
    ("show_reads_html", "$T show html.eml | tail -3", "one\n\ntwo\n", 0),
    ("show_names_what_is_enclosed", "$T show mixed.eml | grep rfc822",
     "   ├─ 1.3  message/rfc822, 43 bytes, subject: Grüße\n", 0),
    ("show_says_sizes_for_people", "$T show mixed.eml | grep pdf",
     "   └─ 1.4  application/pdf, 12.3 kB\n", 0),
    ("show_in_colour", "$T show --color always image.eml | head -1",
     "\x1b[36mSubject:\x1b[0m i\n", 0),
    ("show_without_a_terminal", "$T show image.eml | head -1", "Subject: i\n", 0),
    # text
    ("text_of_a_part", "$T text mixed.eml --part=1.1", "first\n\nsecond & last\n", 0),
    ("text_of_an_enclosed_part", "$T text mixed.eml --part=1.3.1", "inner\n", 0),
    ("text_of_no_part", "$T text mixed.eml --part=1.9",
     "tarvomime: mixed.eml: has no part numbered 1.9\n", 1),
    ("text_of_an_image", "$T text mixed.eml --part=1.2", "tarvomime: mixed.eml: the part is "
     "image/png, no text; 'extract' writes it into a file\n", 1),
    ("text_as_html", "$T text html.eml --html", "<p>one<p>two\n", 0),
    ("text_made_html", "$T text a.eml --html", "<pre>text\n</pre>\n", 0),
    ("text_in_a_codec_of_its_own", "$T text latin.eml --charset windows-1253", "ι\n", 0),
    # extract
    ("extract_to_standard_output", "$T extract mixed.eml --part=1.2 --out -", "abc", 0),
    ("extract_all_to_standard_output", "$T extract mixed.eml --all --out -",
     "tarvomime: standard output takes one part: --part says which\n", 2),
    ("extract_from_standard_input", "$T extract - --part=1.2 --out - < mixed.eml", "abc", 0),
    ("extract_of_an_mbox", "$T extract archive.mbox --message 2 --all --out new && cat new/*",
     "1  new/part-1.txt\nx\n\nFrom here on\n", 0),
    # reply and forward
    ("reply_to_a_message_of_an_mbox", "$T reply archive.mbox --message 2 --from a@b.example "
     "--text Ja. | $T text - | tail -4", "On Mon, 3 Jun 2024 10:15:00 +0000, Jörn wrote:\n> x\n>\n"
     "> From here on\n", 0),
    ("reply_to_an_mbox", "$T reply archive.mbox --from a@b.example",
     "tarvomime: archive.mbox: holds several messages: --message says which\n", 1),
    ("reply_to_a_folder", "$T reply sort --from a@b.example",
     "tarvomime: sort: is a folder, not a file\n", 1),
    ("reply_keeps_whole_lines", "{ echo 'From: a@b.example'; echo; printf 'word %.0s' $(seq 15); } "
     "> a.eml; $T reply a.eml --from c@d.example | $T text - | tail -1",
     "> " + 14 * "word " + "word\n", 0),
    ("forward_a_message_of_an_mbox", "$T forward archive.mbox --message 2 --attached --from "
     "a@b.example --to c@d.example | $T text - --part=1.2.1", "x\n\nFrom here on\n", 0),
    # JSON
    ("bytes_that_are_no_text", "$T list --json caf*.eml | jq -c .file",
     '{"base64":"Y2Fm6S5lbWw="}\n', 0),
    # Manners
    ("no_command", "$T", "tarvomime: a command is required\nTry 'tarvomime --help'.\n", 2),
    ("option_before_a_command", "$T --json; $T --json list a.eml",
     2 * "tarvomime: '--json' is no option in front of a command\nTry 'tarvomime --help'.\n", 2),
    ("number_that_is_too_small", "$T list --jobs 0 a.eml", "tarvomime: --jobs: '0' is no whole "
     "number from 1 on\nTry 'tarvomime list --help'.\n", 2),
    ("number_that_is_none", "$T reply --message 1x a.eml 2>&1 | head -1",
     "tarvomime: --message: '1x' is no whole number from 1 on\n", 0),
    ("help_without_largest_numbers", "$T help text | grep -A1 'NUMBER E'",
     "  --message NUMBER Excludes: --offset\n"
     "                              Only this message of an mbox, counted from 1\n"
     "  --offset NUMBER Excludes: --message\n"
     "                              Only the message of an mbox that this byte belongs to\n", 0),
    ("unknown_command", "$T lst a.eml", "tarvomime: 'lst' is no command; did you mean 'list'?\n"
     "Try 'tarvomime --help'.\n", 2),
    ("unknown_command_begun", "$T ext a.eml 2>&1 | head -1",
     "tarvomime: 'ext' is no command; did you mean 'extract'?\n", 0),
    ("unknown_command_far_from_all", "$T frobnicate",
     "tarvomime: 'frobnicate' is no command\nTry 'tarvomime --help'.\n", 2),
    ("help_of_a_command", "$T help list > a; $T list --help | cmp - a && head -1 a",
     "Print a line for each message of files, folders, Maildirs and mboxes\n", 0),
    ("help_alone", "$T help > a; $T --help | cmp - a && echo same", "same\n", 0),
    ("version_in_short", "$T -V > a; $T --version | cmp - a && echo same", "same\n", 0),
    ("unknown_charset", "$T text a.eml --charset nope 2>&1 | grep -o 'known are us-ascii'",
     "known are us-ascii\n", 0),
    ("broken_pipe", "for i in $(seq 999); do cat archive.mbox; echo; done > many.mbox; "
     "{ $T list many.mbox; echo $? >&3; } 3> status | head -1 > /dev/null; cat status", "141\n", 0),
]

# A message of 2 GiB without room on the disk, and three others behind it.
LARGE = ("{ head -c 60 archive.mbox; echo; echo; } > large.mbox; truncate -s 2G large.mbox; "
         "{ echo; echo; cat archive.mbox; } >> large.mbox; ")
LARGE_PROBLEM = "tarvomime: large.mbox, message 1: is too large (2 GiB or more)\n"
ROWS_OF_64_BITS = [
    ("mbox_beyond_2_gib",
     LARGE + "$T list --jobs 1 --json large.mbox | jq -c '[.subject, .offset]'",
     LARGE_PROBLEM + f'["one",{(1 << 31) + 36}]\n["two",{(1 << 31) + 2 + SECOND}]\n'
     f'["three",{(1 << 31) + 2 + THIRD}]\n', 0),
    ("message_by_a_byte_beyond_2_gib", LARGE +
     f"$T extract --part=1 --out - large.mbox --offset {(1 << 31) + 2 + SECOND}",
     "x\n\nFrom here on\n", 0),
    ("list_reads_years_beyond_2038",
     "sed 's/May 95/May 49/; s/May 108/May 12345/' years.mbox > far.mbox; "
     "$T list --json far.mbox | jq -r .date | head -2", "2049-05-01T10:15:00Z\nnull\n", 0),
    ("file_of_2_gib", "truncate -s 2G large; $T list large",
     "tarvomime: large: is too large (2 GiB or more)\n", 1),
]

# A file that is no library hides the real one.
ROWS_WITHOUT_HTML_PARSER = [
    ("html_without_its_parser", "mkdir none; touch none/$HTML_PARSER; "
     "LD_LIBRARY_PATH=$PWD/none:$LD_LIBRARY_PATH $T text html.eml", "<p>one<p>two\n", 0),
]


def write_files(folder):
    for name, content in FILES.items():
        path = os.path.join(os.fsencode(folder), os.fsencode(name))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        pathlib.Path(os.fsdecode(path)).write_bytes(content)


def failure_of(tool, html_parser, command, expected, status):
    environment = dict(os.environ, T=tool, HTML_PARSER=html_parser, TZ="UTC", LC_ALL="C.UTF-8")
    with tempfile.TemporaryDirectory() as folder:
        write_files(folder)
        result = subprocess.run(["bash", "-c", f"exec 2>&1; {command}"], cwd=folder,
                                env=environment, capture_output=True, check=False, timeout=120)
    if (result.stdout, result.returncode) == (expected.encode(), status):
        return ""
    return (f"$ {command}\nexpected {status}: {expected!r}\n"
            f"     got {result.returncode}: {result.stdout.decode(errors='replace')!r}")


def main(tool, html_parser=""):
    failed = 0
    rows = ROWS + (ROWS_WITHOUT_HTML_PARSER if html_parser else [])
    if program.has_64_bits(tool):
        rows = rows + ROWS_OF_64_BITS
    else:
        print(f"there are no files of 2 GiB for 32 bits: {len(ROWS_OF_64_BITS)} rows are left out")
    if not program.reads_locales(tool):
        print("locales have another byte order: list_counts_cells is left out")
        rows = [row for row in rows if row[0] != "list_counts_cells"]
    if shutil.which("jq") is None:
        missing = [row for row in rows if "jq " in row[1]]
        rows = [row for row in rows if row not in missing]
        print(f"jq is not installed: {len(missing)} rows are left out")
    for name, command, expected, status in rows:
        failure = failure_of(tool, html_parser, command, expected, status)
        if failure:
            failed += 1
            print(f"FAILED {name}\n{failure}")
    print(f"{len(rows) - failed} of {len(rows)} rows passed")
    return 1 if failed else 0


if __name__ == "__main__":
    names = [row[0] for row in ROWS + ROWS_OF_64_BITS + ROWS_WITHOUT_HTML_PARSER]
    assert len(set(names)) == len(names), "names are unique"
    sys.exit(main(*sys.argv[1:]))
