// `quarnel-cli compare` and `quarnel-cli batch`, run as a user runs them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/recorded_small_building.h"
#include "tests/support/run_program.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Studies : public testing::Test {
protected:
    Studies() {
        input = folder.Write("input.csv", kSmallBuildingInput);
        // 7 mm over 3.5 m, and 31.5 mm: 1/500 and 1/112.
        model = WriteRecordedSmallBuilding(folder, "stiff.qhm");
        softModel = WriteRecordedSmallBuilding(folder, "soft.qhm", [](FakeHost& host) {
            for (const std::int32_t node : {11, 12, 13, 14})
                host.Displace(2, node, 0.0315, 0, 0);
        });
    }

    ProgramRun Cli(const std::vector<std::string>& arguments) {
        return RunProgram(std::filesystem::absolute(QUARNEL_CLI).string(), arguments, output);
    }

    std::string Figures(const std::string& building, const std::string& name) {
        const std::string path = folder.Path(name);
        Cli({"check", building, input, "--json", path});
        return path;
    }

    ProgramRun Batch(const std::string& rows) {
        return Cli({"batch", folder.Write("jobs.csv", "name,model,input,title\n" + rows)});
    }

    TestFolder folder;
    TestFolder output;
    std::string input, model, softModel;
};

using Compare = Studies;
using BatchCommand = Studies;

}  // namespace

TEST_F(Compare, OfARunWithItselfEndsWithZero) {
    const std::string a = Figures(model, "a.json");
    const ProgramRun run = Cli({"compare", a, a, "--only-changes"});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.out, StartsWith("A: "));
    EXPECT_THAT(run.out, Not(HasSubstr("->")));
    EXPECT_EQ("", run.err);
}

TEST_F(Compare, EndsWithThreeWhereAVerdictHasChanged) {
    const ProgramRun run = Cli({"compare", Figures(model, "a.json"), Figures(softModel, "b.json")});
    EXPECT_EQ(3, run.exitCode);
    EXPECT_THAT(run.out, HasSubstr("\n  verdict by the code OK -> NG\n"));
    EXPECT_THAT(run.out, HasSubstr("\n  story 1, X: angle 1/500 OK -> 1/111 NG\n"));
}

TEST_F(Compare, WritesAPage) {
    const std::string page = folder.Path("page.html");
    const ProgramRun run =
        Cli({"compare", Figures(model, "a.json"), Figures(softModel, "b.json"), page});
    EXPECT_EQ(3, run.exitCode);
    EXPECT_THAT(folder.Read("page.html"), StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(folder.Read("page.html"), HasSubstr("OK (PASS) → NG (FAIL)"));
}

TEST_F(Compare, EndsWithOneWhereThePageCannotBeWritten) {
    const std::string a = Figures(model, "a.json");
    const ProgramRun run = Cli({"compare", a, a, folder.Path("none/page.html")});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.err, StartsWith("quarnel-cli: "));
}

TEST_F(Compare, EndsWithTwoAtAFileThatHoldsNoFigures) {
    const std::string a = Figures(model, "a.json");
    for (const std::string& other : {input, model, folder.Path("none.json"), folder.Path("")}) {
        const ProgramRun run = Cli({"compare", a, other});
        EXPECT_EQ(2, run.exitCode) << other;
        EXPECT_THAT(run.err, HasSubstr(other));
    }
    EXPECT_EQ(2, Cli({"compare", a}).exitCode);
    EXPECT_EQ(2, Cli({"compare", a, a, "--tolerance", "-1"}).exitCode);
}

TEST_F(Compare, DoesNotWriteThePageOverARun) {
    const std::string a = Figures(model, "a.json");
    const std::string before = folder.Read("a.json");
    EXPECT_EQ(2, Cli({"compare", a, Figures(softModel, "b.json"), a}).exitCode);
    EXPECT_EQ(before, folder.Read("a.json"));
}

TEST_F(BatchCommand, EndsWithZeroWhereAllIsOk) {
    const ProgramRun run = Batch("one,stiff.qhm,input.csv,\ntwo,stiff.qhm,input.csv,Second\n");
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_THAT(run.out, HasSubstr("Index:   " + folder.Path("jobs") + "/index.html\n"));
    for (const char* file : {"index.html", "summary.csv", "one/sheet.html", "two/figures.json"})
        EXPECT_TRUE(folder.Has(std::string("jobs/") + file)) << file;
}

TEST_F(BatchCommand, EndsWithThreeWhereSomethingIsNotOk) {
    const ProgramRun run = Batch("one,stiff.qhm,input.csv,\nsoft,soft.qhm,input.csv,\n");
    EXPECT_EQ(3, run.exitCode);
    EXPECT_THAT(run.out, StartsWith("soft: NG\none: OK\n"));
}

TEST_F(BatchCommand, EndsWithOneWhereAJobEndedEarlyAndDoesTheOthers) {
    const ProgramRun run = Batch("none,none.qhm,input.csv,\none,stiff.qhm,input.csv,\n");
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.out, StartsWith("none: ended early: "));
    EXPECT_TRUE(folder.Has("jobs/one/sheet.html"));
}

TEST_F(BatchCommand, EndsWithTwoAtAListThatCannotBeUsed) {
    const ProgramRun run = Batch("one,stiff.qhm,\n");
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("jobs.csv:2: the input file is missing"));
    EXPECT_FALSE(folder.Has("jobs"));
    EXPECT_EQ(2, Cli({"batch"}).exitCode);
    EXPECT_EQ(2, Cli({"batch", folder.Path("jobs.csv"), "--jobs", "0"}).exitCode);
}

TEST_F(BatchCommand, PutsEverythingWhereItIsTold) {
    folder.Write("jobs.csv", "name,model,input\none,stiff.qhm,input.csv\n");
    EXPECT_EQ(0, Cli({"batch", folder.Path("jobs.csv"), "--out", folder.Path("all"), "--jobs", "1"})
                     .exitCode);
    EXPECT_TRUE(folder.Has("all/one/sheet.html"));
    EXPECT_FALSE(folder.Has("jobs"));
}
