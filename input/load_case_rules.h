#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "input/input_text.h"
#include "input/lint_finding.h"

struct InputView;

/// A line without a comma that sets both earthquake load cases to one number, because the keyword
/// of the line before still counts.
struct CaseRepeat {
    std::size_t lineIndex = 0;  ///< among the reads
    std::int32_t number = 0;    ///< what both cases become
};

/// The first such line behind the last EarthquakeLoadCaseNumber, if it changes anything.
std::optional<CaseRepeat> FindCaseRepeat(const InputText& text);

/// The lines of the load cases and their values.
void CheckLoadCases(const InputView& view, LintFindingList& findings);
