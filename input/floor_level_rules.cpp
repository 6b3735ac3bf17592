#include "input/floor_level_rules.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>

#include "input/block_rules.h"
#include "input/keywords.h"
#include "input/line_text.h"

namespace {

// All in mm.
constexpr double kLeastExtent = 200.0;  // of a building; less looks like metres
constexpr double kLeastStory = 100.0;
constexpr double kLowStory = 2100.0;
constexpr double kHighStory = 10000.0;
constexpr double kMillimetresPerMetre = 1000.0;
constexpr double kMostUnevenHeights = 3.0;  // largest over smallest story height
constexpr std::size_t kDigitsOfAGroup = 3;  // behind a thousands comma

struct Entry {
    double level = 0.0;
    InputField field;
};

using Entries = std::vector<Entry>;

const InputLine* FindFirstLine(const InputView& view) {
    for (std::size_t i = 0; i < view.meanings.size(); ++i)
        if (view.meanings[i].kind == LineKind::kKeyword &&
            view.meanings[i].keyword == Keyword::kFloorLevel)
            return &view.read.lines[i];
    return nullptr;
}

bool IsMeant(const InputView& view) {
    return std::ranges::any_of(view.meanings, [](const LineMeaning& meaning) {
        return meaning.keyword == Keyword::kFloorLevel;
    });
}

std::string LineOf(const std::vector<double>& levels) {
    std::string line = std::string(NameOf(Keyword::kFloorLevel)) + ',';
    for (const double level : levels)
        line += RoundedText(level) + ',';
    return line;
}

std::vector<double> LevelsOf(const Entries& entries) {
    std::vector<double> levels;
    for (const Entry& entry : entries)
        levels.push_back(entry.level);
    return levels;
}

std::vector<double> SortedOnce(std::vector<double> levels) {
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

bool IsAscending(const std::vector<double>& levels) {
    return std::ranges::adjacent_find(levels, std::ranges::greater_equal{}) == levels.end();
}

bool IsGroupHead(std::string_view field) {
    return !field.empty() && field.size() <= kDigitsOfAGroup && field.front() != '0' &&
           std::ranges::all_of(field, [](char c) { return '0' <= c && c <= '9'; });
}

bool IsGroup(std::string_view field) {
    return field.size() == kDigitsOfAGroup &&
           std::ranges::all_of(field, [](char c) { return '0' <= c && c <= '9'; });
}

// The checks of one line, one after the other: a mistake in the whole of it hides what follows
// from it.
class LevelLine {
public:
    LevelLine(const InputView& view, const InputLine& line, LintFindingList& findings)
        : view_(view), line_(line), fields_(FieldsOf(line)), findings_(findings) {}

    MeantLevels Check() {
        MeantLevels meant;
        meant.isUnreadable = HasSlip();
        if (meant.isUnreadable) return meant;
        CheckThatThereAreEntries();
        CheckEmptyEntries();
        CheckLastLevel();
        const bool isClean = TakeEntries();
        meant.levels = LevelsOf(entries_);
        if (isClean) meant.isSound = CheckList(meant.levels);
        meant.levels = SortedOnce(meant.levels);
        return meant;
    }

private:
    bool EndsInAComma() const { return line_.isContinued || IsBlank(fields_.back().text); }

    bool HasSlip() {
        for (std::size_t k = 1; k < fields_.size(); ++k) {
            const auto slip = FindSlipOfValue(view_.text, line_, fields_[k]);
            if (!slip) continue;
            findings_.Add(*slip);
            return true;
        }
        return false;
    }

    void CheckThatThereAreEntries() {
        if (fields_.size() == 2 && EndsInAComma())
            findings_.Add(FindingOf(FileRule::kV08Empty, line_.Place()));
    }

    void CheckEmptyEntries() {
        const auto isZero = [](const InputField& field) {
            const RealNumber number = ConvertRealNumber(field.text);
            return number.isClean && number.value == 0.0;
        };
        const bool hasZero = std::any_of(fields_.begin() + 1, fields_.end() - 1, isZero);
        for (std::size_t k = 1; k + 1 < fields_.size(); ++k)
            if (IsBlank(fields_[k].text))
                findings_.Add(FindingOf(hasZero ? FileRule::kV02Harmless : FileRule::kV02,
                                        PlaceToMark(fields_[k]))
                                  .Write(WithoutEmptyEntries()));
    }

    std::string WithoutEmptyEntries() const {
        std::string line = std::string(NameOf(Keyword::kFloorLevel)) + ',';
        for (std::size_t k = 1; k < fields_.size(); ++k)
            if (!IsBlank(fields_[k].text) && !IsRemark(k))
                line += view_.text.Display(Trimmed(fields_[k].text)) + ',';
        return line;
    }

    void CheckLastLevel() {
        if (EndsInAComma()) return;
        const std::string_view last = Trimmed(fields_.back().text);
        findings_.Add(FindingOf(FileRule::kV01, fields_.back().place)
                          .With("v", view_.text.Display(last))
                          .Write(WithoutEmptyEntries()));
    }

    // Behind the last comma, words that are no level.
    bool IsRemark(std::size_t k) const {
        return k + 1 == fields_.size() && !BeginsLikeANumber(fields_[k].text);
    }

    // The levels that somebody wrote, the last one too when only its comma is missing. False when
    // one is no number.
    bool TakeEntries() {
        bool isClean = true;
        for (std::size_t k = 1; k < fields_.size(); ++k) {
            const bool isLast = k + 1 == fields_.size();
            if (IsBlank(fields_[k].text) || (isLast && EndsInAComma())) continue;
            const RealNumber number = ConvertRealNumber(fields_[k].text);
            if (isLast && !number.isClean) continue;
            entries_.push_back({number.value, fields_[k]});
            if (number.isClean) continue;
            isClean = false;
            findings_.Add(FindingOf(FileRule::kV03, fields_[k].place)
                              .With("t", view_.text.Display(Trimmed(fields_[k].text)))
                              .With("n", NumberText(number.value)));
        }
        return isClean;
    }

    // True when each level can be looked at by itself; `levels` are then as they were meant.
    bool CheckList(std::vector<double>& levels) {
        if (levels.empty()) return true;
        if (CheckThousandsCommas(levels)) return false;
        const bool areHeights = CheckStoryHeights(levels);
        const bool areMetres = CheckMetres(levels);
        if (areHeights || areMetres) return false;
        CheckOrder(levels);
        CheckRepeats();
        if (CheckNumber(levels)) return false;
        CheckStories(levels);
        return true;
    }

    bool CheckThousandsCommas(std::vector<double>& levels) {
        std::vector<double> joined;
        const Entry* firstHead = nullptr;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            const std::string_view head = Trimmed(entries_[i].field.text);
            const bool isPair = i + 1 < entries_.size() && IsGroupHead(head) &&
                                IsGroup(Trimmed(entries_[i + 1].field.text));
            joined.push_back(entries_[i].level);
            if (!isPair) continue;
            if (firstHead == nullptr) firstHead = &entries_[i];
            joined.back() = entries_[i].level * 1000.0 + entries_[i + 1].level;
            ++i;
        }
        if (firstHead == nullptr || !IsAscending(joined)) return false;
        findings_.Add(FindingOf(FileRule::kV10, firstHead->field.place)
                          .With("a", view_.text.Display(Trimmed(firstHead->field.text)))
                          .With("b", view_.text.Display(Trimmed((firstHead + 1)->field.text)))
                          .Write(LineOf(joined)));
        levels = joined;
        return true;
    }

    bool CheckStoryHeights(std::vector<double>& levels) {
        const auto [smallest, largest] = std::ranges::minmax(levels);
        const bool areHeights = levels.size() >= 2 && levels[0] >= levels[1] && smallest > 0.0 &&
                                largest <= kMostUnevenHeights * smallest;
        if (!areHeights) return false;
        std::vector<double> sums{0.0};
        for (const double height : levels)
            sums.push_back(sums.back() + height);
        findings_.Add(FindingOf(FileRule::kV05, line_.Place()).Write(LineOf(sums)));
        levels = sums;
        return true;
    }

    bool CheckMetres(std::vector<double>& levels) {
        const auto [lowest, highest] = std::ranges::minmax(levels);
        if (!(lowest < highest && highest - lowest < kLeastExtent)) return false;
        std::string values;
        std::vector<double> inMillimetres;
        for (const double level : levels) {
            values += (values.empty() ? "" : ", ") + NumberText(level);
            inMillimetres.push_back(level * kMillimetresPerMetre);
        }
        findings_.Add(FindingOf(FileRule::kV04, line_.Place())
                          .With("values", values)
                          .Write(LineOf(inMillimetres)));
        levels = inMillimetres;
        return true;
    }

    void CheckOrder(const std::vector<double>& levels) {
        if (!std::ranges::is_sorted(levels))
            findings_.Add(FindingOf(FileRule::kV06, line_.Place()));
    }

    void CheckRepeats() {
        for (std::size_t i = 1; i < entries_.size(); ++i) {
            const auto isSame = [&](const Entry& other) {
                return other.level == entries_[i].level;
            };
            if (std::any_of(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(i),
                            isSame))
                findings_.Add(FindingOf(FileRule::kV07, entries_[i].field.place));
        }
    }

    bool CheckNumber(const std::vector<double>& levels) {
        if (SortedOnce(levels).size() >= 2) return false;
        // An empty entry is another level, and told as such.
        const bool hasEmptyEntry =
            std::any_of(fields_.begin() + 1, fields_.end() - 1,
                        [](const InputField& field) { return IsBlank(field.text); });
        if (!hasEmptyEntry || levels.front() == 0.0)
            findings_.Add(FindingOf(FileRule::kV08, line_.Place()));
        return true;
    }

    void CheckStories(const std::vector<double>& levels) {
        const std::vector<double> sorted = SortedOnce(levels);
        for (std::size_t i = 1; i < sorted.size(); ++i) {
            const double height = sorted[i] - sorted[i - 1];
            const auto rule = RuleOfHeight(height);
            if (!rule) continue;
            const auto upper = std::ranges::find(entries_, sorted[i], &Entry::level);
            findings_.Add(FindingOf(*rule, upper->field.place)
                              .With("h", RoundedText(height))
                              .Story(static_cast<std::int32_t>(i)));
        }
    }

    static std::optional<FileRule> RuleOfHeight(double height) {
        if (height < kLeastStory) return FileRule::kV09TooClose;
        if (height < kLowStory) return FileRule::kV09Low;
        if (height > kHighStory) return FileRule::kV09High;
        return std::nullopt;
    }

    const InputView& view_;
    const InputLine& line_;
    std::vector<InputField> fields_;
    LintFindingList& findings_;
    Entries entries_;
};

}  // namespace

std::optional<std::size_t> MeantLevels::StoryCount(std::optional<std::size_t> inModel) const {
    if (isUnreadable) return std::nullopt;
    return levels.empty() ? inModel : levels.size() - 1;
}

MeantLevels CheckFloorLevels(const InputView& view, LintFindingList& findings) {
    const InputLine* const line = FindFirstLine(view);
    if (line != nullptr) return LevelLine(view, *line, findings).Check();
    MeantLevels meant;
    meant.isUnreadable = IsMeant(view);
    return meant;
}
