#pragma once

#include "compute/compute_run.h"

/// What quarnel-cli returns to the shell.
enum ExitCode : int {
    kExitComplete = 0,    ///< the run reached "Calculation Complete"
    kExitEndedEarly = 1,  ///< the run ended before
    kExitUsage = 2,  ///< wrong usage, files that would overwrite each other, an unreadable model
};

inline ExitCode ExitCodeOf(const RunOutcome& outcome) {
    if (outcome.filesCollide) return kExitUsage;
    return outcome.complete ? kExitComplete : kExitEndedEarly;
}
