#!/usr/bin/env bash
# Makes a new folder in memory, where 6 GiB of it are free and programs may be started from it, and
# prints its path; else it says nothing and ends with 1. Whoever asked for it removes it.
set -euo pipefail
needed_kib=$((6 * 1024 * 1024))

[ -w /dev/shm ] || exit 1
[ "$(stat -f -c %T /dev/shm)" = tmpfs ] || exit 1
free_kib=$(df -k --output=avail /dev/shm | tail -n 1)
available_kib=$(sed -n 's/^MemAvailable: *\([0-9]*\) kB$/\1/p' /proc/meminfo)
[ "$free_kib" -ge "$needed_kib" ] && [ "${available_kib:-0}" -ge "$needed_kib" ] || exit 1
folder=$(mktemp -d /dev/shm/quarnel-XXXXXX)
printf '#!/bin/sh\n' >"$folder/program"
chmod +x "$folder/program"
"$folder/program" 2>/dev/null || { rm -r "$folder"; exit 1; }
rm "$folder/program"
echo "$folder"
