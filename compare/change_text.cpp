#include "compare/change_text.h"

#include "platform/one_line.h"

namespace {

struct Section {
    ChangeSection section;
    const char* heading;
};
constexpr Section kSections[] = {{ChangeSection::kInput, "Input"},
                                 {ChangeSection::kModel, "Model"},
                                 {ChangeSection::kChecks, "Checks"},
                                 {ChangeSection::kRemarks, "Remarks"}};

// "story 2, Y: eccentricity 0.535 NG -> 0.142 OK (R moved 2610 mm in x)".
std::string LineOf(const Change& change) {
    std::string line = "  " + change.what + " ";
    if (!change.isChange)
        line += change.before + " =";
    else if (change.before.empty())
        line += "new: " + change.after;
    else if (change.after.empty())
        line += "gone: " + change.before;
    else
        line += change.before + " -> " + change.after;
    if (change.isChange && !change.note.empty()) line += " (" + change.note + ")";
    return OneLine(line);
}

std::string RunLine(const char* name, const RunRead& run) {
    return OneLine(std::string(name) + ": " + run.path + " (" + run.modelPath + ", " +
                   run.inputPath + ", " + run.made + ")") +
           "\n";
}

}  // namespace

std::string ChangeText(const RunRead& a, const RunRead& b, const Comparison& comparison,
                       bool onlyChanges) {
    std::string text = RunLine("A", a) + RunLine("B", b);
    for (const Section& section : kSections) {
        std::string lines;
        for (const Change& change : comparison.changes)
            if (change.section == section.section && (change.isChange || !onlyChanges))
                lines += LineOf(change) + "\n";
        if (!lines.empty()) text += std::string("\n") + section.heading + "\n" + lines;
    }
    return text;
}
