#!/usr/bin/env python3
"""Adds to the count of a fuzz target's executions: add_executions.py TARGET NUMBER docs/coverage.md"""

import re
import sys

BEGIN = "<!-- executions: written by tests/fuzz/run.sh -->\n"
END = "<!-- end of executions -->\n"


def main(target, number, page):
    with open(page, encoding="utf-8") as file:
        before, begin, rest = file.read().partition(BEGIN)
    table, end, after = rest.partition(END)
    if not begin or not end:
        raise SystemExit(f"{page}: there is no table of executions")
    executed = {name: int(count.replace(",", ""))
                for name, count in re.findall(r"\| `(\w+)` \| ([\d,]+) \|", table)}
    executed[target] = executed.get(target, 0) + int(number)
    rows = "".join(f"| `{name}` | {count:,} |\n" for name, count in sorted(executed.items()))
    table = f"| target | executions |\n|---|---|\n{rows}| all | {sum(executed.values()):,} |\n"
    with open(page, "w", encoding="utf-8", newline="\n") as file:
        file.write(before + begin + table + end + after)


if __name__ == "__main__":
    main(*sys.argv[1:])
