#include "compute/compute_run.h"

#include <exception>

#include "host/recorded_host.h"
#include "log/formatted_print.h"
#include "platform/file_lookup.h"
#include "platform/regular_file.h"
#include "report/results_csv.h"
#include "report/results_rows.h"
#include "route2/aij_code_route2.h"
#include "route2/form_findings.h"
#include "route2/report_paths.h"

namespace {

void LogBasicInformation(const AijCodeRoute2& engine) {
    std::FILE* log = engine.logFile;
    Print(log, "\nORVEK File Basic information :\n");
    Print(log, "  File : %s\n", engine.modelFilePath.c_str());
    Print(log, "  Number of nodes : %d\n", static_cast<int>(engine.nodeCoords.size()));
    Print(log, "  Number of members : %d\n", static_cast<int>(engine.memberNumbers.size()));
    Print(log, "  Number of primary load cases : %d\n",
          static_cast<int>(engine.numPrimaryLoadCases));
    Print(log, "  Number of load combination cases : %d\n",
          static_cast<int>(engine.numLoadCombinations));
    Print(log, "  Dead load case number : %d\n", static_cast<int>(engine.deadLoadCaseNumber));
    Print(log, "  Earthquake load( X direc. ) case number : %d\n",
          static_cast<int>(engine.earthquakeLoadCaseNumber[kX]));
    Print(log, "  Earthquake load( Z or Y direc. ) case number : %d\n",
          static_cast<int>(engine.earthquakeLoadCaseNumber[kZ]));
}

// A step of the engine and the status line shown before it. The steps' results are not looked at:
// a step that refused has warned in the log, and the next steps find what it left.
struct Step {
    StatusText status;
    void (*run)(AijCodeRoute2& engine);
};

constexpr Step kSteps[] = {
    {StatusText::kPreparing, [](AijCodeRoute2&) {}},
    {StatusText::kLoadInformation, [](AijCodeRoute2& e) { e.SetLoadInfo(); }},
    {StatusText::kNodeInformation, [](AijCodeRoute2& e) { e.SetNodeInfo(); }},
    {StatusText::kMemberInformation,
     [](AijCodeRoute2& e) {
         e.SetMemberInfo();
         LogBasicInformation(e);
     }},
    {StatusText::kFloorInformation, [](AijCodeRoute2& e) { e.SetFloorInfo(); }},
    {StatusText::kStoryInformation, [](AijCodeRoute2& e) { e.SetStoryInfo(); }},
    {StatusText::kRelativeDisplacements, [](AijCodeRoute2& e) { e.SetRelativeStoryDisp(); }},
    {StatusText::kStiffnessRatio, [](AijCodeRoute2& e) { e.SetRsBar(); }},
    // The centre of gravity comes before the story shear.
    {StatusText::kCenterOfGravity, [](AijCodeRoute2& e) { e.SetGravityCenter(); }},
    {StatusText::kStoryShear, [](AijCodeRoute2& e) { e.SetStoryMemberShearForce(); }},
    {StatusText::kHorizontalStiffness,
     [](AijCodeRoute2& e) { e.SetStoryMemberHorizontalStiffness(); }},
    {StatusText::kCenterOfRigidity, [](AijCodeRoute2& e) { e.SetRigidityCenter(); }},
    {StatusText::kEccentricityModulus, [](AijCodeRoute2& e) { e.SetEccentricityModulus(); }},
    {StatusText::kSavingOutput, [](AijCodeRoute2& e) { e.PrintStoryInfoCsv(); }},
    {StatusText::kCalculationComplete, [](AijCodeRoute2&) {}},
};

std::string WhyLogIsNotOpen(const AijCodeRoute2& engine) {
    const std::string log = "the log file " + engine.logFilePath;
    if (engine.logOpening == ReportOpening::kHeld)
        return log +
               " cannot be opened: another run is writing it, or another program keeps it "
               "to itself";
    if (engine.logOpening == ReportOpening::kNotAFile)
        return log + " cannot be opened: what stands there is not a regular file";
    return log + " cannot be opened for writing";
}

std::string WhyInitializeFailed(const AijCodeRoute2& engine) {
    if (engine.logFile == nullptr) return WhyLogIsNotOpen(engine);
    const FileKind kind = FileKindOf(engine.dataFilePath);
    if (kind == FileKind::kFolder || kind == FileKind::kOther)
        return "the input file " + engine.dataFilePath + " is not a regular file";
    return "the input file " + engine.dataFilePath +
           " cannot be read up to a line that begins with FIN (see the log)";
}

// The guarded part of a run.
void RunSteps(AijCodeRoute2& engine, const std::string& modelPath, const std::string& inputFilePath,
              StatusList& status, ReportPaths& reports, RunOutcome& outcome,
              const RunOptions& options) {
    const RunFiles files = FilesOfRun(inputFilePath, modelPath, options.reportFolder);
    if (const auto collision = options.guard(files)) {
        reports = {files.log, files.results};
        outcome.filesCollide = true;
        outcome.failure = *collision;
        status.Append(StatusText::kInitializeFailed);
        return;
    }
    if (!options.reportFolder.empty())
        engine.reportsNamedAfter = NameOfReportsIn(options.reportFolder, modelPath, inputFilePath);
    if (!engine.Initialize(modelPath, inputFilePath, reports.logFile, reports.resultFile)) {
        outcome.failure = WhyInitializeFailed(engine);
        status.Append(StatusText::kInitializeFailed);
        return;
    }
    if (!engine.hostLink->AreResultsAvailable()) {
        engine.Warn(WarningKind::kResultsNotAvailable);
        status.Append(StatusText::kResultsNotAvailable);
        status.Append(StatusText::kRunAnalysisFirst);
        outcome.failure = "the host holds no analysis results for the model: analyse it first";
        return;
    }
    Print(engine.logFile, "ORVEK results are available.\n");
    for (const Step& step : kSteps) {
        status.Append(step.status);
        step.run(engine);
    }
    outcome.complete = true;
}

void NoteFailure(const std::exception& error, RunOutcome& outcome) {
    outcome.failure = error.what();
    if (const auto* failedCall = dynamic_cast<const HostCallError*>(&error)) {
        outcome.hostFailed = true;
        outcome.hostStatus = failedCall->Status();
    }
    if (const auto* missing = dynamic_cast<const MissingAnswerError*>(&error)) {
        outcome.missingAnswer = missing->Asked();
        outcome.recordedFor = missing->RecordedFor();
    }
}

void RunGuarded(AijCodeRoute2& engine, const std::string& modelPath,
                const std::string& inputFilePath, StatusList& status, ReportPaths& reports,
                RunOutcome& outcome, const RunOptions& options) {
    try {
        RunSteps(engine, modelPath, inputFilePath, status, reports, outcome, options);
    } catch (int number) {
        outcome.failure = "error number " + std::to_string(number);
        status.Append(StatusText::kWrongFilePath);
    } catch (const std::exception& error) {
        NoteFailure(error, outcome);
        status.Append(StatusText::kExceptionThrown);
    } catch (...) {
        outcome.failure = "an error without a description";
        status.Append(StatusText::kExceptionThrown);
    }
}

// Closes the log, and notes which reports are whole and which could not be written to their end.
void CloseLog(const AijCodeRoute2& engine, RunOutcome& outcome) {
    outcome.logWritten = engine.logFile != nullptr;
    outcome.logIsHeld = engine.logOpening == ReportOpening::kHeld;
    outcome.resultsWritten = engine.resultFileWritten;
    outcome.printedVerdicts = engine.printedVerdicts;
    outcome.resultsNotOpened = outcome.complete && engine.resultOpening != ReportOpening::kOpen;
    outcome.resultsAreHeld = engine.resultOpening == ReportOpening::kHeld;
    if (engine.resultFile != nullptr && !engine.resultFileWritten)
        outcome.incompleteReports.push_back(engine.resultFilePath);
    if (engine.logFile == nullptr) return;
    const bool noWriteFailed = std::ferror(engine.logFile) == 0;
    if (std::fclose(engine.logFile) != 0 || !noWriteFailed)
        outcome.incompleteReports.push_back(engine.logFilePath);
}

Findings FindingsOf(const AijCodeRoute2& engine, const RunOutcome& outcome,
                    const RunOptions& options) {
    FindingsSources sources;
    sources.end.complete = outcome.complete;
    sources.end.failure = outcome.failure;
    sources.end.resultsWritten = outcome.resultsWritten;
    sources.end.incompleteReports = outcome.incompleteReports;
    sources.end.missingAnswer = outcome.missingAnswer;
    sources.end.recordedFor = outcome.recordedFor;
    sources.inputRemarks = options.inputRemarks;
    sources.groundLevel = options.groundLevel;
    sources.unlistedAnswers = options.unlistedAnswers;
    sources.missingRows = [&engine](const Findings& findings) {
        return RowsMissingIn(engine.resultFilePath, findings);
    };
    return FormFindings(engine, sources);
}

}  // namespace

RunOutcome RunCompute(const std::string& inputFilePath, const HostConnector& connectHost,
                      StatusList& status, ReportPaths& reports, const RunOptions& options) {
    RunOutcome outcome;
    status.Clear();
    if (inputFilePath.empty()) {
        status.Append(StatusText::kInputNotSpecified);
        outcome.failure = "no Route 2 Input file was chosen";
        return outcome;
    }
    if (!FileExists(inputFilePath)) {
        status.Append(StatusText::kInputDoesNotExist);
        outcome.failure = "the input file " + inputFilePath + " does not exist";
        return outcome;
    }
    HostQueries* const host = connectHost();
    if (host == nullptr) {
        status.Append(StatusText::kNoConnection);
        outcome.failure = "no running host was found: start it and open the analysed model";
        return outcome;
    }

    const std::string modelPath = host->GetModelFilePath();
    outcome.modelPath = modelPath;
    // Stands for the log until Initialize names it.
    reports.logFile = ReportStem(modelPath) + "Route2.log";
    AijCodeRoute2 engine(host, WriteResultRows);
    RunGuarded(engine, modelPath, inputFilePath, status, reports, outcome, options);

    status.Append(StatusText::kFinishes);
    CloseLog(engine, outcome);
    status.Append(StatusText::kClosingLog);
    if (options.wantsFindings == WantsFindings::kYes)
        outcome.findings = FindingsOf(engine, outcome, options);
    return outcome;
}
