// `quarnel-cli sheet`, run as a user runs it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/recorded_small_building.h"
#include "tests/support/run_program.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class SheetCommand : public testing::Test {
protected:
    SheetCommand() {
        input = folder.Write("input.csv", kSmallBuildingInput);
        model = WriteRecordedSmallBuilding(folder, "tower.qhm");
    }

    ProgramRun Cli(const std::vector<std::string>& arguments) {
        return RunProgram(std::filesystem::absolute(QUARNEL_CLI).string(), arguments, output);
    }

    TestFolder folder;
    TestFolder output;
    std::string model, input;
};

TEST_F(SheetCommand, WritesTheSheetBesideLogAndResults) {
    const ProgramRun run = Cli({"sheet", model, input});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, StartsWith("Preparing for calculation...\n"));
    const std::string sheet = folder.Path("tower.aijR2Sheet.html");
    EXPECT_THAT(run.out, EndsWith("Sheet:   " + sheet + "\n"));
    EXPECT_THAT(BytesOf(sheet), StartsWith("<!DOCTYPE html>"));
    EXPECT_TRUE(std::filesystem::exists(folder.Path("tower.aijR2Log.txt")));
    EXPECT_TRUE(std::filesystem::exists(folder.Path("tower.aijR2Result.csv")));
}

TEST_F(SheetCommand, LeavesLogAndResultsAsCheckWritesThem) {
    Cli({"check", model, input});
    const std::string log = BytesOf(folder.Path("tower.aijR2Log.txt"));
    const std::string results = BytesOf(folder.Path("tower.aijR2Result.csv"));
    Cli({"sheet", model, input});
    EXPECT_EQ(log, BytesOf(folder.Path("tower.aijR2Log.txt")));
    EXPECT_EQ(results, BytesOf(folder.Path("tower.aijR2Result.csv")));
}

TEST_F(SheetCommand, WithADateGivesTheSameBytesAgain) {
    const std::string sheet = folder.Path("out.html");
    Cli({"sheet", model, input, sheet, "--date", "2026-11-21 10:00"});
    const std::string first = BytesOf(sheet);
    EXPECT_THAT(first, HasSubstr("2026-11-21 10:00"));
    std::filesystem::last_write_time(
        input, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000));
    Cli({"sheet", model, input, sheet, "--date", "2026-11-21 10:00"});
    EXPECT_EQ(first, BytesOf(sheet));
}

TEST_F(SheetCommand, RefusesAnOutputThatIsAFileOfTheRun) {
    for (const std::string& file :
         {model, input, folder.Path("tower.aijR2Log.txt"), folder.Path("tower.aijR2Result.csv")}) {
        Cli({"check", model, input});
        const std::string before = BytesOf(file);
        const ProgramRun run = Cli({"sheet", model, input, file});
        EXPECT_EQ(2, run.exitCode) << file;
        EXPECT_THAT(run.err, HasSubstr("overw")) << file;
        EXPECT_EQ(before, BytesOf(file));
    }
}

TEST_F(SheetCommand, ThatCannotBeWrittenIsOneLineAndExitCode1) {
    const ProgramRun run = Cli({"sheet", model, input, folder.Path("none/out.html")});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("the sheet is not written"));
    EXPECT_THAT(run.out, Not(HasSubstr("Sheet:")));
}

// The input names a load case that the recording does not have: nothing was calculated, nothing is
// OK.
TEST_F(SheetCommand, EndsWith3WhereTheVerdictItWasToldToWatchIsNotFulfilled) {
    folder.Write("input.csv", "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,9,\nFIN\n");
    EXPECT_EQ(3, Cli({"sheet", model, input, "--fail-on", "code"}).exitCode);
    EXPECT_EQ(0, Cli({"sheet", model, input, "--fail-on", "never"}).exitCode);
}

TEST_F(SheetCommand, TakesItsLanguageAndItsDetail) {
    const std::string sheet = folder.Path("out.html");
    Cli({"sheet", model, input, sheet, "--lang", "en", "--detail", "none"});
    EXPECT_THAT(BytesOf(sheet), HasSubstr("<html lang=\"en\">"));
    EXPECT_THAT(BytesOf(sheet), Not(HasSubstr("members.shear_kN")));
    EXPECT_EQ(2, Cli({"sheet", model, input, sheet, "--lang", "fr"}).exitCode);
}

TEST_F(SheetCommand, NeedsItsFiles) {
    EXPECT_EQ(2, Cli({"sheet"}).exitCode);
    EXPECT_EQ(2, Cli({"sheet", model}).exitCode);
    EXPECT_EQ(2, Cli({"sheet", folder.Path("none.qhm"), input}).exitCode);
}

}  // namespace
