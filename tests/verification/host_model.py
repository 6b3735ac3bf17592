"""Host model files (.qhm) and Route 2 Input files, written for the verification."""

import json
import math
import pathlib

DEAD, EARTHQUAKE_X, EARTHQUAKE_Z = 1, 2, 3


class HostModel:
    """A building of columns, each with two nodes of its own, under three load cases: 1 dead load,
    2 earthquake in X, 3 earthquake in Z(or Y).

    Coordinates, displacements and forces are in the model's base units: metre and kN, or inch and
    kip. Plan positions are (x, z): z is the second plan coordinate, whichever axis is vertical.
    """

    def __init__(self, english=False, z_up=False):
        self.english = english
        self.z_up = z_up
        self.nodes = []
        self.members = []
        self.displacements = {case: {} for case in (DEAD, EARTHQUAKE_X, EARTHQUAKE_Z)}
        self.end_forces = {case: {} for case in (DEAD, EARTHQUAKE_X, EARTHQUAKE_Z)}

    def point(self, x, z, height):
        """Global coordinates of a plan position at a height."""
        return [x, z, height] if self.z_up else [x, height, z]

    def add_node(self, x, z, height, support=False):
        node = {"number": len(self.nodes) + 1, "xyz": self.point(x, z, height)}
        if support:
            node["support"] = True
        self.nodes.append(node)
        return node["number"]

    def add_member(self, start, end, beta=0.0, number=None):
        member = {"number": number or len(self.members) + 1, "start": start, "end": end}
        if beta:
            member["beta"] = beta
        self.members.append(member)
        return member["number"]

    def add_column(self, x, z, lower, upper, drift=None, weight=0.0, shear=None, beta=0.0,
                   downward=False, number=None):
        """A column between two heights on nodes of its own; the lower node does not move.

        `drift` and `shear` give for each earthquake case the pair (X, Z) of the upper node's
        displacement and of the horizontal force that the column carries. `weight` is the vertical
        force under the dead load. `downward`: the member starts at its upper node.
        """
        below = self.add_node(x, z, lower, support=lower == 0)
        above = self.add_node(x, z, upper)
        ends = (above, below) if downward else (below, above)
        column = self.add_member(*ends, beta=beta, number=number)
        for case, (dx, dz) in (drift or {}).items():
            self.move(above, case, dx, dz)
        self.load_column(column, DEAD, (0.0, 0.0), weight, beta, downward)
        for case, (qx, qz) in (shear or {}).items():
            self.load_column(column, case, (qx, qz), 0.0, beta, downward)
        return column

    def move(self, node, case, dx, dz):
        self.displacements[case][node] = self.point(dx, dz, 0.0) + [0.0, 0.0, 0.0]

    def load_column(self, column, case, shear, weight, beta=0.0, downward=False):
        """End forces of a column that carries the horizontal force `shear` and a weight.

        End forces act on the member. The story's load pushes the column at its top, so at the
        bottom the support pushes back, and carries the weight upwards.
        """
        bottom = self.point(-shear[0], -shear[1], weight)
        axes = column_axes(beta, self.z_up, downward)
        at_bottom = [sum(f * a for f, a in zip(bottom, axis)) for axis in axes]
        at_bottom = [round(force, 12) + 0.0 for force in at_bottom]  # no -0.0
        at_top = [0.0 - force for force in at_bottom]
        ends = [at_top, at_bottom] if downward else [at_bottom, at_top]
        if any(at_bottom):
            self.end_forces[case][column] = [end + [0.0, 0.0, 0.0] for end in ends]

    def text(self):
        """The file, one line per node, member and answer."""
        lines = ["{", ' "format": "quarnel-host-model",', ' "version": 1,',
                 f' "baseUnitSystem": {1 if self.english else 2},',
                 f' "zUp": {json.dumps(self.z_up)},', ' "nodes": [']
        lines += list_lines(json.dumps(number_texts(node)) for node in self.nodes)
        lines += [" ],", ' "members": [']
        lines += list_lines(json.dumps(number_texts(member)) for member in self.members)
        lines += [" ],", ' "primaryLoadCases": [1, 2, 3],', ' "loadCombinations": [],']
        lines += answer_lines("displacements", self.displacements) + [" },"]
        lines += answer_lines("endForces", self.end_forces) + [" }", "}"]
        return "\n".join(lines) + "\n"


def column_axes(beta, z_up, downward):
    """Local x, y, z of a vertical member in global coordinates, worked out for the four ways in
    which a column can stand (its y and z axes turn with beta about its own axis)."""
    along, y, z = {
        (False, False): ((0, 1, 0), (-1, 0, 0), (0, 0, 1)),
        (False, True): ((0, -1, 0), (1, 0, 0), (0, 0, 1)),
        (True, False): ((0, 0, 1), (0, 1, 0), (-1, 0, 0)),
        (True, True): ((0, 0, -1), (0, 1, 0), (1, 0, 0)),
    }[z_up, downward]
    c, s = math.cos(math.radians(beta)), math.sin(math.radians(beta))
    turned_y = tuple(c * a + s * b for a, b in zip(y, z))
    turned_z = tuple(c * b - s * a for a, b in zip(y, z))
    return along, turned_y, turned_z


def number_texts(value):
    """Whole reals as integers, so that 3.0 reads 3 in the file."""
    if isinstance(value, bool):
        return value
    if isinstance(value, float) and value.is_integer():
        return int(value)
    if isinstance(value, list):
        return [number_texts(element) for element in value]
    if isinstance(value, dict):
        return {key: number_texts(element) for key, element in value.items()}
    return value


def list_lines(texts):
    texts = list(texts)
    return [f"  {text}," for text in texts[:-1]] + [f"  {text}" for text in texts[-1:]]


def answer_lines(name, answers):
    lines = [f' "{name}": {{']
    cases = [(case, of_case) for case, of_case in answers.items() if of_case]
    for position, (case, of_case) in enumerate(cases):
        lines.append(f'  "{case}": {{')
        lines += [" " + line for line in list_lines(
            f'"{number}": {json.dumps(number_texts(six))}' for number, six in of_case.items())]
        lines.append("  }" + ("," if position + 1 < len(cases) else ""))
    return lines


def input_text(levels, extra_lines=()):
    """A Route 2 Input file: the three load cases, floor levels in mm, further lines, FIN."""
    lines = ["DeadLoadCaseNumber,1,", "EarthquakeLoadCaseNumber,2,3,"]
    if levels:
        lines.append("FloorLevel," + "".join(f"{level:.10g}," for level in levels))
    return "\n".join([*lines, *extra_lines, "FIN"]) + "\n"


def write_or_compare(files, folder, check):
    """Writes the texts of `files` (name: text) into `folder`; with `check`, compares instead and
    returns the names that differ."""
    folder = pathlib.Path(folder)
    stale = []
    for name, text in files.items():
        path = folder / name
        if not check:
            folder.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8", newline="\n")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            stale.append(str(path))
    return stale
