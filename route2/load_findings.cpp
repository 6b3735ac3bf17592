// What the load cases are seen to do at a story's cutting plane: an earthquake case that presses
// down holds vertical load too, and a dead load that pushes sideways is another case.

#include "route2/direction_findings.h"
#include "route2/end_forces.h"
#include "route2/gravity_center.h"
#include "route2/story_shear.h"

namespace {

struct CutForces {
    double vertical = 0.0;  // kN
    PerDirection shear{};   // kN
};

std::optional<CutForces> SumCutForces(const StoryUnderFindings& under, std::int32_t loadCase) {
    const AijCodeRoute2& engine = under.engine;
    CutForces sums;
    for (const PlacedMember& cut : under.cut) {
        const auto force =
            under.questions.EndForces(cut.number, LowerEnd(cut.startNode, cut.lowerNode), loadCase);
        if (!force) return std::nullopt;
        const MemberAxes axes = ShearAxes(engine, under.memberPositions, cut.number);
        sums.vertical += WeightOf(*force, axes, engine.zIsVertical, engine.inchUnits);
        const PerDirection shear = ShearOf(*force, axes, engine.zIsVertical, engine.inchUnits);
        for (const std::size_t axis : {kX, kZ})
            sums.shear[axis] += shear[axis];
    }
    return sums;
}

}  // namespace

void FormLoads(const StoryUnderFindings& under, StoryFindings& found) {
    if (!under.rowsStand) return;
    const auto dead = SumCutForces(under, under.engine.deadLoadCaseNumber);
    for (const std::size_t axis : {kX, kZ}) {
        if (dead) found.directions[axis].deadShear = Finite(dead->shear[axis]);
        const auto earthquake = SumCutForces(under, under.engine.earthquakeLoadCaseNumber[axis]);
        if (earthquake) found.directions[axis].verticalForce = Finite(earthquake->vertical);
    }
}
