#pragma once

#include <ostream>

#include "cli/detail.h"
#include "route2/findings.h"
#include "route2/tool_verdict.h"

// What `check` prints of a run's findings, between the status lines and the files. Nothing that was
// not calculated passes: it is n/a, with the reason.

struct CheckReport {
    const Findings& findings;
    const PrintedVerdicts& printedVerdicts;  ///< in all rows of the results
    bool inputRemarksAreTold = false;        ///< the remarks on the input file were told before
};

void PrintFindings(std::ostream& out, const CheckReport& report, Detail detail, bool useColor);
