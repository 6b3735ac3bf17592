#!/usr/bin/env python3
"""Turns single operators of the engine and of the findings one by one, and reports which of them no
test notices.

    tests/mutation/run.py [--files GLOB...] [--every N] [--from N] [--list]

Works on a copy of the sources below build/mutation. A turned operator is noticed when the tests of the
engine no longer compile, fail, or do not end. One that nobody notices must stand in reasons.txt with
the reason why it changes nothing that a test could see; a reason that is not needed any more is told,
too. The last line counts; the exit code is 0 when nothing is left without a reason.

--every N takes each Nth operator, --from N begins at the Nth: for a look at a part, or the whole in N
runs side by side. The whole run takes hours.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
REASONS = pathlib.Path(__file__).with_name("reasons.txt")
FILES = ["route2/*.cpp", "route2/*.h"]

# The layout of the sources has blanks around every binary operator, and none in templates.
TURNS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == ",
         " + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", " && ": " || ", " || ": " && ",
         " += ": " -= ", " -= ": " += ", " *= ": " /= ", " /= ": " *= "}

# What to build and what to run of it, quick ones first. The last holds whole runs against the second
# calculation.
TESTS = [("checks_test", ["tests/checks_test"]), ("compute_test", ["tests/compute_test"]),
         ("route2_test", ["tests/route2_test"]), ("results_test", ["tests/results_test"]),
         ("whole_run_test", ["tests/whole_run_test"]),
         ("robustness_test", ["tests/robustness_test", "--gtest_filter=Environment*"]),
         ("lint_test", ["tests/lint_test", "--gtest_filter=AsRead*:Model*"]),
         ("quarnel-cli", [sys.executable, "-B", str(ROOT / "tests/reference/compare_runs.py"),
                          "--cli", "bin/quarnel-cli", "--seeds", "1", "200",
                          "--work", "differences"])]
SECONDS = 300


def mutants(path):
    """(line number, column, operator) of every operator outside comments, texts and directives."""
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines()):
        code = re.sub(r'"(?:[^"\\]|\\.)*"', lambda text: "_" * len(text.group()), line)
        code = code.split("//")[0]
        if code.lstrip().startswith("#"):
            continue
        for operator in TURNS:
            for found in re.finditer(re.escape(operator), code):
                yield number, found.start(), operator


class Bench:
    """A copy of the sources and its build."""

    def __init__(self, folder):
        self.source, self.build = folder / "source", folder / "build"


def run(command, folder, seconds=None):
    try:
        return subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=seconds, check=False).returncode
    except subprocess.TimeoutExpired:
        return 1


def prepare(bench):
    source = bench.source
    shutil.rmtree(source, ignore_errors=True)
    tracked = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True,
                             check=True).stdout.decode().split("\0")
    for name in filter(None, tracked):
        if (ROOT / name).is_file():
            (source / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(ROOT / name, source / name)
    # A run that was stopped has left objects with a turned operator, newer than their sources.
    for pattern in FILES:
        for path in source.glob(pattern):
            path.touch()
    configured = run(["cmake", "-S", ".", "-B", str(bench.build), "-G", "Ninja",
                      "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0"], source) == 0
    if not configured or who_notices(bench):
        raise SystemExit(f"the sources as they stand do not pass; see {bench.build}")


def passes(bench, target, test):
    build = ["cmake", "--build", str(bench.build), "--target", target]
    if target != "quarnel-cli":
        test = [*test, "--gtest_fail_fast", "--gtest_brief=1"]
    return run(build, bench.source) == 0 and run(test, bench.build, SECONDS) == 0


def who_notices(bench):
    return next((target for target, test in TESTS if not passes(bench, target, test)), None)


def key_of(name, line, operator):
    return f"{name} | {line.strip()} | {operator.strip()}"


def reasons():
    """By key: the lines of reasons.txt are FILE | LINE | OPERATOR | REASON."""
    known = {}
    if REASONS.exists():
        for line in REASONS.read_text(encoding="utf-8").splitlines():
            if line and not line.startswith("#"):
                *key, reason = (part.strip() for part in line.split(" | "))
                known[" | ".join(key)] = reason
    return known


def survives(bench, path, number, column, operator):
    original = path.read_text(encoding="utf-8")
    lines = original.splitlines(keepends=True)
    line = lines[number]
    lines[number] = line[:column] + TURNS[operator] + line[column + len(operator):]
    path.write_text("".join(lines), encoding="utf-8")
    try:
        return who_notices(bench) is None
    finally:
        path.write_text(original, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description="Turns operators, and looks who notices.")
    parser.add_argument("--files", nargs="+", default=FILES)
    parser.add_argument("--every", type=int, default=1)
    parser.add_argument("--from", dest="first", type=int, default=0)
    parser.add_argument("--list", action="store_true")
    options = parser.parse_args()
    names = sorted({str(path.relative_to(ROOT)) for pattern in options.files
                    for path in ROOT.glob(pattern)})
    chosen = [(name, *mutant) for name in names for mutant in mutants(ROOT / name)]
    chosen = chosen[options.first::options.every]
    if options.list:
        for name, number, _, operator in chosen:
            print(f"{name}:{number + 1}: {operator.strip()}")
        return 0
    bench = Bench(ROOT / "build" / "mutation" / f"{options.first}-{options.every}")
    prepare(bench)
    known, used, left = reasons(), set(), 0
    for name, number, column, operator in chosen:
        path = bench.source / name
        line = path.read_text(encoding="utf-8").splitlines()[number]
        if not survives(bench, path, number, column, operator):
            continue
        key = key_of(name, line, operator)
        used.add(key)
        if key not in known:
            left += 1
            print(f"{name}:{number + 1}: {operator.strip()} can be turned: {line.strip()}",
                  flush=True)
    if options.every == 1 and options.first == 0 and options.files == FILES:
        for key in sorted(set(known) - used):
            print(f"reasons.txt: not needed any more: {key}")
    print(f"{len(chosen)} operators turned, {len(used)} unnoticed, {left} of them without a reason")
    return 1 if left else 0


if __name__ == "__main__":
    os.environ.setdefault("CMAKE_BUILD_PARALLEL_LEVEL", str(os.cpu_count()))
    sys.exit(main())
