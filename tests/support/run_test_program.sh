#!/usr/bin/env bash
# Runs a test program through an emulator: run_test_program.sh EMULATOR PROGRAM [ARGUMENT...]
#
# A test program says that it runs before it does anything. About once in some thousand starts Wine
# ends a process before its program begins: it has then said nothing at all, and is started once
# more. A program that has said anything is never run twice.
said=$(mktemp)
trap 'rm -f "$said"' EXIT
"$@" 2>&1 | tee "$said"
code=${PIPESTATUS[0]}
if [ "$code" != 0 ] && [ ! -s "$said" ]; then
    "$@"
    code=$?
fi
exit "$code"
