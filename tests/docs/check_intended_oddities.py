#!/usr/bin/env python3
"""Every test that docs/intended-oddities.md names must be there: a rule without its test is not
pinned."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "intended-oddities.md"


def tests_of_the_project():
    found = set()
    for source in (ROOT / "tests").rglob("*_test.cpp"):
        for suite, name in re.findall(r"\bTEST(?:_[FP])?\(\s*(\w+)\s*,\s*(\w+)\s*\)",
                                      source.read_text(encoding="utf-8")):
            found.add(f"{suite}.{name}")
    return found


def main():
    rows = [line for line in PAGE.read_text(encoding="utf-8").splitlines()
            if line.startswith("| ") and not line.startswith("| rule ")]
    known = tests_of_the_project()
    faults = []
    for row in rows:
        named = re.findall(r"`(\w+\.[A-Z]\w+)`", row.rsplit("|", 2)[1])
        if not named:
            faults.append(f"no test named: {row}")
        faults += [f"no such test: {name}" for name in named if name not in known]
    print("\n".join(faults) or f"{len(rows)} rules, all pinned")
    return 1 if faults or not rows else 0


sys.exit(main())
