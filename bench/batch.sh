#!/usr/bin/env bash
# Makes the sheets of 200 buildings of mixed size one after another and with `quarnel-cli batch`, in
# turn, and compares the batch with the best that any packing of the jobs could reach:
#
#     bench/batch.sh [REPETITIONS]
#
# Ends with a row of the table in README.md. Installs what is missing.
set -euo pipefail

repetitions=${1:-5}

. "$(dirname "$0")/prepare.sh"

python3 - build/bench/bin "$folder" "$repetitions" <<'PYTHON'
import os, random, statistics, subprocess, sys, time
from pathlib import Path

programs, folder, repetitions = Path(sys.argv[1]).resolve(), Path(sys.argv[2]), int(sys.argv[3])
cli = str(programs / "quarnel-cli")
processors = len(os.sched_getaffinity(0))
# Members, stories, load cases, and how many of the jobs are of this size.
SIZES = [(200, 3, 3, 50), (400, 5, 5, 40), (800, 8, 5, 35), (1500, 10, 10, 25), (3500, 30, 10, 20),
         (5000, 20, 20, 15), (10000, 30, 20, 10), (20000, 40, 20, 5)]


def write_jobs():
    """The model of each job, in an order that nobody has chosen."""
    models = []
    for *size, count in SIZES:
        model = folder / f"{size[0]}.qhm"
        subprocess.run([programs / "quarnel-bench-building", *map(str, size), model], check=True)
        models += [model] * count
    random.Random(1).shuffle(models)
    rows = [f"job{i},{model},{model.with_suffix('.csv')}" for i, model in enumerate(models)]
    (folder / "jobs.csv").write_text("\n".join(["name,model,input", *rows]) + "\n")
    return models


def measured(command, good):
    """Wall-clock seconds, processor seconds and MB of the largest process."""
    start = time.monotonic()
    output = [(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)]
    process = os.posix_spawn(cli, [cli, *map(str, command)], os.environ, file_actions=output)
    _, status, usage = os.wait4(process, 0)
    seconds = time.monotonic() - start
    if os.waitstatus_to_exitcode(status) not in good:
        sys.exit(f"{' '.join(map(str, command))} ended with status {status}")
    return seconds, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024e-6


def alone(model):
    """What a row of the batch does."""
    out = folder / "alone"
    return measured(["sheet", model, model.with_suffix(".csv"), out / "sheet.html", "--json",
                     out / "figures.json", "--reports", out], good=(0,))


models = write_jobs()
(folder / "alone").mkdir()
rows = []
for i in range(repetitions + 1):
    jobs = [alone(model) for model in models]
    batch = measured(["batch", folder / "jobs.csv", "--jobs", processors], good=(0, 3))
    one_by_one = sum(job[0] for job in jobs)
    best = max(max(job[0] for job in jobs), one_by_one / processors)
    row = (one_by_one, best, batch[0], batch[0] / best, sum(job[1] for job in jobs), batch[1],
           batch[2])
    print(f"{row[3]:.3f}", file=sys.stderr)
    if i > 0:  # the first one warms the files up
        rows.append(row)

one_by_one, best, batch, _, cpu_alone, cpu_batch, peak = (statistics.median(figure)
                                                          for figure in zip(*rows))
ratios = sorted(row[3] for row in rows)
print("| jobs | processors | one by one s | best packing s | batch s | batch / best packing "
      "| in all runs | processor s one by one | of the batch | largest process MB |")
print("|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|")
print(f"| {len(models)} | {processors} | {one_by_one:.2f} | {best:.2f} | {batch:.2f} "
      f"| {statistics.median(ratios):.2f} | {ratios[0]:.2f} to {ratios[-1]:.2f} "
      f"| {cpu_alone:.2f} | {cpu_batch:.2f} | {peak:.0f} |")
PYTHON
