#!/usr/bin/env python3
"""Reads back from a built program what the build promises about it.

    check_program.py CASE PROGRAM BUILD_FOLDER VERSION     one case; exit code 0 when it holds
    check_program.py --list linux|windows                  the cases, one per line

PROGRAM is the file, BUILD_FOLDER where ninja built it, VERSION what it must call itself.
"""

import pathlib
import re
import struct
import subprocess
import sys

WINDOWS_TOOL = "x86_64-w64-mingw32-"
# What every Windows brings; a program may need nothing else.
SYSTEM_LIBRARIES = {"advapi32.dll", "bcrypt.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",
                    "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll",
                    "user32.dll"}
# Address space layout: high-entropy, dynamic base; and data are not run.
IMAGE_FLAGS = {"high-entropy addresses": 0x20, "a random base": 0x40, "data that are not run": 0x100}
# A program that is drawn anew at the resolution of each screen asks for it; the others have one.
SCREEN_TEXTS = {"QuarnelSheet.exe": [">true/pm</dpiAware>", ">PerMonitorV2</dpiAwareness>",
                                     'name="Microsoft.Windows.Common-Controls" version="6.0.0.0"']}


class Program:
    def __init__(self, path, build_folder, version):
        self.path = pathlib.Path(path)
        self.build_folder = pathlib.Path(build_folder)
        self.version = version

    def read_with(self, *command):
        return subprocess.run([*command, self.path], check=True, capture_output=True).stdout

    def text_of(self, *command):
        return self.read_with(*command).decode(errors="replace")

    def windows_headers(self):
        return self.text_of(WINDOWS_TOOL + "objdump", "-p")

    def symbols(self):
        """Names of the functions that are in it or that it takes from libraries."""
        if self.path.suffix == ".exe":
            listing = self.text_of(WINDOWS_TOOL + "nm")
        else:
            listing = self.text_of("nm", "--dynamic")
        return {line.split()[-1].split("@")[0] for line in listing.splitlines() if line.strip()}

    def resource(self, kind):
        return self.read_with("wrestool", "-x", "--raw", f"--type={kind}")

    def compile_commands(self):
        """Commands by which the product's own sources in it were compiled."""
        target = self.path.relative_to(self.build_folder)
        listing = subprocess.run(["ninja", "-C", self.build_folder, "-t", "commands", target],
                                 check=True, capture_output=True, text=True).stdout
        return [line for line in listing.splitlines() if re.search(r" -c \S+\.cpp$", line)]


def missing(found, *wanted):
    return [text for text in wanted if text not in found]


def stack_is_guarded(program):
    if "__stack_chk_fail" not in program.symbols():
        yield "no function of it checks its guard"
    for command in program.compile_commands():
        if "-fstack-protector-strong" not in command:
            yield "compiled without guards: " + command.split()[-1]


# Where every call is seen to be right at compile time the program has no checked one left; then
# the commands alone tell.
def library_calls_are_checked(program):
    commands = program.compile_commands()
    if not commands:
        yield "no command that compiles it was found"
    for command in commands:
        if "-D_FORTIFY_SOURCE=2" not in command or not re.search(r"-O[23]", command):
            yield "compiled without checked calls: " + command.split()[-1]
    checked = {name for name in program.symbols() if re.fullmatch(r"__\w+_chk", name)}
    if not checked and program.path.name != "quarnel-cli.exe":
        yield "no checked call of the C library is in it"


def tables_are_read_only(program):
    if "GNU_RELRO" not in program.text_of("readelf", "--program-headers", "--wide"):
        yield "its tables are not made read-only"
    if not re.search(r"\(FLAGS\).*BIND_NOW", program.text_of("readelf", "--dynamic", "--wide")):
        yield "its functions are not all bound at the start"


def code_may_lie_anywhere(program):
    if not re.search(r"Type:\s+DYN", program.text_of("readelf", "--file-header")):
        yield "it has to lie at a fixed address"


def image_is_randomised(program):
    flags = int(re.search(r"DllCharacteristics\s+(\w+)", program.windows_headers())[1], 16)
    for what, bit in IMAGE_FLAGS.items():
        if not flags & bit:
            yield f"it has not asked for {what}"


def carries_no_link_time(program):
    header = program.path.read_bytes()
    start = struct.unpack_from("<I", header, 0x3C)[0]
    stamp = struct.unpack_from("<I", header, start + 8)[0]
    if stamp != 0:
        yield f"its header says when it was linked: {stamp}"


def carries_no_path_of_the_build(program):
    source_folder = str(pathlib.Path(__file__).resolve().parents[2])
    if source_folder.encode() in program.path.read_bytes():
        yield f"it names {source_folder}"


def needs_what_windows_brings_only(program):
    needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", program.windows_headers())}
    for name in sorted(needed - SYSTEM_LIBRARIES):
        yield f"it needs {name}"


def restricts_the_search_for_libraries(program):
    if "__imp_SetDefaultDllDirectories" not in program.symbols():
        yield "it does not call SetDefaultDllDirectories"


def names_its_version(program):
    information = program.resource(16)
    numbers = [int(part) for part in program.version.split(".")] + [0, 0, 0]
    signature = information.find(struct.pack("<I", 0xFEEF04BD))
    if signature < 0:
        yield "it has no version information"
        return
    fixed = struct.unpack_from("<4I", information, signature + 8)
    expected = (numbers[0] << 16 | numbers[1], numbers[2] << 16 | numbers[3]) * 2
    if fixed != expected:
        yield f"its version numbers are {fixed} instead of {expected}"
    # Values begin at a multiple of four bytes, so one or two zeros stand after a name.
    texts = information.decode("utf-16-le", errors="replace").replace("\0\0", "\0")
    yield from (f"its version information lacks {text!r}" for text in missing(
        texts, f"ProductVersion\0{program.version}\0", f"InternalName\0{program.path.stem}\0",
        f"OriginalFilename\0{program.path.name}\0", "ProductName\0Quarnel\0",
        "FileDescription\0Quarnel "))


def has_the_manifest(program):
    manifest = program.resource(24).decode()
    yield from (f"its manifest lacks {text}" for text in missing(
        manifest, '<requestedExecutionLevel level="asInvoker" uiAccess="false"/>',
        ">UTF-8</activeCodePage>", ">true</longPathAware>", *SCREEN_TEXTS.get(
            program.path.name, [">true</dpiAware>"])))


CASES = {
    "linux": {
        "StackIsGuarded": stack_is_guarded,
        "LibraryCallsAreChecked": library_calls_are_checked,
        "TablesAreReadOnly": tables_are_read_only,
        "CodeMayLieAnywhere": code_may_lie_anywhere,
        "CarriesNoPathOfTheBuild": carries_no_path_of_the_build,
    },
    "windows": {
        "StackIsGuarded": stack_is_guarded,
        "LibraryCallsAreChecked": library_calls_are_checked,
        "ImageIsRandomised": image_is_randomised,
        "CarriesNoLinkTime": carries_no_link_time,
        "CarriesNoPathOfTheBuild": carries_no_path_of_the_build,
        "NeedsWhatWindowsBringsOnly": needs_what_windows_brings_only,
        "RestrictsTheSearchForLibraries": restricts_the_search_for_libraries,
        "NamesItsVersion": names_its_version,
        "HasTheManifest": has_the_manifest,
    },
}


def main(case, path, build_folder, version):
    system = "windows" if path.endswith(".exe") else "linux"
    problems = list(CASES[system][case](Program(path, build_folder, version)))
    for problem in problems:
        print(f"{path}: {problem}", file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--list":
        print("\n".join(CASES[sys.argv[2]]))
        sys.exit(0)
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
