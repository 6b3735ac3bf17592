#!/usr/bin/env python3
"""Goes the whole way from an analysis program to a checked building, and compares with a calculation
by hand (examples/z88/README.md).

    check_three_story.py --cli PATH/quarnel-cli
"""

import csv
import pathlib
import subprocess
import sys

import tool as tools

EXAMPLE = tools.ROOT / "examples" / "z88"
EARTHQUAKE_X = 2

# Worked out in the README.
SHEARS = {1: 864.0, 2: 710.4, 3: 422.4}  # kN, by story
WEIGHTS = {1: 4320.0, 2: 2880.0, 3: 1440.0}  # kN
OVERTURNING = 7420.8  # kN m
HEIGHTS = {121: 4.0, 221: 3.5, 321: 3.5}  # m
BENDING_STIFFNESS = 53300.0  # kN m2


def rows_of(folder, table):
    with (folder / f"{table}.csv").open(encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def is_near(value, expected, relative=2e-5, absolute=1e-9):
    return abs(value - expected) <= relative * abs(expected) + absolute


def check_tables_are_those_of_the_project(checks, made):
    """The same rows; numbers of another machine may differ in their last digit."""
    for path in sorted((EXAMPLE / "three_story").glob("*.csv")):
        kept = [line.split(",") for line in path.read_text(encoding="utf-8").splitlines()]
        new = [line.split(",")
               for line in (made / path.name).read_text(encoding="utf-8").splitlines()]
        same = len(kept) == len(new) and all(
            len(a) == len(b) and all(map(are_same_fields, a, b)) for a, b in zip(kept, new))
        checks.expect(same, f"{path.name} is not what Z88 gives now")


def are_same_fields(a, b):
    if a == b:
        return True
    try:
        return is_near(float(a), float(b), 1e-4, 1e-5)
    except ValueError:
        return False


def check_report(checks, printed):
    """Weight and shears of each story as the import tells them."""
    report = printed.split("  checked: ")[0]
    for story, shear in SHEARS.items():
        lines = [line.split() for line in report.splitlines()
                 if line.split()[:1] == [str(story)] and len(line.split()) == 8]
        checks.expect(len(lines) == 1, f"story {story}: {lines}")
        figures = [float(field) for field in lines[0]] if lines else []
        checks.expect(figures[3:] == [WEIGHTS[story], shear, 0.0, 0.0, shear],
                      f"story {story}: {figures}")


def check_overturning(checks, made):
    """Forces and moments at the feet turn back what the earthquake turns about the ground."""
    points = {row["node"]: row for row in rows_of(made, "nodes")}
    starts = {row["member"]: row["start"] for row in rows_of(made, "members")}
    turned = sum(-float(points[row["node"]]["x"]) * float(row["fz"])
                 for row in rows_of(made, "reactions") if row["case"] == str(EARTHQUAKE_X))
    turned += sum(float(row["m2"]) for row in rows_of(made, "forces")
                  if row["case"] == str(EARTHQUAKE_X) and row["end"] == "start"
                  and points[starts[row["member"]]]["z"] == "0.0")
    checks.expect(is_near(turned, -OVERTURNING, 1e-4), f"overturning: {turned}")


def check_column_line(checks, made, results):
    """Bending and turning of a column give its drift, in the tables and in the results."""
    moved = {row["node"]: row for row in rows_of(made, "displacements")
             if row["case"] == str(EARTHQUAKE_X)}
    shears = {row["member"]: float(row["f1"]) for row in rows_of(made, "forces")
              if row["case"] == str(EARTHQUAKE_X) and row["end"] == "end"}
    lower = "21"
    for column, height in HEIGHTS.items():
        upper = str(column)
        drift = (shears[upper] * height ** 3 / (12.0 * BENDING_STIFFNESS)
                 + height / 2.0 * (float(moved[lower]["ry"]) + float(moved[upper]["ry"])))
        found = float(moved[upper]["ux"]) - float(moved[lower]["ux"])
        checks.expect(is_near(found, drift), f"column {column}: {found} m, by hand {drift} m")
        angles = [float(row[5]) for row in results
                  if row[1:3] == [str(EARTHQUAKE_X), upper] and row[4:5] == ["X"]]
        checks.expect(len(angles) == 1 and is_near(angles[0], drift / height),
                      f"column {column}: {angles}, by hand {drift / height}")
        lower = upper


def main():
    tool, holder = tools.tool_and_folder(__doc__)
    checks = tools.Checks()
    folder = pathlib.Path(holder.name)
    run = subprocess.run([EXAMPLE / "run", tool.command[-1], folder], capture_output=True,
                         text=True, encoding="utf-8")
    if run.returncode != 0:
        sys.exit(f"{EXAMPLE / 'run'} failed:\n{run.stdout}{run.stderr}")
    checks.expect("Calculation Complete" in run.stdout, "the run is not complete")
    checks.expect((folder / "three_story.aijR2Sheet.html").exists(), "there is no sheet")
    check_tables_are_those_of_the_project(checks, folder / "three_story")
    check_report(checks, run.stdout)
    check_overturning(checks, folder / "three_story")
    results = (folder / "three_story.aijR2Result.csv").read_text(encoding="utf-8")
    check_column_line(checks, folder / "three_story",
                      [line.split(",") for line in results.splitlines()])
    checks.finish()


if __name__ == "__main__":
    main()
