"""The remarks of a run, worked out a second time: which there are, of what kind, on which stories.

Not their texts, which are settled in one table of the program, and not the findings of the input
check (R31), which are a calculation of their own. `remarks_of` takes the figures of
reference_figures.py and answers a list of (id, kind, stories), errors first, then warnings, notes.
"""

import math
import os
import re

from reference_run import KIP_TO_KN, divide

CODE_ANGLE = 1.0 / 200.0
RELIEF_END = 1.0 / 120.0 * 1.0001
NO_FORCE = 1e-6          # kN
NO_DRIFT = 0.01          # mm
SAME_PLACE = 0.1         # mm
KINDS = ["error", "warning", "note"]
STORY_OF_WARNING = re.compile(rb"([0-9]+)-th story")


class Remarks:
    def __init__(self):
        self.found = {}  # id -> [kind, stories]; one cause, one remark

    def add(self, name, kind, stories=()):
        """Stories of one cause are gathered in one remark, which is as grave as its worst."""
        known = self.found.setdefault(name, [kind, set()])
        known[0] = min(known[0], kind, key=KINDS.index)
        known[1].update(stories)


def remarks_of(figures):
    remarks = Remarks()
    on_the_run(figures, remarks)
    on_floors(figures, remarks)
    on_allowable_values(figures, remarks)
    for story in figures.stories:
        on_members(figures, story, remarks)
        for axis in (0, 1):
            on_shears(figures, story, axis, remarks)
            on_stiffness(story, axis, remarks)
            on_drifts(figures, story, axis, remarks)
            on_floor_motion(figures, story, axis, remarks)
        on_centres(story, remarks)
        on_weight(figures, story, remarks)
    on_the_cases(figures, remarks)
    listed = [(name.split(" ")[0], kind, sorted(stories))
              for name, (kind, stories) in remarks.found.items()]
    return sorted(listed, key=lambda r: (KINDS.index(r[1]), r[2][0] if r[2] else 0))


def shares(part, whole):
    """The amount of a part over that of the whole; 0 when there is neither."""
    if part == 0.0:
        return 0.0
    return divide(abs(part), abs(whole))


# --- the run, its cases, its log ----------------------------------------------------------------


def on_the_run(figures, remarks):
    run = figures.run
    remarks.add("R27", "note")
    if figures.equal_cases:
        remarks.add("R01", "error")
    if "loads" in run.steps_done:
        for case in [run.dead_case] + run.quake_case:
            if case not in figures.cases:
                remarks.add("R02", "error")
    if run.stories and (run.levels_derived or run.members_derived):
        remarks.add("R22", "note")
    if run.results_text is not None and not figures.complete:
        remarks.add("R26", "error")
    if os.path.isdir(run.results_path) and figures.complete:
        remarks.add("R26", "error")
    if run.lacks_an_answer:
        remarks.add("R25", "error")
    if figures.unanswered:
        remarks.add("R25", "warning")
    if figures.host is not None and figures.host.unlisted and not figures.host.is_recording:
        remarks.add("R25", "warning")
    step = b""
    for line in (run.log_text or b"").split(b"\n"):
        if line.startswith(b"Starts "):
            step = line  # two steps warn in the same words
        if not line.startswith(b"*** WARNING *** : "):
            continue
        match = STORY_OF_WARNING.search(line)
        stories = [int(match.group(1))] if match else []
        fallback = b"nearly equal to 0" in line or b"less than or equal to 0" in line
        name = b"R24 " + step + STORY_OF_WARNING.sub(b"", line)
        remarks.add(name.decode("latin-1"), "warning" if fallback else "error", stories)


def on_the_cases(figures, remarks):
    host, run = figures.host, figures.run
    for axis in (0, 1):
        case = run.quake_case[axis]
        if "loads" in run.steps_done and case in host.combinations and case not in host.primary:
            remarks.add("R12", "warning")
        on_shear_across(figures, axis, remarks)
        for story in figures.stories:
            force = figures.vertical_force(story, axis)
            weight = story.story.weight
            if force is not None and abs(weight) >= NO_FORCE and shares(force, weight) > 0.05:
                remarks.add("R12", "warning")


def on_shear_across(figures, axis, remarks):
    """One share per case, that of its worst story."""
    worst, at = 0.0, None
    for story in figures.stories:
        d = story.directions[axis]
        if d.shear is None or d.across is None or abs(d.across) < NO_FORCE:
            continue
        share = abs(d.across) / max(abs(d.shear), NO_FORCE)
        if share > worst:
            worst, at = share, story.number
    if worst > 0.05:
        remarks.add("R13", "error" if worst > 1.0 else "warning", [at])


# --- floors -------------------------------------------------------------------------------------


def on_floors(figures, remarks):
    run = figures.run
    if "floors" not in run.steps_done:
        return
    levels = run.levels
    for story in figures.stories:
        if not story.members:
            remarks.add("R03", "error", [story.number])
        if story.height < 100.0:
            remarks.add("R04", "error", [story.number])
        elif story.height < 2100.0:
            remarks.add("R05", "warning", [story.number])
        if looks_like_a_landing(figures, story.story.upper):
            remarks.add("R05", "warning", [story.number])
    if not levels:
        return
    for number, coords in zip(run.node_numbers, run.node_coords):
        level = run.height_of(coords)
        if figures.host.supported(number) and beside_the_base(level, levels[0]):
            remarks.add("R23", "warning")
    height = levels[-1] - levels[0]
    width = min(extents(run, [node for story in figures.stories for member in story.members
                              for node in (member.low, member.up)]))
    if height > 31000.0 or (width > 0.0 and height > 4.0 * width):
        remarks.add("R28", "warning")
    below_ground = figures.ground_level is not None and levels[0] < figures.ground_level
    if figures.stories and below_ground:
        remarks.add("R32", "note", [1])
    if len(figures.stories) > 1:
        top, below = figures.stories[-1], figures.stories[-2]
        if plan_area(run, top) < plan_area(run, below) / 8.0:
            remarks.add("R32", "note", [top.number])


def beside_the_base(level, base):
    return level > base + 100.0 or level <= base - SAME_PLACE


def extents(run, nodes):
    """How far nodes reach along X and along the second plan direction."""
    xs = [node[0] for node in nodes]
    vs = [run.plan_z(node) for node in nodes]
    return [max(values) - min(values) if values else 0.0 for values in (xs, vs)]


def plan_area(run, story):
    """Of the rectangle in which the story's members stand."""
    a, b = extents(run, [member.low for member in story.members])
    return a * b


def looks_like_a_landing(figures, level):
    """Fewer than three horizontal members, or over less than a tenth of the plan."""
    run = figures.run
    nodes = []
    count = 0
    anywhere = False
    for number in run.member_numbers:
        ends = [run.find_node(node) for node in figures.host.incidence(number)]
        if -1 in ends:
            continue
        a, b = (run.node_coords[end] for end in ends)
        horizontal = abs(run.height_of(a) - run.height_of(b)) < SAME_PLACE
        anywhere = anywhere or horizontal
        if horizontal and abs(run.height_of(a) - level) < SAME_PLACE:
            count += 1
            nodes += [a, b]
    if count < 3:
        return anywhere  # a model without any beams says nothing about its floors
    whole = extents(run, run.node_coords)
    part = extents(run, nodes)
    return part[0] * part[1] < 0.1 * whole[0] * whole[1]


def on_allowable_values(figures, remarks):
    for story in figures.stories:
        angle = story.story.allow_angle
        relief = CODE_ANGLE < angle <= RELIEF_END
        if relief:
            remarks.add("R21 relief", "note", [story.number])
        if not relief and angle != CODE_ANGLE:
            remarks.add("R21", "warning", [story.number])
        if story.story.allow_ratio != 0.6 or story.story.allow_modulus != 0.15:
            remarks.add("R21", "warning", [story.number])


# --- members ------------------------------------------------------------------------------------


def on_members(figures, story, remarks):
    run = figures.run
    for member in story.members:
        if abs(member.rise - story.height) >= 0.1:
            remarks.add("R07", "warning", [story.number])
    numbers = [member.number for member in story.members] + story.cut_not_counted
    for number in numbers if run.z_up else []:
        low, up = (run.node_coords[run.find_node(n)] for n in figures.host.incidence(number))
        length = math.dist(low, up)
        if min(abs(up[0] - low[0]), abs(up[1] - low[1])) > 1e-6 * length:
            remarks.add("R11", "warning", [story.number])


def on_stiffness(story, axis, remarks):
    d = story.directions[axis]
    stiffness = [m.stiffness[axis] for m in story.members if m.stiffness[axis] is not None]
    total = sum(abs(k) for k in stiffness if math.isfinite(k))
    for member in story.members:
        k = member.stiffness[axis]
        if k is None:
            continue
        if k < -0.001 * total:
            remarks.add("R08", "warning", [story.number])
        drift = abs(member.drift[axis])
        hardly = drift < 0.1 or (d.mean is not None and drift < 0.05 * abs(d.mean))
        if hardly and abs(k) > 0.05 * total:
            remarks.add("R09", "warning", [story.number])


def on_drifts(figures, story, axis, remarks):
    d = story.directions[axis]
    for code in (d.drift_code, d.ratio_code, d.modulus_code):
        if code == "undetermined":
            remarks.add("R19", "error", [story.number])
    if d.mean == 0.0:
        remarks.add("R29", "warning", [story.number])
    sides = set()
    for ratio in (d.ratio, d.ratio_upright, d.ratio_translational):
        if ratio is not None and d.ratio is not None:
            sides.add(ratio >= 0.6 * (1.0 - 1e-9))
    if len(sides) == 2:
        remarks.add("R30", "warning", [story.number])
    if d.mean is None:
        return
    upright = [m.drift[axis] for m in story.members if m.upright]
    leaning = [abs(m.drift[axis]) for m in story.members if not m.upright]
    whole = sum(m.drift[axis] for m in story.members) / len(story.members)
    if leaning and not upright:
        remarks.add("R10", "warning", [story.number])
    if leaning and upright:
        mean = sum(upright) / len(upright)
        if max(leaning) > 1.01 * max(abs(v) for v in upright):
            remarks.add("R10", "warning", [story.number])
        if mean != 0.0 and shares(whole - mean, mean) > 0.01:
            remarks.add("R10", "warning", [story.number])


# --- forces -------------------------------------------------------------------------------------


def on_shears(figures, story, axis, remarks):
    d = story.directions[axis]
    if story.members and d.story_shear is not None and abs(d.story_shear) >= NO_FORCE:
        share = d.shear / d.story_shear
        if not 0.99 <= share <= 1.01:
            remarks.add("R06", "error" if share < 0.5 else "warning", [story.number])
    pushing = d.shear if d.story_shear is None else d.story_shear
    if pushing is not None and pushing <= -NO_FORCE:
        remarks.add("R15", "warning", [story.number])
    if d.story_shear is None:
        return
    if story.number < len(figures.stories):
        above = figures.stories[story.number].directions[axis].story_shear
        if above is not None and abs(d.story_shear) <= abs(above) * (1.0 + 1e-9):
            remarks.add("R16", "warning", [story.number])
    weight = story.story.weight
    if story.number == 1 and weight > 0.0:
        coefficient = abs(d.story_shear) / weight
        if coefficient < 0.05 or coefficient > 1.0:
            remarks.add("R16", "warning", [story.number])


def on_weight(figures, story, remarks):
    weight = story.story.weight
    if weight is not None and weight <= 0.0:
        remarks.add("R14", "warning", [story.number])
    if not figures.complete or "gravity" not in figures.run.steps_done:
        return
    for axis in (0, 1):
        shear = figures.dead_shear(story, axis)
        if shares(shear, weight) > 0.02:
            remarks.add("R14", "warning", [story.number])
    for force in figures.dead_forces(story):
        if force <= -NO_FORCE:
            remarks.add("R17", "note", [story.number])


# --- places -------------------------------------------------------------------------------------


def on_centres(story, remarks):
    for axis in (0, 1):
        places = [member.plan[axis] for member in story.members]
        for centre in (story.gravity[axis], story.rigidity[axis]):
            if centre is None or not places:
                continue
            if not min(places) - 1.0 <= centre <= max(places) + 1.0:
                remarks.add("R18", "warning", [story.number])


def on_floor_motion(figures, story, axis, remarks):
    d = story.directions[axis]
    if d.mean is None or not figures.complete:
        return
    residual = figures.rigid_body_residual(story, axis)
    if d.mean != 0.0 and residual > NO_DRIFT * (1.0 + 1e-9) and shares(residual, d.mean) > 0.05:
        remarks.add("R20", "warning", [story.number])
