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
};

/// The rows of the earthquake cases, of the centres and of the moduli, in the file's order. None of
/// a run that wrote no results.
std::vector<ResultsRow> ResultsRowsOf(const Findings& findings);

/// Where the row stands: "Story deformation angle, Direction X, Average, story 1, load 2".
std::string NameOf(const ResultsRow& row, const Findings& findings);

/// The rows that the results file at `path` does not hold in their places: all of them when it
/// cannot be read. The file was changed since it was written, or is another run's. Only compares:
/// no figure is taken from the file.
std::vector<NamedRow> RowsMissingIn(const std::string& path, const Findings& findings);
