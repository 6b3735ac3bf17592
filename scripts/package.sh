#!/usr/bin/env bash
# Makes the packages for Windows users: a portable .zip and an installer; and the manifests by which
# package managers find them.
# Usage: scripts/package.sh [FOLDER [BASE]]      (default: build/packages https://BASE-ADDRESS)
#
# BASE: the address below which whoever publishes the two files offers them.
# Needs nothing but this checkout on a Debian machine. Of the examples, what git tracks is packed.
# What build/windows has up to date is not built again.
# The same sources give the same .zip, byte for byte, in whatever folder and whenever.
set -euo pipefail
out=$(realpath -m "${1:-$(dirname "$0")/../build/packages}")
base=${2:-https://BASE-ADDRESS}
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${windows_packages[@]}" \
    "${package_packages[@]}"

version=$(sed -n 's/^project(Quarnel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=quarnel-$version-win64
mapfile -t programs <packaging/programs.txt
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
content=$work/$name

log=$work/build.log
{ cmake --preset windows && cmake --build --preset windows --target "${programs[@]}"; } \
    >"$log" 2>&1 || { cat "$log" >&2; exit 1; }

mkdir -p "$content" "$out"
for program in "${programs[@]}"; do
    cp "build/windows/bin/$program.exe" "$content"
done
cp CHANGELOG.md "$content/CHANGELOG.txt"
cp docs/third-party.md "$content/third-party-notices.txt"
scripts/list-example-files.sh | xargs -0 cp --parents --target-directory="$content"
scripts/build-manual.sh "$content"

# One date for all files, the same rights and a fixed order make the archive reproducible.
find "$content" -type f -exec chmod 644 {} +
find "$content" -exec touch -d '2026-01-01T00:00:00Z' {} +
rm -f "$out/$name.zip"
(cd "$work" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -X -q -9 "$name.zip" -@)
cp "$work/$name.zip" "$out/$name.zip"

scripts/make-installer.sh "$version" "$content" "$out/quarnel-$version-setup.exe"
scripts/make-manifests.sh "$version" "$base" "$out/$name.zip" "$out/quarnel-$version-setup.exe" \
    "$out/manifests"

echo "$out/$name.zip"
echo "$out/quarnel-$version-setup.exe"
echo "$out/manifests"
