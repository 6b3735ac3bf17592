#pragma once

#include "tables/building_tables.h"

/// Adds a fault for each bar that has forces along local axes which nobody has told. A level member
/// without forces needs none.
void TellMissingAxes(const BuildingTables& tables, const TableFrames& frames, TableFaults& faults);

/// Adds a fault for each answer that a run needs and the tables do not have; of a table that could
/// not be read none is missed.
void TellMissingAnswers(const BuildingTables& tables, const std::optional<InputRoles>& input,
                        bool areDisplacementsRead, bool areForcesRead, TableFaults& faults);
