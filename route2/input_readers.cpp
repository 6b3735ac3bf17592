// The five readers of the Route 2 Input file. Each reads the whole file for its own keywords.

#include <unordered_set>

#include "input/input_file.h"
#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tested_access.h"

bool AijCodeRoute2::SetLoadCaseNumbersWithDataFile() {
    return ReadInputFile(logFile, dataFilePath, "Data file line number is too large.",
                         [this](InputFile& line) {
                             if (line.Keyword() == "DeadLoadCaseNumber")
                                 deadLoadCaseNumber = ToInteger(line.Value(1));
                             else if (line.Keyword() == "EarthquakeLoadCaseNumber")
                                 earthquakeLoadCaseNumber = ReadEarthquakeLoadCaseNumbers(line);
                             return LineResult::kGoOn;
                         });
}

bool AijCodeRoute2::SetFloorInfoWithDataFile() {
    LogStart(logFile, "floor info with data file");
    const bool isRead =
        ReadInputFile(logFile, dataFilePath,
                      "Data file line number is too large as setting floor info with data file.",
                      [this](InputFile& line) {
                          if (line.Keyword() != "FloorLevel") return LineResult::kGoOn;
                          for (std::size_t k = 1; k < line.ListEnd(); ++k) {
                              floorLevels.push_back(ToReal(line.Value(k)));
                              floorLevelsSet = true;
                          }
                          return LineResult::kFinish;
                      });
    if (isRead) LogEnd(logFile, "floor info with data file");
    return isRead;
}

bool AijCodeRoute2::SetStoryInfoWithDataFile() {
    LogStart(logFile, "story info with data file");
    bool isInside = false;
    const auto processLine = [&](InputFile& line) {
        if (line.Keyword() == "StoryMember") {
            isInside = true;
            storyInfoSet = true;
            return LineResult::kGoOn;
        }
        if (!isInside) return LineResult::kGoOn;
        if (!line.StartsWithStoryNumber()) return LineResult::kFinish;

        const std::int32_t story = ToInteger(line.Keyword());
        if (story > static_cast<std::int64_t>(stories.size())) {
            Warn(WarningKind::kNoSuchStoryForMembers);
            return LineResult::kFail;
        }
        for (std::size_t k = 1; k < line.ListEnd(); ++k) {
            const std::int32_t member = ToInteger(line.Value(k));
            if (!AddStoryMemberFromDataFile(At(stories, std::int64_t{story} - 1), member))
                return LineResult::kFail;
        }
        return LineResult::kGoOn;
    };
    const bool isRead = ReadInputFile(
        logFile, dataFilePath,
        // The stray "n" is part of the text.
        "nData file line number is too large as setting story member with data file.", processLine);
    if (isRead) LogEnd(logFile, "story info with data file");
    return isRead;
}

bool AijCodeRoute2::SetMemberDeformAngleOutputFlag() {
    constexpr const char* kSubject = "output flag of member story deformation angle";
    LogStart(logFile, kSubject);
    // Before the file is opened: also when it cannot be read, no flag of before is left.
    for (StoryInfo& story : stories)
        for (StoryMember& record : story.members)
            record.outputDeformAngle = false;
    std::unordered_set<std::int32_t> reported;
    const bool isRead =
        ReadInputFile(logFile, dataFilePath,
                      "Data file line number is too large as setting story members' output flag.",
                      [&](InputFile& line) {
                          if (line.Keyword() != "MemberDeformAngle") return LineResult::kGoOn;
                          for (std::size_t k = 1; k < line.ListEnd(); ++k)
                              reported.insert(ToInteger(line.Value(k)));
                          return LineResult::kFinish;
                      });
    for (StoryInfo& story : stories)
        for (StoryMember& record : story.members)
            if (reported.contains(record.memberNumber)) record.outputDeformAngle = true;
    if (isRead) LogEnd(logFile, kSubject);
    return isRead;
}

namespace {

// A keyword whose story lines each give one allowable value of one story.
struct AllowableValue {
    const char* keyword;
    double StoryInfo::*field;
    WarningKind noSuchStory;
};

constexpr AllowableValue kAllowableValues[] = {
    {"AllowStoryDeformAngle", &StoryInfo::allowDeformAngle, WarningKind::kNoSuchStoryForAngle},
    {"AllowStoryStiffRatio", &StoryInfo::allowStiffRatio, WarningKind::kNoSuchStoryForRatio},
    {"AllowStoryEccentricityModulus", &StoryInfo::allowEccentricityModulus,
     WarningKind::kNoSuchStoryForModulus},
};

const AllowableValue* FindAllowableValue(const std::string& keyword) {
    for (const AllowableValue& value : kAllowableValues)
        if (keyword == value.keyword) return &value;
    return nullptr;
}

}  // namespace

bool AijCodeRoute2::SetStoryAllowableValues() {
    LogStart(logFile, "story allowable values");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForAllowableValues)) return false;

    const AllowableValue* current = nullptr;
    const auto processLine = [&](InputFile& line) {
        if (const AllowableValue* named = FindAllowableValue(line.Keyword())) {
            current = named;
            return LineResult::kGoOn;
        }
        if (!line.StartsWithStoryNumber()) current = nullptr;
        if (current == nullptr) return LineResult::kGoOn;

        const std::int32_t story = ToInteger(line.Keyword());
        if (story > static_cast<std::int64_t>(stories.size())) {
            Warn(current->noSuchStory);
            return LineResult::kFail;
        }
        At(stories, std::int64_t{story} - 1).*(current->field) = ToReal(line.Value(1));
        return LineResult::kGoOn;
    };
    const bool isRead = ReadInputFile(
        logFile, dataFilePath,
        "Data file line number is too large as setting story allowable values.", processLine);
    if (isRead) LogEnd(logFile, "story allowable values");
    return isRead;
}
