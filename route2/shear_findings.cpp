// Story shears: of all members that the cutting plane meets, of the story members, and what the
// story members carry across the direction of the load.

#include <cmath>
#include <unordered_map>

#include "route2/direction_findings.h"
#include "route2/end_forces.h"
#include "route2/member_findings.h"
#include "route2/story_shear.h"

namespace {

// Shears of all members that the plane meets, counted or not, in the host's order.
Figure StoryShear(const StoryUnderFindings& under, const StoryFindings& found, std::size_t axis) {
    std::unordered_map<std::int32_t, Figure> shears;
    for (const MemberFindings& member : found.members)
        shears.try_emplace(member.number, member.shear[axis]);
    for (const MemberFindings& member : found.cutNotCounted)
        shears.try_emplace(member.number, member.shear[axis]);
    double sum = 0.0;
    for (const PlacedMember& cut : under.cut) {
        const Figure& shear = shears[cut.number];
        if (!shear) return std::nullopt;
        sum += *shear;
    }
    return Finite(sum);
}

Figure AcrossShear(const StoryUnderFindings& under, std::size_t axis) {
    const AijCodeRoute2& engine = under.engine;
    const std::size_t across = axis == kX ? kZ : kX;
    double sum = 0.0;
    for (const MemberRecords& records : StoryMembersOf(engine, under.story)) {
        const StoryMember& record = records.front();
        const auto position = under.memberPositions.Last(record.memberNumber);
        if (!position) continue;  // without axes it carries no shear
        const std::int32_t end =
            LowerEnd(engine.memberEndNodes[*position][0], record.lowerNodeNumber);
        const auto force = under.questions.EndForces(record.memberNumber, end,
                                                     engine.earthquakeLoadCaseNumber[axis]);
        if (!force) return std::nullopt;
        sum += ShearOf(*force, {record.axisX, record.axisY, record.axisZ}, engine.zIsVertical,
                       engine.inchUnits)[across];
    }
    return Finite(sum);
}

Figure ShearOfStoryMembers(const StoryFindings& found, std::size_t axis) {
    double sum = 0.0;
    for (const MemberFindings& member : found.members) {
        if (!member.shear[axis]) return std::nullopt;
        sum += *member.shear[axis];
    }
    return sum;
}

Figure Quotient(const Figure& dividend, const Figure& divisor) {
    if (!dividend || !divisor) return std::nullopt;
    return Finite(*dividend / *divisor);
}

Figure Amount(const Figure& figure) {
    if (!figure) return std::nullopt;
    return std::abs(*figure);
}

// Of the top story all of it.
Figure LessThatAbove(const Figure& here, const Figure* above) {
    if (!here || above == nullptr) return here;
    if (!*above) return std::nullopt;
    return Finite(*here - **above);
}

}  // namespace

void FormShears(const StoryUnderFindings& under, StoryFindings& found) {
    if (!under.engine.shearForceSet) return;
    for (const std::size_t axis : {kX, kZ}) {
        DirectionFindings& direction = found.directions[axis];
        direction.storyShear = StoryShear(under, found, axis);
        direction.shearOfStoryMembers = ShearOfStoryMembers(found, axis);
        direction.acrossShear = AcrossShear(under, axis);
        direction.share = Quotient(direction.shearOfStoryMembers, direction.storyShear);
        direction.acrossShare =
            Quotient(Amount(direction.acrossShear), Amount(direction.shearOfStoryMembers));
        if (under.story.weightAbove)
            direction.shearCoefficient =
                Quotient(direction.storyShear, Finite(*under.story.weightAbove));
    }
}

void FormFloorDifferences(std::vector<StoryFindings>& stories) {
    for (std::size_t i = 0; i < stories.size(); ++i) {
        StoryFindings& story = stories[i];
        const StoryFindings* const above = i + 1 < stories.size() ? &stories[i + 1] : nullptr;
        story.floorWeight = LessThatAbove(story.weightAbove, above ? &above->weightAbove : nullptr);
        for (const std::size_t axis : {kX, kZ}) {
            DirectionFindings& direction = story.directions[axis];
            direction.floorForce = LessThatAbove(
                direction.storyShear, above ? &above->directions[axis].storyShear : nullptr);
        }
    }
}
