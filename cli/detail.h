#pragma once

/// How much a command prints of what it found.
enum class Detail {
    kQuiet,    ///< errors and the verdict
    kUsual,    ///< what the stories are, a table per check, errors and warnings, files
    kVerbose,  ///< notes too, and the count over all rows of the results
};
