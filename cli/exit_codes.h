#pragma once

/// What quarnel-cli returns to the shell.
enum ExitCode : int {
    kExitComplete = 0,    ///< the run reached "Calculation Complete"
    kExitEndedEarly = 1,  ///< the run ended before
    kExitUsage = 2,       ///< wrong usage, or a model file that cannot be read
};
