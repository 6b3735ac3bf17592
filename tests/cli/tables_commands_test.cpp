// `quarnel-cli import` and `export`, and folders of tables for `check` and `lint`, as a user runs
// them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/run_program.h"
#include "tests/tables/one_story_tables.h"

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class TablesCommands : public testing::Test {
protected:
    TablesCommands() { input = folder.Write("job.csv", kInput); }

    std::string Folder() {
        tables.Import();  // writes them
        std::filesystem::rename(tables.Folder(), folder.Path("tower"));
        return folder.Path("tower");
    }
    ProgramRun Cli(const std::vector<std::string>& arguments) {
        return RunProgram(program, arguments, output);
    }

    static constexpr const char* kInput =
        "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFIN\n";

    std::string program = QUARNEL_CLI;
    TestFolder folder, output;
    OneStoryTables tables;
    std::string input;
};

}  // namespace

TEST_F(TablesCommands, ImportWritesAModelAndSaysWhatItRead) {
    const ProgramRun run = Cli({"import", Folder(), folder.Path("tower.qhm"), "--for", input});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.err, IsEmpty());
    EXPECT_THAT(run.out, StartsWith("  nodes       8, 4 of them held\n"));
    EXPECT_THAT(run.out, EndsWith("\nWritten: " + folder.Path("tower.qhm") + "\n"));
    const ProgramRun check = Cli({"check", folder.Path("tower.qhm"), input});
    EXPECT_EQ(0, check.exitCode) << check.err;
}

TEST_F(TablesCommands, ImportEndsWith2AndALineForEachFault) {
    tables.SetLine("nodes", 3, "2,six,0,0");
    tables.SetLine("forces", 2, "1,9,start,0,0,100");
    const ProgramRun run = Cli({"import", Folder(), folder.Path("tower.qhm")});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.out, IsEmpty());
    EXPECT_EQ(
        "nodes.csv:3:3: x: \"six\" is no number; a number such as 12.5 is expected\n"
        "forces.csv:2:3: unknown member \"9\"; one of members.csv is expected\n"
        "forces.csv: case 1, member 1: no forces at the start\n"
        "quarnel-cli: " +
            folder.Path("tower") + ": 3 faults in the tables; nothing was written\n",
        run.err);
    EXPECT_FALSE(folder.Has("tower.qhm"));
}

// A name that would turn the terminal red is written out.
TEST_F(TablesCommands, ImportNamesThingsInPlainCharacters) {
    tables.SetLine("nodes", 2, "\x1b[31m,0,0,0");
    tables.SetLine("nodes", 3, "\x1b[31m,6,0,0");
    const ProgramRun run = Cli({"import", Folder(), folder.Path("tower.qhm")});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr(": node \\x1b[31m stands twice; one row is expected\n"));
    EXPECT_THAT(run.err, Not(HasSubstr("\x1b")));
}

TEST_F(TablesCommands, ImportEndsWith1AtAWrongStatementAndKeepsWhatStoodThere) {
    tables.State("endForceSense", "onNode");
    folder.Write("tower.qhm", "an older one");
    const ProgramRun run = Cli({"import", Folder(), folder.Path("tower.qhm")});
    EXPECT_EQ(1, run.exitCode);
    EXPECT_THAT(run.err, AllOf(StartsWith("model.csv:7:15: endForceSense onNode: "),
                               HasSubstr(": endForceSense onMember"),
                               HasSubstr("tower.qhm: not written"), HasSubstr("--force")));
    EXPECT_EQ("an older one", folder.Read("tower.qhm"));
}

TEST_F(TablesCommands, ImportWritesAWrongStatementWhenForced) {
    tables.State("endForceSense", "onNode");
    const ProgramRun run = Cli({"import", "--force", Folder(), folder.Path("tower.qhm")});
    EXPECT_EQ(0, run.exitCode);
    EXPECT_THAT(run.err, StartsWith("model.csv:7:15: endForceSense onNode: "));
    EXPECT_TRUE(folder.Has("tower.qhm"));
}

TEST_F(TablesCommands, ImportIsNotForcedPastFaults) {
    tables.SetLine("nodes", 3, "2,six,0,0");
    const ProgramRun run = Cli({"import", "--force", Folder(), folder.Path("tower.qhm")});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_FALSE(folder.Has("tower.qhm"));
}

TEST_F(TablesCommands, ImportRefusesToOverwriteATable) {
    const std::string tower = Folder();
    const std::string nodes = folder.Read("tower/nodes.csv");
    const ProgramRun run = Cli({"import", tower, tower + "/nodes.csv"});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, AllOf(HasSubstr("the table nodes.csv"), HasSubstr("nothing was written")));
    EXPECT_EQ(nodes, folder.Read("tower/nodes.csv"));
}

TEST_F(TablesCommands, ImportSaysWhatIsNoFolderAndNoInputFile) {
    const ProgramRun nothing = Cli({"import", folder.Path("nothing"), folder.Path("a.qhm")});
    EXPECT_EQ(2, nothing.exitCode);
    EXPECT_EQ("quarnel-cli: " + folder.Path("nothing") + ": there is no such folder\n",
              nothing.err);
    const ProgramRun file = Cli({"import", input, folder.Path("a.qhm")});
    EXPECT_EQ(2, file.exitCode);
    EXPECT_THAT(file.err, HasSubstr("a folder of tables is expected"));
    std::filesystem::create_directory(folder.Path("empty"));
    const ProgramRun empty = Cli({"import", folder.Path("empty"), folder.Path("a.qhm")});
    EXPECT_EQ(2, empty.exitCode);
    EXPECT_THAT(empty.err, StartsWith("quarnel-cli: " + folder.Path("empty") +
                                      ": this folder has no tables; "));
    const ProgramRun noFin = Cli({"import", Folder(), folder.Path("a.qhm"), "--for",
                                  folder.Write("no_fin.csv", "DeadLoadCaseNumber,1,\n")});
    EXPECT_EQ(2, noFin.exitCode);
    EXPECT_THAT(noFin.err, HasSubstr("no_fin.csv: this input file cannot be read to a line FIN"));
}

TEST_F(TablesCommands, CheckTakesAFolderAndPutsTheReportsBesideIt) {
    const ProgramRun run = Cli({"check", Folder() + "/", input});
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_THAT(run.out, StartsWith("Preparing for calculation...\n"));
    EXPECT_TRUE(folder.Has("tower.aijR2Log.txt"));
    EXPECT_TRUE(folder.Has("tower.aijR2Result.csv"));
    EXPECT_FALSE(folder.Has("tower.qhm"));
}

TEST_F(TablesCommands, CheckOfAFolderGivesTheBytesOfTheImportedModel) {
    const std::string tower = Folder();
    const ProgramRun ofFolder = Cli({"check", tower, input});
    const std::string log = folder.Read("tower.aijR2Log.txt");
    const std::string results = folder.Read("tower.aijR2Result.csv");
    Cli({"import", tower, folder.Path("tower.qhm")});
    const ProgramRun ofModel = Cli({"check", folder.Path("tower.qhm"), input});
    EXPECT_EQ(ofModel.out, ofFolder.out);
    EXPECT_EQ(log, folder.Read("tower.aijR2Log.txt"));
    EXPECT_EQ(results, folder.Read("tower.aijR2Result.csv"));
}

TEST_F(TablesCommands, CheckRefusesFaultyAndWrongTables) {
    tables.State("endForceSense", "onNode");
    const ProgramRun wrong = Cli({"check", Folder(), input});
    EXPECT_EQ(1, wrong.exitCode);
    EXPECT_THAT(wrong.out, IsEmpty());
    EXPECT_THAT(wrong.err, HasSubstr("model.csv:7:15: endForceSense onNode: "));
    std::filesystem::remove(folder.Path("tower/nodes.csv"));
    const ProgramRun faulty = Cli({"check", folder.Path("tower"), input});
    EXPECT_EQ(2, faulty.exitCode);
    EXPECT_THAT(faulty.err, HasSubstr("nodes.csv: there is no such file in the folder\n"));
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

TEST_F(TablesCommands, CheckOfAFolderAloneAsksForTheInputFile) {
    const ProgramRun run = Cli({"check", Folder()});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("name the Route 2 Input file too"));
}

TEST_F(TablesCommands, LintTakesAFolder) {
    const ProgramRun run = Cli({"lint", "--lang", "en", input, Folder()});
    EXPECT_EQ(0, run.exitCode) << run.out << run.err;
    EXPECT_THAT(run.err, IsEmpty());
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

TEST_F(TablesCommands, ExportWritesANewFolderFromWhichTheSameModelComes) {
    const std::string first = folder.Path("first.qhm"), again = folder.Path("again.qhm");
    ASSERT_EQ(0, Cli({"import", Folder(), first}).exitCode);
    const ProgramRun run = Cli({"export", first, folder.Path("tables")});
    EXPECT_EQ(0, run.exitCode) << run.err;
    EXPECT_EQ("Tables: " + folder.Path("tables") + "\n", run.out);
    ASSERT_EQ(0, Cli({"import", folder.Path("tables"), again}).exitCode);
    Cli({"check", first, input});
    Cli({"check", again, input});
    EXPECT_EQ(folder.Read("first.aijR2Result.csv"), folder.Read("again.aijR2Result.csv"));
}

TEST_F(TablesCommands, ExportRefusesAFolderThatIsThere) {
    ASSERT_EQ(0, Cli({"import", Folder(), folder.Path("tower.qhm")}).exitCode);
    const ProgramRun run = Cli({"export", folder.Path("tower.qhm"), folder.Path("tower")});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, HasSubstr("is there already"));
}

TEST_F(TablesCommands, ExportRefusesWhatIsNoModel) {
    const ProgramRun run = Cli({"export", input, folder.Path("tables")});
    EXPECT_EQ(2, run.exitCode);
    EXPECT_THAT(run.err, StartsWith("quarnel-cli: " + input));
    EXPECT_FALSE(folder.Has("tables"));
}

TEST_F(TablesCommands, BothWantTwoNames) {
    for (const char* command : {"import", "export"}) {
        const ProgramRun run = Cli({command, folder.Path("tower")});
        EXPECT_EQ(2, run.exitCode);
        EXPECT_THAT(run.err, HasSubstr(std::string(command) + " takes "));
    }
}
