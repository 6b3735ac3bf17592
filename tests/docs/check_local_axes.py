#!/usr/bin/env python3
"""Holds the examples of local axes in docs/qhm-file.md against the axes of the equilibrium check.

Those give the story shears of the tool on the analysed examples, and are formed apart from it.
"""

import pathlib
import re
import sys

from markdown import fail_with, read, table_rows

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "verification"))
from equilibrium import Building  # noqa: E402


def vector(cell):
    return [float(number) for number in cell.replace("−", "-").strip("()").split(",")]


def axes(vertical, along):
    building = Building.__new__(Building)
    building.vertical = {"Y": 1, "Z": 2}[vertical]
    building.nodes = {1: [0.0, 0.0, 0.0], 2: [5 * part for part in along]}
    return building.axes({"start": 1, "end": 2})


def problems():
    section = read("docs/qhm-file.md").split("## Local axes and beta")[1]
    rows = [cells for cells in table_rows(section) if len(cells) == 5]
    if len(rows) != 14:
        yield f"docs/qhm-file.md: {len(rows)} examples of local axes were found"
    for vertical, member, *stated in rows:
        along = vector(stated[0])
        if not re.search(r"up|down|along|oblique", member):
            yield f"{vertical} vertical, {member}: which member is meant?"
        for name, cell, formed in zip("xyz", stated, axes(vertical, along)):
            if max(abs(a - b) for a, b in zip(vector(cell), formed)) > 1e-12:
                yield f"{vertical} vertical, {member}: local {name} is {formed}, not {cell}"


if __name__ == "__main__":
    sys.exit(fail_with(problems()))
