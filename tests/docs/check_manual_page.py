#!/usr/bin/env python3
"""Builds the manual as one page in each language and checks that each stands alone.

    check_manual_page.py

Everything it shows is in the file, its links lead to places of its own or of the other language's
page beside it, and its formulas are MathML, which needs no script.
"""

import html.parser
import pathlib
import subprocess
import sys
import tempfile

from markdown import ROOT, fail_with


class Page(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.ids, self.links, self.sources = set(), [], []
        self.formulas = 0
        self.tags = set()
        self.text = []
        self.skipped = 0  # depth within elements whose text is no text of the page

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.tags.add(tag)
        self.ids.add(attributes.get("id"))
        if tag == "a":
            self.links.append(attributes.get("href", ""))
        elif tag == "math":
            self.formulas += 1
        elif tag == "link":
            self.sources.append(attributes.get("href", ""))
        if "src" in attributes:
            self.sources.append(attributes["src"])
        if tag in ("style", "script", "code", "annotation"):
            self.skipped += 1

    def handle_endtag(self, tag):
        if tag in ("style", "script", "code", "annotation"):
            self.skipped -= 1

    def handle_data(self, data):
        if not self.skipped:
            self.text.append(data)


def problems_of_link(link, pages, own):
    file, _, place = link.partition("#")
    page = pages.get(file or own)
    if page is None:
        yield f"the page links to the file {link}"
    elif place not in page.ids:
        yield f"no place is called {link}"


def problems_of(page, pages, own):
    for link in page.links:
        if "://" not in link:
            yield from problems_of_link(link, pages, own)
    for source in page.sources:
        if not source.startswith("data:"):
            yield f"the page needs {source[:80]}"
    if "script" in page.tags:
        yield "the page needs a script"
    if "$" in "".join(page.text):
        yield "a formula was left as text"
    if "**" in "".join(page.text):
        yield "bold words were left as text"
    if page.formulas < 20:
        yield f"the page has {page.formulas} formulas only"
    if "page-third-party" not in page.ids:
        yield "the notices of third parties are missing"
    if not any(source.startswith("data:image/svg") for source in page.sources):
        yield "the drawing of a story is missing"


def read_page(path):
    page = Page()
    page.feed(path.read_text(encoding="utf-8"))
    return page


def main():
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([ROOT / "scripts" / "build-manual.sh", folder], check=True)
        pages = {path.name: read_page(path) for path in pathlib.Path(folder).iterdir()}
    problems = [f"{name}: {what}" for name, page in pages.items()
                for what in problems_of(page, pages, name)]
    if sorted(pages) != ["manual.html", "manual.ja.html"]:
        problems.append(f"the manual is {sorted(pages)}")
    return fail_with(problems)


if __name__ == "__main__":
    sys.exit(main())
