"""Runs of the tool on copies of example buildings, and what they report."""

import csv
import json
import pathlib
import shutil
import subprocess
import tempfile


class ToolRun:
    """One run of `quarnel-cli check --json` on copies of a model and an input file.

    `results` is the results file by section, direction, displacement type, story and load;
    `log_lines` is the log, `log_warnings` its warnings; `stories` are the figures, lowest first.
    """

    def __init__(self, cli, model, input_file):
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder) / "building.qhm"
            shutil.copyfile(model, copy)
            command_line = [str(copy), str(shutil.copy(input_file, folder))]
            figures = pathlib.Path(folder) / "figures.json"
            run([cli, "check", *command_line, "--json", str(figures)])
            self.stories = json.loads(figures.read_text(encoding="utf-8"))["stories"]
            results = (pathlib.Path(folder) / "building.aijR2Result.csv").read_text()
            log = (pathlib.Path(folder) / "building.aijR2Log.txt").read_text()
        self.results_lines = results.splitlines()
        self.results = read_results(self.results_lines)
        marker = "*** WARNING *** : "
        self.log_lines = log.splitlines()
        self.log_warnings = [line[len(marker):] for line in self.log_lines
                             if line.startswith(marker)]

    def row(self, section, story, load=None, direction=None, disp_type=None):
        """The cells of one row, by column heading."""
        return self.results[section, direction, disp_type, str(story), load]

    def value(self, key, story):
        """Unrounded figure, such as "gravityCenter_mm.x" or "meanDrift_mm.z"; stories count
        from 0. Not a number where it was not formed."""
        here = self.stories[story]
        name, _, axis = key.partition(".")
        position = "xz".index(axis) if axis else 0
        if name == "stiffnessTimesArm":
            arm = ("v_mm", "x_mm")[position]
            return sum(member["stiffness_kNpmm"][position] * member[arm]
                       for member in here["members"])
        if name == "maxDrift_mm":
            figure = here[("x", "second")[position]]["toolMax"]["drift_mm"]
        elif not axis:
            figure = here[name]
        elif name in here:
            figure = here[name][position]
        else:
            figure = here[("x", "second")[position]][name]
        return float("nan") if figure is None else figure


def run(command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise SystemExit(f"{' '.join(command)} ended with {done.returncode}:\n{done.stderr}")
    return done.stdout


def read_results(lines):
    rows = {}
    section = direction = disp_type = heading = None
    for line in lines:
        if line.startswith(" -----  "):
            section = line[len(" -----  "):].split(" -----")[0].strip()
            direction = disp_type = heading = None
        elif line.startswith("Direction "):
            direction, heading = line[len("Direction "):], None
        elif line.startswith("Disp type : "):
            disp_type = line[len("Disp type : "):]
        elif line.startswith("Story,"):
            heading = line.split(",")
        elif line and heading:
            cells = dict(zip(heading, next(csv.reader([line]))))
            load = cells.get("Load")
            if "Member" in cells:  # several members and both directions in one table
                load = (load, cells["Member"], cells["Direction"])
            rows[section, direction, disp_type, cells["Story"], load] = cells
    return rows
