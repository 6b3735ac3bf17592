// quarnel-bench-across INPUT.csv [REPETITIONS]: runs the checks on the running host and compares
// the time of a run with its distinct questions times the cost of one call. That cost is measured
// twice: inside the run, where both have the machine to themselves alike, and by asking the same
// questions once more and doing nothing else. Prints one row of a Markdown table.

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/compute_run.h"
#include "bench/ask_again.h"
#include "bench/question_counter.h"
#include "host/host_link.h"
#include "host/remembering_host.h"

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

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// One run, from before it connects until its log is closed.
class LiveRun {
public:
    explicit LiveRun(const std::string& inputPath) {
        SilentStatusList status;
        ReportPaths reports;
        const auto connect = [this]() -> HostQueries* {
            return link_.Connect() == 1 ? &remembering_ : nullptr;
        };
        RunOutcome outcome;
        seconds_ = Seconds([&] { outcome = RunCompute(inputPath, connect, status, reports); });
        if (!outcome.complete) throw std::runtime_error(outcome.failure);
        if (counter_.Asked() != counter_.Distinct())
            throw std::runtime_error("a question reached the host twice");
    }

    double seconds() const { return seconds_; }
    double SecondsOfCalls() const { return counter_.SecondsInside(); }
    std::uint64_t Questions() const { return counter_.Distinct(); }

    // Seconds that the same questions take, asked once more.
    double SecondsOfAskingAgain() {
        std::uint64_t asked = 0;
        const double seconds = Seconds([&] { asked = AskAgain(remembering_.Memory(), link_); });
        if (asked != Questions())
            throw std::runtime_error("what was asked again is not what the run asks");
        return seconds;
    }

private:
    HostLink link_;
    QuestionCounter counter_{link_};
    RememberingHost remembering_{counter_};
    double seconds_ = 0.0;
};

void Compare(const std::string& inputPath, int repetitions) {
    // Taken in turns, so that whatever else the machine does weighs on all alike.
    std::vector<double> runs, inside, again, ratiosInside, ratiosAgain;
    double questions = 0.0;
    for (int i = 0; i < repetitions; ++i) {
        LiveRun run(inputPath);
        questions = static_cast<double>(run.Questions());
        runs.push_back(run.seconds());
        inside.push_back(1e3 * run.SecondsOfCalls() / questions);
        ratiosInside.push_back(run.seconds() / run.SecondsOfCalls());
        const double secondsAgain = run.SecondsOfAskingAgain();
        again.push_back(1e3 * secondsAgain / questions);
        ratiosAgain.push_back(run.seconds() / secondsAgain);
    }
    std::printf("%.0f | %.3f | %.4f | %.3f | %.4f | %.3f |\n", questions, Median(runs),
                Median(inside), Median(ratiosInside), Median(again), Median(ratiosAgain));
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
        Compare(arguments[1], arguments.size() == 3 ? std::atoi(arguments[2]) : kRepetitions);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "quarnel-bench-across: " << error.what() << "\n";
        return 1;
    }
}
