#include "compute/compute_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <new>
#include <stdexcept>

#include "tests/support/fake_host.h"
#include "tests/support/run_log.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Lines = std::vector<std::string>;

const Lines kStepLines = {"Preparing for calculation...",
                          "Setting load information...",
                          "Setting node information...",
                          "Setting member information...",
                          "Setting floor information...",
                          "Setting story information...",
                          "Calculating relative displacements...",
                          "Calculating story stiffness ratio...",
                          "Calculating ceter of gravity...",
                          "Calculating story shear...",
                          "Calculating horizontal story stiffness...",
                          "Calculating ceter of rigidity...",
                          "Calculating eccentricity modulus...",
                          "Saving output...",
                          "Calculation Complete"};
const Lines kClosingLines = {"Finishes process...", "Closing error log file..."};

Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

/// The status lines of the steps up to and including `last`.
Lines StepLinesUpTo(const std::string& last) {
    return {kStepLines.begin(), std::find(kStepLines.begin(), kStepLines.end(), last) + 1};
}

// A small building whose model is tower.ext in a folder of the test's own.
class ComputeRun : public testing::Test {
protected:
    ComputeRun() {
        AddSmallBuilding(host);
        host.modelPath = folder.Path("tower.ext");
        inputPath = folder.Write("input.csv", kSmallBuildingInput);
    }

    RunOutcome Run() { return RunOn(host); }
    RunOutcome RunOn(HostQueries& queries) {
        return RunCompute(
            inputPath, [&queries] { return &queries; }, status, reports);
    }

    std::string Log() const { return folder.Read("tower.aijR2Log.txt"); }
    std::string Csv() const { return folder.Read("tower.aijR2Result.csv"); }

    /// Number, from 1, of the first call whose text begins so, in a run that completes.
    std::size_t FirstCall(const std::string& start) {
        Run();
        const auto found = std::find_if(host.calls.begin(), host.calls.end(),
                                        [&](const auto& c) { return c.starts_with(start); });
        const auto number = static_cast<std::size_t>(found - host.calls.begin()) + 1;
        host.calls.clear();
        return number;
    }

    TestFolder folder;
    FakeHost host;
    StatusLines status;
    ReportPaths reports;
    std::string inputPath;
};

// Goes back to the folder that was current.
class InFolder {
public:
    explicit InFolder(const std::string& path) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    ~InFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    std::filesystem::path before_;
};

// A host that throws what `thrower` throws when asked whether there are results.
class ThrowingHost : public FakeHost {
public:
    explicit ThrowingHost(void (*thrower)()) : thrower_(thrower) {}
    bool AreResultsAvailable() override {
        thrower_();
        return true;
    }

private:
    void (*thrower_)();
};

}  // namespace

TEST_F(ComputeRun, ShowsFifteenStepLinesAndTwoClosingLines) {
    const RunOutcome outcome = Run();
    EXPECT_EQ(kStepLines + kClosingLines, status.lines);
    EXPECT_TRUE(outcome.complete);
    EXPECT_TRUE(outcome.logWritten);
    EXPECT_EQ("", outcome.failure);
}

TEST_F(ComputeRun, NamesTheReportsAfterTheModelLessThreeCharacters) {
    Run();
    EXPECT_EQ(folder.Path("tower.aijR2Log.txt"), reports.logFile);
    EXPECT_EQ(folder.Path("tower.aijR2Result.csv"), reports.resultFile);
    EXPECT_TRUE(folder.Has("tower.aijR2Log.txt"));
    EXPECT_TRUE(folder.Has("tower.aijR2Result.csv"));
    EXPECT_FALSE(folder.Has("tower.Route2.log"));
}

TEST_F(ComputeRun, LogBeginsWithTheAvailabilityAndTheLoadStep) {
    Run();
    EXPECT_THAT(Log(), testing::StartsWith("ORVEK results are available.\n"
                                           "\nStarts setting load info...\n"
                                           "Ends setting load info...\n"));
}

// Eight nodes, four columns and a beam, three primary cases and one combination.
TEST_F(ComputeRun, LogsTheBasicInformationBetweenMembersAndFloors) {
    Run();
    EXPECT_THAT(Log(), HasSubstr("Ends setting member info...\n"
                                 "\nORVEK File Basic information :\n"
                                 "  File : " +
                                 host.modelPath +
                                 "\n"
                                 "  Number of nodes : 8\n"
                                 "  Number of members : 5\n"
                                 "  Number of primary load cases : 3\n"
                                 "  Number of load combination cases : 1\n"
                                 "  Dead load case number : 1\n"
                                 "  Earthquake load( X direc. ) case number : 2\n"
                                 "  Earthquake load( Z or Y direc. ) case number : 3\n"
                                 "\nStarts setting floor info...\n"));
}

TEST_F(ComputeRun, LogTellsEveryStepInOrder) {
    Run();
    std::size_t at = 0;
    for (const char* line :
         {"\nStarts setting load info...\n", "\nStarts setting node info...\n",
          "\nStarts setting member info...\n", "\nStarts setting floor info...\n",
          "\nStarts setting story info...\n", "\nStarts setting relative story displacement...\n",
          "\nStarts setting Rs bar...\n", "\nStarts setting gravity center...\n",
          "\nStarts setting story member shear force...\n",
          "\nStarts setting story member horizontal stiffness...\n",
          "\nStarts setting center of rigidity...\n", "\nStarts setting eccentricity modulus...\n",
          "\nStarts printing story info in csv style...\n",
          "Ends printing story info in csv style...\n"}) {
        at = Log().find(line, at);
        ASSERT_NE(std::string::npos, at) << line;
    }
    EXPECT_THAT(Log(), EndsWith("Ends printing story info in csv style...\n"));
}

// Four columns in 6 by 4 m with equal forces and stiffness (14 kN / 7 mm, 14 kN / 3.5 mm): both
// centres at (3000, 2000), moduli 0. Under case 2 the mean angle is 7 / 3500 = 0.002.
TEST_F(ComputeRun, WritesTheResultsOfTheBuilding) {
    Run();
    EXPECT_THAT(Csv(), HasSubstr("\n1,2,0.000e+00,3.500e+03,3.500e+03,7.00000e+00,2.00000e-03,"
                                 "5.00000e-03,PASS\n"));
    EXPECT_THAT(Csv(), EndsWith("X coord of rigidity center,Z(or Y) coord of rigidity center\n"
                                "1,0.000e+00,3.500e+03,3.500e+03,3.00000e+03,2.00000e+03\n"
                                "\n -----  Eccentricity modulus  ----- \n"
                                "Story,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),"
                                "Eccentricity Mod(X),Eccentricity Mod(Z(or Y)),Allowable "
                                "Eccenticity Mod,Result(X),Result(Z(or Y))\n"
                                "1,0.000e+00,3.500e+03,3.500e+03,0.00000e+00,0.00000e+00,"
                                "1.50000e-01,PASS,PASS\n"));
}

TEST_F(ComputeRun, AsksForPathUnitsAxisAndResultsBeforeTheFirstStep) {
    Run();
    const Lines first(host.calls.begin(), host.calls.begin() + 8);
    EXPECT_THAT(first, ElementsAre("GetModelFilePath()", "GetBaseUnitSystem()", "IsZUp()",
                                   "AreResultsAvailable()", "GetPrimaryLoadCaseCount()",
                                   "GetLoadCombinationCount()", "GetPrimaryLoadCaseNumbers()",
                                   "GetLoadCombinationNumbers()"));
    EXPECT_THAT(host.calls, Not(testing::Contains("PostConnectCall()")));
}

TEST_F(ComputeRun, ASecondRunClearsTheListAndReplacesBothReports) {
    folder.Write("tower.aijR2Log.txt", std::string(100000, 'x'));
    folder.Write("tower.aijR2Result.csv", std::string(100000, 'x'));
    Run();
    const std::string log = Log(), csv = Csv();
    Run();
    EXPECT_EQ(kStepLines + kClosingLines, status.lines);
    EXPECT_EQ(2, status.clears);
    EXPECT_EQ(log, Log());
    EXPECT_EQ(csv, Csv());
    EXPECT_THAT(log, Not(HasSubstr("xxx")));
    EXPECT_THAT(csv, Not(HasSubstr("xxx")));
}

TEST_F(ComputeRun, WithoutAnInputPathSaysSoAndContactsNobody) {
    inputPath.clear();
    status.lines = {"old line"};
    bool connects = false;
    const RunOutcome outcome = RunCompute(
        "",
        [&]() -> HostQueries* {
            connects = true;
            return &host;
        },
        status, reports);
    EXPECT_THAT(status.lines, ElementsAre("Input not specified!"));
    EXPECT_FALSE(connects);
    EXPECT_FALSE(outcome.complete);
    EXPECT_FALSE(outcome.logWritten);
    EXPECT_NE("", outcome.failure);
}

TEST_F(ComputeRun, AnInputFileThatDoesNotExistEndsTheRunBeforeTheHostIsContacted) {
    reports = {"old log", "old results"};
    inputPath = folder.Path("missing.csv");
    const RunOutcome outcome = Run();
    EXPECT_THAT(status.lines, ElementsAre("Input does not exist"));
    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_FALSE(outcome.logWritten);
    EXPECT_THAT(outcome.failure, HasSubstr(inputPath));
    EXPECT_EQ("old log", reports.logFile);
    EXPECT_EQ("old results", reports.resultFile);
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

TEST_F(ComputeRun, AHostThatIsNotThereEndsTheRunWithoutFiles) {
    folder.Write("tower.aijR2Log.txt", "earlier log\n");
    const RunOutcome outcome = RunCompute(
        inputPath, []() -> HostQueries* { return nullptr; }, status, reports);
    EXPECT_THAT(status.lines, ElementsAre("Unable to establish connection with ORVEK.Pro!"));
    EXPECT_FALSE(outcome.complete);
    EXPECT_FALSE(outcome.logWritten);
    EXPECT_EQ("", reports.logFile);
    EXPECT_EQ("earlier log\n", Log());
}

TEST_F(ComputeRun, WithoutAnalysisResultsSaysToRunTheAnalysis) {
    host.resultsAvailable = false;
    const RunOutcome outcome = Run();
    EXPECT_THAT(status.lines, ElementsAre("ORVEK analysis results are not available.",
                                          "Please run analysis first.", "Finishes process...",
                                          "Closing error log file..."));
    EXPECT_EQ(LoggedWarning("ORVEK results are not available."), Log());
    EXPECT_FALSE(folder.Has("tower.aijR2Result.csv"));
    EXPECT_FALSE(outcome.complete);
    EXPECT_TRUE(outcome.logWritten);
}

TEST_F(ComputeRun, AnEmptyModelPathPutsTheReportsIntoTheCurrentFolder) {
    for (const char* path : {"", "a", "ab", "ext"}) {
        const TestFolder current;
        const InFolder inFolder(current.Path("."));
        host.modelPath = path;
        EXPECT_TRUE(Run().complete) << path;
        EXPECT_EQ("aijR2Log.txt", reports.logFile);
        EXPECT_EQ("aijR2Result.csv", reports.resultFile);
        EXPECT_TRUE(current.Has("aijR2Log.txt")) << path;
        EXPECT_TRUE(current.Has("aijR2Result.csv")) << path;
        EXPECT_THAT(current.Read("aijR2Log.txt"), HasSubstr("\n  File : " + host.modelPath + "\n"));
    }
}

// The provisional name is what is left when the engine cannot be built.
TEST_F(ComputeRun, NamesAProvisionalLogBeforeTheEngineIsBuilt) {
    host.failAtCall = 2;  // GetBaseUnitSystem, after GetModelFilePath
    EXPECT_THROW(Run(), HostCallError);
    EXPECT_EQ(folder.Path("tower.Route2.log"), reports.logFile);
    for (const char* path : {"", "ab", "ext"}) {
        host.modelPath = path;
        host.calls.clear();
        EXPECT_THROW(Run(), HostCallError);
        EXPECT_EQ("Route2.log", reports.logFile);
    }
}

TEST_F(ComputeRun, FailuresBeforeTheGuardedPartLeaveItWithoutClosingLines) {
    for (const std::size_t call : {1u, 2u}) {
        host.failAtCall = call;
        host.calls.clear();
        EXPECT_THROW(Run(), HostCallError);
        EXPECT_THAT(status.lines, IsEmpty());
        EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
    }
    EXPECT_THROW(RunCompute(
                     inputPath, []() -> HostQueries* { throw HostCallError(-1, "no answer"); },
                     status, reports),
                 HostCallError);
    EXPECT_THAT(status.lines, IsEmpty());
}

// A folder stands where the log should be; the axis is not asked any more.
TEST_F(ComputeRun, ALogThatCannotBeOpenedFailsToInitialize) {
    std::filesystem::create_directory(folder.Path("tower.aijR2Log.txt"));
    const RunOutcome outcome = Run();
    EXPECT_EQ(Lines{"Failed to initialize AijCodeRoute2..."} + kClosingLines, status.lines);
    EXPECT_THAT(host.calls, ElementsAre("GetModelFilePath()", "GetBaseUnitSystem()"));
    EXPECT_FALSE(outcome.logWritten);
    EXPECT_THAT(outcome.failure, HasSubstr(folder.Path("tower.aijR2Log.txt")));
    EXPECT_EQ(folder.Path("tower.aijR2Log.txt"), reports.logFile);
    EXPECT_EQ(folder.Path("tower.aijR2Result.csv"), reports.resultFile);
    EXPECT_FALSE(folder.Has("tower.aijR2Result.csv"));
}

TEST_F(ComputeRun, AModelInAFolderThatDoesNotExistFailsToInitialize) {
    host.modelPath = folder.Path("gone/tower.ext");
    Run();
    EXPECT_EQ(Lines{"Failed to initialize AijCodeRoute2..."} + kClosingLines, status.lines);
}

// A folder exists, but cannot be read as a file.
TEST_F(ComputeRun, AnInputFileThatCannotBeReadFailsToInitializeAndIsNamedInTheLog) {
    inputPath = folder.Path("inputs");
    std::filesystem::create_directory(inputPath);
    const RunOutcome outcome = Run();
    EXPECT_EQ(Lines{"Failed to initialize AijCodeRoute2..."} + kClosingLines, status.lines);
    EXPECT_EQ(LoggedWarning("Cannot open data file " + inputPath + "."), Log());
    EXPECT_TRUE(outcome.logWritten);
    EXPECT_FALSE(outcome.complete);
}

TEST_F(ComputeRun, AnInputFileWithoutFinFailsToInitializeAndLeavesTheReadersWarning) {
    inputPath = folder.Write("endless.csv", "DeadLoadCaseNumber,1,\n");
    Run();
    EXPECT_EQ(Lines{"Failed to initialize AijCodeRoute2..."} + kClosingLines, status.lines);
    EXPECT_EQ(LoggedWarning("Data file line number is too large."), Log());
    EXPECT_THAT(host.calls, ElementsAre("GetModelFilePath()", "GetBaseUnitSystem()", "IsZUp()"));
}

TEST_F(ComputeRun, AResultsFileThatCannotBeOpenedIsALogWarningAndTheRunCompletes) {
    std::filesystem::create_directory(folder.Path("tower.aijR2Result.csv"));
    EXPECT_TRUE(Run().complete);
    EXPECT_EQ(kStepLines + kClosingLines, status.lines);
    EXPECT_THAT(Log(), EndsWith("\nStarts printing story info in csv style...\n" +
                                LoggedWarning("Cannot open result file " +
                                              folder.Path("tower.aijR2Result.csv") + ".")));
}

// The first call of its kind in each step that asks the host anything.
TEST_F(ComputeRun, AStepThatThrowsIsTheLastLineBeforeTheException) {
    const struct {
        const char* call;
        const char* status;
        const char* logEnd;
    } steps[] = {
        {"GetPrimaryLoadCaseCount", "Setting load information...", "Starts setting load info"},
        {"GetNodeCount", "Setting node information...", "Starts setting node info"},
        {"GetMemberCount", "Setting member information...", "Starts setting member info"},
        {"GetNodeDisplacements", "Calculating relative displacements...",
         "Starts setting relative story displacement"},
        {"GetMemberEndForces(1, 0, 1)", "Calculating ceter of gravity...",
         "Starts setting gravity center"},
        {"GetMemberEndForces(1, 0, 2)", "Calculating story shear...",
         "Starts setting story member shear force"},
    };
    for (const auto& step : steps) {
        host.failAtCall.reset();
        host.calls.clear();
        host.failAtCall = FirstCall(step.call);
        const RunOutcome outcome = Run();
        EXPECT_EQ(StepLinesUpTo(step.status) + Lines{"Exception was thrown..."} + kClosingLines,
                  status.lines);
        EXPECT_THAT(Log(), EndsWith("\n" + std::string(step.logEnd) + "...\n"));
        EXPECT_FALSE(outcome.complete);
        EXPECT_TRUE(outcome.logWritten);
        EXPECT_THAT(outcome.failure, HasSubstr(step.call));
    }
}

// Up to the step that failed, the log is that of a run that completes.
TEST_F(ComputeRun, AnExceptionLeavesTheLogCompleteUpToTheStepThatThrew) {
    host.failAtCall = FirstCall("GetMemberEndForces(1, 0, 2)");
    const std::string whole = Log();
    Run();
    const std::string start = "\nStarts setting story member shear force...\n";
    EXPECT_EQ(whole.substr(0, whole.find(start) + start.size()), Log());
}

TEST_F(ComputeRun, AnExceptionBeforeTheResultsLeavesAnOlderResultsFileAlone) {
    host.failAtCall = FirstCall("GetNodeDisplacements");
    folder.Write("tower.aijR2Result.csv", "earlier results\n");
    Run();
    EXPECT_EQ("earlier results\n", Csv());
}

TEST_F(ComputeRun, AFailureWhileInitializingShowsTheExceptionFirst) {
    host.failAtCall = 3;  // IsZUp
    Run();
    EXPECT_EQ(Lines{"Exception was thrown..."} + kClosingLines, status.lines);
    EXPECT_EQ("", Log());
}

TEST_F(ComputeRun, AnExceptionOfIntegerTypeIsAWrongFilePath) {
    ThrowingHost throwing([] { throw 5; });
    throwing.modelPath = host.modelPath;
    RunOn(throwing);
    EXPECT_EQ(Lines{"Wrong file path..."} + kClosingLines, status.lines);
}

TEST_F(ComputeRun, EveryOtherExceptionIsShownAsAnException) {
    for (const auto thrower : {+[] { throw std::bad_alloc(); },
                               +[] { throw std::out_of_range("invalid vector subscript"); },
                               +[] { throw "a text"; }, +[] { throw 5L; }}) {
        ThrowingHost throwing(thrower);
        throwing.modelPath = host.modelPath;
        const RunOutcome outcome = RunOn(throwing);
        EXPECT_EQ(Lines{"Exception was thrown..."} + kClosingLines, status.lines);
        EXPECT_NE("", outcome.failure);
    }
}

// Member 20 ends at a node that is not there.
TEST_F(ComputeRun, AMemberWithAnUnknownNodeEndsTheRunInTheFloorStep) {
    host.Member(20, 1, 99);
    Run();
    EXPECT_EQ(StepLinesUpTo("Setting floor information...") + Lines{"Exception was thrown..."} +
                  kClosingLines,
              status.lines);
    EXPECT_THAT(Log(),
                HasSubstr(LoggedWarning("Node number is not set correctly. Stops setting member "
                                        "info...")));
    EXPECT_THAT(Log(),
                EndsWith(LoggedWarning("Node number is not set correctly as setting floor...")));
}

// With the floors given, the story step refuses at member 20, and every step that needs stories
// after it. The story has no member, so its only rows are those of the last three sections.
TEST_F(ComputeRun, StepsWithoutStoryInfoRefuseAndTheRunGoesOn) {
    FakeHost broken;
    broken.modelPath = host.modelPath;
    broken.Node(1, 0, 0, 0, true).Member(20, 1, 99);
    inputPath = folder.Write("floors.csv", "FloorLevel,0,3500,\nFIN\n");
    RunOn(broken);
    EXPECT_EQ(kStepLines + kClosingLines, status.lines);
    for (const char* subject :
         {"story allowable values", "member base vector", "relative story displacement", "Rs bar",
          "gravity center", "story member horizontal stiffness", "center of rigidity",
          "eccentricity modulus"})
        EXPECT_THAT(Log(), HasSubstr(LoggedWarning("Story info. has not set yet. Stops setting " +
                                                   std::string(subject) + "...")));
    EXPECT_THAT(Csv(), EndsWith("\n1,0.000e+00,3.500e+03,3.500e+03,0.00000e+00,0.00000e+00,"
                                "1.50000e-01,PASS,PASS\n"));
}

// Member 20 stands behind the columns, which have their records by then but no displacements per
// load case: the first row of the results is out of range.
TEST_F(ComputeRun, RecordsOfAStoryStepThatRefusedEndTheRunInTheResults) {
    host.Member(20, 1, 99);
    inputPath = folder.Write("floors.csv", "FloorLevel,0,3500,\nFIN\n");
    const RunOutcome outcome = Run();
    EXPECT_EQ(StepLinesUpTo("Saving output...") + Lines{"Exception was thrown..."} + kClosingLines,
              status.lines);
    EXPECT_EQ("invalid vector subscript", outcome.failure);
}

TEST_F(ComputeRun, AModelWithoutAnythingCompletesWithEmptyResults) {
    FakeHost empty;
    empty.modelPath = host.modelPath;
    EXPECT_TRUE(RunOn(empty).complete);
    EXPECT_EQ(kStepLines + kClosingLines, status.lines);
    EXPECT_THAT(Csv(), Not(HasSubstr("PASS")));
    EXPECT_THAT(Csv(), EndsWith("Result(X),Result(Z(or Y))\n"));
}

// A run that would destroy its input or its model ends as one whose log cannot be opened.
TEST_F(ComputeRun, ReportsThatWouldDestroyTheModelEndTheRunAtItsStart) {
    folder.Write("tower.ext", "the model");
    for (const char* report : {"tower.aijR2Log.txt", "tower.aijR2Result.csv"}) {
        std::filesystem::create_hard_link(host.modelPath, folder.Path(report));
        host.calls.clear();
        const RunOutcome outcome = Run();
        EXPECT_EQ(Lines{"Failed to initialize AijCodeRoute2..."} + kClosingLines, status.lines);
        EXPECT_THAT(host.calls, ElementsAre("GetModelFilePath()", "GetBaseUnitSystem()"));
        EXPECT_TRUE(outcome.filesCollide);
        EXPECT_FALSE(outcome.logWritten);
        EXPECT_THAT(outcome.failure, HasSubstr("the model would be overwritten"));
        EXPECT_EQ(folder.Path("tower.aijR2Log.txt"), reports.logFile);
        EXPECT_EQ(folder.Path("tower.aijR2Result.csv"), reports.resultFile);
        EXPECT_EQ("the model", folder.Read("tower.ext"));
        std::filesystem::remove(folder.Path(report));
    }
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

TEST_F(ComputeRun, ReportsThatWouldDestroyTheInputEndTheRunAtItsStart) {
    std::filesystem::create_hard_link(inputPath, folder.Path("tower.aijR2Result.csv"));
    EXPECT_TRUE(Run().filesCollide);
    EXPECT_EQ(kSmallBuildingInput, folder.Read("input.csv"));
}

TEST_F(ComputeRun, AsksTheGuardOnceTheModelIsKnownAndOpensNothingWhenItRefuses) {
    RunFiles asked;
    RunOptions options;
    options.guard = [&](const RunFiles& files) {
        asked = files;
        return std::optional<std::string>("no");
    };
    const RunOutcome outcome = RunCompute(
        inputPath, [this] { return &host; }, status, reports, options);
    EXPECT_EQ(inputPath, asked.input);
    EXPECT_EQ(host.modelPath, asked.model);
    EXPECT_EQ(folder.Path("tower.aijR2Log.txt"), asked.log);
    EXPECT_EQ(folder.Path("tower.aijR2Result.csv"), asked.results);
    EXPECT_EQ("no", outcome.failure);
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

TEST_F(ComputeRun, PutsTheReportsIntoAnotherFolderUnderTheNamesOfModelAndInput) {
    RunOptions options;
    options.reportFolder = folder.Path("variants");
    std::filesystem::create_directory(options.reportFolder);
    RunCompute(
        inputPath, [this] { return &host; }, status, reports, options);
    EXPECT_EQ(folder.Path("variants/tower.input.aijR2Log.txt"), reports.logFile);
    EXPECT_TRUE(folder.Has("variants/tower.input.aijR2Result.csv"));
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
    // The log names the model, not the file that the reports are called after.
    EXPECT_THAT(folder.Read("variants/tower.input.aijR2Log.txt"),
                HasSubstr("  File : " + host.modelPath + "\n"));
}
