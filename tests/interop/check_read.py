# SPDX-License-Identifier: MIT
"""check_read.py READER: READER finds in messages that Python's email composes what went in."""
import base64
import json
import os
import subprocess
import sys
import tempfile
from email.header import Header
from email.message import EmailMessage
from email.mime.application import MIMEApplication
from email.mime.multipart import MIMEMultipart
from email.mime.text import MIMEText
from email.policy import SMTP

ALL_BYTES = bytes(range(256)) * 5
# Every word is an encoded one: this library drops the blank between an encoded word and plain text
# after it.
SUBJECT = "Größe für Köln, " * 5 + "Ölgemälde"
TEXT = "Zwölf Boxkämpfer\r\njagen = Viktor über den großen Deich " + "é" * 100


def leaf(media_type, content, text=None, name="", attachment=False):
    node = {
        "type": media_type,
        "name": "",
        "file": name,
        "attachment": attachment,
        "bytes": content,
    }
    if text is not None:
        node["text"] = text
    return node


def text_leaf(text, charset, subtype="plain"):
    return leaf(f"text/{subtype}", text.encode(charset), text)


def head(message):
    message["Subject"] = SUBJECT if isinstance(message, EmailMessage) else Header(SUBJECT, "utf-8")
    message["From"] = "Ann <ann@example.org>"
    message["To"] = "bob@example.org, carl@example.org"
    return message


def single_parts():
    for charset in ("utf-8", "iso-8859-1", "iso-8859-15"):
        for encoding in ("quoted-printable", "base64", "8bit"):
            message = EmailMessage(policy=SMTP)
            message.set_content(TEXT, charset=charset, cte=encoding)
            yield f"{charset} {encoding}", message, text_leaf(TEXT, charset), TEXT, 0
    for charset, text in (("koi8-r", "Привет"), ("gb2312", "中文"), ("big5", "中文"),
                          ("iso-8859-7", "αβγ"), ("windows-1251", "Привет")):
        message = EmailMessage(policy=SMTP)
        message.set_content(text, charset=charset, cte="base64")
        yield charset, message, text_leaf(text, charset), text, 0
    message = EmailMessage(policy=SMTP)
    message.set_content(ALL_BYTES, "application", "pdf", cte="base64")
    yield "pdf", message, leaf("application/pdf", ALL_BYTES), "", 1


def multiparts():
    message = EmailMessage(policy=SMTP)
    message.set_content("plain é", cte="quoted-printable")
    message.add_alternative("<b>html é</b>", subtype="html", cte="base64")
    html = message.get_payload()[1]
    html.add_related(ALL_BYTES, "image", "png", filename="a.png", disposition="inline")
    message.add_attachment(ALL_BYTES, "application", "zip", filename="two words.zip")
    tree = {"type": "multipart/mixed", "parts": [
        {"type": "multipart/alternative", "parts": [
            text_leaf("plain é", "utf-8"),
            {"type": "multipart/related", "parts": [
                text_leaf("<b>html é</b>", "utf-8", "html"),
                leaf("image/png", ALL_BYTES, name="a.png")]}]},
        leaf("application/zip", ALL_BYTES, name="two words.zip", attachment=True)]}
    yield "mixed", message, tree, "plain é", 1

    message = MIMEMultipart()
    message.attach(MIMEText("legacy é", "plain", "utf-8"))
    attachment = MIMEApplication(ALL_BYTES)
    attachment["Content-Disposition"] = 'attachment; filename="%s"' % Header("Übersicht.bin", "utf-8").encode()
    message.attach(attachment)
    tree = {"type": "multipart/mixed", "parts": [
        text_leaf("legacy é", "utf-8"),
        leaf("application/octet-stream", ALL_BYTES, name="Übersicht.bin", attachment=True)]}
    yield "legacy", message, tree, "legacy é", 1

    message = EmailMessage(policy=SMTP)
    message.set_content("Come")
    message.add_alternative("BEGIN:VCALENDAR\nEND:VCALENDAR", subtype="calendar",
                            params={"method": "REQUEST"})
    tree = {"type": "multipart/alternative", "parts": [
        text_leaf("Come", "utf-8"),
        text_leaf("BEGIN:VCALENDAR\nEND:VCALENDAR", "utf-8", "calendar")]}
    yield "invitation", message, tree, "Come", 0


def lines(text):
    """Text as lines: line ends are the writer's choice, those around a body belong to no part."""
    return text.replace("\r\n", "\n").strip("\n")


def normalised(node):
    result = dict(node)
    if "parts" in result:
        result["parts"] = [normalised(child) for child in result["parts"]]
    elif "text" in result:
        result["text"] = lines(result["text"])
        del result["bytes"]
    elif isinstance(result["bytes"], str):
        result["bytes"] = base64.b64decode(result["bytes"])
    return result


def main():
    samples = list(single_parts()) + list(multiparts())
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        for number, (name, message, *_) in enumerate(samples):
            with open(os.path.join(folder, f"{number}.eml"), "wb") as file:
                file.write(head(message).as_bytes(policy=message.policy.clone(linesep="\r\n")))
        paths = [os.path.join(folder, f"{number}.eml") for number in range(len(samples))]
        output = subprocess.run([sys.argv[1], *paths], check=True, capture_output=True).stdout
        answers = output.splitlines()
        if len(answers) != len(samples):
            sys.exit(f"{len(samples)} messages, {len(answers)} answers")
        for (name, _, tree, body, attachments), path, line in zip(samples, paths, answers):
            found = json.loads(line)
            found["body"] = lines(found["body"])
            found["root"] = normalised(found["root"])
            expected = {
                "subject": SUBJECT,
                "from": "Ann <ann@example.org>",
                "to": "bob@example.org, carl@example.org",
                "body": lines(body),
                "attachments": attachments,
                "root": normalised(tree),
            }
            if found != expected:
                failures += 1
                with open(path, "rb") as file:
                    print(f"{name}:\n{file.read(3000)}\nexpected {expected}\nfound    {found}")
    print(f"{len(samples)} messages, {failures} read differently")
    sys.exit(1 if failures else 0)


main()
