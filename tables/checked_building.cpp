#include "tables/checked_building.h"

#include "host/member_axes.h"
#include "host/units.h"
#include "tables/vectors.h"
#include "tables/vertical_axis.h"

CheckedBuilding::CheckedBuilding(const BuildingTables& tables)
    : tables_(tables), nodes_(NodesOfBars(tables)) {
    for (std::size_t bar = 0; bar < tables.members.bars.size(); ++bar) {
        const TableMember& member = tables.members.Bar(bar);
        if (IsLevel(tables, bar)) continue;
        const Vec3 start = Point(*member.startNode), end = Point(*member.endNode);
        if (HeightOf(start) < HeightOf(end))
            carrying_.push_back({bar, *member.startNode, *member.endNode, 0, start, end});
        else
            carrying_.push_back({bar, *member.endNode, *member.startNode, 1, end, start});
    }
}

Vec3 CheckedBuilding::Point(std::size_t node) const {
    return InMillimetres(tables_, tables_.nodes.points[node]);
}

Vec3 CheckedBuilding::Displacement(std::size_t node, std::int32_t loadCase) const {
    const SixDoubles* const answer = tables_.displacements.Find(node, loadCase);
    if (answer == nullptr) return {};
    return InMillimetres(tables_, {(*answer)[0], (*answer)[1], (*answer)[2]});
}

bool CheckedBuilding::HasForces(std::size_t bar, std::int32_t loadCase) const {
    return tables_.endForces[0].Find(bar, loadCase) != nullptr &&
           tables_.endForces[1].Find(bar, loadCase) != nullptr;
}

bool CheckedBuilding::IsLoaded(std::int32_t loadCase) const {
    for (std::size_t bar = 0; bar < tables_.members.bars.size(); ++bar)
        for (const std::size_t end : {std::size_t{0}, std::size_t{1}})
            if (LengthOf(Force(bar, end, loadCase)) > 0.0) return true;
    return false;
}

Vec3 CheckedBuilding::Force(std::size_t bar, std::size_t end, std::int32_t loadCase) const {
    const SixDoubles* const answer = tables_.endForces[end].Find(bar, loadCase);
    if (answer == nullptr) return {};
    return InKilonewtons(Global(bar, (*answer)[0], (*answer)[1], (*answer)[2]));
}

Vec3 CheckedBuilding::Moment(std::size_t bar, std::size_t end, std::int32_t loadCase) const {
    const SixDoubles* const answer = tables_.endForces[end].Find(bar, loadCase);
    if (answer == nullptr) return {};
    return InMillimetres(tables_,
                         InKilonewtons(Global(bar, (*answer)[3], (*answer)[4], (*answer)[5])));
}

Vec3 CheckedBuilding::Direction(std::size_t bar) const {
    const TableMember& member = tables_.members.Bar(bar);
    return Minus(Point(*member.endNode), Point(*member.startNode));
}

Vec3 CheckedBuilding::Global(std::size_t bar, double f0, double f1, double f2) const {
    if (tables_.areForcesGlobal) return {f0, f1, f2};
    const TableMember& member = tables_.members.Bar(bar);
    const auto axes = FormMemberAxes(Point(*member.startNode), Point(*member.endNode),
                                     static_cast<double>(static_cast<float>(member.beta)), ZUp());
    if (!axes) return {};
    return Plus(Plus(Times(axes->x, f0), Times(axes->y, f1)), Times(axes->z, f2));
}

Vec3 CheckedBuilding::InKilonewtons(const Vec3& force) const {
    return Times(force, tables_.statement.IsEnglish() ? kKnPerKip : 1.0);
}

Vec3 CheckedBuilding::InPlan(const Vec3& vector) const {
    return ZUp() ? Vec3{vector.x, vector.y, 0.0} : Vec3{vector.x, 0.0, vector.z};
}
