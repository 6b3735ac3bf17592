#!/usr/bin/env python3
"""Runs the commands of docs/batch.md that go beyond `batch`: with GNU parallel, and the script of the
array, task by task. Both must leave what `batch` leaves.

    check_batch_page.py QUARNEL_CLI
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from markdown import ROOT, fail_with

PAGE = ROOT / "docs" / "batch.md"
JOBS = """name,model,input,title
two,buildings/two_story_y_up.qhm,buildings/two_story_y_up.csv,Two stories
five,buildings/five_story_office_z_up.qhm,buildings/five_story_office_z_up.csv,
columns,buildings/five_story_office_z_up.qhm,buildings/five_story_office_z_up.columns.csv,
"""


def code_blocks():
    return re.findall(r"```sh\n(.*?)```", PAGE.read_text(encoding="utf-8"), re.DOTALL)


def block_with(text):
    (block,) = [block for block in code_blocks() if text in block]
    return block


def run(command, folder, path, **variables):
    environment = {**os.environ, "PATH": f"{path}{os.pathsep}{os.environ['PATH']}",
                   "HOME": str(folder), **variables}
    done = subprocess.run(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


def left_in(folder):
    """What a job has left: its results to the byte, and its verdict."""
    found = {}
    for job in sorted(path for path in folder.iterdir() if path.is_dir()):
        figures = json.loads((job / "figures.json").read_text(encoding="utf-8"))
        (results,) = job.glob("*.aijR2Result.csv")
        found[job.name] = (results.name, results.read_bytes(), figures["verdict"],
                           (job / "sheet.html").stat().st_size > 0)
    return found


def problems(quarnel_cli):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "buildings").mkdir()
        for file in [*ROOT.glob("examples/*.qhm"), *ROOT.glob("examples/*.csv")]:
            shutil.copy(file, folder / "buildings")
        (folder / "jobs.csv").write_text(JOBS, encoding="utf-8")
        path = pathlib.Path(quarnel_cli).resolve().parent
        code, text = run(["quarnel-cli", "batch", "jobs.csv"], folder, path)
        if code != 3:
            yield f"batch ended with {code}:\n{text}"
            return
        expected = left_in(folder / "jobs")

        code, text = run(["bash", "-c", block_with("parallel --colsep")], folder, path)
        if code != 0 or left_in(folder / "out") != expected:
            yield f"GNU parallel left something else than batch, exit code {code}:\n{text}"

        shutil.rmtree(folder / "out", ignore_errors=True)
        (folder / "sheets.sh").write_text(block_with("#SBATCH"), encoding="utf-8")
        for task in range(1, JOBS.count("\n")):
            run(["sh", "sheets.sh"], folder, path, SLURM_ARRAY_TASK_ID=str(task))
        if left_in(folder / "out") != expected:
            yield "the script of the array left something else than batch"


if __name__ == "__main__":
    sys.exit(fail_with(problems(sys.argv[1])))
