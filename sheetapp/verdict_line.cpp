#include "sheetapp/verdict_line.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "report/number_text.h"

namespace {

// Texts of a check; `within` and `beyond` stand between a value and its limit.
struct CheckWords {
    const char* en;
    const char* ja;
    const char* within;
    const char* beyond;
};

constexpr CheckWords kDrift{"story deformation angle", "層間変形角", "≤", ">"};
constexpr CheckWords kRatio{"stiffness ratio", "剛性率", "≥", "<"};
constexpr CheckWords kModulus{"eccentricity", "偏心率", "≤", ">"};

// One value that was held against a limit.
struct Judged {
    const CheckWords* check;
    int story;
    std::size_t axis;
    CodeVerdict verdict;
    Figure utilisation;  ///< none: no such figure, as of a ratio that is not positive
    std::string value;
    std::string limit;
};

void AddDirection(const StoryFindings& story, std::size_t axis, std::vector<Judged>& all) {
    const DirectionFindings& found = story.directions[axis];
    const AngleBesideLimit angle = AngleBesideLimitText(found.worstUpright, story.height);
    all.push_back({&kDrift, story.number, axis, found.worstUpright.code,
                   found.worstUpright.utilisation, angle.angle, angle.allowable});
    all.push_back({&kRatio, story.number, axis, found.stiffnessRatioCode, found.ratioUtilisation,
                   JudgedText(found.stiffnessRatio, kStiffnessRatioFormat, kCodeStiffnessRatio,
                              found.stiffnessRatioCode),
                   InputValueText(kCodeStiffnessRatio)});
    all.push_back({&kModulus, story.number, axis, found.eccentricityCode, found.modulusUtilisation,
                   JudgedText(found.eccentricityModulus, kModulusFormat, kCodeEccentricityModulus,
                              found.eccentricityCode),
                   InputValueText(kCodeEccentricityModulus)});
}

std::vector<Judged> AllJudged(const Findings& findings) {
    std::vector<Judged> all;
    for (const StoryFindings& story : findings.stories)
        for (const std::size_t axis : {std::size_t{kX}, std::size_t{kZ}})
            AddDirection(story, axis, all);
    return all;
}

// Of the values with this verdict the one farthest along; null without one.
const Judged* Governing(const std::vector<Judged>& all, CodeVerdict verdict) {
    const Judged* governing = nullptr;
    // What has no utilisation, though it is NG, is beyond all measure.
    const auto rank = [](const Judged& judged) {
        return judged.utilisation.value_or(std::numeric_limits<double>::infinity());
    };
    for (const Judged& judged : all)
        if (judged.verdict == verdict && (governing == nullptr || rank(judged) > rank(*governing)))
            governing = &judged;
    return governing;
}

// "eccentricity, story 1, Y"
std::string Place(const Judged& judged, const Findings& findings, Language language) {
    const std::string direction(1, judged.axis == kX ? 'X' : findings.SecondDirection());
    const std::string story = std::to_string(judged.story);
    if (language == Language::kJapanese)
        return std::string(judged.check->ja) + " " + story + "階 " + direction + "方向";
    return std::string(judged.check->en) + ", story " + story + ", " + direction;
}

std::string WithValue(const Judged& judged, const Findings& findings, Language language) {
    const char* const relation =
        judged.verdict == CodeVerdict::kNg ? judged.check->beyond : judged.check->within;
    return Place(judged, findings, language) + (language == Language::kJapanese ? " " : ", ") +
           judged.value + " " + relation + " " + judged.limit;
}

std::size_t CountOf(const Findings& findings, RemarkKind kind) {
    return static_cast<std::size_t>(std::ranges::count(findings.remarks, kind, &Remark::kind));
}

std::string OkLine(const Findings& findings, const std::vector<Judged>& all, Language language) {
    const bool ja = language == Language::kJapanese;
    const std::string warnings = std::to_string(CountOf(findings, RemarkKind::kWarning));
    std::string line = "OK";
    if (warnings != "0")
        line += ja ? "(要確認 " + warnings + " 件)" : " (" + warnings + " to check)";
    const Judged* const closest = Governing(all, CodeVerdict::kOk);
    if (closest == nullptr) return line;
    return line + (ja ? ": 最も厳しい値 " : ": closest to its limit: ") +
           WithValue(*closest, findings, language);
}

std::string OpenLine(const Findings& findings, const std::vector<Judged>& all, Language language) {
    const bool ja = language == Language::kJapanese;
    if (const Judged* const open = Governing(all, CodeVerdict::kUndetermined))
        return (ja ? "未確定: " : "Open: ") + Place(*open, findings, language) +
               (ja ? " 算定不可" : ", not determinable");
    const std::string errors = std::to_string(CountOf(findings, RemarkKind::kError));
    return ja ? "未確定: 要修正 " + errors + " 件" : "Open: " + errors + " to be mended first";
}

}  // namespace

std::string VerdictLine(const Findings& findings, Language language) {
    const std::vector<Judged> all = AllJudged(findings);
    if (const Judged* const worst = Governing(all, CodeVerdict::kNg))
        return "NG: " + WithValue(*worst, findings, language);
    if (findings.verdict.code == CodeVerdict::kOk) return OkLine(findings, all, language);
    return OpenLine(findings, all, language);
}
