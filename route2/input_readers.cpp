// The steps that read the Route 2 Input file: each lets one reader go through the file, puts what
// it took into the engine and warns of what stopped it.

#include "input/input_readers.h"

#include <unordered_set>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tested_access.h"

namespace {

void WarnOfUnreadFile(AijCodeRoute2& engine, ReadingEnd end, WarningKind tooManyLines) {
    if (end == ReadingEnd::kNotOpened)
        engine.Warn(WarningKind::kCannotOpenInput, 0, engine.dataFilePath);
    if (end == ReadingEnd::kLineLimit) engine.Warn(tooManyLines);
}

// What the story lines of a keyword set.
struct AllowableValue {
    Keyword keyword;
    double StoryInfo::*field;
    WarningKind noSuchStory;
};

constexpr AllowableValue kAllowableValues[] = {
    {Keyword::kAllowStoryDeformAngle, &StoryInfo::allowDeformAngle,
     WarningKind::kNoSuchStoryForAngle},
    {Keyword::kAllowStoryStiffRatio, &StoryInfo::allowStiffRatio,
     WarningKind::kNoSuchStoryForRatio},
    {Keyword::kAllowStoryEccentricityModulus, &StoryInfo::allowEccentricityModulus,
     WarningKind::kNoSuchStoryForModulus},
};

const AllowableValue& AllowableValueOf(Keyword keyword) {
    const AllowableValue* found = kAllowableValues;
    while (found->keyword != keyword)
        ++found;
    return *found;
}

}  // namespace

bool AijCodeRoute2::SetLoadCaseNumbersWithDataFile() {
    InputFile file(dataFilePath);
    const LoadCaseNumbers read = ReadLoadCaseNumbers(file);
    loadCaseNumbersRead = read.end != ReadingEnd::kNotOpened;
    if (read.dead) deadLoadCaseNumber = read.dead->value;
    if (read.earthquake)
        earthquakeLoadCaseNumber = {(*read.earthquake)[kX].value, (*read.earthquake)[kZ].value};
    WarnOfUnreadFile(*this, read.end, WarningKind::kTooManyLinesForLoadCases);
    return EndsWell(read.end);
}

bool AijCodeRoute2::SetFloorInfoWithDataFile() {
    LogStart(logFile, "floor info with data file");
    InputFile file(dataFilePath);
    const FloorLevelList read = ReadFloorLevels(file);
    for (const Placed<double>& level : read.levels)
        floorLevels.push_back(level.value);
    if (!read.levels.empty()) floorLevelsSet = true;
    WarnOfUnreadFile(*this, read.end, WarningKind::kTooManyLinesForFloors);
    if (EndsWell(read.end)) LogEnd(logFile, "floor info with data file");
    return EndsWell(read.end);
}

bool AijCodeRoute2::SetStoryInfoWithDataFile() {
    LogStart(logFile, "story info with data file");
    InputFile file(dataFilePath);
    const StoryMemberBlock read = ReadStoryMembers(file, stories.size());
    storyMembersFromFile = read.line != 0;
    if (storyMembersFromFile) storyInfoSet = true;
    for (const StoryMemberBlock::Entry& entry : read.entries) {
        StoryInfo& story = At(stories, std::int64_t{entry.story} - 1);
        if (!AddStoryMemberFromDataFile(story, entry.member.value)) return false;
    }
    if (read.end == ReadingEnd::kNoSuchStory) Warn(WarningKind::kNoSuchStoryForMembers);
    WarnOfUnreadFile(*this, read.end, WarningKind::kTooManyLinesForStoryMembers);
    if (EndsWell(read.end)) LogEnd(logFile, "story info with data file");
    return EndsWell(read.end);
}

bool AijCodeRoute2::SetMemberDeformAngleOutputFlag() {
    constexpr const char* kSubject = "output flag of member story deformation angle";
    LogStart(logFile, kSubject);
    // Before the file is opened: also when it cannot be read, no flag of before is left.
    for (StoryInfo& story : stories)
        for (StoryMember& record : story.members)
            record.outputDeformAngle = false;
    InputFile file(dataFilePath);
    const ReportedMemberList read = ReadReportedMembers(file);
    std::unordered_set<std::int32_t> reported;
    for (const Placed<std::int32_t>& member : read.members)
        reported.insert(member.value);
    for (StoryInfo& story : stories)
        for (StoryMember& record : story.members)
            if (reported.contains(record.memberNumber)) record.outputDeformAngle = true;
    WarnOfUnreadFile(*this, read.end, WarningKind::kTooManyLinesForReportedMembers);
    if (EndsWell(read.end)) LogEnd(logFile, kSubject);
    return EndsWell(read.end);
}

bool AijCodeRoute2::SetStoryAllowableValues() {
    LogStart(logFile, "story allowable values");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForAllowableValues)) return false;
    InputFile file(dataFilePath);
    const AllowableValueList read = ReadAllowableValues(file, stories.size());
    for (const AllowableValueList::Entry& entry : read.entries) {
        StoryInfo& story = At(stories, std::int64_t{entry.story} - 1);
        story.*(AllowableValueOf(entry.keyword).field) = entry.value.value;
    }
    if (read.end == ReadingEnd::kNoSuchStory) Warn(AllowableValueOf(read.lastKeyword).noSuchStory);
    WarnOfUnreadFile(*this, read.end, WarningKind::kTooManyLinesForAllowableValues);
    if (EndsWell(read.end)) LogEnd(logFile, "story allowable values");
    return EndsWell(read.end);
}
