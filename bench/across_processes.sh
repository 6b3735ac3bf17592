#!/usr/bin/env bash
# A run against a host in another process, under Wine: the time of a run, and the time of its
# distinct questions alone. Prints a Markdown table, one row per building and delay of the host.
# Usage: bench/across_processes.sh [REPETITIONS]
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
. scripts/wine-session.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${windows_packages[@]}" "${wine_packages[@]}"

mkdir -p build
log=build/bench-windows-build.log
{ cmake --preset bench-windows && cmake --build --preset bench-windows; } >"$log" 2>&1 ||
    { cat "$log" >&2; exit 1; }
bin=$PWD/build/bench-windows/bin
start_wine "$PWD/build/wine-bench"
work=$(mktemp -d)
trap 'stop_host; stop_wine; rm -rf "$work"' EXIT
cd "$work"

start_host() {
    wine "$bin/SampleHost.exe" "$@" </dev/null >host.log 2>&1 &
    for _ in $(seq 600); do
        ! grep -q 'Ready: process' host.log || return 0
        sleep 0.1
    done
    cat host.log >&2
    return 1
}

stop_host() { wine "$bin/SampleHost.exe" --stop </dev/null >/dev/null 2>&1 || true; }

cat <<'TABLE'
| members, stories, load cases | delay ms | distinct questions | ms per call | questions x call s | run s | run / (questions x call) | in all runs |
|---|---:|---:|---:|---:|---:|---:|---:|
TABLE
for size in "300 5 5" "1000 10 5"; do
    # shellcheck disable=SC2086  # three arguments
    wine "$bin/quarnel-bench-building.exe" $size tower.qhm </dev/null
    for delay in 0 0.1 1; do
        start_host tower.qhm --delay "$delay"
        row=$(wine "$bin/quarnel-bench-across.exe" tower.csv "$@" </dev/null | tr -d '\r')
        stop_host
        echo "| ${size// /, } | $delay | $row"
    done
done
