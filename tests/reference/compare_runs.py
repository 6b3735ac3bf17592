#!/usr/bin/env python3
"""Holds quarnel-cli against the second calculation, on random buildings.

    compare_runs.py --cli PATH/quarnel-cli --seeds FROM TO [--work DIR] [--launcher wine]

For every seed from FROM up to and including TO: makes the building, lets `quarnel-cli check` and
the second calculation run on it, and compares the status lines, the exit code, the log and the
results byte for byte, then the figures, verdicts and remarks, the flat tables and what the terminal
says of them. Every fifth building (--sheets 1: each) gets its calculation sheet, too, whose cells
are held against the figures. The first difference of a seed is printed and its files are kept under DIR. The last
line says how many seeds passed and failed; the exit code is 0 when all passed.

With --launcher the program is started through another one, and CR LF line ends count as LF:
`--launcher wine` tests the Windows program.
"""

import argparse
import json
import multiprocessing
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import compare_figures
import random_building
import reference_figures
import reference_print
import reference_run

STATUS_LINES = {
    "Input not specified!", "Input does not exist",
    "Unable to establish connection with ORVEK.Pro!", "Failed to initialize AijCodeRoute2...",
    "Preparing for calculation...", "Setting load information...", "Setting node information...",
    "Setting member information...", "Setting floor information...",
    "Setting story information...", "Calculating relative displacements...",
    "Calculating story stiffness ratio...", "Calculating ceter of gravity...",
    "Calculating story shear...", "Calculating horizontal story stiffness...",
    "Calculating ceter of rigidity...", "Calculating eccentricity modulus...", "Saving output...",
    "Calculation Complete", "ORVEK analysis results are not available.",
    "Please run analysis first.", "Wrong file path...", "Exception was thrown...",
    "Finishes process...", "Closing error log file...",
}
DATE = "2026-11-21 10:00"
OUTPUTS = {"--json": "figures.json", "--table": "stories.csv", "--table-members": "members.csv"}
SHEET = "sheet.html"
MODEL_NAMES = ["model.qhm", "./model.qhm", "{folder}/model.qhm", "a tower.qhm"]
INPUT_NAMES = ["input.csv", "./input.csv", "{folder}/input.csv", "route 2"]


def contents(path, launcher):
    if not os.path.isfile(path):
        return None
    with open(path, "rb") as file:
        text = file.read()
    return text.replace(b"\r\n", b"\n") if launcher else text


def describe(text):
    return "no file" if text is None else "%d bytes" % len(text)


def difference(what, expected, got):
    """One line on the first place where two texts differ; None when they are the same."""
    if expected == got:
        return None
    if expected is None or got is None:
        return "%s: expected %s, got %s" % (what, describe(expected), describe(got))
    wanted, seen = expected.split(b"\n"), got.split(b"\n")
    for number in range(max(len(wanted), len(seen))):
        a = wanted[number] if number < len(wanted) else b"(end of file)"
        b = seen[number] if number < len(seen) else b"(end of file)"
        if a != b:
            return "%s line %d:\n    expected %r\n    got      %r" % (what, number + 1, a, b)
    return "%s differs" % what


def compare_seed(cli, launcher, seed, folder, sheets):
    """What the first difference is, or None."""
    model = MODEL_NAMES[seed % len(MODEL_NAMES)].format(folder=folder)
    input_file = INPUT_NAMES[seed // 4 % len(INPUT_NAMES)].format(folder=folder)
    os.makedirs(folder)
    os.chdir(folder)
    fatal = random_building.write_building(seed, model, input_file)
    second = reference_run.Run(model, input_file)
    second.execute()
    status, log, results = second.status, second.log_text, second.results_text
    command = launcher + [cli, "check", model, input_file, "--date", DATE]
    for option, name in OUTPUTS.items():
        command += [option, name]
    try:
        run = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.PIPE, timeout=60, check=False)
    except subprocess.TimeoutExpired:
        return fatal, "no end within a minute"
    printed = run.stdout.decode("utf-8", "replace").replace("\r\n", "\n")
    printed = printed.split("\n")
    shown = []
    for line in printed:
        if line not in STATUS_LINES:
            break
        shown.append(line)
    stem = model[:-3]
    found = difference("status lines", "\n".join(status).encode(), "\n".join(shown).encode())
    found = found or difference("log", log, contents(stem + "aijR2Log.txt", launcher))
    found = found or difference("results", results, contents(stem + "aijR2Result.csv", launcher))
    exit_code = 0 if "Calculation Complete" in status else 1
    if found is None and run.returncode != exit_code:
        found = "exit code: expected %d, got %d" % (exit_code, run.returncode)
    if found is None:
        found = differing_figures(second, model, run)
    if found is None and sheets and seed % sheets == 0 and os.path.exists(OUTPUTS["--json"]):
        found = differing_sheet(launcher + [cli, "sheet", model, input_file], model)
    if found is not None:
        found += "\n    error output %r" % run.stderr[:300]
        for path, text in (("expected.log", log), ("expected.csv", results)):
            if text is not None:
                with open(path, "wb") as file:
                    file.write(text)
    return fatal, found


def differing_figures(second, model, run):
    """The first difference of the figures in whatever form, or None."""
    texts = {}
    for option, name in OUTPUTS.items():
        texts[option] = contents(name, None)
    with open(model, encoding="utf-8") as file:
        document = json.load(file)
    terminal = run.stdout.decode("utf-8", "replace").replace("\r\n", "\n")
    return compare_figures.difference(
        reference_figures.document_of(second, DATE), texts["--json"],
        (texts["--table"], texts["--table-members"]),
        # Without a log nothing is said of what was found.
        None if second.log_text is None else terminal,
        run.stderr.decode("utf-8", "replace").replace("\r\n", "\n").split("\n"), document)


def differing_sheet(command, model):
    """The first cell of the sheet that differs from the figures, or None."""
    run = subprocess.run(command + [SHEET, "--date", DATE, "--json", "again.json"],
                         stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                         stderr=subprocess.PIPE, timeout=60, check=False)
    figures, again = contents(OUTPUTS["--json"], None), contents("again.json", None)
    if figures != again:
        return "figures of the sheet's run: " + difference("they", figures, again)
    with open(model, encoding="utf-8") as file:
        if not compare_figures.is_a_building(json.load(file)):
            return None
    document, text = json.loads(figures), contents(SHEET, None)
    if text is None:
        return None if run.returncode == 1 and not document["stories"] else "no sheet"
    if any(story["height_mm"] is None for story in document["stories"]):
        return None  # a floor at infinity
    return reference_print.difference(document, text.decode("utf-8"))


def work_on(job):
    cli, launcher, seed, work, sheets = job
    folder = os.path.join(work, "seed-%d" % seed)
    shutil.rmtree(folder, ignore_errors=True)
    try:
        fatal, found = compare_seed(cli, launcher, seed, folder, sheets)
    except Exception as error:  # a fault of this comparison is a failed seed, not a lost one
        fatal, found = None, "the comparison itself failed: %r" % error
    os.chdir(work)
    if found is None:
        shutil.rmtree(folder)
    return seed, fatal, found


def main():
    parser = argparse.ArgumentParser(description="Compares quarnel-cli with a second calculation.")
    parser.add_argument("--cli", required=True, help="the quarnel-cli to test")
    parser.add_argument("--seeds", required=True, nargs=2, type=int, metavar=("FROM", "TO"))
    parser.add_argument("--work", help="folder for the files of seeds that differ")
    parser.add_argument("--launcher", help="start the program through this one")
    parser.add_argument("--processes", type=int, default=2)
    parser.add_argument("--sheets", type=int, default=5, metavar="N",
                        help="a sheet of every N-th building; 0: none")
    options = parser.parse_args()
    cli = os.path.abspath(options.cli)
    if not (os.path.isfile(cli) and (options.launcher or os.access(cli, os.X_OK))):
        parser.error("%s is not a program; build it first" % options.cli)
    work = os.path.abspath(options.work or tempfile.mkdtemp(prefix="compare-runs-"))
    os.makedirs(work, exist_ok=True)
    passed = failed = 0
    launcher = [options.launcher] if options.launcher else []
    jobs = ((cli, launcher, seed, work, options.sheets)
            for seed in range(options.seeds[0], options.seeds[1] + 1))
    with multiprocessing.Pool(options.processes) as pool:
        for seed, fatal, found in pool.imap(work_on, jobs, chunksize=8):
            if found is None:
                passed += 1
                continue
            failed += 1
            print("seed %d (%s): %s\n    files in %s" % (
                seed, fatal or "nothing wrong on purpose", found,
                os.path.join(work, "seed-%d" % seed)), flush=True)
    if options.work is None and failed == 0:
        shutil.rmtree(work)
    print("%d passed, %d failed" % (passed, failed))
    return 0 if failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
