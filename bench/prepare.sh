# Sourced by the measurements of whole programs: builds quarnel-cli and the writer of buildings into
# build/bench/bin, and leaves an empty folder, $folder, that is removed at the end.
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/debian-packages.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${bench_packages[@]}"
mkdir -p build
log=build/bench-build.log
{ cmake --preset bench && cmake --build --preset bench --target quarnel-cli quarnel-bench-building; } \
    >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
