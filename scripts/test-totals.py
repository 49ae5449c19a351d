# SPDX-License-Identifier: MIT
"""Prints how many test cases passed, failed and were skipped, and why: test-totals.py FOLDER...

Each folder holds ctest.xml (CTest's JUnit report) and one <name>.xml for every GoogleTest
program. CTest counts such a program once, whatever it holds, so its cases are taken from its own
report. A program that died before it could report, or that failed although all its cases passed (a
leak found at exit), counts as one failed case more. A test that is no GoogleTest program is one case.
The exit status is 0 only when something ran and nothing failed.
"""
import collections
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

# The outcome of a case; a skipped one's reason, else nothing.
Outcome = collections.namedtuple("Outcome", "word reason", defaults=[""])


def cases_of(report):
    # A program may have printed what it was given, and mail is not always UTF-8.
    text = report.read_bytes().decode("utf-8", "replace")
    return ElementTree.fromstring(text).iter("testcase")


def outcome_of_gtest_case(case):
    if case.find("failure") is not None:
        return Outcome("failed")
    skipped = case.find("skipped")
    if skipped is not None:
        # The first line is the place in the source.
        _, _, reason = skipped.get("message", "").partition("\n")
        return Outcome("skipped", reason.strip() or "no reason given")
    return Outcome("passed" if case.get("result") == "completed" else "skipped", "switched off")


def outcome_of_ctest_case(case):
    status = case.get("status")
    if status == "run":
        return Outcome("passed")
    if status == "disabled":
        return Outcome("skipped", "switched off")
    # A test that could not be started, or whose fixture failed, is called "skipped" there as well.
    skipped = case.find("skipped")
    if skipped is None or not skipped.get("message", "").startswith("SKIP_"):
        return Outcome("failed")
    reason = re.search(r"skipped: (.*)", case.findtext("system-out", ""))
    return Outcome("skipped", reason[1].strip() if reason else "no reason given")


def outcomes_of_ctest_case(case, folder):
    outcome = outcome_of_ctest_case(case)
    report = folder / (case.get("name") + ".xml")
    if not report.exists():
        return [outcome]
    outcomes = [outcome_of_gtest_case(each) for each in cases_of(report)]
    if outcome.word == "failed" and Outcome("failed") not in outcomes:
        outcomes.append(outcome)
    return outcomes


def outcomes_of_folder(folder):
    cases = cases_of(folder / "ctest.xml")
    return [outcome for case in cases for outcome in outcomes_of_ctest_case(case, folder)]


def main(folders):
    outcomes = [outcome for folder in folders for outcome in outcomes_of_folder(pathlib.Path(folder))]
    reasons = collections.Counter(outcome.reason for outcome in outcomes if outcome.word == "skipped")
    for reason, count in reasons.most_common():
        print(f"skipped {count}: {reason}")
    words = collections.Counter(outcome.word for outcome in outcomes)
    print(f"{words['passed']} passed, {words['failed']} failed, {words['skipped']} skipped")
    return 0 if words["passed"] and not words["failed"] else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
