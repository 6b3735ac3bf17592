#!/usr/bin/env python3
"""check_screen.py QUARNEL_CLI EXAMPLES: calculation sheets on a screen, and for screen readers.

A headless Chromium lays the page out in windows of 1280 and 800 pixels and, as at a zoom of 200 %,
of 640; a script that the page itself does not have looks at what came out: nothing makes the page
scroll sideways, and every text contrasts with what lies behind it as the accessibility guidelines
ask for (WCAG 2.2, 1.4.3: 4.5 to 1, and 3 to 1 for large letters). The page's tables have captions,
their heads say of what; the drawings have titles and descriptions.
"""

import json
import re
import shutil
import subprocess
import sys
import tempfile
from html.parser import HTMLParser
from pathlib import Path

from check_print import BROWSERS, FLOORS_THAT_ARE_NONE
from tower import INPUT, tower

WIDTHS = (1280, 800, 640)
RESULT = "what-the-test-saw"
PROBE = """<script>onload = () => {
const channels = text => {
    const [r, g, b, a = 1] = text.match(/[\\d.]+/g).map(Number);
    return [r, g, b, a];
};
const luminance = ([r, g, b]) => {
    const linear = c => (c /= 255) <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4;
    return 0.2126 * linear(r) + 0.7152 * linear(g) + 0.0722 * linear(b);
};
const behind = element => {
    for (let at = element; at; at = at.parentElement) {
        const color = channels(getComputedStyle(at).backgroundColor);
        if (color[3] === 1) return color;
    }
    return [255, 255, 255];
};
const faint = {};
let texts = 0;
for (const element of document.querySelectorAll("body *")) {
    const own = [...element.childNodes].some(n => n.nodeType === 3 && n.data.trim());
    const style = getComputedStyle(element);
    if (!own || element.closest("title, desc, script") || !element.getClientRects().length) continue;
    ++texts;
    const color = element.closest("svg") ? style.fill : style.color;
    const [low, high] = [luminance(channels(color)), luminance(behind(element))].sort((a, b) => a - b);
    const ratio = (high + 0.05) / (low + 0.05);
    const points = parseFloat(style.fontSize) * 0.75;
    const isLarge = points >= 18 || points >= 14 && style.fontWeight >= 700;
    if (ratio < (isLarge ? 3 : 4.5))
        faint[`${color} in ${element.tagName} ${element.className}`] = ratio;
}
const page = document.documentElement;
const seen = document.createElement("pre");
seen.id = "RESULT";
seen.textContent = JSON.stringify(
    {window: innerWidth, room: page.clientWidth, width: page.scrollWidth, texts, faint});
document.body.prepend(seen);
}</script>""".replace("RESULT", RESULT)


def look(browser, html, width, folder):
    """What the script saw of the page in a window."""
    page = folder / "probed.html"
    without_policy = re.sub(r'<meta http-equiv="Content-Security-Policy"[^>]*>', "", html)
    page.write_text(without_policy.replace("</head>", PROBE + "</head>"), encoding="utf-8")
    for _ in range(2):  # a browser that starts while the machine is busy may give up
        shown = subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu",
                                "--disable-background-networking",
                                f"--user-data-dir={folder / 'profile'}",
                                f"--window-size={width},900", "--dump-dom", page.as_uri()],
                               capture_output=True, text=True, check=False, timeout=300).stdout
        if seen := re.search(f'id="{RESULT}">(.*?)</pre>', shown):
            return json.loads(seen[1].replace("&lt;", "<").replace("&gt;", ">"))
    return None


def problems_on_screen(browser, html, folder):
    for width in WIDTHS:
        seen = look(browser, html, width, folder)
        if seen is None or seen["window"] != width or seen["texts"] < 100:
            yield f"{width} pixels: the page was not looked at: {seen}"
            continue
        if seen["width"] > seen["room"]:
            yield f"{width} pixels: the page is {seen['width']} wide in a room of {seen['room']}"
        for text, ratio in seen["faint"].items():
            yield f"{width} pixels: {text} has a contrast of {ratio:.2f} only"


class Outline(HTMLParser):
    """What a screen reader is told of tables and drawings."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.problems = []
        self.tables = self.drawings = 0
        self.table = self.row = self.drawing = None
        self.figure = False
        self.part = None
        self.text = None

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag == "table":
            self.tables += 1
            self.table = {"name": attributes.get("data-table"), "caption": ""}
        elif tag in ("thead", "tbody"):
            self.part = tag
        elif tag == "tr":
            self.row = []
        elif tag in ("th", "td") and self.row is not None:
            self.row.append((tag, attributes.get("scope")))
        elif tag == "svg":
            self.drawings += 1
            self.drawing = {"role": attributes.get("role"), "title": "", "desc": ""}
        elif tag == "figure":
            self.figure = True
        if tag in ("caption", "title", "desc"):
            self.text = tag

    def handle_data(self, data):
        if self.text == "caption":
            self.table["caption"] += data
        elif self.text in ("title", "desc") and self.drawing is not None:
            self.drawing[self.text] += data

    def handle_endtag(self, tag):
        if tag in ("caption", "title", "desc"):
            self.text = None
        elif tag == "tr":
            self.check_row()
            self.row = None
        elif tag == "table":
            if not self.table["caption"].strip():
                self.problems.append(f"the table {self.table['name']} has no caption")
        elif tag == "svg":
            self.check_drawing()
            self.drawing = None
        elif tag == "figure":
            self.figure = False

    def check_row(self):
        name = self.table["name"]
        if self.part == "thead" and any(cell not in (("th", "col"), ("th", "colgroup"))
                                        for cell in self.row):
            self.problems.append(f"{name}: a head of a column is none to a screen reader")
        if self.part == "tbody" and self.row and self.row[0] != ("th", "row"):
            self.problems.append(f"{name}: a row has no head")

    def check_drawing(self):
        if self.drawing["role"] != "img":
            self.problems.append("a drawing is not told as one picture")
        # The samples of a legend stand beside what they mean.
        for part in ("title", "desc") if self.figure else ("title",):
            if not self.drawing[part].strip(" /"):
                self.problems.append(f"a drawing has no {part}: {self.drawing}")


def problems_for_screen_readers(html):
    outline = Outline()
    outline.feed(html)
    if outline.tables < 10 or outline.drawings < 5:
        yield f"only {outline.tables} tables and {outline.drawings} drawings"
    yield from sorted(set(outline.problems))
    if '<html lang="' not in html:
        yield "the page does not say its language"


def check(cli, browser, model, input_text, folder):
    files = folder / "tower.qhm", folder / "input.csv", folder / "sheet.html"
    files[0].write_text(model, encoding="utf-8")
    files[1].write_text(input_text, encoding="utf-8")
    subprocess.run([cli, "sheet", *files], capture_output=True, check=True)
    html = files[2].read_text(encoding="utf-8")
    yield from problems_for_screen_readers(html)
    yield from problems_on_screen(browser, html, folder)


def main():
    cli, examples = Path(sys.argv[1]), Path(sys.argv[2])
    browser = next((found for name in BROWSERS if (found := shutil.which(name))), None)
    if browser is None:
        print("there is no Chromium: install Debian's chromium, or start ./test, which does")
        return 1
    office = (examples / "five_story_office_z_up.qhm").read_text(encoding="utf-8")
    problems = []
    for name, model, input_text in (("floors that are none", office, FLOORS_THAT_ARE_NONE),
                                    ("tower of 9", tower(9), INPUT)):
        with tempfile.TemporaryDirectory() as folder:
            problems += [f"{name}: {problem}"
                         for problem in check(cli, browser, model, input_text, Path(folder))]
    print("\n".join(problems[:40]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
