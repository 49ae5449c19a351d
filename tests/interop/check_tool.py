# SPDX-License-Identifier: MIT
"""check_tool.py TOOL: other readers find in what the tool writes what went in, person by person."""
import email
import email.policy
import email.utils
import os
import re
import subprocess
import sys
import tempfile

import witnesses

FIELDS = ("From", "To", "Cc", "Bcc", "Reply-To")
# Names as people have them: commas, quotes, specials, several scripts, long ones.
NAMES = [
    "Mira",
    "Okafor, Mira",
    'Mira "Mo" Okafor',
    "Back\\slash",
    "Dr. Mira Okafor (garden)",
    "a@b.example",
    "semi; colon: [x] <y>",
    "Jörg Müller",
    "Müller, Jörg",
    "Łukasz Żak",
    "Ελένη Παπαδοπούλου",
    "Привет, Мир",
    "Олена Її",
    "محمد علي",
    "דוד כהן",
    "王小明",
    "山田、太郎",
    "김철수",
    "สมชาย",
    "नमस्ते दुनिया",
    "ვანო",
    "Հայկ",
    "አበበ",
    "😀 Emoji, the third",
    "Very long name " * 12 + "end",
    "Größe, sehr lang " * 12 + "Ende",
]
SUBJECTS = ["plain", "Grüße aus Köln, heute", "件名", "word " * 60 + "end", "Привет " * 30 + "конец"]
TEXT = "Grüße,\n\n" + "eine lange Zeile " * 20 + "Ende\n\nFrom here\n.\n  indented\n> quoted\n-- \nMira\n"


def typed(name, address):
    """A mailbox as a person types it."""
    quoted = name.replace("\\", "\\\\").replace('"', '\\"')
    return f'"{quoted}" <{address}>'


def unflowed(text):
    """RFC 3676, for lines without quotes, which is what a reader makes of them."""
    out, flows = [], False
    for line in text.replace("\r\n", "\n").split("\n"):
        line = line[1:] if line.startswith(" ") else line
        if flows and line != "-- ":
            out[-1] += line
        else:
            out.append(line)
        flows = line.endswith(" ") and line != "-- "
    return "\n".join(out).strip("\n")


def read_with_email(path):
    # The old policy: the new one puts a blank between the encoded words of a long name.
    with open(path, "rb") as file:
        message = email.message_from_binary_file(file, policy=email.policy.compat32)
    people = {
        field: [(witnesses.email_words(name), address)
                for name, address in email.utils.getaddresses(message.get_all(field, []))]
        for field in FIELDS
    }
    text = message
    while text.is_multipart():
        text = text.get_payload(0)
    content = text.get_payload(decode=True).decode(text.get_content_charset())
    return people, witnesses.email_words(re.sub(r"\r?\n(?=[ \t])", "", message["Subject"])), content


def read_with_gmime(path):
    GMime = witnesses.gmime()
    with open(path, "rb") as file:
        stream = GMime.StreamMem.new_with_buffer(file.read())
    message = GMime.Parser.new_with_stream(stream).construct_message(None)
    people = {}
    for field, kind in zip(FIELDS, ("FROM", "TO", "CC", "BCC", "REPLY_TO")):
        found = message.get_addresses(getattr(GMime.AddressType, kind))
        boxes = [found.get_address(i) for i in range(found.length())]
        people[field] = [(box.get_name() or "", box.get_addr()) for box in boxes]
    text = message.get_mime_part()
    while isinstance(text, GMime.Multipart):
        text = text.get_part(0)
    raw = message.get_header_list().get_header("Subject").get_raw_value()
    subject = witnesses.gmime_words(re.sub(r"\r?\n(?=[ \t])", "", raw)).strip()
    return people, subject, text.get_text()


def compose(tool, path, people, subject):
    options = []
    for field, boxes in people.items():
        for name, address in boxes:
            options += ["--" + field.lower(), typed(name, address)]
    subprocess.run([tool, "compose", *options, "--subject", subject, "--text", "-", "--out", path],
                   input=TEXT.encode(), check=True)


def reply(tool, path, original):
    subprocess.run([tool, "reply", original, "--all", "--from", "me@b.example", "--text", "-",
                    "--no-quote", "--out", path], input=TEXT.encode(), check=True)


def samples(tool, folder):
    """Messages beside what must be found in them."""
    for number, name in enumerate(NAMES):
        other = NAMES[(number + 1) % len(NAMES)]
        people = {
            "From": [(name, "from@a.example")],
            "To": [(name, "to@a.example"), (other, "other@a.example")],
            "Cc": [(other, "cc@a.example")],
            "Bcc": [(name, "bcc@a.example")],
            "Reply-To": [(name, "reply@a.example"), (other, "reply2@a.example")],
        }
        subject = SUBJECTS[number % len(SUBJECTS)]
        path = os.path.join(folder, f"{number}.eml")
        compose(tool, path, people, subject)
        yield name, path, people, subject
        answer = os.path.join(folder, f"{number}-reply.eml")
        reply(tool, answer, path)
        expected = {"From": [("", "me@b.example")], "To": people["Reply-To"],
                    "Cc": people["To"] + people["Cc"], "Bcc": [], "Reply-To": []}
        yield name + " (reply)", answer, expected, "Re: " + subject


def main():
    readers = {"email": read_with_email}
    try:
        witnesses.gmime()
        readers["gmime"] = read_with_gmime
    except witnesses.Missing as missing:
        print(f"left out: {missing}")
    failures = count = 0
    with tempfile.TemporaryDirectory() as folder:
        for name, path, people, subject in samples(sys.argv[1], folder):
            for reader, read in readers.items():
                count += 1
                found_people, found_subject, found_text = read(path)
                found = (found_people, found_subject, unflowed(found_text))
                expected = (people, subject, TEXT.strip("\n"))
                if found != expected:
                    failures += 1
                    with open(path, "rb") as file:
                        print(f"{name}, {reader}:\n{file.read(2000)}\nexpected {expected}\nfound    {found}")
    print(f"{count} readings, {failures} differ")
    sys.exit(1 if failures else 0)


main()
