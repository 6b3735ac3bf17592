"""Counts the tests of one CTest run, each test of a program whose tests ran together by itself.

    count_tests.py REPORT FOLDER

REPORT is CTest's report, FOLDER holds the reports of those programs. Prints the numbers of passed and
failed tests, and the five longest with their seconds.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree

TOGETHER = "Together."


def count_case(case):
    """Passed and failed of one test in a report of either kind."""
    if case.find("failure") is not None or case.find("error") is not None:
        return 0, 1
    is_run = case.find("skipped") is None and case.get("result") != "skipped"
    return int(is_run), 0


def count(cases):
    counts = [count_case(case) for case in cases]
    return sum(passed for passed, _ in counts), sum(failed for _, failed in counts)


def count_entry(case, folder):
    """A program that ended without its report has failed as one test."""
    name = case.get("name")
    if not name.startswith(TOGETHER):
        return count_case(case)
    report = folder / (name[len(TOGETHER):] + ".xml")
    if not report.exists():
        return count_case(case)
    passed, failed = count(ElementTree.parse(report).iter("testcase"))
    # One that failed behind its last test: at its end, or for its time.
    return passed, max(failed, count_case(case)[1])


def main():
    entries = list(ElementTree.parse(sys.argv[1]).iter("testcase"))
    counts = [count_entry(case, pathlib.Path(sys.argv[2])) for case in entries]
    longest = sorted(entries, key=lambda case: -float(case.get("time")))[:5]
    print(sum(passed for passed, _ in counts), sum(failed for _, failed in counts),
          ", ".join(f"{float(case.get('time')):.0f} s {case.get('name')}" for case in longest))


if __name__ == "__main__":
    main()
