#include "route2/building_extent.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "route2/node_table.h"

namespace {

struct Range {
    double low = 0.0;
    double high = 0.0;
    bool isEmpty = true;

    void Include(double value) {
        low = isEmpty ? value : std::min(low, value);
        high = isEmpty ? value : std::max(high, value);
        isEmpty = false;
    }
};

std::unordered_set<std::int32_t> StoryMemberNumbers(const Findings& findings) {
    std::unordered_set<std::int32_t> numbers;
    for (const StoryFindings& story : findings.stories)
        for (const MemberFindings& member : story.members)
            numbers.insert(member.number);
    return numbers;
}

std::array<Range, 2> PlanOfStoryMembers(const Findings& findings) {
    std::array<Range, 2> plan;
    const auto numbers = StoryMemberNumbers(findings);
    for (const ModelMember& member : findings.members) {
        if (!numbers.contains(member.number)) continue;
        for (const auto& node : {member.start, member.end}) {
            if (!node) continue;
            const Vec3& point = findings.nodes[*node].point;
            plan[kX].Include(point.x);
            plan[kZ].Include(PlanZ(point, findings.zIsVertical));
        }
    }
    return plan;
}

}  // namespace

BuildingExtent FormBuildingExtent(const Findings& findings) {
    BuildingExtent extent;
    if (findings.floorLevels.size() >= 2)
        extent.height = Finite(findings.floorLevels.back() - findings.floorLevels.front());
    const auto plan = PlanOfStoryMembers(findings);
    for (const std::size_t axis : {kX, kZ})
        if (!plan[axis].isEmpty) extent.width[axis] = Finite(plan[axis].high - plan[axis].low);
    if (!extent.height || !extent.width[kX] || !extent.width[kZ]) return extent;
    const double width = std::min(*extent.width[kX], *extent.width[kZ]);
    if (width > 0.0) extent.slenderness = Finite(*extent.height / width);
    return extent;
}
