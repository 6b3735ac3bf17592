#include "input/block_rules.h"

#include <optional>
#include <string>
#include <utility>

#include "input/line_text.h"
#include "input/number_text.h"
#include "platform/utf8_character.h"

namespace {

constexpr std::size_t kMostCharacters = 198;  // of a line that is not cut
constexpr std::size_t kShownOfARest = 20;     // characters

bool OnlyFirstLineCounts(Keyword keyword) {
    return keyword == Keyword::kFloorLevel || keyword == Keyword::kMemberDeformAngle;
}

bool HasBlock(Keyword keyword) {
    return keyword == Keyword::kStoryMember || IsAllowableKeyword(keyword);
}

std::string Beginning(const std::string& utf8) {
    std::string_view rest = utf8;
    for (std::size_t i = 0; i < kShownOfARest && !rest.empty(); ++i)
        rest.remove_prefix(FirstUtf8Character(rest).size);
    return utf8.substr(0, utf8.size() - rest.size()) + (rest.empty() ? "" : "...");
}

// The value that the codes know for every story.
std::string_view CodeValueOf(Keyword allowable) {
    if (allowable == Keyword::kAllowStoryDeformAngle) return "0.005";
    return allowable == Keyword::kAllowStoryStiffRatio ? "0.6" : "0.15";
}

// The whole of a story line in lines that are not cut.
std::string InShortLines(std::string_view line, const InputText& text) {
    const std::string all = WithFinalComma(text.Display(line));
    const std::string start = all.substr(0, all.find(',') + 1);
    std::string lines, current = start;
    for (std::size_t at = start.size(); at < all.size();) {
        const std::size_t next = all.find(',', at) + 1;
        if (current.size() + next - at > kMostCharacters) {
            lines += current + '\n';
            current = start;
        }
        current += all.substr(at, next - at);
        at = next;
    }
    return lines + current;
}

// One pass over the reads with the state that the readers of the blocks have.
class BlockWalk {
public:
    BlockWalk(const InputView& view, const std::optional<CaseRepeat>& repeat,
              LintFindingList& findings)
        : view_(view), repeat_(repeat), findings_(findings) {}

    Blocks Walk() {
        for (std::size_t i = 0; i < view_.read.lines.size(); ++i) {
            line_ = &view_.read.lines[i];
            meaning_ = &view_.meanings[i];
            isRepeat_ = repeat_ && repeat_->lineIndex == i;
            Take();
            if (line_->HasComma()) isFresh_ = meaning_->kind == LineKind::kKeyword;
        }
        CloseEnded();
        return std::move(blocks_);
    }

private:
    enum class State {
        kOutside,
        kStoryMembers,
        kAllowables,
        kEnded,      // a block was ended by a line that is no keyword
        kElsewhere,  // story lines belong to a keyword that was not recognised or does not count
    };

    // What ended a block, and what it says when story lines follow.
    struct Ended {
        const InputLine* line = nullptr;
        FileRule rule = FileRule::kS04;
        bool isStoryLine = false;              // itself meant as one
        std::vector<std::int32_t> stories;     // whose lines follow
        std::optional<LintFinding> otherwise;  // when none follow
    };

    void Take() {
        if (line_->IsRest()) return TakeRest();
        wasInStoryMembers_ = state_ == State::kStoryMembers;
        switch (meaning_->kind) {
            case LineKind::kKeyword:
                return TakeKeyword();
            case LineKind::kSlippedKeyword:
                return TakeSlippedKeyword();
            case LineKind::kSheet:
                return TakeSheetLine();
            case LineKind::kStoryLine:
                return TakeStoryLine();
            case LineKind::kBareNumber:
                return TakeBareNumber();
            case LineKind::kSlippedStoryLine:
                return TakeSlippedStoryLine();
            case LineKind::kBlank:
                return TakeOther(std::nullopt);
            case LineKind::kSlippedFin:
                return TakeSlippedFin();
            case LineKind::kRemark:
                return TakeRemark();
        }
    }

    bool IsOpen() const { return state_ == State::kStoryMembers || state_ == State::kAllowables; }

    Keyword OpenKeyword() const {
        return state_ == State::kStoryMembers ? Keyword::kStoryMember : allowable_;
    }

    // Story lines that follow were meant for `keyword`; what keeps them from it is told.
    void GoElsewhere(Keyword keyword) {
        state_ = State::kElsewhere;
        areElsewhereMembers_ = keyword == Keyword::kStoryMember;
    }

    // Without a comma and right behind a block's keyword, a line counts as that keyword again.
    bool KeepsBlockOpen() const { return isFresh_ && !line_->HasComma(); }

    void TakeKeyword() {
        const Keyword keyword = *meaning_->keyword;
        const bool endsStoryMembers = state_ == State::kStoryMembers;
        CloseEnded();
        if (keyword == Keyword::kStoryMember) {
            TakeStoryMemberKeyword(endsStoryMembers);
        } else if (IsAllowableKeyword(keyword)) {
            state_ = State::kAllowables;
            allowable_ = keyword;
            lastAllowable_ = nullptr;
        } else {
            if (OnlyFirstLineCounts(keyword) && !isSeen_.insert(keyword).second)
                findings_.Add(FindingOf(FileRule::kK07FirstCounts, line_->Place()));
            state_ = State::kOutside;
            if (endsStoryMembers) EndBlock(FileRule::kS04, std::nullopt);
        }
    }

    void TakeStoryMemberKeyword(bool isInside) {
        if (isInside) return blocks_.storyMemberKeywords.push_back(line_);
        if (blocks_.storyMember != nullptr) {
            findings_.Add(FindingOf(FileRule::kK07FirstCounts, line_->Place()));
            return GoElsewhere(Keyword::kStoryMember);
        }
        blocks_.storyMember = line_;
        blocks_.storyMemberKeywords.push_back(line_);
        state_ = State::kStoryMembers;
    }

    void TakeSlippedKeyword() {
        LintFinding slip = FindingOfSlip(*meaning_, *line_, view_.text);
        if (isRepeat_ && *meaning_->slip == FileRule::kK03) {
            LintFinding repeats = FindingOf(FileRule::kK03Repeats, slip.place);
            slip = repeats.With("n", std::to_string(repeat_->number)).Write(slip.write);
        }
        findings_.Add(std::move(slip));
        const bool stays = IsOpen() && KeepsBlockOpen();
        const bool endsStoryMembers = state_ == State::kStoryMembers && !stays;
        CloseEnded();
        if (HasBlock(*meaning_->keyword)) {
            if (state_ == State::kStoryMembers) blocks_.isBlockFoundFaulty = true;
            GoElsewhere(*meaning_->keyword);
        } else if (!stays) {
            state_ = State::kOutside;
            if (endsStoryMembers) EndBlock(FileRule::kS04, std::nullopt);
        }
    }

    void TakeSheetLine() {
        std::optional<LintFinding> otherwise;
        if (meaning_->slip)
            findings_.Add(FindingOfSlip(*meaning_, *line_, view_.text));
        else
            otherwise = FindingOf(FileRule::kK09InBlock, line_->Place());
        if (IsOpen()) EndOpenBlock(std::move(otherwise));
    }

    void TakeStoryLine() {
        switch (state_) {
            case State::kStoryMembers:
                blocks_.memberLines.push_back(line_);
                blocks_.namedStories.insert(meaning_->story);
                return;
            case State::kAllowables:
                blocks_.allowableLines.push_back({allowable_, line_});
                lastAllowable_ = line_;
                return;
            case State::kEnded:
                ended_.stories.push_back(meaning_->story);
                return;
            case State::kElsewhere:
                if (areElsewhereMembers_) blocks_.namedStories.insert(meaning_->story);
                return;
            case State::kOutside:
                break;
        }
        findings_.Add(FindingOf(FileRule::kK08, line_->Place()));
    }

    // Neither block ends at a line that begins with a digit, but nothing is read from it.
    void TakeBareNumber() {
        if (isRepeat_) return AddRepeat();
        if (state_ == State::kStoryMembers) {
            blocks_.namedStories.insert(meaning_->story);
            findings_.Add(meaning_->slip ? FindingOfSlip(*meaning_, *line_, view_.text)
                                         : MemberNotRead());
        } else if (state_ == State::kAllowables) {
            const bool isRepeating = lastAllowable_ != nullptr && meaning_->slip != FileRule::kF09;
            if (isRepeating)
                findings_.Add(RepeatedAllowable());
            else
                findings_.Add(meaning_->slip
                                  ? FindingOfSlip(*meaning_, *line_, view_.text)
                                  : FindingOf(FileRule::kS10NoStoryLine, line_->Place()));
        } else if (state_ == State::kOutside) {
            TakeRemark();
        }
    }

    LintFinding MemberNotRead() const {
        return FindingOf(FileRule::kS01, line_->Place())
            .With("m", view_.text.Display(Trimmed(line_->text)))
            .Write(view_.text.Display(Trimmed(line_->text)) + ",");
    }

    LintFinding RepeatedAllowable() const {
        const std::vector<InputField> fields = FieldsOf(*lastAllowable_);
        return FindingOf(FileRule::kA04, line_->Place())
            .Story(meaning_->story)
            .With("s", std::to_string(ToInteger(std::string(fields[0].text))))
            .With("v", NumberText(ToReal(std::string(fields[1].text))))
            .Write(std::to_string(meaning_->story) + ',' + std::string(CodeValueOf(allowable_)));
    }

    void TakeSlippedStoryLine() {
        const bool isMeantForABlock = state_ != State::kOutside;
        if (isRepeat_ || !isMeantForABlock) return TakeRemark();
        LintFinding slip = FindingOfSlip(*meaning_, *line_, view_.text);
        if (meaning_->story > 0) slip.Story(meaning_->story);
        findings_.Add(std::move(slip));
        const bool isEndedBlock = state_ == State::kEnded && ended_.rule == FileRule::kS04;
        const bool isElsewhere = state_ == State::kElsewhere && areElsewhereMembers_;
        if (state_ == State::kStoryMembers || isEndedBlock || isElsewhere) {
            if (meaning_->story > 0) blocks_.namedStories.insert(meaning_->story);
            blocks_.isBlockFoundFaulty = true;
        }
        // Behind a line that was no story line at all, this one shows that the block should go on.
        if (state_ == State::kEnded && !ended_.isStoryLine && meaning_->story > 0)
            ended_.stories.push_back(meaning_->story);
        if (!IsOpen() || KeepsBlockOpen()) return;
        if (*meaning_->slip == FileRule::kS10NoStoryLine)
            EndOpenBlock(std::nullopt);
        else
            GoElsewhere(OpenKeyword());
    }

    void TakeSlippedFin() {
        if (IsOpen() && !KeepsBlockOpen()) EndOpenBlock(std::nullopt);
    }

    void TakeRemark() { TakeOther(FindingOf(FileRule::kK04, line_->Place())); }

    // A line that no reader knows; `otherwise` is said when it does no harm.
    void TakeOther(std::optional<LintFinding> otherwise) {
        if (isRepeat_) return AddRepeat();
        if (IsOpen() && !KeepsBlockOpen())
            EndOpenBlock(std::move(otherwise));
        else if (otherwise)
            findings_.Add(std::move(*otherwise));
    }

    void AddRepeat() {
        findings_.Add(
            FindingOf(FileRule::kL01, line_->Place()).With("n", std::to_string(repeat_->number)));
    }

    void EndOpenBlock(std::optional<LintFinding> otherwise) {
        EndBlock(state_ == State::kStoryMembers ? FileRule::kS04 : FileRule::kA09,
                 std::move(otherwise));
    }

    void EndBlock(FileRule rule, std::optional<LintFinding> otherwise) {
        state_ = State::kEnded;
        const bool isStoryLine = meaning_->kind == LineKind::kSlippedStoryLine;
        ended_ = {line_, rule, isStoryLine, {}, std::move(otherwise)};
    }

    // A keyword or the end: now it shows whether story lines followed.
    void CloseEnded() {
        if (state_ != State::kEnded) return;
        state_ = State::kOutside;
        if (ended_.stories.empty()) {
            if (ended_.otherwise) findings_.Add(std::move(*ended_.otherwise));
            return;
        }
        LintFinding finding = FindingOf(ended_.rule, ended_.line->Place());
        finding.With("n", std::to_string(ended_.line->number));
        for (const std::int32_t story : ended_.stories)
            finding.Story(story);
        if (ended_.rule == FileRule::kS04) {
            finding.With("list", NumberList(finding.stories));
            blocks_.isBlockFoundFaulty = true;
            blocks_.namedStories.insert(ended_.stories.begin(), ended_.stories.end());
        }
        findings_.Add(std::move(finding));
    }

    // A part of a longer line. What is wrong with it is told of the line.
    void TakeRest() {
        const bool isTold = toldLine_ == line_->number;
        toldLine_ = line_->number;
        const bool isError = isTold ? isRestAnError_ : TellOfRest();
        if (!isTold) isRestAnError_ = isError;
        if (meaning_->kind == LineKind::kKeyword) return TakeKeyword();
        if (isRepeat_) return AddRepeat();
        if (!IsOpen() || KeepsBlockOpen()) return;
        if (line_->StartsWithStoryNumber()) {
            if (state_ == State::kStoryMembers) blocks_.namedStories.insert(meaning_->story);
            return;
        }
        if (state_ == State::kStoryMembers) blocks_.isBlockFoundFaulty = true;
        if (isError)
            GoElsewhere(OpenKeyword());
        else
            EndOpenBlock(std::nullopt);
    }

    // Whether it is an error.
    bool TellOfRest() {
        const InputLine& head = line_[-1];
        const LineMeaning& ofHead = meaning_[-1];
        const bool isStoryLine = wasInStoryMembers_ && ofHead.kind == LineKind::kStoryLine;
        const bool isList = isStoryLine || (ofHead.kind == LineKind::kKeyword &&
                                            OnlyFirstLineCounts(*ofHead.keyword));
        const bool isTaken = IsOpen() && line_->StartsWithStoryNumber();
        const FileRule rule = isTaken  ? FileRule::kF12StoryLine
                              : isList ? FileRule::kF12List
                                       : FileRule::kF12;
        LintFinding finding = FindingOf(rule, head.Place());
        finding.With("rest", Beginning(view_.text.Display(line_->text)));
        if (isTaken) {
            finding.With("n", std::to_string(meaning_->story)).Story(meaning_->story);
        }
        if (isStoryLine) finding.Write(InShortLines(view_.text.Line(head.number), view_.text));
        findings_.Add(std::move(finding));
        return rule != FileRule::kF12;
    }

    const InputView& view_;
    const std::optional<CaseRepeat>& repeat_;
    LintFindingList& findings_;
    Blocks blocks_;

    const InputLine* line_ = nullptr;
    const LineMeaning* meaning_ = nullptr;
    bool isRepeat_ = false;

    State state_ = State::kOutside;
    bool areElsewhereMembers_ = false;  // the story lines of kElsewhere name members
    bool isFresh_ = false;              // no comma since the line of the block's keyword
    Keyword allowable_ = Keyword::kAllowStoryDeformAngle;
    const InputLine* lastAllowable_ = nullptr;  // the story line whose values a bare number repeats
    Ended ended_;
    std::set<Keyword> isSeen_;
    std::size_t toldLine_ = 0;  // the line in parts that was told last
    bool isRestAnError_ = false;
    bool wasInStoryMembers_ = false;  // before the last line that is no rest
};

}  // namespace

Blocks CheckBlocks(const InputView& view, const std::optional<CaseRepeat>& repeat,
                   LintFindingList& findings) {
    return BlockWalk(view, repeat, findings).Walk();
}
