// A3: the files, told by their checksums.

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

std::string FileCell(const SheetFile& file) {
    std::string html = Element("span", {{"class", "path"}}, HtmlText(file.path));
    if (file.size) html += Concat({" ", CountText(*file.size), " bytes"});
    if (file.modified) html += Concat({" ", LabelledValues({{Text("modified"), *file.modified}})});
    const std::string digest = HtmlText(file.sha256.value_or(kNoFigure));
    return Cell(Concat({html, "<br><code>", digest, "</code>"}));
}

}  // namespace

void FilesAppendix(const Sheet& sheet, std::string& html) {
    const SheetContent& content = sheet.content;
    html += OpenTag("section", {{"id", "A3"}, {"class", "follows"}});
    html += Heading("A3", Text("A3"));
    Table table("A3", Text("A3"), {34, 144}, "quiet files text");
    const auto row = [&table](Words label, const std::string& cell) {
        table.Row(RowHead(InBoth(label)) + cell);
    };
    row(Text("input file"), FileCell(content.input));
    row(Text("model"), FileCell(content.model));
    if (content.findings.end.resultsWritten) row(Text("results file"), FileCell(content.results));
    row(Text("log file"), FileCell(content.log));
    if (!content.commandLine.empty())
        row(Text("command line"), Cell(Element("code", {}, HtmlText(content.commandLine))));
    row(Text("made"), Cell(HtmlText(content.made)));
    html += table.TakeHtml() + "</section>\n";
}
