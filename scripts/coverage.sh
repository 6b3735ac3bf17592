#!/usr/bin/env bash
# Measures which lines and branches of the portable folders the tests reach on this machine.
# Usage: scripts/coverage.sh [CTEST ARGUMENTS...]
#
# Prints a table per file, and writes the table of docs/coverage.md; build/coverage/report.html shows
# every line. Branches that exist only
# because a call can throw are left out. Windows sources (the live host) run under Wine only and
# are not measured; docs/coverage.md says what else is not reached, and why.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
. scripts/folders.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${script_packages[@]}" \
    "${print_packages[@]}" "${example_packages[@]}" "${coverage_packages[@]}"

log=build/coverage.log
mkdir -p build
{ cmake --preset coverage && cmake --build --preset coverage; } >"$log" 2>&1 ||
    { tail -n 30 "$log"; exit 1; }
find build/coverage -name '*.gcda' -delete
# Where a test takes away the room for files, what counts cannot write either, and would say so among
# the lines of the program.
export GCOV_ERROR_FILE=/dev/null
# The test that is left out runs the program as another user, who may not write the counts.
ctest --preset coverage -j "$(nproc)" -E ResultsOfAnEarlierRunAreCautionedAbout "$@" \
    </dev/null >>"$log" 2>&1 ||
    { tail -n 30 "$log"; exit 1; }
filters=()
for folder in "${product_folders[@]}"; do filters+=(--filter "$folder/"); done
measure() {
    gcovr --root . "${filters[@]}" --exclude-throw-branches --exclude-unreachable-branches "$@" \
        build/coverage
}
measure --html-details build/coverage/report.html --json-summary build/coverage/summary.json >/dev/null
measure
measure --branches
scripts/write-coverage.py build/coverage/summary.json docs/coverage.md
