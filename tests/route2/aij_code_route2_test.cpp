// The engine before its first step: initial values, file names, the log.

#include "route2/aij_code_route2.h"
#include "report/results_csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/fake_host.h"
#include "tests/support/test_folder.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

// An engine that a test initialises on files in a folder of its own; closes the log it opened.
struct FreshEngine {
    explicit FreshEngine(const std::string& input = "FIN\n")
        : inputPath(folder.Write("input.csv", input)), engine(&host, WriteResultRows) {}
    ~FreshEngine() { CloseLog(); }

    bool Initialize(const std::string& modelPath) {
        return engine.Initialize(modelPath, inputPath, logPathOut, resultPathOut);
    }
    void CloseLog() {
        if (engine.logFile != nullptr) std::fclose(engine.logFile);
        engine.logFile = nullptr;
    }

    TestFolder folder;
    std::string inputPath;
    FakeHost host;
    AijCodeRoute2 engine;
    std::string logPathOut = "untouched";
    std::string resultPathOut = "untouched";
};

// Makes a folder the current one for as long as it lives.
class InFolder {
public:
    explicit InFolder(const std::string& path) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    ~InFolder() { std::filesystem::current_path(before_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    std::filesystem::path before_;
};

bool IsInInches(std::int32_t baseUnitSystem) {
    FakeHost host;
    host.baseUnitSystem = baseUnitSystem;
    return AijCodeRoute2(&host, WriteResultRows).inchUnits;
}

}  // namespace

// --- Construction

TEST(Engine, StartsWithTheDefaultLoadCasesAndAllowableValues) {
    FakeHost host;
    const AijCodeRoute2 engine(&host, WriteResultRows);
    EXPECT_EQ(1, engine.deadLoadCaseNumber);
    EXPECT_THAT(engine.earthquakeLoadCaseNumber, ElementsAre(1, 1));
    EXPECT_EQ(0.005, engine.allowStoryDeformAngle);
    EXPECT_EQ(0.6, engine.allowStoryStiffRatio);
    EXPECT_EQ(0.15, engine.allowStoryEccentricityModulus);
}

TEST(Engine, StartsEmpty) {
    FakeHost host;
    const AijCodeRoute2 engine(&host, WriteResultRows);
    EXPECT_EQ(nullptr, engine.logFile);
    EXPECT_EQ(nullptr, engine.resultFile);
    EXPECT_EQ("", engine.modelFilePath);
    EXPECT_EQ("", engine.logFilePath);
    EXPECT_EQ("", engine.dataFilePath);
    EXPECT_EQ("", engine.resultFilePath);
    EXPECT_EQ(0, engine.numPrimaryLoadCases);
    EXPECT_EQ(0, engine.numLoadCombinations);
    EXPECT_THAT(engine.loadCaseNumbers, IsEmpty());
    EXPECT_THAT(engine.nodeNumbers, IsEmpty());
    EXPECT_THAT(engine.nodeCoords, IsEmpty());
    EXPECT_THAT(engine.memberNumbers, IsEmpty());
    EXPECT_THAT(engine.memberAxisX, IsEmpty());
    EXPECT_THAT(engine.floorLevels, IsEmpty());
    EXPECT_THAT(engine.stories, IsEmpty());
}

TEST(Engine, StartsWithNothingSet) {
    FakeHost host;
    const AijCodeRoute2 engine(&host, WriteResultRows);
    EXPECT_FALSE(engine.zIsVertical);
    EXPECT_FALSE(engine.loadInfoSet);
    EXPECT_FALSE(engine.nodeInfoSet);
    EXPECT_FALSE(engine.floorLevelsSet);
    EXPECT_FALSE(engine.storyInfoSet);
    for (const auto& byLoadCase :
         {engine.rsBarOfMaxDispByLoadCase, engine.rsBarOfMeanDispByLoadCase})
        EXPECT_THAT(byLoadCase, Each(IsEmpty()));
    EXPECT_THAT(engine.rsBarOfMaxDisp, Each(0.0));
    EXPECT_THAT(engine.rsBarOfMeanDisp, Each(0.0));
}

TEST(Engine, AsksItsHostForTheUnitsOnceAndForNothingElse) {
    FakeHost host;
    const AijCodeRoute2 engine(&host, WriteResultRows);
    EXPECT_EQ(&host, engine.hostLink);
    EXPECT_THAT(host.calls, ElementsAre("GetBaseUnitSystem()"));
}

TEST(Engine, CountsInInchesForUnitSystem1Only) {
    EXPECT_TRUE(IsInInches(1));
    for (const std::int32_t other : {0, 2, 3, -1, 257})
        EXPECT_FALSE(IsInInches(other)) << other;
}

TEST(Engine, CannotBeBuiltOverAHostThatDoesNotAnswer) {
    FakeHost host;
    host.FailFromNowOn();
    EXPECT_THROW(AijCodeRoute2 engine(&host, WriteResultRows), HostCallError);
}

TEST(StoryMemberRecord, StartsWithZeros) {
    const StoryMember record;
    EXPECT_EQ(0, record.loadCaseNumber);
    EXPECT_EQ(0, record.lowerNodeNumber);
    EXPECT_EQ(0.0, record.planX);
    for (const Vec3& axis : {record.axisX, record.axisY, record.axisZ})
        EXPECT_THAT((std::array{axis.x, axis.y, axis.z}), Each(0.0));
    for (const PerDirection& pair :
         {record.relativeDisp, record.shearForce, record.horizontalStiffness})
        EXPECT_THAT(pair, Each(0.0));
    EXPECT_FALSE(record.outputDeformAngle);
}

TEST(StoryInfoRecord, CopiesItsVectors) {
    StoryInfo story;
    story.members.resize(2);
    story.maxRelativeDispByLoadCase[kX] = {1.0};
    const StoryInfo copy = story;
    story.members.clear();
    story.maxRelativeDispByLoadCase[kX][0] = 2.0;
    EXPECT_EQ(2u, copy.members.size());
    EXPECT_THAT(copy.maxRelativeDispByLoadCase[kX], ElementsAre(1.0));
}

// --- Initialize

TEST(Initialize, NamesTheReportsAfterTheModelLessItsLastThreeCharacters) {
    FreshEngine fresh;
    EXPECT_TRUE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    EXPECT_EQ(fresh.folder.Path("frame.aijR2Log.txt"), fresh.logPathOut);
    EXPECT_EQ(fresh.folder.Path("frame.aijR2Result.csv"), fresh.resultPathOut);
    EXPECT_EQ(fresh.logPathOut, fresh.engine.logFilePath);
    EXPECT_EQ(fresh.resultPathOut, fresh.engine.resultFilePath);
    EXPECT_EQ(fresh.folder.Path("frame.ext"), fresh.engine.modelFilePath);
    EXPECT_EQ(fresh.inputPath, fresh.engine.dataFilePath);
}

TEST(Initialize, OpensTheLogAndOnlyNamesTheResults) {
    FreshEngine fresh;
    EXPECT_TRUE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    EXPECT_NE(nullptr, fresh.engine.logFile);
    EXPECT_EQ(nullptr, fresh.engine.resultFile);
    EXPECT_TRUE(fresh.folder.Has("frame.aijR2Log.txt"));
    EXPECT_FALSE(fresh.folder.Has("frame.aijR2Result.csv"));
}

TEST(Initialize, CutsThreeCharactersWhateverTheyAre) {
    FreshEngine fresh;
    EXPECT_TRUE(fresh.Initialize(fresh.folder.Path("frame")));
    EXPECT_EQ(fresh.folder.Path("fraijR2Log.txt"), fresh.logPathOut);
}

TEST(Initialize, UsesTheCurrentFolderForAModelPathOfUpToThreeCharacters) {
    for (const char* modelPath : {"", "a", "ab", "abc"}) {
        FreshEngine fresh;
        const InFolder in(fresh.folder.Path(""));
        EXPECT_TRUE(fresh.Initialize(modelPath));
        EXPECT_EQ("aijR2Log.txt", fresh.logPathOut) << modelPath;
        EXPECT_EQ("aijR2Result.csv", fresh.resultPathOut) << modelPath;
        EXPECT_TRUE(fresh.folder.Has("aijR2Log.txt"));
        fresh.CloseLog();
    }
}

TEST(Initialize, KeepsTheFirstOfFourCharactersOfAModelPath) {
    FreshEngine fresh;
    const InFolder in(fresh.folder.Path(""));
    EXPECT_TRUE(fresh.Initialize("fext"));
    EXPECT_EQ("faijR2Log.txt", fresh.logPathOut);
    fresh.CloseLog();
}

TEST(Initialize, AsksTheHostForTheVerticalAxis) {
    for (const bool zUp : {false, true}) {
        FreshEngine fresh;
        fresh.host.zUp = zUp;
        EXPECT_TRUE(fresh.Initialize(fresh.folder.Path("frame.ext")));
        EXPECT_EQ(zUp, fresh.engine.zIsVertical);
        EXPECT_THAT(fresh.host.calls, ElementsAre("GetBaseUnitSystem()", "IsZUp()"));
    }
}

TEST(Initialize, ReadsTheLoadCaseNumbersOfTheInputFile) {
    FreshEngine fresh("DeadLoadCaseNumber,4,\nEarthquakeLoadCaseNumber,5,6,\nFIN\n");
    EXPECT_TRUE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    EXPECT_EQ(4, fresh.engine.deadLoadCaseNumber);
    EXPECT_THAT(fresh.engine.earthquakeLoadCaseNumber, ElementsAre(5, 6));
    fresh.CloseLog();
    EXPECT_EQ("", fresh.folder.Read("frame.aijR2Log.txt"));
}

TEST(Initialize, FailsWithoutALogFolderButNamesTheReports) {
    FreshEngine fresh("DeadLoadCaseNumber,4,\nFIN\n");
    const std::string folder = fresh.folder.Path("missing") + "/";
    EXPECT_FALSE(fresh.Initialize(folder + "frame.ext"));
    EXPECT_EQ(folder + "frame.aijR2Log.txt", fresh.logPathOut);
    EXPECT_EQ(folder + "frame.aijR2Result.csv", fresh.resultPathOut);
    EXPECT_EQ(nullptr, fresh.engine.logFile);
    // Nothing of what comes after the log is done.
    EXPECT_EQ("", fresh.engine.modelFilePath);
    EXPECT_EQ(1, fresh.engine.deadLoadCaseNumber);
    EXPECT_THAT(fresh.host.calls, ElementsAre("GetBaseUnitSystem()"));
}

TEST(Initialize, FailsWhenAFolderHasTheLogsName) {
    FreshEngine fresh;
    std::filesystem::create_directory(fresh.folder.Path("frame.aijR2Log.txt"));
    EXPECT_FALSE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    EXPECT_EQ(nullptr, fresh.engine.logFile);
}

TEST(Initialize, LeavesOnlyTheReadersWarningWhenTheInputFileIsMissing) {
    FreshEngine fresh;
    fresh.inputPath = fresh.folder.Path("missing.csv");
    EXPECT_FALSE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    fresh.CloseLog();
    EXPECT_EQ("\n*** WARNING *** : Cannot open data file " + fresh.inputPath + ".\n",
              fresh.folder.Read("frame.aijR2Log.txt"));
}

TEST(Initialize, LeavesOnlyTheReadersWarningWhenFinIsMissing) {
    FreshEngine fresh("DeadLoadCaseNumber,4,\n");
    EXPECT_FALSE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    fresh.CloseLog();
    EXPECT_EQ("\n*** WARNING *** : Data file line number is too large.\n",
              fresh.folder.Read("frame.aijR2Log.txt"));
}

TEST(Initialize, PassesOnThatTheHostDoesNotAnswerWithTheLogOpen) {
    FreshEngine fresh;
    fresh.host.FailFromNowOn();
    EXPECT_THROW(fresh.Initialize(fresh.folder.Path("frame.ext")), HostCallError);
    EXPECT_NE(nullptr, fresh.engine.logFile);
    EXPECT_EQ(fresh.folder.Path("frame.ext"), fresh.engine.modelFilePath);
}

TEST(Initialize, EmptiesTheLogOfAnEarlierRun) {
    FreshEngine fresh;
    fresh.folder.Write("frame.aijR2Log.txt", "an earlier run\n");
    EXPECT_TRUE(fresh.Initialize(fresh.folder.Path("frame.ext")));
    fresh.CloseLog();
    EXPECT_EQ("", fresh.folder.Read("frame.aijR2Log.txt"));
}
