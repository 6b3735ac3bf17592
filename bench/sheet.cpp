#include "bench/sheet.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "bench/asking_again.h"
#include "bench/bench_folder.h"
#include "bench/process_usage.h"
#include "bench/regular_building.h"
#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "host/recording.h"
#include "host/remembering_host.h"
#include "input/input_check.h"
#include "platform/sha256.h"
#include "sheet/sheet.h"
#include "sheet/sheet_file.h"

namespace {

constexpr BuildingSize kSizes[] = {{3500, 30, 3}, {3500, 30, 6}, {5000, 30, 3}, {3500, 30, 20}};
constexpr int kTries = 25;

// Seconds of the processor, the least of the tries.
struct SheetUsage {
    double reading = 0.0;  ///< the recording's file
    double run = 0.0;      ///< questions answered, log and results written, figures formed
    double again = 0.0;    ///< the same with every question asked twice
    double content = 0.0;  ///< digests of the files, the input file line by line
    double html = 0.0;     ///< the page, written nowhere
    double file = 0.0;     ///< the page as a file
    double recordingMegabytes = 0.0;
    double megabytes = 0.0;  ///< of the sheet
    double peak = 0.0;       ///< MB of the whole process

    double Answering() const { return again - run; }
    double Added() const { return content + file; }
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

RunOutcome Run(HostQueries& host, const std::string& inputPath, ReportPaths& reports) {
    NoStatusLines status;
    RunOutcome outcome = RunCompute(inputPath, [&host] { return &host; }, status, reports,
                                    {.wantsFindings = WantsFindings::kYes});
    if (!outcome.findings) throw std::runtime_error(outcome.failure);
    return outcome;
}

// What `record` writes of the building: the answers that the run has asked for.
void Record(const RegularBuilding& building, const BenchFolder& folder) {
    const std::string modelPath = folder.Path("tower.qhm"), inputPath = folder.Path("tower.csv");
    std::ofstream(inputPath) << building.inputText;
    RecordedHost analysis(building.model, modelPath);
    RememberingHost memory(analysis);
    ReportPaths reports;
    Run(memory, inputPath, reports);
    AskForOtherEnds(memory);
    RecordedModel recording = memory.TakeMemory();
    recording.recordedFor = RecordedForInput(inputPath);
    WriteQhmFile(recording, modelPath);
}

SheetUsage MeasureOnce(const BenchFolder& folder) {
    const std::string modelPath = folder.Path("tower.qhm"), inputPath = folder.Path("tower.csv");
    ResetPeakMemory();
    SheetUsage usage;
    Stopwatch watch;
    const RecordedModel model = ReadQhmFile(modelPath);
    usage.reading = watch.Lap();

    RecordedHost host(model, modelPath);
    AskingAgain asking(host, 0);
    ReportPaths reports;
    const InputCheck input = CheckInputFile(inputPath);
    RunOutcome outcome = Run(asking, inputPath, reports);
    usage.run = watch.Lap();

    const SheetContent content = FormSheetContent(std::move(*outcome.findings), input,
                                                  SourcesOf(modelPath, inputPath, reports));
    usage.content = watch.Lap();
    std::size_t bytes = 0;
    FormSheet(content, [&bytes](std::string_view piece) { bytes += piece.size(); });
    usage.html = watch.Lap();
    WriteSheetFile(content, folder.Path("tower.html"));
    usage.file = watch.Lap();
    usage.megabytes = 1e-6 * static_cast<double>(bytes);
    usage.peak = PeakMegabytes();
    watch.Lap();
    RecordedHost twice(model, modelPath);
    AskingAgain askingTwice(twice, 1);
    Run(askingTwice, inputPath, reports);
    usage.again = watch.Lap();
    return usage;
}

SheetUsage Measure(const BuildingSize& size) {
    const BenchFolder folder;
    Record(MakeRegularBuilding(size), folder);
    SheetUsage least = MeasureOnce(folder);
    least.recordingMegabytes =
        1e-6 * static_cast<double>(std::filesystem::file_size(folder.Path("tower.qhm")));
    for (int i = 1; i < kTries; ++i) {
        const SheetUsage usage = MeasureOnce(folder);
        for (double SheetUsage::*const part :
             {&SheetUsage::reading, &SheetUsage::run, &SheetUsage::again, &SheetUsage::content,
              &SheetUsage::html, &SheetUsage::file})
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
    std::cout << "\n| members | stories | load cases | file ms | answers ms | run ms | content ms "
                 "| HTML ms | HTML as a file ms | sheet / file | sheet / file and answers "
                 "| file MB | HTML MB | peak MB |\n"
                 "|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n";
    for (const BuildingSize& size : kSizes) {
        const SheetUsage& usage = Measured()[NameOf(size)];
        if (usage.reading <= 0.0) continue;
        std::cout << "| " << size.members << " | " << size.stories << " | " << size.loadCases;
        for (const double seconds :
             {usage.reading, usage.Answering(), usage.run, usage.content, usage.html, usage.file})
            std::cout << " | " << seconds * kMilliseconds;
        std::cout << " | " << usage.Added() / usage.reading << " | "
                  << usage.Added() / (usage.reading + usage.Answering()) << " | "
                  << usage.recordingMegabytes << " | " << usage.megabytes << " | " << usage.peak
                  << " |\n";
    }
}
