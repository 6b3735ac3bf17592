#!/usr/bin/env bash
# Makes the manifests by which package managers for Windows find the packages: three for winget, one
# for scoop. scripts/package.sh calls it.
# Usage: scripts/make-manifests.sh VERSION BASE ZIP INSTALLER FOLDER
#
# BASE: the address below which the two files are offered.
set -euo pipefail
[ $# = 5 ] || { sed -n '2,6s/^# \{0,1\}//p' "$0" >&2; exit 2; }
version=$1 base=${2%/} zip=$3 installer=$4 folder=$5

checksum() { sha256sum "$1" | cut -d ' ' -f 1; }

description='Route 2 seismic story checks of analysed buildings, with a calculation sheet'
identifier=Quarnel.Quarnel
schema=1.6.0

winget_version() {
    cat <<EOF
PackageIdentifier: $identifier
PackageVersion: $version
DefaultLocale: en-US
ManifestType: version
ManifestVersion: $schema
EOF
}

winget_installer() {
    cat <<EOF
PackageIdentifier: $identifier
PackageVersion: $version
InstallerType: nullsoft
Scope: user
UpgradeBehavior: install
FileExtensions:
- qhm
Installers:
- Architecture: x64
  InstallerUrl: $base/$(basename "$installer")
  InstallerSha256: $(checksum "$installer" | tr a-f A-F)
ManifestType: installer
ManifestVersion: $schema
EOF
}

winget_locale() {
    cat <<EOF
PackageIdentifier: $identifier
PackageVersion: $version
PackageLocale: en-US
Publisher: Quarnel
PackageName: Quarnel
License: All rights reserved
ShortDescription: $description
ManifestType: defaultLocale
ManifestVersion: $schema
EOF
}

scoop() {
    cat <<EOF
{
    "version": "$version",
    "description": "$description",
    "homepage": "$base",
    "license": "Proprietary",
    "architecture": {
        "64bit": {
            "url": "$base/$(basename "$zip")",
            "hash": "$(checksum "$zip")",
            "extract_dir": "$(basename "$zip" .zip)"
        }
    },
    "bin": ["quarnel-cli.exe", "SampleHost.exe"],
    "shortcuts": [
        ["Quarnel.exe", "Quarnel"],
        ["QuarnelSheet.exe", "Quarnel Sheet"]
    ]
}
EOF
}

mkdir -p "$folder/winget" "$folder/scoop"
winget_version >"$folder/winget/$identifier.yaml"
winget_installer >"$folder/winget/$identifier.installer.yaml"
winget_locale >"$folder/winget/$identifier.locale.en-US.yaml"
scoop >"$folder/scoop/quarnel.json"
