#pragma once

#include <array>
#include <optional>
#include <vector>

#include "route2/extra_questions.h"
#include "route2/findings.h"
#include "route2/placed_members.h"

/// What the figures of one story are formed from: the engine's story, and what is found out once
/// for all of them. Borrows everything.
struct StoryUnderFindings {
    const AijCodeRoute2& engine;
    const StoryInfo& story;
    const std::vector<PlacedMember>& cut;  ///< what the story's cutting plane meets
    const NumberIndex& cutPositions;       ///< of member numbers in `cut`
    const NumberIndex& memberPositions;    ///< of member numbers in the engine's memberNumbers
    ExtraQuestions& questions;
    bool rowsStand = false;  ///< the run came to its end: its verdicts stand in the results

    /// Place of each direction's earthquake case among the load cases; none when the model does not
    /// have it.
    std::array<std::optional<std::size_t>, 2> casePosition;

    bool CasesAreEqual() const {
        return engine.earthquakeLoadCaseNumber[kX] == engine.earthquakeLoadCaseNumber[kZ];
    }
    bool BothCasesExist() const { return casePosition[kX] && casePosition[kZ]; }
};
