#!/usr/bin/env python3
"""Writes how often each fuzz target was executed: write_executions.py COUNTS docs/coverage.md

COUNTS has a line `TARGET NUMBER` per run.
"""

import re
import sys

BEGIN = "<!-- executions: written by tests/fuzz/run.sh -->\n"
END = "<!-- end of executions -->\n"


def main(counts, page):
    executed = {}
    with open(counts, encoding="utf-8") as file:
        for line in file:
            target, number = line.split()
            executed[target] = executed.get(target, 0) + int(number)
    rows = "".join(f"| `{target}` | {number:,} |\n" for target, number in sorted(executed.items()))
    table = f"| target | executions |\n|---|---|\n{rows}| all | {sum(executed.values()):,} |\n"
    with open(page, encoding="utf-8") as file:
        text = file.read()
    text = re.sub(re.escape(BEGIN) + ".*?" + re.escape(END), lambda _: BEGIN + table + END, text,
                  flags=re.DOTALL)
    with open(page, "w", encoding="utf-8", newline="\n") as file:
        file.write(text)


if __name__ == "__main__":
    main(*sys.argv[1:])
