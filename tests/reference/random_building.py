#!/usr/bin/env python3
"""Random buildings with random Route 2 Input files, for comparing two calculations of a run.

    random_building.py SEED OUT.qhm OUT.csv

writes one building and its input file; the same seed always gives the same files. Most buildings
are sound and their runs complete; about a third carry something that ends the run early (a member
without its node, no FIN line, an input file that is a folder, ...). Many carry harmless oddities:
numbers that stand twice, equal load cases, displacements right at a limit, levels out of order,
lines longer than one read, blank lines where they matter.

About half of the buildings are then made into ones that somebody could have designed
(designed_building.py): floors that move and turn, columns that push back, and what the figures and
remarks of a run are about.

Some arrangements need more than two files: a folder where the log or the results should go. They
are made beside OUT.qhm.
"""

import argparse
import json
import os
import random
import sys

import designed_building

FATAL = [
    "no FIN", "no FIN", "missing node", "missing node", "missing node", "zero length",
    "zero length", "unknown story member", "no results", "no input", "input is a folder",
    "log is a folder", "too many lines", "empty input", "half-set stories", "half-set stories",
    "listed broken member", "only noise",
]


class Building:
    """A host model under construction; lengths are given in mm and stored in the host's unit."""

    def __init__(self, rng, fatal):
        self.rng = rng
        self.fatal = fatal
        self.z_up = rng.random() < 0.5
        self.inches = rng.random() < 0.4
        # An ordinary building: columns point up, unturned, and all resist the earthquake.
        self.steady = rng.random() < 0.6
        # Answers so large that sums of them are infinite, or not a number.
        self.wild = rng.random() < 0.04
        self.nodes = []
        self.members = []
        self.designed = False
        self.tidy_input = False
        self.sheet_ground = None  # mm
        self.recorded_for = None  # what a recording says about itself
        self.levels = []
        self.story_members = []  # per story: numbers of members that truly span it
        self.spanning = []       # numbers of members that span other than one story
        self.make_numbers()
        self.make_frame()
        self.spoil()
        self.make_loads()
        self.make_answers()

    def length(self, mm):
        return mm / 25.4 if self.inches else mm / 1000.0

    def make_numbers(self):
        rng = self.rng
        step = rng.choice([1, 1, 2, 7])
        first = rng.choice([1, 1, 1, 101, 0, -5])
        self.node_pool = [first + step * i for i in range(400)]
        self.member_pool = [rng.choice([1, 1001]) + rng.choice([1, 3]) * i for i in range(900)]
        self.member_pool = sorted(set(self.member_pool))
        if rng.random() < 0.5:
            # Gaps and no order.
            self.node_pool = rng.sample(self.node_pool, 300)
            self.member_pool = rng.sample(self.member_pool, min(600, len(self.member_pool)))
        self.node_pool.reverse()
        self.member_pool.reverse()

    def add_node(self, x, level, z, support=None):
        number = self.node_pool.pop()
        x, level, z = self.length(x), self.length(level), self.length(z)
        node = {"number": number, "xyz": [x, z, level] if self.z_up else [x, level, z]}
        if support is not None and (support or self.rng.random() < 0.1):
            node["support"] = support
        self.nodes.append(node)
        return number

    def add_member(self, a, b):
        rng = self.rng
        number = self.member_pool.pop()
        if rng.random() < 0.4 and not self.steady:
            a, b = b, a
        member = {"number": number, "start": a, "end": b}
        if rng.random() < 0.6 and not self.steady:
            member["beta"] = rng.choice(
                [0, 90, 180.0, -90.0, 45.0, 30.0, 270.0, round(rng.uniform(-360, 360), 3)])
        self.members.append(member)
        return number

    def make_levels(self):
        rng = self.rng
        stories = rng.choice([0, 1, 1, 2, 2, 2, 3, 3, 4, 5, 6])
        base = rng.choice([0.0, 0.0, 0.0, -1500.0, 1200.0, 12.7])
        self.levels = [base]
        for _ in range(stories):
            if self.inches:
                height = rng.choice([120.0, 144.0, 137.5, 150.0, rng.uniform(100, 200)]) * 25.4
            else:
                height = rng.choice([3000.0, 3500.0, 3500.0, 4000.0, 2800.0,
                                     round(rng.uniform(2500, 5000), 1)])
            self.levels.append(self.levels[-1] + height)

    def make_frame(self):
        rng = self.rng
        self.make_levels()
        xs = self.axis(rng.choice([1, 2, 2, 3, 4]))
        zs = self.axis(rng.choice([1, 2, 2, 3]))
        support_kind = rng.choice(["all", "all", "all", "some", "none"])
        self.crooked = rng.random() < 0.2
        grid = {}
        for level, height in enumerate(self.levels):
            for i, x in enumerate(xs):
                for j, z in enumerate(zs):
                    if level > 0 and rng.random() < 0.04:
                        continue
                    off = 0.0
                    if self.crooked and rng.random() < 0.15:
                        off = rng.choice([0.04, -0.05, 0.0999, 0.1, 0.1, 0.1001, -0.2, 5.0,
                                          0.005, 1e-9])
                    support = None
                    if level == 0:
                        support = (support_kind == "all"
                                   or support_kind == "some" and rng.random() < 0.5)
                    grid[level, i, j] = self.add_node(x, height + off, z, support)
        if rng.random() < 0.1:
            # Something below or above that nobody reaches, perhaps supported.
            self.add_node(0.0, self.levels[0] + rng.choice([-500.0, 800.0, 20000.0]), 0.0,
                          rng.random() < 0.5)
        self.make_columns(grid, len(xs), len(zs))
        self.make_beams(grid, len(xs), len(zs))
        if rng.random() < 0.5:
            rng.shuffle(self.members)
        if rng.random() < 0.5:
            rng.shuffle(self.nodes)

    def axis(self, count):
        position = self.rng.choice([0.0, 0.0, -3000.0, 250.0])
        positions = []
        for _ in range(count):
            positions.append(position)
            position += self.rng.choice([5000.0, 6000.0, 7200.0, 4572.0,
                                         round(self.rng.uniform(2000, 9000), 1)])
        return positions

    def make_columns(self, grid, nx, nz):
        rng = self.rng
        for story in range(len(self.levels) - 1):
            here = []
            for i in range(nx):
                for j in range(nz):
                    low = grid.get((story, i, j))
                    if low is None:
                        continue
                    up = grid.get((story + 1, i, j))
                    if up is not None and rng.random() < 0.92:
                        here.append(self.add_member(low, up))
                    # Leaning members and braces end over a neighbouring axis.
                    aside = grid.get((story + 1, i + rng.choice([-1, 1]), j + rng.choice([0, 0, 1])))
                    if aside is not None and rng.random() < 0.15:
                        here.append(self.add_member(low, aside))
                    if up is not None and rng.random() < 0.05:
                        self.split_column(story, low, up)
                    over = grid.get((story + 2, i, j))
                    if over is not None and rng.random() < 0.08:
                        self.spanning.append(self.add_member(low, over))
            self.story_members.append(here)

    def split_column(self, story, low, up):
        """Two pieces that meet somewhere in the story, often where the weight is taken."""
        below, above = self.levels[story], self.levels[story + 1]
        share = self.rng.choice([0.1, 0.1, 0.105, 0.095, 0.5])
        middle = self.add_node(1234.5, below + (above - below) * share, -300.0)
        self.spanning.append(self.add_member(low, middle))
        self.spanning.append(self.add_member(middle, up))

    def make_beams(self, grid, nx, nz):
        rng = self.rng
        for level in range(len(self.levels)):
            if level == 0 and rng.random() < (0.4 if self.crooked else 0.8):
                continue
            for i in range(nx):
                for j in range(nz):
                    for di, dj in ((1, 0), (0, 1)):
                        a, b = grid.get((level, i, j)), grid.get((level, i + di, j + dj))
                        if a is not None and b is not None and rng.random() < 0.85:
                            self.spanning.append(self.add_member(a, b))

    def spoil(self):
        """Numbers that stand twice, and what is fatal in the model itself."""
        rng = self.rng
        if rng.random() < 0.15 and self.nodes:
            twin = dict(rng.choice(self.nodes))
            twin["xyz"] = [v + self.length(rng.choice([0.0, 100.0, 3000.0])) for v in twin["xyz"]]
            self.nodes.insert(rng.randrange(len(self.nodes) + 1), twin)
        if rng.random() < 0.15 and self.members:
            twin = dict(rng.choice(self.members))
            twin["start"], twin["end"] = twin["end"], twin["start"]
            twin["beta"] = 33.0
            self.members.insert(rng.randrange(len(self.members) + 1), twin)
        self.broken = None
        if self.fatal in ("missing node", "half-set stories", "listed broken member"):
            if not self.nodes:
                return
            member = {"number": self.member_pool.pop(), "start": rng.choice(self.nodes)["number"],
                      "end": 999999}
            if rng.random() < 0.5:
                member["start"], member["end"] = member["end"], member["start"]
            self.broken = member["number"]
            self.members.insert(rng.randrange(len(self.members) + 1), member)
        if self.fatal == "zero length" and self.nodes:
            node = rng.choice(self.nodes)["number"]
            member = {"number": self.member_pool.pop(), "start": node, "end": node}
            self.broken = member["number"]
            self.members.insert(rng.randrange(len(self.members) + 1), member)

    def make_loads(self):
        rng = self.rng
        pool = rng.choice([[1, 2, 3, 4, 5], [1, 2, 3, 4, 5], [11, 12, 13, 14, 15], [5, 3, 1, 7, 2]])
        self.primary = pool[:rng.choice([0, 1, 2, 3, 3, 3, 3, 3, 3, 4, 5])]
        self.combinations = [101, 102, 103][:rng.choice([0, 0, 1, 2, 3])]
        if rng.random() < 0.1 and self.primary:
            target = rng.choice([self.primary, self.combinations])
            target.append(rng.choice(self.primary))
        self.cases = self.primary + self.combinations
        choice = self.primary if self.primary else [1]
        self.dead = choice[0] if rng.random() < 0.85 else rng.choice(choice + [1, 99])
        self.quake_x = choice[1 % len(choice)]
        self.quake_z = choice[2 % len(choice)]
        if rng.random() < 0.15:
            self.quake_x = rng.choice(choice + [1, 98])
            self.quake_z = rng.choice(choice + [self.quake_x, 97])

    def make_answers(self):
        rng = self.rng
        vertical = 2 if self.z_up else 1
        self.displacements = {}
        self.end_forces = {}
        digits = rng.choice([4, 6, 6, 9, 17])
        for case in sorted(set(self.cases)):
            if rng.random() > 0.06:
                self.displacements[str(case)] = self.case_displacements(case, vertical, digits)
            if rng.random() > 0.06:
                self.end_forces[str(case)] = self.case_forces(case)

    def case_displacements(self, case, vertical, digits):
        rng = self.rng
        # Along X, along the other plan direction, or both; a share of the level's height.
        if case == self.quake_x:
            drift = [rng.choice([0.001, 0.002, 0.005, 0.0055]), rng.choice([0.0, 0.0001])]
        elif case == self.quake_z:
            drift = [rng.choice([0.0, 0.0001]), rng.choice([0.001, 0.0015, 0.005, 0.007])]
        else:
            drift = [rng.uniform(-0.003, 0.003), rng.choice([0.0, rng.uniform(-0.003, 0.003)])]
        style = rng.choice(["plain", "plain", "plain", "exact", "limit", "all negative"])
        listed = {}
        for node in self.nodes:
            if rng.random() < 0.03:
                continue
            level = node["xyz"][vertical] - self.length(self.levels[0])
            plan = [level * d for d in drift]
            if style == "plain":
                plan = [round(v * rng.uniform(0.8, 1.2), digits) for v in plan]
            elif style == "limit":
                steps = [0.0, 0.009, 0.00999, 0.01, -0.01, 0.010001, -0.009, 0.02]
                plan = [self.length(rng.choice(steps)) for _ in plan]
            elif style == "all negative":
                plan = [-abs(round(v, digits)) for v in plan]
            if rng.random() < (0.1 if self.wild else 0.0005):
                plan[0] = rng.choice([1e300, -1e306, 1e306, 1e-310])
            values = [plan[0], 0.0, plan[1], 0.0, 0.0, 0.0]
            if self.z_up:
                values = [plan[0], plan[1], 0.0, 0.0, 0.0, 0.0]
            values[vertical] = round(rng.uniform(-0.002, 0.002), 6)
            listed[str(node["number"])] = values
        return listed

    def case_forces(self, case):
        rng = self.rng
        style = rng.choice(["plain"] * 8 + ["round", "none", "balanced"])
        listed = {}
        for index, member in enumerate(self.members):
            if rng.random() < 0.03:
                continue
            if style == "plain":
                first = [round(rng.uniform(-200, 200), 3) for _ in range(6)]
                if case == self.dead:
                    first[0] = round(rng.uniform(100, 900), 3)
                if self.steady:
                    # The signs that push every column's lower end against the drift.
                    along_y, along_z = (-1.0, 1.0) if self.z_up else (1.0, -1.0)
                    first[1], first[2] = along_y * abs(first[1]), along_z * abs(first[2])
                second = [-v for v in first]
            elif style == "round":
                first = [100.0, 10.0, -20.0, 0.0, 0.0, 0.0]
                second = [-100.0, -10.0, 20.0, 0.0, 0.0, 0.0]
            elif style == "none":
                first, second = [0.0] * 6, [rng.choice([0.0, 1e-7])] + [0.0] * 5
            else:
                sign = 1.0 if index % 2 else -1.0
                first = [sign * 50.0, 3.0, sign * 4.0, 1.0, 1.0, 1.0]
                second = [-v for v in first]
            if rng.random() < (0.4 if self.wild else 0.0005):
                large = rng.choice([1.5e308, -1.5e308, 1e200, 1e-308])
                first[:3] = rng.choice([[large, 0.0, 0.0], [large, large, large]])
                second = [-v for v in first]
            listed[str(member["number"])] = [first, second]
        return listed

    def document(self):
        rng = self.rng
        model = {"format": "quarnel-host-model", "version": 1}
        if self.inches:
            model["baseUnitSystem"] = 1
        elif rng.random() < 0.5:
            model["baseUnitSystem"] = rng.choice([2, 0, -1, 3])
        if self.z_up or rng.random() < 0.5:
            model["zUp"] = self.z_up
        if self.fatal == "no results":
            model["resultsAvailable"] = False
        elif rng.random() < 0.3:
            model["resultsAvailable"] = True
        sections = {
            "nodes": self.nodes, "members": self.members, "primaryLoadCases": self.primary,
            "loadCombinations": self.combinations, "displacements": self.displacements,
            "endForces": self.end_forces,
        }
        for key, value in sections.items():
            if value or rng.random() < 0.7:
                model[key] = value
        if self.recorded_for is not None:
            model["recordedFor"] = self.recorded_for
        return model


class InputFile:
    """A Route 2 Input file for a building, in every form the grammar allows."""

    def __init__(self, rng, building, fatal):
        self.rng = rng
        self.building = building
        self.fatal = fatal
        self.stories = max(0, len(building.levels) - 1)
        self.tidy = rng.random() < 0.35  # nothing odd on purpose
        self.tidy = self.tidy or building.tidy_input

    def odd(self, probability):
        return not self.tidy and self.rng.random() < probability

    def text(self):
        rng = self.rng
        if self.fatal == "empty input":
            return rng.choice([b"", b"\n", b"\r\n"])
        if self.fatal == "only noise":
            return rng.randbytes(rng.choice([3, 50, 500, 5000]))
        sections = [self.load_cases(), self.levels(), self.members(), self.flags()]
        for _ in range(rng.choice([0, 1, 1, 2, 3])):
            sections.append(self.allowed())
        if self.odd(0.2):
            sections.append(rng.choice([self.load_cases, self.levels, self.flags, self.members])())
        if not self.tidy:
            rng.shuffle(sections)
        lines = []
        for section in sections:
            lines += section
            if self.odd(0.25):
                lines.append(rng.choice([b"", b"# a remark", b"note,with,commas,", b" ", b",",
                                         b",,", b"0,", b"7", b"2,0.001,", b"Fin"]))
        if self.building.sheet_ground is not None:
            lines.insert(0, b"SheetGround,%g," % self.building.sheet_ground)
        lines = self.disturb(lines)
        if self.fatal == "too many lines":
            lines += [rng.choice([b"", b"-"])] * (100002 - len(lines))
        elif self.odd(0.006):
            lines = [b""] * (100001 - len(lines)) + lines  # as many as there may be
        if self.fatal == "no FIN":
            if rng.random() < 0.5:
                lines.append(rng.choice([b" FIN", b"fin", b"FI", b"\tFIN", b",FIN", b"1,FIN"]))
        else:
            lines.append(rng.choice([b"FIN"] * 6 + [b"FINISH", b"FIN,", b"FIN 1,2,"]))
            if self.odd(0.2):
                lines += [b"DeadLoadCaseNumber,77,", b"FloorLevel,1,2,3,"]
        return self.join(lines)

    def join(self, lines):
        rng = self.rng
        ends = rng.choice([[b"\n"], [b"\n"], [b"\r\n"], [b"\n", b"\r\n"]])
        if self.odd(0.05):
            ends = [b"\n", b"\r\r\n"]
        text = b"".join(line + rng.choice(ends) for line in lines)
        if rng.random() < 0.3:
            text = text.rstrip(b"\r\n")
        elif self.odd(0.05):
            text = text[:-1] + b"\r"
        return text

    def disturb(self, lines):
        """Blank lines, lines without commas and noise at any place."""
        rng = self.rng
        if self.odd(0.35):
            for _ in range(rng.choice([1, 1, 2, 5])):
                lines.insert(rng.randrange(len(lines) + 1), rng.choice(
                    [b"", b"", b"", b"x", b"1", b"9", b"no commas here", b"StoryMember",
                     b"FloorLevel", b"0", b" 1,2,", b"\t"]))
        if self.odd(0.04):
            noise = bytes(rng.choice(range(256))
                          for _ in range(rng.choice([5, 190, 700])))
            lines.insert(rng.randrange(len(lines) + 1), noise)
        if self.odd(0.1):
            at = rng.randrange(len(lines) + 1)
            long = rng.choice([b"z", b"1", b" ", b","]) * rng.choice([197, 198, 199, 200, 398, 450])
            lines.insert(at, long)
        return lines

    def whole(self, number):
        """A whole number as people and other programs write it."""
        if not self.odd(0.08):
            return b"%d" % number
        return self.rng.choice([b" %d", b"%d ", b"+%d", b"00%d", b"%dx", b"%d.9", b"\t%d"]) % number

    def real(self, value):
        rng = self.rng
        if not self.odd(0.1):
            return repr(value).encode()
        return rng.choice([b" %.3f" % value, b"%.3e" % value, b"+%r" % value, b"%rmm" % value,
                           b"%.1fE+00" % value, b"", b"abc", b"0", b"-1",
                           float(value).hex().encode(), b"0x1p-8", b"1e", b".5", b"5."])

    def comma(self, usual=0.93):
        return b"," if self.tidy or self.rng.random() < usual else b""

    def load_cases(self):
        rng = self.rng
        b = self.building
        lines = []
        if rng.random() < 0.9 or b.tidy_input:
            lines.append(b"DeadLoadCaseNumber," + self.whole(b.dead) + self.comma())
        if rng.random() < 0.92 or b.tidy_input:
            if self.odd(0.05):
                lines.append(b"EarthquakeLoadCaseNumber," + self.whole(b.quake_x) + self.comma(0.5))
            else:
                lines.append(b"EarthquakeLoadCaseNumber," + self.whole(b.quake_x) + b","
                             + self.whole(b.quake_z) + self.comma())
            if self.odd(0.08):
                lines.append(rng.choice([b"", b"comment", b"FloorLevel", b"5"]))
        if self.odd(0.05):
            lines.append(rng.choice(
                [b" DeadLoadCaseNumber,9,", b"deadloadcasenumber,9,", b"DeadLoadCaseNumber",
                 b"DeadLoadCaseNumber ,9,", b"DeadLoadCaseNumber,99999999999,",
                 b"EarthquakeLoadCaseNumber,-99999999999,two,", b"EarthquakeLoadCaseNumber,"]))
        if self.odd(0.3):
            rng.shuffle(lines)
        return lines

    def levels(self):
        rng = self.rng
        given = rng.random() < 0.5 or self.fatal in ("half-set stories", "listed broken member")
        if not given and self.building.broken is not None:
            given = rng.random() < 0.5
        if not given:
            return []
        levels = list(self.building.levels)
        if self.odd(0.15):
            levels.append(rng.choice(levels))
        if self.odd(0.1):
            levels.append(rng.choice([levels[-1] + 3000.0, levels[0] - 100.0, levels[0] + 0.05]))
        if self.odd(0.1):
            levels.pop(rng.randrange(len(levels)))
        if self.odd(0.3):
            rng.shuffle(levels)
        style = rng.choice(["%r", "%r", "%.10g", "%.1f"])
        fields = [(style % level).encode() for level in levels]
        if self.odd(0.03):
            fields.insert(rng.randrange(len(fields) + 1),
                          rng.choice([b"inf", b"-Infinity", b"1e400", b" 250", b"0x10", b"junk"]))
        if self.odd(0.01):
            fields = [b"nan"]  # alone, because nothing can be sorted against it
        last = b"," if self.fatal else self.comma()
        return [b"FloorLevel," + b",".join(fields) + last]

    def members(self):
        rng = self.rng
        b = self.building
        wanted = self.fatal in ("unknown story member", "listed broken member")
        if self.fatal == "half-set stories" or not (wanted or rng.random() < 0.45):
            return []
        lines = [b"StoryMember" + self.comma(0.95)]
        if wanted:
            lines = [b"StoryMember,"]
        if self.odd(0.08):
            lines.append(rng.choice([b"", b"1", b"StoryMember,"]))
        order = list(range(self.stories))
        if self.odd(0.2):
            rng.shuffle(order)
        known = [member["number"] for member in b.members if member["number"] != b.broken]
        for story in order:
            numbers = list(b.story_members[story])
            if self.odd(0.15) and known:
                numbers += rng.sample(known, min(3, len(known)))
            if self.odd(0.03) and known:
                numbers *= rng.choice([5, 15])
            fields = [self.whole(n) for n in numbers]
            if self.odd(0.01):
                fields.append(b"junk")
            line = self.story_number(story) + b"".join(b"," + f for f in fields) + self.comma()
            lines.append(self.padded(line))
            if self.odd(0.04):
                lines.append(rng.choice([b"", b"3", b"x,y,", b"0,1,", b" 1,1,", b"StoryMember,"]))
        if wanted:
            bad = 888888 if self.fatal == "unknown story member" else b.broken
            lines.insert(rng.randrange(1, len(lines) + 1), b"1,%d," % (bad or 888888))
        elif self.odd(0.05):
            lines.append(b"%d,1," % (self.stories + rng.choice([1, 2, 99999999999])))
        return lines

    def story_number(self, story):
        if self.odd(0.03):
            return self.rng.choice([b"%d ", b"%d.5", b"%dF"]) % (story + 1)
        return b"%d" % (story + 1)

    def padded(self, line):
        """Now and then just as long as one read, or a little more or less."""
        if not self.odd(0.08) or b"," not in line:
            return line
        first, rest = line.split(b",", 1)
        blanks = self.rng.choice([197, 198, 199, 200, 201]) - len(line)
        return first + b"," + b" " * blanks + rest

    def flags(self):
        rng = self.rng
        known = [member["number"] for member in self.building.members]
        if not known or rng.random() < 0.5:
            return []
        numbers = rng.sample(known, min(len(known), rng.choice([0, 1, 2, 5, 60])))
        for story in self.building.story_members:
            if story:
                numbers.append(rng.choice(story))
        if self.odd(0.2):
            numbers.append(777777)
        return [self.padded(b"MemberDeformAngle"
                            + b"".join(b"," + self.whole(n) for n in numbers) + self.comma())]

    def allowed(self):
        rng = self.rng
        keyword, usual = rng.choice([
            (b"AllowStoryDeformAngle", [0.005, 0.004, 0.00833, 0.002, 0.001, 0.0]),
            (b"AllowStoryStiffRatio", [0.6, 1.0, 0.8, 0.0, 2.0]),
            (b"AllowStoryEccentricityModulus", [0.15, 0.3, 0.0, 0.05, 1e9])])
        if self.building.designed and keyword == b"AllowStoryDeformAngle":
            usual = designed_building.RELIEF_ANGLES
        lines = [keyword + self.comma(0.95)]
        if self.odd(0.06):
            lines.append(rng.choice([b"", b"remark", b"1", b"0,0.1,", b"9"]))
        for story in range(self.stories):
            if rng.random() < 0.7:
                value = self.real(rng.choice(usual))
                if self.odd(0.03):
                    value = rng.choice([b"nan", b"-NaN", b"inf", b"-inf", b"INFINITY", b"1e999"])
                lines.append(self.story_number(story) + b"," + value
                             + rng.choice([b"", b",", b",,", b",rest"]))
                if self.odd(0.05):
                    lines.append(rng.choice([b"", b"2", b"0", b"x,", keyword + b","]))
        if self.odd(0.05):
            lines.append(b"%d,0.5" % (self.stories + rng.choice([1, 99999999999])))
        return lines


def make_building(seed):
    """The model as a dictionary, the input file's bytes, and what is wrong with the pair."""
    rng = random.Random(seed)
    fatal = rng.choice(FATAL) if rng.random() < 0.38 else None
    building = Building(rng, fatal)
    # From numbers of its own, so that the other half stays what it is.
    designed_building.redesign(building, random.Random("designed %d" % seed))
    document = building.document()
    text = InputFile(rng, building, fatal).text()
    if fatal is None and rng.random() < 0.01:
        fatal = "results is a folder"
    return document, text, fatal


def write_building(seed, model_path, input_path):
    """Writes the files of one seed and answers what is wrong with them (None: nothing)."""
    document, text, fatal = make_building(seed)
    with open(model_path, "w", encoding="utf-8") as file:
        json.dump(document, file, indent=1 if seed % 2 else None)
    stem = model_path[:-3]
    if fatal == "log is a folder":
        os.makedirs(stem + "aijR2Log.txt", exist_ok=True)
    if fatal == "results is a folder":
        os.makedirs(stem + "aijR2Result.csv", exist_ok=True)
    if fatal == "input is a folder":
        os.makedirs(input_path, exist_ok=True)
    elif fatal != "no input":
        with open(input_path, "wb") as file:
            file.write(text)
    return fatal


def main():
    parser = argparse.ArgumentParser(description="Writes one random building.")
    parser.add_argument("seed", type=int)
    parser.add_argument("model", help="host model file to write")
    parser.add_argument("input", help="Route 2 Input file to write")
    options = parser.parse_args()
    fatal = write_building(options.seed, options.model, options.input)
    print("seed %d: %s" % (options.seed, fatal or "nothing wrong on purpose"))
    return 0


if __name__ == "__main__":
    sys.exit(main())
