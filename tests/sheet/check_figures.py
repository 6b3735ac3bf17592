#!/usr/bin/env python3
"""check_figures.py QUARNEL_CLI FOLDER...: the figures of calculation sheets against the JSON.

Makes the sheet of every recorded building in the folders and holds each cell that names a figure
against the figure in the JSON of the same run, written by the rules of print: exact decimal
arithmetic, nothing shared with the program. What a verdict says must also be what the printed
figure beside its limit shows.
"""

import json
import shutil
import subprocess
import sys
import tempfile
from decimal import ROUND_CEILING, ROUND_FLOOR, ROUND_HALF_UP, Decimal
from html.parser import HTMLParser
from pathlib import Path

NONE = "—"
TOLERANCE = Decimal("1e-9")
VERDICTS = {"OK": "OK", "NG": "NG", "undetermined": "算定不可"}
OVERALL = {"OK": "OK", "NG": "NG", "undetermined": "未確定 / open"}


class Figures(HTMLParser):
    """Every element that names a figure, with its own text."""

    VOID = {"meta", "input", "br", "col", "link"}

    def __init__(self):
        super().__init__()
        self.open = []
        self.found = []

    def handle_starttag(self, tag, attributes):
        if tag in self.VOID:
            return
        attributes = dict(attributes)
        figure = None
        if "data-figure" in attributes:
            figure = {"key": attributes["data-figure"], "text": "",
                      "story": attributes.get("data-story"),
                      "direction": attributes.get("data-direction"),
                      "member": attributes.get("data-member")}
            self.found.append(figure)
        self.open.append((tag, figure, "data-note" in attributes))

    def handle_startendtag(self, tag, attributes):
        pass

    def handle_endtag(self, tag):
        while self.open and self.open.pop()[0] != tag:
            pass

    def handle_data(self, data):
        for _, figure, is_note in reversed(self.open):
            if is_note:
                return
            if figure is not None:
                figure["text"] += data
                return


def grouped(text, decimals):
    sign, whole = ("−", text[1:]) if text.startswith("-") else ("", text)
    whole, _, fraction = whole.partition(".")
    if not (whole + fraction).strip("0"):
        sign = ""
    return sign + f"{int(whole):,}" + ("." + fraction if decimals else "")


def rounded(value, decimals, rounding=ROUND_HALF_UP):
    if value is None:
        return NONE
    step = Decimal(1).scaleb(-decimals)
    return grouped(format(Decimal(value).quantize(step, rounding), "f"), decimals)


def safely(value, decimals, up):
    """Rounded down or up; a billionth part does not count."""
    if value is None:
        return NONE
    exact = Decimal(value)
    towards_greater = up == (exact >= 0)
    exact *= 1 - TOLERANCE if towards_greater else 1 + TOLERANCE
    return rounded(exact, decimals, ROUND_CEILING if up else ROUND_FLOOR)


def level(value):
    exact = Decimal(value)
    is_whole = abs(exact - exact.to_integral_value(ROUND_HALF_UP)) <= Decimal("0.005")
    return rounded(value, 0 if is_whole else 2)


def angle(drift, height):
    if drift is None:
        return NONE
    if drift == 0:
        return "0"
    sign = "−" if drift < 0 else ""
    inverse = Decimal(height) / abs(Decimal(drift)) * (1 + TOLERANCE)
    whole = inverse.to_integral_value(ROUND_FLOOR)
    if whole > 9999:
        return sign + "<1/9999"
    return sign + (f"1/{whole}" if whole >= 1 else ">1")


def is_within(inverse, share):
    """Whether 1/inverse is 1 over a whole number, give or take that share of it."""
    return abs(inverse - inverse.to_integral_value(ROUND_HALF_UP)) <= inverse * Decimal(share)


def one_over(inverse, decimals, rounding):
    return f"1/{inverse.quantize(Decimal(1).scaleb(-decimals), rounding)}"


def angle_and_limit(worst, height):
    """The amount of an angle and its limit, with as many decimals as show their order."""
    limit = 1 / Decimal(worst["allowable"])
    usual = 0 if is_within(limit, "0.001") else 1
    plain_limit = one_over(limit, usual, ROUND_HALF_UP)
    drift = None if worst["drift_mm"] is None else abs(worst["drift_mm"])
    plain = angle(drift, height)
    if not plain.startswith("1/"):
        return plain, plain_limit
    inverse = Decimal(height) / Decimal(drift) * (1 + TOLERANCE)
    for decimals in range(1 if is_within(limit, TOLERANCE) else 7):
        shown = (one_over(inverse, decimals, ROUND_FLOOR),
                 one_over(limit, max(decimals, usual), ROUND_HALF_UP))
        keeps = Decimal(shown[0][2:]) >= Decimal(shown[1][2:])
        if worst["code"] == "undetermined" or keeps == (worst["code"] == "OK"):
            return shown
    raise ValueError(f"{decimals} decimals do not show that {worst} is {worst['code']}")


def coordinate(figures, story, direction):
    """Of a centre, the one across the direction."""
    return figures[1 if direction == "x" else 0]


class Expected:
    """What a cell must show, from the JSON of the run."""

    GOVERNING = ("worstUpright.angle", "stiffnessRatio", "eccentricityModulus")

    def __init__(self, run):
        self.run = run
        self.stories = {str(story["number"]): story for story in run["stories"]}
        self.governing = None  # the figure to which a utilisation belongs stands before it

    def text(self, cell):
        key = cell["key"]
        if key in self.GOVERNING:
            self.governing = key
        if key == "verdict.code":
            return OVERALL[self.run["verdict"]["code"]]
        if key == "verdict.tool":
            return self.run["verdict"]["tool"] or NONE
        story = self.stories.get(cell["story"])
        direction = cell["direction"]
        if key == "rsMean":
            values = [one[direction]["rsMean"] for one in self.run["stories"]]
            return rounded(next((value for value in values if value is not None), None), 1)
        if story is None:
            return None
        figures = story[direction] if direction else None
        if cell["member"] is not None:
            return self.member(story, cell)
        return self.of_story(key, story) if figures is None else self.of(key, story, figures,
                                                                         direction)

    def member(self, story, cell):
        members = [one for one in story["members"] if str(one["number"]) == cell["member"]]
        if len(members) != 1:
            return None
        index = 1 if cell["direction"] == "second" else 0
        decimals = {"members.shear_kN": 2, "members.drift_mm": 3, "members.stiffness_kNpmm": 3}
        key = cell["key"]
        if key in decimals:
            return rounded(members[0][key.split(".")[1]][index], decimals[key])
        if key == "members.axialForce_kN":
            return rounded(members[0]["axialForce_kN"], 2)
        if key in ("members.x_mm", "members.v_mm"):
            return rounded(members[0][key.split(".")[1]], 0)
        return None

    def utilisation(self, direction, figures):
        """How far the limit is used, in the story that uses it most."""
        def of(one):
            value = one["worstUpright"]["angle"] if self.governing == "worstUpright.angle" \
                else one[self.governing]
            if value is None:
                return None
            if self.governing == "worstUpright.angle":
                return Decimal(value) / Decimal(one["worstUpright"]["allowable"])
            if self.governing == "stiffnessRatio":
                return Decimal("0.6") / Decimal(value)
            return Decimal(value) / Decimal("0.15")
        uses = [of(story[direction]) for story in self.stories.values()]
        if of(figures) < max(use for use in uses if use is not None) * (1 - TOLERANCE):
            return "of another story"
        return safely(of(figures), 2, up=True)

    @staticmethod
    def max_over_mean(story, direction, worst):
        index = 1 if direction == "second" else 0
        upright = [one for one in story["members"] if one["upright"]] or story["members"]
        drifts = [one["drift_mm"][index] for one in upright]
        if worst["drift_mm"] is None or None in drifts or not sum(drifts):
            return NONE
        mean = sum(map(Decimal, drifts)) / len(drifts)
        return rounded(Decimal(worst["drift_mm"]) / mean, 3)

    def of_story(self, key, story):
        if key in ("lowerLevel_mm", "upperLevel_mm", "height_mm"):
            return level(story[key])
        if key in ("storyMembers", "leaning"):
            return str(story[key])
        if key == "uprightMembers":
            return str(story["storyMembers"] - story["leaning"])
        if key == "weightAbove_kN":
            return rounded(story[key], 1)
        if key == "floorWeight_kN":
            return rounded(self.less_above(story, lambda one: one["weightAbove_kN"]), 1)
        if key == "torsionalStiffness_kNmm":
            return self.torsion(story[key])
        if key == "cutNotCounted":
            return str(len(story[key]))
        return "a figure that nobody checks"

    def less_above(self, story, value):
        """The story's value less that of the story above."""
        above = self.stories.get(str(story["number"] + 1))
        values = [value(story), 0.0 if above is None else value(above)]
        return None if None in values else values[0] - values[1]

    def torsion(self, value):
        """In 10^n kN m, n a multiple of 3 with which the greatest one is at least 1."""
        greatest = max((story["torsionalStiffness_kNmm"] or 0.0 for story in self.stories.values()))
        n = 0
        while Decimal(greatest) >= Decimal(10) ** (n + 3 + 3):
            n += 3
        return NONE if value is None else rounded(Decimal(value).scaleb(-3 - n), 3)

    def share(self, part, whole):
        if part is None or whole is None or whole == 0:
            return NONE
        return rounded(abs(Decimal(part)) / abs(Decimal(whole)) * 100, 1)

    def of(self, key, story, figures, direction):
        worst, tool = figures["worstUpright"], figures["toolMax"]
        height = story["height_mm"]
        plain = {"stiffness_kNpmm": 2, "rs": 1, "elasticRadius_mm": 0, "eccentricity_mm": 0,
                 "meanDrift_mm": 3, "storyShear_kN": 1, "shearOfStoryMembers_kN": 1}
        if key in plain:
            return rounded(figures[key], plain[key])
        special = {
            "worstUpright.drift_mm": lambda: rounded(worst["drift_mm"], 3),
            "worstUpright.member": lambda: NONE if worst["member"] is None
            else str(worst["member"]),
            "worstUpright.angle": lambda: angle_and_limit(worst, height)[0],
            "worstUpright.allowable": lambda: angle_and_limit(worst, height)[1],
            "worstUpright.code": lambda: VERDICTS[worst["code"]],
            "maxOverMean": lambda: self.max_over_mean(story, direction, worst),
            "utilisation": lambda: self.utilisation(direction, figures),
            "toolMax.member": lambda: str(tool["member"]),
            "meanAngle": lambda: angle(figures["meanDrift_mm"], height),
            "toolMax.verdict": lambda: tool["verdict"] or NONE,
            "toolMeanVerdict": lambda: figures["toolMeanVerdict"] or NONE,
            "stiffnessRatio": lambda: safely(figures["stiffnessRatio"], 3, up=False),
            "stiffnessRatioUpright": lambda: safely(figures["stiffnessRatioUpright"], 3, False),
            "stiffnessRatioTranslational":
                lambda: safely(figures["stiffnessRatioTranslational"], 3, False),
            "stiffnessRatioCode": lambda: VERDICTS[figures["stiffnessRatioCode"]],
            "stiffnessRatioTool": lambda: figures["stiffnessRatioTool"] or NONE,
            "eccentricityModulus": lambda: safely(figures["eccentricityModulus"], 3, up=True),
            "eccentricityCode": lambda: VERDICTS[figures["eccentricityCode"]],
            "eccentricityTool": lambda: figures["eccentricityTool"] or NONE,
            "gravityCenter_mm":
                lambda: rounded(coordinate(story["gravityCenter_mm"], story, direction), 0),
            "rigidityCenter_mm":
                lambda: rounded(coordinate(story["rigidityCenter_mm"], story, direction), 0),
            "share": lambda: self.share(figures["shearOfStoryMembers_kN"],
                                        figures["storyShear_kN"]),
            "shearCoefficient": lambda: rounded(
                None if None in (figures["storyShear_kN"], story["weightAbove_kN"])
                or story["weightAbove_kN"] == 0
                else figures["storyShear_kN"] / story["weightAbove_kN"], 3),
            "floorForce_kN": lambda: rounded(
                self.less_above(story, lambda one: one[direction]["storyShear_kN"]), 1),
            "toLimit_mm": lambda: rounded(
                None if None in (figures["elasticRadius_mm"], figures["eccentricity_mm"])
                else 0.15 * figures["elasticRadius_mm"] - figures["eccentricity_mm"], 0),
            "acrossShare": lambda: self.share(figures["acrossShear_kN"],
                                              figures["shearOfStoryMembers_kN"]),
        }
        return special[key]() if key in special else "a figure that nobody checks"


def limit_is_kept(cell):
    """Whether a printed ratio or modulus lies on the side of its limit that OK means."""
    value = Decimal(cell["text"].replace(",", "").replace("−", "-"))
    return value >= Decimal("0.6") if cell["key"] == "stiffnessRatio" else value <= Decimal("0.15")


def check_verdicts(cells, run, complain):
    verdict_of = {"stiffnessRatio": "stiffnessRatioCode", "eccentricityModulus": "eccentricityCode"}
    stories = {str(story["number"]): story for story in run["stories"]}
    for cell in cells:
        if cell["key"] not in verdict_of or cell["text"] == NONE:
            continue
        verdict = stories[cell["story"]][cell["direction"]][verdict_of[cell["key"]]]
        if verdict != "undetermined" and limit_is_kept(cell) != (verdict == "OK"):
            complain(f"{cell} is printed against its verdict {verdict}")


def make_sheet(cli, model, input_file, folder):
    """The cells of the sheet, and the figures of the same run; a sentence where there are none."""
    sheet, figures = folder / "sheet.html", folder / "figures.json"
    done = subprocess.run([cli, "sheet", str(model), str(input_file), str(sheet),
                           "--json", str(figures), "--date", "2026-11-21"],
                          capture_output=True, text=True, check=False)
    if done.returncode != 0:
        return [], {}, f"ended with {done.returncode}: {done.stderr}"
    parser = Figures()
    parser.feed(sheet.read_text(encoding="utf-8"))
    return parser.found, json.loads(figures.read_text(encoding="utf-8")), None


def check(cli, model, input_file, folder, complain):
    cells, run, failure = make_sheet(cli, model, input_file, folder)
    if failure:
        complain(failure)
        return 0
    expected = Expected(run)
    compared = 0
    for cell in cells:
        cell["text"] = cell["text"].strip()
        wanted = expected.text(cell)
        if wanted is None:
            continue
        compared += 1
        if cell["text"] != wanted:
            complain(f"{cell} should be {wanted}")
    check_verdicts(cells, run, complain)
    return compared


def check_beside_odd_limits(cli, model, folder, complain):
    """The building, moved so far that its stories lie between 1/200 and 1/120, each beside a limit
    that is not 1 over a whole number and differs from its angle by ever less. These angles,
    rounded down, and the limits, rounded to nearest, look equal or exchanged in the first decimals."""
    denominators = (151.4848, 151.5152, 150.0031)
    recording = json.loads(model.read_text(encoding="utf-8"))
    plain, input_file = folder / "plain.csv", folder / "odd.csv"
    cases = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
    plain.write_text(cases + "FIN\n", encoding="utf-8")
    compared = 0
    for story in range(1, 6):
        moved = folder / f"moved{story}.qhm"
        moved.write_text(json.dumps(recording), encoding="utf-8")
        run = make_sheet(cli, moved, plain, folder)[1]
        now = run["stories"][story - 1]["x"]["worstUpright"]["angle"]
        for displacements in recording["displacements"].values():
            for node in displacements.values():
                node[:] = [value / now / denominators[story % 3] for value in node]
        moved.write_text(json.dumps(recording), encoding="utf-8")
        run = make_sheet(cli, moved, plain, folder)[1]
        now = run["stories"][story - 1]["x"]["worstUpright"]["angle"]
        for power in (3, 5, 7):
            for sign in (1, -1):
                limit = now * (1 + sign * 10 ** -power)
                input_file.write_text(f"{cases}AllowStoryDeformAngle,\n{story},{limit!r},\nFIN\n",
                                      encoding="utf-8")
                compared += check(cli, moved, input_file, folder, complain)
    return compared


def main():
    cli, *folders = sys.argv[1:]
    problems = []
    models = [model for folder in folders for model in sorted(Path(folder).glob("*.qhm"))]
    for model in models:
        with tempfile.TemporaryDirectory() as folder:
            copy = Path(shutil.copy(model, folder))
            compared = check(cli, copy, model.with_suffix(".csv"), Path(folder),
                             lambda problem, name=model.name: problems.append(f"{name}: {problem}"))
            if compared < 30:
                problems.append(f"{model.name}: only {compared} cells were compared")
            print(f"{model.name}: {compared} cells")
    with tempfile.TemporaryDirectory() as folder:
        compared = check_beside_odd_limits(cli, Path(folders[0]) / "five_story_office_z_up.qhm",
                                           Path(folder), problems.append)
        print(f"beside odd limits: {compared} cells")
    for problem in problems[:40]:
        print(problem)
    return 1 if problems or not models else 0


if __name__ == "__main__":
    sys.exit(main())
