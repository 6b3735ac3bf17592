#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Load cases by the part that they have in a run, as a Route 2 Input file names them.
struct InputRoles {
    std::string inputPath;
    std::optional<std::int32_t> dead;      ///< nothing when the file does not name it
    std::vector<std::int32_t> earthquake;  ///< those that the file names, each once
};

/// Reads the load cases of an input file. Nothing when the file cannot be read to its FIN line.
std::optional<InputRoles> ReadInputRoles(const std::string& inputPath);
