// Centres, torsional stiffness and eccentricity moduli of a story. A figure that rests on a
// fallback of the results is not formed, and then there is no verdict.

#include <cmath>
#include <unordered_map>

#include "route2/direction_findings.h"
#include "route2/eccentricity_modulus.h"
#include "route2/gravity_center.h"
#include "route2/rigidity_center.h"
#include "route2/tolerances.h"

namespace {

void FormCenters(const StoryUnderFindings& under, const StiffnessSums& sums, StoryFindings& found) {
    const StoryInfo& story = under.story;
    if (story.weightAbove) found.weightAbove = Finite(*story.weightAbove);
    const bool hasWeight = story.weightAbove && HasWeight({.weight = *story.weightAbove});
    if (hasWeight)
        found.gravityCenter = {Finite(story.gravityCenter[kX]), Finite(story.gravityCenter[kZ])};
    if (!under.engine.rigidityCenterSet) return;
    // Each coordinate rests on the stiffness across it.
    if (HasStiffness(sums.kz)) found.rigidityCenter[kX] = Finite(story.rigidityCenter[kX]);
    if (HasStiffness(sums.kx)) found.rigidityCenter[kZ] = Finite(story.rigidityCenter[kZ]);
}

// The weight's moments about the axes, from the forces that the centre of gravity is weighed with.
std::array<Figure, 2> WeightMoment(const StoryUnderFindings& under, const StoryFindings& found) {
    std::unordered_map<std::int32_t, Figure> forces;
    for (const auto* members : {&found.members, &found.cutNotCounted})
        for (const MemberFindings& member : *members)
            forces.try_emplace(member.number, member.axialForce);
    double alongX = 0.0, alongV = 0.0;
    for (const PlacedMember& cut : under.cut) {
        const Figure& force = forces[cut.number];
        if (!force) return {};
        alongX += *force * cut.lower.x;
        alongV += *force * PlanZ(cut.lower, under.engine.zIsVertical);
    }
    return {Finite(alongX), Finite(alongV)};
}

// The coordinate that a direction's stiffness is weighted with: it lies across the direction.
double Across(const MemberFindings& member, std::size_t axis) {
    return axis == kX ? member.v : member.x;
}

void FormWeightMoments(std::vector<MemberFindings>& members) {
    for (MemberFindings& member : members)
        if (member.axialForce)
            member.weightMoment = {Finite(*member.axialForce * member.x),
                                   Finite(*member.axialForce * member.v)};
}

void FormMemberMoments(StoryFindings& found) {
    FormWeightMoments(found.members);
    FormWeightMoments(found.cutNotCounted);
    for (MemberFindings& member : found.members)
        for (const std::size_t axis : {kX, kZ}) {
            if (!member.stiffness[axis]) continue;
            const double stiffness = *member.stiffness[axis];
            member.stiffnessMoment[axis] = Finite(stiffness * Across(member, axis));
            const Figure& center = found.rigidityCenter[axis == kX ? kZ : kX];
            if (!center) continue;
            const double arm = Across(member, axis) - *center;
            member.torsionalPart[axis] = Finite(stiffness * arm * arm);
        }
}

void FormMoments(const StoryUnderFindings& under, const StiffnessSums& sums, StoryFindings& found) {
    FormMemberMoments(found);
    if (found.weightAbove) found.weightMoment = WeightMoment(under, found);
    const double moments[] = {sums.kxTimesZ, sums.kzTimesX};
    const TorsionalStiffness torsion =
        SumTorsionalStiffness(under.story, under.engine.earthquakeLoadCaseNumber);
    for (const std::size_t axis : {kX, kZ}) {
        DirectionFindings& direction = found.directions[axis];
        if (direction.stiffness) direction.stiffnessMoment = Finite(moments[axis]);
        if (found.torsionalStiffness) direction.torsionalPart = Finite(torsion.parts[axis]);
    }
}

Figure Eccentricity(const StoryFindings& found, const StoryInfo& story, std::size_t axis) {
    const std::size_t across = axis == kX ? kZ : kX;
    if (!found.gravityCenter[across] || !found.rigidityCenter[across]) return std::nullopt;
    return Finite(std::abs(EccentricityAcross(story)[axis]));
}

Figure Radius(const StoryFindings& found, std::size_t axis) {
    const Figure& stiffness = found.directions[axis].stiffness;
    if (!found.torsionalStiffness || !HasTorsionalStiffness(*found.torsionalStiffness))
        return std::nullopt;
    if (!stiffness || !HasStiffness(*stiffness)) return std::nullopt;
    return Finite(ElasticRadius(*found.torsionalStiffness, *stiffness));
}

// What keeps a story without a modulus, in both directions.
std::optional<WhyUndetermined> WhyNoModulus(const StoryUnderFindings& under,
                                            const StoryFindings& found, const StiffnessSums& sums) {
    if (!under.engine.eccentricityModulusSet) return WhyUndetermined::kRunEndedEarly;
    if (!under.BothCasesExist()) return WhyUndetermined::kCaseNotInModel;
    if (under.CasesAreEqual()) return WhyUndetermined::kEqualCases;
    if (found.members.empty()) return WhyUndetermined::kNoStoryMembers;
    if (!under.story.weightAbove || std::abs(*under.story.weightAbove) < kNearlyZero)
        return WhyUndetermined::kNoWeight;
    if (std::abs(sums.kx) < kNearlyZero || std::abs(sums.kz) < kNearlyZero)
        return WhyUndetermined::kNoStiffness;
    if (!found.torsionalStiffness) return WhyUndetermined::kNotFinite;
    if (!(*found.torsionalStiffness > kNearlyZero)) return WhyUndetermined::kNoTorsionalStiffness;
    return std::nullopt;
}

void FormModulus(const StoryUnderFindings& under, std::size_t axis, StoryFindings& found) {
    DirectionFindings& direction = found.directions[axis];
    const double modulus = under.story.eccentricityModulus[axis];
    if (under.rowsStand) {
        direction.eccentricityTool =
            JudgeEccentricityModulus(modulus, under.story.allowEccentricityModulus);
        direction.results.eccentricityModulus = modulus;
    }
    direction.eccentricity = Eccentricity(found, under.story, axis);
    direction.elasticRadius = Radius(found, axis);
    if (direction.eccentricity && direction.elasticRadius)
        direction.toLimit =
            Finite(kCodeEccentricityModulus * *direction.elasticRadius - *direction.eccentricity);
    if (direction.eccentricity && direction.elasticRadius)
        direction.eccentricityModulus = Finite(modulus);
    if (direction.eccentricityModulus)
        direction.modulusUtilisation =
            Finite(*direction.eccentricityModulus / kCodeEccentricityModulus);
}

void JudgeModulus(const std::optional<WhyUndetermined>& why, DirectionFindings& direction) {
    direction.eccentricityWhy = why;
    if (why) return;
    direction.eccentricityCode = JudgeModulusByCode(direction.eccentricityModulus);
    if (direction.eccentricityCode == CodeVerdict::kUndetermined)
        direction.eccentricityWhy = WhyUndetermined::kNotFinite;
}

}  // namespace

void FormEccentricity(const StoryUnderFindings& under, StoryFindings& found) {
    const EarthquakeCases& cases = under.engine.earthquakeLoadCaseNumber;
    const StiffnessSums sums = SumStiffness(under.story.members, cases);
    const double totals[] = {sums.kx, sums.kz};
    for (const std::size_t axis : {kX, kZ})
        if (under.engine.stiffnessSet && under.casePosition[axis] &&
            !(axis == kZ && under.CasesAreEqual()))
            found.directions[axis].stiffness = Finite(totals[axis]);
    FormCenters(under, sums, found);
    if (found.rigidityCenter[kX] && found.rigidityCenter[kZ])
        found.torsionalStiffness = Finite(SumTorsionalStiffness(under.story, cases).kr);
    FormMoments(under, sums, found);
    for (const std::size_t axis : {kX, kZ})
        FormModulus(under, axis, found);
    const auto why = WhyNoModulus(under, found, sums);
    for (DirectionFindings& direction : found.directions)
        JudgeModulus(why, direction);
    if (!under.rowsStand) return;
    found.gravityCenterOfResults = under.story.gravityCenter;
    found.rigidityCenterOfResults = under.story.rigidityCenter;
}
