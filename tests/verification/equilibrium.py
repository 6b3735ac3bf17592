"""Story shears and weights of a recorded building, from its file alone.

Member axes, cut members and sums are worked out here, apart from the tool.
"""

import json
import math


class Building:
    def __init__(self, path):
        model = json.loads(path.read_text(encoding="utf-8"))
        self.model = model
        self.vertical = 2 if model.get("zUp", False) else 1
        self.second = 3 - self.vertical
        self.nodes = {node["number"]: node["xyz"] for node in model["nodes"]}
        self.supports = {n["number"] for n in model["nodes"] if n.get("support")}
        self.members = model["members"]
        self.cases = model["primaryLoadCases"] + model["loadCombinations"]
        self.levels = sorted({round(xyz[self.vertical], 9) for xyz in self.nodes.values()})

    def axes(self, member):
        start, end = self.nodes[member["start"]], self.nodes[member["end"]]
        along = [b - a for a, b in zip(start, end)]
        length = math.sqrt(sum(d * d for d in along))
        along = [d / length for d in along]
        if self.vertical == 1:
            flat = math.hypot(along[2], along[0])
            z = ([-along[2] / flat, 0.0, along[0] / flat] if flat >= 1e-6
                 else [-along[2], 0.0, 1.0])
            y = cross(z, along)
        else:
            flat = math.hypot(along[0], along[1])
            y = ([-along[1] / flat, -along[0] / flat, 0.0] if flat >= 1e-6
                 else [-along[1], 1.0, 0.0])
            z = cross(along, y)
        turn = math.radians(member.get("beta", 0.0))
        c, s = math.cos(turn), math.sin(turn)
        return (along, [c * a + s * b for a, b in zip(y, z)],
                [c * b - s * a for a, b in zip(y, z)])

    def global_force(self, member, end, case):
        """Force on an end (0 start, 1 end) in global axes."""
        forces = self.model["endForces"].get(str(case), {}).get(str(member["number"]))
        if forces is None:
            return [0.0, 0.0, 0.0]
        return [sum(f * axis[i] for f, axis in zip(forces[end], self.axes(member)))
                for i in range(3)]

    def lower_end(self, member):
        heights = [self.nodes[member[end]][self.vertical] for end in ("start", "end")]
        return 0 if heights[0] < heights[1] else 1

    def cut_members(self, story):
        """Members that a plane a tenth of the height above a story's floor cuts."""
        lower, upper = self.levels[story], self.levels[story + 1]
        plane = lower + (upper - lower) / 10.0
        for member in self.members:
            heights = sorted(self.nodes[member[end]][self.vertical] for end in ("start", "end"))
            if heights[0] < plane <= heights[1]:
                yield member

    def cut_force(self, story, case):
        """Sum over the cut members of the force on their lower ends, global x, y, z."""
        total = [0.0, 0.0, 0.0]
        for member in self.cut_members(story):
            force = self.global_force(member, self.lower_end(member), case)
            total = [a + b for a, b in zip(total, force)]
        return total

    def story_shear(self, story, case):
        """(X, second direction): the lower ends are held, so the signs turn."""
        force = self.cut_force(story, case)
        return -force[0], -force[self.second]

    def gravity_center(self, story, case):
        """(X, second direction) of the vertical forces on the lower ends, in mm (metric)."""
        weight = [0.0, 0.0, 0.0]
        for member in self.cut_members(story):
            end = self.lower_end(member)
            at = self.nodes[member[("start", "end")[end]]]
            w = self.global_force(member, end, case)[self.vertical]
            weight = [weight[0] + w, weight[1] + w * at[0], weight[2] + w * at[self.second]]
        return 1000.0 * weight[1] / weight[0], 1000.0 * weight[2] / weight[0]

    def load_at_floor(self, level, case):
        """Load on the joints of a floor: what holds the ends of the members that meet there."""
        total = [0.0, 0.0, 0.0]
        for member in self.members:
            for end, node in enumerate((member["start"], member["end"])):
                if abs(self.nodes[node][self.vertical] - level) < 1e-9:
                    force = self.global_force(member, end, case)
                    total = [a + b for a, b in zip(total, force)]
        return total[0], total[self.second]


def cross(u, v):
    return [u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]]
