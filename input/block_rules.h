#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "input/input_line.h"
#include "input/input_text.h"
#include "input/keywords.h"
#include "input/line_meaning.h"
#include "input/lint_finding.h"
#include "input/load_case_rules.h"

/// The story lines of an input file by the keyword to which they belong, as its readers take them.
struct Blocks {
    const InputLine* storyMember = nullptr;             ///< the keyword's first line
    std::vector<const InputLine*> storyMemberKeywords;  ///< that line, and repeats within the block
    std::vector<const InputLine*> memberLines;  ///< of the StoryMember block, uncut parts only
    std::set<std::int32_t> namedStories;        ///< stories for which somebody wrote members
    bool isBlockFoundFaulty = false;            ///< another finding says why a block lacks lines

    struct AllowableLine {
        Keyword keyword;
        const InputLine* line;
    };
    std::vector<AllowableLine> allowableLines;
};

/// Everything about an input file that the rules look at.
struct InputView {
    const InputText& text;
    const InputLines& read;
    std::vector<LineMeaning> meanings;  ///< of read.lines
};

/// Goes through the lines in their order, as the readers do with their blocks: finds lines that
/// belong to no keyword or end a block too early, slipped keywords, and lines cut in parts.
Blocks CheckBlocks(const InputView& view, const std::optional<CaseRepeat>& repeat,
                   LintFindingList& findings);
