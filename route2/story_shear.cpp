// Story shear force and horizontal stiffness of every story member, and the local axes that they
// need.

#include "route2/story_shear.h"

#include "host/units.h"
#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tested_access.h"

Vec3 GlobalForce(const SixDoubles& force, const StoryMember& record) {
    const Vec3& x = record.axisX;
    const Vec3& y = record.axisY;
    const Vec3& z = record.axisZ;
    return {force[0] * x.x + force[1] * y.x + force[2] * z.x,
            force[0] * x.y + force[1] * y.y + force[2] * z.y,
            force[0] * x.z + force[1] * y.z + force[2] * z.z};
}

double HorizontalStiffness(double shearForce, double relativeDisp) {
    return relativeDisp == 0.0 ? 0.0 : shearForce / relativeDisp;
}

bool AijCodeRoute2::SetStoryMemberBaseVector() {
    LogStart(logFile, "story member base vector");
    if (!RequireStoryInfo("member base vector")) return false;
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
    // The warning names the base vector, as in the step above: intended.
    if (!RequireStoryInfo("member base vector")) return;

    // The force that the member exerts at its lower end, turned into the shear that it carries.
    const double shearPerForce = inchUnits ? -kKnPerKip : -1.0;
    for (StoryInfo& story : stories) {
        for (StoryMember& record : story.members) {
            const std::int32_t member = record.memberNumber;
            std::int32_t startNode = 0, endNode = 0;
            hostLink->GetMemberIncidence(member, startNode, endNode);
            const std::int32_t lowerEnd = startNode == record.lowerNodeNumber ? 0 : 1;

            SixDoubles force{};
            hostLink->GetMemberEndForces(member, lowerEnd, earthquakeLoadCaseNumber[kX], force);
            record.shearForce[kX] = GlobalForce(force, record).x * shearPerForce;
            hostLink->GetMemberEndForces(member, lowerEnd, earthquakeLoadCaseNumber[kZ], force);
            record.shearForce[kZ] = PlanZ(GlobalForce(force, record)) * shearPerForce;
        }
    }
    LogEnd(logFile, "story member shear force");
}

bool AijCodeRoute2::SetStoryMemberHorizontalStiffness() {
    LogStart(logFile, "story member horizontal stiffness");
    if (!RequireStoryInfo("story member horizontal stiffness")) return false;
    for (StoryInfo& story : stories) {
        for (StoryMember& record : story.members) {
            // X first: with equal earthquake case numbers no Z(or Y) stiffness is ever formed.
            if (record.loadCaseNumber == earthquakeLoadCaseNumber[kX])
                record.horizontalStiffness[kX] =
                    HorizontalStiffness(record.shearForce[kX], record.relativeDisp[kX]);
            else if (record.loadCaseNumber == earthquakeLoadCaseNumber[kZ])
                record.horizontalStiffness[kZ] =
                    HorizontalStiffness(record.shearForce[kZ], record.relativeDisp[kZ]);
            else
                record.horizontalStiffness = {0.0, 0.0};
        }
    }
    LogEnd(logFile, "story member horizontal stiffness");
    return true;
}
