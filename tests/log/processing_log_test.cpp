// The conventions of the processing log, and how every step of the engine keeps to them.

#include "log/processing_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>

#include "tests/support/engine_bench.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string Logged(const std::function<void(std::FILE*)>& write) {
    const TestFolder folder;
    std::FILE* log = std::fopen(folder.Path("log.txt").c_str(), "w");
    write(log);
    std::fclose(log);
    return folder.Read("log.txt");
}

std::string RawBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// One story of 3 m with a column at each corner of a 6 m by 4 m plan and two beams; cases 1
// (dead), 2 (earthquake in X) and 3 (in Z), under which the roof moves and the columns carry
// something in every direction.
struct OneStory : FakeHost {
    OneStory() {
        primaryLoadCases = {1, 2, 3};
        const double x[] = {0, 6, 6, 0};
        const double z[] = {0, 0, 4, 4};
        for (std::int32_t i = 0; i < 4; ++i) {
            Node(1 + i, x[i], 0, z[i], true);
            Node(5 + i, x[i], 3, z[i]);
            Member(1 + i, 1 + i, 5 + i);
            for (const std::int32_t loadCase : {1, 2, 3}) {
                Displace(loadCase, 5 + i, 0.006, 0, 0.004);
                Force(loadCase, 1 + i, 0, 10, 5, -5);
                Force(loadCase, 1 + i, 1, -10, -5, 5);
            }
        }
        Member(5, 5, 6).Member(6, 7, 8);
    }
};

constexpr const char* kInput =
    "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,3000,\nFIN\n";

// Every step, in the order of a run, with the lines that open and close it.
struct Step {
    std::function<void(AijCodeRoute2&)> run;
    const char* startLine;
    const char* endLine;
};

const Step kStepsBeforeTheChecks[] = {
    {&AijCodeRoute2::SetLoadInfo, "\nStarts setting load info...\n", "Ends setting load info...\n"},
    {&AijCodeRoute2::SetNodeInfo, "\nStarts setting node info...\n", "Ends setting node info...\n"},
    {&AijCodeRoute2::SetMemberInfo, "\nStarts setting member info...\n",
     "Ends setting member info...\n"},
    {&AijCodeRoute2::SetFloorInfo, "\nStarts setting floor info...\n",
     "Ends setting floor info...\n"},
    {&AijCodeRoute2::SetStoryInfo, "\nStarts setting story info...\n",
     "\nEnds setting story info...\n"},
};

const Step kStepsThatNeedStories[] = {
    {&AijCodeRoute2::SetStoryAllowableValues, "\nStarts setting story allowable values...\n",
     "Ends setting story allowable values...\n"},
    {&AijCodeRoute2::SetStoryMemberBaseVector, "\nStarts setting story member base vector...\n",
     "Ends setting story member base vector...\n"},
    {&AijCodeRoute2::SetRelativeStoryDisp, "\nStarts setting relative story displacement...\n",
     "Ends setting relative story displacement...\n"},
    {&AijCodeRoute2::SetRsBar, "\nStarts setting Rs bar...\n", "Ends setting Rs bar...\n"},
    {&AijCodeRoute2::SetGravityCenter, "\nStarts setting gravity center...\n",
     "Ends setting gravity center...\n"},
    {&AijCodeRoute2::SetStoryMemberShearForce, "\nStarts setting story member shear force...\n",
     "Ends setting story member shear force...\n"},
    {&AijCodeRoute2::SetStoryMemberHorizontalStiffness,
     "\nStarts setting story member horizontal stiffness...\n",
     "Ends setting story member horizontal stiffness...\n"},
    {&AijCodeRoute2::SetRigidityCenter, "\nStarts setting center of rigidity...\n",
     "Ends setting center of rigidity...\n"},
    {&AijCodeRoute2::SetEccentricityModulus, "\nStarts setting eccentricity modulus...\n",
     "Ends setting eccentricity modulus...\n"},
};

const Step kNestedSteps[] = {
    {&AijCodeRoute2::SetFloorInfoWithDataFile, "\nStarts setting floor info with data file...\n",
     "Ends setting floor info with data file...\n"},
    {&AijCodeRoute2::SetStoryInfoWithDataFile, "\nStarts setting story info with data file...\n",
     "Ends setting story info with data file...\n"},
    {&AijCodeRoute2::SetMemberDeformAngleOutputFlag,
     "\nStarts setting output flag of member story deformation angle...\n",
     "Ends setting output flag of member story deformation angle...\n"},
};

// A log as a run of that many lines of a step leaves it beside the model.
std::string LogOfARun(const TestFolder& folder, const std::string& input, int steps) {
    OneStory host;
    AijCodeRoute2 engine(&host, WriteResultRows);
    std::string logPath, resultPath;
    engine.Initialize(folder.Path("frame.ext"), folder.Write("input.csv", input), logPath,
                      resultPath);
    for (int i = 0; i < steps; ++i)
        kStepsBeforeTheChecks[i].run(engine);
    std::fclose(engine.logFile);
    return folder.Read("frame.aijR2Log.txt");
}

}  // namespace

// --- Lines

TEST(LogStart, StandsBehindAnEmptyLine) {
    EXPECT_EQ("\nStarts setting load info...\n",
              Logged([](std::FILE* log) { LogStart(log, "load info"); }));
}

TEST(LogEnd, HasNoEmptyLineBeforeIt) {
    EXPECT_EQ("Ends setting load info...\n",
              Logged([](std::FILE* log) { LogEnd(log, "load info"); }));
}

TEST(LogWarning, StandsBehindAnEmptyLineWithItsMarker) {
    EXPECT_EQ("\n*** WARNING *** : Something is wrong.\n",
              Logged([](std::FILE* log) { LogWarning(log, "Something is wrong."); }));
}

TEST(LogWarning, WritesPercentSignsOfAPathAsTheyAre) {
    EXPECT_EQ(
        "\n*** WARNING *** : Cannot open data file 100%s%d%n.csv.\n",
        Logged([](std::FILE* log) { LogWarning(log, "Cannot open data file 100%s%d%n.csv."); }));
}

// --- Steps

TEST(StepLog, OpensAndClosesEverySetupStepWithItsOwnLines) {
    OneStory host;
    EngineBench bench(host, kInput);
    for (const Step& step : kStepsBeforeTheChecks) {
        step.run(bench.engine);
        const std::string log = bench.NewLog();
        EXPECT_THAT(log, StartsWith(step.startLine));
        EXPECT_THAT(log, EndsWith(step.endLine));
        EXPECT_THAT(log, Not(HasSubstr("WARNING")));
    }
}

TEST(StepLog, HoldsNothingButTheTwoLinesOfAStepThatFindsNoFault) {
    OneStory host;
    EngineBench bench(host, kInput);
    bench.engine.earthquakeLoadCaseNumber = {2, 3};
    bench.SetUpStories();
    bench.NewLog();
    for (const Step& step : kStepsThatNeedStories) {
        step.run(bench.engine);
        EXPECT_EQ(std::string(step.startLine) + step.endLine, bench.NewLog());
    }
}

TEST(StepLog, OpensAndClosesEveryNestedStepWithItsOwnLines) {
    OneStory host;
    EngineBench bench(host, kInput);
    for (const Step& step : kNestedSteps) {
        step.run(bench.engine);
        EXPECT_EQ(std::string(step.startLine) + step.endLine, bench.NewLog());
    }
}

TEST(StepLog, OpensAndClosesTheResultsWriter) {
    OneStory host;
    EngineBench bench(host, kInput);
    bench.SetUpStories();
    bench.engine.SetRelativeStoryDisp();
    bench.engine.SetRsBar();
    bench.NewLog();
    bench.engine.PrintStoryInfoCsv();
    EXPECT_EQ(
        "\nStarts printing story info in csv style...\n"
        "Ends printing story info in csv style...\n",
        bench.NewLog());
}

TEST(StepLog, HasAStartLineAndAWarningButNoEndLineForAStepThatRefuses) {
    OneStory host;
    EngineBench bench(host, kInput);
    bench.engine.SetNodeInfo();
    bench.NewLog();
    for (const Step& step : kStepsThatNeedStories) {
        step.run(bench.engine);
        const std::string log = bench.NewLog();
        EXPECT_THAT(log, StartsWith(std::string(step.startLine) + "\n*** WARNING *** : "));
        EXPECT_THAT(log, HasSubstr("Story info. has not set yet. Stops setting "));
        EXPECT_THAT(log, EndsWith("...\n"));
        EXPECT_THAT(log, Not(HasSubstr("Ends ")));
    }
}

TEST(StepLog, HasAnEmptyLineBeforeTheEndOfTheStoryStepAlone) {
    OneStory host;
    EngineBench bench(host, kInput);
    bench.SetUpStories();
    for (const Step& step : kStepsThatNeedStories)
        step.run(bench.engine);
    const std::string log = bench.Log();
    std::size_t ends = 0;
    for (std::size_t at = 0; (at = log.find("\nEnds ", at)) != std::string::npos; ++at, ++ends)
        EXPECT_EQ(log.compare(at, 27, "\nEnds setting story info...") == 0,
                  at > 0 && log[at - 1] == '\n')
            << log.substr(at, 60);
    // 3 + 2 + 5 lines of the setup steps and those nested in them, and 9 of the others.
    EXPECT_EQ(19u, ends);
}

TEST(StepLog, HasNoEndLineForAStepThatAHostCallEnds) {
    OneStory host;
    EngineBench bench(host, kInput);
    host.FailFromNowOn();
    EXPECT_THROW(bench.engine.SetNodeInfo(), HostCallError);
    EXPECT_EQ("\nStarts setting node info...\n", bench.Log());
}

// --- The file

TEST(LogFile, HoldsTheSecondOfTwoRunsOnly) {
    const TestFolder folder;
    const std::string first = LogOfARun(folder, kInput, 3);
    EXPECT_THAT(first, HasSubstr("member info"));
    EXPECT_EQ("\nStarts setting load info...\nEnds setting load info...\n",
              LogOfARun(folder, kInput, 1));
}

TEST(LogFile, EndsItsLinesAsThePlatformDoes) {
    const TestFolder folder;
    LogOfARun(folder, kInput, 1);
#ifdef _WIN32
    const std::string expected = "\r\nStarts setting load info...\r\nEnds setting load info...\r\n";
#else
    const std::string expected = "\nStarts setting load info...\nEnds setting load info...\n";
#endif
    EXPECT_EQ(expected, RawBytes(folder.Path("frame.aijR2Log.txt")));
}

TEST(LogFile, StartsEmptyWhenTheInputFileIsInOrder) {
    const TestFolder folder;
    EXPECT_EQ("", LogOfARun(folder, kInput, 0));
}

// --- Closing the results

TEST(CloseResultFile, SaysFalseWithoutAResultsFile) {
    FakeHost host;
    AijCodeRoute2 engine(&host, WriteResultRows);
    EXPECT_FALSE(engine.CloseResultFile());
}

TEST(CloseResultFile, ClosesTheFileAndKeepsTheField) {
    const TestFolder folder;
    FakeHost host;
    AijCodeRoute2 engine(&host, WriteResultRows);
    engine.resultFile = std::fopen(folder.Path("results.csv").c_str(), "w");
    Print(engine.resultFile, "a row\n");
    EXPECT_TRUE(engine.CloseResultFile());
    EXPECT_EQ("a row\n", folder.Read("results.csv"));
    EXPECT_NE(nullptr, engine.resultFile);
}

#ifdef __linux__
TEST(CloseResultFile, SaysFalseWhenTheRowsCannotBeWritten) {
    FakeHost host;
    AijCodeRoute2 engine(&host, WriteResultRows);
    engine.resultFile = std::fopen("/dev/full", "w");
    ASSERT_NE(nullptr, engine.resultFile);
    Print(engine.resultFile, "a row\n");
    EXPECT_FALSE(engine.CloseResultFile());
}
#endif
