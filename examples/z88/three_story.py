#!/usr/bin/env python3
"""A steel building of three stories, analysed with Z88 and turned into tables.

    three_story.py FOLDER

writes Z88's input into FOLDER/z88, starts z88f (displacements) and z88e (end forces) once for each
load case, and turns their printed results into the tables FOLDER/three_story. Needs Debian's
package z88; nothing else than Python's own library.

The building, in kN and m, Z upwards: three bays of 6 m along X, two of 5 m along Y, stories of 4.0,
3.5 and 3.5 m. Columns and beams are continuous. Along X the two outer frames have a brace in their
middle bay, from story to story in turn to the right and to the left; along Y the frames carry by
bending alone. Diagonals in each floor keep it in shape.
"""

import pathlib
import re
import shutil
import subprocess
import sys

X = (0.0, 6.0, 12.0, 18.0)  # m
Y = (0.0, 5.0, 10.0)
Z = (0.0, 4.0, 7.5, 11.0)
E, NU = 2.05e8, 0.3  # kN/m2
FLOOR_LOAD = 8.0  # kN/m2, dead load and what of the live load takes part in an earthquake
BASE_SHEAR = 0.2  # of the weight
CASES = ((1, "dead load"), (2, "earthquake X"), (3, "earthquake Y"))
BEAM, TRUSS = 2, 4  # Z88's elements: beam in space, truss in space

# Area, second moments of area about the two axes, torsion constant: m2, m4.
COLUMN = (0.0150, 2.6e-4, 2.6e-4, 3.9e-4)
GIRDER = (0.0110, 4.0e-4, 0.3e-4, 0.01e-4)
BRACE = (0.0028, 0.0, 0.0, 0.0)
FLOOR_DIAGONAL = (0.0500, 0.0, 0.0, 0.0)
SECTIONS = (COLUMN, GIRDER, BRACE, FLOOR_DIAGONAL)


def node(i, j, k):
    """Number of the node in row i along X and j along Y on floor k: 100 k + 10 j + i + 11."""
    return 100 * k + 10 * j + i + 11


def nodes():
    return {node(i, j, k): (x, y, z) for k, z in enumerate(Z) for j, y in enumerate(Y)
            for i, x in enumerate(X)}


def members():
    """Number: (start, end, Z88's element, section), those of one section side by side. A column has
    the number of its upper node; 1000 and more along X, 2000 along Y, 3000 floor diagonals, 4000
    braces."""
    found = {}
    for k in range(1, len(Z)):
        for j in range(len(Y)):
            for i in range(len(X)):
                found[node(i, j, k)] = (node(i, j, k - 1), node(i, j, k), BEAM, COLUMN)
                if i + 1 < len(X):
                    found[1000 + node(i, j, k)] = (node(i, j, k), node(i + 1, j, k), BEAM, GIRDER)
                if j + 1 < len(Y):
                    found[2000 + node(i, j, k)] = (node(i, j, k), node(i, j + 1, k), BEAM, GIRDER)
                if i + 1 < len(X) and j + 1 < len(Y):
                    found[3000 + node(i, j, k)] = (node(i, j, k), node(i + 1, j + 1, k), TRUSS,
                                                   FLOOR_DIAGONAL)
        for j in (0, len(Y) - 1):
            low, high = (1, 2) if k % 2 else (2, 1)
            found[4000 + node(low, j, k)] = (node(low, j, k - 1), node(high, j, k), TRUSS, BRACE)
    return dict(sorted(found.items(), key=lambda member: SECTIONS.index(member[1][3])))


def tributary(values, i):
    left = values[i] - values[i - 1] if i > 0 else 0.0
    right = values[i + 1] - values[i] if i + 1 < len(values) else 0.0
    return (left + right) / 2.0


def weights():
    """Weight at each node above the ground, kN."""
    return {node(i, j, k): FLOOR_LOAD * tributary(X, i) * tributary(Y, j)
            for k in range(1, len(Z)) for j in range(len(Y)) for i in range(len(X))}


def loads(case):
    """Node: force along X, Y, Z, kN. The earthquake grows with the height of the floor."""
    weight = weights()
    if case == 1:
        return {n: (0.0, 0.0, -w) for n, w in weight.items()}
    height = {n: point[2] for n, point in nodes().items()}
    moment = sum(w * height[n] for n, w in weight.items())
    share = {n: BASE_SHEAR * sum(weight.values()) * w * height[n] / moment
             for n, w in weight.items()}
    return {n: (f, 0.0, 0.0) if case == 2 else (0.0, f, 0.0) for n, f in share.items()}


def write_z88_input(folder, case):
    """z88i1.txt: nodes, elements, sections; z88i2.txt: supports and loads. Z88 counts nodes and
    elements from 1 without gaps."""
    place = {n: i + 1 for i, n in enumerate(nodes())}
    lines = ["3 %d %d %d %d 0 1 0 0" % (len(place), len(members()), 6 * len(place),
                                        len(SECTIONS))]
    lines += ["%d 6 %r %r %r" % (place[n], *point) for n, point in nodes().items()]
    for i, (start, end, element, _) in enumerate(members().values()):
        lines += ["%d %d" % (i + 1, element), "%d %d" % (place[start], place[end])]
    of_member = [section for _, _, _, section in members().values()]
    for section in SECTIONS:
        area, strong, weak, torsion = section
        first = of_member.index(section) + 1
        lines.append("%d %d %r %r 1 %r %r 0.1 %r 0.1 %r 0.1"
                     % (first, first + of_member.count(section) - 1, E, NU, area, strong, weak,
                        torsion))
    (folder / "z88i1.txt").write_text("\n".join(lines) + "\n")

    held = [(place[n], dof, 2, 0.0) for n, point in nodes().items() if point[2] == 0.0
            for dof in range(1, 7)]
    pushed = [(place[n], dof + 1, 1, f) for n, force in loads(case).items()
              for dof, f in enumerate(force) if f]
    conditions = sorted(held + pushed)
    lines = [str(len(conditions))] + ["%d %d %d %r" % row for row in conditions]
    (folder / "z88i2.txt").write_text("\n".join(lines) + "\n")
    (folder / "z88i3.txt").write_text("1 0 0\n")


def run_z88(folder):
    shutil.copy("/usr/share/z88/z88.dyn", folder)
    for command in (["z88f", "-c"], ["z88e"]):
        run = subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, text=True,
                             encoding="latin-1", stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if run.returncode != 0:
            sys.exit("%s failed:\n%s" % (" ".join(command), run.stdout))


def printed_displacements(folder):
    """Rows of z88o2.txt: node, three translations, three rotations."""
    text = (folder / "z88o2.txt").read_text(encoding="latin-1")
    numbers = list(nodes())
    for line in text.splitlines():
        fields = line.split()
        if len(fields) == 7 and fields[0].isdigit():
            yield [numbers[int(fields[0]) - 1]] + fields[1:]


def printed_end_forces(folder):
    """Rows of z88o4.txt: member, node, and what acts on the member's end at that node: three
    forces, and of beams three moments."""
    text = (folder / "z88o4.txt").read_text(encoding="latin-1").split("nodal sums")[0]
    node_numbers, member_numbers = list(nodes()), list(members())
    member = None
    for line in text.splitlines():
        heading = re.match(r"element # = +(\d+)", line)
        if heading:
            member = member_numbers[int(heading.group(1)) - 1]
        fields = line.split()
        if member is not None and len(fields) in (4, 7) and fields[0].isdigit():
            yield member, node_numbers[int(fields[0]) - 1], fields[1:4], fields[4:7] or ["0"] * 3


def table(path, heading, rows):
    path.write_text("\n".join([heading] + [",".join(str(field) for field in row) for row in rows])
                    + "\n")


def write_tables(tables, results):
    """Z88's nodal forces of an element are what acts on its ends, along the global axes."""
    tables.mkdir(parents=True, exist_ok=True)
    table(tables / "model.csv", "key,value", [
        ("verticalAxis", "Z"), ("lengthUnit", "m"), ("displacementUnit", "m"), ("forceUnit", "kN"),
        ("endForceAxes", "global"), ("endForceSense", "onMember"), ("source", "Z88 13.0")])
    table(tables / "nodes.csv", "node,x,y,z", [(n, *point) for n, point in nodes().items()])
    table(tables / "supports.csv", "node", [(n,) for n, p in nodes().items() if p[2] == 0.0])
    table(tables / "members.csv", "member,start,end",
          [(m, start, end) for m, (start, end, _, _) in members().items()])
    table(tables / "cases.csv", "case,name,kind", [(c, name, "primary") for c, name in CASES])
    moved, carried, held = [], [], []
    starts = {m: start for m, (start, _, _, _) in members().items()}
    for case, _ in CASES:
        reactions = {n: [0.0] * 3 for n, point in nodes().items() if point[2] == 0.0}
        for row in printed_displacements(results / f"case{case}"):
            moved.append([case] + row)
        for member, at, forces, moments in printed_end_forces(results / f"case{case}"):
            end = "start" if at == starts[member] else "end"
            carried.append([case, member, end] + forces + moments)
            if at in reactions:
                reactions[at] = [a + float(b) for a, b in zip(reactions[at], forces)]
        held += [[case, n] + ["%.5e" % f for f in r] for n, r in reactions.items()]
    table(tables / "displacements.csv", "case,node,ux,uy,uz,rx,ry,rz", moved)
    table(tables / "forces.csv", "case,member,end,f1,f2,f3,m1,m2,m3", carried)
    table(tables / "reactions.csv", "case,node,fx,fy,fz", held)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    for case, _ in CASES:
        work = folder / "z88" / f"case{case}"
        work.mkdir(parents=True, exist_ok=True)
        write_z88_input(work, case)
        run_z88(work)
    write_tables(folder / "three_story", folder / "z88")


if __name__ == "__main__":
    main()
