#!/usr/bin/env bash
# The packages as a user meets them: unpacked, installed without questions, used, upgraded, removed.
# Usage: packages_test.sh FOLDER CASE             one case (a function below)
#        packages_test.sh FOLDER --list           their names
#        packages_test.sh FOLDER --prepare BIN    makes in FOLDER what the cases need: the packages, a
#                                                 clean Wine prefix, and small installers
#        packages_test.sh FOLDER --list-of-copy   those that need the packages of a copy, too
#        packages_test.sh FOLDER --prepare-copy   makes these in FOLDER-of-a-copy
# The display comes from the caller (./test).
set -uo pipefail

work=$1
copy=$work-of-a-copy
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
version=$(sed -n 's/^project(Quarnel VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
mapfile -t programs <"$root/packaging/programs.txt"
skipped=77
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quarnel'

# --- What the cases need -----------------------------------------------------------------------

# What git tracks, as it stands in the folder; without git all but what was built.
copy_sources_to() {
    mkdir -p "$1"
    if [ "$(git -C "$root" rev-parse --show-toplevel 2>/dev/null)" = "$root" ]; then
        git -C "$root" ls-files -z |
            tar -C "$root" --null --files-from=- --ignore-failed-read -cf - 2>/dev/null
    else
        tar -C "$root" --exclude=./build --exclude=./.git -cf - .
    fi | tar -C "$1" -xf -
}

# The packages of a copy in a longer folder, an exported tree without git, where all is built anew, on
# one processor: other tests run beside it.
prepare_copy() {
    rm -rf "$copy"
    copy_sources_to "$copy/exported"
    CMAKE_BUILD_PARALLEL_LEVEL=1 "$copy/exported/scripts/package.sh" "$copy/packages" \
        2>"$copy/exported.err" || { cat "$copy/exported.err" >&2; exit 1; }
}

# A folder with nothing but the script that lists the examples, and examples.
make_folder_of_examples() {
    mkdir -p "$1/scripts" "$1/examples/published"
    cp "$root/scripts/list-example-files.sh" "$1/scripts"
    touch "$1"/examples/{tower.qhm,tower.csv,notes.txt} "$1/examples/published/frame.qhm"
}

# Three versions of a small product. The examples: "kept" is in all three, "changed" changes, "gone"
# is in the first two, "added" in the last.
make_content() {
    local folder=$1 text=$2
    mkdir -p "$folder/examples/published"
    echo "manual of $text" >"$folder/manual.html"
    echo "changes of $text" >"$folder/CHANGELOG.txt"
    echo "1,2," >"$folder/examples/kept.csv"
    echo "example of $text" >"$folder/examples/changed.csv"
}

prepare_contents() {
    local bin=$1
    make_content 1.0 1.0
    make_content first first
    make_content second second
    cp "$bin/SampleHost.exe" first
    { cat "$bin/SampleHost.exe"; echo second; } >second/SampleHost.exe
    python3 "$here/link_time.py" --set 1700000000 "$bin/SampleHost.exe" 1.0/SampleHost.exe
    echo "1,1," | tee 1.0/examples/published/gone.csv >first/examples/published/gone.csv
    echo "1,3," >second/examples/added.csv
    cp "$root"/examples/two_story_y_up.{qhm,csv} .
}

# The list of what 1.0 installed, made from a build at another time.
list_files_of_1_0() {
    (cd 1.0 && find . -type f ! -name '*.exe' -printf '%P\0' | xargs -0 sha256sum) | sed 's|/|\\|g'
    echo "$(python3 "$here/link_time.py" --sum 1.0/SampleHost.exe) ~SampleHost.exe"
}

prepare() {
    rm -rf "$work"
    mkdir -p "$work" && cd "$work" || exit 1
    "$root/scripts/package.sh" "$work" || exit 1  # of programs that have been built before
    prepare_contents "$1"
    list_files_of_1_0 >files_of_1.0.txt
    makensis -V2 -NOCD -DCONTENT="$work/1.0" -DOUTPUT="$work/1.0.exe" "$here/installer_of_1.0.nsi" ||
        exit 1
    for content in first second; do
        "$root/scripts/make-installer.sh" "$version" "$content" "$content.exe" files_of_1.0.txt ||
            exit 1
    done
    . "$root/scripts/wine-session.sh"
    start_prefix "$work/wine"
    wineserver -w
}

# --- What the cases are written with -----------------------------------------------------------

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

windows() {
    wine "$@" </dev/null | tr -d '\r'
    return "${PIPESTATUS[0]}"
}

value_of() { windows reg query "$uninstall_key" /v "$1" 2>/dev/null | sed -n "s/^ *$1 *REG_SZ *//p"; }
unix_path() { windows winepath -u "$1"; }

# Installs without questions into the case's folder, or one that is named.
install() { wine "$work/$1.exe" /S "/D=${2:-C:\\case}" </dev/null; }
# As long as it runs in its folder, to be waited for, the uninstaller cannot remove itself.
uninstall() { wine "$target/Uninstall.exe" /S "_?=C:\\case" </dev/null; }

expect_text() { [ "$(cat "$target/$2")" = "$1" ] || fail "$2 has not '$1': $(cat "$target/$2")"; }
expect_file() { [ -s "$1" ] || fail "$1 is missing"; }
expect_none() { [ ! -e "$1" ] || fail "$1 exists"; }
expect_code() { [ "$1" = "$2" ] || fail "exit code $2 instead of $1"; }
expect_same() { cmp "$1" "$2" || fail "$1 and $2 differ"; }
expect_only() {  # expect_only FILE...    the case's folder holds these and nothing else
    local found expected
    found=$(cd "$target" && find . -type f -printf '%P\n' | LC_ALL=C sort)
    expected=$(printf '%s\n' "$@" | LC_ALL=C sort)
    [ "$found" = "$expected" ] || fail "the folder holds $found"
}

# What stands in the folder and in the registry; equal when nothing has changed.
picture() {
    (cd "$target" && find . | LC_ALL=C sort && find . -type f -print0 | LC_ALL=C sort -z |
        xargs -0 sha256sum)
    windows reg query "$uninstall_key" 2>/dev/null
}
expect_unchanged() { [ "$before" = "$(picture)" ] || fail "changed: $(diff <(echo "$before") <(picture))"; }

# Runs SampleHost in the folder until the case ends.
start_host() {
    cd "$work" || exit 1
    wine "$target/SampleHost.exe" two_story_y_up.qhm </dev/null >host.log 2>&1 &
    for _ in $(seq 600); do
        ! grep -q 'Ready: process' host.log || return 0
        sleep 0.1
    done
    fail "SampleHost does not start: $(cat host.log)"
}

clean_up() {
    wine "$target/SampleHost.exe" --stop </dev/null >/dev/null 2>&1
    wine reg delete "$uninstall_key" /f </dev/null >/dev/null 2>&1
    rm -rf "$target" "$target.other" "$work/unpacked"
    stop_wine
}

# --- Cases: the archive ------------------------------------------------------------------------

unpack() {
    rm -rf "$work/unpacked"
    unzip -q "$work/quarnel-$version-win64.zip" -d "$work/unpacked" || fail "it cannot be unpacked"
    portable=$work/unpacked/quarnel-$version-win64
}

ZipHoldsTheListedExamples() {
    local listed packed
    listed=$("$root/scripts/list-example-files.sh" 2>/dev/null | tr '\0' '\n' | LC_ALL=C sort)
    packed=$(unzip -Z1 "$work/quarnel-$version-win64.zip" | sed -n 's|^[^/]*/\(examples/\)|\1|p' |
        LC_ALL=C sort)
    [ -n "$listed" ] && [ "$listed" = "$packed" ] || fail "$(diff <(echo "$listed") <(echo "$packed"))"
}

ListedExamplesAreThoseThatGitTracks() {
    local folder=$work/checkout listed
    command -v git >/dev/null || exit "$skipped"
    rm -rf "$folder"
    make_folder_of_examples "$folder"
    git -C "$folder" init -q && git -C "$folder" add -A || fail "no checkout can be made"
    touch "$folder"/examples/{untracked.qhm,untracked.csv,tower.aijR2Result.csv}
    listed=$("$folder/scripts/list-example-files.sh" | tr '\0' ' ')
    [ "$listed" = "examples/published/frame.qhm examples/tower.csv examples/tower.qhm " ] ||
        fail "listed: $listed"
}

WithoutGitAllExamplesAreListedButResultsOfRuns() {
    local folder=$work/tree listed
    rm -rf "$folder"
    make_folder_of_examples "$folder"
    touch "$folder/examples/tower.aijR2Result.csv"
    listed=$("$folder/scripts/list-example-files.sh" 2>/dev/null | tr '\0' '\n' | LC_ALL=C sort)
    [ "$listed" = $'examples/published/frame.qhm\nexamples/tower.csv\nexamples/tower.qhm' ] ||
        fail "listed: $listed"
}

ZipHoldsProgramsDocumentsAndExamples() {
    unpack
    for program in "${programs[@]}"; do
        expect_file "$portable/$program.exe"
    done
    for file in manual.html manual.ja.html CHANGELOG.txt examples/two_story_y_up.{qhm,csv}; do
        expect_file "$portable/$file"
    done
}

# Both packages are made of one folder, so what the zip holds the installer brings.
ZipAndInstallerHoldTheNoticesOfThirdParties() {
    unpack
    expect_same "$root/docs/third-party.md" "$portable/third-party-notices.txt"
    wine "$work/quarnel-$version-setup.exe" /S '/D=C:\case' </dev/null || fail "it does not install"
    expect_same "$root/docs/third-party.md" "$target/third-party-notices.txt"
}

UnpackedCommandLineCompletesARun() {
    unpack
    [ "$(windows "$portable/quarnel-cli.exe" --version)" = "quarnel-cli $version" ] ||
        fail "it does not name the version"
    cd "$portable/examples" || exit 1
    windows ../quarnel-cli.exe check two_story_y_up.qhm two_story_y_up.csv >"$work/out"
    grep -q '^Calculation Complete' "$work/out" || fail "$(cat "$work/out")"
}

ManifestsNameThePackagesWithTheirChecksums() {
    local base=https://BASE-ADDRESS installer=quarnel-$version-setup.exe zip=quarnel-$version-win64.zip
    local winget=$work/manifests/winget/Quarnel.Quarnel.installer.yaml sum
    sum=$(sha256sum "$work/$installer" | cut -d ' ' -f 1 | tr a-f A-F)
    grep -qx "  InstallerUrl: $base/$installer" "$winget" || fail "winget has another address"
    grep -qx "  InstallerSha256: $sum" "$winget" || fail "winget has another checksum"
    sum=$(sha256sum "$work/$zip" | cut -d ' ' -f 1)
    python3 -c 'import json, sys
package = json.load(open(sys.argv[1]))["architecture"]["64bit"]
sys.exit([package["url"], package["hash"]] != sys.argv[2:])' \
        "$work/manifests/scoop/quarnel.json" "$base/$zip" "$sum" || fail "scoop has another package"
}

# --- Cases: installing and removing ------------------------------------------------------------

# Without /D it goes to its own folder, which is new.
InstalledProgramsRunAndAreRegistered() {
    local folder menu
    wine "$work/quarnel-$version-setup.exe" /S </dev/null
    expect_code 0 $?
    [ "$(value_of DisplayVersion)" = "$version" ] || fail "the version is not registered"
    folder=$(unix_path "$(value_of InstallLocation)")
    menu=$(unix_path "$(windows cmd /c 'echo %APPDATA%')")/Microsoft/Windows/"Start Menu"/Programs
    expect_file "$menu/Quarnel/Quarnel.lnk"
    expect_file "$menu/Quarnel/Quarnel Sheet.lnk"
    expect_file "$menu/Quarnel/Manual.lnk"
    expect_file "$menu/Quarnel/Manual (Japanese).lnk"
    for program in "${programs[@]}"; do
        expect_file "$folder/$program.exe"
    done
    cd "$folder/examples" || exit 1
    windows ../quarnel-cli.exe check worked_example.qhm worked_example.csv >"$work/out"
    grep -q '^Calculation Complete' "$work/out" || fail "$(cat "$work/out")"
    cd "$work" || exit 1
    rm "$folder"/examples/*.aijR2*

    # By itself, as Windows starts it, the uninstaller works from a copy and removes itself as well;
    # its registration goes last.
    wine "$folder/Uninstall.exe" /S </dev/null
    for _ in $(seq 100); do
        [ -n "$(value_of InstallLocation)" ] || break
        sleep 0.1
    done
    expect_none "$folder"
    expect_none "$menu/Quarnel"
    [ -z "$(value_of InstallLocation)" ] || fail "it is still registered"
}

UninstallingLeavesReportsOfRuns() {
    install first
    echo drifts >"$target/examples/kept.aijR2Result.csv"
    echo warnings >"$target/examples/kept.aijR2Log.txt"
    uninstall
    expect_code 0 $?
    expect_only Uninstall.exe examples/kept.aijR2Result.csv examples/kept.aijR2Log.txt
}

UninstallingLeavesAnEditedExample() {
    install first
    echo "1,99," >"$target/examples/kept.csv"
    uninstall
    expect_only Uninstall.exe examples/kept.csv
    expect_text "1,99," examples/kept.csv
}

ForeignDocumentsAreNeitherReplacedNorRemoved() {
    mkdir -p "$target/examples"
    echo "a manual of mine" >"$target/manual.html"
    echo "changes of mine" >"$target/CHANGELOG.txt"
    echo "an example of mine" >"$target/examples/kept.csv"
    install first
    expect_code 0 $?
    expect_file "$target/SampleHost.exe"
    expect_text "a manual of mine" manual.html
    expect_text "changes of mine" CHANGELOG.txt
    expect_text "an example of mine" examples/kept.csv
    uninstall
    expect_only Uninstall.exe manual.html CHANGELOG.txt examples/kept.csv
}

# The user's own copy of a file is not the installer's, though it looks the same.
ForeignFileWithTheSameContentStays() {
    mkdir -p "$target/examples"
    cp "$work/first/examples/kept.csv" "$target/examples"
    install first
    uninstall
    expect_only Uninstall.exe examples/kept.csv
}

ForeignProgramInTheFolderIsRefused() {
    mkdir "$target"
    echo "a program of mine" >"$target/SampleHost.exe"
    before=$(picture)
    install first
    expect_code 4 $?
    expect_unchanged
}

ForeignFileInPlaceOfTheListIsRefused() {
    mkdir "$target"
    echo "files that I have installed" >"$target/installed-files.txt"
    before=$(picture)
    install first
    expect_code 4 $?
    expect_unchanged
}

# Nobody can make a folder in /proc.
FolderThatCannotBeMadeIsRefused() {
    install first 'Z:\proc\quarnel'
    expect_code 5 $?
    [ -z "$(value_of InstallLocation)" ] || fail "it is registered all the same"
}

UninstallingOneOfTwoLeavesTheRegistrationOfTheOther() {
    install first
    install first 'C:\case.other'
    uninstall
    [ "$(value_of InstallLocation)" = 'C:\case.other' ] || fail "the other one is not registered"
}

# --- Cases: what Explorer knows ------------------------------------------------------------------

classes='HKCU\Software\Classes'
send_to() {
    echo "$(unix_path "$(windows cmd /c 'echo %APPDATA%')")/Microsoft/Windows/SendTo/Quarnel Sheet.lnk"
}
default_of() {
    windows reg query "$classes\\$1" /ve 2>/dev/null | sed -n 's/.*REG_SZ *//p'
}
is_registered() { windows reg query "$classes\\$1" >/dev/null 2>&1; }

RecordedBuildingsAreOpenedByTheSheet() {
    install first
    [ "$(default_of .qhm)" = Quarnel.RecordedBuilding ] || fail "the type is '$(default_of .qhm)'"
    [ "$(default_of 'Quarnel.RecordedBuilding\shell\open\command')" = \
        '"C:\case\QuarnelSheet.exe" "%1"' ] || fail "the command is another"
    uninstall
    ! is_registered .qhm || fail "the extension is still there"
    ! is_registered Quarnel.RecordedBuilding || fail "the program is still there"
}

RecordedBuildingsThatTheUserOpensOtherwiseStaySo() {
    local found
    windows reg add "$classes\\.qhm" /ve /d Mine /f >/dev/null
    install first
    found=$(default_of .qhm)
    uninstall
    found+=", $(default_of .qhm)"
    windows reg delete "$classes\\.qhm" /f >/dev/null
    [ "$found" = "Mine, Mine" ] || fail "the type was $found"
}

SendToHasNoEntryUnlessItIsAskedFor() {
    install first
    expect_none "$(send_to)"
}

SendToEntryIsMadeKeptByAnUpgradeAndRemoved() {
    wine "$work/first.exe" /S /SENDTO '/D=C:\case' </dev/null
    expect_file "$(send_to)"
    install second
    expect_file "$(send_to)"
    uninstall
    expect_none "$(send_to)"
}

# --- Cases: upgrading --------------------------------------------------------------------------

UpgradeReplacesWhatWasNotChanged() {
    install first
    install second
    expect_code 0 $?
    expect_same "$work/second/SampleHost.exe" "$target/SampleHost.exe"
    expect_text "manual of second" manual.html
    expect_text "example of second" examples/changed.csv
    expect_text "1,3," examples/added.csv
    uninstall
    expect_only Uninstall.exe
}

UpgradeLeavesAnEditedExample() {
    install first
    echo "edited" >>"$target/examples/changed.csv"
    install second
    expect_text $'example of first\nedited' examples/changed.csv
    expect_text "1,3," examples/added.csv
}

UpgradeInstallsADeletedExampleAgain() {
    install first
    rm "$target/examples/kept.csv"
    install second
    expect_text "1,2," examples/kept.csv
}

UpgradeRemovesWhatTheNewVersionLacks() {
    install first
    expect_file "$target/examples/published/gone.csv"
    install second
    expect_none "$target/examples/published"
}

UpgradeLeavesAnEditedFileThatTheNewVersionLacks() {
    install first
    echo "edited" >"$target/examples/published/gone.csv"
    install second
    expect_text "edited" examples/published/gone.csv
    uninstall
    expect_only Uninstall.exe examples/published/gone.csv
}

UpgradeOverARunningProgramChangesNothing() {
    install first
    start_host
    before=$(picture)
    install second
    expect_code 3 $?
    expect_unchanged
    wine "$target/SampleHost.exe" --stop </dev/null >/dev/null 2>&1
    wait
    install second
    expect_code 0 $?
    expect_same "$work/second/SampleHost.exe" "$target/SampleHost.exe"
}

UninstallingARunningProgramChangesNothing() {
    install first
    start_host
    before=$(picture)
    uninstall
    expect_code 3 $?
    expect_unchanged
}

UpgradeOverAChangedProgramIsRefused() {
    install first
    echo changed >>"$target/SampleHost.exe"
    before=$(picture)
    install second
    expect_code 4 $?
    expect_unchanged
}

# --- Cases: upgrading from 1.0, which left no list ----------------------------------------------

UpgradeFrom1_0ReplacesWhatWasNotChanged() {
    install 1.0
    install second
    expect_code 0 $?
    expect_same "$work/second/SampleHost.exe" "$target/SampleHost.exe"
    expect_text "manual of second" manual.html
    expect_none "$target/examples/published"
    uninstall
    expect_only Uninstall.exe
}

# Two builds of 1.0 differ in the time of linking, and in the checksum that depends on it.
UpgradeFrom1_0KnowsItsProgramsOfAnyBuild() {
    install 1.0
    python3 "$here/link_time.py" --set 1600000000 "$work/1.0/SampleHost.exe" "$target/SampleHost.exe"
    install second
    expect_code 0 $?
    expect_same "$work/second/SampleHost.exe" "$target/SampleHost.exe"
}

UpgradeFrom1_0LeavesEditedAndForeignFiles() {
    install 1.0
    echo "edited" >"$target/examples/changed.csv"
    echo "edited" >"$target/examples/published/gone.csv"
    echo "my tower" >"$target/examples/tower.qhm"
    echo "drifts" >"$target/examples/kept.aijR2Result.csv"
    install second
    uninstall
    expect_only Uninstall.exe examples/changed.csv examples/published/gone.csv examples/tower.qhm \
        examples/kept.aijR2Result.csv
    expect_text "edited" examples/changed.csv
}

# Files of 1.0 that the registry does not know of, such as an unpacked archive, are the user's.
FilesAs1_0InstalledThemElsewhereAreForeign() {
    mkdir "$target"
    cp "$work/1.0/manual.html" "$target"
    install second
    expect_text "manual of 1.0" manual.html
}

# --- Cases: the packages of a copy ---------------------------------------------------------------

ZipIsTheSameFromAnExportedCopyOfTheSources() {
    expect_same "$work/quarnel-$version-win64.zip" "$copy/packages/quarnel-$version-win64.zip"
}

PackagingWithoutGitSaysWhatItPacks() {
    grep -qx 'No git here: packing every .qhm and .csv of examples/ but results of runs.' \
        "$copy/exported.err" || fail "$(cat "$copy/exported.err")"
}

# -------------------------------------------------------------------------------------------------

names_of_functions() { sed -n 's/^\([A-Z][A-Za-z0-9_]*\)() {$/\1/p'; }
cases() { sed -n '/^# --- Cases/,/^# --- Cases: the packages of a copy/p' "$0" | names_of_functions; }
cases_of_copy() { sed -n '/^# --- Cases: the packages of a copy/,$p' "$0" | names_of_functions; }

case ${2:-} in
    --list) cases; exit 0 ;;
    --prepare) prepare "$3"; exit 0 ;;
    --list-of-copy) cases_of_copy; exit 0 ;;
    --prepare-copy) prepare_copy; exit 0 ;;
esac
[[ $'\n'$(cases; cases_of_copy)$'\n' == *$'\n'"${2:-}"$'\n'* ]] || fail "no case is called '${2:-}'"

. "$root/scripts/wine-session.sh"
start_prefix "$work/wine"
trap clean_up EXIT
target=$work/wine/drive_c/case
rm -rf "$target" "$target.other"
"$2"
