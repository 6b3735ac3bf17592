#include "cli/check_tables.h"

#include <string>
#include <vector>

#include "cli/text_table.h"
#include "report/number_text.h"

namespace {

constexpr int kIndent = 4;

using Row = std::vector<std::string>;

// One direction of one story.
struct Place {
    const StoryFindings& story;
    const DirectionFindings& direction;
};

struct CheckTable {
    const char* title = "";
    Row headings;
    Row (*row)(const Place& place) = nullptr;
};

// "n/a (no story members)".
std::string NotFormed(const std::optional<WhyUndetermined>& why) {
    std::string text(kTerminalNumbers.notFormed);
    if (why) text += " (" + ReasonOf(*why).en + ")";
    return text;
}

std::string Number(const Figure& figure, NumberFormat format) {
    return NumberText(figure, format, kTerminalNumbers);
}

// The tool judges fallback values too; what was not formed is not shown as judged.
std::string ToolCell(const Figure& judged, const std::optional<ToolVerdict>& verdict) {
    return judged && verdict ? TextOf(*verdict) : std::string(kTerminalNumbers.notFormed);
}

std::string Signed(const std::string& angle, const Figure& drift) {
    return drift && *drift < 0 ? angle + " (negative)" : angle;
}

std::string Amount(const Figure& drift, double height) {
    return AngleText(drift ? Figure(std::abs(*drift)) : drift, height, kTerminalNumbers);
}

Row AngleRow(const Place& place) {
    const auto& [story, direction] = place;
    const WorstUprightMember& worst = direction.worstUpright;
    const AngleBesideLimit text = AngleBesideLimitText(worst, story.height, kTerminalNumbers);
    const std::string mean =
        direction.meanDrift ? Signed(Amount(direction.meanDrift, story.height), direction.meanDrift)
                            : NotFormed(worst.why);
    return {std::to_string(story.number),
            mean,
            AllowableAngleText(story.allowableAngle, kTerminalNumbers),
            ToolCell(direction.meanAngle, direction.toolMeanVerdict),
            Signed(text.angle, worst.drift),
            IdentifierText(worst.member, kTerminalNumbers),
            text.allowable,
            TextOf(worst.code)};
}

Row RatioRow(const Place& place) {
    const auto& [story, direction] = place;
    const Figure& ratio = direction.stiffnessRatio;
    return {std::to_string(story.number),
            Number(direction.rs, kStiffnessIndexFormat),
            ratio ? JudgedText(ratio, kStiffnessRatioFormat, kCodeStiffnessRatio,
                               direction.stiffnessRatioCode, kTerminalNumbers)
                  : NotFormed(direction.stiffnessRatioWhy),
            InputValueText(story.allowableRatio, kTerminalNumbers),
            ToolCell(ratio, direction.stiffnessRatioTool),
            TextOf(direction.stiffnessRatioCode)};
}

Row ModulusRow(const Place& place) {
    const auto& [story, direction] = place;
    const Figure& modulus = direction.eccentricityModulus;
    return {std::to_string(story.number),
            Number(direction.eccentricity, kCoordinateFormat),
            Number(direction.elasticRadius, kCoordinateFormat),
            modulus ? JudgedText(modulus, kModulusFormat, kCodeEccentricityModulus,
                                 direction.eccentricityCode, kTerminalNumbers)
                    : NotFormed(direction.eccentricityWhy),
            InputValueText(story.allowableModulus, kTerminalNumbers),
            ToolCell(modulus, direction.eccentricityTool),
            TextOf(direction.eccentricityCode)};
}

std::vector<CheckTable> CheckTables() {
    return {{"Story deformation angle (tool: the mean of the story's members; code: its worst "
             "upright member)",
             {"Story", "mean", "allowable", "tool", "worst upright", "member", "limit", "code"},
             AngleRow},
            {"Story stiffness ratio (code: not below 0.6)",
             {"Story", "h/drift", "ratio", "allowable", "tool", "code"},
             RatioRow},
            {"Eccentricity modulus (code: not above 0.15)",
             {"Story", "e (mm)", "r_e (mm)", "modulus", "allowable", "tool", "code"},
             ModulusRow}};
}

std::string DirectionTitle(const Findings& findings, std::size_t axis) {
    return std::string("  ") + (axis == kX ? 'X' : findings.SecondDirection()) + ", load case " +
           std::to_string(findings.loadCases.earthquake[axis]) + "\n";
}

}  // namespace

void PrintCheckTables(std::ostream& out, const Findings& findings, bool useColor) {
    for (const CheckTable& check : CheckTables()) {
        out << "\n" << check.title << "\n";
        for (const std::size_t axis : {kX, kZ}) {
            out << DirectionTitle(findings, axis);
            TextTable table(check.headings);
            for (const StoryFindings& story : findings.stories)
                table.Add(check.row({story, story.directions[axis]}));
            table.Print(out, kIndent, useColor);
        }
    }
}
