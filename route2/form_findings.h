#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "route2/aij_code_route2.h"
#include "route2/findings.h"
#include "route2/remark.h"

/// What the findings take from elsewhere than the engine.
struct FindingsSources {
    RunEnd end;
    std::vector<Remark> inputRemarks;   ///< what the check of the input file remarks
    std::optional<double> groundLevel;  ///< of the input file's sheet lines, mm

    /// How many questions a file that is no recording answered with zeros which it does not list.
    /// Asked after the last question.
    std::function<std::size_t()> unlistedAnswers;

    /// Which rows of these figures the results file does not hold. Asked when it was written.
    std::function<std::vector<NamedRow>(const Findings&)> missingRows;
};

/// Forms everything that a run has found: once, after the results are closed.
///
/// Asks the engine's host for the end forces and displacements of the members that a story's
/// cutting plane meets and that are no story members of it; what the run itself has asked is asked
/// again, which a remembering host answers by itself. A run that ended early asks nothing and has
/// the stories as far as they were set.
Findings FormFindings(const AijCodeRoute2& engine, const FindingsSources& sources);
