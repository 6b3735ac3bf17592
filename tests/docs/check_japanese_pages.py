#!/usr/bin/env python3
"""Holds the pages in Japanese and the English ones against each other, heading by heading.

Words are the translator's; everything else must be the same: headings in number, level and order,
what stands in code font (keywords, options, file names), menus, status lines and other quoted texts,
tables row by row with their figures and what is verbatim in them, figures in the text, formulas,
blocks of code, links, drawings.
"""

import pathlib
import re
import sys

from markdown import ROOT, fail_with, read

REQUIRED = ("manual", "input-file", "results-file", "calculation-sheet", "tables")

# Columns of tables that are the same in both languages, by their English heading.
VERBATIM = {"column", "menu File", "in the files", "日本語", "id", "kind", "says", "block", "key"}
# The same where it is the first column, or where it is a further one.
VERBATIM_FIRST, VERBATIM_FURTHER = {"line"}, {"section"}
# English figures in words, which are digits in Japanese.
IN_WORDS = {"one tenth": "1/10", "nineteen": "19", "the ten of": "the 10 of",
            "A billionth part": "10⁻⁹"}


class Section:
    """A heading with what follows it up to the next one."""

    def __init__(self, level, heading):
        self.level, self.heading = level, heading
        self.lines, self.blocks = [], []

    def text(self):
        return "\n".join([self.heading, *self.lines])


def sections(page):
    """The sections of a page; fenced blocks are taken out of their lines."""
    found, block = [], None
    for line in page.splitlines():
        if line.strip().startswith("```"):
            if block is None:
                block = []
            else:
                found[-1].blocks.append(block)
                block = None
        elif block is not None:
            block.append(line.strip())
        elif heading := re.match(r"(#+)\s+(.*)", line):
            found.append(Section(len(heading[1]), heading[2]))
        else:
            found[-1].lines.append(line)
    return found


# --- What a text has ------------------------------------------------------------------------------

def code(text):
    return set(re.findall(r"`([^`\n]+)`", text))


def without_code(text):
    return re.sub(r"`[^`\n]+`", "` `", text)


def formulas(text):
    """Formulas that stand by themselves, without the words in them."""
    return [re.sub(r"\\text\{[^}]*\}|\s", "", formula)
            for formula in re.findall(r"\$\$(.*?)\$\$", text, flags=re.S)]


def symbols(text):
    text = re.sub(r"\$\$.*?\$\$", "", without_code(text), flags=re.S)
    return set(re.findall(r"\$([^$\n]+)\$", text))


def menus(text):
    """Names in menus and of columns, which are emphasised; emphasised words of a sentence are not."""
    found = re.findall(r"(?<![*\w])\*([^*\n]+)\*(?!\*)", " ".join(without_code(text).split("\n")))
    return {name for name in found if name.isascii() and (name[0].isupper() or " " not in name)}


def quoted(text):
    """Status lines and other texts of the program."""
    found = re.findall(r'"([^"]+)"', " ".join(without_code(text).split()))
    return {name for name in found if name.isascii() and not name[0].islower()}


def plain(text):
    """The text alone, without formulas, targets of links and names that hold figures."""
    text = re.sub(r"\$\$.*?\$\$|\$[^$\n]+\$", " ", without_code(text), flags=re.S)
    text = re.sub(r"\]\([^)\s]*\)", "]", text)
    for words, digits in IN_WORDS.items():
        text = text.replace(words, digits)
    return re.sub(r"\b[A-Za-z]\w*\d\w*", " ", text)


def figures(text):
    return set(re.findall(r"\d+(?:,\d{3})*(?:\.\d+)?(?:/\d+)?", plain(text)))


def figures_that_are_no_counts(text):
    """One digit may be a count that English has in words."""
    return {figure for figure in figures(text) if len(figure) > 1}


def tables(section):
    """The tables of a section, each a list of rows, the heading first."""
    found, rows = [], []
    for line in [*section.lines, ""]:
        if line.strip().startswith("|"):
            rows.append([cell.strip() for cell in line.strip().strip("|").split("|")])
        elif rows:
            found.append([row for row in rows if not re.fullmatch(r"[-: ]*", "".join(row))])
            rows = []
    return found


# --- Links ----------------------------------------------------------------------------------------

def in_japanese(path):
    """The Japanese counterpart of a file; the file itself where there is none."""
    path = pathlib.PurePosixPath(path)
    if path.name == "README.md" and str(path.parent) == ".":
        return "README.ja.md"
    if path.suffix in (".svg", ".png"):
        other = path.with_suffix(".ja" + path.suffix)
    else:
        other = path.parent / "ja" / path.name
    return str(other if (ROOT / other).exists() else path)


def anchors(path):
    return [re.sub(r"[^\w\- ]", "", section.heading.lower()).replace(" ", "-")
            for section in sections(read(path))]


def position(path, anchor):
    if not anchor:
        return 0
    headings = anchors(path)
    return headings.index(anchor) if anchor in headings else anchor


def places(page, text):
    """Where the links of a text lead: (file, number of the heading)."""
    for link in re.findall(r"\]\(([^)\s]+)\)", without_code(text)):
        if "://" in link:
            yield link, 0
            continue
        file, _, anchor = link.partition("#")
        target = (ROOT / page).parent / file if file else ROOT / page
        path = str(target.resolve().relative_to(ROOT))
        yield path, position(path, anchor) if path.endswith(".md") else 0


def to_one_another(page, other):
    """The link that leads from a page to the same page in the other language."""
    return next((link for link in places(page, read(page)) if link == (other, 0)), None)


# --- Comparisons: each yields what differs in a section -------------------------------------------

def compare_sets(what, english, japanese, also_more=True):
    for missing in sorted(english - japanese):
        yield f"{what} {missing} is missing"
    for extra in sorted(japanese - english) if also_more else ():
        yield f"{what} {extra} is not in the English page"


def compare_blocks(english, japanese):
    if [len(block) for block in english] != [len(block) for block in japanese]:
        yield "the blocks of code differ in number or length"
        return
    for ours, theirs in zip(english, japanese):
        for line, other in zip(ours, theirs):
            # What explains a command stands behind a gap, or a comment's mark.
            command = re.split(r"\s{2,}|\s+#", line)[0]
            same = other == line or not other.isascii() and other.startswith(command)
            if not same:
                yield f"the line of code {other} is {line} in English"


def verbatim_cells(headings, row):
    for number, (heading, cell) in enumerate(zip(headings, row)):
        if heading in VERBATIM | (VERBATIM_FURTHER if number else VERBATIM_FIRST):
            yield cell


def compare_rows(headings, row, other):
    where = f"row {row[0]}"
    if len(row) != len(other):
        yield f"{where}: {len(other)} cells instead of {len(row)}"
        return
    for cell in verbatim_cells(headings, row):
        if cell not in other:
            yield f"{where}: {cell} is missing"
    ours, theirs = " | ".join(row), " | ".join(other)
    for what in compare_sets("code", code(ours), code(theirs)):
        yield f"{where}: {what}"
    for what in compare_figures(ours, theirs):
        yield f"{where}: {what}"


def compare_figures(english, japanese):
    yield from compare_sets("the figure", figures(english), figures(japanese), also_more=False)
    yield from (what for what in compare_sets("the figure", figures_that_are_no_counts(english),
                                              figures_that_are_no_counts(japanese))
                if "not in" in what)


def compare_tables(english, japanese):
    if [len(table) for table in english] != [len(table) for table in japanese]:
        yield (f"tables of {[len(table) for table in japanese]} rows instead of "
               f"{[len(table) for table in english]}")
        return
    for table, other in zip(english, japanese):
        for row, other_row in zip(table[1:], other[1:]):
            yield from compare_rows(table[0], row, other_row)


def compare_links(english, japanese, pages):
    ours = sorted((in_japanese(path), place) for path, place in places(pages[0], english)
                  if path != pages[1])
    theirs = sorted((path, place) for path, place in places(pages[1], japanese)
                    if path != pages[0])
    for path, place in ours:
        if (path, place) not in theirs:
            yield f"no link leads to {path}, heading {place}"
    for path, place in theirs:
        if (path, place) not in ours:
            yield f"the English page has no link to {path}, heading {place}"


def compare_sections(english, japanese, pages):
    ours, theirs = english.text(), japanese.text()
    yield from compare_blocks(english.blocks, japanese.blocks)
    yield from compare_tables(tables(english), tables(japanese))
    yield from compare_sets("code", code(ours), code(theirs))
    yield from compare_sets("the name", menus(ours), menus(theirs))
    yield from compare_sets("the text", quoted(ours), quoted(theirs))
    yield from compare_sets("the symbol", symbols(ours), symbols(theirs), also_more=False)
    yield from compare_figures(ours, theirs)
    yield from compare_links(ours, theirs, pages)
    if formulas(ours) != formulas(theirs):
        yield "the formulas differ"


def problems_of_page(english, japanese):
    for page, other in ((english, japanese), (japanese, english)):
        if not to_one_another(page, other):
            yield f"{page} has no link to {other}"
    ours, theirs = sections(read(english)), sections(read(japanese))
    for section, other in zip(ours, theirs):
        if section.level != other.level:
            yield (f"{japanese}: heading {other.heading} is of level {other.level}, "
                   f"{section.heading} of level {section.level}")
            return
    if len(ours) != len(theirs):
        yield f"{japanese} has {len(theirs)} headings, {english} {len(ours)}"
        return
    for section, other in zip(ours, theirs):
        for what in dict.fromkeys(compare_sections(section, other, (english, japanese))):
            yield f"{japanese}, {other.heading} ({section.heading}): {what}"


# --- Drawings -------------------------------------------------------------------------------------

def without_words(drawing):
    drawing = re.sub(r'font-family="[^"]*"', "", drawing)
    return re.sub(r">[^<]*[^\s<][^<]*<", "><", drawing)


def problems_of_drawings():
    for path in sorted((ROOT / "docs" / "images").glob("*.ja.svg")):
        original = path.with_name(path.name.replace(".ja.svg", ".svg"))
        if without_words(path.read_text("utf-8")) != without_words(original.read_text("utf-8")):
            yield f"{path.name} and {original.name} differ in more than their words"


def pages():
    yield "README.md", "README.ja.md"
    names = {path.stem for path in (ROOT / "docs" / "ja").glob("*.md")} | set(REQUIRED)
    for name in sorted(names):
        yield f"docs/{name}.md", f"docs/ja/{name}.md"


def problems():
    for pair in pages():
        absent = [page for page in pair if not (ROOT / page).exists()]
        yield from (f"{page} is missing" for page in absent)
        if not absent:
            yield from problems_of_page(*pair)
    yield from problems_of_drawings()


if __name__ == "__main__":
    sys.exit(fail_with(problems()))
