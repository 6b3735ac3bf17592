#!/usr/bin/env bash
# The commands on the running host, where there can be none: wrong usage that says what to do.
# Usage: without_windows.sh QUARNEL_CLI CASE
set -uo pipefail
cli=$1

expect() {
    local code=$1 text=$2 error
    shift 2
    error=$("$cli" "$@" 2>&1 >/dev/null)
    local actual=$?
    [ "$actual" = "$code" ] || { echo "exit code $actual instead of $code: $error"; exit 1; }
    [ "$(wc -l <<<"$error")" = 1 ] || { echo "not one line: $error"; exit 1; }
    grep -qF -- "$text" <<<"$error" || { echo "no '$text' in: $error"; exit 1; }
}

case $2 in
    CheckOfTheRunningHostAsksForARecordedBuilding)
        expect 2 'name a recorded building too: check MODEL.qhm INPUT.csv' check input.csv ;;
    RecordIsRefused) expect 2 'can be reached on Windows only' record input.csv out.qhm ;;
    ModelWithoutInputAsksForTheInput)
        expect 2 'name the Route 2 Input file too' check tower.qhm ;;
    *) exit 1 ;;
esac
