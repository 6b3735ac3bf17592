#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tables/building_tables.h"

/// Places of the nodes that bars stand on, ascending.
std::vector<std::size_t> NodesOfBars(const BuildingTables& tables);

/// Those of them that are held.
std::vector<std::size_t> HeldNodesOfBars(const BuildingTables& tables);

/// A line on the statement of the vertical axis when the held nodes are not at the foot of the
/// building, but would be along another axis. Nothing when they are, or when none is held.
std::optional<std::string> WrongVerticalAxis(const BuildingTables& tables);
