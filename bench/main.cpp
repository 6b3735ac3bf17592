// Benchmarks of the Compute run on generated buildings that answer from memory: what the engine
// itself costs, step by step, and how that grows. Ends with tables of ratios in Markdown.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <iostream>
#include <string>

#include "bench/input_check.h"
#include "bench/measurements.h"
#include "bench/ratios.h"
#include "bench/sheet.h"
#include "bench/tables.h"
#include "compute/status_texts.h"

namespace {

constexpr BuildingSize kLarge{20000, 40, 60};

// The same sizes for both ways first, then those that show how the time grows.
constexpr BuildingSize kPlainSizes[] = {{1000, 10, 5}, {5000, 20, 20}, kLarge};
constexpr BuildingSize kSizes[] = {
    {1000, 10, 5},   {5000, 20, 20},  kLarge,          {10000, 40, 60}, {40000, 40, 60},
    {20000, 10, 60}, {20000, 20, 60}, {20000, 60, 60}, {20000, 40, 5},  {20000, 40, 30}};
constexpr BuildingSize kModelFileSizes[] = {{1000, 10, 5}, {5000, 20, 20}, kLarge};
constexpr Growth kGrowths[] = {
    {"members 10,000 to 20,000", {10000, 40, 60}, kLarge},
    {"members 20,000 to 40,000", kLarge, {40000, 40, 60}},
    {"stories 20 to 40", {20000, 20, 60}, kLarge},
    {"load cases 30 to 60", {20000, 40, 30}, kLarge},
};

std::string NameOf(const BuildingSize& size, Way way) {
    return std::string(way == Way::kPlain ? "plain/" : "") + std::to_string(size.members) +
           " members/" + std::to_string(size.stories) + " stories/" +
           std::to_string(size.loadCases) + " load cases/";
}

// The runs are measured as wholes; each row shows its part of them.
void Register(const std::string& name, const std::function<Usage()>& measure) {
    const auto show = [measure](benchmark::State& state) {
        const Usage usage = measure();
        for (auto _ : state)
            state.SetIterationTime(usage.seconds);
        state.counters["asked"] = static_cast<double>(usage.asked);
        state.counters["reached"] = static_cast<double>(usage.reached);
        state.counters["distinct"] = static_cast<double>(usage.distinct);
        state.counters["peak_MB"] = usage.peakMegabytes;
    };
    benchmark::RegisterBenchmark(name.c_str(), show)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

Usage UsageOfStep(const RunUsage& run, const std::string& name) {
    const auto found = std::find_if(run.steps.begin(), run.steps.end(),
                                    [&name](const StepUsage& step) { return step.name == name; });
    return found->usage;
}

void RegisterRun(Measurements& measurements, const BuildingSize& size, Way way) {
    const std::string name = NameOf(size, way);
    Register(name + "whole run",
             [&measurements, size, way] { return measurements.Of(size, way).whole; });
    const auto first = static_cast<int>(StatusText::kPreparing);
    const auto last = static_cast<int>(StatusText::kSavingOutput);
    for (int line = first; line <= last; ++line) {
        const std::string step = TextOf(static_cast<StatusText>(line));
        Register(name + step, [&measurements, size, way, step] {
            return UsageOfStep(measurements.Of(size, way), step);
        });
    }
}

void RegisterModelFile(Measurements& measurements, const BuildingSize& size) {
    struct Part {
        const char* name;
        double ModelFileUsage::*seconds;
        double ModelFileUsage::*peak;
    };
    constexpr Part kParts[] = {
        {"read", &ModelFileUsage::secondsOfReading, &ModelFileUsage::peakOfReading},
        {"write", &ModelFileUsage::secondsOfWriting, &ModelFileUsage::peakOfWriting},
        {"as a tree", &ModelFileUsage::secondsOfTree, &ModelFileUsage::peakOfTree},
    };
    for (const Part& part : kParts)
        Register(NameOf(size, Way::kProduct) + "model file/" + part.name,
                 [&measurements, size, part] {
                     const ModelFileUsage& usage = measurements.ModelFileOf(size);
                     return Usage{usage.*part.seconds, usage.*part.peak, 0, 0, 0};
                 });
}

void RunBenchmarks(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) throw std::runtime_error("see --help");
    Measurements measurements;
    for (const BuildingSize& size : kSizes)
        RegisterRun(measurements, size, Way::kProduct);
    for (const BuildingSize& size : kPlainSizes)
        RegisterRun(measurements, size, Way::kPlain);
    for (const BuildingSize& size : kModelFileSizes)
        RegisterModelFile(measurements, size);
    RegisterInputChecks();
    RegisterTables();
    RegisterSheets();
    benchmark::RunSpecifiedBenchmarks();
    PrintInputCheckRatios();
    PrintTables();
    PrintSheets();
    PrintRatios(measurements, kSizes, kLarge, kGrowths);
    PrintModelFiles(measurements, kModelFileSizes);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        RunBenchmarks(argc, argv);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "quarnel-bench: " << error.what() << "\n";
        return 1;
    }
}
