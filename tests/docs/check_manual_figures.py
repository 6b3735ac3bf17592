#!/usr/bin/env python3
"""Works out the figures that docs/manual.md quotes of the examples, and looks for them there.

    check_manual_figures.py QUARNEL_CLI

Drifts of the five-story example come from its file alone; the modulus of the worked example with a
column through both stories from runs on a copy in which two columns are one.
"""

import json
import pathlib
import sys
import tempfile

from markdown import ROOT, fail_with, read

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "verification"))
from tool_run import ToolRun  # noqa: E402

FIVE_STORIES = ROOT / "examples" / "five_story_office_z_up.qhm"
WORKED_EXAMPLE = ROOT / "examples" / "worked_example.qhm"
LOAD_CASES = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
# mm; the first story of the five-story example is 5 m high, the others 3.6 m.
LEVELS = [0, 5000, 8600, 12200, 15800, 19400]


def is_brace(a, b):
    """Columns of the example stand upright; the two that rake lean by less than a brace."""
    return max(abs(a[0] - b[0]), abs(a[1] - b[1])) > 2.0


def drifts(model, story):
    """Drift in Y under case 3, mm, of the columns and of the braces of a story."""
    nodes = {node["number"]: node["xyz"] for node in model["nodes"]}
    moved = model["displacements"]["3"]
    columns, braces = [], []
    for member in model["members"]:
        lower, upper = sorted((member["start"], member["end"]), key=lambda n: nodes[n][2])
        heights = [1000 * nodes[lower][2], 1000 * nodes[upper][2]]
        if max(abs(a - b) for a, b in zip(heights, LEVELS[story - 1:story + 1])) > 0.1:
            continue
        drift = 1000 * (moved.get(str(upper), [0, 0])[1] - moved.get(str(lower), [0, 0])[1])
        (braces if is_brace(nodes[lower], nodes[upper]) else columns).append(drift)
    return columns, braces


def figures_of_drifts():
    model = json.loads(FIVE_STORIES.read_text(encoding="utf-8"))

    def angle(drift):
        return f"1/{int(3600 / drift)}"

    columns, braces = drifts(model, 2)
    together = columns + braces
    yield "story 2, mean", f"the mean in Y is {angle(sum(together) / len(together))}"
    yield "story 2, worst column", f"the worst column {angle(max(columns))}"
    yield ("story 2, mean of columns",
           f"the mean of the columns alone is {angle(sum(columns) / len(columns))}")
    columns, braces = drifts(model, 5)
    yield "story 5, worst brace", f"{angle(max(braces))}, that of a brace"
    yield "story 5, worst column", f"the worst column has {angle(max(columns))}"


def with_one_column_through_both_stories():
    """Member 99 in place of the columns 1 and 5; its foot carries what that of column 1 carries."""
    model = json.loads(WORKED_EXAMPLE.read_text(encoding="utf-8"))
    members = {member["number"]: member for member in model["members"]}
    model["members"] = [m for n, m in members.items() if n not in (1, 5)]
    model["members"].append({"number": 99, "start": members[1]["start"],
                             "end": members[5]["end"]})
    for forces in model["endForces"].values():
        forces["99"] = forces["1"]
    return model


def figures_of_a_through_column(quarnel_cli):
    with tempfile.TemporaryDirectory() as folder:
        model = pathlib.Path(folder) / "through.qhm"
        model.write_text(json.dumps(with_one_column_through_both_stories()))
        named = pathlib.Path(folder) / "named.csv"
        named.write_text(LOAD_CASES + "StoryMember,\n1,99,2,3,4,\n2,6,7,8,\n"
                         "MemberDeformAngle,99,\nFIN\n")
        left_out = pathlib.Path(folder) / "left_out.csv"
        left_out.write_text(LOAD_CASES + "FIN\n")
        runs = [ToolRun(quarnel_cli, model, path) for path in (named, left_out)]
    modulus = [float(run.row("Eccentricity modulus", 1)["Eccentricity Mod(Z(or Y))"])
               for run in runs]
    angle = runs[0].row("Story deformation angle of specified member", 1, ("3", "99", "Z( or Y)"))
    yield "named for story 1", f"the modulus in Z becomes {modulus[0]:.3f} instead of 0.202"
    yield "left out", f"the modulus in Z becomes {modulus[1]:.3f}."
    # The column moves 14.8 + 7.4 mm over 7000 mm.
    yield ("its angle", f"the angle of that column 1/{1 / float(angle['Story deform angle']):.0f} "
           f"where it is 1/{7000 / 22.2:.0f}")


def problems(quarnel_cli):
    manual = " ".join(read("docs/manual.md").split())
    for what, text in [*figures_of_drifts(), *figures_of_a_through_column(quarnel_cli)]:
        if text not in manual:
            yield f"docs/manual.md does not say of {what}: {text}"


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(fail_with(problems(sys.argv[1])))
