// The five readers of the Route 2 Input file, over a small building. The bytes are the file; a
// line FIN is added at its end, because without one no reader but the first ever runs, unless the
// bytes end with "!". What the readers leave in the engine is compared with a second reading.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "host/recorded_host.h"
#include "report/results_csv.h"
#include "route2/aij_code_route2.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reference_reader.h"
#include "tests/fuzz/text_model.h"
#include "tests/support/test_folder.h"

namespace {

// Two stories of 3.5 and 3 m, four columns each, a beam per floor, one column over both stories.
constexpr const char* kBuilding =
    "node 1 0 0 0 s\nnode 2 6 0 0 s\nnode 3 0 0 5 s\nnode 4 6 0 5 s\n"
    "node 5 0 3.5 0\nnode 6 6 3.5 0\nnode 7 0 3.5 5\nnode 8 6 3.5 5\n"
    "node 9 0 6.5 0\nnode 10 6 6.5 0\nnode 11 0 6.5 5\nnode 12 6 6.5 5\n"
    "member 1 1 5\nmember 2 2 6\nmember 3 7 3\nmember 4 4 8\n"
    "member 5 5 9\nmember 6 6 10\nmember 7 7 11\nmember 8 12 8\n"
    "member 9 5 6\nmember 10 9 10\nmember 11 1 9\n"
    "load 1\nload 2\ncomb 101\n";
constexpr std::size_t kLoadCases = 3;

// The bits, so that a value that is not a number equals itself.
bool SameValue(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

void CheckLoadCases(const AijCodeRoute2& engine, const ReferenceInput& reference) {
    Check(engine.deadLoadCaseNumber == reference.deadLoadCase, "dead load case");
    Check(engine.earthquakeLoadCaseNumber == reference.earthquakeLoadCases,
          "earthquake load cases");
}

void CheckFloorLevels(const AijCodeRoute2& engine, const ReferenceInput& reference) {
    if (reference.floorLevels.empty()) {
        Check(engine.floorLevels == std::vector<double>{0.0, 3500.0, 6500.0}, "derived levels");
        return;
    }
    for (const double level : reference.floorLevels)
        if (std::isnan(level)) return;  // no order to speak of
    for (std::size_t i = 1; i < engine.floorLevels.size(); ++i)
        Check(engine.floorLevels[i - 1] < engine.floorLevels[i], "levels ascend");
    for (const double level : engine.floorLevels)
        Check(std::count(reference.floorLevels.begin(), reference.floorLevels.end(), level) > 0,
              "a level of the file");
    for (const double level : reference.floorLevels)
        Check(std::count(engine.floorLevels.begin(), engine.floorLevels.end(), level) == 1,
              "every level once");
}

void CheckRecords(const AijCodeRoute2& engine, const ReferenceInput& reference) {
    for (const StoryInfo& story : engine.stories) {
        Check(story.members.size() % kLoadCases == 0, "a record per load case");
        for (std::size_t i = 0; i < story.members.size(); ++i) {
            const StoryMember& record = story.members[i];
            Check(record.loadCaseNumber == engine.loadCaseNumbers[i % kLoadCases],
                  "records in the order of the load cases");
            Check(
                record.outputDeformAngle == reference.reportedMembers.contains(record.memberNumber),
                "output flag of member " + std::to_string(record.memberNumber));
        }
    }
}

void CheckAllowables(const AijCodeRoute2& engine, const ReferenceInput& reference) {
    struct Expected {
        double angle = 0.005, ratio = 0.6, modulus = 0.15;
    };
    std::vector<Expected> expected(engine.stories.size());
    for (const auto& [keyword, story, value] : reference.allowables) {
        Expected& ofStory = expected.at(static_cast<std::size_t>(story) - 1);
        if (keyword == "AllowStoryDeformAngle") ofStory.angle = value;
        if (keyword == "AllowStoryStiffRatio") ofStory.ratio = value;
        if (keyword == "AllowStoryEccentricityModulus") ofStory.modulus = value;
    }
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const StoryInfo& story = engine.stories[i];
        Check(SameValue(story.allowDeformAngle, expected[i].angle), "allowable angle");
        Check(SameValue(story.allowStiffRatio, expected[i].ratio), "allowable ratio");
        Check(SameValue(story.allowEccentricityModulus, expected[i].modulus), "allowable modulus");
    }
}

// Steps of a run up to the stories, as the run calls them. False when the run would have ended.
bool RunReaders(AijCodeRoute2& engine) {
    if (!engine.SetLoadCaseNumbersWithDataFile()) return false;
    engine.SetLoadInfo();
    engine.SetNodeInfo();
    engine.SetMemberInfo();
    engine.SetFloorInfo();
    engine.SetStoryInfo();
    return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    static const RecordedModel model = ReadTextModel(kBuilding);

    std::string file(reinterpret_cast<const char*>(data), size);
    if (!file.ends_with('!')) file += "\nFIN\n";
    RecordedHost host(model, folder.Path("model.qhm"));
    AijCodeRoute2 engine(&host, WriteResultRows);
    engine.dataFilePath = folder.Write("input.csv", file);
    engine.logFile = std::fopen(folder.Path("log.txt").c_str(), "w");
    Check(engine.logFile != nullptr, "the log opens");

    bool isRead = false;
    bool hostRefuses = false;
    try {
        isRead = RunReaders(engine);
    } catch (const HostCallError&) {
        hostRefuses = true;  // the file names a member that the building does not have
    }
    Check(std::fclose(engine.logFile) == 0, "the log closes");

    const ReferenceInput reference = ReadReference(file, engine.stories.size());
    Check((isRead || hostRefuses) == reference.hasFin, "FIN is found");
    if (!reference.hasFin) return 0;
    CheckLoadCases(engine, reference);
    CheckFloorLevels(engine, reference);
    if (!isRead) return 0;
    CheckRecords(engine, reference);
    CheckAllowables(engine, reference);
    return 0;
}
