#!/usr/bin/env python3
"""Compares the keywords that docs/input-file.md explains with those that the readers know."""

import re
import sys

from markdown import fail_with, read, table_rows


def known_keywords():
    table = re.search(r"kNames\[\] = \{(.*?)\};", read("input/keywords.cpp"), flags=re.S).group(1)
    end = re.search(r'kFin = "(\w+)"', read("input/keywords.h")).group(1)
    return {*re.findall(r'"(\w+)"', table), end}


def explained_keywords():
    table = read("docs/input-file.md").split("## The keywords")[1].split("## ")[0]
    return {cells[0].strip("`") for cells in table_rows(table)}


def main():
    known, explained = known_keywords(), explained_keywords()
    problems = [f"docs/input-file.md does not explain the keyword {k}" for k in known - explained]
    problems += [f"docs/input-file.md explains {k}, which no reader knows"
                 for k in explained - known]
    return fail_with(sorted(problems))


if __name__ == "__main__":
    sys.exit(main())
