// Floor levels and stories: from the input file, or else from the host's members.

#include <algorithm>
#include <cmath>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tested_access.h"

namespace {

constexpr double kEqualLevel = 0.1;  // mm; levels closer than this count as one height

}  // namespace

AijCodeRoute2::MemberEnds AijCodeRoute2::AskMemberEnds(std::int32_t member) {
    MemberEnds ends{};
    hostLink->GetMemberIncidence(member, ends.startNode, ends.endNode);
    ends.start = nodePositions_.First(ends.startNode);
    ends.end = nodePositions_.First(ends.endNode);
    return ends;
}

AijCodeRoute2::EndHeights AijCodeRoute2::AskEndHeights(std::int32_t member, const char* purpose) {
    const MemberEnds ends = AskMemberEnds(member);
    if (!ends.BothFound()) {
        LogWarning(logFile,
                   std::string("Node number is not set correctly as setting ") + purpose + "...");
        ThrowInvalidSubscript();
    }
    return {ends.startNode, ends.endNode, Vertical(nodeCoords[*ends.start]),
            Vertical(nodeCoords[*ends.end])};
}

bool AijCodeRoute2::GetFloorLevelOfMember(std::int32_t member, double& level) {
    const EndHeights ends = AskEndHeights(member, "floor");
    if (!(std::abs(ends.start - ends.end) < kEqualLevel)) return false;
    level = ends.start;
    return true;
}

std::int32_t AijCodeRoute2::SetLowerNodeNumber(std::int32_t member) {
    const EndHeights ends = AskEndHeights(member, "lower node number");
    return ends.end > ends.start ? ends.startNode : ends.endNode;
}

std::int32_t AijCodeRoute2::SetUpperNodeNumber(std::int32_t member) {
    const EndHeights ends = AskEndHeights(member, "upper node number");
    return ends.start > ends.end ? ends.startNode : ends.endNode;
}

double AijCodeRoute2::SetMemberHeight(std::int32_t member) {
    const EndHeights ends = AskEndHeights(member, "member height");
    return std::abs(ends.start - ends.end);
}

void AijCodeRoute2::SetFloorInfo() {
    LogStart(logFile, "floor info");
    SetFloorInfoWithDataFile();
    if (!floorLevelsSet) DeriveFloorLevels();

    // A stable sort, because it stays within the vector even when a level of the file is not a
    // number.
    std::stable_sort(floorLevels.begin(), floorLevels.end());
    // Exactly equal levels only: two beam levels that differ by however little are two floors.
    floorLevels.erase(std::unique(floorLevels.begin(), floorLevels.end()), floorLevels.end());

    LogFloorLevels();
    LogEnd(logFile, "floor info");
}

void AijCodeRoute2::DeriveFloorLevels() {
    floorLevels.push_back(baseLevel);
    for (const std::int32_t member : memberNumbers) {
        double level = 0.0;
        if (GetFloorLevelOfMember(member, level) && level > floorLevels.front())
            floorLevels.push_back(level);
    }
    floorLevelsSet = true;
}

void AijCodeRoute2::LogFloorLevels() {
    Print(logFile, "Floor info. :\n");
    for (std::size_t i = 0; i < floorLevels.size(); ++i)
        Print(logFile, "  %d-th floor level(mm) = %.2f\n", static_cast<int>(i + 1), floorLevels[i]);
}

void AijCodeRoute2::SetStoryInfo() {
    LogStart(logFile, "story info");
    CreateStories();
    SetStoryInfoWithDataFile();
    if (!storyInfoSet) SetStoryMember();
    SetMemberDeformAngleOutputFlag();
    SetStoryAllowableValues();
    SetStoryMemberBaseVector();
    // The only end line with an empty line before it.
    Print(logFile, "\n");
    LogEnd(logFile, "story info");
}

void AijCodeRoute2::CreateStories() {
    for (std::size_t i = 0; i + 1 < floorLevels.size(); ++i) {
        StoryInfo story;
        story.allowDeformAngle = allowStoryDeformAngle;
        story.allowStiffRatio = allowStoryStiffRatio;
        story.allowEccentricityModulus = allowStoryEccentricityModulus;
        story.lowerLevel = floorLevels[i];
        story.upperLevel = floorLevels[i + 1];
        stories.push_back(std::move(story));
    }
}

bool AijCodeRoute2::AddStoryMemberFromDataFile(StoryInfo& story, std::int32_t member) {
    for (const std::int32_t loadCase : loadCaseNumbers) {
        StoryMember record;
        record.loadCaseNumber = loadCase;
        record.memberNumber = member;
        record.upperNodeNumber = SetUpperNodeNumber(member);
        record.lowerNodeNumber = SetLowerNodeNumber(member);
        const auto lower = nodePositions_.First(record.lowerNodeNumber);
        if (!lower) {
            LogWarning(logFile,
                       "Node number is not set correctly. Stops setting story member with data "
                       "file...");
            return false;
        }
        record.planX = nodeCoords[*lower].x;
        record.planZ = PlanZ(nodeCoords[*lower]);
        story.members.push_back(record);
    }
    return true;
}

bool AijCodeRoute2::SetStoryMember() {
    for (StoryInfo& story : stories) {
        std::vector<StoryMember> found;
        const bool allNodesFound = FindStoryMembers(story, found);
        story.members.reserve(found.size() * loadCaseNumbers.size());
        for (StoryMember& record : found) {
            for (const std::int32_t loadCase : loadCaseNumbers) {
                record.loadCaseNumber = loadCase;
                story.members.push_back(record);
            }
        }
        if (!allNodesFound) {
            LogWarning(logFile, "Node number is not set correctly. Stops setting story member...");
            return false;
        }
    }
    storyInfoSet = true;
    return true;
}

bool AijCodeRoute2::FindStoryMembers(const StoryInfo& story, std::vector<StoryMember>& found) {
    for (const std::int32_t member : memberNumbers) {
        const MemberEnds ends = AskMemberEnds(member);
        if (!ends.BothFound()) return false;
        const Vec3& start = nodeCoords[*ends.start];
        const Vec3& end = nodeCoords[*ends.end];
        const bool startIsUpper = Vertical(start) > Vertical(end);
        const Vec3& lower = startIsUpper ? end : start;
        const Vec3& upper = startIsUpper ? start : end;
        if (!(std::abs(story.lowerLevel - Vertical(lower)) < kEqualLevel &&
              std::abs(story.upperLevel - Vertical(upper)) < kEqualLevel))
            continue;

        StoryMember record;
        record.memberNumber = member;
        record.lowerNodeNumber = startIsUpper ? ends.endNode : ends.startNode;
        record.upperNodeNumber = startIsUpper ? ends.startNode : ends.endNode;
        record.planX = lower.x;
        record.planZ = PlanZ(lower);
        found.push_back(record);
    }
    return true;
}
