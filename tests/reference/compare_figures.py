"""Holds what `check` says beside its reports against the second calculation of the figures.

`difference` takes the document of reference_figures.py and what the program wrote (JSON, flat
tables, terminal) and answers the first difference in one line, or None.
"""

import csv
import io
import json
import math
import re

RELATIVE = 1e-9
OF_THE_TERMS = 1e-12   # what may remain of a sum that cancels, of its largest term
CAUTION = re.compile(r"^quarnel-cli: caution: .*?:(\d+:\d+: )?(error|warning) ([A-Z]\d\d): ")
CHECKS = {"Story deformation angle": "meanAngle", "Story stiffness ratio": "stiffnessRatio",
          "Eccentricity modulus": "eccentricityModulus"}
PLAIN_DECIMAL = re.compile(r"-?\d+(\.\d+)?")
ANSWER_OF_NO_BUILDING = 1e100


def difference(expected, figures_text, tables, terminal, cautions, model):
    """`tables`: texts of --table and --table-members; `model`: the host model as a dictionary."""
    if expected is None:
        return None if figures_text is None else "figures without an engine"
    if figures_text is None:
        return "no figures"
    try:
        got = json.loads(figures_text, object_pairs_hook=without_repeats)
    except ValueError as error:
        return "figures: %s" % error
    take_input_check(expected, got, cautions)
    found = differing_remarks(expected, got) if is_a_building(model) else None
    if not is_a_building(model):
        expected["verdict"] = got["verdict"]
        for wanted, seen in zip(expected["stories"], got["stories"]):
            for direction in ("x", "second"):
                for ratio in ("stiffnessRatioUpright", "stiffnessRatioTranslational"):
                    wanted[direction][ratio] = seen[direction][ratio]
    expected["tool"], expected["remarks"] = got["tool"], got["remarks"]
    if (got["run"]["failure"] is None) == expected["run"]["complete"]:
        expected["run"]["failure"] = got["run"]["failure"]
    return (differing_value("figures", expected, got) or found
            or differing_stories(got, tables[0]) or differing_members(got, tables[1])
            or contradicting_terminal(got, terminal))


def without_repeats(pairs):
    keys = [key for key, _ in pairs]
    if len(set(keys)) != len(keys):
        raise ValueError("a key stands twice among %s" % keys)
    return dict(pairs)


def is_a_building(model):
    """Not one whose answers add up to infinity: its remarks mean nothing."""
    for case in model.get("displacements", {}).values():
        for values in case.values():
            if max(abs(v) for v in values) > ANSWER_OF_NO_BUILDING:
                return False
    for case in model.get("endForces", {}).values():
        for ends in case.values():
            if max(abs(v) for end in ends for v in end) > ANSWER_OF_NO_BUILDING:
                return False
    return True


def differing_value(place, expected, got):
    if isinstance(expected, dict):
        if not isinstance(got, dict) or list(expected) != list(got):
            return "%s: expected the keys %s, got %s" % (place, list(expected), got)
        pairs = [("%s.%s" % (place, key), expected[key], got[key]) for key in expected]
    elif isinstance(expected, (list, tuple)):
        if not isinstance(got, list) or len(expected) != len(got):
            return "%s: expected %s, got %s" % (place, expected, got)
        pairs = [("%s[%d]" % (place, k), e, g) for k, (e, g) in enumerate(zip(expected, got))]
    else:
        same = is_near(expected, got) if isinstance(expected, float) else (
            type(expected) is type(got) and expected == got)
        return None if same else "%s: expected %r, got %r" % (place, expected, got)
    for pair in pairs:
        found = differing_value(*pair)
        if found:
            return found
    return None


def is_near(expected, got):
    if isinstance(got, bool) or not isinstance(got, (int, float)):
        return False
    room = RELATIVE * abs(expected) + OF_THE_TERMS * getattr(expected, "scale", 0.0)
    return abs(expected - got) <= room or expected == got


# --- remarks ------------------------------------------------------------------------------------


def take_input_check(expected, got, cautions):
    """Adds what the input check found: it said so before the run, on standard error."""
    kinds = [match.group(2) for match in map(CAUTION.match, cautions) if match]
    expected["remarks"] = list(expected["remarks"]) + [("R31", kind, None) for kind in kinds]
    counted = expected["verdict"]
    counted["errors"] += kinds.count("error")
    counted["warnings"] += kinds.count("warning")
    if "error" in kinds and counted["code"] == "OK":
        counted["code"] = "undetermined"


def differing_remarks(expected, got):
    def sorted_text(remarks):
        return sorted("%s %s %s" % remark for remark in remarks)
    wanted = sorted_text(expected["remarks"])
    seen = []
    for remark in got["remarks"]:
        if list(remark) != ["id", "kind", "stories", "en", "ja"]:
            return "remarks: the keys %s" % list(remark)
        if not remark["en"] or not remark["ja"] or "{" in remark["en"] + remark["ja"]:
            return "remark %s: its texts %r, %r" % (remark["id"], remark["en"], remark["ja"])
        stories = None if remark["id"] == "R31" else remark["stories"]
        seen.append((remark["id"], remark["kind"], stories))
    order = [(["error", "warning", "note"].index(r["kind"]), r["stories"][:1] or [0])
             for r in got["remarks"]]
    if order != sorted(order):
        return "remarks: not in the order of kinds and stories: %s" % order
    for text in sorted(set(wanted + sorted_text(seen))):
        if wanted.count(text) != sorted_text(seen).count(text):
            return "remarks: expected %s, got %s" % (wanted, sorted_text(seen))
    return None


# --- flat tables --------------------------------------------------------------------------------


def rows_of(text):
    """The rows under the heading; a text that is no table of this kind is a ValueError."""
    if text is None or not text.startswith(b"\xef\xbb\xbf"):
        raise ValueError("no byte-order mark")
    lines = text[3:].decode("utf-8").split("\r\n")
    if lines[-1] != "" or any("\n" in line or "\r" in line for line in lines):
        raise ValueError("a line that does not end with CR LF")
    rows = list(csv.reader(io.StringIO("\n".join(lines[:-1]))))
    if any(len(row) != len(rows[0]) for row in rows):
        raise ValueError("rows of different lengths")
    return rows[1:]


def differing_rows(name, expected, text):
    try:
        rows = rows_of(text)
    except (ValueError, IndexError) as error:
        return "%s: %s" % (name, error)
    if len(rows) != len(expected):
        return "%s: expected %d rows, got %d" % (name, len(expected), len(rows))
    for number, (row, values) in enumerate(zip(rows, expected)):
        if len(row) != len(values):
            return "%s row %d: expected %d cells, got %d" % (name, number + 1, len(values), len(row))
        for column, (cell, value) in enumerate(zip(row, values)):
            if not says(cell, value):
                return "%s row %d, column %d: expected %r, got %r" % (
                    name, number + 1, column + 1, value, cell)
    return None


def says(cell, value):
    if isinstance(value, bool):
        return cell == ("yes" if value else "no")
    if value is None or isinstance(value, str):
        return cell == (value or "")
    return bool(PLAIN_DECIMAL.fullmatch(cell)) and float(cell) == value


def differing_stories(got, text):
    expected = []
    for story in reversed(got["stories"]):
        for key, name in (("x", "X"), ("second", got["loadCases"]["secondDirection"])):
            d = story[key]
            worst, largest = d["worstUpright"], d["toolMax"]
            expected.append(
                [story["number"], name, got["loadCases"][key]]
                + [story[k] for k in ("lowerLevel_mm", "upperLevel_mm", "height_mm",
                                      "storyMembers", "leaning")]
                + [" ".join(str(n) for n in story["cutNotCounted"]), story["weightAbove_kN"]]
                + story["gravityCenter_mm"] + story["rigidityCenter_mm"]
                + [story["torsionalStiffness_kNmm"]] + list(story["allowable"].values())
                + [d[k] for k in ("storyShear_kN", "shearOfStoryMembers_kN", "acrossShear_kN",
                                  "meanDrift_mm", "meanAngle")]
                + list(worst.values()) + list(largest.values())
                + [d[k] for k in ("toolMeanVerdict", "rs", "rsMean", "stiffnessRatio",
                                  "stiffnessRatioUpright", "stiffnessRatioTranslational",
                                  "stiffnessRatioCode", "stiffnessRatioTool", "stiffness_kNpmm",
                                  "eccentricity_mm", "elasticRadius_mm", "eccentricityModulus",
                                  "eccentricityCode", "eccentricityTool")])
    return differing_rows("table", expected, text)


def differing_members(got, text):
    expected = []
    for story in reversed(got["stories"]):
        for m in story["members"]:
            expected.append([story["number"], m["number"], m["upright"], m["x_mm"], m["v_mm"],
                             m["axialForce_kN"]] + m["shear_kN"] + m["drift_mm"]
                            + m["stiffness_kNpmm"])
    return differing_rows("table of members", expected, text)


# --- terminal -----------------------------------------------------------------------------------


def contradicting_terminal(got, terminal):
    """No PASS beside a figure that was not formed; the verdicts and their number."""
    if terminal is None:
        return None
    lines = terminal.split("\n")
    check = direction = None
    rows = 0
    for line in lines:
        for title in CHECKS:
            if line.startswith(title):
                check = title
        if re.match(r"  [XYZ], load case -?\d+$", line):
            direction = "x" if line.startswith("  X") else "second"
        match = re.match(r"    (\d+) ", line)
        if check and direction and match:
            rows += 1
            d = got["stories"][int(match.group(1)) - 1][direction]
            if d[CHECKS[check]] is None and "PASS" in line:
                return "terminal: PASS beside what was not formed: %r" % line
            if d[CHECKS[check]] is None and "n/a" not in line:
                return "terminal: no n/a for what was not formed: %r" % line
        if line == "" or line.startswith("Remarks"):
            check = direction = None
    if got["run"]["complete"] and rows != 6 * len(got["stories"]):
        return "terminal: %d rows for %d stories" % (rows, len(got["stories"]))
    counted = line_of_counts(got)
    if got["run"]["complete"] and got["stories"] and counted not in lines:
        return "terminal: not the line %r" % counted
    verdict = got["verdict"]
    tool = "none by the tool" if verdict["tool"] is None else verdict["tool"] + " by the tool"
    if not any(line.startswith("Verdict: %s by the code, %s" % (verdict["code"], tool))
               for line in lines):
        return "terminal: not the verdicts %s" % verdict
    return None


def line_of_counts(got):
    """How many rows of the earthquake cases there are, and what both verdicts say of them."""
    tool, code = [], []
    for story in got["stories"]:
        for d in (story["x"], story["second"]):
            for figure, verdict in (("meanAngle", "toolMeanVerdict"),
                                    ("stiffnessRatio", "stiffnessRatioTool"),
                                    ("eccentricityModulus", "eccentricityTool")):
                tool.append(None if d[figure] is None else d[verdict])
            code += [d["worstUpright"]["code"], d["stiffnessRatioCode"], d["eccentricityCode"]]
    passed, failed, missing = tool.count("PASS"), tool.count("FAIL"), tool.count(None)
    return "Earthquake rows: %d verdicts, %d PASS, %d FAIL%s; by the code: %d OK, %d NG, %d %s" % (
        passed + failed, passed, failed, ", %d n/a" % missing if missing else "",
        code.count("OK"), code.count("NG"), code.count("undetermined"), "undetermined")
