// S1: the overall verdict, what is to be mended, and the governing values.

#include <algorithm>

#include "report/number_text.h"
#include "route2/remarks.h"
#include "sheet/governing.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/remark_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"
#include "sheet/verdict_notes.h"

namespace {

constexpr double kGreatestBuildingHeight = 31000.0;  // mm, of a building on Route 2
constexpr double kGreatestSlenderness = 4.0;         // height over width

std::string WordOf(CodeVerdict verdict) {
    if (verdict != CodeVerdict::kUndetermined) return TextOf(verdict);
    return "未確定" + Element("span", {{"class", "en"}, {"lang", "en"}}, " / open");
}

std::string_view ClassOf(CodeVerdict verdict) {
    switch (verdict) {
        case CodeVerdict::kOk:
            return "overall";
        case CodeVerdict::kNg:
            return "overall ng";
        case CodeVerdict::kUndetermined:
            return "overall open";
    }
    return {};
}

std::string OverallBox(const Findings& findings) {
    const std::string errors =
        CountText(static_cast<std::size_t>(CountOf(findings.remarks, RemarkKind::kError)));
    const std::string warnings =
        CountText(static_cast<std::size_t>(CountOf(findings.remarks, RemarkKind::kWarning)));
    const CodeVerdict code = findings.verdict.code;
    std::string html = "<p class=\"" + std::string(ClassOf(code)) + "\">";
    html += Element("span", {{"class", "tool"}},
                    InBoth(Text("tool:")) + " <span data-figure=\"verdict.tool\">" +
                        TextInSheet(findings.verdict.tool) + "</span>");
    html += InBoth(Text("verdict:")) + " <strong data-figure=\"verdict.code\">" + WordOf(code) +
            "</strong>";
    // A sheet without anything to be looked at says OK and no more.
    const bool isOk = code == CodeVerdict::kOk;
    const Words counts = isOk ? Text("warnings alone") : Text("errors and warnings");
    if (!isOk || warnings != "0")
        html += Element("span", {{"class", "counts"}},
                        InBoth(Filled(counts, {{"errors", errors}, {"warnings", warnings}})));
    return html + "</p>\n";
}

std::string HowTheRunEnded(const RunEnd& end) {
    if (end.complete) return {};
    return Element("p", {{"class", "alarm"}},
                   InBoth(Text("run ended early")) + " " + HtmlText(end.failure)) +
           "\n";
}

std::string ErrorRemarks(const std::vector<Remark>& remarks) {
    std::string items;
    for (const Remark& remark : remarks)
        if (remark.kind == RemarkKind::kError)
            items += Element("li", {{"data-remark", remark.id}}, RemarkInFull(remark));
    if (items.empty()) return {};
    return "<div class=\"errors\"><b>" + InBoth(Text("to be mended")) + "</b><ul>" + items +
           "</ul></div>\n";
}

// --- T1 ------------------------------------------------------------------------------------------

// What a check says of all stories in one direction.
struct DirectionVerdict {
    CodeVerdict code = CodeVerdict::kOk;
    std::optional<ToolVerdict> tool;
    VerdictNotes notes;

    void Add(CodeVerdict more) { code = WorseOf(code, more); }
    void Add(const std::optional<ToolVerdict>& more) {
        if (more && tool != ToolVerdict::kFail) tool = more;
    }
    void Add(const VerdictNotes& more) {
        for (const VerdictNote note : more)
            if (std::ranges::find(notes, note) == notes.end()) notes.push_back(note);
    }
    bool Differs() const {
        return tool && code != (tool == ToolVerdict::kPass ? CodeVerdict::kOk : CodeVerdict::kNg);
    }
};

std::string VerdictOfAll(const DirectionVerdict& verdict, NoteList& notes) {
    std::string marks;
    if (verdict.Differs())
        for (const VerdictNote note : verdict.notes)
            marks += notes.Mark(note);
    std::string cssClass = "verdict";
    if (verdict.code == CodeVerdict::kNg) cssClass += " ng";
    if (verdict.code == CodeVerdict::kUndetermined) cssClass += " open";
    if (verdict.Differs()) cssClass += " differs";
    return Cell(std::string(TextInSheet(verdict.code)) + "<small>" + TextInSheet(verdict.tool) +
                    "</small>" + marks,
                cssClass);
}

// The verdicts of all stories. Without stories nothing is determined.
template <typename Add>
DirectionVerdict Collect(const Sheet& sheet, const Add& add) {
    DirectionVerdict verdict;
    if (sheet.findings.stories.empty()) verdict.code = CodeVerdict::kUndetermined;
    for (const StoryFindings& story : sheet.findings.stories)
        add(story, verdict);
    return verdict;
}

std::string NoGoverningCells(bool hasMember) {
    std::string cells = NumberCell(kNoFigure) + Cell(kNoFigure, "c");
    if (hasMember) cells += Cell(kNoFigure, "c");
    return cells + NumberCell(kNoFigure);
}

std::string StoryCell(const Sheet& sheet, const StoryFindings& story, bool spansMember) {
    std::string cell = "<td class=\"c\"";
    if (spansMember) cell += " colspan=\"2\"";
    return cell + ">" + HtmlText(sheet.names.StoryInTable(story.number)) + "</td>";
}

std::string AngleCells(const Sheet& sheet, std::size_t axis, NoteList& notes) {
    std::string cells = NoGoverningCells(true);
    if (const StoryFindings* const story = GoverningAngle(sheet.findings.stories, axis)) {
        const WorstUprightMember& worst = story->directions[axis].worstUpright;
        const AngleBesideLimit text = AngleBesideLimitText(worst, story->height);
        cells = FigureCell({"worstUpright.angle", story->number, axis, {}}, text.angle) +
                StoryCell(sheet, *story, false) +
                FigureCell({"worstUpright.member", story->number, axis, {}},
                           IdentifierText(worst.member), "c") +
                FigureCell({"utilisation", story->number, axis, {}},
                           JudgedText(worst.utilisation, kUtilisationFormat, 1.0, worst.code));
    }
    const auto verdict = Collect(sheet, [axis](const StoryFindings& story, DirectionVerdict& all) {
        const DirectionFindings& direction = story.directions[axis];
        all.Add(direction.worstUpright.code);
        all.Add(direction.toolMeanVerdict);
        all.Add(direction.toolMax.verdict);
        all.Add(AngleNotes(story, axis));
        all.Add(ToolMaxNotes(story, axis));
    });
    return cells + VerdictOfAll(verdict, notes);
}

// The cells of a check that has no member: the story's takes its place.
std::string GoverningCells(const Sheet& sheet, const StoryFindings& story, std::size_t axis,
                           std::string_view key, const std::string& value,
                           const std::string& utilisation) {
    return FigureCell({key, story.number, axis, {}}, value) + StoryCell(sheet, story, true) +
           FigureCell({"utilisation", story.number, axis, {}}, utilisation);
}

std::string NoGoverningCellsWithoutMember() {
    return NumberCell(kNoFigure) + "<td class=\"c\" colspan=\"2\">" + kNoFigure + "</td>" +
           NumberCell(kNoFigure);
}

std::string RatioCells(const Sheet& sheet, std::size_t axis, NoteList& notes) {
    std::string cells = NoGoverningCellsWithoutMember();
    if (const StoryFindings* const story = GoverningRatio(sheet.findings.stories, axis)) {
        const DirectionFindings& direction = story->directions[axis];
        const CodeVerdict code = direction.stiffnessRatioCode;
        cells = GoverningCells(
            sheet, *story, axis, "stiffnessRatio",
            JudgedText(direction.stiffnessRatio, kStiffnessRatioFormat, kCodeStiffnessRatio, code),
            JudgedText(direction.ratioUtilisation, kUtilisationFormat, 1.0, code));
    }
    const auto verdict = Collect(sheet, [axis](const StoryFindings& story, DirectionVerdict& all) {
        all.Add(story.directions[axis].stiffnessRatioCode);
        all.Add(story.directions[axis].stiffnessRatioTool);
        all.Add(RatioNotes(story, axis));
    });
    return cells + VerdictOfAll(verdict, notes);
}

std::string ModulusCells(const Sheet& sheet, std::size_t axis, NoteList& notes) {
    std::string cells = NoGoverningCellsWithoutMember();
    if (const StoryFindings* const story = GoverningModulus(sheet.findings.stories, axis)) {
        const DirectionFindings& direction = story->directions[axis];
        const CodeVerdict code = direction.eccentricityCode;
        cells =
            GoverningCells(sheet, *story, axis, "eccentricityModulus",
                           JudgedText(direction.eccentricityModulus, kModulusFormat,
                                      kCodeEccentricityModulus, code),
                           JudgedText(direction.modulusUtilisation, kUtilisationFormat, 1.0, code));
    }
    const auto verdict = Collect(sheet, [axis](const StoryFindings& story, DirectionVerdict& all) {
        all.Add(story.directions[axis].eccentricityCode);
        all.Add(story.directions[axis].eccentricityTool);
        all.Add(EccentricityNotes(story, axis));
    });
    return cells + VerdictOfAll(verdict, notes);
}

// Stories whose limit is relieved, below the table.
std::string Relief(const Sheet& sheet) {
    std::vector<FilledWords> relieved;
    for (const StoryFindings& story : sheet.findings.stories) {
        const double allowable = story.directions[kX].worstUpright.allowable;
        if (allowable == kCodeDeformAngle) continue;
        const FilledWords name = sheet.names.Story(story.number);
        const std::string limit = " ≦ " + AllowableAngleText(allowable);
        relieved.push_back({name.ja + limit, name.en + limit});
    }
    if (relieved.empty()) return {};
    return SmallPrint(Filled(Text("relieved"), {{"stories", Joined(relieved)}}));
}

std::string SummaryTable(const Sheet& sheet, NoteList& notes) {
    Table table("T1", Text("S1"), {37, 14.5, 20, 10, 13, 15.5, 16, 20, 10, 13, 15.5, 16},
                "quiet short");
    std::vector<HeadCell> groups{{Text("check"), {}, 1, 2}, {Text("rule"), {}, 1, 2}};
    std::vector<FilledWords> names;
    for (const std::size_t axis : {kX, kZ})
        names.push_back(Filled(Text("direction d"), {{"d", sheet.names.Direction(axis)}}));
    std::vector<HeadCell> columns;
    for (const std::size_t axis : {kX, kZ}) {
        groups.push_back({names[axis], {}, 5});
        for (const Words words : {Text("governing value"), Text("story"), Text("member"),
                                  Text("utilisation"), Text("verdict")})
            columns.push_back({words});
    }
    table.HeadRow(groups);
    table.HeadRow(columns);
    const auto row = [&](Words check, const std::string& rule, const auto& cells) {
        table.Row(RowHead(InBoth(check)) + Cell(rule, "c") + cells(sheet, kX, notes) +
                  cells(sheet, kZ, notes));
    };
    row(Text("angle"), "≦ " + AllowableAngleText(kCodeDeformAngle), AngleCells);
    row(Text("ratio"), "≧ 0.6", RatioCells);
    row(Text("modulus"), "≦ 0.15", ModulusCells);
    return table.TakeHtml();
}

// --- Extent --------------------------------------------------------------------------------------

// " ≦ 31 m", or " ＞ 31 m"; nothing of a value that was not formed.
std::string AgainstLimit(const Figure& value, double limit, const std::string& text) {
    if (!value) return {};
    return (*value <= limit ? " ≦ " : " ＞ ") + text;
}

// A line of the extent; beyond its limit it names the remark.
std::string ExtentLine(Words label, const std::string& text, bool isBeyond) {
    return Element("p", {{"class", isBeyond ? "extent beyond" : "extent"}},
                   InBoth(label) + " " + HtmlOfOwnText(text) + (isBeyond ? " <b>R28</b>" : "")) +
           "\n";
}

bool IsBeyond(const Figure& value, double limit) {
    return value && *value > limit;
}

std::string ExtentLines(const Sheet& sheet) {
    const auto& [height, width, slenderness] = sheet.findings.extent;
    return ExtentLine(Text("height of the model"),
                      "H = " + LevelText(height) + " mm" +
                          AgainstLimit(height, kGreatestBuildingHeight, "31 m"),
                      IsBeyond(height, kGreatestBuildingHeight)) +
           ExtentLine(Text("plan widths"),
                      "B_X = " + LevelText(width[kX]) + " mm,  B_" + sheet.names.Direction(kZ) +
                          " = " + LevelText(width[kZ]) + " mm",
                      false) +
           ExtentLine(Text("slenderness"),
                      "H / min B = " + NumberText(slenderness, kFactorFormat) +
                          AgainstLimit(slenderness, kGreatestSlenderness, "4"),
                      IsBeyond(slenderness, kGreatestSlenderness));
}

std::string NotesOfTheInput(const std::vector<std::string>& notes) {
    std::string html;
    for (const std::string& note : notes)
        html +=
            Element("p", {{"class", "input-note"}}, InBoth(Text("note:")) + " " + HtmlText(note));
    return html;
}

}  // namespace

void SummarySection(const Sheet& sheet, std::string& html) {
    NoteList notes(sheet);
    html += OpenTag("section", {{"id", "S1"}});
    html += Heading("1", Text("S1"));
    html += OverallBox(sheet.findings) + HowTheRunEnded(sheet.findings.end) +
            ErrorRemarks(sheet.findings.remarks);
    html += SummaryTable(sheet, notes) + Relief(sheet) + notes.Explained();
    html += ExtentLines(sheet);
    html += Element("p", {{"class", "footnote"}}, InBoth(Text("rounding")));
    html += NotesOfTheInput(sheet.content.sheetLines.notes);
    html += "</section>\n";
}
