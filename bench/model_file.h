#pragma once

#include "bench/regular_building.h"

/// What reading and writing a generated building as a host model file takes. Times are of the
/// processor, the shortest of the repetitions.
struct ModelFileUsage {
    double megabytes = 0.0;  ///< of the file
    double secondsOfReading = 0.0;
    double secondsOfWriting = 0.0;
    double peakOfReading = 0.0;  ///< MB of the whole process, the model that was read among them
    double peakOfWriting = 0.0;
    double secondsOfTree = 0.0;  ///< the plain way to begin: the file's JSON as a tree in memory
    double peakOfTree = 0.0;
};

ModelFileUsage MeasureModelFile(const BuildingSize& size, int repetitions);
