#!/usr/bin/env python3
"""A second, separate calculation of a whole run, to hold the program's answers against.

Reads a host model file and a Route 2 Input file and works out what a run on them must show and
write: the status lines, the log and the results, byte for byte with LF line ends. It shares no
code with the program. Everything is a plain loop over plain lists: easy to follow, slow on purpose.

    reference_run.py MODEL.qhm INPUT.csv [--log FILE] [--results FILE]

prints the status lines and writes the two texts to the named files; a file that the run would not
have made is not made here either.
"""

import argparse
import json
import math
import os
import re
import struct
import sys

WARNING = "\n*** WARNING *** : "
LINE_READ_LIMIT = 199      # characters taken from the input file at a time
LAST_LINE_INDEX = 100000   # a line read at a higher index fails the reader
ROTATION_PI = 3.1415926535  # the value the member axes are turned with
KIP_TO_KN = 4.4482216152605
NOTHING_YET = -100000.0    # where the search for a largest displacement starts

BLANKS = b" \t\n\v\f\r"
DECIMAL = re.compile(rb"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?")
HEXADECIMAL = re.compile(
    rb"([+-]?)0[xX]((?:[0-9a-fA-F]+\.?[0-9a-fA-F]*|\.[0-9a-fA-F]+)(?:[pP][+-]?[0-9]+)?)")
INFINITE = re.compile(rb"([+-]?)(?:infinity|inf)", re.IGNORECASE)
NOT_A_NUMBER = re.compile(rb"[+-]?nan", re.IGNORECASE)
WHOLE = re.compile(rb"[+-]?[0-9]+")


class RunThrew(Exception):
    """What a failed host call or an index out of range does to the run."""


class AnswerMissing(RunThrew):
    """A question that a recording does not answer."""


class TooManyLines(Exception):
    """The reader met its line limit before a line that begins FIN."""


class CannotOpenInput(Exception):
    """The Route 2 Input file cannot be read."""


# --- numbers as the C library and the processor see them ---------------------------------------


def whole_number(text):
    """atoi; a number too large for 32 bits becomes the largest or smallest there is."""
    match = WHOLE.match(text.lstrip(BLANKS))
    value = int(match.group()) if match else 0
    return max(-2**31, min(2**31 - 1, value))


def real_number(text):
    """atof: the longest beginning that is a number, 0 when there is none."""
    text = text.lstrip(BLANKS)
    match = INFINITE.match(text)
    if match:
        return -math.inf if match.group(1) == b"-" else math.inf
    if NOT_A_NUMBER.match(text):
        return math.nan
    match = HEXADECIMAL.match(text)
    if match:
        sign = -1.0 if match.group(1) == b"-" else 1.0
        try:
            return sign * float.fromhex("0x" + match.group(2).decode())
        except OverflowError:
            return sign * math.inf
    match = DECIMAL.match(text)
    return float(match.group()) if match else 0.0


def divide(a, b):
    """Division that goes on where Python would stop: x/0 is infinite, 0/0 is not a number."""
    if b != 0.0:
        return a / b
    if a == 0.0 or math.isnan(a):
        return math.nan
    return math.copysign(math.inf, a) * math.copysign(1.0, b)


def square_root(a):
    return math.nan if a < 0.0 else math.sqrt(a)


def single_precision(a):
    try:
        return struct.unpack("<f", struct.pack("<f", a))[0]
    except OverflowError:
        return math.copysign(math.inf, a)


def cosine_and_sine(a):
    if math.isinf(a):
        return math.nan, math.nan
    return math.cos(a), math.sin(a)


def at(vector, index):
    """Element access that ends the run when the index is beyond the vector."""
    if 0 <= index < len(vector):
        return vector[index]
    raise RunThrew("invalid vector subscript")


# --- the host -----------------------------------------------------------------------------------


class Host:
    """Answers from a host model file. Of entries with one number the first is asked."""

    def __init__(self, model):
        self.base_unit_system = model.get("baseUnitSystem", 2)
        self.z_up = model.get("zUp", False)
        self.results_available = model.get("resultsAvailable", True)
        self.nodes = model.get("nodes", [])
        self.members = model.get("members", [])
        self.primary = model.get("primaryLoadCases", [])
        self.combinations = model.get("loadCombinations", [])
        self.displacements = model.get("displacements", {})
        self.end_forces = model.get("endForces", {})
        # A recording refuses what it was not asked; other files answer it with zeros.
        self.is_recording = "recordedFor" in model
        self.unlisted = set()  # the answers that were zeros because the file does not list them
        self.first_node = {}
        for node in self.nodes:
            self.first_node.setdefault(node["number"], node)
        self.first_member = {}
        for member in self.members:
            self.first_member.setdefault(member["number"], member)

    def node(self, number):
        if number not in self.first_node:
            raise RunThrew("no such node")
        return self.first_node[number]

    def member(self, number):
        if number not in self.first_member:
            raise RunThrew("no such member")
        return self.first_member[number]

    def coordinates(self, number):
        return [float(v) for v in self.node(number)["xyz"]]

    def supported(self, number):
        return bool(self.node(number).get("support", False))

    def incidence(self, number):
        member = self.member(number)
        return member["start"], member["end"]

    def rotation(self, number):
        return single_precision(float(self.member(number).get("beta", 0.0)))

    def displacement(self, node, load_case):
        self.node(node)
        values = self.displacements.get(str(load_case), {}).get(str(node))
        if values is None:
            self.not_listed("node", node, load_case)
            return [0.0] * 6
        return [float(v) for v in values]

    def end_force(self, member, end, load_case):
        self.member(member)
        ends = self.end_forces.get(str(load_case), {}).get(str(member))
        if ends is None:
            self.not_listed("member", member, load_case)
            return [0.0] * 6
        return [float(v) for v in ends[end]]

    def not_listed(self, what, number, load_case):
        """Zeros for a load case that the model does not have, and outside recordings."""
        if load_case not in self.primary and load_case not in self.combinations:
            return
        if self.is_recording:
            raise AnswerMissing("the recording has no answer")
        if what == "member" or not self.supported(number):
            self.unlisted.add((what, number, load_case))


# --- records ------------------------------------------------------------------------------------


class Member:
    """One member of one story under one load case."""

    def __init__(self, load_case, number, lower, upper, plan_x, plan_z):
        self.load_case = load_case
        self.number = number
        self.lower = lower
        self.upper = upper
        self.plan_x = plan_x
        self.plan_z = plan_z
        self.axes = [(0.0, 0.0, 0.0)] * 3
        self.disp = [0.0, 0.0]
        self.shear = [0.0, 0.0]
        self.stiffness = [0.0, 0.0]
        self.print_angle = False


class Story:
    def __init__(self, lower, upper):
        self.allow_angle = 0.005
        self.allow_ratio = 0.6
        self.allow_modulus = 0.15
        self.lower = lower
        self.upper = upper
        self.members = []
        self.max_all = [0.0, 0.0]
        self.mean_all = [0.0, 0.0]
        self.max_by_load = [[], []]
        self.mean_by_load = [[], []]
        self.gravity = [0.0, 0.0]
        self.rigidity = [0.0, 0.0]
        self.modulus = [0.0, 0.0]
        # Parts of the above that the results do not print; None until their step forms them.
        self.weight = None
        self.cut_members = None         # indices of the members that the cutting plane meets
        self.cut_forces = []            # their end forces under the dead load case
        self.total_stiffness = [None, None]
        self.torsional_stiffness = None

    @property
    def height(self):
        return self.upper - self.lower


class Fields:
    """The two field buffers of one reader. A line that lacks a field leaves the older text."""

    def __init__(self):
        self.first = b""
        self.value = b""

    def take_first(self, line):
        if line.count(b",") >= 1:
            self.first = line.split(b",")[0]
        return self.first

    def take_value(self, line, k):
        if line.count(b",") >= max(1, k):
            self.value = line.split(b",")[k]
        return self.value


def starts_story_line(line):
    return line[:1] in (b"1", b"2", b"3", b"4", b"5", b"6", b"7", b"8", b"9")


# --- the run ------------------------------------------------------------------------------------


class Run:
    def __init__(self, model_path, input_path):
        self.model_path = model_path
        self.input_path = input_path
        stem = model_path[:-3]
        self.log_path = stem + "aijR2Log.txt"
        self.results_path = stem + "aijR2Result.csv"
        self.status = []
        self.log_text = None      # bytes once the log is open
        self.results_text = None  # bytes once the results file is open

        self.z_up = None          # until the host was asked
        self.cases_read = False   # from the input file
        self.dead_case = 1
        self.quake_case = [1, 1]
        self.nodes_set = False
        self.node_numbers = []
        self.node_coords = []
        self.base_level = 0.0
        self.member_numbers = []
        self.member_axes = [[], [], []]
        self.levels_set = False
        self.levels_derived = False
        self.members_derived = False
        self.levels = []
        self.stories_set = False
        self.stories = []
        self.num_primary = 0
        self.num_combinations = 0
        self.load_cases = []
        self.rs_max_by_load = [[], []]
        self.rs_mean_by_load = [[], []]
        self.rs_max = [0.0, 0.0]
        self.rs_mean = [0.0, 0.0]
        self.lacks_an_answer = False  # and ended early for that
        self.steps_done = set()   # names of the steps that reached their end

    # Output

    def log(self, text):
        self.log_text += os.fsencode(text)

    def warn(self, text):
        self.log(WARNING + text + "\n")

    def put(self, text):
        self.results_text += os.fsencode(text)

    # The order of a run

    def execute(self):
        show = self.status.append
        if self.input_path == "":
            show("Input not specified!")
            return
        if not os.path.lexists(self.input_path):
            show("Input does not exist")
            return
        with open(self.model_path, encoding="utf-8") as file:
            self.host = Host(json.load(file))
        self.inches = self.host.base_unit_system == 1
        try:
            self.guarded(show)
        except RunThrew as thrown:
            self.lacks_an_answer = isinstance(thrown, AnswerMissing)
            show("Exception was thrown...")
        show("Finishes process...")
        show("Closing error log file...")

    def guarded(self, show):
        if not self.initialize():
            show("Failed to initialize AijCodeRoute2...")
            return
        if not self.host.results_available:
            self.warn("ORVEK results are not available.")
            show("ORVEK analysis results are not available.")
            show("Please run analysis first.")
            return
        self.log("ORVEK results are available.\n")
        show("Preparing for calculation...")
        self.take("loads", "Setting load information...", self.set_loads)
        self.take("nodes", "Setting node information...", self.set_nodes)
        self.take("members", "Setting member information...", self.set_members)
        self.basic_information()
        self.take("floors", "Setting floor information...", self.set_floors)
        self.take("stories", "Setting story information...", self.set_stories)
        self.take("drifts", "Calculating relative displacements...", self.relative_displacements)
        self.take("ratios", "Calculating story stiffness ratio...", self.rs_bar)
        self.take("gravity", "Calculating ceter of gravity...", self.gravity_center)
        self.take("shears", "Calculating story shear...", self.story_shear)
        self.take("stiffness", "Calculating horizontal story stiffness...", self.horizontal_stiffness)
        self.take("rigidity", "Calculating ceter of rigidity...", self.rigidity_center)
        self.take("moduli", "Calculating eccentricity modulus...", self.eccentricity_modulus)
        self.take("results", "Saving output...", self.print_results)
        show("Calculation Complete")

    def take(self, name, status_line, step):
        self.status.append(status_line)
        step()
        if self.stories_set or name in ("loads", "nodes", "members", "floors", "results"):
            self.steps_done.add(name)  # without stories the later ones refuse

    def initialize(self):
        if os.path.isdir(self.log_path):
            return False
        self.log_text = b""
        self.z_up = self.host.z_up
        return self.read_load_cases()

    def basic_information(self):
        self.log("\nORVEK File Basic information :\n")
        self.log("  File : %s\n" % self.model_path)
        self.log("  Number of nodes : %d\n" % len(self.node_coords))
        self.log("  Number of members : %d\n" % len(self.member_numbers))
        self.log("  Number of primary load cases : %d\n" % self.num_primary)
        self.log("  Number of load combination cases : %d\n" % self.num_combinations)
        self.log("  Dead load case number : %d\n" % self.dead_case)
        self.log("  Earthquake load( X direc. ) case number : %d\n" % self.quake_case[0])
        self.log("  Earthquake load( Z or Y direc. ) case number : %d\n" % self.quake_case[1])

    # The Route 2 Input file

    def input_lines(self):
        """The lines a reader works through, up to FIN; at the end of the file the last repeats."""
        if os.path.isdir(self.input_path):
            raise CannotOpenInput()
        with open(self.input_path, "rb") as file:
            text = file.read().replace(b"\r\n", b"\n")
        position = 0
        buffer = b""
        index = 0
        while True:
            if position < len(text):
                line_end = text.find(b"\n", position)
                end = len(text) if line_end < 0 else line_end + 1
                end = min(end, position + LINE_READ_LIMIT)
                buffer = text[position:end]
                position = end
                if buffer.endswith(b"\n"):
                    buffer = buffer[:-1]
            if buffer.startswith(b"FIN"):
                return
            yield buffer
            if index > LAST_LINE_INDEX:
                raise TooManyLines()
            index += 1

    def read(self, reader, limit_warning):
        """Runs one reader; false when the file cannot be opened or has too many lines."""
        try:
            return reader()
        except CannotOpenInput:
            self.warn("Cannot open data file %s." % self.input_path)
        except TooManyLines:
            self.warn(limit_warning)
        return False

    def read_load_cases(self):
        def reader():
            fields = Fields()
            for line in self.input_lines():
                keyword = fields.take_first(line)
                if keyword == b"DeadLoadCaseNumber":
                    self.dead_case = whole_number(fields.take_value(line, 1))
                if keyword == b"EarthquakeLoadCaseNumber":
                    self.quake_case[0] = whole_number(fields.take_value(line, 1))
                    self.quake_case[1] = whole_number(fields.take_value(line, 2))
            return True
        self.cases_read = not os.path.isdir(self.input_path)
        return self.read(reader, "Data file line number is too large.")

    def read_levels(self):
        def reader():
            fields = Fields()
            for line in self.input_lines():
                if fields.take_first(line) == b"FloorLevel":
                    for k in range(1, line.count(b",")):
                        self.levels.append(real_number(fields.take_value(line, k)))
                        self.levels_set = True
                    break
            self.log("Ends setting floor info with data file...\n")
            return True
        self.log("\nStarts setting floor info with data file...\n")
        return self.read(
            reader, "Data file line number is too large as setting floor info with data file.")

    def read_story_members(self):
        def reader():
            fields = Fields()
            inside = False
            for line in self.input_lines():
                if fields.take_first(line) == b"StoryMember":
                    inside = True
                    self.stories_set = True
                elif inside and not starts_story_line(line):
                    break
                elif inside:
                    story = whole_number(fields.first)
                    if story > len(self.stories):
                        self.warn("Story number for setting story members in data file is bigger "
                                  "than number of stories. Stops setting story members.")
                        return False
                    for k in range(1, line.count(b",")):
                        self.add_listed_member(story, whole_number(fields.take_value(line, k)))
            self.log("Ends setting story info with data file...\n")
            return True
        self.log("\nStarts setting story info with data file...\n")
        return self.read(
            reader,
            "nData file line number is too large as setting story member with data file.")

    def add_listed_member(self, story, number):
        for load_case in self.load_cases:
            upper = self.upper_node(number)
            lower = self.lower_node(number)
            coords = at(self.node_coords, self.find_node(lower))
            record = Member(load_case, number, lower, upper, coords[0], self.plan_z(coords))
            at(self.stories, story - 1).members.append(record)

    def read_output_flags(self):
        def reader():
            fields = Fields()
            for line in self.input_lines():
                if fields.take_first(line) == b"MemberDeformAngle":
                    for k in range(1, line.count(b",")):
                        number = whole_number(fields.take_value(line, k))
                        for story in self.stories:
                            for record in story.members:
                                if record.number == number:
                                    record.print_angle = True
                    break
            self.log("Ends setting output flag of member story deformation angle...\n")
            return True
        self.log("\nStarts setting output flag of member story deformation angle...\n")
        return self.read(
            reader, "Data file line number is too large as setting story members' output flag.")

    def read_allowable_values(self):
        stop = (" in data file is bigger than number of stories. Stops setting allowable values.")
        keywords = {
            b"AllowStoryDeformAngle": ("allow_angle", "story deformation angle"),
            b"AllowStoryStiffRatio": ("allow_ratio", "story stiff ratio"),
            b"AllowStoryEccentricityModulus": ("allow_modulus", "story eccentricity modulus"),
        }

        def reader():
            fields = Fields()
            state = None
            for line in self.input_lines():
                keyword = fields.take_first(line)
                if keyword in keywords:
                    state = keywords[keyword]
                elif not starts_story_line(line):
                    state = None
                elif state is not None:
                    story = whole_number(keyword)
                    if story > len(self.stories):
                        self.warn("Story number for allowable " + state[1] + stop)
                        return False
                    value = real_number(fields.take_value(line, 1))
                    setattr(at(self.stories, story - 1), state[0], value)
            self.log("Ends setting story allowable values...\n")
            return True
        self.log("\nStarts setting story allowable values...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting story allowable values...")
            return False
        return self.read(
            reader, "Data file line number is too large as setting story allowable values.")

    # Loads, nodes, members

    def set_loads(self):
        self.log("\nStarts setting load info...\n")
        self.num_primary = len(self.host.primary)
        self.num_combinations = len(self.host.combinations)
        self.load_cases = list(self.host.primary) + list(self.host.combinations)
        self.log("Ends setting load info...\n")

    def height_of(self, coords):
        return coords[2] if self.z_up else coords[1]

    def plan_z(self, coords):
        return coords[1] if self.z_up else coords[2]

    def find_node(self, number):
        """Index of the first node of this number; -1, which no vector has, without one."""
        for index, candidate in enumerate(self.node_numbers):
            if candidate == number:
                return index
        return -1

    def set_nodes(self):
        self.log("\nStarts setting node info...\n")
        unit = 25.4 if self.inches else 1000.0
        self.node_numbers = [node["number"] for node in self.host.nodes]
        for number in self.node_numbers:
            coords = [v * unit for v in self.host.coordinates(number)]
            self.node_coords.append(coords)
            level = self.height_of(coords)
            if len(self.node_coords) == 1:
                self.base_level = level
            if self.host.supported(number) and level < self.base_level:
                self.base_level = level
        self.nodes_set = True
        self.log("Ends setting node info...\n")

    def set_members(self):
        self.log("\nStarts setting member info...\n")
        self.member_numbers = [member["number"] for member in self.host.members]
        for number in self.member_numbers:
            start, end = (self.find_node(n) for n in self.host.incidence(number))
            if start < 0 or end < 0:
                self.warn("Node number is not set correctly. Stops setting member info...")
                return
            a = self.node_coords[start]
            b = self.node_coords[end]
            dx, dy, dz = b[0] - a[0], b[1] - a[1], b[2] - a[2]
            length = square_root(dx * dx + dy * dy + dz * dz)
            if length < 1e-6:
                self.warn("Difference of x coordinates between start and end nodes is equal zero. "
                          "Stops setting member info...")
                return
            c = (divide(dx, length), divide(dy, length), divide(dz, length))
            p, q = self.reference_axes(c)
            cos, sin = cosine_and_sine(self.host.rotation(number) * ROTATION_PI / 180.0)
            self.member_axes[0].append(c)
            self.member_axes[1].append(tuple(cos * p[i] + sin * q[i] for i in range(3)))
            self.member_axes[2].append(tuple(cos * q[i] - sin * p[i] for i in range(3)))
        self.log("Ends setting member info...\n")

    def reference_axes(self, c):
        """The local y and z axes of an unturned member along c."""
        cx, cy, cz = c
        if self.z_up:
            u = (-cy, -cx, 0.0)  # both signs are meant, although u is then often not square to c
            s = square_root(cx * cx + cy * cy)
            if s >= 1e-6:
                u = tuple(divide(v, s) for v in u)
            else:
                u = (-cy, 1.0, 0.0)
            return u, cross(c, u)
        w = (-cz, 0.0, cx)
        s = square_root(cz * cz + cx * cx)
        if s >= 1e-6:
            w = tuple(divide(v, s) for v in w)
        else:
            w = (-cz, 0.0, 1.0)
        return cross(w, c), w

    # Floors and stories

    def member_levels(self, number, while_doing):
        """Start node, end node and their heights; a node that is not there ends the run."""
        start, end = self.host.incidence(number)
        i, j = self.find_node(start), self.find_node(end)
        if i < 0 or j < 0:
            self.warn("Node number is not set correctly as setting " + while_doing + "...")
        return (start, end, self.height_of(at(self.node_coords, i)),
                self.height_of(at(self.node_coords, j)))

    def lower_node(self, number):
        start, end, low, high = self.member_levels(number, "lower node number")
        return start if high > low else end

    def upper_node(self, number):
        start, end, first, second = self.member_levels(number, "upper node number")
        return start if first > second else end

    def member_height(self, number):
        _, _, first, second = self.member_levels(number, "member height")
        return abs(first - second)

    def set_floors(self):
        self.log("\nStarts setting floor info...\n")
        self.read_levels()
        if not self.levels_set:
            self.levels_derived = True
            self.levels.append(self.base_level)
            for number in self.member_numbers:
                _, _, first, second = self.member_levels(number, "floor")
                if abs(first - second) < 0.1 and first > self.levels[0]:
                    self.levels.append(first)
            self.levels_set = True
        self.levels.sort()
        different = []
        for level in self.levels:
            if not different or level != different[-1]:
                different.append(level)
        self.levels = different
        self.log("Floor info. :\n")
        for k, level in enumerate(self.levels):
            self.log("  %d-th floor level(mm) = %.2f\n" % (k + 1, level))
        self.log("Ends setting floor info...\n")

    def set_stories(self):
        self.log("\nStarts setting story info...\n")
        for i in range(len(self.levels) - 1):
            self.stories.append(Story(self.levels[i], self.levels[i + 1]))
        self.read_story_members()
        if not self.stories_set:
            self.members_derived = True
            self.select_story_members()
        self.read_output_flags()
        self.read_allowable_values()
        self.story_member_axes()
        self.log("\nEnds setting story info...\n")

    def select_story_members(self):
        for story in self.stories:
            for number in self.member_numbers:
                start, end = self.host.incidence(number)
                i, j = self.find_node(start), self.find_node(end)
                if i < 0 or j < 0:
                    self.warn("Node number is not set correctly. Stops setting story member...")
                    return
                a = self.height_of(self.node_coords[i])
                b = self.height_of(self.node_coords[j])
                if a > b:
                    lower, upper, low, high, coords = end, start, b, a, self.node_coords[j]
                else:
                    lower, upper, low, high, coords = start, end, a, b, self.node_coords[i]
                if abs(story.lower - low) < 0.1 and abs(story.upper - high) < 0.1:
                    for load_case in self.load_cases:
                        story.members.append(Member(load_case, number, lower, upper, coords[0],
                                                    self.plan_z(coords)))
        self.stories_set = True

    def story_member_axes(self):
        self.log("\nStarts setting story member base vector...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting member base vector...")
            return
        for story in self.stories:
            for record in story.members:
                for k, number in enumerate(self.member_numbers):
                    if number == record.number:  # of equal numbers the last one stays
                        record.axes = [at(axis, k) for axis in self.member_axes]
        self.log("Ends setting story member base vector...\n")

    # The checks

    def relative_displacements(self):
        self.log("\nStarts setting relative story displacement...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting relative story displacement...")
            return
        unit = 25.4 if self.inches else 1000.0
        for story in self.stories:
            for record in story.members:
                low = self.host.displacement(record.lower, record.load_case)
                up = self.host.displacement(record.upper, record.load_case)
                member_height = self.member_height(record.number)
                ratio = 1.0
                if not abs(member_height - story.height) < 0.1:
                    ratio = divide(member_height, story.height)
                for axis, component in ((0, 0), (1, 1 if self.z_up else 2)):
                    value = unit * ((up[component] - low[component]) * ratio)
                    record.disp[axis] = 0.0 if abs(value) < 0.01 else value
        for story in self.stories:
            for axis in (0, 1):
                self.reduce_story(story, axis)
        self.log("Ends setting relative story displacement...\n")

    def reduce_story(self, story, axis):
        n = self.num_primary + self.num_combinations
        story.max_all[axis] = 0.0
        story.mean_all[axis] = 0.0
        story.max_by_load[axis] = [0.0] * n
        story.mean_by_load[axis] = [0.0] * n
        total, largest = 0.0, NOTHING_YET
        totals, maxima = [0.0] * n, [NOTHING_YET] * n
        for record in story.members:
            value = record.disp[axis]
            total += value
            if value > largest:
                largest = value
            for i in range(n):
                if at(self.load_cases, i) == record.load_case:
                    totals[i] += value
                    if value > maxima[i]:
                        maxima[i] = value
        count = len(story.members)
        if count > 0:
            story.max_all[axis] = largest
            story.mean_all[axis] = total / float(count)
            records_of_one_case = float(count // n)
            for i in range(n):
                story.max_by_load[axis][i] = maxima[i]
                story.mean_by_load[axis][i] = divide(totals[i], records_of_one_case)

    def rs_bar(self):
        self.log("\nStarts setting Rs bar...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting Rs bar...")
            return

        def term(disp, height, test_height):
            if test_height and not height > 0.0:
                return 0.0
            r = divide(disp, height)
            return 0.0 if r == 0.0 else divide(1.0, r)

        count = len(self.stories)
        sum_max, sum_mean = [0.0, 0.0], [0.0, 0.0]
        for story in self.stories:
            for axis in (0, 1):  # only X looks at the height first
                sum_max[axis] += term(story.max_all[axis], story.height, axis == 0)
                sum_mean[axis] += term(story.mean_all[axis], story.height, axis == 0)
        if count > 0:
            self.rs_max = [value / float(count) for value in sum_max]
            self.rs_mean = [value / float(count) for value in sum_mean]
        factor = 1.0 / float(count) if count > 0 else 0.0
        for i in range(self.num_primary + self.num_combinations):
            for axis in (0, 1):
                acc_max = acc_mean = 0.0
                for story in self.stories:
                    acc_max += term(at(story.max_by_load[axis], i), story.height, True)
                    acc_mean += term(at(story.mean_by_load[axis], i), story.height, True)
                self.rs_max_by_load[axis].append(factor * acc_max)
                self.rs_mean_by_load[axis].append(factor * acc_mean)
        self.log("Ends setting Rs bar...\n")

    def gravity_center(self):
        self.log("\nStarts setting gravity center...\n")
        if not self.nodes_set:
            self.warn("Node info. has not set yet. Stops setting gravity center...")
            return
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting gravity center...")
            return
        for k, story in enumerate(self.stories):
            cut = story.lower + (story.upper - story.lower) / 10.0
            weight, moment_x, moment_z = 0.0, 0.0, 0.0
            story.cut_members, story.cut_forces = [], []
            for j, number in enumerate(self.member_numbers):
                start, _ = self.host.incidence(number)
                lower = self.lower_node(number)
                upper = self.upper_node(number)
                low = self.node_coords[self.find_node(lower)]
                up = self.node_coords[self.find_node(upper)]
                if not (self.height_of(low) < cut and self.height_of(up) >= cut):
                    continue
                force = self.host.end_force(number, 0 if start == lower else 1, self.dead_case)
                story.cut_members.append(j)
                story.cut_forces.append(force)
                axes = [self.height_of(at(axis, j)) for axis in self.member_axes]
                w = force[0] * axes[0] + force[1] * axes[1] + force[2] * axes[2]
                if self.inches:
                    w = w * KIP_TO_KN
                weight += w
                moment_x += w * low[0]
                moment_z += w * self.plan_z(low)
            story.weight = weight
            if abs(weight) >= 1e-06:
                story.gravity = [divide(moment_x, weight), divide(moment_z, weight)]
            else:
                self.warn("Total weight is nearly equal to 0 as setting gravity center of %d-th "
                          "story. Gravity center is set as (0, 0)." % (k + 1))
                story.gravity = [0.0, 0.0]
        self.log("Ends setting gravity center...\n")

    def story_shear(self):
        self.log("\nStarts setting story member shear force...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting member base vector...")
            return
        for story in self.stories:
            for record in story.members:
                start, _ = self.host.incidence(record.number)
                end = 0 if start == record.lower else 1
                for axis, component in ((0, 0), (1, 1 if self.z_up else 2)):
                    force = self.host.end_force(record.number, end, self.quake_case[axis])
                    g = (force[0] * record.axes[0][component] + force[1] * record.axes[1][component]
                         + force[2] * record.axes[2][component])
                    record.shear[axis] = g * -KIP_TO_KN if self.inches else -g
        self.log("Ends setting story member shear force...\n")

    def horizontal_stiffness(self):
        self.log("\nStarts setting story member horizontal stiffness...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting story member horizontal "
                      "stiffness...")
            return
        for story in self.stories:
            for record in story.members:
                if record.load_case == self.quake_case[0]:
                    axis = 0
                elif record.load_case == self.quake_case[1]:
                    axis = 1
                else:
                    record.stiffness = [0.0, 0.0]
                    continue
                disp = record.disp[axis]
                record.stiffness[axis] = 0.0 if disp == 0.0 else record.shear[axis] / disp
        self.log("Ends setting story member horizontal stiffness...\n")

    def rigidity_center(self):
        self.log("\nStarts setting center of rigidity...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting center of rigidity...")
            return
        for k, story in enumerate(self.stories):
            kx = kz = moment_of_kx = moment_of_kz = 0.0
            for record in story.members:
                if record.load_case == self.quake_case[0]:
                    kx += record.stiffness[0]
                    moment_of_kx += record.stiffness[0] * record.plan_z
                elif record.load_case == self.quake_case[1]:
                    kz += record.stiffness[1]
                    moment_of_kz += record.stiffness[1] * record.plan_x
            story.total_stiffness = [kx, kz]
            if abs(kz) >= 1e-06:
                story.rigidity[0] = divide(moment_of_kz, kz)
            else:
                self.warn("Total stiffness(Kz) is nearly equal to 0 as setting rigidity center of "
                          "%d-th story. X coord. of rigidity center is set as 0." % (k + 1))
                story.rigidity[0] = 0.0
            if abs(kx) < 1e-06:
                self.warn("Total stiffness(Kx) is nearly equal to 0 as setting rigidity center of "
                          "%d-th story. Z(or Y) coord. of rigidity center is set as 0." % (k + 1))
            story.rigidity[1] = divide(moment_of_kx, kx)  # the warning notwithstanding
        self.log("Ends setting center of rigidity...\n")

    def eccentricity_modulus(self):
        self.log("\nStarts setting eccentricity modulus...\n")
        if not self.stories_set:
            self.warn("Story info. has not set yet. Stops setting eccentricity modulus...")
            return
        for k, story in enumerate(self.stories):
            self.story_modulus(k + 1, story)
        self.log("Ends setting eccentricity modulus...\n")

    def story_modulus(self, number, story):
        rx, rz = story.rigidity
        gx, gz = story.gravity
        kx = kz = tx = tz = 0.0
        for record in story.members:
            if record.load_case == self.quake_case[0]:
                kx += record.stiffness[0]
                tx += record.stiffness[0] * (record.plan_z - rz) * (record.plan_z - rz)
            if record.load_case == self.quake_case[1]:
                kz += record.stiffness[1]
                tz += record.stiffness[1] * (record.plan_x - rx) * (record.plan_x - rx)
        kr = tz + tx
        story.torsional_stiffness = kr
        if abs(kr) < 1e-06 or kr < 0.0:
            self.warn("Totional stiffness(KR) is less than or equal to 0 as setting eccentricity "
                      "modulus of %d-th story. Eccentricity modulus is set as 0." % number)
            story.modulus = [0.0, 0.0]
            return
        if abs(kx) >= 1e-06:
            radius = square_root(divide(kr, kx))
            story.modulus[0] = 0.0 if radius == 0.0 else divide(abs(rz - gz), radius)
        else:
            self.warn("Total stiffness(Kx) is nearly equal to 0 as setting eccentricity modulus "
                      "of %d-th story. Eccentricity modulus in X direc. is set as 0." % number)
            story.modulus[0] = 0.0
        if abs(kz) < 1e-06:
            self.warn("Total stiffness(Kz) is nearly equal to 0 as setting eccentricity modulus "
                      "of %d-th story. Eccentricity modulus in Z direc. is set as 0." % number)
            story.modulus[1] = 0.0
        else:
            radius = square_root(divide(kr, kz))
            story.modulus[1] = 0.0 if radius == 0.0 else divide(abs(rx - gx), radius)

    # The results file

    def print_results(self):
        self.log("\nStarts printing story info in csv style...\n")
        if os.path.isdir(self.results_path):
            self.warn("Cannot open result file %s." % self.results_path)
            return
        self.results_text = b""
        self.verdict = "***"
        self.print_angles()
        self.print_member_angles()
        self.print_ratios()
        levels = "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),"
        self.put("\n -----  Gravity center  ----- \n")
        self.put(levels + "X coord of gravity center,Z(or Y) coord of gravity center\n")
        for s, story in enumerate(self.stories):
            self.put("%d,%.3e,%.3e,%.3e,%.5e,%.5e\n" % (
                s + 1, story.lower, story.upper, story.height, *story.gravity))
        self.put("\n -----  Center of rigidity  ----- \n")
        self.put(levels + "X coord of rigidity center,Z(or Y) coord of rigidity center\n")
        for s, story in enumerate(self.stories):
            self.put("%d,%.3e,%.3e,%.3e,%.5e,%.5e\n" % (
                s + 1, story.lower, story.upper, story.height, *story.rigidity))
        self.put("\n -----  Eccentricity modulus  ----- \n")
        self.put(levels + "Eccentricity Mod(X),Eccentricity Mod(Z(or Y)),"
                 "Allowable Eccenticity Mod,Result(X),Result(Z(or Y))\n")
        for s, story in enumerate(self.stories):
            allow = story.allow_modulus
            self.put("%d,%.3e,%.3e,%.3e,%.5e,%.5e,%.5e,%s,%s\n" % (
                s + 1, story.lower, story.upper, story.height, *story.modulus, allow,
                pass_or_fail(allow > story.modulus[0]), pass_or_fail(allow > story.modulus[1])))
        self.log("Ends printing story info in csv style...\n")

    def blocks(self):
        """Direction, kind of displacement, and the fields they stand for, in printing order."""
        for axis, direction in ((0, "X"), (1, "Z(or Y)")):
            yield (axis, direction, "Average", "mean_by_load", "mean_all",
                   self.rs_mean_by_load[axis], self.rs_mean[axis])
            yield (axis, direction, "Max", "max_by_load", "max_all",
                   self.rs_max_by_load[axis], self.rs_max[axis])

    def block_head(self, direction, kind, what):
        self.put("\nDirection %s\nDisp type : %s\n" % (direction, kind))
        self.put("Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),"
                 "Relative story disp.(mm),%s,Result\n" % what)

    def block_row(self, s, load, disp, value, allow):
        story = self.stories[s]
        self.put("%d,%s,%.3e,%.3e,%.3e,%.5e,%.5e,%.5e,%s\n" % (
            s + 1, load, story.lower, story.upper, story.height, disp, value, allow, self.verdict))

    def print_angles(self):
        self.put("\n -----  Story deformation angle  ----- \n")
        for axis, direction, kind, by_load, all_loads, _, _ in self.blocks():
            self.block_head(direction, kind, "Story deform angle,Allowable story deform angle")
            judged = not (axis == 0 and kind == "Max")
            for s, story in enumerate(self.stories):
                if not story.members:
                    continue
                h, allow = story.height, story.allow_angle
                for k in range(self.num_primary + self.num_combinations):
                    disp = at(getattr(story, by_load)[axis], k)
                    angle = divide(disp, h) if h > 0.0 else 0.0
                    if judged:
                        self.verdict = pass_or_fail(allow > angle)
                    self.block_row(s, at(self.load_cases, k), disp, angle, allow)
                disp = getattr(story, all_loads)[axis]
                angle = divide(disp, h) if h > 0.0 or axis == 1 else 0.0
                if judged:
                    self.verdict = pass_or_fail(allow > angle)
                self.block_row(s, "All", disp, angle, allow)

    def print_member_angles(self):
        self.put("\n -----  Story deformation angle of specified member ----- \n")
        self.put("Story,Load,Member,Story height(mm),Direction,Story deform angle,"
                 "Allowable story deform angle,Result\n")
        for s, story in enumerate(self.stories):
            h, allow = story.height, story.allow_angle
            for axis, direction in ((0, "X"), (1, "Z( or Y)")):
                for k in range(self.num_primary + self.num_combinations):
                    for record in story.members:
                        if record.load_case != at(self.load_cases, k) or not record.print_angle:
                            continue
                        angle = 0.0 if h == 0.0 else divide(record.disp[axis], h)
                        self.verdict = pass_or_fail(allow > angle)
                        self.put("%d,%d,%d,%.3e,%s,%.5e,%.5e,%s\n" % (
                            s + 1, k + 1, record.number, h, direction, angle, allow, self.verdict))

    def print_ratios(self):
        self.put("\n -----  Story stiffness ratio  ----- \n")

        def ratio_x(disp, h, bar):
            product = (divide(disp, h) if h > 0.0 else 0.0) * bar
            return 0.0 if product == 0.0 else divide(1.0, product)

        def ratio_z(disp, h, bar, test_height):
            angle = divide(disp, h) if h > 0.0 or not test_height else 0.0
            if angle == 0.0 or bar == 0.0:
                return 0.0
            return divide(divide(1.0, angle), bar)

        for axis, direction, kind, by_load, all_loads, bars, bar in self.blocks():
            self.block_head(direction, kind,
                            "Story stiffness ratio,Allowable story stiffness ratio")
            for s, story in enumerate(self.stories):
                if not story.members:
                    continue
                h, allow = story.height, story.allow_ratio
                for k in range(self.num_primary + self.num_combinations):
                    disp = at(getattr(story, by_load)[axis], k)
                    ratio = (ratio_x(disp, h, at(bars, k)) if axis == 0
                             else ratio_z(disp, h, at(bars, k), True))
                    self.verdict = pass_or_fail(ratio > allow)
                    self.block_row(s, at(self.load_cases, k), disp, ratio, allow)
                disp = getattr(story, all_loads)[axis]
                ratio = ratio_x(disp, h, bar) if axis == 0 else ratio_z(disp, h, bar, False)
                self.verdict = pass_or_fail(ratio > allow)
                self.block_row(s, "All", disp, ratio, allow)


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def pass_or_fail(condition):
    return "PASS" if condition else "FAIL"


def compute(model_path, input_path):
    """The run's status lines, log and results; a text is None when its file would not be made."""
    run = Run(model_path, input_path)
    run.execute()
    return run.status, run.log_text, run.results_text


def main():
    parser = argparse.ArgumentParser(description="What a run must show and write.")
    parser.add_argument("model", help="host model file")
    parser.add_argument("input", help="Route 2 Input file")
    parser.add_argument("--log", help="write the log's text here")
    parser.add_argument("--results", help="write the results' text here")
    options = parser.parse_args()
    status, log, results = compute(options.model, options.input)
    for line in status:
        print(line)
    for path, text in ((options.log, log), (options.results, results)):
        if path is not None and text is not None:
            with open(path, "wb") as file:
                file.write(text)
    return 0 if "Calculation Complete" in status else 1


if __name__ == "__main__":
    sys.exit(main())
