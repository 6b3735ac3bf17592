// A2: where each figure of the sheet stands in the results file.

#include "report/number_text.h"
#include "report/results_rows.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

// "Story deformation angle, Direction X, Average, story 1, load 2".
std::string WhereInResults(const Findings& findings, const ResultsRow& row) {
    const ResultsPlace place = PlaceOf(row);
    std::string where(place.section);
    if (!place.direction.empty()) where += ", Direction " + std::string(place.direction);
    if (!place.dispType.empty()) where += ", " + std::string(place.dispType);
    where += ", story " + std::to_string(row.story);
    if (!place.dispType.empty())
        where += ", load " + std::to_string(findings.loadCases.earthquake[row.axis]);
    return where;
}

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
    const bool isCompared = !sheet.content.resultsText.empty();
    const std::vector<bool> holds = HoldsRows(sheet.content.resultsText, rows);
    Table table("A2", {}, {13, 14, 83, 26, 24, 18}, "dense");
    table.HeadRow({{Text("story")},
                   {Text("direction")},
                   {Text("section and row")},
                   {Text("value there")},
                   {Text("value here")},
                   {Text("verdict there")}});
    for (std::size_t i = findings.stories.size(); i-- > 0;) {
        const StoryFindings& story = findings.stories[i];
        for (std::size_t k = 0; k < rows.size(); ++k) {
            if (rows[k].story != story.number) continue;
            const bool differs = isCompared && !holds[k];
            table.Row(StoryHead(sheet.names.StoryInTable(story.number)) +
                          Cell(NameOfAxis(sheet, rows[k]), "c") +
                          Cell(HtmlText(WhereInResults(findings, rows[k])), "l") +
                          NumberCell(ResultsNumberText(rows[k].value)) +
                          NumberCell(TextHere(story, rows[k])) +
                          Cell(TextInSheet(rows[k].verdict) + (differs ? " R26" : ""), "c"),
                      differs ? " class=\"wrong\"" : "");
        }
    }
    html += table.Html() + "</section>\n";
}
