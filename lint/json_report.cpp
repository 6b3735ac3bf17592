#include "lint/json_report.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "input/lint_finding_text.h"

namespace {

using Json = nlohmann::ordered_json;

// Whole numbers without a decimal point; what is not finite as null.
Json NumberValue(double value) {
    constexpr double kExact = 9007199254740992.0;  // 2^53: every whole number up to here
    if (!std::isfinite(value)) return nullptr;
    if (value == std::trunc(value) && std::abs(value) <= kExact)
        return static_cast<std::int64_t>(value);
    return value;
}

Json Numbers(const std::vector<double>& values) {
    Json list = Json::array();
    for (const double value : values)
        list.push_back(NumberValue(value));
    return list;
}

Json NumbersOrNull(const std::optional<std::vector<double>>& values) {
    return values ? Numbers(*values) : Json(nullptr);
}

Json FindingValue(const LintFinding& finding, const InputText& text, Language language) {
    const bool hasPlace = finding.place.line != 0;
    const std::string write = WriteInstead(finding, language);
    Json value;
    value["id"] = finding.rule->id;
    value["kind"] = NameOf(finding.rule->kind);
    value["line"] = hasPlace ? Json(finding.place.line) : Json(nullptr);
    value["column"] =
        hasPlace ? Json(text.Column(finding.place.line, finding.place.offset)) : Json(nullptr);
    value["stories"] = finding.stories;
    value["members"] = finding.members;
    value["message"] = MessageOf(finding, text, language);
    value["write"] = write.empty() ? Json(nullptr) : Json(write);
    return value;
}

const char* NameOf(Source source) {
    return source == Source::kInput ? "input" : "model";
}

Json StoryMembersValue(const AsRead& asRead) {
    if (!asRead.storyMembers) return nullptr;
    Json stories = Json::object();
    for (const auto& [story, members] : *asRead.storyMembers)
        stories[std::to_string(story)] = members;
    return stories;
}

Json AsReadValue(const AsRead& asRead) {
    Json value;
    value["dead"] = asRead.dead.number;
    value["x"] = asRead.earthquake[0].number;
    value["second"] = asRead.earthquake[1].number;
    value["floorLevels_mm"] = NumbersOrNull(asRead.floorLevels);
    value["floorLevelsFrom"] = NameOf(asRead.floorLevelsFrom);
    value["storyMembers"] = StoryMembersValue(asRead);
    value["storyMembersFrom"] = NameOf(asRead.storyMembersFrom);
    value["allowAngle"] = NumbersOrNull(asRead.allowAngle);
    value["allowRatio"] = NumbersOrNull(asRead.allowRatio);
    value["allowModulus"] = NumbersOrNull(asRead.allowModulus);
    value["reportedMembers"] = asRead.reportedMembers;
    return value;
}

}  // namespace

std::string JsonReport(const LintReport& report, Language language) {
    Json findings = Json::array();
    for (const LintFinding& finding : report.findings)
        findings.push_back(FindingValue(finding, report.check.text, language));
    Json root;
    root["file"] = report.inputPath;
    root["findings"] = std::move(findings);
    root["asRead"] = report.asRead ? AsReadValue(*report.asRead) : Json(nullptr);
    // A path need not be UTF-8.
    return root.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}
