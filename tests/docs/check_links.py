#!/usr/bin/env python3
"""Checks that what the documents link to is there: files, and headings within them."""

import sys

from markdown import ROOT, fail_with, heading_anchors, links


def documents():
    found = [path.relative_to(ROOT) for path in ROOT.rglob("*.md")]
    return sorted(str(path) for path in found if path.parts[0] != "build")


def broken(document, link):
    if "://" in link or link.startswith("mailto:"):
        return ""
    file, _, anchor = link.partition("#")
    target = (ROOT / document).parent / file if file else ROOT / document
    if not target.exists():
        return f"{document} links to {link}, which is not there"
    if anchor and target.suffix == ".md":
        if anchor not in heading_anchors(target.read_text(encoding="utf-8")):
            return f"{document} links to {link}, and no heading there has this anchor"
    return ""


def main():
    problems = []
    for document in documents():
        for link in links((ROOT / document).read_text(encoding="utf-8")):
            problems.append(broken(document, link))
    return fail_with([problem for problem in problems if problem])


if __name__ == "__main__":
    sys.exit(main())
