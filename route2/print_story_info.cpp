// The last step of a run: opens the results file, has its rows written, and closes it.

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"

void AijCodeRoute2::PrintStoryInfoCsv() {
    Print(logFile, "\nStarts printing story info in csv style...\n");
    const OpenedReport results = OpenReport(resultFilePath);
    resultFile = results.stream;
    resultOpening = results.opening;
    if (resultFile == nullptr) {
        // One more try empties the file where it succeeds, but the run has no results either way.
        resultFile = OpenReport(resultFilePath).stream;
        Warn(WarningKind::kCannotOpenResults, 0, resultFilePath);
        return;
    }
    try {
        printedVerdicts = writeResultRows(resultFile, *this);
    } catch (...) {
        // The stream stays open, but not in the way of the next run, which may follow in the same
        // program; and nothing is kept back that would come into its results when the program ends.
        ReleaseReport(resultFile);
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
