#include "input/story_member_rules.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "input/block_rules.h"
#include "input/line_text.h"
#include "input/number_text.h"

namespace {

// The lines of the block, one after the other.
class MemberLines {
public:
    MemberLines(const InputView& view, const Blocks& blocks, std::optional<std::size_t> storyCount,
                LintFindingList& findings)
        : view_(view), blocks_(blocks), storyCount_(storyCount), findings_(findings) {}

    void Check() {
        for (const InputLine* keyword : blocks_.storyMemberKeywords)
            CheckKeywordLine(*keyword);
        for (const InputLine* line : blocks_.memberLines) {
            if (IsAboveTheStories(*line)) break;
            CheckLine(*line);
        }
        AddRepeats();
        AddSeveralStories();
        CheckStoriesWithoutALine();
    }

private:
    std::int32_t StoryOf(const InputLine& line) const {
        return ToInteger(std::string(FirstFieldOf(line)));
    }

    void CheckKeywordLine(const InputLine& line) {
        if (blocks_.memberLines.empty()) return;  // said by S05
        const std::vector<InputField> fields = FieldsOf(line);
        const auto member =
            std::find_if(fields.begin() + 1, fields.end(),
                         [](const InputField& field) { return BeginsLikeANumber(field.text); });
        if (member == fields.end()) return;
        const std::string values(line.text.substr(NameOf(Keyword::kStoryMember).size() + 1));
        findings_.Add(FindingOf(FileRule::kA03StoryMember, member->place)
                          .Write("StoryMember,\n" + WithFinalComma(view_.text.Display(values))));
    }

    bool IsAboveTheStories(const InputLine& line) {
        const bool isAbove = storyCount_ && StoryOf(line) > static_cast<std::int64_t>(*storyCount_);
        if (isAbove)
            findings_.Add(FindingOf(FileRule::kS06, line.PlaceOf(FirstFieldOf(line)))
                              .With("n", std::to_string(*storyCount_))
                              .Story(StoryOf(line)));
        return isAbove;
    }

    void CheckLine(const InputLine& line) {
        const std::vector<InputField> fields = FieldsOf(line);
        const bool isEmpty = fields.size() == 2 && IsBlank(fields[1].text);
        (isEmpty ? emptyStories_ : storiesWithMembers_).insert(StoryOf(line));
        if (HasSlip(line, fields)) return;
        CheckStoryNumber(fields[0]);
        for (std::size_t k = 1; k + 1 < fields.size(); ++k)
            CheckMember(line, fields[k]);
        if (!line.isContinued) CheckTail(line, fields.back());
    }

    bool HasSlip(const InputLine& line, const std::vector<InputField>& fields) {
        for (std::size_t k = 0; k < fields.size(); ++k) {
            const bool isRemark = k + 1 == fields.size() && !IsMemberInDisguise(fields[k]);
            const auto slip =
                isRemark ? std::nullopt : FindSlipOfValue(view_.text, line, fields[k]);
            if (!slip) continue;
            findings_.Add(*slip);
            return true;
        }
        return false;
    }

    bool IsMemberInDisguise(const InputField& field) const {
        const std::string half = ToHalfWidth(field.text, view_.text.Encoding().encoding).text;
        return BeginsLikeANumber(WithoutQuotes(half));
    }

    void CheckStoryNumber(const InputField& field) {
        const WholeNumber number = ConvertWholeNumber(field.text);
        if (number.isClean) return;
        findings_.Add(FindingOf(FileRule::kS10ReadAs, field.place)
                          .With("t", view_.text.Display(Trimmed(field.text)))
                          .With("n", std::to_string(number.value))
                          .Story(number.value));
    }

    void CheckMember(const InputLine& line, const InputField& field) {
        const WholeNumber number = ConvertWholeNumber(field.text);
        if (IsBlank(field.text)) {
            findings_.Add(FindingOf(FileRule::kS02, PlaceToMark(field))
                              .Story(StoryOf(line))
                              .Write(WithoutEmptyEntries(line)));
        } else if (!number.isClean) {
            findings_.Add(FindingOf(FileRule::kS03, field.place)
                              .With("t", view_.text.Display(Trimmed(field.text)))
                              .With("n", std::to_string(number.value))
                              .Story(StoryOf(line)));
        } else if (number.value < 1) {
            findings_.Add(FindingOf(FileRule::kS03NoMember, field.place)
                              .With("t", view_.text.Display(Trimmed(field.text)))
                              .Story(StoryOf(line)));
        } else {
            Count(StoryOf(line), number.value, field.place);
        }
    }

    std::string WithoutEmptyEntries(const InputLine& line) const {
        std::string kept;
        for (const InputField& field : FieldsOf(line))
            if (!IsBlank(field.text)) kept += view_.text.Display(Trimmed(field.text)) + ',';
        return kept;
    }

    void CheckTail(const InputLine& line, const InputField& field) {
        const std::string_view text = Trimmed(field.text);
        if (text.empty()) return;
        if (!BeginsLikeANumber(text) || text.front() == '.') {
            findings_.Add(FindingOf(FileRule::kS11, field.place));
            return;
        }
        findings_.Add(FindingOf(FileRule::kS01, field.place)
                          .With("m", view_.text.Display(text))
                          .Story(StoryOf(line))
                          .Write(WithFinalComma(view_.text.Display(Trimmed(line.text)))));
    }

    void Count(std::int32_t story, std::int32_t member, const InputPlace& place) {
        std::set<std::int32_t>& stories = storiesOf_[member];
        if (!stories.insert(story).second) {
            AddTo(repeats_, FileRule::kS08, member, story, place);
        } else if (stories.size() > 1) {
            AddTo(several_, FileRule::kS09, member, story, place);
        }
    }

    // One finding for all members of a kind, at the first of them.
    static void AddTo(std::optional<LintFinding>& finding, FileRule rule, std::int32_t member,
                      std::int32_t story, const InputPlace& place) {
        if (!finding) finding = FindingOf(rule, place);
        finding->Member(member).Story(story);
    }

    void AddRepeats() { AddListed(repeats_); }
    void AddSeveralStories() { AddListed(several_); }

    void AddListed(std::optional<LintFinding>& finding) {
        if (!finding) return;
        finding->With("m", NumberList(finding->members));
        findings_.Add(*finding);
    }

    void CheckStoriesWithoutALine() {
        if (blocks_.memberLines.empty() && !blocks_.isBlockFoundFaulty &&
            blocks_.namedStories.empty())
            return findings_.Add(FindingOf(FileRule::kS05, blocks_.storyMember->Place()));
        if (blocks_.namedStories.empty()) return;
        const std::int32_t highest = *blocks_.namedStories.rbegin();
        const auto count = storyCount_ ? static_cast<std::int32_t>(*storyCount_) : highest;
        std::vector<std::int32_t> missing;
        for (std::int32_t story = 1; story <= count && missing.size() < kMostMissing; ++story)
            if (HasNoMembers(story)) missing.push_back(story);
        if (missing.empty()) return;
        LintFinding finding = FindingOf(FileRule::kS07, blocks_.storyMember->Place());
        for (const std::int32_t story : missing)
            finding.Story(story);
        findings_.Add(finding.With("s", NumberList(missing)));
    }

    bool HasNoMembers(std::int32_t story) const {
        const bool hasEmptyLinesOnly =
            emptyStories_.contains(story) && !storiesWithMembers_.contains(story);
        return !blocks_.namedStories.contains(story) || hasEmptyLinesOnly;
    }

    static constexpr std::size_t kMostMissing = 1000;

    const InputView& view_;
    const Blocks& blocks_;
    const std::optional<std::size_t> storyCount_;
    LintFindingList& findings_;
    std::map<std::int32_t, std::set<std::int32_t>> storiesOf_;  // by member
    std::set<std::int32_t> storiesWithMembers_;
    std::set<std::int32_t> emptyStories_;  // with a line that names no member
    std::optional<LintFinding> repeats_;
    std::optional<LintFinding> several_;
};

}  // namespace

void CheckStoryMembers(const InputView& view, const Blocks& blocks,
                       std::optional<std::size_t> storyCount, LintFindingList& findings) {
    if (blocks.storyMember == nullptr) return;
    MemberLines(view, blocks, storyCount, findings).Check();
}
