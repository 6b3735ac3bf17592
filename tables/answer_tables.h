#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/recorded_model.h"
#include "tables/case_table.h"
#include "tables/member_tables.h"
#include "tables/node_tables.h"

/// What the tables of a folder are about; all of it borrowed.
struct TableSubjects {
    const std::string& folder;
    const ModelStatement& statement;
    const TableNodes& nodes;
    const TableMembers& members;
    const TableCases& cases;
};

/// displacements.csv. `answers`: by the nodes' places and case number, in the model's unit and
/// axes. A row with a fault leaves an answer, too, so that it is not told as missing.
/// Returns whether the table could be read.
bool ReadDisplacements(const TableSubjects& subjects, TableFaults& faults, AnswerTable& answers);

/// forces.csv. `answers`: [0] start and [1] end, by the bars' places and case number, what acts on
/// the member's end in the model's unit, along the global axes or, where the statement says so,
/// along the tool's own. `frames`: TableFrames::ofBars.
/// Returns whether the table could be read.
bool ReadEndForces(const TableSubjects& subjects, const std::vector<LocalFrame>& frames,
                   TableFaults& faults, std::array<AnswerTable, 2>& answers);

/// What the supports do to the building, by case and node place, the model's force unit and axes.
using Reactions = std::map<std::int32_t, std::map<std::size_t, Vec3>>;

/// reactions.csv; empty where the folder has no such table.
Reactions ReadReactions(const TableSubjects& subjects, TableFaults& faults);
