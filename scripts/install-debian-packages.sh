#!/usr/bin/env bash
# Installs those of the named Debian packages that are missing; says nothing when none is.
# Usage: scripts/install-debian-packages.sh PACKAGE...
# Where something else is installing, it waits for that, ten minutes at most.
set -euo pipefail

missing=()
for package in "$@"; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "$(id -u)" = 0 ]; then
    as_root=()
elif command -v sudo >/dev/null; then
    as_root=(sudo)
else
    echo "These Debian packages are missing and only root can install them: ${missing[*]}" >&2
    exit 1
fi

echo "Installing Debian packages: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=600 install -y -q --no-install-recommends "${missing[@]}" >"$log" 2>&1
}
# A machine that was just set up has no package lists yet, an old one has outdated lists.
if ! install; then
    "${as_root[@]}" apt-get update -q >"$log" 2>&1 && install || {
        cat "$log" >&2
        echo "Installing failed; the lines above say why." >&2
        exit 1
    }
fi
