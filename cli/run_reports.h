#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What a log says that a user must not miss.
struct LogReport {
    std::vector<std::string> warnings;
    std::optional<std::int32_t> earthquakeCaseX;
    std::optional<std::int32_t> earthquakeCaseZ;
};

/// One verdict of the results file, as it stands there.
struct Verdict {
    double value = 0.0;
    double allowable = 0.0;
    std::string result;  ///< PASS or FAIL
};

/// The verdicts of one check: direction ("X", "Z(or Y)"), story number, and the load column (a
/// load case number, or "All"; empty for a check that has none).
using CheckVerdicts = std::map<std::string, std::map<int, std::map<std::string, Verdict>>>;

/// The results file, read back: the summary cannot differ from what the engineer files.
struct ResultsReport {
    CheckVerdicts angles;  ///< story deformation angle, average of the story's members
    CheckVerdicts ratios;  ///< story stiffness ratio, average of the story's members
    CheckVerdicts moduli;  ///< eccentricity modulus
    int stories = 0;
    int passRows = 0;  ///< verdicts of all rows of all sections
    int failRows = 0;
};

/// Both readers find nothing in a path that is missing or not a file.
LogReport ReadLog(const std::string& path);
ResultsReport ReadResults(const std::string& path);
