#pragma once

#include <optional>
#include <string>

/// What a report says of a run beside its findings: which files, which program, when.
struct RunDescription {
    std::string toolVersion;  ///< "1.1"
    std::string made;         ///< local time with its offset, or what the user gave
    std::string modelPath;    ///< as given; on the live host, the host's
    std::optional<std::string>
        modelSha256;        ///< 64 hex digits; none on the live host and of a folder of tables
    std::string inputPath;  ///< as given
    std::optional<std::string> inputSha256;  ///< none when it cannot be read any more
    bool fromRecording = true;               ///< false: from the running host
};
