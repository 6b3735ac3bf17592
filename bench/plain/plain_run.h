#pragma once

#include "compute/compute_run.h"

/// The same Compute run as RunCompute, from a second copy of the engine whose look-ups of numbers
/// are linear searches: the plain way, to compare with. It lives in a library of its own that
/// shows nothing but this function, so the two copies never meet.
[[gnu::visibility("default")]] RunOutcome RunPlainCompute(const std::string& inputFilePath,
                                                          const HostConnector& connectHost,
                                                          StatusList& status, ReportPaths& reports);
