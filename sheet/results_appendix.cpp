// A2: where each figure of the sheet stands in the results file.

#include <algorithm>

#include "report/number_text.h"
#include "report/results_rows.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

std::string TextHere(const StoryFindings& story, const ResultsRow& row) {
    const DirectionFindings& direction = story.directions[row.axis];
    switch (row.figure) {
        case ResultsFigure::kMeanAngle:
            return AngleText(direction.meanDrift, story.height);
        case ResultsFigure::kMaxAngle:
            return AngleText(direction.toolMax.drift, story.height);
        case ResultsFigure::kStiffnessRatio:
            return JudgedText(direction.stiffnessRatio, kStiffnessRatioFormat, kCodeStiffnessRatio,
                              direction.stiffnessRatioCode);
        case ResultsFigure::kGravityCenter:
            return NumberText(story.gravityCenter[row.axis], kCoordinateFormat);
        case ResultsFigure::kRigidityCenter:
            return NumberText(story.rigidityCenter[row.axis], kCoordinateFormat);
        case ResultsFigure::kEccentricityModulus:
            return JudgedText(direction.eccentricityModulus, kModulusFormat,
                              kCodeEccentricityModulus, direction.eccentricityCode);
    }
    return kNoFigure;
}

std::string NameOfAxis(const Sheet& sheet, const ResultsRow& row) {
    const bool isCoordinate =
        row.figure == ResultsFigure::kGravityCenter || row.figure == ResultsFigure::kRigidityCenter;
    return isCoordinate ? sheet.names.Coordinate(row.axis) : sheet.names.Direction(row.axis);
}

void AddRow(Table& table, const Sheet& sheet, const StoryFindings& story, const ResultsRow& row) {
    const std::string name = NameOf(row, sheet.findings);
    const auto& missing = sheet.findings.end.missingRows;
    const bool differs = std::ranges::find(missing, name, &NamedRow::name) != missing.end();
    table.Row(StoryHead(sheet.names.StoryInTable(story.number)) +
                  Cell(NameOfAxis(sheet, row), "c") + Cell(HtmlText(name), "l") +
                  NumberCell(ResultsNumberText(row.value)) + NumberCell(TextHere(story, row)) +
                  Cell(TextInSheet(row.verdict) + (differs ? " R26" : ""), "c"),
              differs ? " class=\"wrong\"" : "");
}

}  // namespace

void ResultsAppendix(const Sheet& sheet, std::string& html) {
    const Findings& findings = sheet.findings;
    const std::vector<ResultsRow> rows = ResultsRowsOf(findings);
    html += OpenTag("section", {{"id", "A2"}, {"class", "follows"}});
    html += Heading("A2", Text("A2"));
    if (rows.empty()) {
        html += SmallPrint(Text("no results file")) + "</section>\n";
        return;
    }
    html += SmallPrint(Text("order of the results file"));
    Table table("A2", Text("A2"), {13, 14, 83, 26, 24, 18}, "quiet dense");
    table.HeadRow({{Text("story")},
                   {Text("direction")},
                   {Text("section and row")},
                   {Text("value there")},
                   {Text("value here")},
                   {Text("verdict there")}});
    for (std::size_t i = findings.stories.size(); i-- > 0;)
        for (const ResultsRow& row : rows)
            if (row.story == findings.stories[i].number)
                AddRow(table, sheet, findings.stories[i], row);
    html += table.TakeHtml() + "</section>\n";
}
