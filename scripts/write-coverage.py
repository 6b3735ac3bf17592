#!/usr/bin/env python3
"""Writes the table of docs/coverage.md: write-coverage.py SUMMARY.json docs/coverage.md"""

import json
import re
import sys

BEGIN = "<!-- coverage: written by scripts/coverage.sh -->\n"
END = "<!-- end -->\n"
KEYS = ("line_covered", "line_total", "branch_covered", "branch_total")
LINK = re.compile(r"^build/coverage/rooms/.*?/(?=[^/]+/[^/]+$)")


def counts_of_files(files):
    """By name. A header is reached by its own name and by the link that gives its folder to others:
    what has reached more of it counts."""
    found = {}
    for entry in files:
        name = LINK.sub("", entry["filename"])
        counts = [entry[key] for key in KEYS]
        found[name] = max(counts, found.get(name, counts))
    return found


def main(summary, page):
    with open(summary, encoding="utf-8") as file:
        files = json.load(file)["files"]
    folders = {}
    for name, counts in counts_of_files(files).items():
        folder = folders.setdefault(name.split("/")[0], [0, 0, 0, 0])
        for i, count in enumerate(counts):
            folder[i] += count
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
