"""What an example publishes, held against a run: one Comparison per printed figure."""

from dataclasses import dataclass

import make_published_models as models

FILE = "results file"
INSIDE = "run, not printed"
ANGLE = "Story deformation angle"
RATIO = "Story stiffness ratio"
KN_PER_KIP = 4.4482216152605


@dataclass
class Comparison:
    quantity: str
    published: object  # a number, or a verdict
    tool: object       # a number in the source's unit, or a verdict
    low: float = 0.0   # the numbers that the published digits stand for
    high: float = 0.0
    where: str = FILE
    why_not: str = ""  # an intended difference; empty: the two must agree

    @property
    def is_verdict(self):
        return isinstance(self.published, str)

    @property
    def agrees(self):
        if self.is_verdict:
            return self.published == self.tool
        slack = 1e-9 * max(1.0, abs(self.published))  # of the arithmetic
        return self.low - slack <= self.tool <= self.high + slack


def number(quantity, published, tool, tolerance, where=FILE, why_not=""):
    return Comparison(quantity, published, tool, published - tolerance, published + tolerance,
                      where, why_not)


def verdict(quantity, published, tool, why_not=""):
    return Comparison(quantity, {"OK": "PASS", "NG": "FAIL"}[published], tool, why_not=why_not)


def compare(example, run, examples):
    kinds = {"plan": plan, "rs": stiffness_ratios, "rs_zero": zero_drift, "drift": drifts,
             "edges": edges, "drift_table": drift_table, "stiffness_table": stiffness_table}
    return list(kinds[example["kind"]](example, run))


# Name, key of the unrounded values, dimension (powers of length and of stiffness), where.
PLAN_QUANTITIES = {
    "xr": ("centre of rigidity, X", "rigidityCenter_mm.x", (1, 0), FILE),
    "yr": ("centre of rigidity, Z", "rigidityCenter_mm.z", (1, 0), FILE),
    "xg": ("centre of gravity, X", "gravityCenter_mm.x", (1, 0), FILE),
    "yg": ("centre of gravity, Z", "gravityCenter_mm.z", (1, 0), FILE),
    "Kx": ("stiffness, X: ΣKx", "stiffness_kNpmm.x", (0, 1), INSIDE),
    "Ky": ("stiffness, Z: ΣKz", "stiffness_kNpmm.z", (0, 1), INSIDE),
    "sum_kx_y": ("Σ(Kx·z)", "stiffnessTimesArm.x", (1, 1), INSIDE),
    "sum_ky_x": ("Σ(Kz·x)", "stiffnessTimesArm.z", (1, 1), INSIDE),
    "KR": ("torsional stiffness KR", "torsionalStiffness_kNmm", (2, 1), INSIDE),
    "re_x": ("elastic radius, X", "elasticRadius_mm.x", (1, 0), INSIDE),
    "re_y": ("elastic radius, Z", "elasticRadius_mm.z", (1, 0), INSIDE),
    "Re_x": ("eccentricity modulus, X", "eccentricityModulus.x", (0, 0), FILE),
    "Re_y": ("eccentricity modulus, Z", "eccentricityModulus.z", (0, 0), FILE),
}


def plan(example, run):
    length = example["length_unit_mm"]
    stiffness = models.KN_PER_MM.get(example["units"], KN_PER_KIP / models.MM_PER_INCH)
    elements = {element["name"]: element for element in example["input"]["elements"]}
    for item in example["published"]:
        q, published, tolerance = item["q"], item["value"], item["tol"]
        if q in PLAN_QUANTITIES:
            name, key, (lengths, stiffnesses), where = PLAN_QUANTITIES[q]
            tool = run.value(key, 0) / length**lengths / stiffness**stiffnesses
            yield number(name, published, tool, tolerance, where)
        elif q in ("ex", "ey"):
            axis = {"ex": "x", "ey": "z"}[q]
            distance = run.value(f"rigidityCenter_mm.{axis}", 0) - run.value(
                f"gravityCenter_mm.{axis}", 0)
            yield number(f"distance of the centres along {axis.upper()}", published,
                         abs(distance) / length, tolerance)
        elif q.startswith("off_"):
            offset = elements[q[4:]]["x"] - run.value("rigidityCenter_mm.x", 0) / length
            yield number(f"wall {q[4:]} from the centre of rigidity, X", published, offset,
                         tolerance)
        elif q == "verdict_Re_y":
            cells = run.row("Eccentricity modulus", 1)
            yield verdict("verdict, Z", published, cells["Result(Z(or Y))"])
        else:
            raise SystemExit(f"{example['id']}: no rule for the published quantity {q}")


def ratio_row(run, story, direction="X", load="2", disp_type="Average"):
    return run.row(RATIO, story, load, direction, disp_type)


def stiffness_ratios(example, run):
    scale = models.RS_SCALE[example["id"]]
    names = [story["name"] for story in example["input"]["stories"]]
    for item in example["published"]:
        q, published, tolerance = item["q"], item["value"], item["tol"]
        if q == "rs_mean":
            yield number("mean of the stiffness indices", published,
                         run.value("rsMean.x", 0) / scale, tolerance, INSIDE)
        elif q == "verdict_Rs":
            for i, expected in enumerate(published):
                yield verdict(f"verdict, story {names[i]}", expected,
                              ratio_row(run, i + 1)["Result"])
        elif q in ("Rs", "Rs_1F"):
            for i, expected in enumerate(published if q == "Rs" else [published]):
                for axis, direction in (("x", "X"), ("z", "Z")):
                    yield number(f"stiffness ratio, story {names[i]}, {direction}", expected,
                                 run.value(f"stiffnessRatio.{axis}", i), tolerance)
        else:
            raise SystemExit(f"{example['id']}: no rule for the published quantity {q}")


def zero_drift(example, run):
    why = ("intended: a story without drift counts as 0 in the mean here and is left out of it "
           "there")
    (item,) = example["published"]
    for i, expected in enumerate(item["value"]):
        tool = float(ratio_row(run, i + 1)["Story stiffness ratio"])
        name = f"stiffness ratio, story {i + 1}"
        if expected is None:
            # Published: at least the largest of the others, so it passes.
            yield verdict(f"{name}: verdict", "OK", ratio_row(run, i + 1)["Result"], why)
        else:
            yield number(name, expected, tool, item["tol"], why_not=why)
        yield number(f"{name}: by this tool's rule, by hand", example["tool"][i], tool, 0.0)


def angle_row(run, story, direction="Z(or Y)", load="3", disp_type="Average"):
    return run.row(ANGLE, story, load, direction, disp_type)


def drifts(example, run):
    rows = example["input"]["rows"]
    strict = "intended: an angle that equals the allowable value passes there and fails here"
    for item in example["published"]:
        q, published, tolerance = item["q"], item["value"], item["tol"]
        if q == "one_over":
            for i, expected in enumerate(published):
                yield number(f"1 / angle, row {rows[i]['story']}", expected,
                             1.0 / run.value("meanAngle.z", i), tolerance)
        elif q == "verdict":
            for i, expected in enumerate(published):
                at_limit = rows[i]["delta"] * 200.0 == rows[i]["h"]
                yield verdict(f"verdict, row {rows[i]['story']}", expected,
                              angle_row(run, i + 1)["Result"], strict if at_limit else "")
        elif q == "delta_at_1_200":
            story = len(rows)
            yield number(f"angle at a drift of {published:g} mm", 0.005,
                         run.value("meanAngle.z", story), 0.0)
            yield verdict(f"verdict at a drift of {published:g} mm", "OK",
                          angle_row(run, story + 1)["Result"], strict)
        else:
            raise SystemExit(f"{example['id']}: no rule for the published quantity {q}")


def edges(example, run):
    inch = models.MM_PER_INCH
    mean, largest = run.value("meanDrift_mm.x", 0) / inch, run.value("maxDrift_mm.x", 0) / inch
    yield number("mean of both edges (in): the published mean", example["input"]["delta_avg"],
                 mean, 0.0005)
    for item in example["published"]:
        tool = {"delta_max": largest, "ratio": largest / mean}[item["q"]]
        name = {"delta_max": "largest displacement (in)", "ratio": "largest / mean"}[item["q"]]
        yield number(name, item["value"], tool, item["tol"])


def drift_table(example, run):
    rows, factor = example["input"]["rows"], example["input"]["factor"]
    half = 0.5e-6  # of the last printed digit of max, avg and drift
    for item in example["published"]:
        for i, expected in enumerate(item["value"]):
            story = len(rows) - 1 - i  # the table begins at the top
            row, name = rows[i], rows[i]["story"]
            largest, mean = run.value("maxDrift_mm.x", story), run.value("meanDrift_mm.x", story)
            if item["q"] == "ratio":
                spread = [(row["max"] + s * half) / (row["avg"] - s * half) for s in (-1, 1)]
                margin = (spread[1] - spread[0]) / 2 + 0.0005
                yield number(f"largest / mean drift, {name}", expected, largest / mean, margin)
            elif item["q"] == "drift":
                margin = factor * half / row["h_m"] + half
                angle = float(run.row(ANGLE, story + 1, "3", "Z(or Y)", "Max")[
                    "Story deform angle"])
                yield number(f"{factor:g} × angle of the largest drift, {name}", expected,
                             factor * angle, margin)
            elif item["q"] == "verdict":
                cells = run.row(ANGLE, story + 1, "3", "Z(or Y)", "Max")
                yield verdict(f"verdict, {name}", expected, cells["Result"])
            else:
                raise SystemExit(f"{example['id']}: no rule for {item['q']}")


def stiffness_table(example, run):
    rows = example["input"]["rows"]
    count = len(rows)

    def stiffness(i):  # tf/m, of row i from the top
        return run.value("stiffness_kNpmm.x", count - 1 - i) * 1000.0 / models.KN_PER_TF

    for item in example["published"]:
        for i, expected in enumerate(item["value"]):
            if expected is None:
                continue
            if item["q"] == "k70":
                tool, name = 0.7 * stiffness(i - 1), "0.7 × stiffness of the story above"
            else:
                tool = 0.8 * sum(stiffness(i - above) for above in (1, 2, 3)) / 3.0
                name = "0.8 × mean of the three above"
            yield number(f"{name} {rows[i]['story']} (tf/m)", expected, tool, item["tol"], INSIDE)
