#include "cli/batch_command.h"

#include <algorithm>
#include <iostream>
#include <thread>

#include "batch/batch_pages.h"
#include "batch/run_jobs.h"
#include "cli/make_folder.h"
#include "cli/messages.h"
#include "platform/child_program.h"
#include "platform/distinct_files.h"
#include "platform/native_path.h"
#include "platform/one_line.h"
#include "platform/terminal.h"
#include "platform/whole_file.h"

namespace {

// "jobs.csv" becomes "jobs", and a list without an extension "jobs.batch".
std::string FolderFor(const std::string& listPath) {
    const std::size_t name = listPath.find_last_of(kPathSeparators) + 1;
    const std::size_t dot = listPath.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot > name;
    return hasExtension ? listPath.substr(0, dot) : listPath + ".batch";
}

// How many jobs have ended, where somebody may be looking at a terminal.
class BatchProgress {
public:
    explicit BatchProgress(std::size_t jobs) : jobs_(jobs) {}

    void Show(std::size_t ended) const {
        if (!isShown_) return;
        std::cerr << "\rbatch: " << ended << " of " << jobs_ << " jobs"
                  << (ended == jobs_ ? "\n" : "") << std::flush;
    }

private:
    std::size_t jobs_;
    bool isShown_ = StandardErrorIsTerminal();
};

bool WritePages(const std::vector<JobOutcome>& outcomes, const std::string& index,
                const std::string& summary) {
    try {
        WriteWholeFile(index, BatchIndex(outcomes));
        WriteWholeFile(summary, BatchSummary(outcomes));
        return true;
    } catch (const WholeFileError& error) {
        TellError(index + ": the pages cannot be written: " + error.what());
        return false;
    }
}

void PrintOutcomes(const std::vector<JobOutcome>& outcomes, const std::string& index) {
    for (const JobOutcome& outcome : outcomes) {
        const bool endedEarly = outcome.end == JobEnd::kEndedEarly;
        std::cout << OneLine(outcome.job.name) << ": "
                  << (endedEarly ? "ended early: " + OneLine(outcome.failure)
                                 : std::string(TextOf(outcome.code)))
                  << "\n";
    }
    std::cout << "\nIndex:   " << OneLine(index) << std::endl;
}

ExitCode CodeOf(const std::vector<JobOutcome>& outcomes) {
    if (std::ranges::any_of(outcomes,
                            [](const JobOutcome& job) { return job.end == JobEnd::kEndedEarly; }))
        return kExitEndedEarly;
    const bool allOk = std::ranges::all_of(
        outcomes, [](const JobOutcome& job) { return job.code == CodeVerdict::kOk; });
    return allOk ? kExitComplete : kExitVerdict;
}

unsigned AtOnce(const BatchOptions& options) {
    return options.atOnce != 0 ? options.atOnce : std::max(1U, std::thread::hardware_concurrency());
}

ExitCode RunAll(const std::vector<Job>& jobs, const std::string& listPath,
                const BatchOptions& options) {
    using Use = NamedFile::Use;
    const std::string folder = options.folder.empty() ? FolderFor(listPath) : options.folder;
    const std::string index = folder + "/index.html";
    const std::string summary = folder + "/summary.csv";
    const auto collision = WhyFilesCollide({{"the list of jobs", listPath, Use::kRead},
                                            {"the index", index, Use::kWritten},
                                            {"the summary", summary, Use::kWritten}});
    if (collision) {
        TellError(*collision + "; nothing was written");
        return kExitUsage;
    }
    if (!MakeFolder(folder, "the jobs")) return kExitUsage;
    const BatchProgress progress(jobs.size());
    const BatchRun run{OwnProgramPath(), folder, AtOnce(options),
                       [&progress](std::size_t ended, const JobOutcome&) { progress.Show(ended); }};
    std::vector<JobOutcome> outcomes = RunJobs(jobs, run);
    std::ranges::stable_sort(outcomes, IsWorse);
    const bool areWritten = WritePages(outcomes, index, summary);
    PrintOutcomes(outcomes, index);
    return areWritten ? CodeOf(outcomes) : kExitEndedEarly;
}

}  // namespace

ExitCode RunBatch(const std::string& listPath, const BatchOptions& options) {
    try {
        return RunAll(ReadJobList(listPath), listPath, options);
    } catch (const JobListError& error) {
        TellError(error.what());
        return kExitUsage;
    }
}
