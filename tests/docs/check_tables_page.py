#!/usr/bin/env python3
"""The complete example of docs/tables.md is imported as it stands, and what the page shows of the
program's answers is what the program says.

    check_tables_page.py QUARNEL_CLI
"""

import pathlib
import re
import subprocess
import sys
import tempfile

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "tables.md"


def blocks(text):
    return re.findall(r"```text\n(.*?)```", text, re.DOTALL)


def tables_of(text):
    """Name of each table -> its text, from the headings **`NAME.csv`** and the blocks below."""
    return {name: blocks(text[match.end():])[0]
            for match in re.finditer(r"^\*\*`(\w+\.csv)`\*\*", text, re.MULTILINE)
            for name in [match.group(1)]}


def import_tables(cli, folder, tables):
    (folder / "tower").mkdir(exist_ok=True)
    for name, text in tables.items():
        (folder / "tower" / name).write_text(text, encoding="utf-8")
    return subprocess.run([pathlib.Path(cli).resolve(), "import", "tower", "tower.qhm"], cwd=folder, capture_output=True,
                          text=True, encoding="utf-8")


# What is made wrong for the faults that the page shows: table, a row, what stands there then.
WRONG_ROWS = (
    ("nodes.csv", "B,6,0,4", '"B","6,0",0,4'),
    ("members.csv", "C3,3,C,bar", "C3,3,X,bar"),
    ("displacements.csv", "1,D,0,0,-0.4\n", ""),
    ("forces.csv", "1,C4,j,-60,0,0,0,0,0", "1,C4,i,-60,0,0,0,0,0"),
)


def main():
    text = PAGE.read_text(encoding="utf-8")
    tables = tables_of(text)
    wrong = []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        run = import_tables(sys.argv[1], folder, tables)
        if run.returncode != 0 or run.stderr:
            wrong.append(f"the example: exit {run.returncode}: {run.stderr}")
        if run.stdout not in blocks(text):
            wrong.append(f"the page does not show this report:\n{run.stdout}")
        for table, row, other in WRONG_ROWS:
            if row not in tables[table]:
                wrong.append(f"{table} has no row {row}")
            tables[table] = tables[table].replace(row, other)
        run = import_tables(sys.argv[1], folder, tables)
        faults = "".join(line + "\n" for line in run.stderr.splitlines()
                         if not line.startswith("quarnel-cli: "))
        if run.returncode != 2 or faults not in blocks(text):
            wrong.append(f"exit {run.returncode}; the page does not show these faults:\n{faults}")
    for line in wrong:
        print(line)
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
