#pragma once

#include <string>

#include "tables/import_tables.h"

// What the import of a folder of tables has to say, on standard error, one line each.

void TellCautions(const TablesImport& import);

/// The faults with their places, and how many there are. False when there are none.
bool TellFaults(const std::string& folder, const TablesImport& import);

/// Statements that cannot be right, with their figures. False when there are none.
bool TellWrongStatements(const TablesImport& import);
