#!/usr/bin/env bash
# Layout and static analysis of the product's own code; the exit code is 0 when there is no finding.
# Usage: scripts/static-analysis.sh
#
# clang-format all sources, tests included, as .clang-format lays them out
# clang-tidy   the portable sources as they are compiled here, the Windows sources as they are
#              cross-compiled; .clang-tidy says what is asked and why the rest is not
# cppcheck     all sources, the tests' own tools included; .cppcheck-suppressions likewise
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
. scripts/folders.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${windows_packages[@]}" \
    "${analysis_packages[@]}"

work=build/static-analysis
jobs=$(nproc)
mkdir -p "$work"
findings=0
header_folders=$(IFS="|"; echo "${product_folders[*]}")

# Configures a preset; its compile commands are all that is needed of it.
configure() {
    cmake --preset "$1" >"$work/$1.log" 2>&1 || { cat "$work/$1.log"; exit 1; }
}

# The product's C++ sources that a preset compiles and none before it did, one per line.
sources_of() {
    python3 - "$@" <<'PYTHON'
import json, os, sys
preset, *before = sys.argv[1:]
def sources(name):
    with open(f"build/{name}/compile_commands.json") as file:
        return {entry["file"] for entry in json.load(file)}
here = os.getcwd() + "/"
new = sources(preset) - set().union(*map(sources, before))
for file in sorted(new):
    if file.startswith(here) and file.endswith(".cpp"):
        print(file[len(here):])
PYTHON
}

tidy() {
    local preset=$1 log="$work/clang-tidy-$1.log"
    shift
    echo "== clang-tidy: $preset"
    if ! xargs -r -P "$jobs" -n 1 clang-tidy -p "build/$preset" --quiet \
        --header-filter="/(${header_folders})/[^/]*\\.h\$" "$@" >"$log" 2>&1; then
        # Without a finding in the log the analysis itself failed.
        grep -E '^[^ ].*(warning|error):' "$log" | sort -u || tail -n 20 "$log"
        findings=1
    fi
}

echo "== clang-format"
find "${product_folders[@]}" bench tests \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 clang-format --dry-run --Werror || findings=1

configure analysis
configure analysis-windows
sources_of analysis >"$work/native.sources"
tidy analysis <"$work/native.sources"
# clang needs to be told where the cross compiler keeps its C++ headers.
cross_arguments=(--extra-arg=--target=x86_64-w64-mingw32)
for folder in $(x86_64-w64-mingw32-g++-posix -E -x c++ -v /dev/null 2>&1 | grep -E '^ .*/c\+\+'); do
    cross_arguments+=("--extra-arg-before=-isystem$folder")
done
sources_of analysis-windows analysis >"$work/windows.sources"
tidy analysis-windows "${cross_arguments[@]}" <"$work/windows.sources"

echo "== cppcheck"
cppcheck --quiet --std=c++20 --language=c++ -j "$jobs" -I . \
    --enable=warning,performance,portability --inline-suppr \
    --suppressions-list=.cppcheck-suppressions --error-exitcode=1 \
    --template='{file}:{line}: {severity}: {message} [{id}]' \
    --max-configs=4 \
    "${product_folders[@]}" bench tests/support tests/fuzz || findings=1

[ "$findings" = 1 ] || echo "no findings"
exit "$findings"
