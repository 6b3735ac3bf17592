#include "samplehost/call_meter.h"

#include <windows.h>

// Sleep knows whole milliseconds only and takes them generously, so the last two are spent awake.
void CallMeter::Wait() const {
    constexpr Delay kAwake{2.0};
    const auto end = std::chrono::steady_clock::now() + delay_;
    if (delay_ > kAwake) Sleep(static_cast<DWORD>((delay_ - kAwake).count()));
    while (std::chrono::steady_clock::now() < end)
        YieldProcessor();
}

void CallMeter::Answered(const std::string& name) {
    Wait();
    ++answered_[name];
}

void CallMeter::Refused() {
    Wait();
    ++refused_;
}

long CallMeter::TotalCalls() const {
    long sum = refused_;
    for (const auto& [name, count] : answered_)
        sum += count;
    return sum;
}

std::string CallMeter::Report() const {
    std::string report;
    for (const auto& [name, count] : answered_)
        report += name + " " + std::to_string(count) + "\n";
    return report + "Refused " + std::to_string(refused_) + "\n";
}
