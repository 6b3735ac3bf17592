#include "bench/process_usage.h"

#include <malloc.h>
#include <time.h>

#include <fstream>
#include <string>

double ProcessorSeconds() {
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec);
}

void ResetPeakMemory() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
}

double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:")) return 1024e-6 * std::stod(line.substr(6));
    return 0.0;
}
