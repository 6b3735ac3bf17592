#include "bench/sheet.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

#include "bench/bench_folder.h"
#include "bench/process_usage.h"
#include "bench/regular_building.h"
#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "input/input_check.h"
#include "platform/sha256.h"
#include "platform/whole_file.h"
#include "sheet/sheet.h"
#include "sheet/sheet_file.h"

namespace {

constexpr BuildingSize kSizes[] = {{3500, 30, 3}, {5000, 30, 3}, {3500, 30, 20}};
constexpr int kTries = 25;

// Seconds of the processor, the least of the tries.
struct SheetUsage {
    double reading = 0.0;  ///< the recording
    double run = 0.0;      ///< log and results written, figures formed
    double content = 0.0;  ///< digests of the files, the input file line by line
    double html = 0.0;
    double writing = 0.0;
    double megabytes = 0.0;  ///< of the sheet
    double peak = 0.0;       ///< MB of the whole process

    double Added() const { return content + html + writing; }
};

class NoStatusLines : public StatusList {
public:
    void Clear() override {}
    void Append(StatusText) override {}
};

// Takes the time from one call to the next.
class Stopwatch {
public:
    double Lap() {
        const double now = ProcessorSeconds();
        const double lap = now - start_;
        start_ = now;
        return lap;
    }

private:
    double start_ = ProcessorSeconds();
};

SheetSources SourcesOf(const std::string& model, const std::string& input,
                       const ReportPaths& reports) {
    SheetSources sources;
    sources.run = {"1.1", "2026-11-21",        model, Sha256OfFile(model),
                   input, Sha256OfFile(input), true};
    sources.program = "quarnel-bench";
    sources.logPath = reports.logFile;
    sources.resultsPath = reports.resultFile;
    return sources;
}

SheetUsage MeasureOnce(const BenchFolder& folder) {
    const std::string modelPath = folder.Path("tower.qhm"), inputPath = folder.Path("tower.csv");
    ResetPeakMemory();
    SheetUsage usage;
    Stopwatch watch;
    const RecordedModel model = ReadQhmFile(modelPath);
    usage.reading = watch.Lap();

    RecordedHost host(model, modelPath);
    NoStatusLines status;
    ReportPaths reports;
    const RunOutcome outcome = RunCompute(inputPath, [&host] { return &host; }, status, reports,
                                          {.wantsFindings = WantsFindings::kYes});
    if (!outcome.findings) throw std::runtime_error(outcome.failure);
    usage.run = watch.Lap();

    const SheetContent content = FormSheetContent(*outcome.findings, CheckInputFile(inputPath),
                                                  SourcesOf(modelPath, inputPath, reports));
    usage.content = watch.Lap();
    const std::string html = SheetHtml(content);
    usage.html = watch.Lap();
    WriteWholeFile(folder.Path("tower.html"), html);
    usage.writing = watch.Lap();
    usage.megabytes = 1e-6 * static_cast<double>(html.size());
    usage.peak = PeakMegabytes();
    return usage;
}

SheetUsage Measure(const BuildingSize& size) {
    const BenchFolder folder;
    const RegularBuilding building = MakeRegularBuilding(size);
    WriteQhmFile(building.model, folder.Path("tower.qhm"));
    std::ofstream(folder.Path("tower.csv")) << building.inputText;
    SheetUsage least = MeasureOnce(folder);
    for (int i = 1; i < kTries; ++i) {
        const SheetUsage usage = MeasureOnce(folder);
        for (double SheetUsage::*const part :
             {&SheetUsage::reading, &SheetUsage::run, &SheetUsage::content, &SheetUsage::html,
              &SheetUsage::writing})
            least.*part = std::min(least.*part, usage.*part);
        least.peak = std::max(least.peak, usage.peak);
    }
    return least;
}

std::string NameOf(const BuildingSize& size) {
    return "sheet/" + std::to_string(size.members) + " members/" + std::to_string(size.stories) +
           " stories/" + std::to_string(size.loadCases) + " load cases";
}

std::map<std::string, SheetUsage>& Measured() {
    static std::map<std::string, SheetUsage> byName;
    return byName;
}

}  // namespace

void RegisterSheets() {
    for (const BuildingSize& size : kSizes) {
        const std::string name = NameOf(size);
        const auto measure = [size, name](benchmark::State& state) {
            const SheetUsage usage = Measured()[name] = Measure(size);
            for (auto _ : state)
                state.SetIterationTime(usage.Added());
            state.counters["MB"] = usage.megabytes;
            state.counters["peak_MB"] = usage.peak;
        };
        benchmark::RegisterBenchmark(name.c_str(), measure)
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
}

void PrintSheets() {
    constexpr double kMilliseconds = 1000.0;
    if (Measured().empty()) return;
    std::cout << "\n| members | stories | load cases | reading ms | run ms | content ms | HTML ms "
                 "| writing ms "
                 "| sheet / reading | HTML MB | peak MB |\n"
                 "|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n";
    for (const BuildingSize& size : kSizes) {
        const SheetUsage& usage = Measured()[NameOf(size)];
        if (usage.reading <= 0.0) continue;
        std::cout << "| " << size.members << " | " << size.stories << " | " << size.loadCases;
        for (const double seconds :
             {usage.reading, usage.run, usage.content, usage.html, usage.writing})
            std::cout << " | " << seconds * kMilliseconds;
        std::cout << " | " << usage.Added() / usage.reading << " | " << usage.megabytes << " | "
                  << usage.peak << " |\n";
    }
}
