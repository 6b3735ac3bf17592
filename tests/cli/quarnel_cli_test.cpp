// The real quarnel-cli: what it prints, where, and its exit codes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "host/qhm_file.h"
#include "host/remembering_host.h"
#include "tests/support/run_program.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"
#include "version.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr const char* kComplete =
    "Preparing for calculation...\nSetting load information...\nSetting node information...\n"
    "Setting member information...\nSetting floor information...\nSetting story information...\n"
    "Calculating relative displacements...\nCalculating story stiffness ratio...\n"
    "Calculating ceter of gravity...\nCalculating story shear...\n"
    "Calculating horizontal story stiffness...\nCalculating ceter of rigidity...\n"
    "Calculating eccentricity modulus...\nSaving output...\nCalculation Complete\n"
    "Finishes process...\nClosing error log file...\n";
constexpr const char* kNotInitialized =
    "Failed to initialize AijCodeRoute2...\nFinishes process...\nClosing error log file...\n";

MATCHER(IsOneLine, "") {
    const std::string text = arg;
    return text.size() > 1 && text.size() < 1000 && text.find('\n') == text.size() - 1 &&
           text.starts_with("quarnel-cli: ");
}

// What the check of the input file says comes first.
MATCHER(IsOneLineBehindCautions, "") {
    std::string text = arg;
    while (text.starts_with("quarnel-cli: caution: "))
        text.erase(0, text.find('\n') + 1);
    return testing::ExplainMatchResult(IsOneLine(), text, result_listener);
}

class QuarnelCli : public testing::Test {
protected:
    QuarnelCli() {
        FakeHost host;
        AddSmallBuilding(host);
        host.modelPath = folder.Path("tower.ext");
        model = RecordRun(host);
        input = folder.Write("input.csv", kSmallBuildingInput);
    }

    /// A model file of what a run asks `host`.
    std::string RecordRun(FakeHost& host) {
        const TestFolder other;
        host.modelPath = other.Path("tower.ext");
        RememberingHost remembering(host);
        StatusLines status;
        ReportPaths reports;
        RunCompute(
            other.Write("input.csv", kSmallBuildingInput), [&] { return &remembering; }, status,
            reports);
        WriteQhmFile(remembering.Memory(), folder.Path("tower.qhm"));
        return folder.Path("tower.qhm");
    }

    ProgramRun Cli(const std::vector<std::string>& arguments) {
        return RunProgram(program, arguments, output);
    }
    ProgramRun Check() { return Cli({"check", model, input}); }

    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path("")))
            names.insert(entry.path().filename().string());
        return names;
    }

    // Of a path without a drive, the drive is that of the folder in which the test started.
    const std::string program = std::filesystem::absolute(QUARNEL_CLI).string();
    TestFolder folder;
    TestFolder output;
    std::string model;
    std::string input;
};

/// Bytes without any order, the same every time.
std::string Noise(std::size_t size) {
    std::string noise(size, '\0');
    std::uint32_t state = 12345;
    for (char& byte : noise) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<char>(state >> 24);
    }
    return noise;
}

}  // namespace

TEST_F(QuarnelCli, PrintsTheStatusLinesFirstThenWhatItFound) {
    const ProgramRun run = Check();
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, StartsWith(std::string(kComplete) + "\nStories: 1; levels 0, 3500 mm"));
    EXPECT_THAT(run.out, HasSubstr("\nStory deformation angle ("));
    EXPECT_THAT(run.out, HasSubstr("\nStory stiffness ratio ("));
    EXPECT_THAT(run.out, HasSubstr("\nEccentricity modulus ("));
    EXPECT_EQ("", run.err);
}

TEST_F(QuarnelCli, SaysWhereTheReportsAreAndPutsThemBesideTheModel) {
    const ProgramRun run = Check();
    EXPECT_THAT(run.out, HasSubstr(folder.Path("tower.aijR2Log.txt")));
    EXPECT_THAT(run.out, HasSubstr(folder.Path("tower.aijR2Result.csv")));
    EXPECT_THAT(Files(), ElementsAre("input.csv", "tower.aijR2Log.txt", "tower.aijR2Result.csv",
                                     "tower.qhm"));
    EXPECT_THAT(folder.Read("tower.aijR2Log.txt"), HasSubstr("\n  File : " + model + "\n"));
}

// 7 / 3500 in X and 3.5 / 3500 in Z, of every column: the first one is the worst.
TEST_F(QuarnelCli, ShowsTheVerdictsOfTheStoriesWithoutColour) {
    const ProgramRun run = Check();
    EXPECT_THAT(run.out, testing::ContainsRegex("  X, load case 2\n.*\n    1 +1/500 +1/200 +PASS "
                                                "+1/500 +1 +1/200 +OK\n"));
    EXPECT_THAT(run.out, testing::ContainsRegex("  Z, load case 3\n.*\n    1 +1/1000 +1/200 "
                                                "+PASS +1/1000 +1 +1/200 +OK\n"));
    EXPECT_THAT(run.out, Not(HasSubstr("\x1b")));
}

TEST_F(QuarnelCli, EndsWithThreeWhereTheChosenVerdictIsNotFulfilled) {
    // 31.5 mm over 3500 mm is 0.009: less than the input's 0.01, more than any relief by the code.
    FakeHost host;
    AddSmallBuilding(host);
    for (const std::int32_t node : {11, 12, 13, 14})
        host.Displace(2, node, 0.0315, 0, 0);
    model = RecordRun(host);
    input = folder.Write("input.csv",
                         "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
                         "AllowStoryDeformAngle,\n1,0.01,\nFIN\n");
    EXPECT_EQ(0, Check().exitCode);
    EXPECT_EQ(3, Cli({"check", model, input, "--fail-on", "code"}).exitCode);
    EXPECT_EQ(0, Cli({"check", model, input, "--fail-on", "tool"}).exitCode);
    EXPECT_EQ(2, Cli({"check", model, input, "--fail-on", "taste"}).exitCode);
}

TEST_F(QuarnelCli, ARunThatEndsEarlyStaysOneWhateverItShouldFailOn) {
    EXPECT_EQ(1, Cli({"check", model, folder.Path("none.csv"), "--fail-on", "code"}).exitCode);
}

TEST_F(QuarnelCli, QuietLeavesTheVerdict) {
    const ProgramRun run = Cli({"check", "--quiet", model, input});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_EQ("Verdict: OK by the code, PASS by the tool\n", run.out);
}

TEST_F(QuarnelCli, QuietAndVerboseExcludeEachOther) {
    EXPECT_EQ(2, Cli({"check", "--quiet", "--verbose", model, input}).exitCode);
}

// Six verdicts of the tables; the results file has more rows: all load cases, largest and members.
TEST_F(QuarnelCli, CountsTheRowsOfTheResultsOnlyWhenVerbose) {
    const std::string all = "\nVerdicts in the results file, all load cases";
    EXPECT_THAT(Check().out, Not(HasSubstr(all)));
    const ProgramRun verbose = Cli({"check", "--verbose", model, input});
    EXPECT_THAT(verbose.out, HasSubstr(all));
    EXPECT_THAT(verbose.out, HasSubstr("\nEarthquake rows: 6 verdicts, 6 PASS, 0 FAIL; by the "
                                       "code: 6 OK, 0 NG, 0 undetermined\n"));
    EXPECT_THAT(verbose.out, HasSubstr("\n  note R27: "));
}

TEST_F(QuarnelCli, PutsTheReportsIntoAnotherFolder) {
    const ProgramRun run = Cli({"check", "--reports", folder.Path("out"), model, input});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_TRUE(folder.Has("out/tower.input.aijR2Log.txt"));
    EXPECT_TRUE(folder.Has("out/tower.input.aijR2Result.csv"));
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
    EXPECT_THAT(run.out, HasSubstr(folder.Path("out") + "/tower.input.aijR2Result.csv\n"));
}

TEST_F(QuarnelCli, AFileInPlaceOfTheReportsFolderEndsWithTwo) {
    const ProgramRun run = Cli({"check", "--reports", input, model, input});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, IsOneLine());
}

TEST_F(QuarnelCli, WritesFiguresAndTables) {
    const ProgramRun run =
        Cli({"check", model, input, "--json", folder.Path("f.json"), "--table",
             folder.Path("t.csv"), "--table-members", folder.Path("m.csv"), "--date", "today"});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(folder.Read("f.json"), HasSubstr("\"made\": \"today\""));
    EXPECT_THAT(folder.Read("f.json"), HasSubstr("\"tool\": \"" QUARNEL_VERSION_TEXT "\""));
    EXPECT_THAT(folder.Read("t.csv"), StartsWith("\xEF\xBB\xBF"
                                                 "階 Story,"));
    EXPECT_THAT(folder.Read("m.csv"), StartsWith("\xEF\xBB\xBF"
                                                 "階 Story,"));
    EXPECT_THAT(run.out, HasSubstr("\nFigures: " + folder.Path("f.json") + "\n"));
}

TEST_F(QuarnelCli, WritesTheFiguresOfARunThatEndedEarlyToo) {
    FakeHost host;
    AddSmallBuilding(host);
    host.resultsAvailable = false;
    model = RecordRun(host);
    EXPECT_EQ(1, Cli({"check", model, input, "--json", folder.Path("f.json")}).exitCode);
    EXPECT_THAT(folder.Read("f.json"), HasSubstr("\"complete\": false"));
}

TEST_F(QuarnelCli, AFileOfFiguresThatCannotBeWrittenEndsWithOneAndTheRunStands) {
    const ProgramRun run = Cli({"check", model, input, "--json", folder.Path("none/f.json")});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_THAT(run.out, StartsWith(kComplete));
    EXPECT_TRUE(folder.Has("tower.aijR2Result.csv"));
}

TEST_F(QuarnelCli, RefusesToWriteFiguresOverAnythingOfTheRun) {
    for (const std::string& path :
         {model, input, folder.Path("tower.aijR2Log.txt"), folder.Path("tower.aijR2Result.csv")})
        for (const char* option : {"--json", "--table", "--table-members"}) {
            const ProgramRun run = Cli({"check", model, input, option, path});
            EXPECT_EQ(2, run.exitCode) << option << " " << path;
            EXPECT_THAT(run.err, IsOneLine());
        }
    EXPECT_EQ(2,
              Cli({"check", model, input, "--json", folder.Path("f"), "--table", folder.Path("f")})
                  .exitCode);
    EXPECT_EQ(kSmallBuildingInput, folder.Read("input.csv"));
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

TEST_F(QuarnelCli, ASecondRunPrintsAndWritesTheSame) {
    const ProgramRun first = Check();
    const std::string log = folder.Read("tower.aijR2Log.txt");
    const std::string csv = folder.Read("tower.aijR2Result.csv");
    EXPECT_EQ(first.out, Check().out);
    EXPECT_EQ(log, folder.Read("tower.aijR2Log.txt"));
    EXPECT_EQ(csv, folder.Read("tower.aijR2Result.csv"));
}

TEST_F(QuarnelCli, ChecksTheExampleBuildings) {
    for (const char* name : {"two_story_y_up", "five_story_office_z_up"}) {
        const std::string stem = std::string(QUARNEL_SOURCE_DIR "/examples/") + name;
        model = folder.Write(std::string(name) + ".qhm", ReadText(stem + ".qhm"));
        input = folder.Write(std::string(name) + ".csv", ReadText(stem + ".csv"));
        const ProgramRun run = Check();
        EXPECT_EQ(0, run.exitCode) << name;
        EXPECT_THAT(run.out, StartsWith(kComplete));
        EXPECT_EQ("", run.err);
    }
}

TEST_F(QuarnelCli, WithoutAnalysisResultsEndsWithOne) {
    FakeHost host;
    host.resultsAvailable = false;
    model = RecordRun(host);
    const ProgramRun run = Check();
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, StartsWith("ORVEK analysis results are not available.\n"
                                    "Please run analysis first.\nFinishes process...\n"
                                    "Closing error log file...\n"));
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_FALSE(folder.Has("tower.aijR2Result.csv"));
}

TEST_F(QuarnelCli, AMissingInputFileEndsWithOneAndWritesNothing) {
    input = folder.Path("gone.csv");
    const ProgramRun run = Check();
    EXPECT_EQ(1, run.exitCode);
    EXPECT_EQ("Input does not exist\n", run.out);
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_THAT(run.err, HasSubstr(input));
    EXPECT_THAT(Files(), ElementsAre("input.csv", "tower.qhm"));
}

TEST_F(QuarnelCli, AnEmptyInputPathIsNotSpecified) {
    input.clear();
    const ProgramRun run = Check();
    EXPECT_EQ(1, run.exitCode);
    EXPECT_EQ("Input not specified!\n", run.out);
    EXPECT_THAT(run.err, IsOneLine());
}

TEST_F(QuarnelCli, AnInputThatCannotBeReadToItsEndEndsWithOne) {
    std::filesystem::create_directory(folder.Path("inputs"));
    for (const std::string& path : {folder.Path("inputs"), folder.Write("empty.csv", ""),
                                    folder.Write("noise.csv", Noise(300000)),
                                    folder.Write("zeros.csv", std::string(100000, '\0')), model}) {
        input = path;
        const ProgramRun run = Check();
        EXPECT_EQ(1, run.exitCode) << path;
        EXPECT_THAT(run.out, StartsWith(kNotInitialized)) << path;
        EXPECT_THAT(run.err, IsOneLineBehindCautions()) << path;
    }
}

TEST_F(QuarnelCli, AnInputOfAMillionLinesEndsWithOne) {
    std::string text;
    for (int i = 0; i < 1000000; ++i)
        text += "# a line\n";
    input = folder.Write("long.csv", text + "FIN\n");
    const ProgramRun run = Check();
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, StartsWith(kNotInitialized));
    EXPECT_THAT(run.out, HasSubstr("Data file line number is too large."));
    EXPECT_THAT(run.err, IsOneLineBehindCautions());
}

TEST_F(QuarnelCli, AnInputOfOneEndlessLineEndsWithOne) {
    constexpr std::size_t kSize = 50 * 1000 * 1000;
    for (const char character : {'x', ','}) {
        input = folder.Write("endless.csv", std::string(kSize, character));
        const ProgramRun run = Check();
        EXPECT_EQ(1, run.exitCode);
        EXPECT_THAT(run.out, StartsWith(kNotInitialized));
        EXPECT_THAT(run.err, IsOneLineBehindCautions());
        EXPECT_EQ(kSize, std::filesystem::file_size(input));
    }
}

TEST_F(QuarnelCli, AModelThatCannotBeReadEndsWithTwoAndOneLineThatNamesIt) {
    std::filesystem::create_directory(folder.Path("folder.qhm"));
    const std::string head = "{\"format\": \"quarnel-host-model\", \"version\": 1";
    for (const std::string& path :
         {folder.Path("gone.qhm"), folder.Path("folder.qhm"), folder.Path("tower.qhm/inside.qhm"),
          folder.Write("empty.qhm", ""), folder.Write("noise.qhm", Noise(100000)),
          folder.Write("endless.qhm", "\"" + std::string(1000000, 'x')),
          folder.Write("deep.qhm", std::string(100000, '[')),
          folder.Write("cut.qhm", folder.Read("tower.qhm").substr(0, 500)), input,
          folder.Write("type.qhm", head + ", \"zUp\": 1}")}) {
        const ProgramRun run = Cli({"check", path, input});
        EXPECT_EQ(2, run.exitCode) << path;
        EXPECT_EQ("", run.out) << path;
        EXPECT_THAT(run.err, IsOneLine()) << path;
        EXPECT_THAT(run.err, HasSubstr(path));
    }
}

TEST_F(QuarnelCli, AWrongTypeDeepInsideTheModelIsNamedWithItsPlace) {
    model = folder.Write("deep.qhm",
                         "{\"format\": \"quarnel-host-model\", \"version\": 1, \"endForces\": "
                         "{\"2\": {\"1\": [[1,2,3,4,5,6], [1,2,\"3\",4,5,6]]}}}");
    const ProgramRun run = Check();
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_THAT(run.err, HasSubstr(model + ": endForces.2.1[1][2]: expected a number"));
    EXPECT_FALSE(folder.Has("deep.aijR2Log.txt"));
}

TEST_F(QuarnelCli, AnUnknownKeyOfTheModelIsACautionOfACompleteRun) {
    const ProgramRun before = Check();
    std::string text = folder.Read("tower.qhm");
    text.insert(text.find('{') + 1, "\"displacement\": {},");
    folder.Write("tower.qhm", text);
    const ProgramRun run = Check();
    EXPECT_EQ(0, run.exitCode);
    EXPECT_EQ(before.out, run.out);
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_THAT(run.err, HasSubstr("caution: " + model + ": the unknown key \"displacement\""));
}

TEST_F(QuarnelCli, AKeyTwiceInTheModelEndsWithTwoAndItsPlace) {
    std::string text = folder.Read("tower.qhm");
    text.insert(text.find('{') + 1, "\"zUp\": true,");
    folder.Write("tower.qhm", text);
    const ProgramRun run = Check();
    EXPECT_EQ(2, run.exitCode);
    EXPECT_EQ("", run.out);
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_THAT(run.err, HasSubstr(model + ": zUp: this key stands twice"));
}

TEST_F(QuarnelCli, AFolderInPlaceOfTheLogEndsWithOne) {
    std::filesystem::create_directory(folder.Path("tower.aijR2Log.txt"));
    const ProgramRun run = Check();
    EXPECT_EQ(1, run.exitCode);
    EXPECT_EQ(kNotInitialized, run.out);
    EXPECT_THAT(run.err, IsOneLine());
    EXPECT_THAT(run.err, HasSubstr(folder.Path("tower.aijR2Log.txt")));
}

TEST_F(QuarnelCli, AFolderInPlaceOfTheResultsIsAWarningOfACompleteRun) {
    std::filesystem::create_directory(folder.Path("tower.aijR2Result.csv"));
    const ProgramRun run = Check();
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, StartsWith(kComplete));
    EXPECT_THAT(run.out,
                HasSubstr("Cannot open result file " + folder.Path("tower.aijR2Result.csv") + "."));
}

TEST_F(QuarnelCli, AnExceptionInAStepEndsWithOneAndStillShowsTheLog) {
    FakeHost host;
    AddSmallBuilding(host);
    model = RecordRun(host);
    std::string text = folder.Read("tower.qhm");
    const std::string beam = "\"number\":9,\"start\":11,\"end\":12";
    const std::size_t at = text.find(beam);
    ASSERT_NE(std::string::npos, at);
    text.replace(at, beam.size(), "\"number\":9,\"start\":11,\"end\":99");
    folder.Write("tower.qhm", text);
    const ProgramRun run = Check();
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, HasSubstr("Setting floor information...\nException was thrown...\n"
                                   "Finishes process...\nClosing error log file...\n"));
    EXPECT_THAT(run.out, HasSubstr("Node number is not set correctly as setting floor..."));
    EXPECT_THAT(run.err, IsOneLine());
}

TEST_F(QuarnelCli, WrongUsageEndsWithTwoAndOneLine) {
    const std::vector<std::string> usages[] = {
        {},
        {"check"},
        {"check", model},
        {"check", model, input, "more"},
        {"check", "--no-such-option", model, input},
        {"no-such-command"},
        {"--no-such-option"},
    };
    for (const auto& usage : usages) {
        const ProgramRun run = Cli(usage);
        EXPECT_EQ(2, run.exitCode) << testing::PrintToString(usage);
        EXPECT_EQ("", run.out) << testing::PrintToString(usage);
        EXPECT_THAT(run.err, IsOneLine()) << testing::PrintToString(usage);
    }
    EXPECT_THAT(Files(), ElementsAre("input.csv", "tower.qhm"));
}

TEST_F(QuarnelCli, HelpTeachesTheCommandItsExitCodesAndTheInputFile) {
    for (const auto& arguments :
         {std::vector<std::string>{"--help"}, std::vector<std::string>{"check", "--help"}}) {
        const ProgramRun run = Cli(arguments);
        EXPECT_EQ(0, run.exitCode);
        EXPECT_THAT(run.out, HasSubstr("quarnel-cli check "));
        EXPECT_THAT(run.out, HasSubstr("Exit codes:"));
        EXPECT_THAT(run.out, HasSubstr("FIN"));
        EXPECT_EQ("", run.err);
    }
    const std::string help = Cli({"check", "--help"}).out;
    EXPECT_THAT(help, HasSubstr("MODEL.qhm"));
    EXPECT_THAT(help, HasSubstr("INPUT.csv"));
}

TEST_F(QuarnelCli, VersionIsOneLine) {
    const ProgramRun run = Cli({"--version"});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_EQ("quarnel-cli " QUARNEL_VERSION_TEXT "\n", run.out);
    EXPECT_EQ("", run.err);
}

TEST_F(QuarnelCli, AnInputThatTheRunWouldOverwriteIsRefusedAndKept) {
    Check();
    for (const char* report : {"tower.aijR2Log.txt", "tower.aijR2Result.csv"}) {
        const std::string before = folder.Read(report);
        const ProgramRun run = Cli({"check", model, folder.Path(report)});
        EXPECT_EQ(2, run.exitCode);
        EXPECT_EQ("", run.out);
        EXPECT_THAT(run.err, IsOneLine());
        EXPECT_THAT(run.err, HasSubstr(folder.Path(report)));
        EXPECT_EQ(before, folder.Read(report));
    }
}

// Line 4 has no comma right after the earthquake line: both cases become 3.
TEST_F(QuarnelCli, CautionsAboutErrorsAndWarningsOfTheInputFileBeforeARun) {
    input = folder.Write("caution.csv",
                         "# remarks,\nDeadLoadCaseNumber,1,\n"
                         "EarthquakeLoadCaseNumber,2,3,\n\nFloorLevel,0,3500,3500,6500,\nFIN\n");
    const ProgramRun run = Check();
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, StartsWith(kComplete));
    EXPECT_EQ("quarnel-cli: caution: " + input +
                  ":4:1: error L01: this line has no comma and repeats "
                  "EarthquakeLoadCaseNumber: both cases become 3\nquarnel-cli: caution: " +
                  input + ":5:19: warning V07: the level stands twice; it counts once\n",
              run.err);
    EXPECT_THAT(folder.Read("tower.aijR2Log.txt"),
                HasSubstr("  Earthquake load( X direc. ) case number : 3\n"
                          "  Earthquake load( Z or Y direc. ) case number : 3\n"));
}

TEST_F(QuarnelCli, CautionsAboutNothingWithNoLint) {
    input = folder.Write("caution.csv", "EarthquakeLoadCaseNumber,2,3,\n\nFIN\n");
    EXPECT_EQ("", Cli({"check", "--no-lint", model, input}).err);
}

// 30 members that are no numbers, each read as another one.
TEST_F(QuarnelCli, CautionsAboutNoMoreThanTwentyFindings) {
    std::string list;
    for (int i = 1; i <= 30; ++i)
        list += std::to_string(i) + "a,";
    input = folder.Write("caution.csv",
                         "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
                         "MemberDeformAngle," +
                             list + "\nFIN\n");
    const std::string err = Check().err;
    EXPECT_EQ(21, std::count(err.begin(), err.end(), '\n'));
    EXPECT_THAT(err, EndsWith(": and 10 more; quarnel-cli lint shows them\n"));
}

TEST_F(QuarnelCli, DoesNotCautionAboutOtherLinesWithoutAComma) {
    input = folder.Write("quiet.csv",
                         "remark\n\nDeadLoadCaseNumber,1,\n\n"
                         "EarthquakeLoadCaseNumber,2,3,\n# end,\nremark\nFIN\n");
    EXPECT_EQ("", Check().err);
}

// A relative path without a folder: the reports go into the current folder.
TEST_F(QuarnelCli, TakesRelativePaths) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(""));
    const ProgramRun run = Cli({"check", "tower.qhm", "input.csv"});
    std::filesystem::current_path(before);
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(Files(), ElementsAre("input.csv", "tower.aijR2Log.txt", "tower.aijR2Result.csv",
                                     "tower.qhm"));
}
