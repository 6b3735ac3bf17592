#include "bench/plain/plain_run.h"

RunOutcome RunPlainCompute(const std::string& inputFilePath, const HostConnector& connectHost,
                           StatusList& status, ReportPaths& reports) {
    return RunCompute(inputFilePath, connectHost, status, reports);
}
