#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "host/recorded_model.h"

/// A model that tables cannot hold, or a folder that cannot be written. The text is one line.
class TablesExportError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Writes a recorded model as tables into a new folder, whole or not at all: from which the same
/// model is imported again. Along the tool's own axes, what acts on the members' ends; in the
/// model's base units.
///
/// `origin` is the source that is stated for a model that has none. Returns what somebody should
/// know, one line each: answers that the model does not list are written as the zeros that a run
/// gets, those that a recording lacks are left out.
///
/// Throws TablesExportError when the folder is there already, and when numbers stand twice among
/// nodes, members or load cases, or there are none: tables have one row for each.
std::vector<std::string> ExportTables(const RecordedModel& model, const std::string& origin,
                                      const std::string& folder);
