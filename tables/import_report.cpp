#include "tables/import_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "log/formatted_print.h"
#include "platform/one_line.h"
#include "tables/story_loads.h"

namespace {

constexpr std::size_t kLongestName = 40;

std::string Line(const char* heading, const std::string& text) {
    constexpr std::size_t kIndent = 14;
    std::string line = std::string("  ") + heading;
    line.resize(std::max(kIndent, line.size() + 1), ' ');
    return line + text + "\n";
}

std::string NodeLine(const BuildingTables& tables) {
    const auto held = std::ranges::count(tables.isHeld, true);
    return Line("nodes", std::to_string(tables.nodes.names.size()) + ", " + std::to_string(held) +
                             " of them held");
}

std::string MemberLines(const TableMembers& members) {
    std::string lines = Line("members", std::to_string(members.bars.size()) + " bars");
    for (const auto& [type, names] : members.leftOut)
        lines += Line("left out", std::to_string(names.size()) + " of type " +
                                      OneLine(type, kLongestName) + " (" + ListText(names) + ")");
    return lines;
}

std::string CaseText(const TableCase& row) {
    const std::string number = std::to_string(row.number);
    return row.name.empty() ? number : number + " " + OneLine(row.name, kLongestName);
}

std::string CaseLines(const TableCases& cases) {
    std::vector<std::string> primary, combinations;
    for (const TableCase& row : cases.Rows())
        (row.isPrimary ? primary : combinations).push_back(CaseText(row));
    std::string lines;
    if (!primary.empty()) lines += Line("load cases", ListText(primary));
    if (!combinations.empty()) lines += Line("combined", ListText(combinations));
    return lines;
}

std::string RoleLine(const CaseRoles& roles) {
    std::vector<std::string> earthquakes;
    for (const std::int32_t loadCase : roles.earthquake)
        earthquakes.push_back(std::to_string(loadCase));
    return Line("roles", "dead load " + (roles.dead ? std::to_string(*roles.dead) : "none") +
                             ", earthquakes " +
                             (earthquakes.empty() ? "none" : ListText(earthquakes)) + " (by " +
                             OneLine(roles.from, 200) + ")");
}

std::string ModelLine(const ModelStatement& statement) {
    return Line("model", std::string(statement.IsEnglish() ? "inch and kip" : "m and kN") + ", " +
                             (statement.zUp ? "Z" : "Y") + " vertical; end forces " +
                             NameOf(statement.endForceAxes) + ", " +
                             NameOf(statement.endForceSense));
}

std::string Cell(double value, int width) {
    char text[64];
    const double shown = std::abs(value) < 0.05 ? 0.0 : value;  // no -0.0
    std::snprintf(text, sizeof text, "%*.1f", width, Printable(shown));
    return text;
}

std::string StoryLines(const CheckedBuilding& building, const CaseRoles& roles) {
    const std::vector<StoryLoads> stories = StoryLoadsOf(building, roles);
    if (stories.empty()) return Line("stories", "none: no level member lies above the base");
    const std::string second = building.ZUp() ? "Y" : "Z";
    std::string lines = "\n  Story  from mm    to mm   weight kN";
    for (const std::int32_t loadCase : roles.earthquake)
        lines += "   case " + std::to_string(loadCase) + ": X, " + second + " kN";
    lines += "\n";
    for (std::size_t i = stories.size(); i-- > 0;) {
        const StoryLoads& story = stories[i];
        std::string number = std::to_string(i + 1);
        number.insert(0, 7 - std::min<std::size_t>(7, number.size()), ' ');
        lines +=
            number + Cell(story.lowerLevel, 9) + Cell(story.upperLevel, 9) + Cell(story.weight, 12);
        for (const auto& [loadCase, shear] : story.shears)
            lines += "  " + Cell(shear.x, 9) + Cell(building.ZUp() ? shear.y : shear.z, 9);
        lines += "\n";
    }
    return lines;
}

std::string CheckLines(const StatementFindings& findings) {
    std::string lines = "\n";
    for (const std::string& check : findings.passed)
        lines += "  checked: " + check + "\n";
    for (const std::string& check : findings.notChecked)
        lines += "  not checked: " + check + "\n";
    return lines;
}

}  // namespace

std::string ImportReport(const CheckedBuilding& building, const CaseRoles& roles,
                         const StatementFindings& findings) {
    const BuildingTables& tables = building.Tables();
    return NodeLine(tables) + MemberLines(tables.members) + CaseLines(tables.cases) +
           RoleLine(roles) + ModelLine(tables.statement) + StoryLines(building, roles) +
           CheckLines(findings);
}
