# SPDX-License-Identifier: MIT
"""check_corpus.py --with WITNESS READER CORPUS [--every N]: READER and the witness find the same
people, names, subjects, texts and attachments in real messages.

Messages that Python's email finds a defect in are left out: there is nothing to agree on. What the
two are known to read differently is one of the classes below, each with its reason; any other
difference fails."""
import argparse
import collections
import email
import email.policy
import html.parser
import json
import os
import re
import subprocess
import sys

import witnesses

# What may differ, and why.
CLASSES = {
    "separator": "it begins with an mbox's separator or an empty line, or its lines end in CR alone:"
                 " not a message as it stands, and each reader begins elsewhere",
    "undeclared": "the witness shows replacement characters or escape sequences where bytes name no"
                  " charset, or a false one: here a charset is proposed",
    "tree": "the tree differs: a digest's parts, which hold a message each, are the messages"
            " themselves here; empty parts are none; reports and external bodies hold no parts",
    "comment": "a comment behind an address is its name where there is no other",
    "nobody": "the witness takes nobody from a field with bytes that are no text",
    "enclosed": "a message without a text of its own shows that of the message in it",
    "rich": "text/enriched and text/richtext are shown; the witness has no text for them",
    "alternatives": "of several alternatives of one form the last is shown, the witness takes the"
                    " first",
    "encoding": "broken base64 or quoted-printable, or an encoding with more than its name: decoded"
                " as far as it goes here, left alone by the witness",
    "letters": "one character of a charset that is mapped in two ways (wave dash, C1 controls)",
    "name": "a name without quotes goes up to the next ';', a backslash in quotes stands for itself"
            " in front of a letter, words are decoded wherever they stand, quotes that encoded words"
            " brought in stay, and blanks around a name go",
    "words": "an encoded word that was cut, or whose base64 is broken: each reads what it can",
    "root": "the text of a related part whose root is named by a start that fits none",
    "html": "what the sender hid or cut in pieces: conditional comments, tags inside words",
}


def squeezed(text):
    """Without blanks, quote marks and what is invisible; where charsets differ by tradition, alike."""
    text = re.sub("[\x80-\x9f]", lambda c: c.group().encode("latin-1").decode("cp1252", "replace"), text)
    text = text.replace("\u301c", "\uff5e").replace("\u2014", "\u2015").replace("\u2016", "\u2225")
    return re.sub(r"[\s>\u200b\ufeff\ufffd\x1a]+", "", text)


def is_unreadable(text):
    return "\ufffd" in text or "\x1b" in text or any("\udc80" <= c <= "\udcff" for c in text)


class VisibleText(html.parser.HTMLParser):
    HIDDEN = ("script", "style", "head", "title")

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.pieces, self.hidden = [], 0

    def handle_starttag(self, tag, attributes):
        self.hidden += tag in self.HIDDEN

    def handle_endtag(self, tag):
        if tag in self.HIDDEN and self.hidden:
            self.hidden -= 1

    def handle_data(self, data):
        if not self.hidden:
            self.pieces.append(data)


def words(text):
    return collections.Counter(re.findall(r"\w+", text))


def missing_share(source, shown):
    """How much of the HTML's words is not shown."""
    parser = VisibleText()
    parser.feed(source)
    parser.close()
    wanted = words(" ".join(parser.pieces))
    return sum((wanted - words(shown)).values()) / max(1, sum(wanted.values()))


def is_latin_reading(name, other):
    """Whether the witness read UTF-8 that names no charset as Latin-1."""
    try:
        return name.encode("latin-1").decode("utf-8") == other
    except UnicodeError:
        return False


def class_of_people(wanted, found):
    if len(wanted) != len(found) or [a for _, a in wanted] != [a for _, a in found]:
        return None if wanted else "nobody"
    known = set()
    for (name, _), (other, _) in zip(wanted, found):
        if name == other:
            continue
        if not name or name == other.strip('"'):
            known.add("comment")
        elif is_unreadable(name) or is_latin_reading(name, other):
            known.add("undeclared")
        elif "=?" in name or squeezed(other).startswith(squeezed(name)):
            known.add("name")
        else:
            return None
    return min(known)


def compare_people(field, wanted, found, report):
    if wanted != found:
        report(class_of_people(wanted, found), field, wanted, found)


def compare_names(wanted, found, report):
    if [kind for kind, _ in wanted] != [kind for kind, _ in found]:
        report("tree", "types", wanted, found)
        return
    for (_, name), (_, other) in zip(wanted, found):
        if name == other:
            continue
        if is_unreadable(name):
            report("undeclared", "name", name, other)
        else:
            # Each of these has the witness' name, or nothing, where ours has more.
            short = re.sub(r"[\\\s]", "", name)
            odd = "=?" in name or re.sub(r"[\\\s]", "", other).startswith(short)
            report("name" if odd else None, "name", name, other)


def compare_text(message, found, trees_agree, report):
    body = message.get_body(("plain", "html"))
    if body is None:
        if found.strip():
            kinds = {part.get_content_type() for part in message.walk()}
            rich = kinds & {"text/enriched", "text/richtext"}
            enclosed = any(kind.startswith("message/") for kind in kinds)
            related = "multipart/related" in kinds
            known = "rich" if rich else "enclosed" if enclosed else "root" if related else None
            report(known if trees_agree else "tree", "text", None, found)
        return
    try:
        text = body.get_content()
    except LookupError:
        return
    if body.get_content_type() == "text/html":
        share = missing_share(text, found)
        if share > 0.02:
            report("undeclared" if is_unreadable(text) else "html" if share < 0.5 else None, "html",
                   text, found)
    elif squeezed(text) not in squeezed(found):
        report(class_of_text(message, body, text, trees_agree), "text", text, found)


def class_of_text(message, body, text, trees_agree):
    if is_unreadable(text):
        return "undeclared"
    if not trees_agree:
        return "tree"
    kinds = [part.get_content_type() for part in message.walk()]
    forms = [kind for kind in kinds if kind in ("text/plain", "text/enriched", "text/richtext")]
    if "multipart/alternative" in kinds and len(forms) > 1:
        return "alternatives"
    if str(body.get("content-transfer-encoding", "7bit")).lower() not in ("7bit", "8bit", "binary"):
        return "encoding"
    charset = (body.get_content_charset() or "").lower()
    return "letters" if charset.startswith(("iso-2022-jp", "gb2312")) else None


def compare_attachments(message, found, report):
    """What its sender calls an attachment is one, but for signatures; enclosed messages have their
    own, and containers their parts."""
    def attachments(part):
        signed = part.get_content_type() == "multipart/signed"
        for number, child in enumerate(part.iter_parts()):
            if child.get_content_maintype() == "multipart":
                yield from attachments(child)
            elif child.is_attachment() and not (signed and number == 1):
                yield child.get_content_type()
    if message.get_content_maintype() != "multipart":
        return
    wanted = collections.Counter(attachments(message))
    if wanted - collections.Counter(found):
        report(None, "attachments", dict(wanted), found)


def people_by_email(message, field):
    headers = message.get_all(field, [])
    if any(header.defects for header in headers):
        return None
    return [[a.display_name, a.addr_spec] for h in headers for g in h.groups for a in g.addresses]


def compare_subject(message, found, report, raw):
    subject = message["subject"]
    if subject is None or subject.defects or str(subject).split() == found.split():
        return
    is_word = re.search(rb"(?mi)^subject:.*(\r?\n[ \t].*)*=\?", raw) is not None
    report("undeclared" if is_unreadable(str(subject)) else "words" if is_word else None, "subject",
           str(subject), found)


def compare_with_email(raw, found, report):
    message = email.message_from_bytes(raw, policy=email.policy.default)
    if any(part.defects for part in message.walk()):
        return False
    for field in ("from", "to", "cc"):
        wanted = people_by_email(message, field)
        if wanted is not None:
            compare_people(field, wanted, found[field], report)
    compare_subject(message, found["subject"], report, raw)
    leaves = [[part.get_content_type(), part.get_filename() or ""] for part in message.walk()]
    trees_agree = [kind for kind, _ in leaves] == [kind for kind, _ in found["parts"]]
    compare_names(leaves, found["parts"], report)
    compare_text(message, found["text"], trees_agree, report)
    if trees_agree:
        compare_attachments(message, found["attachments"], report)
    return True


def compare_with_gmime(raw, found, report):
    message = email.message_from_bytes(raw, policy=email.policy.default)
    if any(part.defects for part in message.walk()):
        return False
    seen = witnesses.people_and_names_by_gmime(raw)
    for field in ("from", "to", "cc"):
        if seen[field] is not None and people_by_email(message, field) is not None:
            compare_people(field, seen[field], found[field], report)
    compare_names(seen["parts"], found["parts"], report)
    return True


def begins_elsewhere(raw):
    return raw[:5] in (b"From ", b">From") or raw[:1] in (b"\r", b"\n") or \
        re.match(rb"[^\r\n]*\r[^\n]", raw) is not None


def compare(witness, path, found, counts):
    with open(path, "rb") as file:
        raw = file.read()
    begins = begins_elsewhere(raw)

    def report(known, what, wanted, ours):
        known = "separator" if begins else known
        counts[known] += 1
        if known is None:
            print(f"{path}: {what}\n  witness {str(wanted)[:500]!r}\n  ours    {str(ours)[:500]!r}")

    try:
        counts["compared" if witness(raw, found, report) else "defective"] += 1
    except (AttributeError, IndexError, LookupError, ValueError, RecursionError):
        # Python's email ends so on a few dozen headers and bodies of this world.
        counts["witness failed"] += 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--with", dest="witness", choices=("email", "gmime"), required=True)
    parser.add_argument("--every", type=int, default=1)
    parser.add_argument("reader")
    parser.add_argument("corpus")
    arguments = parser.parse_args()
    if not os.path.isdir(arguments.corpus):
        print(f"skipped: no collection of real messages at {arguments.corpus}")
        return
    paths = sorted(os.path.join(folder, name)
                   for folder, _, names in os.walk(arguments.corpus) for name in names)
    paths = paths[::arguments.every]
    # The reader wants each path whole; a command line takes all of them.
    output = subprocess.run([arguments.reader, *paths], check=True, capture_output=True).stdout
    answers = [json.loads(line) for line in output.decode().split("\n") if line]
    if len(answers) != len(paths):
        sys.exit(f"{len(paths)} messages, {len(answers)} answers")
    unread = [path for path, found in zip(paths, answers) if not found]
    if unread:
        sys.exit(f"not read: {unread[:5]}")
    witness = {"email": compare_with_email, "gmime": compare_with_gmime}[arguments.witness]
    counts = collections.Counter()
    try:
        for path, found in zip(paths, answers):
            compare(witness, path, found, counts)
    except witnesses.Missing as missing:
        print(f"skipped: {missing}")
        return
    for known, count in sorted(counts.items(), key=str):
        print(f"{count:6} {known or 'UNEXPLAINED'}: {CLASSES.get(known, '')}")
    sys.exit(1 if counts[None] else 0)


main()
