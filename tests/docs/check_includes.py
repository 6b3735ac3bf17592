#!/usr/bin/env python3
"""Holds the table of folders in docs/architecture.md and every include against each other.

Both ways: a folder includes nothing that its row does not name, its row names nothing that the
folder does not include, and the rows stand from the ground up, so that no include runs back up.
System headers of Windows are included only where the row says so.
"""

import re
import sys

from markdown import ROOT, fail_with, read, table_rows

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.M)
WINDOWS_HEADERS = {
    "windows.h", "objbase.h", "comdef.h", "commctrl.h", "commdlg.h", "shellapi.h", "oleauto.h",
    "shlobj.h", "shobjidl.h", "wrl/client.h", "bcrypt.h", "io.h", "fcntl.h",
}
EVERYTHING = "everything"


def rows():
    """Folder -> (what it may include, where Windows headers may stand), in the table's order."""
    table = {}
    section = read("docs/architecture.md").split("## Folders", 1)[1].split("\n## ", 1)[0]
    for cells in table_rows(section):
        folder = re.match(r"`([^`]+)/`", cells[0])
        if folder is None or len(cells) != 4:
            continue
        may = EVERYTHING if cells[2] == EVERYTHING else set(re.findall(r"`([^`]+)/`", cells[2]))
        table[folder.group(1)] = (may, cells[3])
    return table


def windows_headers_allowed(path, where):
    if where == "all":
        return True
    return path.name in re.findall(r"`([^`]+)`", where)


def problems_of_folder(folder, may, windows):
    used = set()
    for path in sorted((ROOT / folder).rglob("*")):
        if path.suffix not in (".cpp", ".h", ".rc"):
            continue
        place = path.relative_to(ROOT)
        for ours, system in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if system in WINDOWS_HEADERS and not windows_headers_allowed(path, windows):
                yield f"{place} includes <{system}>; the row of {folder}/ does not allow it"
            other = ours.split("/", 1)[0] if "/" in ours else folder
            if not ours or other == folder:
                continue
            used.add(other)
            if may != EVERYTHING and other not in may:
                yield f'{place} includes "{ours}"; the row of {folder}/ does not name {other}/'
    if may != EVERYTHING:
        for unused in sorted(may - used):
            yield f"the row of {folder}/ names {unused}/, which nothing there includes"


def problems():
    table = rows()
    seen = set()
    for folder, (may, windows) in table.items():
        if may != EVERYTHING:
            for above in sorted(may - seen):
                yield f"{folder}/ may include {above}/, whose row does not stand above its own"
        seen.add(folder)
        yield from problems_of_folder(folder, may, windows)
    for path in sorted(ROOT.glob("*/*.cpp")):
        folder = path.parent.name
        if folder not in table and folder != "build":
            yield f"docs/architecture.md has no row for {folder}/"
            table[folder] = None


if __name__ == "__main__":
    if len(rows()) < 10:
        sys.exit("docs/architecture.md: the table of folders was not found")
    sys.exit(fail_with(list(problems())))
