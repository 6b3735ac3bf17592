#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compute/run_files.h"
#include "compute/status_texts.h"
#include "host/host_queries.h"
#include "route2/findings.h"

/// Where a run shows its progress, one line per entry: the dialog's status list, a terminal.
class StatusList {
public:
    StatusList() = default;
    StatusList(const StatusList&) = delete;
    StatusList& operator=(const StatusList&) = delete;
    virtual ~StatusList() = default;

    virtual void Clear() = 0;
    virtual void Append(StatusText line) = 0;
};

/// The reports of a run, as the View commands need them. A run that reaches the host sets both;
/// one that does not leaves them as they were.
struct ReportPaths {
    std::string logFile;
    std::string resultFile;
};

/// How a run ended, beyond what the status list says.
struct RunOutcome {
    bool complete = false;        ///< the status list reached "Calculation Complete"
    bool logWritten = false;      ///< the run wrote a log, at ReportPaths::logFile
    bool resultsWritten = false;  ///< every row is in the results, at ReportPaths::resultFile
    bool hostFailed = false;      ///< a host call failed, which ended the run
    std::int32_t hostStatus = 0;  ///< ... the status of that call (an HRESULT)
    bool filesCollide = false;    ///< the guard refused the run: nothing was opened
    bool logIsHeld = false;       ///< the log cannot be opened: another run is writing it
    std::string failure;  ///< why a run that is not complete ended, one sentence without a stop

    // What a recording did not answer, which ended the run, and the input file it was made for.
    std::string missingAnswer;
    std::string recordedFor;

    std::string modelPath;  ///< as the host answered; empty also when it was not asked

    /// A complete run could not open its results: what stands at ReportPaths::resultFile, if
    /// anything does, is not of this run.
    bool resultsNotOpened = false;
    bool resultsAreHeld = false;  ///< ... because another run is writing them

    /// Paths of reports that were opened and could not be written to their end: the disk is full,
    /// or the connection to it broke. Neither the status list nor the log tells.
    std::vector<std::string> incompleteReports;

    PrintedVerdicts printedVerdicts;  ///< in all rows of the results

    /// What the run has found, when it was asked for and there was an engine.
    std::optional<Findings> findings;
};

/// Whether a run forms its findings. They cost further questions to the host, after the results.
enum class WantsFindings { kNo, kYes };

/// What a run is to do beyond what its two reports say.
struct RunOptions {
    WantsFindings wantsFindings = WantsFindings::kNo;

    /// Asked once the model's path is known. A run that it refuses ends as one whose log cannot be
    /// opened.
    FileGuard guard = RequireSourcesKept;

    std::string reportFolder{};  ///< where the reports go; empty: beside the model

    // For the findings; see FindingsSources.
    std::vector<Remark> inputRemarks{};
    std::optional<double> groundLevel{};
    std::function<std::size_t()> unlistedAnswers{};
};

/// Gives the connected host, or null when it cannot be reached. The host stays with the giver
/// and must live until the run has returned.
using HostConnector = std::function<HostQueries*()>;

/// One Compute run: checks that the input file exists, connects, drives the engine through its
/// steps in their fixed order, and closes the log.
///
/// Everything that goes wrong inside the run's guarded block ends in the status list. What the
/// connector, GetModelFilePath or GetBaseUnitSystem throw leaves this function: no log is open by
/// then, and no closing lines are shown.
RunOutcome RunCompute(const std::string& inputFilePath, const HostConnector& connectHost,
                      StatusList& status, ReportPaths& reports, const RunOptions& options = {});
