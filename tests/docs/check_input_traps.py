#!/usr/bin/env python3
"""Makes a run with each line that docs/input-file.md warns of, and sees what the run takes.

    check_input_traps.py QUARNEL_CLI

A row of the table "written, what a run takes" has the lines in its first cell and what they come to
in its second. The building is an example of two stories with the levels 0, 4000 and 7500 mm.
"""

import pathlib
import re
import sys
import tempfile

from markdown import ROOT, fail_with, read, table_rows

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "verification"))
from tool_run import ToolRun  # noqa: E402

MODEL = ROOT / "examples" / "two_story_y_up.qhm"
NOT_TYPED = {"[tab]": "\t", "[byte-order mark]": "\ufeff"}


def input_file(cell):
    """The lines of a row, after the load cases that they do not set themselves."""
    lines = re.findall(r"`([^`]+)`", cell)
    for name, character in NOT_TYPED.items():
        lines = [line.replace(name, character) for line in lines]
    if "EarthquakeLoadCaseNumber" not in lines[0]:
        lines.insert(0, "EarthquakeLoadCaseNumber,2,3,")
    return "\n".join(lines + ["FIN"]) + "\n"


def log_values(run, pattern):
    return [match[1] for match in (re.search(pattern, line) for line in run.log_lines) if match]


def taken(run, what):
    """What the run took, of the kind that the sentence `what` speaks of."""
    if what.startswith("earthquake cases"):
        return [float(n) for n in log_values(run, r"Earthquake load\(.*\) case number : (\S+)")]
    if what.startswith("levels"):
        return [float(level) for level in log_values(run, r"floor level\(mm\) = (\S+)")]
    if what.startswith("allowable angle"):
        row = run.row("Story deformation angle", 1, "2", "X", "Average")
        return [float(row["Allowable story deform angle"])]
    if what.startswith("allowable modulus"):
        return [float(run.row("Eccentricity modulus", 1)["Allowable Eccenticity Mod"])]
    return None


def run_on(quarnel_cli, content):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "input.csv"
        path.write_bytes(content)
        return ToolRun(quarnel_cli, MODEL, path)


def problems_of_comments(quarnel_cli):
    """The comment in Japanese that the page shows changes nothing, in either encoding."""
    comment = re.search(r"```text\n(霞.*)\n```", read("docs/input-file.md"))[1]
    for encoding in ("utf-8", "shift_jis"):
        content = f"{comment}\nEarthquakeLoadCaseNumber,2,3,\nFIN\n".encode(encoding)
        cases = taken(run_on(quarnel_cli, content), "earthquake cases")
        if cases != [2, 3]:
            yield f"below the comment in {encoding} a run took the cases {cases}"


def problems_of_lines(quarnel_cli):
    text = read("docs/input-file.md").split("**Characters that a run takes otherwise")[1]
    rows = list(table_rows(text.split("\n\nA file in UTF-16")[0]))
    if len(rows) < 10:
        yield "the table of docs/input-file.md was not found"
    for written, what, _ in rows:
        actual = taken(run_on(quarnel_cli, input_file(written).encode()), what)
        sentence = re.split(r"[,:] ", what)[0]
        said = [float(number) for number in re.findall(r"\d+(?:\.\d+)?", sentence)]
        if actual != said:
            yield f"{written}: the page says {what}, a run took {actual}"


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(fail_with([*problems_of_lines(sys.argv[1]), *problems_of_comments(sys.argv[1])]))
