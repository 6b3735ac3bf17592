#!/usr/bin/env python3
"""Writes the table of docs/coverage.md: write-coverage.py SUMMARY.json docs/coverage.md"""

import json
import re
import sys

BEGIN = "<!-- coverage: written by scripts/coverage.sh -->\n"
END = "<!-- end -->\n"


def main(summary, page):
    with open(summary, encoding="utf-8") as file:
        files = json.load(file)["files"]
    folders = {}
    for entry in files:
        counts = folders.setdefault(entry["filename"].split("/")[0], [0, 0, 0, 0])
        for i, key in enumerate(("line_covered", "line_total", "branch_covered", "branch_total")):
            counts[i] += entry[key]
    rows = [f"| `{name}/` | {a} of {b} | {c} of {d} |\n"
            for name, (a, b, c, d) in sorted(folders.items())]
    a, b, c, d = (sum(counts) for counts in zip(*folders.values()))
    rows.append(f"| all | {a} of {b} ({100 * a / b:.1f} %) | {c} of {d} ({100 * c / d:.1f} %) |\n")
    table = "| folder, portable part | lines | branches |\n|---|---|---|\n" + "".join(rows)
    with open(page, encoding="utf-8") as file:
        text = file.read()
    text = re.sub(re.escape(BEGIN) + ".*?" + re.escape(END), lambda _: BEGIN + table + END, text,
                  flags=re.DOTALL)
    with open(page, "w", encoding="utf-8", newline="\n") as file:
        file.write(text)


if __name__ == "__main__":
    main(*sys.argv[1:])
