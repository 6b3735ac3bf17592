#pragma once

#include <span>

#include "bench/measurements.h"

/// Two buildings of which the second has twice as much of one thing; what, in words.
struct Growth {
    const char* what;
    BuildingSize from;
    BuildingSize to;
};

/// Prints, as Markdown and as far as it was measured: whole runs against the plain way, the steps
/// of `detailed`, and how all of them grow. Throws std::runtime_error when the reports of the two
/// ways differ.
void PrintRatios(const Measurements& measurements, std::span<const BuildingSize> sizes,
                 const BuildingSize& detailed, std::span<const Growth> growths);

/// Prints what reading and writing model files takes, as far as it was measured.
void PrintModelFiles(const Measurements& measurements, std::span<const BuildingSize> sizes);
