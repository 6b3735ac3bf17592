// The last step of a run: opens the results file, has its rows written, and closes it.

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"

void AijCodeRoute2::PrintStoryInfoCsv() {
    Print(logFile, "\nStarts printing story info in csv style...\n");
    resultFile = std::fopen(resultFilePath.c_str(), "w");
    if (resultFile == nullptr) {
        // One more try empties the file where it succeeds, but the run has no results either way.
        resultFile = std::fopen(resultFilePath.c_str(), "w");
        Warn(WarningKind::kCannotOpenResults, 0, resultFilePath);
        return;
    }
    try {
        printedVerdicts = writeResultRows(resultFile, *this);
    } catch (...) {
        // Left open, the file would be incomplete and in use until the program ends.
        CloseResultFile();
        throw;
    }
    const bool noWriteFailed = std::ferror(resultFile) == 0;
    resultFileWritten = CloseResultFile() && noWriteFailed;
    Print(logFile, "Ends printing story info in csv style...\n");
}

bool AijCodeRoute2::CloseResultFile() {
    if (resultFile == nullptr) return false;
    return std::fclose(resultFile) == 0;
}
