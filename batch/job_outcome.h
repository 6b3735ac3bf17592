#pragma once

#include <array>
#include <optional>
#include <string>

#include "batch/job_list.h"
#include "route2/code_verdict.h"
#include "route2/tool_verdict.h"

/// How a job ended.
enum class JobEnd {
    kComplete,
    kEndedEarly,  ///< or it was killed, or could not be started
};

/// The value of a check that comes nearest to its limit, or lies farthest beyond it.
struct GoverningValue {
    std::string value;  ///< "1/320"; as in the terminal
    int story = 0;
    std::string direction;  ///< "X"
    CodeVerdict code = CodeVerdict::kUndetermined;
    double utilisation = 0.0;  ///< more than 1 beyond the limit
};

/// What the pages say of a job.
struct JobOutcome {
    Job job;
    JobEnd end = JobEnd::kEndedEarly;
    std::string failure;  ///< why it ended early
    CodeVerdict code = CodeVerdict::kUndetermined;
    std::optional<ToolVerdict> tool;
    std::array<std::optional<GoverningValue>, 3> governing;  ///< angle, ratio, modulus
    int errors = 0;
    int warnings = 0;
    bool hasSheet = false;

    double Utilisation() const;  ///< the greatest of the governing values
};

/// Names of the files in a job's folder.
inline constexpr const char* kSheetName = "sheet.html";
inline constexpr const char* kFiguresName = "figures.json";
inline constexpr const char* kOutputName = "run.txt";

/// Reads what a run has left in `folder`. `failure` says why it ended early, if the way it ended
/// tells; otherwise it is in the figures, or in what the run printed.
JobOutcome ReadJobOutcome(const Job& job, const std::string& folder, std::string failure);

/// Worst first: those that ended early, then NG, undetermined and OK; within these the greatest
/// utilisation first, then the order of the list.
bool IsWorse(const JobOutcome& one, const JobOutcome& other);
