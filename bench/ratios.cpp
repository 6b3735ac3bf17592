#include "bench/ratios.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

// Shorter steps say more about the clock than about themselves.
constexpr double kMeasurableSeconds = 0.002;

// Status lines without a step behind them.
constexpr double kNoWorkSeconds = 0.00003;

void PrintRunsAgainstPlain(const Measurements& measurements, std::span<const BuildingSize> sizes) {
    std::printf(
        "\n| members | stories | load cases | asked | reached the host | distinct | ms | peak MB | "
        "plain ms | plain / ours |\n|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n");
    for (const BuildingSize& size : sizes) {
        const RunUsage* run = measurements.Find(size, Way::kProduct);
        if (run == nullptr) continue;
        const Usage& whole = run->whole;
        std::printf("| %d | %d | %d | %llu | %llu | %llu | %.0f | %.0f |", size.members,
                    size.stories, size.loadCases, static_cast<unsigned long long>(whole.asked),
                    static_cast<unsigned long long>(whole.reached),
                    static_cast<unsigned long long>(whole.distinct), 1e3 * whole.seconds,
                    whole.peakMegabytes);
        const RunUsage* plain = measurements.Find(size, Way::kPlain);
        if (plain == nullptr) {
            std::printf(" | |\n");
            continue;
        }
        if (plain->reports != run->reports)
            throw std::runtime_error("the plain run wrote other reports");
        std::printf(" %.0f | %.1f |\n", 1e3 * plain->whole.seconds,
                    plain->whole.seconds / whole.seconds);
    }
}

void PrintSteps(const Measurements& measurements, const BuildingSize& size) {
    const RunUsage* run = measurements.Find(size, Way::kProduct);
    const RunUsage* plain = measurements.Find(size, Way::kPlain);
    if (run == nullptr || plain == nullptr) return;
    std::printf("\n%d members, %d stories, %d load cases, step by step:\n\n", size.members,
                size.stories, size.loadCases);
    std::printf(
        "| status line | asked | reached the host | distinct | ms | peak MB | plain ms | plain / "
        "ours |\n|---|---:|---:|---:|---:|---:|---:|---:|\n");
    for (std::size_t i = 0; i < run->steps.size(); ++i) {
        const Usage& step = run->steps[i].usage;
        if (step.asked == 0 && step.seconds < kNoWorkSeconds) continue;
        const double plainSeconds = plain->steps[i].usage.seconds;
        std::printf("| %s | %llu | %llu | %llu | %.1f | %.0f | %.1f |", run->steps[i].name.c_str(),
                    static_cast<unsigned long long>(step.asked),
                    static_cast<unsigned long long>(step.reached),
                    static_cast<unsigned long long>(step.distinct), 1e3 * step.seconds,
                    step.peakMegabytes, 1e3 * plainSeconds);
        if (step.seconds < kMeasurableSeconds)
            std::printf(" |\n");
        else
            std::printf(" %.1f |\n", plainSeconds / step.seconds);
    }
}

std::string Ratio(const Usage& from, const Usage& to) {
    if (from.seconds < kMeasurableSeconds || to.seconds < kMeasurableSeconds) return "";
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", to.seconds / from.seconds);
    return text;
}

void PrintGrowths(const Measurements& measurements, std::span<const Growth> growths) {
    std::vector<std::pair<const RunUsage*, const RunUsage*>> pairs;
    std::string head = "| status line |", rule = "|---|";
    for (const Growth& growth : growths) {
        const RunUsage* from = measurements.Find(growth.from, Way::kProduct);
        const RunUsage* to = measurements.Find(growth.to, Way::kProduct);
        if (from == nullptr || to == nullptr) continue;
        pairs.emplace_back(from, to);
        head += std::string(" ") + growth.what + " |";
        rule += "---:|";
    }
    if (pairs.empty()) return;
    std::printf(
        "\nHow time grows when one size doubles (steps below %.0f ms left out):\n\n%s\n%s\n",
        1e3 * kMeasurableSeconds, head.c_str(), rule.c_str());
    for (std::size_t i = 0; i < pairs.front().first->steps.size(); ++i) {
        std::string row;
        bool isMeasurable = false;
        for (const auto& [from, to] : pairs) {
            const std::string ratio = Ratio(from->steps[i].usage, to->steps[i].usage);
            isMeasurable |= !ratio.empty();
            row += " " + ratio + " |";
        }
        if (isMeasurable)
            std::printf("| %s |%s\n", pairs.front().first->steps[i].name.c_str(), row.c_str());
    }
    std::printf("| whole run |");
    for (const auto& [from, to] : pairs)
        std::printf(" %s |", Ratio(from->whole, to->whole).c_str());
    std::printf("\n");
}

}  // namespace

void PrintRatios(const Measurements& measurements, std::span<const BuildingSize> sizes,
                 const BuildingSize& detailed, std::span<const Growth> growths) {
    PrintRunsAgainstPlain(measurements, sizes);
    PrintSteps(measurements, detailed);
    PrintGrowths(measurements, growths);
}

void PrintModelFiles(const Measurements& measurements, std::span<const BuildingSize> sizes) {
    std::printf(
        "\n| members | stories | load cases | file MB | read ms | write ms | write / read | read "
        "peak MB | as a tree ms | tree / read | tree peak MB |\n"
        "|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n");
    for (const BuildingSize& size : sizes) {
        const ModelFileUsage* const usage = measurements.FindModelFile(size);
        if (usage == nullptr) continue;
        const double reading = usage->secondsOfReading;
        std::printf("| %d | %d | %d | %.1f | %.1f | %.1f | %.2f | %.0f | %.1f | %.1f | %.0f |\n",
                    size.members, size.stories, size.loadCases, usage->megabytes, 1e3 * reading,
                    1e3 * usage->secondsOfWriting, usage->secondsOfWriting / reading,
                    usage->peakOfReading, 1e3 * usage->secondsOfTree,
                    usage->secondsOfTree / reading, usage->peakOfTree);
    }
}
