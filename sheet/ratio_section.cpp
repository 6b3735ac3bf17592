// S4: story stiffness ratios.

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/formulas.h"
#include "sheet/governing.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/profile.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"
#include "sheet/verdict_notes.h"

namespace {

// Whether a reference falls on the other side of the limit than the ratio.
bool Crosses(const DirectionFindings& direction, const Figure& reference) {
    const CodeVerdict of = JudgeRatioByCode(direction.stiffnessRatio);
    const CodeVerdict ofReference = JudgeRatioByCode(reference);
    return of != CodeVerdict::kUndetermined && ofReference != CodeVerdict::kUndetermined &&
           of != ofReference;
}

std::string ReferenceCell(const FigurePlace& place, const DirectionFindings& direction,
                          const Figure& reference) {
    return FigureCell(place,
                      JudgedText(reference, kStiffnessRatioFormat, kCodeStiffnessRatio,
                                 JudgeRatioByCode(reference)),
                      Crosses(direction, reference) ? "reference crosses" : "reference");
}

std::string RatioCells(const StoryFindings& story, std::size_t axis, bool governs,
                       NoteList& notes) {
    const DirectionFindings& direction = story.directions[axis];
    const auto place = [&](std::string_view key) {
        return FigurePlace{key, story.number, axis, {}};
    };
    const std::string marks =
        notes.Marks(RatioNotes(story, axis), story.number,
                    {InputValueText(story.allowableRatio), InputValueText(kCodeStiffnessRatio)});
    return FigureCell(place("meanDrift_mm"), NumberText(direction.meanDrift, kDriftFormat),
                      "first") +
           FigureCell(place("rs"), NumberText(direction.rs, kStiffnessIndexFormat)) +
           FigureCell(place("stiffnessRatio"),
                      JudgedText(direction.stiffnessRatio, kStiffnessRatioFormat,
                                 kCodeStiffnessRatio, direction.stiffnessRatioCode),
                      governs ? "governs" : "") +
           VerdictCell(place("stiffnessRatioCode"), direction.stiffnessRatioCode,
                       "stiffnessRatioTool", direction.stiffnessRatioTool, marks) +
           ReferenceCell(place("stiffnessRatioUpright"), direction,
                         direction.stiffnessRatioUpright) +
           ReferenceCell(place("stiffnessRatioTranslational"), direction,
                         direction.stiffnessRatioTranslational);
}

// The mean of the indices is the same in every story.
std::string MeanCells(const Sheet& sheet, std::size_t axis) {
    const DirectionFindings& direction = sheet.findings.stories.front().directions[axis];
    return Cell("", "first") +
           FigureCell({"rsMean", {}, axis, {}},
                      NumberText(direction.rsMean, kStiffnessIndexFormat)) +
           Cell("n = " + CountText(sheet.StoryCount()), "c") + Cell("") + Cell("") + Cell("");
}

std::string RatioTable(const Sheet& sheet, NoteList& notes) {
    std::vector<double> widths{12, 15};
    for (int i = 0; i < 2; ++i)
        widths.insert(widths.end(), {13, 13.5, 12, 19, 13, 13});
    Table table("T4", Text("S4"), widths,
                Concat({"quiet ratios", KeptTogether(sheet.StoryCount())}));
    std::vector<FilledWords> names;
    for (const std::size_t axis : {kX, kZ})
        names.push_back(
            Filled(Text("direction and case"),
                   {{"d", sheet.names.Direction(axis)},
                    {"case", IdentifierText(sheet.findings.loadCases.earthquake[axis])}}));
    std::vector<HeadCell> groups{{Text("story"), {}, 1, 2}, {Text("height h"), "mm", 1, 2}};
    std::vector<HeadCell> columns;
    for (const std::size_t axis : {kX, kZ}) {
        groups.push_back({names[axis], {}, 6});
        columns.push_back({Text("mean drift"), "mm"});
        columns.push_back({Text("rs")});
        columns.push_back({Text("Rs")});
        columns.push_back({Text("verdict")});
        columns.push_back({Text("reference upright")});
        columns.push_back({Text("reference translational")});
    }
    table.HeadRow(groups);
    table.HeadRow(columns);
    const auto& stories = sheet.findings.stories;
    const StoryFindings* const governing[] = {GoverningRatio(stories, kX),
                                              GoverningRatio(stories, kZ)};
    for (std::size_t i = stories.size(); i-- > 0;) {
        const StoryFindings& story = stories[i];
        table.Row(StoryHead(sheet.names.StoryInTable(story.number)) +
                  FigureCell({"height_mm", story.number, {}, {}}, LevelText(story.height)) +
                  RatioCells(story, kX, governing[kX] == &story, notes) +
                  RatioCells(story, kZ, governing[kZ] == &story, notes));
    }
    table.SumRow("<th scope=\"row\" colspan=\"2\">" + InBoth(Text("mean rs")) + "</th>" +
                 MeanCells(sheet, kX) + MeanCells(sheet, kZ));
    return table.TakeHtml();
}

}  // namespace

void RatioSection(const Sheet& sheet, std::string& html) {
    html += OpenTag("section", {{"id", "S4"}, {"class", "own-page"}});
    html += Heading("4", Text("S4")) + FormulaLine(RatioFormulas(), Text("ratio formulas"));
    if (sheet.findings.stories.empty()) {
        html += SmallPrint(Text("no stories")) + "</section>\n";
        return;
    }
    NoteList notes(sheet);
    html += RatioTable(sheet, notes) + notes.Explained() + SmallPrint(Text("reference ratios"));
    html += RatioProfile(sheet);
    html += "</section>\n";
}
