#!/usr/bin/env bash
# Runs every fuzz target for a number of seconds, one after the other:
#
#     tests/fuzz/run.sh [--longest BYTES] SECONDS [TARGET...]
#
# TARGET: figures_file, input_readers, json_stream, lint, qhm_file, sheet_lines, tables, whole_run.
# Inputs are up to 4096 bytes long; of shorter ones more are tried in a second, about twice as many of
# the lines of the sheet up to 256 bytes.
#
# What the fuzzer learns is kept in build/fuzz/corpus for the next time; how often a target was executed
# is added to its count in docs/coverage.md when it ends. A finding ends its target and is saved in
# build/fuzz/findings/TARGET; when it is fixed, put the file into tests/fuzz/regressions/TARGET, where
# every test run replays it.
set -euo pipefail

longest=4096
if [ "${1:-}" = --longest ] && [ $# -gt 1 ]; then
    longest=$2
    shift 2
fi
if [ $# -lt 1 ]; then
    echo "usage: tests/fuzz/run.sh [--longest BYTES] SECONDS [TARGET...]" >&2
    exit 2
fi
seconds=$1
shift
[ $# -gt 0 ] || set -- figures_file input_readers json_stream lint qhm_file sheet_lines \
    tables whole_run

cd "$(dirname "$0")/../.."
. scripts/debian-packages.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${fuzz_packages[@]}"
cmake --preset fuzz
cmake --build --preset fuzz

# The files of a try go to memory where there is such a folder.
[ -d /dev/shm ] && TMPDIR=/dev/shm && export TMPDIR

status=0
for target in "$@"; do
    seeds=tests/fuzz/seeds/$target
    [ "$target" = lint ] && seeds=tests/lint/rules
    corpus=build/fuzz/corpus/$target
    findings=build/fuzz/findings/$target
    mkdir -p "$corpus" "$findings"
    report=build/fuzz/last-run-$target.log
    build/fuzz/tests/fuzz_"$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
        -max_len="$longest" -print_final_stats=1 -dict=tests/fuzz/"$target".dict \
        -artifact_prefix="$findings"/ "$corpus" "$seeds" tests/fuzz/regressions/"$target" 2>&1 |
        tee "$report" || status=1
    executed=$(sed -n 's/^stat::number_of_executed_units: *//p' "$report")
    python3 tests/fuzz/add_executions.py "$target" "${executed:-0}" docs/coverage.md
done
exit $status
