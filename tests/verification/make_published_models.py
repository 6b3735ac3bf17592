#!/usr/bin/env python3
"""Writes the published examples as host models: examples/published/<id>.qhm and <id>.csv.

    make_published_models.py [--check]

The figures come from examples/published/published-examples.json. --check writes nothing and fails
when a file is not what this program would write.
"""

import json
import pathlib
import sys

import host_model
from host_model import EARTHQUAKE_X, EARTHQUAKE_Z, HostModel

FOLDER = pathlib.Path(__file__).resolve().parents[2] / "examples" / "published"

PLAN_DRIFT_MM = 10.0
STORY_HEIGHT_MM = 3000.0      # where a source gives none
EDGE_STORY_HEIGHT_MM = 3048.0  # 10 ft, for a source in inches that gives none
WEIGHT_KN = 1000.0            # where a source gives the centre of mass and no weight
PE_14_PLAN_WIDTH_M = 20.0     # where the source gives a drift table and no plan
KN_PER_TF = 9.80665
MM_PER_INCH = 25.4

# Stiffness of one unit of the source in kN/mm; relative stiffness and m^4 count as kN/mm.
KN_PER_MM = {"m, relative stiffness": 1.0, "mm, N/mm": 1e-3, "m, m^4": 1.0}

# Relative stiffness indices, brought to drifts of a real building.
RS_SCALE = {"JP-RS-1a": 10.0, "JP-RS-1b": 10.0, "SQUID-RS": 1.0}


def plan(example):
    """A story of columns with given stiffness: every upper node moves 10 mm, a column carries
    stiffness times 10 mm. Weights are further columns, without stiffness."""
    english = "kip" in example["units"]
    unit_mm = example["length_unit_mm"]
    to_model = unit_mm / MM_PER_INCH if english else unit_mm / 1000.0
    height = example["story_height_mm"] / (MM_PER_INCH if english else 1000.0)
    drift = PLAN_DRIFT_MM / (MM_PER_INCH if english else 1000.0)
    # Force of one unit of stiffness at the drift, kip or kN.
    force = drift if english else KN_PER_MM[example["units"]] * PLAN_DRIFT_MM
    both = {EARTHQUAKE_X: (drift, 0.0), EARTHQUAKE_Z: (0.0, drift)}

    model = HostModel(english=english)

    def add(x, y, **column):
        model.add_column(rounded(x * to_model), rounded(y * to_model), 0.0, height, drift=both,
                         **column)

    def add_stiffness(element):
        add(element["x"], element["y"],
            shear={EARTHQUAKE_X: (rounded(element["kx"] * force), 0.0),
                   EARTHQUAKE_Z: (0.0, rounded(element["ky"] * force))})

    elements = example["input"]["elements"]
    for element in elements:
        add_stiffness(element)
    if not any(element["kx"] for element in elements):
        add_stiffness(x_member_on_common_line(elements))
    for weight in weights(example["input"]["mass"]):
        add(weight["x"], weight["y"], weight=weight["w"])
    return model, host_model.input_text([0, example["story_height_mm"]])


def x_member_on_common_line(elements):
    """Without any X stiffness a centre of rigidity has no second coordinate. One X member on the
    line on which all the Y walls stand gives it one and adds nothing to the torsional stiffness."""
    (line,) = {element["y"] for element in elements}
    return {"x": 0.0, "y": line, "kx": 10.0, "ky": 0.0}


def weights(mass):
    if mass.get("weights"):
        return mass["weights"]
    if mass.get("cm"):
        return [{"w": WEIGHT_KN, "x": mass["cm"][0], "y": mass["cm"][1]}]
    return []


def stories(rows, columns_of, english=False):
    """Stories from the lowest up. `rows` are (height, *values); `columns_of(*values)` gives for
    each column x, z, the drift and the shear."""
    unit = MM_PER_INCH if english else 1000.0
    model = HostModel(english=english)
    levels = [0.0]
    for height_mm, *values in rows:
        upper = levels[-1] + height_mm
        for x, z, drift, shear in columns_of(*values):
            model.add_column(x, z, levels[-1] / unit, upper / unit,
                             drift={EARTHQUAKE_X: (drift, 0.0), EARTHQUAKE_Z: (0.0, drift)},
                             shear={EARTHQUAKE_X: (shear, 0.0), EARTHQUAKE_Z: (0.0, shear)})
        levels.append(upper)
    return model, levels


def one_column(drift, shear=0.0):
    return [(0.0, 0.0, drift, shear)]


def stiffness_indices(example):
    """Stories of 3 m whose drift is height / rs."""
    scale = RS_SCALE[example["id"]]
    rows = [(STORY_HEIGHT_MM, rounded(STORY_HEIGHT_MM / 1000.0 / (scale * story["rs"])))
            for story in example["input"]["stories"]]
    model, levels = stories(rows, one_column)
    return model, host_model.input_text(levels)


def stories_with_drifts(example):
    rows = [(story["h"] * 1000.0, story["delta"]) for story in example["input"]["stories"]]
    model, levels = stories(rows, one_column)
    return model, host_model.input_text(levels)


def independent_drifts(example):
    """Rows of a table become stories of one model; a displacement that the source names as the
    limit becomes one more story."""
    rows = [(row["h"], row["delta"] / 1000.0) for row in example["input"]["rows"]]
    for quantity in example["published"]:
        if quantity["q"] == "delta_at_1_200":
            rows.append((example["input"]["rows"][0]["h"], quantity["value"] / 1000.0))
    model, levels = stories(rows, one_column)
    return model, host_model.input_text(levels)


def plan_edges(example):
    """Two columns at the edges of a floor that moves and turns."""
    given = example["input"]
    half_width = rounded(given["plan_width_ft"] * 12.0 / 2.0)
    at_edge = given["rotation"] * half_width
    columns = [(0.0, sign * half_width, rounded(given["delta_avg"] + sign * at_edge), 0.0)
               for sign in (-1.0, 1.0)]
    model, levels = stories([(EDGE_STORY_HEIGHT_MM,)], lambda: columns, english=True)
    return model, host_model.input_text(levels)


def drift_table(example):
    """Two columns at the plan edges, moving max and 2 avg - max."""
    given = example["input"]
    rows = [(rounded(row["h_m"] * 1000.0), row["max"], row["avg"])
            for row in reversed(given["rows"])]

    def columns(largest, mean):
        return [(0.0, 0.0, rounded(2.0 * mean - largest), 0.0),
                (PE_14_PLAN_WIDTH_M, PE_14_PLAN_WIDTH_M, largest, 0.0)]

    model, levels = stories(rows, columns)
    # The source multiplies the drifts before it compares; the tool does not, so its limit is
    # divided.
    allowable = example["limit"] / given["factor"]
    extra = ["AllowStoryDeformAngle,"] + [f"{i + 1},{allowable:.9f}," for i in range(len(rows))]
    return model, host_model.input_text(levels, extra)


def shears_and_stiffnesses(example, heights_m):
    """One column per story that carries the story shear V and moves V / K."""
    rows = []
    for row, height in zip(reversed(example["input"]["rows"]), heights_m):
        rows.append((rounded(height * 1000.0), row["V"] / row["K"], rounded(row["V"] * KN_PER_TF)))
    model, levels = stories(rows, one_column)
    return model, host_model.input_text(levels)


def rounded(value):
    """Without the noise of a unit conversion: twelve digits."""
    return float(f"{value:.12g}")


def build(example, examples):
    builders = {"plan": plan, "rs": stiffness_indices, "rs_zero": stories_with_drifts,
                "drift": independent_drifts, "edges": plan_edges, "drift_table": drift_table}
    if example["kind"] == "stiffness_table":
        # The same building's drift table has the heights, top story first, with a roof box.
        table = next(other for other in examples if other["kind"] == "drift_table")
        heights = [row["h_m"] for row in reversed(table["input"]["rows"])]
        return shears_and_stiffnesses(example, heights)
    return builders[example["kind"]](example)


def main(arguments):
    examples = json.loads((FOLDER / "published-examples.json").read_text(encoding="utf-8"))
    files = {}
    for example in examples["examples"]:
        model, input_text = build(example, examples["examples"])
        files[example["id"] + ".qhm"] = model.text()
        files[example["id"] + ".csv"] = input_text
    stale = host_model.write_or_compare(files, FOLDER, "--check" in arguments)
    for path in stale:
        print(f"{path} is not what make_published_models.py writes: run it", file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
