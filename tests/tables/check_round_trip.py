#!/usr/bin/env python3
"""Exports buildings as tables, imports them, and expects the same run to the byte.

    check_round_trip.py --cli PATH/quarnel-cli [--launcher wine] [--seeds N]

All recorded buildings of the project, and random ones. Random buildings hold what tables cannot:
numbers that stand twice (export refuses them), members without a node or without length (import
does): more than half of them. At least a quarter makes the round, and to the byte.
"""

import argparse
import json
import pathlib
import shutil
import sys
import tempfile

import tool as tools

sys.path.insert(0, str(tools.ROOT / "tests" / "reference"))
import random_building  # noqa: E402

# Why a building may not make the round.
REFUSED_BY_EXPORT = ("stands twice in the model", "is not analysed", "says nothing", "say nothing")
REFUSED_BY_IMPORT = ("unknown node", "has no length", "too large a number")
# A recording that was made for one input file lacks what that run did not ask.
LACKING_ANSWERS = ("no forces", "no displacement")


def run_of(tool, model, input_file):
    """All that a run leaves, and its status lines; what it leaves is gone then. What is printed
    behind them may remark that a model file does not list an answer: tables list them all."""
    run = tool.run("check", model, input_file)
    found = {"exit code": run.returncode, "status lines": run.stdout.split("\n\n")[0], "errors": run.stderr}
    for path in model.parent.iterdir():
        if path.is_file() and path != model:
            found[path.name] = path.read_bytes()
            path.unlink()
    return found


def differences(one, other):
    return [name for name in sorted(set(one) | set(other)) if one.get(name) != other.get(name)]


def make_round(tool, folder, model, input_file):
    """None when the run is the same; else what is wrong, or that the building was refused."""
    tables, again = folder / "tables", folder / "again.qhm"
    run = tool.run("export", model, tables)
    if run.returncode != 0:
        is_meant = any(text in run.stderr for text in REFUSED_BY_EXPORT)
        return "refused" if is_meant and not tables.exists() else f"export: {run.stderr}"
    # Random forces need not be those of a building.
    run = tool.run("import", tables, again, "--force")
    if run.returncode != 0:
        meant = REFUSED_BY_IMPORT
        if "recordedFor" in json.loads(model.read_text(encoding="utf-8")):
            meant += LACKING_ANSWERS
        is_meant = any(text in run.stderr for text in meant)
        return "refused" if is_meant and not again.exists() else f"import: {run.stderr}"
    expected = run_of(tool, model, input_file)
    shutil.move(again, model)
    other = differences(expected, run_of(tool, model, input_file))
    return f"other {', '.join(other)}" if other else None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--cli", required=True)
    parser.add_argument("--launcher")
    parser.add_argument("--seeds", type=int, default=300)
    arguments = parser.parse_args()
    tool, checks = tools.Tool(arguments.cli, arguments.launcher), tools.Checks()
    refused = 0
    recorded = sorted(p for place in ("examples", "examples/published",
                                      "tests/verification/closed_form")
                      for p in (tools.ROOT / place).glob("*.qhm"))
    for job in recorded + list(range(1, arguments.seeds + 1)):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name) / "job"
            (folder / "first").mkdir(parents=True)
            model, input_file = folder / "first" / "model.qhm", folder / "input.csv"
            if isinstance(job, int):
                random_building.write_building(job, str(model), str(input_file))
            else:
                shutil.copy(job, model)
                shutil.copy(job.with_suffix(".csv"), input_file)
            wrong = make_round(tool, folder, model, input_file)
            refused += wrong == "refused"
            checks.expect(wrong in (None, "refused"), f"{job}: {wrong}")
            checks.expect(wrong != "refused" or isinstance(job, int), f"{job}: refused")
    print(f"{refused} random buildings refused")
    checks.expect(arguments.seeds - refused >= arguments.seeds // 4, "too many buildings are refused")
    checks.finish()


if __name__ == "__main__":
    main()
