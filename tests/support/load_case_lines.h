#pragma once

#include <string>

/// The lines of an input file whose dead load is case 1, and whose earthquake loads are 2 along X
/// and 3 along the second direction.
inline const std::string kLoadCaseLines = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n";
