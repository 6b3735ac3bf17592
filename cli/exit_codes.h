#pragma once

#include "compute/compute_run.h"

/// What quarnel-cli returns to the shell.
enum ExitCode : int {
    kExitComplete = 0,    ///< the run reached "Calculation Complete"
    kExitEndedEarly = 1,  ///< the run ended before
    kExitUsage = 2,       ///< wrong usage, or a model file that cannot be read
};

inline ExitCode ExitCodeOf(const RunOutcome& outcome) {
    return outcome.complete ? kExitComplete : kExitEndedEarly;
}
