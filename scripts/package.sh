#!/usr/bin/env bash
# Makes the packages for Windows users: a portable .zip and an installer.
# Usage: scripts/package.sh [FOLDER]      (default: build/packages)
#
# Needs nothing but this checkout on a Debian machine. The same sources give the same .zip, byte
# for byte.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
scripts/install-packages.sh "${native_packages[@]}" "${windows_packages[@]}" \
    "${package_packages[@]}"

out=${1:-build/packages}
version=$(sed -n 's/^project(Quarnel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=quarnel-$version-win64
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
content=$work/$name

log=$work/build.log
{ cmake --preset windows && cmake --build --preset windows --target Quarnel quarnel-cli SampleHost; } \
    >"$log" 2>&1 || { cat "$log" >&2; exit 1; }

mkdir -p "$content/examples/published" "$out"
cp build/windows/bin/{Quarnel,quarnel-cli,SampleHost}.exe "$content"
cp CHANGELOG.md "$content/CHANGELOG.txt"
# The example buildings and their input files, without the reports of runs made here.
find examples \( -name '*.qhm' -o -name '*.csv' \) ! -name '*.aijR2Result.csv' |
    while read -r file; do cp "$file" "$content/$file"; done
scripts/build-manual.sh "$content/manual.html"
cp app/quarnel.ico "$work/quarnel.ico"

# One date for all files and a fixed order make the archive reproducible.
find "$work" -exec touch -d '2026-01-01T00:00:00Z' {} +
rm -f "$out/$name.zip"
(cd "$work" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -X -q -9 "$name.zip" -@)
cp "$work/$name.zip" "$out/$name.zip"

(cd "$content" && find . -type f | LC_ALL=C sort | sed 's|^\./||; s|/|\\|g; s|.*|Delete "$INSTDIR\\&"|'
 for folder in 'examples\published' examples; do
     printf 'Delete "$INSTDIR\\%s\\*.aijR2Log.txt"\nDelete "$INSTDIR\\%s\\*.aijR2Result.csv"\n' \
         "$folder" "$folder"
     printf 'RMDir "$INSTDIR\\%s"\n' "$folder"
 done) >"$work/installed-files.nsh"
makensis -V2 -NOCD -DVERSION="$version" -DCONTENT="$content" -DOUTPUT="$work/setup.exe" \
    -DFILE_LIST="$work/installed-files.nsh" packaging/installer.nsi
cp "$work/setup.exe" "$out/quarnel-$version-setup.exe"

echo "$out/$name.zip"
echo "$out/quarnel-$version-setup.exe"
