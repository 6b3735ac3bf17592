"""The calculation sheet's figures as text, formed a second time, and held against a printed sheet.

Every cell of a sheet that shows a figure says which one: `data-figure`, `data-story`,
`data-direction`, `data-member`. `difference` takes the JSON of a run and the HTML of its sheet and
answers the first cell that says something else, is missing or is too many, or None. Numbers are
rounded from the exact value of the double, with whole numbers only.
"""

import html.parser
import re
from fractions import Fraction

NOTHING = "\u2014"
MINUS = "\u2212"
DIGITS = 12
TOLERANCE = Fraction(1, 10**9)
VOID = ("meta", "input", "br", "img", "link", "hr", "col")
VERDICTS = {"OK": "OK", "NG": "NG", "undetermined": "算定不可"}
OVERALL = {"OK": "OK", "NG": "NG", "undetermined": "未確定"}


# --- numbers as text ----------------------------------------------------------------------------


def written(amount, decimals, is_negative):
    """A whole number of units of the last decimal as text, with thousands separators."""
    whole, rest = divmod(amount, 10**decimals)
    text = "{:,}".format(whole)
    if decimals:
        text += "." + str(rest).rjust(decimals, "0")
    return MINUS + text if is_negative and amount else text


def floor(fraction):
    return fraction.numerator // fraction.denominator


def ceiling(fraction):
    return -floor(-fraction)


def nearest(value, decimals):
    """Halves away from zero."""
    if value is None:
        return NOTHING
    scaled = abs(Fraction(value)) * 10**decimals
    return written(floor(scaled + Fraction(1, 2)), decimals, value < 0)


def smaller(value, decimals):
    """Never more than the value, but for its last digits; the amount of a negative one grows."""
    if value is None:
        return NOTHING
    scaled = abs(Fraction(value)) * 10**decimals
    if value < 0:
        return written(ceiling(scaled * (1 - TOLERANCE)), decimals, True)
    return written(floor(scaled * (1 + TOLERANCE)), decimals, False)


def larger(value, decimals):
    if value is None:
        return NOTHING
    scaled = abs(Fraction(value)) * 10**decimals
    if value < 0:
        return written(floor(scaled * (1 + TOLERANCE)), decimals, True)
    return written(ceiling(scaled * (1 - TOLERANCE)), decimals, False)


def length(value):
    """Levels and heights: a whole number when within 0.005 mm of one."""
    if value is None:
        return NOTHING
    exact = abs(Fraction(value))
    whole = floor(exact + Fraction(1, 2))
    near = abs(exact - whole) <= Fraction(5, 1000)
    return nearest(value, 0) if near else nearest(value, 2)


def angle(value, decimals=0):
    """1/N, its denominator cut off."""
    if value is None:
        return NOTHING
    if value == 0:
        return "0"
    amount = abs(Fraction(value))
    sign = MINUS if value < 0 else ""
    if amount > 1:
        return sign + ">1"
    scaled = floor(10**decimals / amount * (1 + TOLERANCE))
    if scaled > 9999 * 10**decimals:
        return sign + "<1/9999"
    return sign + "1/" + written(scaled, decimals, False).replace(",", "")


def allowable(value):
    """1/N where that is within a thousandth, else with one decimal."""
    if value is None:
        return NOTHING
    inverse = 1 / Fraction(value)
    whole = floor(inverse + Fraction(1, 2))
    if abs(inverse - whole) <= Fraction(1, 1000) * whole:
        return "1/%d" % whole
    return "1/" + nearest(inverse, 1).replace(",", "")


def whole(value):
    return NOTHING if value is None else str(value)


# --- what the sheet adds to the figures ---------------------------------------------------------


def quotient(a, b):
    return None if a is None or b is None or b == 0 else a / b


def share_of(part, of):
    value = quotient(part, of)
    return None if value is None else 100.0 * value


def above(got, story, key, direction=None):
    """A figure less that of the story above it."""
    def of(entry):
        return entry[key] if direction is None else entry[direction][key]
    value = of(story)
    if story["number"] == len(got["stories"]):
        return value
    other = of(got["stories"][story["number"]])
    return None if value is None or other is None else value - other


def max_over_mean(story, direction):
    axis = 0 if direction == "x" else 1
    judged = [m for m in story["members"] if m["upright"]] or story["members"]
    drifts = [m["drift_mm"][axis] for m in judged]
    worst = story[direction]["worstUpright"]["drift_mm"]
    if worst is None or None in drifts:
        return None
    mean = 0.0
    for drift in drifts:
        mean += drift
    return quotient(worst, mean / len(drifts))


def to_limit(d):
    if d["elasticRadius_mm"] is None or d["eccentricity_mm"] is None:
        return None
    return 0.15 * d["elasticRadius_mm"] - d["eccentricity_mm"]


def torsion_exponent(got):
    """The largest multiple of 3 with which the greatest torsional stiffness is at least 1."""
    values = [abs(Fraction(s["torsionalStiffness_kNmm"])) / 1000 for s in got["stories"]
              if s["torsionalStiffness_kNmm"] is not None]
    exponent = 0
    if not values or max(values) == 0:
        return exponent
    while max(values) >= 10**(exponent + 3):
        exponent += 3
    while max(values) < Fraction(10)**exponent:
        exponent -= 3
    return exponent


def expected_text(got, table, figure, story, direction, member):
    """What the cell must say; None for a cell that is not held against anything here."""
    if figure.startswith("members."):
        return member_text(figure[8:], story, direction, member, got)
    if direction is None:
        return story_text(got, figure, story)
    d = story[direction]
    across = 1 if direction == "x" else 0
    worst, largest = d["worstUpright"], d["toolMax"]
    texts = {
        "storyShear_kN": lambda: nearest(d[figure], 1),
        "shearOfStoryMembers_kN": lambda: nearest(d[figure], 1),
        "share": lambda: nearest(share_of(d["shearOfStoryMembers_kN"], d["storyShear_kN"]), 1),
        "acrossShare": lambda: nearest(positive(share_of(
            d["acrossShear_kN"], d["shearOfStoryMembers_kN"])), 1),
        "floorForce_kN": lambda: nearest(above(got, story, "storyShear_kN", direction), 1),
        "shearCoefficient": lambda: nearest(
            quotient(d["storyShear_kN"], story["weightAbove_kN"]), 3),
        "worstUpright.drift_mm": lambda: nearest(worst["drift_mm"], 3),
        "worstUpright.member": lambda: whole(worst["member"]),
        "worstUpright.angle": lambda: angle(worst["angle"]),
        "worstUpright.allowable": lambda: allowable(worst["allowable"]),
        "worstUpright.code": lambda: VERDICTS[worst["code"]],
        "toolMax.verdict": lambda: largest["verdict"] or NOTHING,
        "toolMax.member": lambda: whole(largest["member"]),
        "toolMeanVerdict": lambda: d[figure] or NOTHING,
        "meanDrift_mm": lambda: nearest(d[figure], 3),
        "meanAngle": lambda: angle(d[figure]),
        "maxOverMean": lambda: nearest(max_over_mean(story, direction), 3),
        "rs": lambda: nearest(d[figure], 1),
        "stiffnessRatio": lambda: smaller(d[figure], 3),
        "stiffnessRatioUpright": lambda: smaller(d[figure], 3),
        "stiffnessRatioTranslational": lambda: smaller(d[figure], 3),
        "stiffnessRatioCode": lambda: VERDICTS[d[figure]],
        "stiffnessRatioTool": lambda: d[figure] or NOTHING,
        "gravityCenter_mm": lambda: nearest(story[figure][across], 0),
        "rigidityCenter_mm": lambda: nearest(story[figure][across], 0),
        "eccentricity_mm": lambda: nearest(d[figure], 0),
        "stiffness_kNpmm": lambda: nearest(d[figure], 2),
        "elasticRadius_mm": lambda: nearest(d[figure], 0),
        "eccentricityModulus": lambda: larger(d[figure], 3),
        "toLimit_mm": lambda: nearest(to_limit(d), 0),
        "eccentricityCode": lambda: VERDICTS[d[figure]],
        "eccentricityTool": lambda: d[figure] or NOTHING,
    }
    return texts[figure]() if figure in texts else None


def positive(value):
    return None if value is None else abs(value)


def story_text(got, figure, story):
    if figure in ("lowerLevel_mm", "upperLevel_mm", "height_mm"):
        return length(story[figure])
    if figure in ("storyMembers", "leaning"):
        return str(story[figure])
    if figure == "uprightMembers":
        return str(story["storyMembers"] - story["leaning"])
    if figure == "cutNotCounted":
        return str(len(story[figure]))
    if figure == "weightAbove_kN":
        return nearest(story[figure], 1)
    if figure == "floorWeight_kN":
        return nearest(above(got, story, "weightAbove_kN"), 1)
    if figure == "torsionalStiffness_kNmm":
        value = story[figure]
        return nearest(None if value is None
                       else Fraction(value) / 1000 / Fraction(10)**torsion_exponent(got), 3)
    return None


def member_text(figure, story, direction, member, got):
    """Of a member that stands in the story's list; others (cut, not counted) are not in JSON."""
    for entry in story["members"]:
        if entry["number"] == member:
            value = entry[figure]
            if direction is not None:
                value = value[0 if direction == "x" else 1]
            decimals = {"x_mm": 0, "v_mm": 0, "shear_kN": 2, "drift_mm": 3,
                        "stiffness_kNpmm": 3, "axialForce_kN": 2}[figure]
            return nearest(value, decimals)
    return None


# --- the printed sheet --------------------------------------------------------------------------


class Sheet(html.parser.HTMLParser):
    """Collects (table, data attributes, text) of the elements that show a figure."""

    def __init__(self):
        super().__init__()
        self.open = []
        self.cells = []
        self.remarks = []

    def handle_starttag(self, tag, attributes):
        if tag not in VOID:
            self.open.append([tag, dict(attributes), ""])

    def handle_endtag(self, tag):
        while self.open:
            name, attributes, text = self.open.pop()
            self.close(attributes, text)
            if name == tag:
                return

    def close(self, attributes, text):
        if "data-remark" in attributes:
            self.remarks.append(attributes["data-remark"])
        if "data-figure" in attributes:
            tables = [a["data-table"] for _, a, _ in self.open if "data-table" in a]
            self.cells.append((tables[-1] if tables else None, attributes, text.strip()))
        elif self.open and "data-note" not in attributes:
            self.open[-1][2] += text

    def handle_data(self, data):
        if self.open:
            self.open[-1][2] += data


PER_STORY = {
    "T2a": ["lowerLevel_mm", "upperLevel_mm", "height_mm", "storyMembers", "uprightMembers",
            "leaning", "cutNotCounted"],
    "T2b": ["weightAbove_kN", "floorWeight_kN"],
    "T3x": ["height_mm"], "T3second": ["height_mm"], "T4": ["height_mm"],
    "T5": ["torsionalStiffness_kNmm"],
}
OF_A_DRIFT = ["worstUpright.drift_mm", "worstUpright.member", "worstUpright.angle",
              "worstUpright.allowable", "worstUpright.code", "toolMax.verdict", "meanDrift_mm",
              "meanAngle", "toolMeanVerdict", "toolMax.member", "maxOverMean"]
PER_DIRECTION = {
    "T2b": ["storyShear_kN", "shearOfStoryMembers_kN", "share", "floorForce_kN", "acrossShare",
            "shearCoefficient"],
    "T3x": OF_A_DRIFT, "T3second": OF_A_DRIFT,
    "T4": ["meanDrift_mm", "rs", "stiffnessRatio", "stiffnessRatioTool", "stiffnessRatioCode",
           "stiffnessRatioUpright", "stiffnessRatioTranslational"],
    "T5": ["gravityCenter_mm", "rigidityCenter_mm", "eccentricity_mm", "stiffness_kNpmm",
           "elasticRadius_mm", "eccentricityModulus", "toLimit_mm", "eccentricityTool",
           "eccentricityCode"],
}


def wanted_cells(got):
    """(table, figure, story, direction), once each."""
    cells = []
    for story in got["stories"]:
        number = str(story["number"])
        for table, figures in PER_STORY.items():
            cells += [(table, figure, number, None) for figure in figures]
        for table, figures in PER_DIRECTION.items():
            for direction in ("x", "second"):
                if table not in ("T3x", "T3second") or table == "T3" + direction:
                    cells += [(table, figure, number, direction) for figure in figures]
    return cells


def difference(got, text):
    sheet = Sheet()
    sheet.feed(text)
    shown = {}
    for table, attributes, cell in sheet.cells:
        key = (table, attributes["data-figure"], attributes.get("data-story"),
               attributes.get("data-direction"))
        if "data-member" not in attributes:
            shown.setdefault(key, []).append(cell)
        found = differing_cell(got, table, attributes, cell)
        if found:
            return found
    for key in wanted_cells(got):
        if key[1] == "toolMax.member" and largest_of(got, key)["member"] is None:
            continue
        if len(shown.get(key, [])) != 1:
            return "sheet: %d cells for %s" % (len(shown.get(key, [])), key)
    remarks = sorted({remark["id"] for remark in got["remarks"]})
    if sorted(set(sheet.remarks)) != remarks:
        return "sheet: remarks %s, in the figures %s" % (sorted(set(sheet.remarks)), remarks)
    return differing_governing_values(got, shown) or contradicting_print(got, shown)


def largest_of(got, key):
    return got["stories"][int(key[2]) - 1][key[3]]["toolMax"]


def differing_cell(got, table, attributes, cell):
    figure = attributes["data-figure"]
    number = attributes.get("data-story")
    direction = attributes.get("data-direction")
    member = attributes.get("data-member")
    if figure == "verdict.code":
        same = cell.startswith(OVERALL[got["verdict"]["code"]])
        return None if same else "sheet: overall verdict %r" % cell
    if figure == "verdict.tool":
        same = cell == (got["verdict"]["tool"] or NOTHING)
        return None if same else "sheet: overall verdict of the tool %r" % cell
    if figure == "rsMean":
        values = [story[direction][figure] for story in got["stories"]]
        expected = nearest(values[0] if values else None, 1)
    elif figure == "utilisation" or number is None:
        return None
    elif figure in ("worstUpright.angle", "worstUpright.allowable"):
        return None  # their decimals depend on each other: contradicting_print
    else:
        story = got["stories"][int(number) - 1]
        expected = expected_text(got, table, figure, story, direction,
                                 None if member is None else int(member))
    if expected is None or cell == expected or cell.startswith(expected + " "):
        return None
    if is_beyond_print(expected) and expected[:DIGITS] == cell[:DIGITS]:
        return None
    return "sheet: %s %s of story %s %s %s: expected %r, got %r" % (
        table, figure, number, direction, member or "", expected, cell)


def is_beyond_print(text):
    """More digits than anybody reads, and than a sum of doubles is good for."""
    return sum(character.isdigit() for character in text) > DIGITS


def utilisation(d, figure):
    if figure == "worstUpright.angle":
        return quotient(d["worstUpright"]["angle"], d["worstUpright"]["allowable"])
    if figure == "stiffnessRatio":
        return None if not d[figure] or d[figure] <= 0.0 else 0.6 / d[figure]
    return quotient(d[figure], 0.15)


def differing_governing_values(got, shown):
    """The summary shows the worst value of every check and direction."""
    if not got["run"]["complete"]:
        return None
    for figure in ("worstUpright.angle", "stiffnessRatio", "eccentricityModulus"):
        for direction in ("x", "second"):
            cells = [key for key in shown if key[0] == "T1" and key[1] == figure
                     and key[3] == direction and key[2] is not None]
            values = [utilisation(s[direction], figure) for s in got["stories"]]
            if None in values or not values:
                continue
            if len(cells) != 1:
                return "sheet: %d governing values of %s %s" % (len(cells), figure, direction)
            story = int(cells[0][2])
            if values[story - 1] < max(values):
                return "sheet: %s %s is governed by another story than %d" % (
                    figure, direction, story)
            used = shown.get(("T1", "utilisation", cells[0][2], direction), [])
            printed = larger(values[story - 1], 2)
            if printed not in used and not is_beyond_print(printed):
                return "sheet: utilisation of %s %s: expected %s among %s" % (
                    figure, direction, larger(values[story - 1], 2), used)
    return None


ANGLE = re.compile("1/([0-9]+)(?:[.]([0-9]{1,6}))?$")


def contradicting_print(got, shown):
    """Angle and limit as printed: cut off, and in the order of the verdict."""
    for story in got["stories"]:
        for direction in ("x", "second"):
            worst = story[direction]["worstUpright"]
            key = (str(story["number"]), direction)
            value = shown[("T3" + direction, "worstUpright.angle") + key][0]
            limit = shown[("T3" + direction, "worstUpright.allowable") + key][0]
            match, bound = ANGLE.match(value), ANGLE.match(limit)
            decimals = len(match.group(2) or "") if match else 0
            if value != angle(worst["angle"], decimals):
                return "sheet: angle of story %s %s: %r printed as %r" % (
                    key + (worst["angle"], value))
            if bound is None or bound.group(2) is None and limit != allowable(worst["allowable"]):
                return "sheet: limit of story %s %s: %r printed as %r" % (
                    key + (worst["allowable"], limit))
            if match and worst["code"] != "undetermined":
                is_within = Fraction(value[2:]) >= Fraction(limit[2:])
                if is_within != (worst["code"] == "OK"):
                    return "sheet: story %s %s: %s beside %s is %s" % (
                        key + (value, limit, worst["code"]))
    for story in got["stories"]:
        for direction in ("x", "second"):
            d = story[direction]
            for figure, code, holds in (
                    ("stiffnessRatio", d["stiffnessRatioCode"], lambda v: v >= Fraction(6, 10)),
                    ("eccentricityModulus", d["eccentricityCode"],
                     lambda v: v <= Fraction(15, 100))):
                table = "T4" if figure == "stiffnessRatio" else "T5"
                text = shown[(table, figure, str(story["number"]), direction)][0]
                if code == "undetermined" or text == NOTHING:
                    continue
                value = Fraction(text.replace(",", "").replace(MINUS, "-"))
                if holds(value) != (code == "OK"):
                    return "sheet: %s of story %s %s: %s is %s" % (
                        figure, story["number"], direction, text, code)
    return None
