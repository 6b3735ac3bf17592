#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "route2/findings.h"

/// Which figure a row of the results file holds.
enum class ResultsFigure {
    kMeanAngle,
    kMaxAngle,
    kStiffnessRatio,
    kGravityCenter,   ///< one coordinate
    kRigidityCenter,  ///< one coordinate
    kEccentricityModulus,
};

/// A figure of the findings as the results file has it.
struct ResultsRow {
    ResultsFigure figure{};
    int story = 0;
    std::size_t axis = kX;
    double value = 0.0;
    std::optional<ToolVerdict> verdict;
    std::string text;  ///< the row, or what it begins with
};

/// The rows of the earthquake cases, of the centres and of the moduli, in the file's order. None of
/// a run that wrote no results.
std::vector<ResultsRow> ResultsRowsOf(const Findings& findings);

/// The section's title, and the block's direction and kind of displacement where it has some, as
/// they stand in the file: "Story deformation angle", "X", "Average".
struct ResultsPlace {
    std::string_view section;
    std::string_view direction;
    std::string_view dispType;
};
ResultsPlace PlaceOf(const ResultsRow& row);

/// Whether the text of a results file holds each of the rows in its place, in their order. Where it
/// does not, the file was changed or is another run's.
std::vector<bool> HoldsRows(std::string_view resultsText, const std::vector<ResultsRow>& rows);
