#!/usr/bin/env python3
"""Makes wrong statements about right tables, and expects the tool to name them.

    check_wrong_statements.py --cli PATH/quarnel-cli [--launcher wine] [--show]

Three example buildings, each in two conventions, with and without an input file. --show prints what
the tool says about each.
"""

import argparse
import copy
import pathlib
import shutil
import tempfile

import table_folder
import tool as tools

SI = dict()
MILLIMETRES = dict(axes="localStandard", sense="section", length="mm", displacement="mm", force="N")

NOTHING_WRITTEN, FAULTS = 1, 2


def restated(tables, **statements):
    changed = copy.deepcopy(tables)
    for row in changed["model"]:
        if row[0] in statements:
            row[1] = statements[row[0]]
    return changed


def with_rows(tables, table, change):
    changed = copy.deepcopy(tables)
    for row in changed[table][1:]:
        change(row)
    return changed


def without_rows(tables, table, is_dropped):
    changed = copy.deepcopy(tables)
    changed[table] = [row for row in changed[table] if not is_dropped(row)]
    return changed


def exchange_ends(row):
    row[2] = {"i": "j", "j": "i"}[row[2]]


def exchange_nodes(row):
    row[1], row[2] = row[2], row[1]


def exchange_y_and_z(row):
    row[4], row[5] = row[5], row[4]


def wrong_statements(building, si, millimetres):
    """Name, tables, exit code, texts that the message must hold."""
    for sense in ("onNode", "section"):
        yield (f"onMember as {sense}", restated(si, endForceSense=sense), 1,
               ["model.csv:7:15: endForceSense " + sense, "endForceSense onMember", "would fit"])
    for sense in ("onMember", "onNode", "sectionCompression"):
        yield (f"section as {sense}", restated(millimetres, endForceSense=sense), 1,
               ["model.csv:7:15: endForceSense " + sense, "endForceSense section would fit"])
    for name, tables in (("ends exchanged", with_rows(si, "forces", exchange_ends)),
                         ("nodes exchanged", with_rows(si, "members", exchange_nodes))):
        yield name, tables, 1, ["model.csv:7:15: ", "exchanging start and end"]
    other = "Y" if building.z_up else "Z"
    stated = "Z" if building.z_up else "Y"
    yield ("other vertical axis", restated(si, verticalAxis=other), 1,
           ["model.csv:2:14: verticalAxis " + other, f"verticalAxis {stated} would fit"])
    yield ("global as local", restated(si, endForceAxes="localStandard"), 1,
           ["model.csv:6:14: endForceAxes localStandard", "the forces are along other axes"])
    yield ("local as global", restated(millimetres, endForceAxes="global"), 1,
           ["model.csv:6:14: endForceAxes global", "the forces are along other axes"])
    yield ("y and z exchanged", with_rows(millimetres, "forces", exchange_y_and_z), 1,
           ["model.csv:6:14: endForceAxes localStandard", "local y and z may be exchanged"])
    yield from wrong_units(si, millimetres)
    yield ("a case without displacements",
           without_rows(si, "displacements", lambda row: row[0] == "3"), 2,
           ["displacements.csv: case 3, node ", ": no displacement"])
    yield ("a case without forces", without_rows(si, "forces", lambda row: row[0] == "3"), 2,
           ["forces.csv: case 3, member ", ": no forces"])
    yield ("a case that is not there", without_rows(si, "cases", lambda row: row[0] == "3"), 2,
           ["displacements.csv:", "unknown case 3"])


def wrong_units(si, millimetres):
    """Wrong by 10 to 1000. Ten times too large or too small may still be a building; then the
    tool cautions."""
    for tables, key, right, wrong in (
            (si, "lengthUnit", "m", ("cm", "mm", "in")),
            (millimetres, "lengthUnit", "mm", ("m", "cm")),
            (si, "displacementUnit", "m", ("mm",)),
            (millimetres, "displacementUnit", "mm", ("m", "ft")),
            (si, "forceUnit", "kN", ("N", "kgf")),
            (millimetres, "forceUnit", "N", ("kN", "tf", "kip"))):
        for unit in wrong:
            yield (f"{key} {right} as {unit}", restated(tables, **{key: unit}), 1,
                   [f"{key} ", f" {right} ", "would fit"])
    for tables, key, right, wrong in ((si, "displacementUnit", "m", "cm"),
                                      (millimetres, "displacementUnit", "mm", "cm")):
        yield (f"{key} {right} as {wrong}", restated(tables, **{key: wrong}), 0,
               ["caution", f"{key} {wrong}: ", f"is it {right}?"])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--cli", required=True)
    parser.add_argument("--launcher")
    parser.add_argument("--show", action="store_true")
    arguments = parser.parse_args()
    tool, checks = tools.Tool(arguments.cli, arguments.launcher), tools.Checks()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for example in tools.EXAMPLES:
            building = table_folder.Building(example.with_suffix(".qhm"))
            si = table_folder.tables_of(building, table_folder.Convention(**SI))
            millimetres = table_folder.tables_of(building, table_folder.Convention(**MILLIMETRES))
            for what, tables, code, texts in wrong_statements(building, si, millimetres):
                shutil.rmtree(folder / "tables", ignore_errors=True)
                table_folder.write_tables(folder / "tables", tables)
                (folder / "out.qhm").unlink(missing_ok=True)
                run = tool.run("import", folder / "tables", folder / "out.qhm", "--for",
                               example.with_suffix(".csv"))
                if arguments.show:
                    print(f"{example.name}, {what}: exit {run.returncode}\n{run.stderr}")
                # Every text in one and the same line.
                lines = [line for line in run.stderr.splitlines()
                         if all(text in line for text in texts)]
                checks.expect(run.returncode == code and lines,
                              f"{example.name}, {what}: {run.returncode}\n{run.stderr}")
                checks.expect((folder / "out.qhm").exists() == (code == 0),
                              f"{example.name}, {what}: written or not")
    checks.finish()


if __name__ == "__main__":
    main()
