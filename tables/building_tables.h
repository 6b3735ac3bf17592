#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/recorded_model.h"
#include "tables/answer_tables.h"
#include "tables/load_roles.h"

/// Everything that the tables of a folder say about a building.
struct BuildingTables {
    ModelStatement statement;
    TableNodes nodes;
    TableMembers members;
    TableCases cases;
    std::vector<bool> isHeld;  ///< by the nodes' places
    Reactions reactions;

    /// By case number and the places of the nodes and of the bars.
    AnswerTable displacements;
    std::array<AnswerTable, 2> endForces;  ///< along the tool's axes if so stated, else global
    bool areForcesGlobal = true;
};

/// Reads the tables of a folder. Nothing when there are faults. What somebody should know all the
/// same is a line in `cautions`.
///
/// Answers that are not there are faults: each case that `input` names, or without one each case
/// that has any row, needs the displacements of every node of an upright or leaning bar and the
/// forces at both ends of every such bar.
std::optional<BuildingTables> ReadBuildingTables(const std::string& folder,
                                                 const std::optional<InputRoles>& input,
                                                 TableFaults& faults,
                                                 std::vector<std::string>& cautions);

/// Whether a bar's ends stand at one height, less than 0.1 mm apart. All other bars are upright or
/// lean.
bool IsLevel(const BuildingTables& tables, std::size_t bar);

/// A point of the tables' model in mm.
Vec3 InMillimetres(const BuildingTables& tables, const Vec3& point);

/// The recorded model that the tables make, in their order.
RecordedModel ModelOf(BuildingTables&& tables);
