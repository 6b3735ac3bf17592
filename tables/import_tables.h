#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/recorded_model.h"
#include "tables/load_roles.h"
#include "tables/statement_findings.h"

/// What became of the tables of a folder.
struct TablesImport {
    /// The building; nothing when the tables have faults. To be used when `findings.wrong` is
    /// empty, or by whoever knows better.
    std::optional<RecordedModel> model;

    std::vector<std::string> faults;  ///< the first of them, one line each
    std::size_t faultCount = 0;
    bool areAllFaultsCounted = true;    ///< false: a table with too many was not read to its end
    std::vector<std::string> cautions;  ///< what somebody should know, one line each

    StatementFindings findings;
    std::string report;  ///< what was read, in some lines for people
};

/// Reads the tables of a folder into a recorded model and checks what model.csv states about them.
/// `input` says which answers a run needs; without it all cases that have any must be complete.
TablesImport ImportTables(const std::string& folder, const std::optional<InputRoles>& input);
