#include "input/allowable_rules.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "input/block_rules.h"
#include "input/line_text.h"
#include "input/number_text.h"

namespace {

// What the codes say, and what cannot be meant.
constexpr double kCodeAngle = 1.0 / 200.0;
constexpr double kReliefAngle = 1.0 / 120.0;
constexpr double kReliefTolerance = 1.0001;  // 0.008334 is 1/120 too
constexpr double kLargestAngle = 0.02;
constexpr double kCodeRatio = 0.6;
constexpr double kLargestRatio = 2.0;
constexpr double kCodeModulus = 0.15;
constexpr double kLargestModulus = 1.0;
constexpr double kJustBelow = 1e-6;

bool IsAngle(Keyword keyword) {
    return keyword == Keyword::kAllowStoryDeformAngle;
}

bool IsRatio(Keyword keyword) {
    return keyword == Keyword::kAllowStoryStiffRatio;
}

// Nobody can have meant it: a reciprocal, a percentage, nothing at all.
bool IsAbsurd(Keyword keyword, double value) {
    if (IsAngle(keyword)) return !(value > 0.0 && value < kLargestAngle);
    if (IsRatio(keyword)) return !(value > 0.0 && value < kLargestRatio);
    return !(value > 0.0 && value <= kLargestModulus);
}

FileRule RuleOfEmptyValue(Keyword keyword) {
    if (IsAngle(keyword)) return FileRule::kA05Angle;
    return IsRatio(keyword) ? FileRule::kA05Ratio : FileRule::kA05Modulus;
}

// A value that everything meets: a large angle or modulus, a ratio of zero.
bool LetsEverythingPass(Keyword keyword, double value) {
    return IsRatio(keyword) ? value <= 0.0 : value > 0.0;
}

bool IsJustBelow(double value, double limit) {
    return value < limit && limit - value <= kJustBelow;
}

// "1/120" as the number it stands for.
std::optional<double> FindFraction(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const RealNumber above = ConvertRealNumber(text.substr(0, slash));
    const RealNumber below = ConvertRealNumber(text.substr(slash + 1));
    if (!above.isClean || !below.isClean || below.value == 0.0) return std::nullopt;
    return above.value / below.value;
}

std::optional<double> FindPercentage(std::string_view text) {
    if (!text.ends_with('%')) return std::nullopt;
    const RealNumber number = ConvertRealNumber(text.substr(0, text.size() - 1));
    constexpr double kPercent = 100.0;
    return number.isClean ? std::optional(number.value / kPercent) : std::nullopt;
}

// Cut, not rounded: an allowable angle stays on the safe side of 1/120.
std::string SixPlaces(double value) {
    constexpr double kPlaces = 1e6;
    return NumberText(std::floor(value * kPlaces + kJustBelow) / kPlaces);
}

class AllowableLines {
public:
    AllowableLines(const InputView& view, const Blocks& blocks,
                   std::optional<std::size_t> storyCount, LintFindingList& findings)
        : view_(view), blocks_(blocks), storyCount_(storyCount), findings_(findings) {}

    void Check() {
        CheckKeywordLines();
        for (const Blocks::AllowableLine& entry : blocks_.allowableLines) {
            if (IsAboveTheStories(*entry.line)) return;
            if (!entry.line->IsRest()) CheckLine(entry.keyword, *entry.line);
        }
    }

private:
    std::int32_t StoryOf(const InputLine& line) const {
        return ToInteger(std::string(FirstFieldOf(line)));
    }

    void CheckKeywordLines() {
        for (std::size_t i = 0; i < view_.meanings.size(); ++i) {
            const LineMeaning& meaning = view_.meanings[i];
            if (meaning.kind == LineKind::kKeyword && IsAllowableKeyword(*meaning.keyword))
                CheckKeywordLine(view_.read.lines[i]);
        }
    }

    void CheckKeywordLine(const InputLine& line) {
        const std::vector<InputField> fields = FieldsOf(line);
        std::size_t k = 1;
        while (k < fields.size() && !BeginsLikeANumber(fields[k].text))
            ++k;
        if (k == fields.size()) return;
        const std::string keyword(FirstFieldOf(line));
        const std::string first(Trimmed(fields[k].text));
        const bool hasStory = k + 1 < fields.size() && BeginsLikeANumber(fields[k + 1].text);
        const std::string written =
            hasStory ? first + ',' + std::string(Trimmed(fields[k + 1].text)) + ','
                     : "1," + first + ',';
        findings_.Add(FindingOf(FileRule::kA03, fields[k].place)
                          .Write(view_.text.Display(keyword + ",\n" + written)));
    }

    bool IsAboveTheStories(const InputLine& line) {
        const bool isAbove = storyCount_ && StoryOf(line) > static_cast<std::int64_t>(*storyCount_);
        if (isAbove)
            findings_.Add(FindingOf(FileRule::kA10, line.PlaceOf(FirstFieldOf(line)))
                              .With("n", std::to_string(*storyCount_))
                              .Story(StoryOf(line)));
        return isAbove;
    }

    void CheckLine(Keyword keyword, const InputLine& line) {
        const std::vector<InputField> fields = FieldsOf(line);
        for (std::size_t k = 0; k < 2; ++k) {
            const auto slip = FindSlipOfValue(view_.text, line, fields[k]);
            if (slip) return findings_.Add(*slip);
        }
        CheckStoryNumber(fields[0]);
        CheckRepeat(keyword, line);
        if (CheckValue(keyword, StoryOf(line), fields[1])) CheckFurtherValues(fields);
    }

    void CheckStoryNumber(const InputField& field) {
        const WholeNumber number = ConvertWholeNumber(field.text);
        if (number.isClean) return;
        findings_.Add(FindingOf(FileRule::kS10ReadAs, field.place)
                          .With("t", view_.text.Display(Trimmed(field.text)))
                          .With("n", std::to_string(number.value))
                          .Story(number.value));
    }

    void CheckRepeat(Keyword keyword, const InputLine& line) {
        if (seen_.insert({keyword, StoryOf(line)}).second) return;
        findings_.Add(
            FindingOf(FileRule::kA12, line.PlaceOf(FirstFieldOf(line))).Story(StoryOf(line)));
    }

    void CheckFurtherValues(const std::vector<InputField>& fields) {
        const auto further =
            std::find_if(fields.begin() + 2, fields.end(),
                         [](const InputField& field) { return BeginsLikeANumber(field.text); });
        if (further != fields.end())
            findings_.Add(FindingOf(FileRule::kL07, further->place).With("n", "1"));
    }

    // True when somebody can have meant the value.
    bool CheckValue(Keyword keyword, std::int32_t story, const InputField& field) {
        const auto add = [&](FileRule rule) -> LintFinding& {
            finding_ = FindingOf(rule, PlaceToMark(field));
            return finding_.Story(story);
        };
        const RealNumber number = ConvertRealNumber(field.text);
        if (IsBlank(field.text)) {
            add(RuleOfEmptyValue(keyword));
        } else if (!number.isClean) {
            AddUnclean(keyword, number.value, field, add);
        } else if (IsAbsurd(keyword, number.value)) {
            add(FileRule::kA06).With("v", view_.text.Display(Trimmed(field.text)));
        } else {
            CheckSoundValue(keyword, number.value, add);
            return true;
        }
        findings_.Add(finding_);
        return false;
    }

    template <typename Add>
    void AddUnclean(Keyword keyword, double value, const InputField& field, const Add& add) {
        const std::string_view text = Trimmed(field.text);
        const auto fraction = FindFraction(text);
        const auto meant = fraction ? fraction : FindPercentage(text);
        const FileRule rule = !fraction                            ? FileRule::kA02
                              : LetsEverythingPass(keyword, value) ? FileRule::kA01Passes
                                                                   : FileRule::kA01Fails;
        add(rule).With("t", view_.text.Display(text)).With("n", NumberText(value));
        if (meant && std::isfinite(*meant)) finding_.Write(SixPlaces(*meant));
    }

    template <typename Add>
    void CheckSoundValue(Keyword keyword, double value, const Add& add) {
        if (!IsAngle(keyword)) {
            if (value != (IsRatio(keyword) ? kCodeRatio : kCodeModulus))
                findings_.Add(add(FileRule::kA11));
            return;
        }
        if (value > kReliefAngle * kReliefTolerance)
            findings_.Add(add(FileRule::kA07));
        else if (value > kCodeAngle)
            findings_.Add(add(FileRule::kA08));
        if (IsJustBelow(value, kReliefAngle))
            findings_.Add(add(FileRule::kA13).With("limit", "1/120"));
        if (IsJustBelow(value, kCodeAngle))
            findings_.Add(add(FileRule::kA13).With("limit", "1/200"));
    }

    const InputView& view_;
    const Blocks& blocks_;
    const std::optional<std::size_t> storyCount_;
    LintFindingList& findings_;
    LintFinding finding_;  // the one being formed
    std::set<std::pair<Keyword, std::int32_t>> seen_;
};

}  // namespace

void CheckAllowables(const InputView& view, const Blocks& blocks,
                     std::optional<std::size_t> storyCount, LintFindingList& findings) {
    AllowableLines(view, blocks, storyCount, findings).Check();
}
