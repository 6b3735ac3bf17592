// S5: eccentricity moduli.

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/formulas.h"
#include "sheet/governing.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/profile.h"
#include "sheet/shape_factor_lines.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"
#include "sheet/verdict_notes.h"

namespace {

// The coordinate across the direction, with its letter before it.
std::string CenterCell(const Sheet& sheet, const FigurePlace& place,
                       const std::array<Figure, 2>& center) {
    const std::size_t across = Across(*place.axis);
    return FigureCell(place, NumberText(center[across], kCoordinateFormat), "letter",
                      " data-letter=\"" + sheet.names.Coordinate(across) + "\"");
}

std::string ToLimitCell(const FigurePlace& place, const Figure& toLimit) {
    const std::string text = NumberText(toLimit, kCoordinateFormat);
    const bool mayPart = toLimit && *toLimit > 0.0 && text != "0";
    return FigureCell(place, text, mayPart ? "plus" : "");
}

std::string DirectionCells(const Sheet& sheet, const StoryFindings& story, std::size_t axis,
                           int exponent, bool governs, NoteList& notes) {
    const DirectionFindings& direction = story.directions[axis];
    const int n = story.number;
    const auto place = [&](std::string_view key) { return FigurePlace{key, n, axis, {}}; };
    const std::string marks = notes.Marks(
        EccentricityNotes(story, axis), n,
        {InputValueText(story.allowableModulus), InputValueText(kCodeEccentricityModulus)});
    std::string cells =
        RowHead(sheet.names.Direction(axis)) +
        CenterCell(sheet, place("gravityCenter_mm"), story.gravityCenter) +
        CenterCell(sheet, place("rigidityCenter_mm"), story.rigidityCenter) +
        FigureCell(place("eccentricity_mm"),
                   NumberText(direction.eccentricity, kCoordinateFormat)) +
        FigureCell(place("stiffness_kNpmm"), NumberText(direction.stiffness, kStiffnessFormat));
    if (axis == kX)
        cells += FigureCell({"torsionalStiffness_kNmm", n, {}, {}},
                            TorsionText(story.torsionalStiffness, exponent), "", " rowspan=\"2\"");
    return cells +
           FigureCell(place("elasticRadius_mm"),
                      NumberText(direction.elasticRadius, kCoordinateFormat)) +
           FigureCell(place("eccentricityModulus"),
                      JudgedText(direction.eccentricityModulus, kModulusFormat,
                                 kCodeEccentricityModulus, direction.eccentricityCode),
                      governs ? "governs" : "") +
           ToLimitCell(place("toLimit_mm"), direction.toLimit) +
           VerdictCell(place("eccentricityCode"), direction.eccentricityCode, "eccentricityTool",
                       direction.eccentricityTool, marks);
}

std::string TorsionUnit(int exponent) {
    if (exponent == 0) return "kN·m";
    return "×10<sup>" + IdentifierText(exponent) + "</sup> kN·m";
}

std::string EccentricityTable(const Sheet& sheet, NoteList& notes) {
    Table table("T5", Text("S5"), {12, 14, 17.5, 17.5, 15, 16.5, 19.5, 15, 14, 16, 21},
                Concat({"quiet moduli", KeptTogether(sheet.StoryCount())}));
    const auto& stories = sheet.findings.stories;
    const int exponent = TorsionExponent(stories);
    table.HeadRow({{Text("story")},
                   {Text("direction")},
                   {Text("G"), "mm"},
                   {Text("R"), "mm"},
                   {Text("e"), "mm"},
                   {Text("sum K"), "kN/mm"},
                   {Text("KR"), TorsionUnit(exponent)},
                   {Text("re"), "mm"},
                   {Text("Re")},
                   {Text("to the limit"), "mm"},
                   {Text("verdict")}});
    const StoryFindings* const governing[] = {GoverningModulus(stories, kX),
                                              GoverningModulus(stories, kZ)};
    for (std::size_t i = stories.size(); i-- > 0;) {
        const StoryFindings& story = stories[i];
        table.Together(
            {StoryHead(sheet.names.StoryInTable(story.number), 2) +
                 DirectionCells(sheet, story, kX, exponent, governing[kX] == &story, notes),
             DirectionCells(sheet, story, kZ, exponent, governing[kZ] == &story, notes)});
    }
    return table.TakeHtml();
}

}  // namespace

void EccentricitySection(const Sheet& sheet, std::string& html) {
    html += OpenTag("section", {{"id", "S5"}, {"class", "own-page"}});
    html += Heading("5", Text("S5"));
    html += FormulaLine(GravityFormulas(sheet) + ",  " + RigidityFormulas(sheet) + ",  " +
                            TorsionFormulas(sheet) + ",  " + ModulusFormulas(sheet),
                        Text("modulus formulas"));
    if (sheet.findings.stories.empty()) {
        html += SmallPrint(Text("no stories")) + "</section>\n";
        return;
    }
    NoteList notes(sheet);
    html += EccentricityTable(sheet, notes) + notes.Explained();
    html += SmallPrint(Text("modulus of a direction"));
    html += ModulusProfile(sheet) + ShapeFactorLines(sheet);
    html += "</section>\n";
}
