#include "batch/run_jobs.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <numeric>
#include <optional>
#include <thread>

#include "platform/child_program.h"
#include "platform/native_path.h"

namespace {

constexpr int kMostRegularExitCode = 3;

// Jobs still to be run, handed out to several threads.
class JobQueue {
public:
    explicit JobQueue(std::vector<std::size_t> places) : places_(std::move(places)) {}

    std::optional<std::size_t> Next() {
        const std::lock_guard lock(mutex_);
        if (next_ == places_.size()) return std::nullopt;
        return places_[next_++];
    }

private:
    std::mutex mutex_;
    std::vector<std::size_t> places_;
    std::size_t next_ = 0;
};

// A long job that begins last would keep all others waiting: the largest models come first.
std::vector<std::size_t> LargestFirst(const std::vector<Job>& jobs,
                                      std::vector<std::size_t> places) {
    std::vector<std::uintmax_t> sizes(jobs.size());
    for (const std::size_t place : places) {
        std::error_code unknown;
        const std::uintmax_t size =
            std::filesystem::file_size(NativePath(jobs[place].model), unknown);
        sizes[place] = unknown ? 0 : size;
    }
    std::ranges::stable_sort(
        places, [&sizes](std::size_t a, std::size_t b) { return sizes[a] > sizes[b]; });
    return places;
}

class Runner {
public:
    Runner(const std::vector<Job>& jobs, const BatchRun& run)
        : jobs_(jobs), run_(run), outcomes_(jobs.size()) {}

    std::vector<JobOutcome> Run() {
        std::vector<std::size_t> recorded, live;
        for (std::size_t place = 0; place < jobs_.size(); ++place)
            (jobs_[place].IsOnRunningHost() ? live : recorded).push_back(place);
        RunBesideEachOther(LargestFirst(jobs_, recorded), run_.atOnce);
        RunBesideEachOther(live, 1);
        return std::move(outcomes_);
    }

private:
    void RunBesideEachOther(std::vector<std::size_t> places, std::size_t threads) {
        threads = std::min(threads, places.size());
        JobQueue queue(std::move(places));
        const auto work = [this, &queue] {
            while (const auto place = queue.Next())
                RunJob(*place);
        };
        std::vector<std::jthread> others;
        for (std::size_t i = 1; i < threads; ++i)
            others.emplace_back(work);
        if (threads > 0) work();
    }

    void RunJob(std::size_t place) {
        const Job& job = jobs_[place];
        const std::string folder = run_.folder + "/" + NarrowOfUtf8(job.name);
        JobOutcome outcome = ReadJobOutcome(job, folder, RunIn(folder, job));
        const std::lock_guard lock(mutex_);
        outcomes_[place] = std::move(outcome);
        ++ended_;
        if (run_.progress) run_.progress(ended_, outcomes_[place]);
    }

    // Why the job did not end by itself; empty when it did.
    std::string RunIn(const std::string& folder, const Job& job) const {
        std::error_code error;
        std::filesystem::create_directories(NativePath(folder), error);
        // What an earlier batch has left there must not be taken for this one's.
        for (const char* name : {kSheetName, kFiguresName})
            std::filesystem::remove(NativePath(folder + "/" + name), error);
        std::vector<std::string> arguments{"sheet"};
        if (!job.IsOnRunningHost()) arguments.push_back(job.model);
        arguments.insert(arguments.end(), {job.input, folder + "/" + kSheetName, "--json",
                                           folder + "/" + kFiguresName, "--reports", folder});
        try {
            const ProgramEnd end =
                RunChildProgram(run_.program, arguments, folder + "/" + kOutputName);
            if (end.signal != 0) return "killed by signal " + std::to_string(end.signal);
            if (end.exitCode < 0 || end.exitCode > kMostRegularExitCode)
                return "killed, exit code " + std::to_string(end.exitCode);
        } catch (const ChildProgramError& why) {
            return std::string("cannot be started: ") + why.what();
        }
        return {};
    }

    const std::vector<Job>& jobs_;
    const BatchRun& run_;
    std::mutex mutex_;
    std::vector<JobOutcome> outcomes_;
    std::size_t ended_ = 0;
};

}  // namespace

std::vector<JobOutcome> RunJobs(const std::vector<Job>& jobs, const BatchRun& run) {
    return Runner(jobs, run).Run();
}
