#!/usr/bin/env bash
# Lists the example buildings and input files that a package holds, each with a zero behind it.
# Usage: scripts/list-example-files.sh
#
# In a checkout, those that git tracks: what is not tracked may be anything, a job that somebody tries
# there, results of runs.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ "$(git rev-parse --show-toplevel 2>/dev/null)" = "$(pwd -P)" ]; then
    git ls-files -z -- 'examples/*.qhm' 'examples/*.csv'
else
    echo "No git here: packing every .qhm and .csv of examples/ but results of runs." >&2
    find examples \( -name '*.qhm' -o -name '*.csv' \) ! -name '*.aijR2Result.csv' -print0
fi
