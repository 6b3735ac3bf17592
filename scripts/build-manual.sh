#!/usr/bin/env bash
# Builds the manual as two HTML pages that need no network: manual.html and manual.ja.html.
# Usage: scripts/build-manual.sh FOLDER
#
# The Japanese page leads to the English one beside it for what is in English only.
set -euo pipefail
[ $# = 1 ] || { sed -n '2,5s/^# \{0,1\}//p' "$0" >&2; exit 2; }
out=$(realpath -m "$1")
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
command -v pandoc >/dev/null || scripts/install-debian-packages.sh pandoc

version=$(sed -n 's/^project(Quarnel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# Below docs/.
english=(manual input-file results-file calculation-sheet processing-log worked-example verification
         qhm-file tables third-party)
japanese=(ja/manual ja/input-file ja/results-file ja/calculation-sheet ja/tables third-party)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Embedding has another name in newer versions.
embed=--embed-resources
pandoc --help | grep -q -e "$embed" || embed=--self-contained

# build LANGUAGE FOLDER_OF_PAGES OTHER_FILE OTHER_PAGES PAGE...    writes $work/LANGUAGE.html
build() {
    local language=$1 folder=$2 other=$3 other_pages=$4 page
    shift 4
    for page in "$@"; do
        printf '\n<div id="page-%s"></div>\n\n' "${page#ja/}"
        cat "docs/$page.md"
    done >"$work/$language.md"
    pandoc "$work/$language.md" \
        --from gfm+tex_math_dollars+raw_html+east_asian_line_breaks-yaml_metadata_block --to html5 \
        --standalone "$embed" --mathml --toc --toc-depth 2 --resource-path "docs/$folder" \
        --metadata title="Quarnel $version" --css docs/page/manual.css \
        --variable lang="$language" --variable folder="$folder" --variable pages="$*" \
        --variable other="$other" --variable other-pages="$other_pages" \
        --lua-filter docs/page/links.lua --output "$work/$language.html"
}
build en "" manual.ja.html "${japanese[*]}" "${english[@]}"
build ja ja manual.html "${english[*]}" "${japanese[@]}"

mkdir -p "$out"
mv "$work/en.html" "$out/manual.html"
mv "$work/ja.html" "$out/manual.ja.html"
