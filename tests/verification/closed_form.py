"""Buildings whose results have a closed form: columns of known stiffness under rigid floors.

Each case is a model, its Route 2 Input file and the results that follow from the formulas of
structural mechanics. The formulas are worked out here, apart from the tool.
"""

import math
from dataclasses import dataclass, field

import host_model
from host_model import EARTHQUAKE_X, EARTHQUAKE_Z, HostModel


@dataclass
class Case:
    name: str
    title: str
    text: str
    model: HostModel
    input_text: str
    # (quantity, key of a figure, story index, expected value)
    expected: list = field(default_factory=list)


@dataclass
class Column:
    """A fixed-ended column under a rigid floor: position in m, stiffness in kN/mm, weight in kN."""
    x: float
    z: float
    kx: float
    kz: float
    weight: float = 0.0
    beta: float = 0.0
    downward: bool = False


class RigidFloor:
    """One story: columns under a floor that moves and turns as one piece. Lengths of the plan in
    m, displacements in mm, forces in kN."""

    def __init__(self, columns):
        self.columns = columns
        self.kx = sum(c.kx for c in columns)
        self.kz = sum(c.kz for c in columns)
        self.xr = sum(c.kz * c.x for c in columns) / self.kz
        self.zr = sum(c.kx * c.z for c in columns) / self.kx
        self.kr = sum(c.kx * (c.z - self.zr) ** 2 + c.kz * (c.x - self.xr) ** 2 for c in columns)
        weight = sum(c.weight for c in columns)
        self.xg = sum(c.weight * c.x for c in columns) / weight
        self.zg = sum(c.weight * c.z for c in columns) / weight
        self.re_x = abs(self.zr - self.zg) / math.sqrt(self.kr / self.kx)
        self.re_z = abs(self.xr - self.xg) / math.sqrt(self.kr / self.kz)

    def move(self, force_x, force_z):
        """Displacement (X, Z) in mm of each column's top under forces at the centre of gravity."""
        moment = force_x * (self.zg - self.zr) - force_z * (self.xg - self.xr)
        turn = moment / self.kr  # mm per m
        return [(force_x / self.kx + turn * (c.z - self.zr),
                 force_z / self.kz - turn * (c.x - self.xr)) for c in self.columns]


def fixed_column_stiffness(e, i, h):
    """12 E I / h^3, kN/mm, from kN/mm2, mm4 and mm."""
    return 12.0 * e * i / h**3


def build(stories, z_up=False, english=False):
    """`stories` from the lowest up: (RigidFloor, height in mm, story shear X, story shear Z).
    Every story's columns stand on nodes of their own, so a column's top moves by the drift."""
    length = 25.4 if english else 1000.0
    plan = 1000.0 / length
    force = 4.4482216152605 if english else 1.0
    model = HostModel(english=english, z_up=z_up)
    level, levels = 0.0, [0.0]
    for floor, height, shear_x, shear_z in stories:
        under_x, under_z = floor.move(shear_x, 0.0), floor.move(0.0, shear_z)
        for position, c in enumerate(floor.columns):
            moves = {EARTHQUAKE_X: under_x[position], EARTHQUAKE_Z: under_z[position]}
            model.add_column(
                c.x * plan, c.z * plan, level / length, (level + height) / length,
                drift={case: tuple(digits(d / length) for d in move)
                       for case, move in moves.items()},
                shear={case: (c.kx * move[0] / force, c.kz * move[1] / force)
                       for case, move in moves.items()},
                weight=c.weight / force, beta=c.beta, downward=c.downward)
        level += height
        levels.append(level)
    return model, host_model.input_text(levels)


def digits(value):
    return float(f"{value:.15g}")


def expect_centers(story, floor):
    return [("centre of gravity, X (mm)", "gravityCenter_mm.x", story, 1000 * floor.xg),
            ("centre of gravity, Z (mm)", "gravityCenter_mm.z", story, 1000 * floor.zg),
            ("centre of rigidity, X (mm)", "rigidityCenter_mm.x", story, 1000 * floor.xr),
            ("centre of rigidity, Z (mm)", "rigidityCenter_mm.z", story, 1000 * floor.zr),
            ("eccentricity modulus, X", "eccentricityModulus.x", story, floor.re_x),
            ("eccentricity modulus, Z", "eccentricityModulus.z", story, floor.re_z)]


def symmetric_plan():
    height, shear = 3500.0, 100.0
    k = fixed_column_stiffness(205.0, 1.0e8, height)
    floor = RigidFloor([Column(x, z, k, k, weight=250.0) for z in (0.0, 4.0) for x in (0.0, 6.0)])
    model, text = build([(floor, height, shear, shear)])
    drift = shear / (4.0 * k)
    expected = [("stiffness of the story, X: 4 × 12EI/h³ (kN/mm)", "stiffness_kNpmm.x", 0, 4.0 * k),
                ("mean drift, X: P / 4k (mm)", "meanDrift_mm.x", 0, drift),
                ("largest drift, X: the same (mm)", "maxDrift_mm.x", 0, drift),
                ("story deformation angle, X: P / 4kh", "meanAngle.x", 0, drift / height),
                ("centre of gravity, X: middle of the plan (mm)", "gravityCenter_mm.x", 0, 3000.0),
                ("centre of gravity, Z: middle of the plan (mm)", "gravityCenter_mm.z", 0, 2000.0),
                ("centre of rigidity, X: middle of the plan (mm)", "rigidityCenter_mm.x", 0, 3000.0),
                ("centre of rigidity, Z: middle of the plan (mm)", "rigidityCenter_mm.z", 0, 2000.0),
                ("eccentricity modulus, X", "eccentricityModulus.x", 0, 0.0),
                ("eccentricity modulus, Z", "eccentricityModulus.z", 0, 0.0)]
    return Case("symmetric_plan", "Symmetric plan",
                "Four equal fixed-ended columns (E = 205 kN/mm², I = 10⁸ mm⁴, h = 3500 mm) at the "
                "corners of a plan of 6 m × 4 m, loaded by P = 100 kN in each direction.",
                model, text, expected)


def turning_floor():
    """Columns three times as stiff on one side: the load in Z turns the floor."""
    columns = [Column(0.0, 0.0, 5.0, 5.0, 300.0), Column(0.0, 6.0, 5.0, 5.0, 300.0),
               Column(8.0, 0.0, 5.0, 15.0, 200.0), Column(8.0, 6.0, 5.0, 15.0, 200.0)]
    floor = RigidFloor(columns)
    height, shear = 3600.0, 240.0
    model, text = build([(floor, height, shear, shear)])
    # By hand: xr = 30 * 8 / 40 = 6 m, xg = 400 * 8 / 1000 = 3.2 m, zr = zg = 3 m.
    # KR = 4 * 5 * 3^2 + 10 * 6^2 + 30 * 2^2 = 660 kN/mm m2, e = 2.8 m.
    # Turn under Z: 240 * 2.8 / 660 mm per m; move of a column: 240 / 40 - turn * (x - 6).
    turn = 240.0 * 2.8 / 660.0
    soft, stiff = 6.0 + 6.0 * turn, 6.0 - 2.0 * turn
    expected = [("centre of rigidity, X: 6 m", "rigidityCenter_mm.x", 0, 6000.0),
                ("centre of rigidity, Z: 3 m", "rigidityCenter_mm.z", 0, 3000.0),
                ("centre of gravity, X: 3.2 m", "gravityCenter_mm.x", 0, 3200.0),
                ("torsional stiffness: 660 kN/mm·m² (kN·mm)", "torsionalStiffness_kNmm", 0, 660.0e6),
                ("mean drift, Z: half the sum of both sides (mm)", "meanDrift_mm.z", 0,
                 (soft + stiff) / 2.0),
                ("largest drift, Z: the soft side (mm)", "maxDrift_mm.z", 0, soft),
                ("eccentricity modulus, X", "eccentricityModulus.x", 0, 0.0),
                ("eccentricity modulus, Z: 2.8 / √(660 / 40)", "eccentricityModulus.z", 0,
                 2.8 / math.sqrt(660.0 / 40.0))]
    return Case("turning_floor", "A floor that turns",
                "Columns of 5 kN/mm on one side and of 15 kN/mm (in Z) on the other under a rigid "
                "floor; the load acts at the centre of gravity and turns the floor. Stiffness is "
                "found from each column's own shear and drift, so the turning must not change it.",
                model, text, expected)


def turned_columns():
    """The same story with Z vertical and columns turned about their axes, two from top to bottom."""
    columns = [Column(0.0, 0.0, 4.0, 6.0, 310.0, beta=0.0),
               Column(5.0, 0.0, 4.0, 9.0, 390.0, beta=90.0),
               Column(0.0, 4.0, 2.0, 6.0, 140.0, beta=30.0, downward=True),
               Column(5.0, 4.0, 2.0, 9.0, 160.0, beta=-45.0, downward=True)]
    floor = RigidFloor(columns)
    model, text = build([(floor, 4000.0, 120.0, 150.0)], z_up=True)
    return Case("turned_columns", "Turned columns, Z vertical",
                "Z is vertical, the columns are turned about their own axes by 0°, 90°, 30° and "
                "−45°, and two of them run from top to bottom. End forces stand along the turned "
                "axes; the centres must come out as if nothing were turned (Z stands for the "
                "second plan direction, here Y).",
                model, text, expect_centers(0, floor))


def soft_first_story():
    """Two stories in inch and kip with stiffness 1 : 2."""
    lower = RigidFloor([Column(x, z, 10.0, 10.0, 200.0) for z in (0.0, 5.0) for x in (0.0, 5.0)])
    upper = RigidFloor([Column(x, z, 20.0, 20.0, 100.0) for z in (0.0, 5.0) for x in (0.0, 5.0)])
    h1, h2, p1, p2 = 4572.0, 3048.0, 150.0, 250.0  # 15 ft and 10 ft
    model, text = build([(lower, h1, p1 + p2, p1 + p2), (upper, h2, p2, p2)], english=True)
    rs1, rs2 = h1 * 40.0 / (p1 + p2), h2 * 80.0 / p2
    mean = (rs1 + rs2) / 2.0
    expected = [("story shear 1, X: P1 + P2 (kN)", "shearOfStoryMembers_kN.x", 0, p1 + p2),
                ("story shear 2, X: P2 (kN)", "shearOfStoryMembers_kN.x", 1, p2),
                ("mean drift 1, X: (P1 + P2) / K1 (mm)", "meanDrift_mm.x", 0, (p1 + p2) / 40.0),
                ("mean drift 2, X: P2 / K2 (mm)", "meanDrift_mm.x", 1, p2 / 80.0),
                ("stiffness ratio 1, X", "stiffnessRatio.x", 0, rs1 / mean),
                ("stiffness ratio 2, X", "stiffnessRatio.x", 1, rs2 / mean),
                ("stiffness ratio 1, Z", "stiffnessRatio.z", 0, rs1 / mean),
                ("stiffness ratio 2, Z", "stiffnessRatio.z", 1, rs2 / mean)]
    return Case("soft_first_story", "A soft first story, inch and kip",
                "Stories of 4572 mm (15 ft) and 3048 mm (10 ft) with K1 = 40 and K2 = 80 kN/mm, "
                "loaded by P1 = 150 kN and P2 = 250 kN; the model is in inch and kip.",
                model, text, expected)


def all_cases():
    return [symmetric_plan(), turning_floor(), turned_columns(), soft_first_story()]


def worked_example():
    """The building of the manual's worked example: two stories, floors that turn, round numbers."""
    heights, shears = (4.0, 3.0), (360.0, 180.0)
    columns = [Column(0.0, 0.0, 15.0, 5.0, 310.0), Column(6.0, 0.0, 15.0, 10.0, 390.0),
               Column(0.0, 4.0, 5.0, 5.0, 140.0), Column(6.0, 4.0, 5.0, 10.0, 160.0)]
    floor = RigidFloor(columns)
    model = HostModel()
    levels = [0.0, heights[0], sum(heights)]
    nodes = [[model.add_node(c.x, c.z, level, support=level == 0.0) for c in columns]
             for level in levels]
    moved = {case: [[0.0, 0.0] for _ in columns] for case in (EARTHQUAKE_X, EARTHQUAKE_Z)}
    for story, shear in enumerate(shears):
        drifts = {EARTHQUAKE_X: floor.move(shear, 0.0), EARTHQUAKE_Z: floor.move(0.0, shear)}
        for position, c in enumerate(columns):
            below, above = nodes[story][position], nodes[story + 1][position]
            member = model.add_member(below, above)
            share = shear / shears[0]
            model.load_column(member, host_model.DEAD, (0.0, 0.0), c.weight * share)
            for case, drift in drifts.items():
                dx, dz = drift[position]
                total = moved[case][position]
                total[0] += dx
                total[1] += dz
                model.move(above, case, *(round(d / 1000.0, 9) for d in total))
                model.load_column(member, case, (round(c.kx * dx, 9), round(c.kz * dz, 9)), 0.0)
    for level in (1, 2):
        for start, end in ((0, 1), (2, 3), (0, 2), (1, 3)):
            model.add_member(nodes[level][start], nodes[level][end])
    text = host_model.input_text([], ["MemberDeformAngle,1,5,"])
    return model, text
