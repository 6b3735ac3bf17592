#include "input/input_check.h"

#include <utility>

#include "input/allowable_rules.h"
#include "input/block_rules.h"
#include "input/file_rules.h"
#include "input/input_line.h"
#include "input/line_meaning.h"
#include "input/load_case_rules.h"
#include "input/reported_member_rules.h"
#include "input/story_member_rules.h"
#include "input/whole_file_rules.h"

namespace {

FileRule RuleOfFault(InputTextFault fault) {
    switch (fault) {
        case InputTextFault::kMissing:
            return FileRule::kF01Missing;
        case InputTextFault::kFolder:
            return FileRule::kF01Folder;
        case InputTextFault::kNoRegularFile:
            return FileRule::kF01NoRegularFile;
        default:
            return FileRule::kF01Refused;
    }
}

std::vector<LineMeaning> MeaningsOf(const InputLines& read, const InputText& text) {
    std::vector<LineMeaning> meanings;
    meanings.reserve(read.lines.size());
    for (const InputLine& line : read.lines)
        meanings.push_back(MeaningOf(line, text));
    if (!read.hasFin)
        if (const auto fin = FindMeantFin(read, text)) meanings[*fin].kind = LineKind::kSlippedFin;
    return meanings;
}

void CheckLines(InputCheck& check, std::optional<std::size_t> storyCountInModel,
                LintFindingList& findings) {
    const InputLines read = ReadInputLines(check.text.Text());
    check.hasFin = read.hasFin;
    const InputView view{check.text, read, MeaningsOf(read, check.text)};
    CheckWholeFile(view, findings);
    CheckLoadCases(view, findings);
    check.meantLevels = CheckFloorLevels(view, findings);
    const Blocks blocks = CheckBlocks(view, FindCaseRepeat(check.text), findings);
    const auto storyCount = check.meantLevels.StoryCount(storyCountInModel);
    CheckStoryMembers(view, blocks, storyCount, findings);
    CheckAllowables(view, blocks, storyCount, findings);
    CheckReportedMembers(view, findings);
}

}  // namespace

InputCheck CheckInputFile(const std::string& path, std::optional<std::size_t> storyCountInModel) {
    InputTextRead read = ReadInputText(path);
    if (read.fault == InputTextFault::kNone)
        return CheckInputText(std::move(read.text), storyCountInModel);
    InputCheck check;
    check.findings = {FindingOf(RuleOfFault(read.fault), {})};
    return check;
}

InputCheck CheckInputText(InputText text, std::optional<std::size_t> storyCountInModel) {
    InputCheck check;
    check.isRead = true;
    check.text = std::move(text);
    LintFindingList findings;
    check.isInput = !CheckKindOfFile(check.text, findings);
    if (check.isInput) CheckLines(check, storyCountInModel, findings);
    check.findings = findings.Sorted();
    check.findingsLeftOut = findings.LeftOut();
    return check;
}
