#pragma once

/// What quarnel-cli returns to the shell.
enum ExitCode : int {
    kExitComplete = 0,    ///< the run reached "Calculation Complete"
    kExitEndedEarly = 1,  ///< the run ended before, or what was asked for cannot be written
    kExitUsage = 2,    ///< wrong usage, files that would overwrite each other, an unreadable model
    kExitVerdict = 3,  ///< a complete run with a verdict that the command was told to fail on
};
