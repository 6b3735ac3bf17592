// The head of the sheet: which building, which files, which program.

#include <numeric>

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

std::string Digest(const std::optional<std::string>& sha256) {
    if (!sha256) return {};
    return Element("span", {{"class", "digest"}},
                   "SHA-256 " + HtmlText(sha256->substr(0, kShownDigestDigits)));
}

std::string NameOfFile(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

std::string Path(const std::string& path) {
    return Element("span", {{"class", "path"}}, HtmlText(path));
}

std::string ModelCell(const Sheet& sheet) {
    const SheetContent& content = sheet.content;
    const bool isRecording = content.run.fromRecording;
    std::string html;
    for (const std::string& path : PathsOfModel(content))
        html += Path(path) + " ";
    if (content.model.sha256) return html + Digest(content.model.sha256);
    return html + (isRecording ? std::string(kNoFigure) : kNoFigure + InBoth(Text("live host")));
}

std::string InputCell(const SheetFile& file) {
    std::string html = Path(file.path) + " ";
    if (file.size) html += CountText(*file.size) + " bytes ";
    if (file.modified) html += LabelledValues({{Text("modified"), *file.modified}});
    return html + Digest(file.sha256);
}

std::string ProgramCell(const SheetContent& content) {
    std::string html =
        HtmlText("Quarnel " + content.run.toolVersion + " (" + content.program + ")");
    if (!content.platform.empty()) html += Concat({" ", HtmlText(content.platform)});
    return html;
}

std::string VerticalAxisText(const Findings& findings) {
    if (!findings.axisKnown) return kNoFigure;
    return findings.zIsVertical ? "Z" : "Y";
}

std::string UnitsCell(const Sheet& sheet) {
    const Findings& findings = sheet.findings;
    return LabelledValues(
        {{Text("model"), findings.inchUnits ? "inch, kip" : "m, kN"},
         {Text("this sheet"), "mm, kN"},
         {Text("vertical axis"), VerticalAxisText(findings)},
         {Text("second direction"), findings.axisKnown ? sheet.names.Direction(kZ) : kNoFigure}});
}

std::string CasesCell(const Sheet& sheet) {
    const LoadCaseFindings& cases = sheet.findings.loadCases;
    std::string html;
    const auto add = [&](const std::string& label, std::int32_t number) {
        const FilledWords name = sheet.names.LoadCase(number);
        std::string text = name.ja == name.en ? HtmlText(name.ja) : InOne(name);
        if (!cases.inputRead) text = kNoFigure;
        html += Element("span", {{"class", "labelled"}}, label + " " + text) + " ";
    };
    add(InBoth(Text("dead load")), cases.dead);
    for (const std::size_t axis : {kX, kZ})
        add(InBoth(Filled(Text("earthquake d"), {{"d", sheet.names.Direction(axis)}})),
            cases.earthquake[axis]);
    return html;
}

std::size_t CountStoryMembers(const Findings& findings) {
    return std::accumulate(
        findings.stories.begin(), findings.stories.end(), std::size_t{0},
        [](std::size_t sum, const StoryFindings& story) { return sum + story.members.size(); });
}

std::string CountsCell(const Findings& findings) {
    return LabelledValues(
        {{Text("nodes"), CountText(findings.nodes.size())},
         {Text("members"), CountText(findings.members.size())},
         {Text("primary cases"), CountText(findings.loadCases.primary.size())},
         {Text("combinations"), CountText(findings.loadCases.combinations.size())},
         {Text("floors"), CountText(findings.floorLevels.size())},
         {Text("stories"), CountText(findings.stories.size())},
         {Text("story members"), CountText(CountStoryMembers(findings))}});
}

std::string ReportCell(const SheetContent& content) {
    const bool hasResults = content.findings.end.resultsWritten;
    std::string html = hasResults ? HtmlText(NameOfFile(content.results.path)) + " " +
                                        Digest(content.results.sha256)
                                  : InBoth(Text("no results file"));
    html += "<br>" + HtmlText(NameOfFile(content.log.path)) + " " + Digest(content.log.sha256);
    return html + " " +
           LabelledValues({{Text("warnings"), CountText(content.findings.warnings.size())}});
}

std::string ToBeWritten(const std::string& text) {
    return text.empty() ? Cell("", "write") : Cell(HtmlText(text));
}

}  // namespace

void HeadSection(const Sheet& sheet, std::string& html) {
    const SheetContent& content = sheet.content;
    html += "<header>\n<h1>" + InBoth(Text("title")) + "</h1>\n";
    Table table("head", Text("title"), {34, 144}, "quiet head text");
    const auto row = [&table](Words label, const std::string& cell) {
        table.Row(RowHead(InBoth(label)) + cell);
    };
    row(Text("project"), ToBeWritten(content.sheetLines.project));
    row(Text("designer"), ToBeWritten(content.sheetLines.designer));
    row(Text("model"), Cell(ModelCell(sheet)));
    row(Text("input file"), Cell(InputCell(content.input)));
    row(Text("made"), Cell(HtmlText(content.made)));
    row(Text("program"), Cell(ProgramCell(content)));
    row(Text("source"),
        Cell(InBoth(content.run.fromRecording ? Text("recording") : Text("running host"))));
    row(Text("units, vertical axis"), Cell(UnitsCell(sheet)));
    row(Text("load cases row"), Cell(CasesCell(sheet)));
    row(Text("counts row"), Cell(CountsCell(sheet.findings)));
    row(Text("results, log"), Cell(ReportCell(content)));
    html += table.TakeHtml() + "</header>\n";
}
