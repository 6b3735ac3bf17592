#include "bench/measured_run.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "bench/bench_folder.h"
#include "bench/plain/plain_run.h"
#include "bench/process_usage.h"
#include "bench/question_counter.h"
#include "compute/compute_run.h"
#include "host/recorded_host.h"
#include "host/remembering_host.h"

namespace {

std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Divides a run into its steps: a step lasts from one status line to the next.
class StepMeter : public StatusList {
public:
    // `readTotals` gives what the run has used since it started.
    explicit StepMeter(std::function<Usage()> readTotals) : readTotals_(std::move(readTotals)) {}

    void Clear() override { StartStep("Connecting"); }
    void Append(StatusText line) override {
        EndStep();
        StartStep(TextOf(line));
    }

    RunUsage Finish() {
        EndStep();
        for (const StepUsage& step : run_.steps) {
            run_.whole.seconds += step.usage.seconds;
            run_.whole.peakMegabytes = std::max(run_.whole.peakMegabytes, step.usage.peakMegabytes);
            run_.whole.asked += step.usage.asked;
            run_.whole.reached += step.usage.reached;
            run_.whole.distinct += step.usage.distinct;
        }
        return std::move(run_);
    }

private:
    void StartStep(const char* name) {
        run_.steps.push_back({name, {}});
        ResetPeakMemory();
        atStart_ = readTotals_();
    }
    void EndStep() {
        const Usage now = readTotals_();
        run_.steps.back().usage = {now.seconds - atStart_.seconds, now.peakMegabytes,
                                   now.asked - atStart_.asked, now.reached - atStart_.reached,
                                   now.distinct - atStart_.distinct};
    }

    std::function<Usage()> readTotals_;
    Usage atStart_;
    RunUsage run_;
};

// How a run is made.
struct Making {
    RunOutcome (*compute)(const std::string&, const HostConnector&, StatusList&, ReportPaths&);
    bool remembers;
};

class MeasuredBuilding {
public:
    MeasuredBuilding(const BuildingSize& size, const Making& making)
        : building_(MakeRegularBuilding(size)), making_(making) {
        std::ofstream(folder_.Path("input.csv")) << building_.inputText;
    }

    RunUsage Run() {
        RememberingHost remembering(host_);
        return Run(making_.remembers ? Host(remembering) : host_, [] {
            return Usage{ProcessorSeconds(), PeakMegabytes(), 0, 0, 0};
        });
    }

    RunUsage RunCounting() {
        QuestionCounter reached(host_);
        RememberingHost remembering(reached);
        QuestionCounter asked(making_.remembers ? Host(remembering) : reached);
        return Run(asked, [&] {
            return Usage{0.0, 0.0, asked.Asked(), reached.Asked(), asked.Distinct()};
        });
    }

private:
    using Host = HostQueries&;

    RunUsage Run(HostQueries& host, const std::function<Usage()>& readTotals) {
        StepMeter meter(readTotals);
        ReportPaths reports;
        const RunOutcome outcome = making_.compute(
            folder_.Path("input.csv"), [&host] { return &host; }, meter, reports);
        if (!outcome.complete) throw std::runtime_error(outcome.failure);
        RunUsage run = meter.Finish();
        run.reports = ReadText(reports.logFile) + ReadText(reports.resultFile);
        return run;
    }

    BenchFolder folder_;
    RegularBuilding building_;
    RecordedHost host_{building_.model, folder_.Path("tower.qhm")};
    Making making_;
};

void TakeCounts(Usage& usage, const Usage& counted) {
    usage.asked = counted.asked;
    usage.reached = counted.reached;
    usage.distinct = counted.distinct;
}

// Of several runs the one that was disturbed least counts.
void TakeLeastTime(Usage& usage, const Usage& other) {
    usage.seconds = std::min(usage.seconds, other.seconds);
}

RunUsage Measure(const BuildingSize& size, const Making& making, int repetitions) {
    MeasuredBuilding building(size, making);
    RunUsage result = building.Run();
    for (int i = 1; i < repetitions; ++i) {
        const RunUsage next = building.Run();
        TakeLeastTime(result.whole, next.whole);
        for (std::size_t k = 0; k < result.steps.size(); ++k)
            TakeLeastTime(result.steps[k].usage, next.steps[k].usage);
    }

    const RunUsage counted = building.RunCounting();
    TakeCounts(result.whole, counted.whole);
    for (std::size_t k = 0; k < result.steps.size(); ++k)
        TakeCounts(result.steps[k].usage, counted.steps[k].usage);
    return result;
}

}  // namespace

RunUsage MeasureRun(const BuildingSize& size, int repetitions) {
    const auto compute = [](const std::string& inputPath, const HostConnector& connect,
                            StatusList& status, ReportPaths& reports) {
        return RunCompute(inputPath, connect, status, reports);
    };
    return Measure(size, {compute, true}, repetitions);
}

RunUsage MeasurePlainRun(const BuildingSize& size, int repetitions) {
    return Measure(size, {RunPlainCompute, false}, repetitions);
}
