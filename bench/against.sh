#!/usr/bin/env bash
# Checks one large recorded building with this quarnel-cli and with another one, in turn, and
# compares time and memory of the whole programs:
#
#     bench/against.sh OTHER_QUARNEL_CLI [REPETITIONS]
#
# For example against the one of an earlier version, built in a folder of its own. Ends with a row
# of the table in README.md. Installs what is missing.
set -euo pipefail

if [ $# -lt 1 ]; then
    echo "usage: bench/against.sh OTHER_QUARNEL_CLI [REPETITIONS]" >&2
    exit 2
fi
other=$(realpath "$1")
repetitions=${2:-15}

. "$(dirname "$0")/prepare.sh"
for name in ours other; do
    build/bench/bin/quarnel-bench-building 20000 40 60 "$folder/$name.qhm"
done

python3 - build/bench/bin/quarnel-cli "$other" "$folder" "$repetitions" <<'PYTHON'
import filecmp, os, statistics, subprocess, sys, time

ours, other, folder, repetitions = *sys.argv[1:4], int(sys.argv[4])


def check(cli, name):
    """Wall-clock seconds, processor seconds and peak memory in MB of one check."""
    command = [cli, "check", f"{folder}/{name}.qhm", f"{folder}/{name}.csv"]
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        sys.exit(f"{' '.join(command)} ended with status {status}")
    return time.monotonic() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024e-6


runs = {"ours": [], "other": []}
for i in range(repetitions + 1):
    for name, cli in (("ours", ours), ("other", other)):
        run = check(cli, name)
        if i > 0:  # the first one warms the file up
            runs[name].append(run)
if not filecmp.cmp(f"{folder}/ours.aijR2Result.csv", f"{folder}/other.aijR2Result.csv", False):
    sys.exit("the two wrote different results")


def median(name, figure):
    return statistics.median(run[figure] for run in runs[name])


def median_of_pairs(figure):
    return statistics.median(a[figure] / b[figure] for a, b in zip(runs["ours"], runs["other"]))


print("| wall ms | other | ratio | processor ms | other | ratio | peak MB | other |")
print("|---:|---:|---:|---:|---:|---:|---:|---:|")
print(f"| {1e3 * median('ours', 0):.0f} | {1e3 * median('other', 0):.0f} "
      f"| {median_of_pairs(0):.2f} | {1e3 * median('ours', 1):.0f} "
      f"| {1e3 * median('other', 1):.0f} | {median_of_pairs(1):.2f} "
      f"| {median('ours', 2):.0f} | {median('other', 2):.0f} |")
PYTHON
