#!/usr/bin/env python3
"""Imports the same buildings from tables in many conventions, and expects the same results.

    check_conventions.py --cli PATH/quarnel-cli [--launcher wine]

Each example is turned into tables by table_folder.py: other units, axes, senses, encodings. A run
on what the tool imports from them must give the results of a run on the example, up to rounding.
"""

import itertools
import pathlib
import shutil

import table_folder
import tool as tools

SENSES = ("onMember", "onNode", "section", "sectionCompression")
AXES = ("global", "tool", "localStandard", "localTable")
UNITS = (("m", "m", "kN"), ("mm", "mm", "N"), ("cm", "mm", "tf"), ("ft", "in", "lbf"),
         ("m", "cm", "kgf"), ("in", "in", "kip"), ("in", "mm", "kip"))
TURNS = (None, ("+Y", "-X", "+Z"), ("-X", "+Z", "+Y"), ("+Z", "+X", "+Y"))


def conventions():
    """Pairs of a name and the arguments of a convention."""
    for axes, sense in itertools.product(AXES, SENSES):
        if (axes, sense) != ("global", "sectionCompression"):
            yield f"{axes} {sense}", dict(axes=axes, sense=sense)
    for units in UNITS:
        yield " ".join(units), dict(zip(("length", "displacement", "force"), units),
                                    axes="localStandard", sense="section", reactions=True)
    for axes, turn in itertools.product(AXES, TURNS[1:]):
        yield f"{axes} turned {turn}", dict(axes=axes, turn=turn, reactions=True)
    yield "stations", dict(axes="localTable", sense="sectionCompression", stations=True)
    yield "few columns", dict(moments=False, rotations=False)
    yield "tabs", dict(separator="\t")
    yield "semicolons", dict(separator=";")


def number_or_word(field):
    try:
        return float(field)
    except ValueError:
        return field


def are_same_fields(a, b):
    """Printed with six digits; what is 0 in one may be 1e-13 in the other."""
    return a == b or (isinstance(a, float) and isinstance(b, float)
                      and abs(a - b) <= 2e-5 * max(abs(a), abs(b)) + 1e-6)


def are_same(text, other):
    """Results with the same words, whose numbers differ by rounding only. Drifts that are nothing
    but rounding make ratios and verdicts of their own, and are passed over."""
    for row, of_other in itertools.zip_longest(text.splitlines(), other.splitlines(), fillvalue=""):
        fields = [number_or_word(field) for field in row.split(",")]
        others = [number_or_word(field) for field in of_other.split(",")]
        if all(len(f) > 6 and isinstance(f[5], float) and abs(f[5]) < 1e-9
               for f in (fields, others)):
            continue
        if len(fields) != len(others) or not all(map(are_same_fields, fields, others)):
            return False
    return True


def results_of(tool, model, input_file):
    run = tool.run("check", model, input_file)
    results = model.with_name(model.stem + ".aijR2Result.csv")
    return run.returncode, results.read_text(encoding="utf-8") if results.exists() else ""


def main():
    tool, holder = tools.tool_and_folder(__doc__)
    checks = tools.Checks()
    folder = pathlib.Path(holder.name)
    for example in tools.EXAMPLES:
        input_file = example.with_suffix(".csv")
        original = folder / "original.qhm"
        shutil.copy(example.with_suffix(".qhm"), original)
        code, expected = results_of(tool, original, input_file)
        checks.expect(code == 0 and expected, f"{example.name}: no results to compare with")
        building = table_folder.Building(original)
        for name, arguments in conventions():
            convention = table_folder.Convention(**arguments)
            tables = folder / "tables"
            shutil.rmtree(tables, ignore_errors=True)
            table_folder.write_tables(tables, table_folder.tables_of(building, convention),
                                      convention.separator)
            imported = folder / "imported.qhm"
            run = tool.run("import", tables, imported, "--for", input_file)
            checks.expect(run.returncode == 0, f"{example.name}, {name}: import: {run.stderr}")
            # Inch and kip stay: the results are in mm and kN all the same.
            code, results = results_of(tool, imported, input_file)
            checks.expect(code == 0 and are_same(expected, results),
                          f"{example.name}, {name}: other results")
    check_names_and_encodings(tool, checks, folder)
    checks.finish()


def check_names_and_encodings(tool, checks, folder):
    """Names in UTF-8 and in Shift_JIS make the same model; they are kept in it."""
    building = table_folder.Building(tools.EXAMPLES[1].with_suffix(".qhm"))
    tables = table_folder.tables_of(building, table_folder.Convention(names=lambda n: f"柱{n}"))
    models = []
    for encoding, line_end in (("utf-8", "\n"), ("utf-8-sig", "\r\n"), ("cp932", "\r\n"),
                               ("cp932", "\r")):
        shutil.rmtree(folder / "tables", ignore_errors=True)
        table_folder.write_tables(folder / "tables", tables, ",", encoding, line_end)
        run = tool.run("import", folder / "tables", folder / "named.qhm")
        checks.expect(run.returncode == 0, f"{encoding}: {run.stderr}")
        models.append((folder / "named.qhm").read_bytes())
    checks.expect(all(model == models[0] for model in models), "encodings make other models")
    checks.expect('"1":"柱1"' in models[0].decode("utf-8"), "names are not kept")


if __name__ == "__main__":
    main()
