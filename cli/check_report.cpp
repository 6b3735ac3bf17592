#include "cli/check_report.h"

#include <algorithm>
#include <string>
#include <vector>

#include "cli/check_tables.h"
#include "platform/one_line.h"
#include "report/number_text.h"
#include "route2/remarks.h"

namespace {

constexpr std::size_t kLongestList = 12;

std::string DirectionName(const Findings& findings, std::size_t axis) {
    return {axis == kX ? 'X' : findings.SecondDirection()};
}

std::string Joined(const std::vector<std::string>& entries) {
    std::string text;
    for (std::size_t i = 0; i < entries.size() && i < kLongestList; ++i)
        text.append(i == 0 ? "" : ", ").append(entries[i]);
    if (entries.size() > kLongestList) text += ", ...";
    return text;
}

const char* Source(bool fromInput) {
    return fromInput ? "input file" : "model";
}

// "98.3 to 100.0 %": what the story members carry of the story shears.
std::string Shares(const Findings& findings, std::size_t axis) {
    std::vector<double> shares;
    for (const StoryFindings& story : findings.stories)
        if (const Figure& share = story.directions[axis].share) shares.push_back(*share);
    if (shares.empty()) return std::string(kTerminalNumbers.notFormed);
    const auto [least, most] = std::ranges::minmax(shares);
    const std::string from = PercentText(least, kTerminalNumbers);
    const std::string to = PercentText(most, kTerminalNumbers);
    return (from == to ? from : from + " to " + to) + " %";
}

void PrintStories(std::ostream& out, const Findings& findings) {
    std::vector<std::string> levels, members;
    for (const double level : findings.floorLevels)
        levels.push_back(LevelText(level, kTerminalNumbers));
    std::size_t notCounted = 0;
    for (const StoryFindings& story : findings.stories) {
        members.push_back(std::to_string(story.members.size()));
        notCounted += story.cutNotCounted.size();
    }
    out << "\nStories: " << findings.stories.size() << "; levels " << Joined(levels) << " mm ("
        << Source(findings.floorLevelsFromInput) << "); members per story " << Joined(members)
        << " (" << Source(findings.storyMembersFromInput) << "); cut and not counted " << notCounted
        << "; share of the story shear X " << Shares(findings, kX) << ", "
        << DirectionName(findings, kZ) << " " << Shares(findings, kZ) << "\n";
}

struct VerdictCounts {
    int pass = 0, fail = 0, notFormed = 0;
    int ok = 0, ng = 0, undetermined = 0;
};

void CountTool(const Figure& judged, const std::optional<ToolVerdict>& verdict,
               VerdictCounts& counts) {
    if (!judged || !verdict)
        ++counts.notFormed;
    else
        ++(*verdict == ToolVerdict::kPass ? counts.pass : counts.fail);
}

void CountCode(CodeVerdict verdict, VerdictCounts& counts) {
    if (verdict == CodeVerdict::kUndetermined)
        ++counts.undetermined;
    else
        ++(verdict == CodeVerdict::kOk ? counts.ok : counts.ng);
}

VerdictCounts CountVerdicts(const Findings& findings) {
    VerdictCounts counts;
    for (const StoryFindings& story : findings.stories)
        for (const DirectionFindings& direction : story.directions) {
            CountTool(direction.meanAngle, direction.toolMeanVerdict, counts);
            CountTool(direction.stiffnessRatio, direction.stiffnessRatioTool, counts);
            CountTool(direction.eccentricityModulus, direction.eccentricityTool, counts);
            CountCode(direction.worstUpright.code, counts);
            CountCode(direction.stiffnessRatioCode, counts);
            CountCode(direction.eccentricityCode, counts);
        }
    return counts;
}

// The verdicts of the tables above: means, ratios and moduli under the earthquake cases.
void PrintCounts(std::ostream& out, const Findings& findings) {
    const VerdictCounts counts = CountVerdicts(findings);
    out << "\nEarthquake rows: " << counts.pass + counts.fail << " verdicts, " << counts.pass
        << " PASS, " << counts.fail << " FAIL";
    if (counts.notFormed > 0) out << ", " << counts.notFormed << " n/a";
    out << "; by the code: " << counts.ok << " OK, " << counts.ng << " NG, " << counts.undetermined
        << " undetermined\n";
}

void PrintVerdict(std::ostream& out, const Findings& findings) {
    const OverallVerdict& verdict = findings.verdict;
    out << "Verdict: " << TextOf(verdict.code) << " by the code, "
        << (verdict.tool ? TextOf(*verdict.tool) : "none") << " by the tool";
    if (!findings.end.complete) out << " (the run ended early)";
    out << "\n";
}

RemarkKind LeastKind(Detail detail) {
    if (detail == Detail::kQuiet) return RemarkKind::kError;
    return detail == Detail::kUsual ? RemarkKind::kWarning : RemarkKind::kNote;
}

bool IsShown(const Remark& remark, const CheckReport& report, Detail detail) {
    if (remark.kind > LeastKind(detail)) return false;
    return remark.id != "R31" || !report.inputRemarksAreTold;
}

void PrintRemarks(std::ostream& out, const CheckReport& report, Detail detail) {
    bool hasHeading = false;
    for (const Remark& remark : report.findings.remarks) {
        if (!IsShown(remark, report, detail)) continue;
        if (!hasHeading) out << "\nRemarks:\n";
        hasHeading = true;
        out << "  " << TextOf(remark.kind) << " " << remark.id << ": " << OneLine(remark.en);
        if (!remark.doEn.empty()) out << " " << OneLine(remark.doEn);
        out << "\n";
    }
}

}  // namespace

void PrintFindings(std::ostream& out, const CheckReport& report, Detail detail, bool useColor) {
    const Findings& findings = report.findings;
    if (detail != Detail::kQuiet && findings.end.complete) {
        PrintStories(out, findings);
        PrintCheckTables(out, findings, useColor);
        PrintCounts(out, findings);
    }
    if (detail == Detail::kVerbose)
        out << "Verdicts in the results file, all load cases, directions and members: "
            << report.printedVerdicts.pass << " PASS, " << report.printedVerdicts.fail << " FAIL\n";
    if (detail != Detail::kQuiet && !findings.end.complete) out << "\n";
    PrintVerdict(out, findings);
    PrintRemarks(out, report, detail);
}
