#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/vec3.h"
#include "route2/node_table.h"
#include "tables/building_tables.h"

/// A member that carries from one height to another: not level.
struct CarryingMember {
    std::size_t bar = 0;  ///< place among the bars
    std::size_t lowerNode = 0, upperNode = 0;
    std::size_t lowerEnd = 0;  ///< 0 when the member starts at its lower node, else 1
    Vec3 lower, upper;         ///< mm
};

/// The tables as the checks of their statements look at them: mm and kN, forces on the members'
/// ends along the global axes. Borrows the tables.
class CheckedBuilding {
public:
    explicit CheckedBuilding(const BuildingTables& tables);

    const BuildingTables& Tables() const { return tables_; }
    bool ZUp() const { return tables_.statement.zUp; }

    /// Members that are upright or lean, in their order.
    const std::vector<CarryingMember>& Carrying() const { return carrying_; }

    /// Places of the nodes that bars stand on, ascending.
    const std::vector<std::size_t>& Nodes() const { return nodes_; }
    Vec3 Point(std::size_t node) const;  ///< mm

    /// Displacement of a node, mm; zero where the tables have none.
    Vec3 Displacement(std::size_t node, std::int32_t loadCase) const;

    /// Whether the tables have forces at both ends of a bar.
    bool HasForces(std::size_t bar, std::int32_t loadCase) const;

    /// Whether any bar has a force other than zero: a building whose drifts alone are known has
    /// none, and its forces say nothing about senses or units.
    bool IsLoaded(std::int32_t loadCase) const;

    /// Force on a bar's end, kN; zero where the tables have none.
    Vec3 Force(std::size_t bar, std::size_t end, std::int32_t loadCase) const;

    /// The moment there, kN mm.
    Vec3 Moment(std::size_t bar, std::size_t end, std::int32_t loadCase) const;

    /// From the start to the end of a bar, mm.
    Vec3 Direction(std::size_t bar) const;

    /// A force of the model in kN.
    Vec3 InKilonewtons(const Vec3& force) const;

    double HeightOf(const Vec3& point) const { return Vertical(point, ZUp()); }

    /// A vector's plan part: its first and its second plan direction, and no height.
    Vec3 InPlan(const Vec3& vector) const;

private:
    Vec3 Global(std::size_t bar, double f0, double f1, double f2) const;

    const BuildingTables& tables_;
    std::vector<CarryingMember> carrying_;
    std::vector<std::size_t> nodes_;
};
