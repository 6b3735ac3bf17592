#pragma once

#include <string>
#include <vector>

#include "compare/figures_file.h"
#include "compare/story_pairs.h"

/// What a change is about.
enum class ChangeSection { kInput, kModel, kChecks, kRemarks };

/// One thing that stands in both runs, and how it stands in each; or in one of them alone.
struct Change {
    ChangeSection section = ChangeSection::kInput;
    std::string what;    ///< "story 2, Y: eccentricity"
    std::string before;  ///< "0.535 NG"; empty: there is none
    std::string after;
    std::string note;        ///< why, where the figures say: "R moved 2610 mm in x"
    bool isChange = false;   ///< false: the same within the tolerance
    bool isVerdict = false;  ///< a verdict has changed, come or gone
};

struct Comparison {
    std::vector<StoryPair> stories;
    std::vector<Change> changes;  ///< by section

    bool AnyVerdictChanged() const;
};

/// Compares two runs. Figures are the same when they differ by no more than `tolerance` of the
/// greater amount, and their verdicts are the same.
Comparison CompareRuns(const RunRead& a, const RunRead& b, double tolerance);

/// Name of a plan direction of two runs: X, or what B calls the second one, or A where B ended
/// before it knew; 2 where neither knows.
std::string DirectionName(const RunRead& a, const RunRead& b, std::size_t axis);

/// Whether two figures count as the same.
bool IsSame(const FigureRead& a, const FigureRead& b, double tolerance);
