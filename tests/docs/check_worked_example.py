#!/usr/bin/env python3
"""Compares the worked example of the manual with a run.

    check_worked_example.py QUARNEL_CLI

Every row of the last table of docs/worked-example.md must stand in the results file as it says, and
what was worked out by hand must be the same number.
"""

import pathlib
import re
import sys

from markdown import ROOT, fail_with, read, table_rows

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "verification"))
from tool_run import ToolRun  # noqa: E402


def cell_in_file(run, section, block, story, load, column):
    direction = disp_type = None
    load = load or None
    member = re.fullmatch(r"member (\d+), (.*)", block)
    if member:
        load = (load, member.group(1), member.group(2))
    elif block:
        direction, disp_type = block.split(", ")
    return run.row(section, story, load, direction, disp_type)[column]


def same(by_hand, in_file):
    if by_hand in ("PASS", "FAIL"):
        return by_hand == in_file
    return abs(float(by_hand) - float(in_file)) <= 1e-6 * abs(float(in_file))


def main(quarnel_cli):
    run = ToolRun(quarnel_cli, ROOT / "examples" / "worked_example.qhm",
                  ROOT / "examples" / "worked_example.csv")
    problems = [f"the run on the worked example warns: {text}" for text in run.log_warnings]
    text = read("docs/worked-example.md").split("## The same figures in the results file")[1]
    rows = list(table_rows(text))
    for section, block, story, load, column, by_hand, in_file in rows:
        where = " ".join((section, block, "story", story, load, column))
        actual = cell_in_file(run, section, block, story, load, column)
        if actual != in_file:
            problems.append(f"{where}: the table says {in_file}, the run {actual}")
        if not same(by_hand, in_file):
            problems.append(f"{where}: by hand {by_hand}, in the file {in_file}")
        if by_hand not in ("PASS", "FAIL") and by_hand not in read(
                "docs/worked-example.md").split("## The same figures")[0]:
            problems.append(f"{where}: {by_hand} is not worked out on the page")
    if len(rows) < 20:
        problems.append("the table of the worked example was not found")
    return fail_with(problems)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
