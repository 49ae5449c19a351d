# SPDX-License-Identifier: MIT
"""check_people.py --with WITNESS COMPOSER READER: names of all kinds that COMPOSER writes mean the
same to the witness, and to READER."""
import argparse
import email
import email.policy
import json
import os
import subprocess
import sys
import tempfile

import witnesses

# What the simple cut of addresses, a quote or a comment would stumble over.
PLAIN = [
    "", "John Smith", "Smith, John", "John Q. Public", 'The "Boss"', "O'Hara", "back\\slash",
    "a: b; c", "<angle>", "at@sign", "(comment)", "[brackets]", "no =?utf-8?Q?word?=", "=", "?=",
    "100%", "tab\tinside", "...", "-", "undisclosed-recipients:;", "a" * 200, "word " * 60 + "end",
]

# "Müller, Jörg" or the like in forty scripts.
SCRIPTS = [
    "Müller, Jörg", "Нестеренко, Олена", "Παπαδόπουλος, Νίκος", "Սարգսյան, Արամ", "כהן, דוד",
    "الخوارزمي، محمد", "ܐܦܪܝܡ, ܡܪܝ", "އަހުމަދު, އިބްރާހީމް", "ߞߊ߲ߕߍ, ߛߏߟߏߡߊߣߊ", "शर्मा, राम", "সেন, অমর্ত্য",
    "ਸਿੰਘ, ਗੁਰਪ੍ਰੀਤ", "પટેલ, હેમા", "ମହାନ୍ତି, ଗୋପୀ", "முருகன், செல்வி", "రెడ్డి, లక్ష్మి", "ಗೌಡ, ಕೆಂಪೇ",
    "മേനോൻ, ലീല", "පෙරේරා, නිමල්", "สมิธ, จอห์น", "ວົງສາ, ບຸນ", "བསྟན་འཛིན, རྒྱ", "အောင်, စန်း",
    "გელაშვილი, ნინო", "김, 철수", "ኃይለ, ሥላሴ", "ᎠᏂᎦᏚᏩᎩ, ᏣᎳᎩ", "ᐃᓄᒃ, ᐋᓐ", "ᚅᚔᚐᚂᚂ, ᚁ",
    "ᚱᚢᚾᚨ, ᚠ", "សុខ, សុភា", "ᠮᠣᠩᠭᠣᠯ, ᠪ", "やまだ, たろう", "ヤマダ, タロウ", "ㄅㄆㄇ, ㄈ", "王, 小明",
    "ꀊꁖ, ꂷ", "ⵜⵉⴼⵉⵏⴰⵖ, ⴰ", "ⲕⲟⲡⲧ, ⲁ", "𐌲𐌿𐍄𐌹𐍃𐌺, 𐍂", "😀, 👩‍👩‍👧",
]


def people_by_email(raw):
    message = email.message_from_bytes(raw, policy=email.policy.default)
    return [[a.display_name, a.addr_spec] for a in message["to"].addresses]


def people_by_gmime(raw):
    return witnesses.people_and_names_by_gmime(raw)["to"]


def normalised(people, folds):
    return [["".join(name.split()), address] for name, address in people] if folds else people


def people_by_reader(reader, raw):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "a.eml")
        with open(path, "wb") as file:
            file.write(raw)
        return json.loads(subprocess.run([reader, path], check=True, capture_output=True).stdout)["to"]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--with", dest="witness", choices=("email", "gmime"), required=True)
    parser.add_argument("composer")
    parser.add_argument("reader")
    arguments = parser.parse_args()
    read = {"email": people_by_email, "gmime": people_by_gmime}[arguments.witness]
    # Blanks of all kinds are one in a name.
    people = [[" ".join(name.split()), f"p{number}@a.example"]
              for number, name in enumerate(PLAIN + SCRIPTS)]
    failures = 0
    # Each alone, and all in one field.
    for group in [[person] for person in people] + [people]:
        raw = subprocess.run([arguments.composer], input=json.dumps(group).encode(), check=True,
                             capture_output=True).stdout
        try:
            answers = {arguments.witness: read(raw), "ours": people_by_reader(arguments.reader, raw)}
        except witnesses.Missing as missing:
            print(f"skipped: {missing}")
            return
        for who, found in answers.items():
            # Python keeps the fold between two words of a long name as a blank.
            folds = who == "email"
            if normalised(found, folds) != normalised(group, folds):
                failures += 1
                print(f"{raw[:2000]}\n  in   {str(group)[:1000]}\n  {who} {str(found)[:1000]}")
    print(f"{len(people)} people, {failures} lists read differently")
    sys.exit(1 if failures else 0)


main()
