#include "cli/file_arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A program with the commands "check", which has an option with a value and a flag, and "sheet".
class FileArguments : public testing::Test {
protected:
    FileArguments() {
        CLI::App* const check = app.add_subcommand("check", "");
        check->add_option("--json,-j", value, "");
        check->add_flag("--all", flag, "");
        app.add_subcommand("sheet", "");
    }

    CommandLine TakeOut(std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), "program");
        return TakeOutFiles(app, static_cast<int>(arguments.size()), arguments.data());
    }

    CLI::App app;
    std::string value;
    bool flag = false;
};

}  // namespace

TEST_F(FileArguments, AreWhatIsNoOptionAndNoOptionsValue) {
    const CommandLine line = TakeOut(
        {"check", "a", "--json", "out", "b", "-j", "-x", "--all", "c", "--json=[d]", "--other"});
    EXPECT_THAT(line.files, ElementsAre("a", "b", "c"));
    EXPECT_THAT(line.options, ElementsAre("check", "--json", "out", "-j", "-x", "--all",
                                          "--json=[d]", "--other"));
}

TEST_F(FileArguments, AreTakenAsTheyAre) {
    EXPECT_THAT(TakeOut({"check", "[a,b]", "++", "", "-", "check", "sheet", "a=b"}).files,
                ElementsAre("[a,b]", "++", "", "-", "check", "sheet", "a=b"));
}

TEST_F(FileArguments, AreEverythingBehindTwoHyphens) {
    const CommandLine line = TakeOut({"check", "--all", "--", "--json", "--", "-x"});
    EXPECT_THAT(line.files, ElementsAre("--json", "--", "-x"));
    EXPECT_THAT(line.options, ElementsAre("check", "--all"));
}

TEST_F(FileArguments, AreLookedForBehindACommandOnly) {
    const CommandLine line = TakeOut({"--help", "no-such-command", "a"});
    EXPECT_THAT(line.files, IsEmpty());
    EXPECT_THAT(line.options, ElementsAre("--help", "no-such-command", "a"));
    EXPECT_THAT(TakeOut({}).options, IsEmpty());
}

TEST_F(FileArguments, MayEndWithAnOptionThatLacksItsValue) {
    EXPECT_THAT(TakeOut({"check", "a", "--json"}).options, ElementsAre("check", "--json"));
}
