#pragma once

#include <optional>
#include <string>

#include "cli/exit_codes.h"
#include "host/host_queries.h"

/// What `quarnel-cli lint` was asked for.
struct LintOptions {
    std::string inputPath;
    std::string modelPath;        ///< a recorded building; empty: none
    bool onHost = false;          ///< against the running host
    std::string language;         ///< "en", "ja"; empty: the system's
    std::string format = "text";  ///< "text", "json", "github"
    bool suggests = false;        ///< write a corrected file
    std::string suggestionPath;   ///< where to; empty: beside the input file
    bool isStrict = false;        ///< warnings count as errors for the exit code
};

/// `quarnel-cli lint`: says on standard output what a run would make of an input file, by itself,
/// against a recorded building or against the running host. Writes no report.
ExitCode Lint(const LintOptions& options);

/// The same against any connected host.
ExitCode LintOnHost(HostQueries& host, const LintOptions& options);
