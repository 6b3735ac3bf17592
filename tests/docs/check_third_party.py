#!/usr/bin/env python3
"""Holds docs/third-party.md against what the programs are made with.

Every library that is compiled into a program has a row in its table, and every row a notice.
"""

import re
import sys

from markdown import fail_with, heading_anchors, read, table_rows


def packages_of(purpose):
    """Debian packages of one of the lists in scripts/debian-packages.sh."""
    return re.search(rf"^{purpose}=\((.*?)\)", read("scripts/debian-packages.sh"), re.M | re.S)[1].split()


def compiled_in():
    """Debian packages whose code ends up in a program that is handed out."""
    libraries = {package for purpose in ("native_packages", "windows_packages")
                 for package in packages_of(purpose) if package.endswith("-dev")}
    libraries.update(re.findall(r"^quarnel_header_library\(\S+ \S+ (\S+)\)",
                                read("cmake/debian_headers.cmake"), re.M))
    compilers = {package for package in packages_of("windows_packages")
                 if package.startswith("g++")}
    return libraries | compilers


def problems():
    page = read("docs/third-party.md")
    table, notices = page.split("## The notices")
    rows = list(table_rows(table))
    named = {cells[3].strip("`") for cells in rows}
    for package in sorted(compiled_in() - named):
        yield f"docs/third-party.md does not name {package}, which is compiled into the programs"
    for cells in rows:
        anchor = re.search(r"\(#([\w-]+)\)", cells[0])
        if not anchor or anchor[1] not in heading_anchors(notices):
            yield f"docs/third-party.md has no notice of {cells[0]}"
        if not cells[4]:
            yield f"docs/third-party.md names no licence of {cells[0]}"
    if len(rows) < 5:
        yield "docs/third-party.md: its table was not found"


if __name__ == "__main__":
    sys.exit(fail_with(problems()))
