// quarnel-bench-across INPUT.csv [REPETITIONS]: runs the checks on the running host and compares
// the time of a run with its distinct questions times the cost of one call. To measure that cost,
// every call of the run is made twice and the time of the one set apart from the time of the
// other: whatever else the machine does meanwhile weighs on both alike. Prints one row of a
// Markdown table.

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/question_counter.h"
#include "compute/compute_run.h"
#include "host/host_link.h"
#include "host/remembering_host.h"
#include "input/input_file.h"

namespace {

constexpr int kRepetitions = 5;

class SilentStatusList : public StatusList {
public:
    void Clear() override {}
    void Append(StatusText) override {}
};

template <typename Work>
double Seconds(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct LiveRun {
    double questions;
    double seconds;         // from before it connects until its log is closed
    double secondsOfCalls;  // of the second set of calls, which `seconds` leaves out
};

LiveRun RunChecks(const std::string& inputPath) {
    HostLink link;
    QuestionCounter counter(link);
    counter.TimeSecondAsking();
    RememberingHost remembering(counter);
    SilentStatusList status;
    ReportPaths reports;
    RunOutcome outcome;
    const auto connect = [&]() -> HostQueries* {
        return link.Connect() == 1 ? &remembering : nullptr;
    };
    const double seconds =
        Seconds([&] { outcome = RunCompute(inputPath, connect, status, reports); });
    if (!outcome.complete) throw std::runtime_error(outcome.failure);
    if (counter.Asked() != counter.Distinct())
        throw std::runtime_error("a question reached the host twice");
    return {static_cast<double>(counter.Distinct()), seconds - counter.SecondsOfSecondAsking(),
            counter.SecondsOfSecondAsking()};
}

void Compare(const std::string& inputPath, int repetitions) {
    if (repetitions < 1) throw std::invalid_argument("REPETITIONS is 1 or more");
    std::vector<LiveRun> runs;
    for (int i = 0; i < repetitions; ++i)
        runs.push_back(RunChecks(inputPath));
    const auto ratio = [](const LiveRun& run) { return run.seconds / run.secondsOfCalls; };
    std::sort(runs.begin(), runs.end(),
              [&](const LiveRun& a, const LiveRun& b) { return ratio(a) < ratio(b); });
    const LiveRun& median = runs[runs.size() / 2];
    std::printf("%.0f | %.4f | %.3f | %.3f | %.3f | %.3f to %.3f |\n", median.questions,
                1e3 * median.secondsOfCalls / median.questions, median.secondsOfCalls,
                median.seconds, ratio(median), ratio(runs.front()), ratio(runs.back()));
}

}  // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 2 && arguments.size() != 3) {
        std::cerr << "usage: quarnel-bench-across INPUT.csv [REPETITIONS]\n";
        return 2;
    }
    CoInitialize(nullptr);
    try {
        Compare(arguments[1], arguments.size() == 3 ? ToInteger(arguments[2]) : kRepetitions);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "quarnel-bench-across: " << error.what() << "\n";
        return 1;
    }
}
