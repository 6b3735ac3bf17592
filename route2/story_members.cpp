// Stories and their members: the members that the input file names, or else those that run from a
// story's lower floor to its upper one.

#include "route2/story_members.h"

#include <cmath>
#include <utility>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tolerances.h"

bool RunsBetweenFloors(const StoryInfo& story, double lowerHeight, double upperHeight) {
    return std::abs(story.lowerLevel - lowerHeight) < kSameLevel &&
           std::abs(story.upperLevel - upperHeight) < kSameLevel;
}

StoryMember MakeStoryMember(std::int32_t member, std::int32_t lowerNode, std::int32_t upperNode,
                            const Vec3& lowerPoint, bool zIsVertical) {
    StoryMember record;
    record.memberNumber = member;
    record.lowerNodeNumber = lowerNode;
    record.upperNodeNumber = upperNode;
    record.planX = lowerPoint.x;
    record.planZ = PlanZ(lowerPoint, zIsVertical);
    return record;
}

void AddForEachLoadCase(StoryInfo& story, StoryMember record,
                        const std::vector<std::int32_t>& loadCaseNumbers) {
    for (const std::int32_t loadCase : loadCaseNumbers) {
        record.loadCaseNumber = loadCase;
        story.members.push_back(record);
    }
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
        const std::int32_t upperNode = SetUpperNodeNumber(member);
        const std::int32_t lowerNode = SetLowerNodeNumber(member);
        const auto lower = nodePositions_.First(lowerNode);
        if (!lower) {
            Warn(WarningKind::kNodeMissingForNamedStoryMember);
            return false;
        }
        story.members.push_back(
            MakeStoryMember(member, lowerNode, upperNode, nodeCoords[*lower], zIsVertical));
        story.members.back().loadCaseNumber = loadCase;
    }
    return true;
}

bool AijCodeRoute2::SetStoryMember() {
    for (StoryInfo& story : stories) {
        std::vector<StoryMember> found;
        const bool allNodesFound = FindStoryMembers(story, found);
        story.members.reserve(found.size() * loadCaseNumbers.size());
        for (const StoryMember& record : found)
            AddForEachLoadCase(story, record, loadCaseNumbers);
        if (!allNodesFound) {
            Warn(WarningKind::kNodeMissingForStoryMember);
            return false;
        }
    }
    storyInfoSet = true;
    return true;
}

bool AijCodeRoute2::FindStoryMembers(const StoryInfo& story, std::vector<StoryMember>& found) {
    for (const std::int32_t member : memberNumbers) {
        const MemberEnds ends = AskMemberEnds(*hostLink, member, Nodes());
        if (!ends.BothFound()) return false;
        const EndHeights heights = HeightsOf(ends, Nodes());
        // Ties included, the start node is the lower one here.
        const bool startIsUpper = heights.start > heights.end;
        const double lowerHeight = startIsUpper ? heights.end : heights.start;
        const double upperHeight = startIsUpper ? heights.start : heights.end;
        if (!RunsBetweenFloors(story, lowerHeight, upperHeight)) continue;
        const std::size_t lower = startIsUpper ? *ends.end : *ends.start;
        found.push_back(MakeStoryMember(member, startIsUpper ? ends.endNode : ends.startNode,
                                        startIsUpper ? ends.startNode : ends.endNode,
                                        nodeCoords[lower], zIsVertical));
    }
    return true;
}
