#include "route2/member_findings.h"

#include <cmath>
#include <unordered_set>

#include "host/units.h"
#include "route2/end_forces.h"
#include "route2/story_drift.h"
#include "route2/story_shear.h"
#include "route2/upright.h"

namespace {

// The vertical force that the centre of gravity weighs the member with, kN.
Figure AxialForce(const StoryUnderFindings& under, const PlacedMember& cut) {
    const AijCodeRoute2& engine = under.engine;
    if (!under.story.weightAbove || cut.position >= engine.memberAxisZ.size()) return std::nullopt;
    const auto force = under.questions.EndForces(cut.number, LowerEnd(cut.startNode, cut.lowerNode),
                                                 engine.deadLoadCaseNumber);
    if (!force) return std::nullopt;
    const MemberAxes axes{engine.memberAxisX[cut.position], engine.memberAxisY[cut.position],
                          engine.memberAxisZ[cut.position]};
    return Finite(WeightOf(*force, axes, engine.zIsVertical, engine.inchUnits));
}

Figure StiffnessOf(const StoryUnderFindings& under, MemberRecords records, std::size_t axis) {
    const bool isFormed = under.engine.stiffnessSet && under.casePosition[axis] &&
                          !(axis == kZ && under.CasesAreEqual());
    if (!isFormed) return std::nullopt;
    return Finite(records[*under.casePosition[axis]].horizontalStiffness[axis]);
}

MemberFindings FormStoryMember(const StoryUnderFindings& under, MemberRecords records) {
    const AijCodeRoute2& engine = under.engine;
    const StoryMember& first = records.front();
    const NodeTable nodes = engine.Nodes();
    const Vec3& lower = nodes.coords[*nodes.positions.First(first.lowerNodeNumber)];
    const Vec3& upper = nodes.coords[*nodes.positions.First(first.upperNodeNumber)];
    MemberFindings found;
    found.number = first.memberNumber;
    found.upright = IsUpright(lower, upper, engine.zIsVertical);
    found.height =
        std::abs(Vertical(upper, engine.zIsVertical) - Vertical(lower, engine.zIsVertical));
    found.x = first.planX;
    found.v = first.planZ;
    if (const auto cut = under.cutPositions.First(first.memberNumber))
        found.axialForce = AxialForce(under, under.cut[*cut]);
    for (const std::size_t axis : {kX, kZ}) {
        if (engine.shearForceSet) found.shear[axis] = Finite(first.shearForce[axis]);
        if (engine.relativeDispSet && under.casePosition[axis])
            found.drift[axis] = Finite(records[*under.casePosition[axis]].relativeDisp[axis]);
        found.stiffness[axis] = StiffnessOf(under, records, axis);
    }
    return found;
}

Figure DriftOfOwnNodes(const StoryUnderFindings& under, const PlacedMember& cut, std::size_t axis) {
    const AijCodeRoute2& engine = under.engine;
    const std::int32_t loadCase = engine.earthquakeLoadCaseNumber[axis];
    const auto lower = under.questions.Displacements(cut.lowerNode, loadCase);
    const auto upper = under.questions.Displacements(cut.upperNode, loadCase);
    if (!lower || !upper || !under.casePosition[axis]) return std::nullopt;
    return Finite(RelativeDisp(*lower, *upper, 1.0, engine.MillimetresPerHostLength(),
                               engine.zIsVertical)[axis]);
}

MemberFindings FormNotCounted(const StoryUnderFindings& under, const PlacedMember& cut) {
    const AijCodeRoute2& engine = under.engine;
    MemberFindings found;
    found.number = cut.number;
    found.upright = IsUpright(cut.lower, cut.upper, engine.zIsVertical);
    found.height =
        Vertical(cut.upper, engine.zIsVertical) - Vertical(cut.lower, engine.zIsVertical);
    found.x = cut.lower.x;
    found.v = PlanZ(cut.lower, engine.zIsVertical);
    found.axialForce = AxialForce(under, cut);
    const MemberAxes axes = ShearAxes(engine, under.memberPositions, cut.number);
    for (const std::size_t axis : {kX, kZ}) {
        const auto force =
            under.questions.EndForces(cut.number, LowerEnd(cut.startNode, cut.lowerNode),
                                      engine.earthquakeLoadCaseNumber[axis]);
        if (force)
            found.shear[axis] =
                Finite(ShearOf(*force, axes, engine.zIsVertical, engine.inchUnits)[axis]);
        found.drift[axis] = DriftOfOwnNodes(under, cut, axis);
        if (found.drift[axis] && found.height > 0.0)
            found.angle[axis] = Finite(DeformAngle(*found.drift[axis], found.height));
    }
    return found;
}

}  // namespace

std::vector<MemberRecords> StoryMembersOf(const AijCodeRoute2& engine, const StoryInfo& story) {
    std::vector<MemberRecords> members;
    const std::size_t loadCases = engine.loadCaseNumbers.size();
    if (loadCases == 0) return members;
    // A reader that was stopped may have left the records of its last member incomplete.
    const MemberRecords all(story.members);
    for (std::size_t i = 0; i + loadCases <= all.size(); i += loadCases)
        members.push_back(all.subspan(i, loadCases));
    return members;
}

std::vector<MemberFindings> FormStoryMembers(const StoryUnderFindings& under) {
    std::vector<MemberFindings> found;
    for (const MemberRecords& records : StoryMembersOf(under.engine, under.story))
        found.push_back(FormStoryMember(under, records));
    return found;
}

std::vector<MemberFindings> FormCutNotCounted(const StoryUnderFindings& under) {
    std::unordered_set<std::int32_t> counted;
    for (const StoryMember& record : under.story.members)
        counted.insert(record.memberNumber);
    std::vector<MemberFindings> found;
    for (const PlacedMember& cut : under.cut)
        if (!counted.contains(cut.number)) found.push_back(FormNotCounted(under, cut));
    return found;
}
