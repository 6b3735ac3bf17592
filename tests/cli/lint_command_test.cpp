// `quarnel-cli lint` as a user runs it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/remembering_host.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/run_program.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class LintCommand : public testing::Test {
protected:
    ProgramRun Lint(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"lint", "--lang", "en"});
        return RunProgram(program, arguments, output);
    }
    ProgramRun LintText(const std::string& text, std::vector<std::string> arguments = {}) {
        arguments.insert(arguments.begin(), folder.Write("tower.csv", text));
        return Lint(arguments);
    }

    std::string RecordedModelFile() {
        FakeHost host;
        AddSmallBuilding(host);
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

    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path("")))
            names.insert(entry.path().filename().string());
        return names;
    }

    const std::string program = std::filesystem::absolute(QUARNEL_CLI).string();
    TestFolder output;
    TestFolder folder;
};

}  // namespace

TEST_F(LintCommand, EndsWithZeroWhereThereIsNoError) {
    const ProgramRun run = LintText(std::string(kLoadCaseLines) + "FIN\n");
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, AllOf(StartsWith("As read\n"), HasSubstr("0 errors, 0 warnings")));
    EXPECT_EQ("", run.err);
}

TEST_F(LintCommand, EndsWithOneAtAnError) {
    const ProgramRun run = LintText(kLoadCaseLines);
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, HasSubstr("tower.csv:1:1: error F02: "));
}

TEST_F(LintCommand, EndsWithOneAtAWarningOnlyWhenStrict) {
    const std::string text = "EarthquakeLoadCaseNumber,2,3,\nFIN\n";
    EXPECT_EQ(0, LintText(text).exitCode);
    EXPECT_EQ(1, LintText(text, {"--strict"}).exitCode);
    // A note is none.
    EXPECT_EQ(
        0, LintText("a comment,\n" + std::string(kLoadCaseLines) + "FIN\n", {"--strict"}).exitCode);
}

TEST_F(LintCommand, EndsWithTwoWhereTheFileCannotBeRead) {
    std::filesystem::create_directory(folder.Path("folder.csv"));
    for (const char* name : {"gone.csv", "folder.csv"}) {
        const ProgramRun run = Lint({folder.Path(name), "--format", "json"});
        EXPECT_EQ(2, run.exitCode) << name;
        EXPECT_THAT(run.out, AllOf(HasSubstr("\"F01\""), HasSubstr("\"asRead\": null"))) << name;
    }
}

TEST_F(LintCommand, EndsWithTwoAtWrongUsage) {
    EXPECT_EQ(2, RunProgram(program, {"lint"}, output).exitCode);
    EXPECT_EQ(2, LintText("FIN\n", {"--format", "xml"}).exitCode);
    EXPECT_EQ(2, LintText("FIN\n", {"--lang", "de"}).exitCode);
}

#ifndef _WIN32
// Nobody writes into the pipe.
TEST_F(LintCommand, DoesNotWaitForAPipe) {
    ASSERT_EQ(0, mkfifo(folder.Path("pipe.csv").c_str(), 0600));
    const ProgramRun run = Lint({folder.Path("pipe.csv")});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.out, HasSubstr("it is a pipe or a device"));
}
#endif

TEST_F(LintCommand, ChecksAgainstARecordedBuildingAndWritesNothing) {
    const std::string model = RecordedModelFile();
    const ProgramRun run =
        LintText(std::string(kLoadCaseLines) + "MemberDeformAngle,1,77,\nFIN\n", {model});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, AllOf(HasSubstr("tower.csv:3:21: warning M12: member 77"),
                               HasSubstr("found in the model: 4 ")));
    EXPECT_THAT(Files(), ElementsAre("tower.csv", "tower.qhm"));
}

// Of four columns the forces are missing, under the dead load and both earthquake cases.
TEST_F(LintCommand, NamesTheInputFileForWhichARecordingWasMade) {
    const std::string path = RecordedModelFile();
    RecordedModel model = ReadQhmFile(path);
    model.recordedFor = RecordedFor{false, "first.csv", std::string(64, 'a')};
    model.endForces = {};
    WriteQhmFile(model, path);
    const ProgramRun run = LintText(std::string(kLoadCaseLines) + "FIN\n", {path});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out,
                AllOf(HasSubstr("tower.csv: error M25: 12 answers are missing in "),
                      HasSubstr("tower.qhm, which was recorded for first.csv: the run would end at "
                                "the forces at the start (0) of member 1 under load case 1\n")));
}

TEST_F(LintCommand, SaysOfAModelThatCannotBeReadWhichFileComesFirst) {
    const std::string model = RecordedModelFile();
    const ProgramRun run = Lint({model, folder.Write("tower.csv", kLoadCaseLines)});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("the input file comes first: lint INPUT.csv MODEL.qhm"));
}

TEST_F(LintCommand, WritesASuggestionBesideTheInput) {
    const ProgramRun run =
        LintText(std::string(kLoadCaseLines) + "FloorLevel,0,3500\nFIN\n", {"--suggest"});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(folder.Read("tower.suggested.csv"), HasSubstr("\nFloorLevel,0,3500,\n"));
    EXPECT_EQ(0, Lint({folder.Path("tower.suggested.csv"), "--strict"}).exitCode);
}

TEST_F(LintCommand, OverwritesNoFileWithASuggestion) {
    const std::string kept = folder.Write("kept.csv", "my own\n");
    const ProgramRun run = LintText(kLoadCaseLines, {"--suggest", kept});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("kept.csv: not written: there is such a file"));
    EXPECT_EQ("my own\n", folder.Read("kept.csv"));
}

TEST_F(LintCommand, BoundsTimeAndMemoryOfABillionBytesOfNoise) {
    // 1 GB, of which no run reads more than 20 MB; the rest is a hole in the file.
    const std::string path = folder.Write("noise.csv", "");
    std::filesystem::resize_file(path, 1000000000);
    const ProgramRun run = Lint({path});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, HasSubstr("error F13"));
}

TEST_F(LintCommand, SaysWhatNoiseIsInAFewLines) {
    std::string noise;
    std::uint32_t state = 1;
    for (int i = 0; i < 2000000; ++i) {
        state = state * 1664525 + 1013904223;
        noise += static_cast<char>(state >> 24);
    }
    const ProgramRun run = LintText(noise);
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, HasSubstr("As read: nothing"));
}

TEST_F(LintCommand, OfTheRunningHostNeedsWindows) {
#ifndef _WIN32
    const ProgramRun run = LintText("FIN\n", {"--host"});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("can be reached on Windows only"));
    EXPECT_THAT(run.out, IsEmpty());
#endif
}
