#!/usr/bin/env bash
# The packages as a user meets them: made, unpacked, installed without questions, used and removed
# again. Wine and a display come from the caller (./test).
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

check() {  # check DESCRIPTION COMMAND...
    local description=$1
    shift
    if "$@"; then
        echo "ok: $description"
    else
        echo "FAILED: $description"
        failures=$((failures + 1))
    fi
}

is_absent() { [ ! -e "$1" ]; }
has_no_key() { ! wine reg query "$1" >/dev/null 2>&1; }
value_of() { wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_SZ *//p"; }
unix_path() { wine winepath -u "$1" 2>/dev/null | tr -d '\r'; }

scripts/package.sh "$work/one" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
scripts/package.sh "$work/two" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
version=$(sed -n 's/^project(Quarnel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
zip=quarnel-$version-win64.zip
setup=$work/one/quarnel-$version-setup.exe

check "the same sources give the same zip" cmp "$work/one/$zip" "$work/two/$zip"

# The portable archive.
unzip -q "$work/one/$zip" -d "$work"
portable=$work/quarnel-$version-win64
for file in Quarnel.exe quarnel-cli.exe SampleHost.exe manual.html CHANGELOG.txt \
    examples/two_story_y_up.qhm examples/two_story_y_up.csv; do
    check "the zip holds $file" test -s "$portable/$file"
done
check "the command line names the version" \
    [ "$(wine "$portable/quarnel-cli.exe" --version | tr -d '\r')" = "quarnel-cli $version" ]
(cd "$portable/examples" && wine ../quarnel-cli.exe check two_story_y_up.qhm two_story_y_up.csv) \
    >"$work/portable.txt"
check "the unpacked command line completes a run" grep -q '^Calculation Complete' \
    "$work/portable.txt"

# The installer.
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quarnel'
wine "$setup" /S
folder=$(unix_path "$(value_of "$uninstall_key" InstallLocation)")
menu=$(unix_path "$(wine cmd /c 'echo %APPDATA%' | tr -d '\r')")/Microsoft/Windows/"Start Menu"
check "the installer registers its folder" test -d "$folder"
check "the installer registers its version" \
    [ "$(value_of "$uninstall_key" DisplayVersion)" = "$version" ]
check "the program is installed" test -s "$folder/Quarnel.exe"
check "the Start menu has an entry" test -s "$menu/Programs/Quarnel/Quarnel.lnk"
(cd "$folder/examples" && wine ../quarnel-cli.exe check five_story_office_z_up.qhm \
    five_story_office_z_up.csv) >"$work/installed.txt"
check "the installed command line completes a run" grep -q '^Calculation Complete' \
    "$work/installed.txt"
check "its results stand beside the example" \
    test -s "$folder/examples/five_story_office_z_up.aijR2Result.csv"

wine "$folder/Uninstall.exe" /S "_?=$(wine winepath -w "$folder" | tr -d '\r')"
rm -f "$folder/Uninstall.exe"  # it cannot remove itself while it is told to stay in its folder
rmdir "$folder" 2>/dev/null
check "the uninstaller removes the folder" is_absent "$folder"
check "the uninstaller removes the Start menu entry" is_absent "$menu/Programs/Quarnel"
check "the uninstaller removes its registration" has_no_key "$uninstall_key"

echo "$failures failed"
[ "$failures" = 0 ]
