#!/usr/bin/env bash
# Runs a test program through an emulator:
#   run_test_program.sh [--with-server] EMULATOR PROGRAM [ARGUMENT...]
#
# --with-server  on the processor of Wine's server, where scripts/wine-session.sh has named one: for
#                tests that work with many files and hold nothing that goes on at the same time
#
# What it says goes through a file: Wine's own desktop, when a test is the first to open a window, takes
# over the test's output and stays, and whoever reads a pipe to its end would wait for it.
#
# A test program says that it runs before it does anything. About once in some thousand starts Wine
# ends a process before its program begins: it has then said nothing at all, and is started once
# more. A program that has said anything is never run twice.
said=$(mktemp)
trap 'rm -f "$said"' EXIT

place=()
if [ "$1" = --with-server ]; then
    shift
    [ -z "${WINE_SERVER_PROCESSOR:-}" ] || place=(taskset -c "$WINE_SERVER_PROCESSOR")
fi

run() {
    "${place[@]}" "$@" >"$said" 2>&1 &
    tail -n +1 -f -s 0.1 --pid=$! "$said"
    wait $!
}

run "$@"
code=$?
if [ "$code" != 0 ] && [ ! -s "$said" ]; then
    run "$@"
    code=$?
fi
exit "$code"
