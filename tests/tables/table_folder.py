"""Tables of a recorded building, in whatever units, axes and senses a program may have.

Written from the page docs/tables.md alone, in another language than the tool: what the tool reads
back must be the building that stood here.
"""

import json
import math
import pathlib

METRES = {"m": 1.0, "cm": 0.01, "mm": 0.001, "in": 0.0254, "ft": 0.3048}
KILONEWTONS = {"kN": 1.0, "N": 0.001, "tf": 9.80665, "kgf": 0.00980665, "kip": 4.4482216152605,
               "lbf": 0.0044482216152605}
PI = 3.1415926535  # of the tool's own axes


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def combine(f, a, g, b):
    return [f * x + g * y for x, y in zip(a, b)]


def unit(v):
    length = math.sqrt(sum(c * c for c in v))
    return [c / length for c in v]


def tool_axes(start, end, beta, z_up):
    """The tool's own local axes, which are not always at right angles."""
    c = unit([b - a for a, b in zip(start, end)])
    if z_up:
        s = math.hypot(c[0], c[1])
        p = [-c[1] / s, -c[0] / s, 0.0] if s >= 1e-6 else [-c[1], 1.0, 0.0]
        q = cross(c, p)
    else:
        s = math.hypot(c[2], c[0])
        q = [-c[2] / s, 0.0, c[0] / s] if s >= 1e-6 else [-c[2], 0.0, 1.0]
        p = cross(q, c)
    a = beta * PI / 180.0
    return [c, combine(math.cos(a), p, math.sin(a), q), combine(math.cos(a), q, -math.sin(a), p)]


def standard_axes(start, end, beta, z_up):
    """y in the vertical plane through the member and upwards; of a vertical member along X."""
    x = unit([b - a for a, b in zip(start, end)])
    up = [0.0, 0.0, 1.0] if z_up else [0.0, 1.0, 0.0]
    along = sum(a * b for a, b in zip(x, up))
    y = combine(1.0, up, -along, x)
    if math.sqrt(sum(c * c for c in y)) <= 1e-6:
        y = [1.0, 0.0, 0.0]
    y = unit(y)
    z = cross(x, y)
    a = math.radians(beta)
    return [x, combine(math.cos(a), y, math.sin(a), z), combine(math.cos(a), z, -math.sin(a), y)]


class Building:
    """A recorded building in m and kN, with end forces along the global axes."""

    def __init__(self, path):
        model = json.loads(pathlib.Path(path).read_text(encoding="utf-8"))
        english = model.get("baseUnitSystem", 2) == 1
        length = METRES["in"] if english else 1.0
        force = KILONEWTONS["kip"] if english else 1.0
        self.z_up = model.get("zUp", False)
        self.points = {n["number"]: [c * length for c in n["xyz"]] for n in model["nodes"]}
        self.held = [n["number"] for n in model["nodes"] if n.get("support")]
        self.members = {m["number"]: (m["start"], m["end"], m.get("beta", 0.0))
                        for m in model["members"]}
        self.primary = model.get("primaryLoadCases", [])
        self.combinations = model.get("loadCombinations", [])
        self.displacements = {}
        self.forces = {}
        for case in self.primary + self.combinations:
            moved = model.get("displacements", {}).get(str(case), {})
            self.displacements[case] = {
                node: [u * length for u in moved.get(str(node), [0.0] * 6)[:3]]
                + moved.get(str(node), [0.0] * 6)[3:] for node in self.points}
            carried = model.get("endForces", {}).get(str(case), {})
            for member, (start, end, beta) in self.members.items():
                axes = tool_axes(self.points[start], self.points[end], beta, self.z_up)
                both = carried.get(str(member), [[0.0] * 6] * 2)
                self.forces[case, member] = [
                    [force * c for c in self.along(axes, f[:3])]
                    + [force * length * c for c in self.along(axes, f[3:])] for f in both]

    @staticmethod
    def along(axes, f):
        return [sum(f[i] * axes[i][k] for i in range(3)) for k in range(3)]


class Convention:
    """How a program writes its tables. `turn`: for each axis of the tables, the model's axis and
    sign, such as ("+Y", "-X", "+Z")."""

    def __init__(self, length="m", displacement="m", force="kN", axes="global", sense="onMember",
                 turn=None, stations=False, moments=True, rotations=True, reactions=False,
                 separator=",", digits=None, names=None):
        self.length, self.displacement, self.force = length, displacement, force
        self.axes, self.sense, self.turn = axes, sense, turn
        self.stations, self.moments, self.rotations = stations, moments, rotations
        self.reactions, self.separator, self.digits = reactions, separator, digits
        self.names = names or str

    def number(self, value):
        return repr(value) if self.digits is None else f"{value:.{self.digits}g}"

    def in_tables(self, vector):
        """A vector of the model along the tables' axes."""
        if not self.turn:
            return list(vector)
        return [(-1.0 if axis[0] == "-" else 1.0) * vector["XYZ".index(axis[1])]
                for axis in self.turn]


def local_axes(building, member, convention):
    start, end, beta = building.members[member]
    points = building.points[start], building.points[end]
    if convention.axes == "localStandard":
        return standard_axes(*points, beta, building.z_up)
    if convention.axes == "tool":
        return tool_axes(*points, beta, building.z_up)
    # Some frame at right angles that is nobody's own: the standard one, turned by 30 degrees.
    return standard_axes(*points, 30.0, building.z_up)


def solve(axes, vector):
    """Components of a vector along three axes, which need not be at right angles."""
    det = sum(axes[0][i] * cross(axes[1], axes[2])[i] for i in range(3))
    others = [cross(axes[1], axes[2]), cross(axes[2], axes[0]), cross(axes[0], axes[1])]
    return [sum(v * c for v, c in zip(vector, other)) / det for other in others]


def stated_forces(building, case, member, end, convention):
    """The six numbers of a row of forces.csv."""
    six = building.forces[case, member][end]
    if convention.axes == "global":
        parts = [convention.in_tables(six[:3]), convention.in_tables(six[3:])]
    else:
        axes = local_axes(building, member, convention)
        parts = [solve(axes, six[:3]), solve(axes, six[3:])]
    face = -1.0 if end == 0 else 1.0
    axial, other = {"onMember": (1.0, 1.0), "onNode": (-1.0, -1.0), "section": (face, face),
                    "sectionCompression": (-face, face)}[convention.sense]
    f = [axial * parts[0][0], other * parts[0][1], other * parts[0][2]]
    m = [other * c for c in parts[1]]
    scale = KILONEWTONS[convention.force]
    return [c / scale for c in f] + [c / scale / METRES[convention.length] for c in m]


def tables_of(building, convention):
    """Name of each table -> its rows of texts, the heading first."""
    number, name = convention.number, convention.names
    length, moved = METRES[convention.length], METRES[convention.displacement]
    model = [["key", "value"], ["verticalAxis", "Z" if building.z_up else "Y"],
             ["lengthUnit", convention.length], ["displacementUnit", convention.displacement],
             ["forceUnit", convention.force], ["endForceAxes", convention.axes],
             ["endForceSense", convention.sense], ["source", "table_folder.py"]]
    for key, axis in zip(("axisX", "axisY", "axisZ"), convention.turn or ()):
        model.append([key, axis])
    tables = {"model": model}
    tables["nodes"] = [["node", "x", "y", "z"]] + [
        [name(n)] + [number(c / length) for c in convention.in_tables(p)]
        for n, p in building.points.items()]
    tables["supports"] = [["node", "ux", "uy", "uz", "rx", "ry", "rz"]] + [
        [name(n)] + ["1"] * 6 for n in building.held]
    tables["members"] = [["member", "start", "end", "beta"]] + [
        [name(m), name(s), name(e), number(b)] for m, (s, e, b) in building.members.items()]
    tables["cases"] = [["case", "name", "kind"]] + [
        [str(c), f"case {c}", "primary"] for c in building.primary] + [
        [str(c), f"case {c}", "combination"] for c in building.combinations]
    heading = ["case", "node", "ux", "uy", "uz"] + ["rx", "ry", "rz"] * convention.rotations
    tables["displacements"] = [heading] + [
        [str(case), name(node)] + [number(c / moved) for c in convention.in_tables(u[:3])]
        + [number(c) for c in convention.in_tables(u[3:])] * convention.rotations
        for case, of_case in building.displacements.items() for node, u in of_case.items()]
    tables["forces"] = force_rows(building, convention)
    if convention.axes == "localTable":
        tables["axes"] = [["member", "yx", "yy", "yz"]] + [
            [name(m)] + [number(c) for c in convention.in_tables(
                combine(2.0, local_axes(building, m, convention)[1],
                        0.5, local_axes(building, m, convention)[0]))]
            for m in building.members]
    if convention.reactions:
        tables["reactions"] = reaction_rows(building, convention)
    return tables


def can_be_told(building, member, convention):
    """Not along the tool's own axes of a level member at 45 degrees, which lie in one plane."""
    x, y, z = local_axes(building, member, convention)
    return abs(sum(x[i] * cross(y, z)[i] for i in range(3))) > 1e-9


def force_rows(building, convention):
    heading = ["case", "member", "station" if convention.stations else "end", "f1", "f2", "f3"]
    rows = [heading + ["m1", "m2", "m3"] * convention.moments]
    for case, member in building.forces:
        for end in (0, 1) if can_be_told(building, member, convention) else ():
            six = stated_forces(building, case, member, end, convention)
            where = convention.number(3.25 * end) if convention.stations else ("i", "j")[end]
            rows.append([str(case), convention.names(member), where]
                        + [convention.number(c) for c in six[:6 if convention.moments else 3]])
            if convention.stations and end == 0:
                rows.append(rows[-1][:2] + ["1.5"] + ["999"] * (len(rows[0]) - 3))
    return rows


def reaction_rows(building, convention):
    """What the held nodes do to the members that end there."""
    rows = [["case", "node", "fx", "fy", "fz"]]
    for case in building.displacements:
        for node in building.held:
            total = [0.0] * 3
            for member, (start, end, _) in building.members.items():
                for which, at in enumerate((start, end)):
                    if at == node:
                        total = combine(1.0, total, 1.0,
                                        building.forces[case, member][which][:3])
            rows.append([str(case), convention.names(node)]
                        + [convention.number(c / KILONEWTONS[convention.force])
                           for c in convention.in_tables(total)])
    return rows


def write_tables(folder, tables, separator=",", encoding="utf-8", line_end="\n"):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for table, rows in tables.items():
        text = "".join(separator.join(row) + line_end for row in rows)
        (folder / f"{table}.csv").write_bytes(text.encode(encoding))
