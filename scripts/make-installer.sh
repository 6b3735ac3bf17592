#!/usr/bin/env bash
# Makes an installer of what is in a folder; scripts/package.sh does everything before.
# Usage: scripts/make-installer.sh VERSION CONTENT_FOLDER OUT.exe [FILES_OF_1_0]
#
# FILES_OF_1_0: what the installer of 1.0 wrote, which left no list of it.
set -euo pipefail
[ $# -ge 3 ] || { sed -n '2,5s/^# \{0,1\}//p' "$0" >&2; exit 2; }
version=$1
content=$(realpath "$2")
out=$(realpath -m "$3")
files_of_1_0=$(realpath "${4:-$(dirname "$0")/../packaging/files_of_1.0.txt}")
cd "$(dirname "$0")/../packaging"

content_files=$(mktemp)
trap 'rm -f "$content_files"' EXIT
(cd "$content" && find . -type f -printf '%P\0' | LC_ALL=C sort -z | xargs -0 sha256sum) |
    sed 's|/|\\|g' >"$content_files"

makensis -V2 -NOCD -DVERSION="$version" -DCONTENT="$content" -DCONTENT_FILES="$content_files" \
    -DCONTENT_KB="$(du -sk "$content" | cut -f 1)" -DFILES_OF_1_0="$files_of_1_0" -DICON="$PWD/../desktop/quarnel.ico" -DOUTPUT="$out" installer.nsi
