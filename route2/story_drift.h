#pragma once

#include <cstdint>
#include <vector>

#include "host/host_queries.h"
#include "route2/number_index.h"
#include "route2/records.h"
#include "route2/tool_verdict.h"

/// Factor on a member's displacement difference: 1 when the member is as high as its story (less
/// than 0.1 mm apart), else member height / story height. A member twice as high as its story
/// counts double: this way round is intended.
double HeightRatio(double memberHeight, double storyHeight);

/// A relative displacement in mm as it is kept: exactly 0 below 0.01 mm, the sign otherwise
/// untouched.
double WithoutNumericalNoise(double relativeDisp);

/// A member's relative story displacement in both plan directions, mm, signed: upper node minus
/// lower node (base length unit), times `heightRatio`, in mm, without numerical noise.
PerDirection RelativeDisp(const SixDoubles& lower, const SixDoubles& upper, double heightRatio,
                          double millimetresPerHostLength, bool zIsVertical);

/// Story deformation angle of a displacement and a story height, both mm; 0 for a story height
/// that is not positive.
double DeformAngle(double relativeDisp, double storyHeight);

/// The same without a look at the height: inf or NaN for a height of 0. The rows "All" of
/// Z(or Y) have it.
double DeformAngleOfAnyHeight(double relativeDisp, double storyHeight);

/// Deformation angle of a single member; 0 for a story height of 0 only, a negative one divides.
double MemberDeformAngle(double relativeDisp, double storyHeight);

/// The tool's verdict: passes below the allowable value.
ToolVerdict JudgeDeformAngle(double angle, double allowable);

/// Reduces a story's records to its largest (signed) and mean relative displacements, over all
/// load cases and per load case of `loadCaseNumbers`.
///
/// A load case without a record keeps -100000 mm as its largest value and 0 as its mean. The mean
/// of one load case divides by records / load cases, a whole-number quotient.
class StoryDriftReduction {
public:
    explicit StoryDriftReduction(const std::vector<std::int32_t>& loadCaseNumbers);

    /// Replaces all four results of `story` by those of its records.
    void Reduce(StoryInfo& story);

private:
    struct Running {
        PerDirection sum{};
        PerDirection max{};
    };

    std::vector<std::size_t> firstPositions_;  // of each load case number
    NumberIndex positions_;
    std::vector<Running> byLoadCase_;
};
