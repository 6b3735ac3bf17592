#!/usr/bin/env bash
# What ./run hands to the command line. A copy of it stands in a project of its own, whose programs
# say what they were asked: nothing is installed or built.
# Usage: run_test.sh CASE       one case (a function below)
#        run_test.sh --list     their names
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

make_program() {
    mkdir -p "$(dirname "$1")"
    printf '#!/usr/bin/env bash\n%s\n' "$2" >"$1"
    chmod +x "$1"
}

# The command line says in which folder it works and what it was told to do.
make_project() {
    cp "$root/run" "$project"
    make_program "$project/scripts/debian-packages.sh" 'native_packages=()'
    make_program "$project/scripts/install-debian-packages.sh" ''
    make_program "$project/build/native/bin/quarnel-cli" 'echo "in $PWD:"; printf "%s\n" "$@"'
    make_program "$project/tools/cmake" ''
}

run() { PATH="$project/tools:$PATH" "$project/run" "$@" | sed '1,/^$/d'; }

expect_command() {  # expect_command FOLDER COMMAND MODEL INPUT OUTPUT
    local expected
    expected=$(printf 'in %s:\n%s\n%s\n%s' "$1" "$2" "$3" "$4")
    [ "$5" = "$expected" ] || fail "the command line got $5 instead of $expected"
}

# --- Cases -----------------------------------------------------------------------------------

TakesPathsFromTheCallersFolder() {
    cd "$elsewhere" || exit 1
    expect_command "$elsewhere" check tower.qhm ../tower.csv "$(run tower.qhm ../tower.csv)"
}

TakesPathsWithBlanks() {
    cd "$elsewhere" || exit 1
    expect_command "$elsewhere" check "my tower.qhm" "my tower.csv" "$(run "my tower.qhm" "my tower.csv")"
}

MakesTheSheetOfTheExampleFromAnyFolder() {
    cd "$elsewhere" || exit 1
    expect_command "$project" sheet examples/five_story_office_z_up.qhm \
        examples/five_story_office_z_up.csv "$(run)"
}

# -------------------------------------------------------------------------------------------------

cases() { sed -n '/^# --- Cases/,$s/^\([A-Z][A-Za-z]*\)() {$/\1/p' "$0"; }

[ "${1:-}" != --list ] || { cases; exit 0; }
[[ $'\n'$(cases)$'\n' == *$'\n'"${1:-}"$'\n'* ]] || fail "no case is called '${1:-}'"
work=$(cd "$(mktemp -d)" && pwd -P)
trap 'cd / && rm -rf "$work"' EXIT
project=$work/project
elsewhere=$work/somewhere/else
mkdir -p "$project" "$elsewhere"
make_project
"$1"
