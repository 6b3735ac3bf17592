"""What the checks of the documents need of Markdown."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def table_rows(text):
    """Cells of every row of every table, headings and rules left out."""
    lines = text.splitlines()
    for number, line in enumerate(lines):
        if not line.startswith("|") or re.fullmatch(r"[|\s:-]+", line):
            continue
        follows = lines[number + 1] if number + 1 < len(lines) else ""
        if re.fullmatch(r"[|\s:-]+", follows) and follows.startswith("|"):
            continue
        yield [cell.strip() for cell in line.strip().strip("|").split("|")]


def heading_anchors(text):
    """Anchors of the headings, as web viewers of Markdown form them."""
    anchors = set()
    for line in without_code(text).splitlines():
        heading = re.match(r"#+\s+(.*)", line)
        if heading:
            words = re.sub(r"[^\w\- ]", "", heading.group(1).strip().lower())
            anchors.add(words.replace(" ", "-"))
    return anchors


def without_code(text):
    return re.sub(r"```.*?```", "", text, flags=re.S)


def links(text):
    return re.findall(r"\]\(([^)\s]+)\)", without_code(text))


def fail_with(problems):
    """Prints what was found wrong; the exit code."""
    found = list(problems)
    for problem in found:
        print(problem, file=sys.stderr)
    return 1 if found else 0
