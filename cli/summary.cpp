#include "cli/summary.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <iomanip>

#include "platform/one_line.h"

namespace {

constexpr const char* kDirections[] = {"X", "Z(or Y)"};
constexpr int kStoryWidth = 7;
constexpr int kNumberWidth = 12;
constexpr int kResultWidth = 8;
constexpr int kDirectionWidth = 2 * kNumberWidth + kResultWidth;

struct Check {
    const char* title;
    const char* rule;
    CheckVerdicts ResultsReport::*verdicts;
    bool isPerLoadCase;
};

constexpr Check kChecks[] = {
    {"Story deformation angle", "mean of the story's members; passes below the allowable value",
     &ResultsReport::angles, true},
    {"Story stiffness ratio", "from the mean of the members; passes above the allowable value",
     &ResultsReport::ratios, true},
    {"Eccentricity modulus", "passes below the allowable value", &ResultsReport::moduli, false},
};

std::string Number(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.5g", value);
    return text;
}

std::string Colored(const std::string& result, bool useColor) {
    std::string text = result + std::string(kResultWidth - result.size(), ' ');
    if (!useColor) return text;
    const bool passes = result == "PASS";
    return (passes ? "\x1b[32m" : "\x1b[31m") + text + "\x1b[0m";
}

// The verdict of one story and direction; null where the results file has no such row.
const Verdict* Find(const CheckVerdicts& check, const std::string& direction, int story,
                    const std::string& load) {
    const auto ofDirection = check.find(direction);
    if (ofDirection == check.end()) return nullptr;
    const auto ofStory = ofDirection->second.find(story);
    if (ofStory == ofDirection->second.end()) return nullptr;
    const auto ofLoad = ofStory->second.find(load);
    return ofLoad == ofStory->second.end() ? nullptr : &ofLoad->second;
}

std::string LoadColumn(const std::optional<std::int32_t>& loadCase) {
    return loadCase ? std::to_string(*loadCase) : std::string();
}

class VerdictTable {
public:
    VerdictTable(std::ostream& out, const Check& check, const LogReport& log,
                 const ResultsReport& results, bool useColor)
        : out_(out), check_(check), results_(results), useColor_(useColor) {
        if (check.isPerLoadCase)
            loads_ = {LoadColumn(log.earthquakeCaseX), LoadColumn(log.earthquakeCaseZ)};
    }

    void Print() {
        out_ << "\n" << check_.title << " (" << check_.rule << ")\n" << std::left;
        out_ << std::setw(kStoryWidth) << "";
        for (std::size_t i = 0; i < 2; ++i)
            out_ << std::setw(kDirectionWidth)
                 << std::string(kDirections[i]) +
                        (loads_[i].empty() ? "" : ", load case " + loads_[i]);
        out_ << "\n" << std::setw(kStoryWidth) << "Story";
        for (std::size_t i = 0; i < 2; ++i)
            out_ << std::setw(kNumberWidth) << "value" << std::setw(kNumberWidth) << "allowable"
                 << std::setw(kResultWidth) << "";
        out_ << "\n";
        for (int story = 1; story <= results_.stories; ++story)
            PrintStory(story);
    }

private:
    void PrintStory(int story) {
        out_ << std::setw(kStoryWidth) << story;
        for (std::size_t i = 0; i < 2; ++i) {
            const Verdict* verdict =
                Find(results_.*check_.verdicts, kDirections[i], story, loads_[i]);
            if (verdict == nullptr)
                out_ << std::setw(kDirectionWidth) << "no such row in the results";
            else
                out_ << std::setw(kNumberWidth) << Number(verdict->value) << std::setw(kNumberWidth)
                     << Number(verdict->allowable) << Colored(verdict->result, useColor_);
        }
        out_ << "\n";
    }

    std::ostream& out_;
    const Check& check_;
    const ResultsReport& results_;
    bool useColor_;
    std::array<std::string, 2> loads_;
};

}  // namespace

void PrintVerdicts(std::ostream& out, const LogReport& log, const ResultsReport& results,
                   bool useColor) {
    for (const Check& check : kChecks)
        VerdictTable(out, check, log, results, useColor).Print();
    out << "\nVerdicts in the results file, all load cases, directions and members: "
        << results.passRows << " PASS, " << results.failRows << " FAIL\n";
}

void PrintWarnings(std::ostream& out, const LogReport& log) {
    if (log.warnings.empty()) return;
    out << "\nWarnings in the log:\n";
    for (const std::string& warning : log.warnings)
        out << "  " << OneLine(warning) << "\n";
}
