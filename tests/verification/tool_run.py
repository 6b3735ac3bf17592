"""Runs of the tool on copies of example buildings, and what they report."""

import csv
import json
import pathlib
import shutil
import subprocess
import tempfile


class ToolRun:
    """One run of `quarnel-cli check` and of `story-values` on copies of a model and an input file.

    `results` is the results file by section, direction, displacement type, story and load;
    `log_lines` is the log, `log_warnings` its warnings; `values` are the unrounded values per story.
    """

    def __init__(self, cli, story_values, model, input_file):
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder) / "building.qhm"
            shutil.copyfile(model, copy)
            command_line = [str(copy), str(shutil.copy(input_file, folder))]
            self.values = None
            if story_values:
                self.values = json.loads(run([story_values, *command_line]))
            run([cli, "check", *command_line])
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
        """Unrounded value, such as "gravityCenter.x"; stories count from 0."""
        here = self.values[story]
        if key.startswith("angle."):
            axis = key[-1]
            return here["mean"][axis] / here["height"]
        if key.startswith("ratio."):
            axis = key[-1]
            return here["height"] / here["mean"][axis] / here["rsBar"][axis]
        for part in key.split("."):
            here = here[part]
        return float("nan") if here is None else here


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
