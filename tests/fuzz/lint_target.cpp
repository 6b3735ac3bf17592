// The check of an input file, by itself and against a small building. Whatever the bytes are: it
// ends, its report is plain text and valid JSON, what it says a run reads is what a second reading
// gives, and the file that it suggests can be read.

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

#include "host/recorded_host.h"
#include "lint/github_report.h"
#include "lint/json_report.h"
#include "lint/lint.h"
#include "lint/text_report.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reference_reader.h"
#include "tests/fuzz/text_model.h"
#include "tests/support/test_folder.h"

namespace {

// One story of 3.5 m with a landing, a column beside the floor and one that leans; Z is vertical.
constexpr const char* kBuilding =
    "zup\nnode 1 0 0 0 s\nnode 2 6 0 0 s\nnode 3 0 5 0 s\nnode 4 6 5 0 s\n"
    "node 11 0 0 3.5\nnode 12 6 0 3.5\nnode 13 0 5 3.5\nnode 14 6 5 3.495\n"
    "node 21 0 0 1.7\nnode 22 6 0 1.7\n"
    "member 1 1 11\nmember 2 2 12\nmember 3 3 13\nmember 4 4 14\nmember 5 1 14\n"
    "member 11 11 12\nmember 12 12 13\nmember 13 13 11\nmember 14 21 22\n"
    "load 1\nload 2\nload 3\ncomb 101\n"
    "disp 2 11 0.01 0 0\ndisp 3 12 0 0.01 0\n"
    "force 1 1 0 100 0 0\nforce 2 1 0 0 10 0\nforce 3 2 0 0 0 10\n";

void CheckText(const std::string& text) {
    for (const char c : text)
        Check(c == '\n' || static_cast<unsigned char>(c) >= 0x20, "the report is plain text");
}

void CheckFindings(const LintReport& report) {
    const LintFinding* before = nullptr;
    for (const LintFinding& finding : report.findings) {
        const InputPlace& place = finding.place;
        if (place.line != 0)
            Check(report.check.text.Column(place.line, place.offset) >= 1, "columns count from 1");
        if (before != nullptr && place.line != 0)
            Check(before->place.line != 0 && before->place.line <= place.line, "lines ascend");
        before = &finding;
    }
}

void CheckReports(const LintReport& report) {
    CheckFindings(report);
    for (const Language language : {Language::kEnglish, Language::kJapanese}) {
        CheckText(TextReport(report, language));
        CheckText(GithubReport(report, language));
        const auto json = nlohmann::json::parse(JsonReport(report, language));
        Check(json["findings"].size() == report.findings.size(), "every finding is in the JSON");
    }
}

std::vector<double> SortedOnce(std::vector<double> levels) {
    std::sort(levels.begin(), levels.end());
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

bool HasNan(const std::vector<double>& values) {
    return std::any_of(values.begin(), values.end(), [](double v) { return std::isnan(v); });
}

void CheckAsRead(const LintReport& report, const ReferenceInput& reference) {
    Check(report.asRead.has_value() == reference.hasFin, "FIN is found");
    if (!report.asRead) return;
    const AsRead& asRead = *report.asRead;
    Check(asRead.dead.number == reference.deadLoadCase, "dead load case");
    Check(asRead.earthquake[0].number == reference.earthquakeLoadCases[0] &&
              asRead.earthquake[1].number == reference.earthquakeLoadCases[1],
          "earthquake load cases");
    Check(asRead.floorLevels.has_value() == !reference.floorLevels.empty(), "levels of the file");
    if (asRead.floorLevels && !HasNan(reference.floorLevels))
        Check(*asRead.floorLevels == SortedOnce(reference.floorLevels), "floor levels");
    for (const std::int32_t member : asRead.reportedMembers)
        Check(reference.reportedMembers.contains(member), "members to report");
}

void CheckSuggestion(const LintReport& report) {
    const InputCheck check = CheckInputText(InputText(report.suggestion));
    Check(check.isInput && check.hasFin, "the suggestion is an input file");
    for (const char* id : {"F05", "V01", "S01", "D01", "L01", "S04", "A09"})
        Check(!HasFinding(check.findings, id), std::string("the suggestion has no ") + id);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    static const RecordedModel model = ReadTextModel(kBuilding);

    const std::string file(reinterpret_cast<const char*>(data), size);
    const std::string path = folder.Write("input.csv", file);
    const LintReport alone = LintFile(path, WantsSuggestion::kYes);
    Check(alone.check.isRead, "the file is read");
    CheckReports(alone);
    if (!alone.check.isInput) return 0;
    const std::size_t stories =
        alone.asRead && alone.asRead->floorLevels ? alone.asRead->floorLevels->size() - 1 : 0;
    CheckAsRead(alone, ReadReference(file, stories));
    CheckSuggestion(alone);

    RecordedHost host(model, folder.Path("model.qhm"));
    const LintReport against = LintAgainst(path, {host, "model.qhm", ""}, WantsSuggestion::kYes);
    CheckReports(against);
    CheckSuggestion(against);
    return 0;
}
