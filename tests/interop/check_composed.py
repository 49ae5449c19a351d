# SPDX-License-Identifier: MIT
"""check_composed.py --with WITNESS COMPOSER: the witness reads every message that COMPOSER writes."""
import argparse
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

import witnesses


def addresses(text):
    """An address list without the blanks that each writer sets its own way."""
    return re.sub(r"\s*([,<])\s*", r"\1", text).replace('"', "")


def normalised(tree):
    result = dict(tree)
    for field in ("from", "to"):
        result[field] = addresses(result[field])
    result["subject"] = result["subject"].strip()
    return result


def without_calendar_text(node):
    """Only names and bytes of a calendar are compared: it names no charset."""
    for child in node.get("parts", []):
        without_calendar_text(child)
    if node["type"] == "text/calendar":
        node.pop("text", None)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--with", dest="witness", choices=witnesses.READERS, required=True)
    parser.add_argument("composer")
    arguments = parser.parse_args()
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([arguments.composer, folder], check=True)
        messages = sorted(glob.glob(os.path.join(folder, "*.eml")))
        if not messages:
            sys.exit("nothing was composed")
        for path in messages:
            with open(path[:-4] + ".json", encoding="utf-8") as file:
                expected = normalised(json.load(file))
            without_calendar_text(expected["root"])
            try:
                found = normalised(witnesses.READERS[arguments.witness](path))
            except witnesses.Missing as missing:
                print(f"skipped: {missing}")
                return
            if found != expected:
                failures += 1
                with open(path, "rb") as file:
                    print(f"{os.path.basename(path)}:\n{file.read(4000)}")
                print(f"expected {json.dumps(expected, indent=1, ensure_ascii=False)[:4000]}")
                print(f"found    {json.dumps(found, indent=1, ensure_ascii=False)[:4000]}")
    print(f"{len(messages)} messages, {failures} read differently by {arguments.witness}")
    sys.exit(1 if failures else 0)


main()
