#include "bench/ratios.h"

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

// Shorter steps say more about the clock than about themselves.
constexpr double kMeasurableSeconds = 0.002;

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
    for (const Growth& growth : growths) {
        const RunUsage* from = measurements.Find(growth.from, Way::kProduct);
        const RunUsage* to = measurements.Find(growth.to, Way::kProduct);
        if (from == nullptr || to == nullptr) continue;
        std::printf("\n%s (%d, %d, %d to %d, %d, %d members, stories, load cases):\n\n",
                    growth.what, growth.from.members, growth.from.stories, growth.from.loadCases,
                    growth.to.members, growth.to.stories, growth.to.loadCases);
        std::printf("| status line | time grows |\n|---|---:|\n");
        for (std::size_t i = 0; i < to->steps.size(); ++i) {
            const std::string ratio = Ratio(from->steps[i].usage, to->steps[i].usage);
            if (!ratio.empty())
                std::printf("| %s | %s |\n", to->steps[i].name.c_str(), ratio.c_str());
        }
        std::printf("| whole run | %s |\n", Ratio(from->whole, to->whole).c_str());
    }
}

}  // namespace

void PrintRatios(const Measurements& measurements, std::span<const BuildingSize> sizes,
                 const BuildingSize& detailed, std::span<const Growth> growths) {
    PrintRunsAgainstPlain(measurements, sizes);
    PrintSteps(measurements, detailed);
    PrintGrowths(measurements, growths);
}
