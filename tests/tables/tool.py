"""Starts quarnel-cli for the checks of this folder, and counts what they found."""

import argparse
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = [ROOT / "examples" / name
            for name in ("five_story_office_z_up", "two_story_y_up", "worked_example")]


class Tool:
    def __init__(self, cli, launcher):
        self.command = ([launcher] if launcher else []) + [cli]

    def run(self, *arguments):
        done = subprocess.run(self.command + [str(a) for a in arguments], capture_output=True)
        done.stdout = done.stdout.decode("utf-8").replace("\r\n", "\n")
        done.stderr = done.stderr.decode("utf-8").replace("\r\n", "\n")
        return done


class Checks:
    """Collects what is wrong; ends the program with what was counted."""

    def __init__(self):
        self.passed, self.wrong = 0, []

    def expect(self, holds, what):
        if holds:
            self.passed += 1
        else:
            self.wrong.append(what)

    def finish(self):
        for what in self.wrong[:20]:
            print(what)
        print("%d passed, %d failed" % (self.passed, len(self.wrong)))
        sys.exit(1 if self.wrong else 0)


def tool_and_folder(description):
    """The program under test and a folder of one's own."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--launcher")
    arguments = parser.parse_args()
    folder = tempfile.TemporaryDirectory()
    return Tool(arguments.cli, arguments.launcher), folder
