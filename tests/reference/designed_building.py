"""Makes a random building into one that somebody could have designed.

Floors move and turn as one piece, by angles near the limits; upright columns push back with a
stiffness of their own and carry weight. Then, now and then, what the figures and remarks of a run
are about: a landing, a story that does not move, equal or missing load cases, uplift, a recording
that lacks answers. Everything is taken from the generator that is handed in.
"""

import math

RELIEF_ANGLES = [0.005, 1.0 / 150.0, 1.0 / 120.0, 0.00833, 0.008333, 1.0 / 120.0 * 1.00005,
                 1.0 / 120.0 * 1.0002, 0.01, 0.005 * (1.0 + 1e-9), 0.006, 0.0049]
ANGLES = [1.0 / 200.0, 1.0 / 200.0 * (1.0 + 1e-10), 1.0 / 200.0 * (1.0 + 1e-7), 1.0 / 120.0,
          1.0 / 150.0, 1.0 / 199.0, 1.0 / 300.0, 1.0 / 400.0, 1.0 / 700.0, 1.0 / 1500.0]


def redesign(building, rng):
    if rng.random() < 0.5 or not building.primary or len(building.levels) < 2:
        return
    building.designed = True
    building.tidy_input = rng.random() < 0.75
    design = Design(building, rng)
    design.choose_cases()
    design.add_landing()
    design.move_floors()
    design.load_columns()
    if rng.random() < 0.25:
        building.sheet_ground = rng.choice([building.levels[0], building.levels[0] + 500.0, -1e4])
    if rng.random() < 0.2:
        design.record()


class Design:
    def __init__(self, building, rng):
        self.building = building
        self.rng = rng
        self.calm = rng.random() < 0.4  # nothing near a limit, nothing odd
        self.vertical = 2 if building.z_up else 1
        self.second = 1 if building.z_up else 2
        self.unit = 25.4 if building.inches else 1000.0
        self.force_unit = 4.4482216152605 if building.inches else 1.0

    def choose_cases(self):
        b, rng = self.building, self.rng
        if rng.random() < 0.9:
            while len(set(b.primary)) < 3:
                b.primary.append(max(b.primary) + 1)
        if rng.random() < 0.9:
            b.dead = b.primary[0]
        b.cases = b.primary + b.combinations
        known = [case for case in b.primary if case != b.dead] or b.primary
        b.quake_x = known[0]
        b.quake_z = known[1 % len(known)]
        chance = 1.0 if self.calm else rng.random()
        if chance < 0.08:
            b.quake_z = b.quake_x
        elif chance < 0.14:
            b.quake_z = 97
        elif chance < 0.2:
            b.quake_x = 98
        elif chance < 0.26 and b.combinations:
            b.quake_x = b.combinations[0]

    def add_landing(self):
        """Two beams between the floors of a story, and a column that is split at one of them."""
        b, rng = self.building, self.rng
        if rng.random() > 0.15 or not b.nodes:
            return
        story = rng.randrange(len(b.levels) - 1)
        low, high = b.levels[story], b.levels[story + 1]
        level = low + (high - low) * rng.choice([0.5, 0.45, 0.7])
        first = b.add_node(0.0, level, 0.0)
        second = b.add_node(2500.0, level, 0.0)
        third = b.add_node(2500.0, level, 1200.0)
        b.spanning.append(b.add_member(first, second))
        b.spanning.append(b.add_member(second, third))
        below = [n["number"] for n in b.nodes if abs(self.height(n) - low) < 1.0]
        if below:
            b.spanning.append(b.add_member(rng.choice(below), first))

    def height(self, node):
        return node["xyz"][self.vertical] * self.unit

    # Displacements

    def move_floors(self):
        b, rng = self.building, self.rng
        for axis, case in ((0, b.quake_x), (1, b.quake_z)):
            if case not in b.cases:
                continue
            moves = self.floor_moves()
            turns = [0.0]
            for _ in b.levels[1:]:
                turns.append(turns[-1] + rng.choice([0.0, 0.0, 1e-7, 2e-6, -5e-6]))
            across = 0.0 if self.calm else rng.choice([0.0, 0.0, 0.01, 0.2])
            noise = rng.choice([0.0, 0.0, 0.0, 0.001, 0.3])
            listed = {}
            for node in b.nodes:
                move = self.at_height(moves, self.height(node))
                turn = self.at_height(turns, self.height(node))
                plan = [move, move * across] if axis == 0 else [move * across, move]
                plan[0] -= turn * node["xyz"][self.second] * self.unit
                plan[1] += turn * node["xyz"][0] * self.unit
                values = [0.0] * 6
                values[0] = (plan[0] + rng.uniform(-noise, noise)) / self.unit
                values[self.second] = (plan[1] + rng.uniform(-noise, noise)) / self.unit
                listed[str(node["number"])] = values
            b.displacements[str(case)] = listed

    def floor_moves(self):
        """Displacement of every floor, mm: one angle for all stories or one for each."""
        b, rng = self.building, self.rng
        if self.calm:
            return [(level - b.levels[0]) / 300.0 for level in b.levels]
        sense = -1.0 if rng.random() < 0.1 else 1.0
        common = rng.choice(ANGLES) if rng.random() < 0.6 else None
        moves = [0.0]
        for low, high in zip(b.levels, b.levels[1:]):
            angle = rng.choice(ANGLES) if common is None else common * rng.choice([1.0, 0.8, 1.3])
            if rng.random() < 0.05:
                angle = 0.0
            moves.append(moves[-1] + sense * angle * (high - low))
        return moves

    def at_height(self, values, height):
        """Between the floors in proportion; the lowest and highest floor's beyond them."""
        levels = self.building.levels
        for k in range(len(levels) - 1):
            if height <= levels[k + 1]:
                share = max(0.0, (height - levels[k]) / (levels[k + 1] - levels[k]))
                return values[k] + share * (values[k + 1] - values[k])
        return values[-1]

    # Forces

    def load_columns(self):
        b, rng = self.building, self.rng
        if b.dead in b.cases:
            b.end_forces[str(b.dead)] = {}
        for case in (b.quake_x, b.quake_z):
            if case in b.cases:
                b.end_forces[str(case)] = {}
        self.first_node = {}
        for node in b.nodes:
            self.first_node.setdefault(node["number"], node)
        uplift = rng.choice([0.0, 0.0, 0.05])
        backwards = rng.choice([0.0, 0.0, 0.0, 0.05])
        growth = rng.choice([0.0, 0.3, 1.0])   # how much stiffer one side of the plan is
        stiffest = 20.0
        if self.calm:
            uplift, backwards, growth, stiffest = 0.0, 0.0, 0.0, 5.5
        for member in b.members:
            stiffness = [rng.uniform(5.0, stiffest), rng.uniform(5.0, stiffest)]
            low = self.first_node.get(member["start"])
            up = self.first_node.get(member["end"])
            if low is None or up is None:
                continue
            turned = self.height(low) > self.height(up)
            if turned:
                low, up = up, low
            stiffness[1] *= 1.0 + growth * math.tanh(low["xyz"][0] * self.unit / 5000.0)
            weight = rng.uniform(200.0, 900.0) * (-1.0 if rng.random() < uplift else 1.0)
            sign = -1.0 if rng.random() < backwards else 1.0
            if self.height(up) - self.height(low) < 1.0:
                weight, stiffness = 0.0, [0.0, 0.0]
            self.push(member, turned, b.dead, weight, [0.0, 0.0])
            for axis, case in ((0, b.quake_x), (1, b.quake_z)):
                if case == b.dead or axis == 1 and case == b.quake_x:
                    continue
                shear = [0.0, 0.0]
                shear[axis] = sign * stiffness[axis] * self.drift(low, up, case, axis)
                if not self.calm:
                    shear[1 - axis] = rng.choice([0.0, 0.0, 0.02]) * shear[axis]
                self.push(member, turned, case, 0.0, shear)

    def drift(self, low, up, case, axis):
        component = 0 if axis == 0 else self.second
        listed = self.building.displacements.get(str(case), {})
        ends = [listed.get(str(node["number"]), [0.0] * 6)[component] for node in (low, up)]
        return (ends[1] - ends[0]) * self.unit

    def push(self, member, turned, case, weight, shear):
        """End forces along the axes that an unturned upright member has, kN."""
        listed = self.building.end_forces.get(str(case))
        if listed is None or case not in self.building.cases:
            return
        lower = -1.0 if turned else 1.0   # its x axis points down when it is turned over
        if self.building.z_up:
            first = [lower * weight, -shear[1], lower * shear[0], 0.0, 0.0, 0.0]
        else:
            first = [lower * weight, lower * shear[0], -shear[1], 0.0, 0.0, 0.0]
        first = [value / self.force_unit for value in first]
        other = [-value for value in first]
        listed[str(member["number"])] = [other, first] if turned else [first, other]

    # Recordings

    def record(self):
        """A file that says for which run it was made; some lack an answer or two."""
        b, rng = self.building, self.rng
        for case in b.cases:
            moves = b.displacements.setdefault(str(case), {})
            forces = b.end_forces.setdefault(str(case), {})
            for node in b.nodes:
                moves.setdefault(str(node["number"]), [0.0] * 6)
            for member in b.members:
                forces.setdefault(str(member["number"]), [[0.0] * 6, [0.0] * 6])
        b.recorded_for = rng.choice([{"all": True}, {"input": "other.csv", "sha256": "0" * 64}])
        chance = rng.random()
        if chance < 0.4:
            return
        if chance < 0.7 and b.spanning:
            # Members that no story has: often only the figures ask about them.
            for case in (b.quake_x, b.quake_z):
                b.end_forces.get(str(case), {}).pop(str(rng.choice(b.spanning)), None)
            return
        for _ in range(rng.choice([1, 1, 2, 20])):
            case = str(rng.choice([b.dead, b.quake_x, b.quake_z] + b.cases))
            answers = rng.choice([b.displacements, b.end_forces]).get(case, {})
            if answers:
                del answers[rng.choice(sorted(answers))]
