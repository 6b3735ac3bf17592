#pragma once

#include <functional>
#include <string>
#include <vector>

#include "batch/job_outcome.h"

/// How a list of jobs is run.
struct BatchRun {
    std::string program;  ///< path of quarnel-cli
    std::string folder;   ///< for a folder per job
    unsigned atOnce = 1;  ///< jobs beside each other; those on the running host go one by one

    /// Told after every job, from one thread at a time: how many have ended, and the last of them.
    std::function<void(std::size_t ended, const JobOutcome& last)> progress;
};

/// Runs each job as a process of its own, the largest models first, and reads what it has left. A
/// job that fails, or is killed, harms no other. Gives the outcomes in the order of the list.
std::vector<JobOutcome> RunJobs(const std::vector<Job>& jobs, const BatchRun& run);
