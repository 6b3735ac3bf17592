// A1: every member of every story, with the terms of the sums, so that they can be followed with a
// pocket calculator.

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/length_text.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

constexpr std::size_t kWorstMembers = 10;
constexpr double kHardlyMoving = 0.1;  // mm

Figure InMetres(const Figure& figure) {
    if (!figure) return std::nullopt;
    return *figure / kMillimetresOfAMetre;
}

std::string Moment(const Figure& kilonewtons) {
    return NumberText(kilonewtons, kMomentFormat);
}

std::string MomentInMetres(const Figure& kilonewtonMillimetres) {
    return NumberText(InMetres(kilonewtonMillimetres), kMomentFormat);
}

// --- Which members -------------------------------------------------------------------------------

double TorsionalWeight(const MemberFindings& member) {
    double weight = 0.0;
    for (const std::size_t axis : {kX, kZ})
        weight += std::abs(member.torsionalPart[axis].value_or(member.stiffness[axis].value_or(0)));
    return weight;
}

double AxialWeight(const MemberFindings& member) {
    return std::abs(member.axialForce.value_or(0.0));
}

// All members, or the ones of most weight in their own order.
template <typename WeightOf>
std::vector<const MemberFindings*> Choose(std::vector<const MemberFindings*> members,
                                          SheetDetail detail, const WeightOf& weightOf) {
    if (detail == SheetDetail::kAll || members.size() <= kWorstMembers) return members;
    std::vector<const MemberFindings*> byWeight = members;
    std::ranges::stable_sort(byWeight, [&](const MemberFindings* a, const MemberFindings* b) {
        return weightOf(*a) > weightOf(*b);
    });
    byWeight.resize(kWorstMembers);
    std::erase_if(members, [&](const MemberFindings* member) {
        return std::ranges::find(byWeight, member) == byWeight.end();
    });
    return members;
}

std::vector<const MemberFindings*> Pointers(const std::vector<MemberFindings>& members) {
    std::vector<const MemberFindings*> pointers;
    pointers.reserve(members.size());
    for (const MemberFindings& member : members)
        pointers.push_back(&member);
    return pointers;
}

std::string LeftOut(std::size_t all, std::size_t shown) {
    if (shown == all) return {};
    return SmallPrint(Filled(Text("further members"), {{"n", CountText(all - shown)}}));
}

// --- Members -------------------------------------------------------------------------------------

// The plan distance of the member's two ends: what tells upright from leaning.
Figure PlanDistance(const Findings& findings, const ModelMember* member) {
    if (member == nullptr || !member->start || !member->end) return std::nullopt;
    const Vec3& a = findings.nodes[*member->start].point;
    const Vec3& b = findings.nodes[*member->end].point;
    return Finite(std::hypot(a.x - b.x, findings.zIsVertical ? a.y - b.y : a.z - b.z));
}

void AppendKindCell(std::string& cells, const Sheet& sheet, const MemberFindings& member) {
    const Figure distance = PlanDistance(sheet.findings, sheet.model.Find(member.number));
    cells += "<td>";
    cells += member.upright ? "│ " : "╱ ";
    cells += NumberText(distance, kCoordinateFormat);
    cells += "</td>";
}

std::string_view StiffnessClass(const MemberFindings& member, std::size_t axis) {
    if (member.stiffness[axis].value_or(0.0) < 0.0) return "red";
    const bool hardlyMoves = member.drift[axis] && std::abs(*member.drift[axis]) < kHardlyMoving;
    return hardlyMoves ? "hardly" : "";
}

void AppendDirectionCells(std::string& cells, FigureRow& row, const MemberFindings& member,
                          int story, std::size_t axis) {
    const std::string_view cssClass = StiffnessClass(member, axis);
    row.MoveTo({{}, story, axis, member.number});
    const auto figure = [&](std::string_view key, const std::string& text,
                            std::string_view classOfCell = {}) {
        row.AppendCell(cells, key, text, classOfCell);
    };
    figure("members.shear_kN", NumberText(member.shear[axis], kForceInDetailFormat));
    figure("members.drift_mm", NumberText(member.drift[axis], kDriftFormat),
           cssClass == "hardly" ? cssClass : "");
    figure("members.stiffness_kNpmm", NumberText(member.stiffness[axis], kStiffnessInDetailFormat),
           cssClass);
    AppendNumberCell(cells, Moment(member.stiffnessMoment[axis]));
    AppendNumberCell(cells, MomentInMetres(member.torsionalPart[axis]));
}

// The same cells in every table of members: where it stands.
void AppendCoordinateCells(std::string& cells, const FigureRow& row, const MemberFindings& member) {
    row.AppendCell(cells, "members.x_mm", NumberText(Finite(member.x), kCoordinateFormat));
    row.AppendCell(cells, "members.v_mm", NumberText(Finite(member.v), kCoordinateFormat));
}

void AppendMemberCells(std::string& cells, const Sheet& sheet, FigureRow& row,
                       const MemberFindings& member, int story) {
    AppendRowHead(cells, IdentifierText(member.number));
    AppendKindCell(cells, sheet, member);
    row.MoveTo({{}, story, {}, member.number});
    AppendCoordinateCells(cells, row, member);
    for (const std::size_t axis : {kX, kZ})
        AppendDirectionCells(cells, row, member, story, axis);
}

std::string SumCells(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    return NumberCell(NumberText(direction.shearOfStoryMembers, kForceInDetailFormat)) + Cell("") +
           NumberCell(NumberText(direction.stiffness, kStiffnessInDetailFormat)) +
           NumberCell(Moment(direction.stiffnessMoment)) +
           NumberCell(MomentInMetres(direction.torsionalPart));
}

// The table of every story, still without rows.
Table EmptyMemberTable(const Sheet& sheet) {
    std::vector<double> widths{11.5, 12, 10.5, 10.5};
    for (int i = 0; i < 2; ++i)
        widths.insert(widths.end(), {12.5, 11, 13, 14, 16.5});
    Table table("A1", Text("A1 members"), widths, "detail terms");
    std::vector<HeadCell> groups{{Text("member"), {}, 1, 2},
                                 {Text("kind, plan distance"), "mm", 1, 2},
                                 {{"x", "x"}, "mm", 1, 2}};
    const std::string v = sheet.names.Coordinate(kZ);
    groups.push_back({{v, v}, "mm", 1, 2});
    std::vector<FilledWords> names;
    for (const std::size_t axis : {kX, kZ})
        names.push_back(Filled(Text("direction d"), {{"d", sheet.names.Direction(axis)}}));
    std::vector<FilledWords> columnNames;
    columnNames.reserve(10);
    std::vector<HeadCell> columns;
    for (const std::size_t axis : {kX, kZ}) {
        groups.push_back({names[axis], {}, 5});
        const auto name = [&](Words words) -> Words {
            return columnNames.emplace_back(Filled(
                words,
                {{"d", sheet.names.Direction(axis)}, {"c", sheet.names.Coordinate(Across(axis))}}));
        };
        columns.push_back({name(Text("A1 Q")), "kN"});
        columns.push_back({name(Text("A1 drift")), "mm"});
        columns.push_back({name(Text("A1 K")), "kN/mm"});
        columns.push_back({name(Text("A1 Kc")), "kN"});
        columns.push_back({name(Text("A1 torsion")), "kN·m"});
    }
    table.HeadRow(groups);
    table.HeadRow(columns);
    return table;
}

std::string MemberTable(const Sheet& sheet, Table table, const StoryFindings& story) {
    const auto shown =
        Choose(Pointers(story.members), sheet.content.options.detail, TorsionalWeight);
    FigureRow row;
    for (const MemberFindings* const member : shown) {
        AppendMemberCells(table.OpenRow(), sheet, row, *member, story.number);
        table.CloseRow();
    }
    table.SumRow("<th scope=\"row\" colspan=\"4\">" + InBoth(Text("sum")) + "</th>" +
                 SumCells(story, kX) + SumCells(story, kZ));
    return table.TakeHtml() + LeftOut(story.members.size(), shown.size());
}

// --- The numbers in the formulas -----------------------------------------------------------------

std::string Quotient(const std::string& name, const std::string& dividend,
                     const std::string& divisor, const std::string& result) {
    return name + " = " + dividend + " / " + divisor + " = " + result + " mm";
}

std::string CenterLine(const Sheet& sheet, const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const std::size_t across = Across(axis);
    return Quotient(sheet.names.Coordinate(across) + "_R", Moment(direction.stiffnessMoment),
                    NumberText(direction.stiffness, kStiffnessInDetailFormat),
                    NumberText(story.rigidityCenter[across], kCoordinateFormat));
}

std::string TorsionLine(const StoryFindings& story) {
    return "K_R = " + MomentInMetres(story.directions[kX].torsionalPart) + " + " +
           MomentInMetres(story.directions[kZ].torsionalPart) + " = " +
           MomentInMetres(story.torsionalStiffness) + " kN·m";
}

std::string RadiusLine(const Sheet& sheet, const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    return "r_{e" + sheet.names.Direction(axis) + "} = √(" +
           MomentInMetres(story.torsionalStiffness) + " × 1000 / " +
           NumberText(direction.stiffness, kStiffnessInDetailFormat) +
           ") = " + NumberText(direction.elasticRadius, kCoordinateFormat) + " mm";
}

std::string ModulusLine(const Sheet& sheet, const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    const std::size_t across = Across(axis);
    const std::string d = sheet.names.Direction(axis);
    return "e_" + d + " = |" + NumberText(story.rigidityCenter[across], kCoordinateFormat) + " − " +
           NumberText(story.gravityCenter[across], kCoordinateFormat) +
           "| = " + NumberText(direction.eccentricity, kCoordinateFormat) + " mm,  R_{e" + d +
           "} = " + NumberText(direction.eccentricity, kCoordinateFormat) + " / " +
           NumberText(direction.elasticRadius, kCoordinateFormat) + " = " +
           JudgedText(direction.eccentricityModulus, kModulusFormat, kCodeEccentricityModulus,
                      direction.eccentricityCode);
}

std::string FollowedLines(const Sheet& sheet, const StoryFindings& story) {
    std::string html;
    const auto line = [&html](const std::string& text) {
        html += Element("li", {}, HtmlOfOwnText(text));
    };
    line(CenterLine(sheet, story, kZ) + ",  " + CenterLine(sheet, story, kX));
    line(TorsionLine(story));
    line(RadiusLine(sheet, story, kX) + ",  " + RadiusLine(sheet, story, kZ));
    line(ModulusLine(sheet, story, kX));
    line(ModulusLine(sheet, story, kZ));
    return Element("ul", {{"class", "followed"}}, html) + "\n";
}

// --- Axial forces --------------------------------------------------------------------------------

bool IsStoryMember(const StoryFindings& story, const MemberFindings* member) {
    return !story.members.empty() && member >= story.members.data() &&
           member < story.members.data() + story.members.size();
}

// What is weighed: everything that is cut, each once. A story member that is not cut has no force.
std::vector<const MemberFindings*> Weighed(const StoryFindings& story) {
    std::vector<const MemberFindings*> weighed;
    std::unordered_set<std::int32_t> numbers;
    for (const auto* members : {&story.members, &story.cutNotCounted})
        for (const MemberFindings& member : *members) {
            const bool isCut = member.axialForce || members == &story.cutNotCounted;
            if (isCut && numbers.insert(member.number).second) weighed.push_back(&member);
        }
    return weighed;
}

// Coordinates and force of a member that is no story member stand nowhere else.
void AppendCellsOfNotCounted(std::string& cells, const MemberFindings& member) {
    AppendNumberCell(cells, NumberText(Finite(member.x), kCoordinateFormat));
    AppendNumberCell(cells, NumberText(Finite(member.v), kCoordinateFormat));
    AppendNumberCell(cells, NumberText(member.axialForce, kForceInDetailFormat));
}

void AppendAxialCells(std::string& cells, FigureRow& row, const StoryFindings& story,
                      const MemberFindings& member) {
    const bool isCounted = IsStoryMember(story, &member);
    AppendRowHead(cells, IdentifierText(member.number) + (isCounted ? "" : "<sup>†</sup>"));
    if (isCounted) {
        row.MoveTo({{}, story.number, {}, member.number});
        AppendCoordinateCells(cells, row, member);
        row.AppendCell(cells, "members.axialForce_kN",
                       NumberText(member.axialForce, kForceInDetailFormat));
    } else {
        AppendCellsOfNotCounted(cells, member);
    }
    for (const std::size_t axis : {kX, kZ})
        AppendNumberCell(cells, MomentInMetres(member.weightMoment[axis]));
}

// Likewise of the axial forces.
Table EmptyAxialTable(const Sheet& sheet) {
    const std::string v = sheet.names.Coordinate(kZ);
    const FilledWords nv = Filled(Text("A1 Nc"), {{"c", v}}),
                      nx = Filled(Text("A1 Nc"), {{"c", "x"}});
    Table table("A1axial", Text("A1 axial forces"), {20, 22, 22, 28, 28, 28}, "detail narrow");
    table.HeadRow({{Text("member")},
                   {{"x", "x"}, "mm"},
                   {{v, v}, "mm"},
                   {{"N", "N"}, "kN"},
                   {nx, "kN·m"},
                   {nv, "kN·m"}});
    return table;
}

std::string AxialTable(const Sheet& sheet, Table table, const StoryFindings& story) {
    const auto all = Weighed(story);
    const auto shown = Choose(all, sheet.content.options.detail, AxialWeight);
    FigureRow row;
    for (const MemberFindings* const member : shown) {
        AppendAxialCells(table.OpenRow(), row, story, *member);
        table.CloseRow();
    }
    table.SumRow("<th scope=\"row\" colspan=\"3\">" + InBoth(Text("sum")) + "</th>" +
                 NumberCell(NumberText(story.weightAbove, kForceInDetailFormat)) +
                 NumberCell(MomentInMetres(story.weightMoment[kX])) +
                 NumberCell(MomentInMetres(story.weightMoment[kZ])));
    std::string html = table.TakeHtml() + LeftOut(all.size(), shown.size());
    std::string lines;
    for (const std::size_t axis : {kX, kZ})
        lines += Element(
            "li", {},
            HtmlOfOwnText(Quotient(sheet.names.Coordinate(axis) + "_G",
                                   MomentInMetres(story.weightMoment[axis]) + " × 1000",
                                   NumberText(story.weightAbove, kForceInDetailFormat),
                                   NumberText(story.gravityCenter[axis], kCoordinateFormat))));
    html += Element("ul", {{"class", "followed"}}, lines) + "\n";
    if (!story.cutNotCounted.empty()) html += SmallPrint(Text("dagger"));
    return html;
}

// The tables of a story, which have the same heads in all.
struct EmptyTables {
    Table members;
    Table axialForces;
};

void AppendStoryDetails(std::string& html, const Sheet& sheet, const EmptyTables& empty,
                        const StoryFindings& story) {
    html += SubHeading(Filled(Text("A1 story"), {{"story", sheet.names.Story(story.number)}}));
    if (story.members.empty()) {
        html += SmallPrint(Text("no story members"));
    } else {
        html += MemberTable(sheet, empty.members, story);
        html += FollowedLines(sheet, story);
    }
    html += AxialTable(sheet, empty.axialForces, story);
}

}  // namespace

void MemberAppendix(const Sheet& sheet, std::string& html, const std::function<void()>& handOn) {
    if (sheet.content.options.detail == SheetDetail::kNone || sheet.findings.stories.empty())
        return;
    const EmptyTables empty{EmptyMemberTable(sheet), EmptyAxialTable(sheet)};
    html += OpenTag("section", {{"id", "A1"}, {"class", "own-page"}});
    html += Heading("A1", Text("A1"));
    html += SmallPrint(Text("A1 legend"));
    for (std::size_t i = sheet.StoryCount(); i-- > 0;) {
        AppendStoryDetails(html, sheet, empty, sheet.findings.stories[i]);
        handOn();
    }
    html += "</section>\n";
}
