#include "bench/tables.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <string>

#include "bench/bench_folder.h"
#include "bench/process_usage.h"
#include "bench/regular_building.h"
#include "tables/export_tables.h"
#include "tables/import_tables.h"

namespace {

constexpr BuildingSize kSizes[] = {{5000, 20, 20}, {20000, 40, 60}};
constexpr int kTries = 3;

struct TablesUsage {
    double megabytes = 0.0;  ///< of all tables
    double secondsOfExport = 0.0;
    double secondsOfImport = 0.0;  ///< reading and checking, without the model file
    double peakOfImport = 0.0;     ///< MB of the whole process
};

// Forces of all members under all load cases, with as many digits as programs print.
RecordedModel BuildingWithAllForces(const BuildingSize& size) {
    RecordedModel model = MakeRegularBuilding(size).model;
    for (std::int32_t loadCase = 1; loadCase <= size.loadCases; ++loadCase)
        for (std::size_t member = 0; member < model.members.size(); ++member) {
            const double f = 0.001234567 * static_cast<double>(member % 9973) + 10.0 * loadCase;
            const SixDoubles forces{-f, 0.123456 * f, 0.023456 * f, 1.234567, -f, 0.345678 * f};
            SixDoubles opposite = forces;
            for (double& force : opposite)
                force = -force;
            model.endForces[0].Store(member, loadCase, forces);
            model.endForces[1].Store(member, loadCase, opposite);
        }
    return model;
}

double MegabytesIn(const std::string& folder) {
    double bytes = 0.0;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        bytes += static_cast<double>(entry.file_size());
    return 1e-6 * bytes;
}

TablesUsage Measure(const BuildingSize& size) {
    const BenchFolder folder;
    const std::string tables = folder.Path("tower");
    TablesUsage usage;
    {
        const RecordedModel model = BuildingWithAllForces(size);
        const double start = ProcessorSeconds();
        ExportTables(model, "benchmark", tables);
        usage.secondsOfExport = ProcessorSeconds() - start;
    }
    usage.megabytes = MegabytesIn(tables);
    for (int i = 0; i < kTries; ++i) {
        ResetPeakMemory();
        const double start = ProcessorSeconds();
        benchmark::DoNotOptimize(ImportTables(tables, std::nullopt));
        const double used = ProcessorSeconds() - start;
        usage.secondsOfImport = i == 0 ? used : std::min(usage.secondsOfImport, used);
        usage.peakOfImport = std::max(usage.peakOfImport, PeakMegabytes());
    }
    return usage;
}

std::map<std::int32_t, TablesUsage>& Measured() {
    static std::map<std::int32_t, TablesUsage> byMembers;
    return byMembers;
}

}  // namespace

void RegisterTables() {
    for (const BuildingSize& size : kSizes) {
        const std::string name = "tables/" + std::to_string(size.members) + " members/" +
                                 std::to_string(size.loadCases) + " load cases/import";
        const auto measure = [size](benchmark::State& state) {
            const TablesUsage usage = Measured()[size.members] = Measure(size);
            for (auto _ : state)
                state.SetIterationTime(usage.secondsOfImport);
            state.counters["MB"] = usage.megabytes;
            state.counters["peak_MB"] = usage.peakOfImport;
        };
        benchmark::RegisterBenchmark(name.c_str(), measure)
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
}

void PrintTables() {
    if (Measured().empty()) return;
    std::cout << "\n| members | load cases | tables MB | import MB/s | peak MB | export MB/s |\n"
                 "|---:|---:|---:|---:|---:|---:|\n";
    for (const BuildingSize& size : kSizes) {
        const TablesUsage& usage = Measured()[size.members];
        if (usage.megabytes <= 0.0) continue;
        std::cout << "| " << size.members << " | " << size.loadCases << " | " << usage.megabytes
                  << " | " << usage.megabytes / usage.secondsOfImport << " | " << usage.peakOfImport
                  << " | " << usage.megabytes / usage.secondsOfExport << " |\n";
    }
}
