#!/usr/bin/env python3
"""The figures of a run, worked out a second time: what `check --json` must say.

    reference_figures.py MODEL.qhm INPUT.csv

Goes on where reference_run.py ends: takes the stories, records and answers of that run and forms
the figures of the stories and directions, the verdicts of the tool and of the building code, and
the remarks (reference_remarks.py), in the order of the keys of the JSON. Plain loops over plain
lists; None is what was not formed. Lengths in mm, forces in kN.
"""

import argparse
import hashlib
import json
import math
import os
import sys

import reference_remarks
import reference_run
from reference_run import RunThrew, divide, square_root

EPSILON = 1e-9           # relative tolerance of the code's verdicts and of what is upright
NEXT_TO_NOTHING = 1e-6   # kN, kN/mm, kNmm: below it a divisor counts as none
CODE_ANGLE = 1.0 / 200.0
RELIEF_ANGLE = 1.0 / 120.0
CODE_RATIO = 0.6
CODE_MODULUS = 0.15
LEANING_SHARE = 0.05     # of the difference in height that the ends of an upright member part


class Sum(float):
    """A sum that knows how large its terms are, because what cancels leaves only rounding."""

    def __new__(cls, terms):
        value = 0.0
        for term in terms:
            value += term
        self = super().__new__(cls, value)
        self.scale = max([abs(term) for term in terms], default=0.0)
        return self


def finite(value):
    """The value, None when there is none or when it is not a finite number."""
    return value if value is not None and math.isfinite(value) else None


def digest(path):
    """SHA-256 of a file's bytes in hexadecimal, None for what cannot be read."""
    if not os.path.isfile(path):
        return None
    with open(path, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


class StoryMember:
    """One member of a story: its records, one per load case, seen as one thing."""

    def __init__(self, run, records):
        self.records = records
        first = records[0]
        self.number = first.number
        self.lower = first.lower
        self.upper = first.upper
        self.plan = [first.plan_x, first.plan_z]
        self.low = run.node_coords[run.find_node(first.lower)]
        self.up = run.node_coords[run.find_node(first.upper)]
        across = math.hypot(self.up[0] - self.low[0], run.plan_z(self.up) - run.plan_z(self.low))
        rise = abs(run.height_of(self.up) - run.height_of(self.low))
        self.rise = rise
        self.upright = across <= LEANING_SHARE * rise * (1.0 + EPSILON)
        # Under the earthquake cases, X and second; None for what was not formed.
        self.drift = [None, None]
        self.shear = [None, None]
        self.shear_across = [None, None]
        self.stiffness = [None, None]
        self.axial_force = None

    def record(self, load_case):
        for record in self.records:
            if record.load_case == load_case:
                return record
        return None


class Direction:
    """A story in one direction, under that direction's earthquake case."""

    def __init__(self):
        self.case_position = None  # of the earthquake case among the load cases
        self.story_shear = None
        self.shear = None
        self.across = None
        self.mean = None
        self.mean_angle = None
        self.worst = None          # the story member that decides
        self.worst_angle = None
        self.limit = None
        self.drift_code = "undetermined"
        self.largest = None        # the story member of the tool's row "Max"
        self.largest_drift = None
        self.largest_verdict = None
        self.mean_verdict = None
        self.rs = None
        self.rs_mean = None
        self.ratio = None
        self.ratio_upright = None
        self.ratio_translational = None
        self.ratio_code = "undetermined"
        self.ratio_tool = None
        self.stiffness = None
        self.eccentricity = None
        self.radius = None
        self.modulus = None
        self.modulus_code = "undetermined"
        self.modulus_tool = None


class StoryFigures:
    def __init__(self, number, story):
        self.number = number
        self.story = story
        self.height = story.height
        self.members = []
        self.cut_not_counted = []
        self.gravity = [None, None]
        self.rigidity = [None, None]
        self.torsional_stiffness = None
        self.directions = [Direction(), Direction()]


class Figures:
    """All figures of one run. `cases` are the load cases that the run took from the model."""

    def __init__(self, run):
        self.run = run
        self.host = getattr(run, "host", None)
        self.cases = run.load_cases
        self.z_up = run.z_up  # None where the run ended before it asked
        self.complete = "Calculation Complete" in run.status
        self.equal_cases = run.cases_read and run.quake_case[0] == run.quake_case[1]
        self.stories = []
        self.ground_level = self.sheet_ground()
        self.unanswered = []   # extra questions that a recording does not answer
        for k, story in enumerate(run.stories):
            self.stories.append(StoryFigures(k + 1, story))
        for figures in self.stories:
            self.take_members(figures)
            self.take_cut_members(figures)
            self.take_centres(figures)
        if self.complete:
            self.ask_about_cut_members()
        for axis in (0, 1):
            for figures in self.stories:
                self.take_shears(figures, axis)
                self.take_drifts(figures, axis)
                self.take_ratio(figures, axis)
                self.take_modulus(figures, axis)
            self.take_reference_ratios(axis)

    def has_case(self, axis):
        return self.run.quake_case[axis] in self.cases

    def sheet_ground(self):
        try:
            for line in self.run.input_lines():
                if line.startswith(b"SheetGround,"):
                    return reference_run.real_number(line.split(b",")[1])
        except (reference_run.CannotOpenInput, reference_run.TooManyLines):
            pass
        return None

    # Members

    def take_members(self, figures):
        run = self.run
        records = figures.story.members
        n = len(self.cases)
        for first in range(0, len(records), max(1, n)):
            figures.members.append(StoryMember(run, records[first:first + n]))
        for member in figures.members:
            for axis in (0, 1):
                record = member.record(run.quake_case[axis])
                if record is not None and "drifts" in run.steps_done:
                    member.drift[axis] = record.disp[axis]
                if "shears" in run.steps_done:
                    member.shear[axis] = member.records[0].shear[axis]
                    member.shear_across[axis] = self.shear_at_lower_end(
                        member.number, member.lower, member.records[0].axes, axis, 1 - axis)
                if (record is not None and "stiffness" in run.steps_done
                        and not (axis == 1 and self.equal_cases)):
                    member.stiffness[axis] = record.stiffness[axis]

    def shear_at_lower_end(self, number, lower, axes, case_axis, axis):
        """Along `axis` under the earthquake case of `case_axis`; None without an answer."""
        run = self.run
        start, _ = self.host.incidence(number)
        end = 0 if start == lower else 1
        try:
            force = self.host.end_force(number, end, run.quake_case[case_axis])
        except RunThrew:
            return None
        component = 0 if axis == 0 else (1 if run.z_up else 2)
        g = (force[0] * axes[0][component] + force[1] * axes[1][component]
             + force[2] * axes[2][component])
        return g * -reference_run.KIP_TO_KN if run.inches else -g

    def take_cut_members(self, figures):
        """The members that the cutting plane meets: what they weigh, and which do not count."""
        run, story = self.run, figures.story
        counted = [member.number for member in figures.members]
        for number in self.cut_by(story):
            if number not in counted:
                figures.cut_not_counted.append(number)
        if story.weight is None:
            return
        for j, force in zip(story.cut_members, story.cut_forces):
            number = run.member_numbers[j]
            axes = [run.height_of(axis[j]) for axis in run.member_axes]
            weight = force[0] * axes[0] + force[1] * axes[1] + force[2] * axes[2]
            if run.inches:
                weight = weight * reference_run.KIP_TO_KN
            for member in figures.members:
                if member.number == number and self.complete:
                    member.axial_force = weight

    def cut_by(self, story):
        """Numbers of the members that the story's cutting plane meets, in the host's order."""
        run = self.run
        plane = story.lower + story.height / 10.0
        numbers = []
        for number in run.member_numbers:
            ends = [run.find_node(node) for node in self.host.incidence(number)]
            if -1 in ends:
                continue
            levels = sorted(run.height_of(run.node_coords[end]) for end in ends)
            if levels[0] < plane <= levels[1]:
                numbers.append(number)
        return numbers

    def ask_about_cut_members(self):
        """What only figures ask: about the members that are cut and not counted.

        Of the dead load case again, whose answer the run has used and not kept.
        """
        run = self.run
        for figures in self.stories:
            for number in figures.cut_not_counted:
                start, end = self.host.incidence(number)
                asked = [(self.host.end_force, (number, 0, run.dead_case))]
                for case in run.quake_case:
                    asked.append((self.host.end_force, (number, 0, case)))
                    asked.append((self.host.displacement, (start, case)))
                    asked.append((self.host.displacement, (end, case)))
                for question, what in asked:
                    try:
                        question(*what)
                    except RunThrew:
                        self.unanswered.append(what)

    # Centres

    def take_centres(self, figures):
        story = figures.story
        if story.weight is not None and abs(story.weight) >= NEXT_TO_NOTHING:
            figures.gravity = [finite(story.gravity[0]), finite(story.gravity[1])]
        kx, kz = story.total_stiffness
        if kz is not None and abs(kz) >= NEXT_TO_NOTHING:
            figures.rigidity[0] = finite(story.rigidity[0])
        if kx is not None and abs(kx) >= NEXT_TO_NOTHING:
            figures.rigidity[1] = finite(story.rigidity[1])
        if None not in figures.rigidity:
            figures.torsional_stiffness = finite(story.torsional_stiffness)

    # Shears

    def take_shears(self, figures, axis):
        run, story, d = self.run, figures.story, figures.directions[axis]
        if "shears" not in run.steps_done:
            return
        d.shear = Sum([member.shear[axis] for member in figures.members])
        across = [member.shear_across[axis] for member in figures.members]
        if None not in across:
            d.across = Sum(across)
        if not self.complete or story.weight is None:
            return
        shears = []
        for j in story.cut_members:
            number = run.member_numbers[j]
            axes = [run.member_axes[0][j], run.member_axes[1][j], run.member_axes[2][j]]
            shears.append(self.shear_at_lower_end(number, run.lower_node(number), axes, axis, axis))
        if None not in shears:
            d.story_shear = Sum(shears)

    # Story deformation angle

    def take_drifts(self, figures, axis):
        run, story, d = self.run, figures.story, figures.directions[axis]
        h = figures.height
        d.limit = code_angle(story.allow_angle)
        if self.has_case(axis) and story.mean_by_load[axis]:
            d.case_position = self.cases.index(run.quake_case[axis])
        if (not figures.members or d.case_position is None or "drifts" not in run.steps_done):
            return
        d.mean = finite(story.mean_by_load[axis][d.case_position])
        d.mean_angle = None if d.mean is None else finite(divide(d.mean, h))
        judged = [member for member in figures.members if member.upright]
        if not judged:
            judged = figures.members
        for member in judged:
            if d.worst is None or abs(member.drift[axis]) > abs(d.worst.drift[axis]):
                d.worst = member
        if math.isfinite(h) and all(math.isfinite(member.drift[axis]) for member in judged):
            d.worst_angle = finite(divide(abs(d.worst.drift[axis]), h))
        if d.worst_angle is not None:
            ok = d.worst_angle <= d.limit * (1.0 + EPSILON)
            d.drift_code = "OK" if ok else "NG"
        d.largest_drift = story.max_by_load[axis][d.case_position]
        for member in figures.members:
            if d.largest is None and math.isfinite(d.largest_drift) and member.drift[axis] == d.largest_drift:
                d.largest = member
        if "results" in run.steps_done:
            d.mean_verdict = reference_run.pass_or_fail(
                story.allow_angle > divide(story.mean_by_load[axis][d.case_position], h))
            if axis == 1:
                d.largest_verdict = reference_run.pass_or_fail(
                    story.allow_angle > divide(d.largest_drift, h))

    # Stiffness ratio

    def take_ratio(self, figures, axis):
        run, story, d = self.run, figures.story, figures.directions[axis]
        if "ratios" not in run.steps_done or d.case_position is None:
            return
        bar = run.rs_mean_by_load[axis][d.case_position]
        d.rs_mean = finite(bar)
        if not figures.members:
            return
        mean = story.mean_by_load[axis][d.case_position]
        angle = divide(mean, figures.height)
        ratio = 0.0  # what the tool judges when there is nothing to divide by
        if axis == 0 and angle * bar != 0.0:
            ratio = divide(1.0, angle * bar)
            d.ratio = finite(ratio)
        if axis == 1 and angle != 0.0 and bar != 0.0:
            ratio = divide(divide(1.0, angle), bar)
            d.ratio = finite(ratio)
        if mean != 0.0:
            d.rs = finite(divide(1.0, angle))
        if d.ratio is not None:
            d.ratio_code = "OK" if d.ratio >= CODE_RATIO * (1.0 - EPSILON) else "NG"
        if "results" in run.steps_done:
            d.ratio_tool = reference_run.pass_or_fail(ratio > story.allow_ratio)

    def take_reference_ratios(self, axis):
        """The ratios from the upright members alone, and from shear over stiffness."""
        if not self.has_case(axis) or "drifts" not in self.run.steps_done:
            return
        for angle_of, name in ((angle_of_upright, "ratio_upright"),
                               (angle_without_turning, "ratio_translational")):
            angles = [angle_of(figures, axis) for figures in self.stories]
            total = 0.0
            for angle in angles:
                total += 0.0 if angle is None else divide(1.0, angle)
            mean = divide(total, float(len(angles)))
            for figures, angle in zip(self.stories, angles):
                if angle is not None and angle * mean != 0.0:
                    ratio = finite(divide(1.0, angle * mean))
                    setattr(figures.directions[axis], name, ratio)

    # Eccentricity modulus

    def take_modulus(self, figures, axis):
        run, story, d = self.run, figures.story, figures.directions[axis]
        if "rigidity" in run.steps_done or story.total_stiffness[axis] is not None:
            if self.has_case(axis) and not (axis == 1 and self.equal_cases):
                d.stiffness = finite(story.total_stiffness[axis])
        across = 1 - axis
        if None not in (figures.rigidity[across], figures.gravity[across]):
            d.eccentricity = finite(abs(figures.rigidity[across] - figures.gravity[across]))
        kr = figures.torsional_stiffness
        if kr is not None and kr > NEXT_TO_NOTHING and d.stiffness is not None:
            d.radius = finite(square_root(divide(kr, d.stiffness)))
        if None not in (d.eccentricity, d.radius):
            d.modulus = finite(divide(d.eccentricity, d.radius))
        if d.modulus is not None and figures.members:
            ok = d.modulus <= CODE_MODULUS * (1.0 + EPSILON)
            d.modulus_code = "OK" if ok else "NG"
            if d.modulus < 0.0:
                d.modulus_code = "NG"
        if "results" in run.steps_done:
            d.modulus_tool = reference_run.pass_or_fail(
                story.allow_modulus > story.modulus[axis])

    # Further sums that remarks are made of

    def along(self, force, axes, component):
        value = (force[0] * axes[0][component] + force[1] * axes[1][component]
                 + force[2] * axes[2][component])
        return value * reference_run.KIP_TO_KN if self.run.inches else value

    def axes_of(self, j):
        return [self.run.member_axes[k][j] for k in range(3)]

    def dead_forces(self, figures):
        """Vertical forces at the lower ends of the cut members under the dead load case."""
        vertical = 2 if self.run.z_up else 1
        return [self.along(force, self.axes_of(j), vertical)
                for j, force in zip(figures.story.cut_members, figures.story.cut_forces)]

    def dead_shear(self, figures, axis):
        component = 0 if axis == 0 else (1 if self.run.z_up else 2)
        return Sum([-self.along(force, self.axes_of(j), component)
                    for j, force in zip(figures.story.cut_members, figures.story.cut_forces)])

    def vertical_force(self, figures, axis):
        """Sum over the cut members under the earthquake case; None when it was not formed."""
        run = self.run
        if figures.directions[axis].story_shear is None:
            return None
        forces = []
        for j in figures.story.cut_members:
            number = run.member_numbers[j]
            start, _ = self.host.incidence(number)
            end = 0 if start == run.lower_node(number) else 1
            force = self.host.end_force(number, end, run.quake_case[axis])
            forces.append(self.along(force, self.axes_of(j), 2 if run.z_up else 1))
        return Sum(forces)

    def rigid_body_residual(self, figures, axis):
        """How far a node of the upper floor lies from the rigid motion that fits all best.

        The largest component in either plan direction, mm.
        """
        run = self.run
        case = run.quake_case[axis]
        unit = 25.4 if run.inches else 1000.0
        second = 1 if run.z_up else 2
        places, moves = [], []
        for node in sorted({member.upper for member in figures.members}):
            coords = run.node_coords[run.find_node(node)]
            move = self.host.displacement(node, case)
            places.append([coords[0], run.plan_z(coords)])
            moves.append([move[0] * unit, move[second] * unit])
        centre = [sum(p[k] for p in places) / len(places) for k in (0, 1)]
        mean = [sum(m[k] for m in moves) / len(moves) for k in (0, 1)]
        turning, spread = 0.0, 0.0
        for p, m in zip(places, moves):
            x, v = p[0] - centre[0], p[1] - centre[1]
            turning += x * (m[1] - mean[1]) - v * (m[0] - mean[0])
            spread += x * x + v * v
        turn = turning / spread if spread > 0.0 else 0.0
        residuals = []
        for p, m in zip(places, moves):
            x, v = p[0] - centre[0], p[1] - centre[1]
            residuals.append(abs(m[0] - mean[0] + turn * v))
            residuals.append(abs(m[1] - mean[1] - turn * x))
        return max(residuals)

    # The whole

    def overall_code(self, errors):
        verdicts = []
        for figures in self.stories:
            for d in figures.directions:
                verdicts += [d.drift_code, d.ratio_code, d.modulus_code]
        if "NG" in verdicts:
            return "NG"
        if "undetermined" in verdicts or errors or not self.stories or not self.complete:
            return "undetermined"
        return "OK"

    def overall_tool(self):
        if not self.complete:
            return None
        for figures in self.stories:
            for d in figures.directions:
                if "FAIL" in (d.mean_verdict, d.largest_verdict, d.ratio_tool, d.modulus_tool):
                    return "FAIL"
        return "PASS"


def code_angle(allowed):
    """The code's limit: 1/200, or the relief that the input file gives up to 1/120."""
    if allowed > RELIEF_ANGLE * 1.0001:
        return RELIEF_ANGLE
    if allowed > CODE_ANGLE:
        return allowed
    return CODE_ANGLE


def angle_of_upright(figures, axis):
    """Mean drift of the upright story members (of all where none is upright), over the height."""
    chosen = [member for member in figures.members if member.upright]
    if not chosen:
        chosen = figures.members
    if not chosen:
        return None
    total = 0.0
    for member in chosen:
        total += member.drift[axis]
    return angle_or_none(total / float(len(chosen)), figures.height)


def angle_without_turning(figures, axis):
    """Shear of the story members over their stiffness, over the height."""
    d = figures.directions[axis]
    if not figures.members or d.shear is None or d.stiffness is None:
        return None
    if abs(d.stiffness) < NEXT_TO_NOTHING:
        return None
    return angle_or_none(divide(d.shear, d.stiffness), figures.height)


def angle_or_none(drift, height):
    if drift == 0.0 or not math.isfinite(drift):
        return None
    return divide(drift, height)


# --- as JSON ------------------------------------------------------------------------------------


def direction_entry(figures, axis):
    d = figures.directions[axis]
    worst, largest = d.worst, d.largest
    return {
        "storyShear_kN": finite(d.story_shear),
        "shearOfStoryMembers_kN": finite(d.shear),
        "acrossShear_kN": finite(d.across),
        "meanDrift_mm": d.mean,
        "meanAngle": d.mean_angle,
        "worstUpright": {
            "member": None if worst is None else worst.number,
            "drift_mm": None if worst is None else finite(worst.drift[axis]),
            "angle": d.worst_angle,
            "allowable": d.limit,
            "code": d.drift_code,
        },
        "toolMax": {
            "member": None if largest is None else largest.number,
            "drift_mm": finite(d.largest_drift),
            "leaning": None if largest is None else not largest.upright,
            "verdict": d.largest_verdict,
        },
        "toolMeanVerdict": d.mean_verdict,
        "rs": d.rs,
        "rsMean": d.rs_mean,
        "stiffnessRatio": d.ratio,
        "stiffnessRatioUpright": d.ratio_upright,
        "stiffnessRatioTranslational": d.ratio_translational,
        "stiffnessRatioCode": d.ratio_code,
        "stiffnessRatioTool": d.ratio_tool,
        "stiffness_kNpmm": d.stiffness,
        "eccentricity_mm": d.eccentricity,
        "elasticRadius_mm": d.radius,
        "eccentricityModulus": d.modulus,
        "eccentricityCode": d.modulus_code,
        "eccentricityTool": d.modulus_tool,
    }


def member_entry(member):
    return {
        "number": member.number,
        "upright": member.upright,
        "x_mm": member.plan[0],
        "v_mm": member.plan[1],
        "axialForce_kN": finite(member.axial_force),
        "shear_kN": [finite(v) for v in member.shear],
        "drift_mm": [finite(v) for v in member.drift],
        "stiffness_kNpmm": [finite(v) for v in member.stiffness],
    }


def story_entry(figures):
    story = figures.story
    return {
        "number": figures.number,
        "lowerLevel_mm": finite(story.lower),
        "upperLevel_mm": finite(story.upper),
        "height_mm": finite(figures.height),
        "storyMembers": len(figures.members),
        "leaning": sum(1 for member in figures.members if not member.upright),
        "cutNotCounted": figures.cut_not_counted,
        "weightAbove_kN": finite(story.weight),
        "gravityCenter_mm": figures.gravity,
        "rigidityCenter_mm": figures.rigidity,
        "torsionalStiffness_kNmm": figures.torsional_stiffness,
        "allowable": {"angle": finite(story.allow_angle), "ratio": finite(story.allow_ratio),
                      "modulus": finite(story.allow_modulus)},
        "x": direction_entry(figures, 0),
        "second": direction_entry(figures, 1),
        "members": [member_entry(member) for member in figures.members],
    }


def as_json(figures, remarks, date):
    """The whole document but for `tool`, `run.failure` and the texts of the remarks.

    The counts of the verdict and the overall verdict leave out what the input check finds (R31).
    """
    run = figures.run
    errors = sum(1 for remark in remarks if remark[1] == "error")
    warnings = sum(1 for remark in remarks if remark[1] == "warning")
    return {
        "format": "quarnel-route2-result",
        "version": 1,
        "tool": None,
        "made": date,
        "model": {"path": run.model_path, "sha256": digest(run.model_path),
                  "verticalAxis": {True: "Z", False: "Y", None: None}[figures.z_up],
                  "hostUnits": "inch,kip" if run.inches else "m,kN",
                  "nodes": len(run.node_coords), "members": len(run.member_numbers)},
        "input": {"path": run.input_path, "sha256": digest(run.input_path)},
        "source": "recording",
        "run": {"complete": figures.complete, "failure": None},
        "loadCases": {"dead": run.dead_case if run.cases_read else None,
                      "x": run.quake_case[0] if run.cases_read else None,
                      "second": run.quake_case[1] if run.cases_read else None,
                      "secondDirection": {True: "Y", False: "Z", None: None}[figures.z_up]},
        "verdict": {"code": figures.overall_code(errors), "tool": figures.overall_tool(),
                    "errors": errors, "warnings": warnings},
        "stories": [story_entry(story) for story in figures.stories],
        "remarks": remarks,
    }


def compute(model_path, input_path, date=""):
    """The document of a run; None for a run that has no engine, because there is no input."""
    run = reference_run.Run(model_path, input_path)
    run.execute()
    return document_of(run, date)


def document_of(run, date):
    if not hasattr(run, "host"):
        return None
    figures = Figures(run)
    return as_json(figures, reference_remarks.remarks_of(figures), date)


def main():
    parser = argparse.ArgumentParser(description="The figures that a run must find.")
    parser.add_argument("model", help="host model file")
    parser.add_argument("input", help="Route 2 Input file")
    options = parser.parse_args()
    json.dump(compute(options.model, options.input), sys.stdout, indent=1)
    print()
    return 0


if __name__ == "__main__":
    sys.exit(main())
