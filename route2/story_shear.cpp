// Story shear force and horizontal stiffness of every story member, and the local axes that they
// need.

#include "route2/story_shear.h"

#include "host/units.h"
#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/end_forces.h"
#include "route2/tested_access.h"

double ShearPerForce(bool inchUnits) {
    return inchUnits ? -kKnPerKip : -1.0;
}

PerDirection ShearOf(const SixDoubles& force, const MemberAxes& axes, bool zIsVertical,
                     bool inchUnits) {
    const Vec3 global = GlobalForce(force, axes);
    const double factor = ShearPerForce(inchUnits);
    return {global.x * factor, PlanZ(global, zIsVertical) * factor};
}

double HorizontalStiffness(double shearForce, double relativeDisp) {
    return relativeDisp == 0.0 ? 0.0 : shearForce / relativeDisp;
}

void SetHorizontalStiffness(StoryMember& record, const EarthquakeCases& cases) {
    if (record.loadCaseNumber == cases[kX])
        record.horizontalStiffness[kX] =
            HorizontalStiffness(record.shearForce[kX], record.relativeDisp[kX]);
    else if (record.loadCaseNumber == cases[kZ])
        record.horizontalStiffness[kZ] =
            HorizontalStiffness(record.shearForce[kZ], record.relativeDisp[kZ]);
    else
        record.horizontalStiffness = {0.0, 0.0};
}

bool AijCodeRoute2::SetStoryMemberBaseVector() {
    LogStart(logFile, "story member base vector");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForBaseVector)) return false;
    const NumberIndex memberPositions(memberNumbers);
    for (StoryInfo& story : stories) {
        for (StoryMember& record : story.members) {
            // Of a number that stands twice among the members, the last one counts. A member
            // that is not among them keeps axes of zero, hence no shear and no stiffness.
            const auto position = memberPositions.Last(record.memberNumber);
            if (!position) continue;
            record.axisX = At(memberAxisX, *position);
            record.axisY = At(memberAxisY, *position);
            record.axisZ = At(memberAxisZ, *position);
        }
    }
    LogEnd(logFile, "story member base vector");
    return true;
}

void AijCodeRoute2::SetStoryMemberShearForce() {
    LogStart(logFile, "story member shear force");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForShear)) return;
    for (StoryInfo& story : stories) {
        for (StoryMember& record : story.members) {
            const std::int32_t member = record.memberNumber;
            std::int32_t startNode = 0, endNode = 0;
            hostLink->GetMemberIncidence(member, startNode, endNode);
            const std::int32_t end = LowerEnd(startNode, record.lowerNodeNumber);
            const MemberAxes axes{record.axisX, record.axisY, record.axisZ};
            for (const std::size_t axis : {kX, kZ}) {
                SixDoubles force{};
                hostLink->GetMemberEndForces(member, end, earthquakeLoadCaseNumber[axis], force);
                record.shearForce[axis] = ShearOf(force, axes, zIsVertical, inchUnits)[axis];
            }
        }
    }
    shearForceSet = true;
    LogEnd(logFile, "story member shear force");
}

bool AijCodeRoute2::SetStoryMemberHorizontalStiffness() {
    LogStart(logFile, "story member horizontal stiffness");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForStiffness)) return false;
    for (StoryInfo& story : stories)
        for (StoryMember& record : story.members)
            SetHorizontalStiffness(record, earthquakeLoadCaseNumber);
    stiffnessSet = true;
    LogEnd(logFile, "story member horizontal stiffness");
    return true;
}
