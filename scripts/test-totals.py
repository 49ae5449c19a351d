# SPDX-License-Identifier: MIT
"""Prints how many test cases passed, failed and were skipped: test-totals.py FOLDER...

Each folder holds ctest.xml (CTest's JUnit report) and one <name>.json for every GoogleTest
program. CTest counts such a program once, whatever it holds, so its cases are taken from its own
report. A program that died before it could report, or that failed although all its cases passed (a
leak found at exit), counts as one failed case more. A test that is no GoogleTest program is one case.
The exit status is 0 only when something ran and nothing failed.
"""
import json
import pathlib
import sys
import xml.etree.ElementTree as ElementTree

def outcome_of_gtest_case(case):
    if case.get("failures"):
        return "failed"
    return "passed" if case["result"] == "COMPLETED" else "skipped"


def outcome_of_ctest_case(case):
    status = case.get("status")
    if status == "run":
        return "passed"
    if status == "disabled":
        return "skipped"
    # A test that could not be started, or whose fixture failed, is called "skipped" there as well.
    skipped = case.find("skipped")
    return "skipped" if skipped is not None and skipped.get("message", "").startswith("SKIP_") else "failed"


def outcomes_of_ctest_case(case, folder):
    outcome = outcome_of_ctest_case(case)
    report = folder / (case.get("name") + ".json")
    if not report.exists():
        return [outcome]
    suites = json.loads(report.read_text(encoding="utf-8"))["testsuites"]
    outcomes = [outcome_of_gtest_case(each) for suite in suites for each in suite["testsuite"]]
    if outcome == "failed" and "failed" not in outcomes:
        outcomes.append("failed")
    return outcomes


def outcomes_of_folder(folder):
    cases = ElementTree.parse(folder / "ctest.xml").getroot().iter("testcase")
    return [outcome for case in cases for outcome in outcomes_of_ctest_case(case, folder)]


def main(folders):
    outcomes = [outcome for folder in folders for outcome in outcomes_of_folder(pathlib.Path(folder))]
    passed, failed, skipped = (outcomes.count(each) for each in ("passed", "failed", "skipped"))
    print(f"{passed} passed, {failed} failed, {skipped} skipped")
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
