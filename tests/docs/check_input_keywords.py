#!/usr/bin/env python3
"""Compares the keywords that docs/input-file.md explains with those that the readers know."""

import re
import sys

from markdown import fail_with, read, table_rows


def known_keywords():
    readers = read("route2/input_readers.cpp") + read("input/input_file.h")
    keywords = set(re.findall(r'Keyword\(\) [!=]= "(\w+)"', readers))
    keywords.update(re.findall(r'\{"(Allow\w+)", &StoryInfo', readers))
    keywords.update(re.findall(r'starts_with\("(\w+)"\)', readers))
    return keywords


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
