#!/usr/bin/env python3
"""Writes the closed-form cases as host models into closed_form/ beside this file, and the building of the
manual's worked example.

    make_closed_form_models.py [--check]

--check writes nothing and fails when a file is not what this program would write.
"""

import pathlib
import sys

import closed_form
import host_model

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"


def main(arguments):
    check = "--check" in arguments
    cases = {}
    for case in closed_form.all_cases():
        cases[case.name + ".qhm"] = case.model.text()
        cases[case.name + ".csv"] = case.input_text
    model, text = closed_form.worked_example()
    worked = {"worked_example.qhm": model.text(), "worked_example.csv": text}
    stale = host_model.write_or_compare(cases, pathlib.Path(__file__).parent / "closed_form", check)
    stale += host_model.write_or_compare(worked, EXAMPLES, check)
    for path in stale:
        print(f"{path} is not what make_closed_form_models.py writes: run it", file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
