#include "samplehost/call_meter.h"

#include <windows.h>

void CallMeter::Answered(const std::string& name) {
    Sleep(static_cast<DWORD>(delay_.count()));
    ++answered_[name];
}

void CallMeter::Refused() {
    Sleep(static_cast<DWORD>(delay_.count()));
    ++refused_;
}

long CallMeter::total() const {
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
