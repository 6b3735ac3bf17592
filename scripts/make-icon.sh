#!/usr/bin/env bash
# Makes desktop/quarnel.ico from desktop/quarnel.svg: needed only when the drawing changes.
# Needs Debian's librsvg2-bin and icoutils.
set -eu
cd "$(dirname "$0")/../desktop"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for size in 16 32; do
    rsvg-convert --width "$size" --height "$size" --output "$work/$size.png" quarnel.svg
done
icotool --create --output quarnel.ico "$work/16.png" "$work/32.png"
