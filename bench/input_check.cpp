#include "bench/input_check.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <limits>
#include <map>
#include <string>

#include "input/input_readers.h"
#include "lint/lint.h"

namespace {

constexpr int kLines = 100000;
constexpr int kTries = 5;

struct LongFile {
    const char* name;
    const char* start;
    const char* line;  // again and again
};

constexpr LongFile kLongFiles[] = {
    {"comments", "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n", "# a comment,\n"},
    {"story lines", "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nStoryMember,\n",
     "1,101,102,103,104,105,106,107,108,109,110,\n"},
    {"allowable values", "DeadLoadCaseNumber,1,\nAllowStoryDeformAngle,\n", "1,1/120,\n"},
    {"misspelt keywords", "DeadLoadCaseNumber,1,\n", "FloorLevels,0,3500,7000,\n"},
};

std::string Write(const LongFile& file) {
    const auto path = std::filesystem::temp_directory_path() / "quarnel-bench-input.csv";
    std::ofstream out(path, std::ios::binary);
    out << file.start;
    for (int i = 0; i < kLines; ++i)
        out << file.line;
    out << "FIN\n";
    return path.string();
}

// One run's worth of reading: each reader opens the file by itself.
void ReadAsARunDoes(const std::string& path) {
    constexpr std::size_t kAnyStory = std::numeric_limits<std::int32_t>::max();
    const auto open = [&path] { return InputFile(path); };
    InputFile file = open();
    benchmark::DoNotOptimize(ReadLoadCaseNumbers(file));
    file = open();
    benchmark::DoNotOptimize(ReadFloorLevels(file));
    file = open();
    benchmark::DoNotOptimize(ReadStoryMembers(file, kAnyStory));
    file = open();
    benchmark::DoNotOptimize(ReadReportedMembers(file));
    file = open();
    benchmark::DoNotOptimize(ReadAllowableValues(file, kAnyStory));
}

// Processor time, the shortest of some tries.
double SecondsOf(const std::function<void()>& work) {
    double shortest = std::numeric_limits<double>::max();
    for (int i = 0; i < kTries; ++i) {
        const std::clock_t start = std::clock();
        work();
        const auto ticks = static_cast<double>(std::clock() - start);
        shortest = std::min(shortest, ticks / CLOCKS_PER_SEC);
    }
    return shortest;
}

std::map<std::string, double>& Measured() {
    static std::map<std::string, double> seconds;
    return seconds;
}

void Register(const std::string& name, const LongFile& file,
              const std::function<void(const std::string&)>& work) {
    const auto measure = [name, file, work](benchmark::State& state) {
        const std::string path = Write(file);
        Measured()[name] = SecondsOf([&] { work(path); });
        std::filesystem::remove(path);
        for (auto _ : state)
            state.SetIterationTime(Measured()[name]);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

std::string NameOf(const LongFile& file, const char* what) {
    return "100000 lines/" + std::string(file.name) + '/' + what;
}

}  // namespace

void RegisterInputChecks() {
    for (const LongFile& file : kLongFiles) {
        Register(NameOf(file, "readers"), file, ReadAsARunDoes);
        Register(NameOf(file, "check"), file, [](const std::string& path) {
            benchmark::DoNotOptimize(LintFile(path, WantsSuggestion::kNo));
        });
    }
}

void PrintInputCheckRatios() {
    constexpr double kMilliseconds = 1000.0;
    if (Measured().empty()) return;
    std::cout << "\n| 100,000 lines of | readers ms | check ms | check / readers |\n"
                 "|---|---:|---:|---:|\n";
    for (const LongFile& file : kLongFiles) {
        const double readers = Measured()[NameOf(file, "readers")];
        const double check = Measured()[NameOf(file, "check")];
        if (readers <= 0.0 || check <= 0.0) continue;
        std::cout << "| " << file.name << " | " << readers * kMilliseconds << " | "
                  << check * kMilliseconds << " | " << check / readers << " |\n";
    }
}
