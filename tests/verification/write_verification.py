#!/usr/bin/env python3
"""Writes docs/verification.md from runs of the tool.

    write_verification.py [--check] QUARNEL_CLI

QUARNEL_CLI is the built program. --check writes nothing and fails when the chapter is not what the
runs give. Both ways fail when a figure that should agree does not, or when
one that is said to differ agrees.
"""

import json
import math
import pathlib
import sys

import closed_form
import equilibrium
import published
from tool_run import ToolRun

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
CHAPTER = ROOT / "docs" / "verification.md"

INTRODUCTION = """\
# Verification

This chapter holds the tool against calculations of others, against closed formulas and against
equilibrium. Every value in the column "tool" comes from a run of `quarnel-cli check`: from
its results file, and, for the digits that this rounds away and for what it does not show, from the
figures that `--json` writes. The two must agree to the digits of the results file. The chapter is
written by `tests/verification/write_verification.py`, and the tests fail when a run no longer gives
what stands here.

How to read the tables:

- *published*, *formula*: the figure as its source prints it, or as the formula gives it.
- *tool*: the tool's value in the same unit, to six digits, as the results file rounds.
- *difference*: tool less published, formed from the tool's unrounded value; 0 stands for less than
  one part in 10⁹.
- *where*: "results file" when the value or what it is formed from stands there; "run, not printed"
  when it is an intermediate of the same run that the results file does not show.
- *agrees*: "yes" when the tool's value lies within what the printed digits can stand for.

"""

PUBLISHED_INTRODUCTION = """\
## Published examples

`examples/published/` holds {examples} worked examples that others have published, as recorded
buildings with their Route 2 Input files. Their figures are in
`examples/published/published-examples.json`; `tests/verification/make_published_models.py` makes
the buildings from them, in this way:

- Y is vertical, the source's x is X and its y is Z(or Y). Every element is a column on nodes of
  its own. Load case 1 is the dead load, 2 the earthquake in X, 3 the earthquake in Z(or Y).
- Where stiffness is given, every upper node moves 10 mm and the column carries stiffness × 10 mm.
- Weights are further columns that carry the weight and no shear. They move with the floor, so they
  change no mean.
- Where stiffness indices rs are given, a story is 3 m high and moves 3 m / rs. Relative indices
  are brought to drifts of a real building first (× 10); the ratios do not depend on that.
- Tables of drifts become two columns at the edges of the plan that move "largest" and
  "2 × mean − largest".
- What a source does not give is left out: stories without forces have warnings in their log and no
  meaningful centres. The tables below do not use those.

Of {compared} comparisons {agreeing} agree within the printed precision. The other {differing}
differ because a rule of this tool differs from the source's on purpose:

- An angle that equals the allowable value passes in the sources and in the law; the tool asks for
  less than the allowable value, so it fails here.
- One source leaves a story without drift out of the mean of the stiffness indices; the tool counts
  it as 0.

"""

# What a reader of one example must know beyond its table.
NOTES = {
    "JP-ECC-1a": "The source has walls in Y only. One member with X stiffness was added on their "
                 "line, because without any X stiffness the centre of rigidity has no second "
                 "coordinate; on that line it adds nothing to the torsional stiffness.",
    "JP-ECC-1b": "One X member was added on the line of the walls, as in JP-ECC-1a.",
    "SQUID-ECC": "The source's Ry is an expression, 1500 / √(9.0·10⁹ / 800); the figure here is "
                 "its value. Its elastic radius is √(KR / Kx).",
    "UFC-H3": "Recorded in inch and kip, so this example also checks the conversion to mm and kN. "
              "The printed weights add up to 32.0 kip, the printed total is 31.9; the printed "
              "centre lies within 0.01 ft of what either gives. Stiffness is in kip/in, lengths in feet, KR "
              "in kip/in·ft².",
    "EG-CMCR": "The source gives no weights, so the run warns of a weight of 0 and its "
               "eccentricity has no meaning; only the centre of rigidity is compared.",
    "JP-DRIFT-1": "Each row is a story of its own. The third story moves the 17.5 mm that the "
                  "source names as the limit.",
    "SQUID-DRIFT": "Each row is a story of its own.",
    "FEMA451-EDGE": "A displacement, not a drift, and no height is given: a story of 10 ft was "
                    "taken. Only mean and largest value are compared.",
    "PE-14-SDXX-X": "The source multiplies its drifts by 6 and compares with 0.007, the limit of "
                    "another code; here the drifts are as printed and the allowable angle is "
                    "0.007 / 6. Ratios and drifts of the source come from unrounded values, so a "
                    "figure agrees when it lies within what the rounding of all printed figures "
                    "allows. Angles and verdicts are those of direction Z(or Y), which moves like "
                    "X, because the rows of the largest X drift judge nothing.",
    "PE-14-K-SDXX": "The column of a story carries V and moves V / K, with 1 tf = 9.80665 kN. So "
                    "this is a check of shear over drift with figures of a real building; the "
                    "heights are those of the drift table above.",
}

CLOSED_FORM_INTRODUCTION = """\
## Closed formulas

The buildings of `tests/verification/closed_form/` are columns of known stiffness under rigid
floors. The formulas stand in `tests/verification/closed_form.py`, which does not use the tool.

"""

EQUILIBRIUM_INTRODUCTION = """\
## Equilibrium of the analysed buildings

The two analysed buildings of `examples/` come from a frame solver. What their files hold must be in
equilibrium, and the tool's story shears must be those of all members that a story's cutting plane
meets. The sums below are formed from the recorded end forces by
`tests/verification/equilibrium.py`, with member axes of its own.

"""

FOUR_DIGITS = "{:.4f}"


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads)]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def six_digits(value):
    if isinstance(value, str):
        return value
    return f"{0.0 if abs(value) < 1e-12 else value:.6g}"


def difference(tool, expected):
    if isinstance(tool, str):
        return "–" if tool == expected else "differs"
    delta = tool - expected
    if abs(delta) <= 1e-9 * max(1.0, abs(expected)):
        return "0"
    return f"{delta:+.2g}".replace("-", "−")


class Chapter:
    def __init__(self, cli):
        self.cli = cli
        self.faults = []
        self.text = INTRODUCTION

    def run(self, folder, name, input_name=None):
        return ToolRun(self.cli, folder / f"{name}.qhm",
                       folder / f"{input_name or name}.csv")

    def fault(self, where, what):
        self.faults.append(f"{where}: {what}")

    # Published examples.

    def add_published(self):
        folder = EXAMPLES / "published"
        examples = json.loads(
            (folder / "published-examples.json").read_text(encoding="utf-8"))["examples"]
        parts, all_comparisons = [], []
        for example in examples:
            run = self.run(folder, example["id"])
            self.check_rounding(example["id"], run)
            comparisons = published.compare(example, run, examples)
            all_comparisons += comparisons
            parts.append(self.example_part(example, comparisons))
        agreeing = sum(c.agrees for c in all_comparisons)
        self.text += PUBLISHED_INTRODUCTION.format(
            examples=len(examples), compared=len(all_comparisons), agreeing=agreeing,
            differing=len(all_comparisons) - agreeing)
        self.text += "\n".join(parts) + "\n"

    def example_part(self, example, comparisons):
        rows = []
        for c in comparisons:
            if c.agrees and c.why_not:
                self.fault(example["id"], f"{c.quantity} agrees, though it is said to differ")
            if not c.agrees and not c.why_not:
                self.fault(example["id"], f"{c.quantity}: published {c.published}, tool {c.tool}")
            rows.append([c.quantity, six_digits(c.published), six_digits(c.tool),
                         difference(c.tool, c.published), c.where,
                         "yes" if c.agrees else "no, " + c.why_not])
        text = f"### {example['id']}: {example['title']}\n\n"
        text += f"Source: {example['source']}. Units: {example['units']}.\n\n"
        if example["id"] in NOTES:
            text += NOTES[example["id"]] + "\n\n"
        return text + table(["quantity", "published", "tool", "difference", "where", "agrees"],
                            rows)

    def check_rounding(self, name, run):
        """The figures are those that the results file shows, where they were formed."""
        shown = [("Gravity center", "gravity center", "gravityCenter_mm"),
                 ("Center of rigidity", "rigidity center", "rigidityCenter_mm")]
        for story in range(len(run.stories)):
            for section, title, key in shown:
                cells = run.row(section, story + 1)
                for axis, label in (("x", "X"), ("z", "Z(or Y)")):
                    self.check_shown(name, cells[f"{label} coord of {title}"],
                                     run.value(f"{key}.{axis}", story))
            cells = run.row("Eccentricity modulus", story + 1)
            for axis, label in (("x", "X"), ("z", "Z(or Y)")):
                self.check_shown(name, cells[f"Eccentricity Mod({label})"],
                                 run.value(f"eccentricityModulus.{axis}", story))
            for axis, load, direction in (("x", "2", "X"), ("z", "3", "Z(or Y)")):
                for kind, key in (("Average", "meanDrift_mm"), ("Max", "maxDrift_mm")):
                    row = run.row(published.ANGLE, story + 1, load, direction, kind)
                    self.check_shown(name, row["Relative story disp.(mm)"],
                                     run.value(f"{key}.{axis}", story))

    def check_shown(self, name, text, value):
        if not math.isnan(value) and f"{value:.5e}" != text:
            self.fault(name, f"the results file shows {text}, the run holds {value!r}")

    # Closed formulas.

    def add_closed_forms(self):
        self.text += CLOSED_FORM_INTRODUCTION
        for case in closed_form.all_cases():
            run = self.run(ROOT / "tests" / "verification" / "closed_form", case.name)
            self.check_rounding(case.name, run)
            rows = []
            for quantity, key, story, expected in case.expected:
                tool = run.value(key, story)
                if not math.isclose(tool, expected, rel_tol=1e-9, abs_tol=1e-9):
                    self.fault(case.name, f"{quantity}: formula {expected}, tool {tool}")
                rows.append([quantity, six_digits(expected), six_digits(tool),
                             difference(tool, expected), "yes"])
            self.text += f"### {case.title}\n\n`{case.name}`: {case.text}\n\n"
            self.text += table(["quantity", "formula", "tool", "difference", "agrees"], rows)
            self.text += "\n"

    # Equilibrium.

    def add_equilibrium(self):
        self.text += EQUILIBRIUM_INTRODUCTION
        self.add_building("two_story_y_up", "two_story_y_up.derived", "Two stories, Y vertical")
        self.add_floor_loads("two_story_y_up")
        self.add_building("five_story_office_z_up", "five_story_office_z_up",
                          "Five stories, Z vertical")
        self.add_braces()

    def building(self, name):
        return equilibrium.Building(EXAMPLES / f"{name}.qhm")

    def expect(self, name, what, value, expected, tolerance=1e-6):
        if not abs(value - expected) <= tolerance:
            self.fault(name, f"{what}: {value} instead of {expected}")

    def add_building(self, name, input_name, title):
        building = self.building(name)
        run = self.run(EXAMPLES, name, input_name)
        rows = []
        for story in range(len(building.levels) - 1):
            own = [building.story_shear(story, 2), building.story_shear(story, 3)]
            tool, shown = ({axis: run.value(f"{key}.{axis}", story) for axis in "xz"}
                           for key in ("shearOfStoryMembers_kN", "gravityCenter_mm"))
            center = building.gravity_center(story, 1)
            self.expect(name, f"shear X of story {story + 1}", tool["x"], own[0][0])
            self.expect(name, f"shear Z of story {story + 1}", tool["z"], own[1][1])
            self.expect(name, f"shear Z of story {story + 1} under X", own[0][1], 0.0)
            self.expect(name, f"shear X of story {story + 1} under Z", own[1][0], 0.0)
            self.expect(name, f"centre of gravity X of story {story + 1}", shown["x"], center[0])
            self.expect(name, f"centre of gravity Z of story {story + 1}", shown["z"], center[1])
            rows.append([str(story + 1), *(FOUR_DIGITS.format(v) for v in (
                own[0][0], tool["x"], own[1][1], tool["z"])),
                *(f"{v:.6g}" for v in (center[0], shown["x"], center[1], shown["z"]))])
        self.check_cases(name, building)
        second = "XYZ"[building.second]
        self.text += f"### {title}\n\n`{name}` with `{input_name}.csv`.\n\n"
        self.text += table(["story", "shear X, cut members (kN)", "shear X, tool",
                            f"shear {second}, cut members (kN)", f"shear {second}, tool",
                            "gravity X, cut members (mm)", "tool",
                            f"gravity {second}, cut members (mm)", "tool"], rows)
        self.text += "\n" + self.case_text(building) + "\n"

    def check_cases(self, name, building):
        """Load combinations are sums, opposite cases opposite; columns carry no load between."""
        pairs = {4: (2, -1.0), 5: (3, -1.0)}
        for story in range(len(building.levels) - 1):
            for case, (other, sign) in pairs.items():
                if case in building.cases:
                    for a, b in zip(building.cut_force(story, case),
                                    building.cut_force(story, other)):
                        self.expect(name, f"case {case} against {other}", a, sign * b)
            for combination in building.model["loadCombinations"]:
                earthquake = combination - 99
                for axis, total in enumerate(building.cut_force(story, combination)):
                    parts = sum(building.cut_force(story, case)[axis] for case in (1, earthquake))
                    self.expect(name, f"combination {combination}", total, parts)
            for case in building.cases:
                for member in building.cut_members(story):
                    ends = [building.global_force(member, end, case) for end in (0, 1)]
                    for axis in (0, building.second):
                        self.expect(name, f"member {member['number']} under case {case}",
                                    ends[0][axis] + ends[1][axis], 0.0)
        self.expect(name, "base shears of cases 2 and 3", building.story_shear(0, 2)[0],
                    building.story_shear(0, 3)[1])

    def case_text(self, building):
        base = FOUR_DIGITS.format(building.story_shear(0, 2)[0])
        text = (f"The base shear is {base} kN in both directions (the same weights, the same "
                "coefficient), and every story shear of an earthquake case has no part across its "
                "direction. In every case the horizontal forces at both ends of each cut member "
                "cancel. Story shears of the load combinations are the sums of their cases")
        if 4 in building.cases:
            text += "; cases 4 and 5 are cases 2 and 3 with the sign turned"
        return text + ". All of this holds within 10⁻⁶ kN.\n"

    def add_floor_loads(self, name):
        building = self.building(name)
        rows = []
        for case, axis, label in ((2, 0, "X"), (3, 1, "Z")):
            loads = [building.load_at_floor(level, case)[axis] for level in building.levels[1:]]
            for story in range(len(loads)):
                above = sum(loads[story:])
                shear = building.story_shear(story, case)[axis]
                self.expect(name, f"shear of story {story + 1} against the loads above", shear,
                            above)
                rows.append([str(case), label, str(story + 1), FOUR_DIGITS.format(loads[story]),
                             FOUR_DIGITS.format(above), FOUR_DIGITS.format(shear)])
        self.text += (
            "This building has no slabs, so the load on a joint is what holds the ends of the "
            "members that meet in it. Applied loads found in this way, against the story shears "
            "of the cut members:\n\n")
        self.text += table(["load case", "direction", "story", "load on its upper floor (kN)",
                            "loads on all floors above (kN)", "story shear (kN)"], rows) + "\n"

    def add_braces(self):
        name = "five_story_office_z_up"
        runs = (self.run(EXAMPLES, name), self.run(EXAMPLES, name, name + ".columns"))
        rows = []
        for story in range(len(runs[0].stories)):
            shears = [[run.value(f"shearOfStoryMembers_kN.{axis}", story) for run in runs]
                      for axis in "xz"]
            for everything, part in shears:
                if part > everything + 1e-6:
                    self.fault(name, f"columns carry more than all members in story {story + 1}")
            rows.append([str(story + 1), *(FOUR_DIGITS.format(shear)
                                           for pair in shears for shear in pair)])
        self.text += (
            "With `five_story_office_z_up.columns.csv` the columns alone are story members. What "
            "they lack of the story shear is what the braces carry, and the tool then knows "
            "nothing of it:\n\n")
        self.text += table(["story", "shear X, all members (kN)", "shear X, columns alone",
                            "shear Y, all members (kN)", "shear Y, columns alone"], rows)


def main(arguments):
    check = "--check" in arguments
    programs = [argument for argument in arguments if argument != "--check"]
    if len(programs) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    chapter = Chapter(*programs)
    chapter.add_published()
    chapter.add_closed_forms()
    chapter.add_equilibrium()
    for fault in chapter.faults:
        print(fault, file=sys.stderr)
    if not check:
        CHAPTER.write_text(chapter.text, encoding="utf-8", newline="\n")
    elif not CHAPTER.exists() or CHAPTER.read_text(encoding="utf-8") != chapter.text:
        print(f"{CHAPTER} is not what the runs give: run write_verification.py", file=sys.stderr)
        return 1
    return 1 if chapter.faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
