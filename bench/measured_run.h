#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/regular_building.h"

/// What one step, or a whole run, took.
struct Usage {
    double seconds = 0.0;        ///< of the processor
    double peakMegabytes = 0.0;  ///< of the whole process, meanwhile
    std::uint64_t asked = 0;     ///< questions of the engine
    std::uint64_t reached = 0;   ///< questions that reached the provider
    std::uint64_t distinct = 0;  ///< questions that the engine had not asked before
};

struct StepUsage {
    std::string name;
    Usage usage;
};

struct RunUsage {
    std::vector<StepUsage> steps;  ///< named by their status lines; first what comes before them
    Usage whole;
    std::string reports;  ///< text of the log and of the results
};

/// Runs the checks of a generated building as the product does, remembering answers. Times are
/// the shortest of the repetitions; questions are counted in one further run.
RunUsage MeasureRun(const BuildingSize& size, int repetitions);

/// Runs them the plain way: every question reaches the provider, every look-up is a search.
RunUsage MeasurePlainRun(const BuildingSize& size, int repetitions);
