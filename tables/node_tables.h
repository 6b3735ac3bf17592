#pragma once

#include <string>
#include <vector>

#include "host/vec3.h"
#include "tables/model_statement.h"
#include "tables/name_numbers.h"
#include "tables/table_faults.h"

/// Most nodes, and most members, that tables may have.
inline constexpr std::size_t kMostNames = 2'000'000;

/// What nodes.csv says, in the order of its rows.
struct TableNodes {
    NameNumbers names;
    std::vector<Vec3> points;    ///< the model's base unit and axes
    std::vector<bool> hasPoint;  ///< false: the row has a fault, and the point says nothing
    bool isRead = false;  ///< false: the table could not be read, and any node may be one of it
};

TableNodes ReadNodes(const std::string& folder, const ModelStatement& statement,
                     TableFaults& faults);

/// Which nodes are held, by their places in `nodes`: supports.csv. A table without the columns of
/// the translations lists the nodes that are.
std::vector<bool> ReadSupports(const std::string& folder, const TableNodes& nodes,
                               TableFaults& faults);
