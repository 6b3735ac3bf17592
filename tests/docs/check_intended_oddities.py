#!/usr/bin/env python3
"""Every test that docs/intended-oddities.md names must be there: a rule without its test is not
pinned."""

import re
import sys

from markdown import ROOT, fail_with, read, table_rows


def tests_of_the_project():
    found = set()
    for source in (ROOT / "tests").rglob("*_test.cpp"):
        for suite, name in re.findall(r"\bTEST(?:_[FP])?\(\s*(\w+)\s*,\s*(\w+)\s*\)",
                                      source.read_text(encoding="utf-8")):
            found.add(f"{suite}.{name}")
    return found


def main():
    rules = list(table_rows(read("docs/intended-oddities.md")))
    known = tests_of_the_project()
    faults = [] if rules else ["no rules found"]
    for rule in rules:
        named = re.findall(r"`(\w+\.[A-Z]\w+)`", rule[-1])
        if not named:
            faults.append(f"no test named: {rule[0]}")
        faults += [f"no such test: {name}" for name in named if name not in known]
    return fail_with(faults)


sys.exit(main())
