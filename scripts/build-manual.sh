#!/usr/bin/env bash
# Builds the manual as one HTML page that needs no other file and no network.
# Usage: scripts/build-manual.sh OUT.html
set -euo pipefail
[ $# = 1 ] || { sed -n '2,3s/^# //p' "$0" >&2; exit 2; }
out=$(realpath -m "$1")
cd "$(dirname "$0")/.."
. scripts/packages.sh
command -v pandoc >/dev/null || scripts/install-packages.sh pandoc

version=$(sed -n 's/^project(Quarnel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
pages=(manual input-file results-file processing-log worked-example verification qhm-file tables third-party)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
page_variables=()
for page in "${pages[@]}"; do
    page_variables+=(--variable "page-$page=yes")
    printf '\n<div id="page-%s"></div>\n\n' "$page"
    cat "docs/$page.md"
done >"$work/manual.md"

# Embedding has another name in newer versions.
embed=--embed-resources
pandoc --help | grep -q -e "$embed" || embed=--self-contained

pandoc "$work/manual.md" --from gfm+tex_math_dollars+raw_html-yaml_metadata_block --to html5 \
    --standalone "$embed" --mathml --toc --toc-depth 2 --resource-path docs \
    --metadata title="Quarnel $version" --metadata lang=en --css docs/page/manual.css \
    "${page_variables[@]}" --lua-filter docs/page/links.lua --output "$work/manual.html"
mkdir -p "$(dirname "$out")"
mv "$work/manual.html" "$out"
