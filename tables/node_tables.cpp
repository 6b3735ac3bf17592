#include "tables/node_tables.h"

#include <cmath>
#include <optional>

#include "tables/table_reader.h"

namespace {

// The coordinates of a row; nothing when one is none, or too large for the model's unit.
std::optional<Vec3> PointOf(TableReader& table, const std::array<std::size_t, 3>& columns,
                            const ModelStatement& statement) {
    const UnitFactor inModel = statement.Length();
    std::array<double, 3> values{};
    bool isPoint = true;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto value = table.Number(columns[i]);
        values[i] = value ? inModel(*value) : 0.0;
        if (!std::isfinite(values[i]))
            table.Fault(columns[i], "too large a number for a coordinate");
        isPoint = isPoint && value && std::isfinite(values[i]);
    }
    if (!isPoint) return std::nullopt;
    return statement.sourceAxes.InModel({values[0], values[1], values[2]});
}

// Whether a row of 0 and 1 holds the node: any of the translations is held.
bool IsHeld(TableReader& table, const std::array<std::size_t, 3>& translations,
            const std::optional<std::array<std::size_t, 3>>& rotations) {
    const auto isHeldIn = [&table](std::size_t column) {
        const std::string_view text = table.Bytes(column);
        if (text != "0" && text != "1")
            table.Fault(column,
                        Quoted(table.TextOrNothing(column)) + "; 0 (free) or 1 (held) is expected");
        return text == "1";
    };
    bool isHeld = false;
    for (const std::size_t column : translations)
        if (isHeldIn(column)) isHeld = true;
    if (rotations)
        for (const std::size_t column : *rotations)
            isHeldIn(column);
    return isHeld;
}

}  // namespace

TableNodes ReadNodes(const std::string& folder, const ModelStatement& statement,
                     TableFaults& faults) {
    TableNodes nodes;
    TableReader table(folder, TableName::kNodes, faults);
    const auto [node] = table.Require({"node"}, "node,x,y,z");
    const auto xyz = table.Require({"x", "y", "z"}, "node,x,y,z");
    while (table.NextRow()) {
        const auto name = table.Name(node);
        const auto point = PointOf(table, xyz, statement);
        if (!name) continue;
        if (nodes.names.Find(*name)) {
            table.Fault(node, "node " + *name + " stands twice; one row is expected");
        } else if (nodes.names.size() == kMostNames) {
            table.GiveUp(node, "more than " + std::to_string(kMostNames) + " nodes");
            break;
        } else {
            nodes.names.Add(*name);
            nodes.points.push_back(point.value_or(Vec3{}));
            nodes.hasPoint.push_back(point.has_value());
        }
    }
    nodes.isRead = table.IsReadToEnd();
    return nodes;
}

std::vector<bool> ReadSupports(const std::string& folder, const TableNodes& nodes,
                               TableFaults& faults) {
    TableReader table(folder, TableName::kSupports, faults);
    const auto [node] = table.Require({"node"}, "node or node,ux,uy,uz,rx,ry,rz");
    const auto translations = table.FindAll({"ux", "uy", "uz"});
    const auto rotations = table.FindAll({"rx", "ry", "rz"});
    if (table.IsOpen() && rotations && !translations)
        table.Fault("the heading row has rx, ry, rz, but not ux, uy, uz; all or none expected");
    std::vector<bool> isHeld(nodes.names.size(), false);
    std::vector<bool> isListed(nodes.names.size(), false);
    while (table.NextRow()) {
        const auto place = table.Place(node, nodes.names, "node", TableName::kNodes, nodes.isRead);
        const bool holds = !translations || IsHeld(table, *translations, rotations);
        if (!place) continue;
        if (isListed[*place])
            table.Fault(node,
                        "node " + nodes.names.Name(*place) + " stands twice; one row is expected");
        isListed[*place] = true;
        if (holds) isHeld[*place] = true;
    }
    return isHeld;
}
