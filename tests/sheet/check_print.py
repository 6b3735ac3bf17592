#!/usr/bin/env python3
"""check_print.py QUARNEL_CLI EXAMPLES CASES: calculation sheets as a real browser prints them.

A headless Chromium prints sheets to A4, with a log of everything that it asks the network for:

    examples  of each example, one of them in each language
    towers    of towers of 3 to 30 stories, whose files lie deep in folders, too
    errors    of towers with errors in the input file, which stand on the first page

Looked at is what came out: the paper, the number of pages, that all text lies between the margins,
that no row of a table is split by a page's end, that there is Japanese text, and that the page
asked nobody for anything.
"""

import json
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from tower import INPUT, tower

BROWSERS_OWN = re.compile(r"https?://[\w.-]*\.(google|googleapis|gvt1)\.com/")  # updates, its clock
BROWSERS = ("chromium", "chromium-browser", "google-chrome")
POINTS_PER_MM = 72 / 25.4
LEFT_MM, RIGHT_MM, PAGE_WIDTH_MM = 20, 12, 210
TITLE_WORD_POINTS = 24.8
# Levels between the floors: columns that are not counted, stories without members, many remarks.
FLOORS_THAT_ARE_NONE = ("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
                        "FloorLevel,0,5000,6000,6500,8600,12200,15800,19400,\nFIN\n")
# Errors that stand on the first page: one case for both directions, so that much is not calculated.
ONE_CASE_TWICE = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,2,\nFIN\n"
LAST_LINE_OF_STORIES = "Compare C with the load calculation"
MOST_STORIES_ON_FIRST_PAGE = 8
MOST_BODY_PAGES = 7  # of a building of up to eight stories
# Pages of towers before the appendix. Up to eight stories: summary and stories share a page; a page
# for each check, two with thirty stories; one for the method and the input. Six plans fill a page;
# remarks follow on their last one, or on the next where that is full. Nine stories have a page to
# themselves, thirty have two.
TOWER_PAGES = {3: 1 + 3 + 1 + 1, 5: 1 + 3 + 1 + 1 + 1, 8: 1 + 3 + 2 + 1, 9: 2 + 3 + 2 + 1,
               30: 3 + 6 + 5 + 1 + 1}
APPENDIX_PAGES_A_STORY = 0.9  # half for its members, a quarter for the results, and what stays empty
TOLERANCE_MM = 0.4
WORD = re.compile(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">(.*?)<')


def run(*command, folder=None):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=True, timeout=300, cwd=folder).stdout


def print_page(browser, page, folder):
    """The printed sheet and the addresses that the browser asked for on the way."""
    printed, log = folder / "sheet.pdf", folder / "net.json"
    for _ in range(2):  # a browser that starts while the machine is busy may give up
        subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu",
                        "--no-pdf-header-footer", "--disable-background-networking",
                        "--disable-component-update", "--host-resolver-rules=MAP * ~NOTFOUND",
                        f"--user-data-dir={folder / 'profile'}", f"--log-net-log={log}",
                        f"--print-to-pdf={printed}", page.as_uri()],
                       capture_output=True, check=False, timeout=300)
        if printed.exists():
            break
    asked = re.findall(r'"url":"(https?:[^"]+)"', log.read_text(errors="replace"))
    return printed, [address for address in asked if not BROWSERS_OWN.match(address)]


def pages_of(printed):
    info = run("pdfinfo", printed)
    return (int(re.search(r"Pages:\s+(\d+)", info)[1]),
            tuple(float(size) for size in re.search(r"Page size:\s+([\d.]+) x ([\d.]+)",
                                                    info).groups()))


def width_of_title(printed):
    """Of the title's first English word, points. A browser shrinks a page that is too wide."""
    page = run("pdftotext", "-l", 1, "-bbox", printed, "-")
    return next((float(right) - float(left) for left, _, right, _, text in WORD.findall(page)
                 if text == "Route"), None)


def problems_of_pages(printed):
    for number, page in enumerate(run("pdftotext", "-bbox", printed, "-").split("<page ")[1:], 1):
        words = [(float(left) / POINTS_PER_MM, float(right) / POINTS_PER_MM, text)
                 for left, _, right, _, text in WORD.findall(page)]
        if not words:
            yield f"page {number} is empty"
        for left, right, text in words:
            if left < LEFT_MM - TOLERANCE_MM or right > PAGE_WIDTH_MM - RIGHT_MM + TOLERANCE_MM:
                yield f"page {number}: {text!r} lies from {left:.1f} to {right:.1f} mm"


def body_pages(printed, pages):
    """Pages before the appendix."""
    for number in range(1, pages + 1):
        if re.search(r"^\s*A1\b", run("pdftotext", "-f", number, "-l", number, printed, "-"), re.M):
            return number - 1
    return pages


def first_page_holds_the_stories(printed):
    """What is wrong with the input is seen there: elevations, counts, shares, and all errors."""
    words = run("pdftotext", "-l", 1, printed, "-").split()
    return LAST_LINE_OF_STORIES in " ".join(words)


def with_marked_rows(html):
    """The page with two texts in every row of a table that nobody sees: one at the row's top, one
    at its bottom."""
    rows = 0

    def mark(match):
        nonlocal rows
        rows += 1
        marks = "".join(
            f'<span style="position:absolute;left:0;{side}:0;font-size:1px;line-height:1px;'
            f'color:transparent">{name}{rows}{name}</span>'
            for side, name in (("top", "ttt"), ("bottom", "bbb")))
        row, cell = match.groups()
        return f'{row}<{cell} style="position:relative">{marks}'

    # The style sheet has no rows.
    marked = re.sub(r"(<tr[^>]*>)<(t[dh][^>]*)>", mark, html)
    return marked, rows


def split_rows(printed, rows):
    """Rows whose two marks lie on different pages, or that were not printed."""
    pages = {}
    for number, page in enumerate(run("pdftotext", "-bbox", printed, "-").split("<page ")[1:], 1):
        for side, row in re.findall(r"(ttt|bbb)(\d+)\1", page):
            pages.setdefault(int(row), {}).setdefault(side, set()).add(number)
    for row in range(1, rows + 1):
        marks = pages.get(row, {})
        # The head of a table that goes on is printed on each of its pages.
        if not marks or marks.get("ttt") != marks.get("bbb"):
            yield f"row {row} of the page is split, or not printed: {marks}"


def check(cli, browser, model, input_text, language, start, *deep):
    """The sheet's paths begin with `deep`, not with `start`, whose length no test knows."""
    below = Path(*deep)
    folder = start / below
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "tower.qhm").write_text(model, encoding="utf-8")
    (folder / "input.csv").write_text(input_text, encoding="utf-8")
    page, figures = folder / "sheet.html", folder / "figures.json"
    run(cli, "sheet", below / "tower.qhm", below / "input.csv", page, "--lang", language,
        "--json", figures, folder=start)
    marked, rows = with_marked_rows(page.read_text(encoding="utf-8"))
    page.write_text(marked, encoding="utf-8")
    printed, asked = print_page(browser, page, folder)
    if not printed.exists():
        yield "the browser printed nothing"
        return
    pages, paper = pages_of(printed)
    stories = len(json.loads(figures.read_text(encoding="utf-8"))["stories"])
    body = body_pages(printed, pages)
    print(f"{language}: {stories} stories, {pages} pages, {body} before the appendix, {rows} rows")
    if any(abs(is_ - should) > 1.5 for is_, should in zip(paper, (595.28, 841.89))):
        yield f"the paper is {paper}"
    if language == "both" and abs((width_of_title(printed) or 0) - TITLE_WORD_POINTS) > 0.5:
        yield f"the page was shrunk, for something is too wide: {width_of_title(printed)}"
    has_many_remarks = input_text in (FLOORS_THAT_ARE_NONE, ONE_CASE_TWICE)
    if stories <= 8 and body > MOST_BODY_PAGES and not has_many_remarks:
        yield f"{body} pages before the appendix"
    if input_text == INPUT and body != TOWER_PAGES[stories]:
        yield f"{body} pages before the appendix, not {TOWER_PAGES[stories]}"
    if (input_text in (INPUT, ONE_CASE_TWICE) and stories <= MOST_STORIES_ON_FIRST_PAGE
            and language != "ja" and not first_page_holds_the_stories(printed)):
        yield "the stories do not end on the first page"
    if input_text == INPUT and pages - body > 1 + APPENDIX_PAGES_A_STORY * stories:
        yield f"{pages - body} pages of appendix"
    if asked:
        yield f"the browser asked for {asked}"
    if "判定" not in run("pdftotext", printed, "-") and language != "en":
        yield "no Japanese text was printed"
    yield from problems_of_pages(printed)
    yield from split_rows(printed, rows)


# As offices keep their files: each path takes two lines at the head of the sheet.
DEEP_FOLDER = ("ユーザー/山田太郎/構造計算書/2026年度/千代田区神田駿河台計画新築工事/解析モデル/"
               "third submission with the remarks of the reviewer")


def cases_of_examples(examples):
    for model in sorted(examples.glob("*.qhm")):
        for language in ("both", "ja", "en") if model.stem.startswith("five") else ("both",):
            yield (model.name, model.read_text(encoding="utf-8"),
                   model.with_suffix(".csv").read_text(encoding="utf-8"), language)
    office = (examples / "five_story_office_z_up.qhm").read_text(encoding="utf-8")
    yield "floors that are none", office, FLOORS_THAT_ARE_NONE, "both"


def cases_of_towers(_):
    for stories, language in ((3, "ja"), (5, "en"), (8, "both"), (9, "both"), (30, "both")):
        yield f"tower of {stories}", tower(stories), INPUT, language
    yield "tower of 8 deep in folders", tower(8), INPUT, "both", DEEP_FOLDER


def cases_of_errors(_):
    for stories, language in ((2, "both"), (5, "both"), (8, "both"), (8, "en")):
        yield f"tower of {stories} with errors", tower(stories), ONE_CASE_TWICE, language
    yield "tower of 8 with errors deep in folders", tower(8), ONE_CASE_TWICE, "both", DEEP_FOLDER


# Name, model file, input file and language of each sheet, and its folder where that matters.
CASES = {"examples": cases_of_examples, "towers": cases_of_towers, "errors": cases_of_errors}


def main():
    cli, examples, cases = Path(sys.argv[1]).resolve(), Path(sys.argv[2]), CASES[sys.argv[3]]
    browser = next((found for name in BROWSERS if (found := shutil.which(name))), None)
    if browser is None:
        print("there is no Chromium: install Debian's chromium, or start ./test, which does")
        return 1
    problems = []
    for name, model, input_text, language, *deep in cases(examples):
        with tempfile.TemporaryDirectory() as start:
            problems += [f"{name} {language}: {problem}" for problem in
                         check(cli, browser, model, input_text, language, Path(start), *deep)]
    print("\n".join(problems[:40]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
