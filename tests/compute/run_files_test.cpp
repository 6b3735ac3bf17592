#include "compute/run_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_folder.h"

using testing::Optional;

namespace {

using Use = NamedFile::Use;

class FilesOfARun : public testing::Test {
protected:
    FilesOfARun() {
        folder.Write("input.csv", "");
        folder.Write("tower.qhm", "");
        files = FilesOfRun(folder.Path("input.csv"), folder.Path("tower.qhm"));
    }

    void Link(const std::string& path, const std::string& to) const {
        std::filesystem::remove(path);
        std::filesystem::create_hard_link(to, path);
    }

    std::optional<std::string> AllDistinct(std::vector<NamedFile> others = {}) const {
        return RequireAllDistinct(std::move(others))(files);
    }

    const TestFolder folder;
    RunFiles files;
};

}  // namespace

TEST_F(FilesOfARun, OfAnOrdinaryRunMayBeUsed) {
    EXPECT_EQ(std::nullopt, AllDistinct());
    EXPECT_EQ(std::nullopt, RequireSourcesKept(files));
}

TEST_F(FilesOfARun, NameTheReportAndWhatItWouldOverwrite) {
    Link(files.log, files.model);
    const std::string why = "the log file " + files.log + " is the same file as the model " +
                            files.model + ": the model would be overwritten";
    EXPECT_THAT(AllDistinct(), Optional(why));
    EXPECT_THAT(RequireSourcesKept(files), Optional(why));
}

TEST_F(FilesOfARun, KeepTheInputFromTheResults) {
    Link(files.results, files.input);
    const std::string why = "the results file " + files.results +
                            " is the same file as the input file " + files.input +
                            ": the input file would be overwritten";
    EXPECT_THAT(AllDistinct(), Optional(why));
    EXPECT_THAT(RequireSourcesKept(files), Optional(why));
}

TEST_F(FilesOfARun, KeepTheModelFromTheResultsWhenTheReportsAreOneFile) {
    Link(files.log, files.model);
    Link(files.results, files.model);
    EXPECT_TRUE(AllDistinct());
    EXPECT_TRUE(RequireSourcesKept(files));
}

TEST_F(FilesOfARun, AreTheReportsUnlessOnlyTheSourcesCount) {
    folder.Write("both", "");
    Link(files.log, folder.Path("both"));
    Link(files.results, folder.Path("both"));
    EXPECT_THAT(AllDistinct(),
                Optional("the log file " + files.log + " and the results file " + files.results +
                         " are the same file: one would overwrite the other"));
    EXPECT_EQ(std::nullopt, RequireSourcesKept(files));
}

// A file that is only read may be read twice.
TEST_F(FilesOfARun, MayHaveTheModelAsInput) {
    files.input = files.model;
    EXPECT_EQ(std::nullopt, AllDistinct());
}

TEST_F(FilesOfARun, MayBeWithoutAModelPath) {
    files.model.clear();
    EXPECT_EQ(std::nullopt, AllDistinct());
}

TEST_F(FilesOfARun, CountOtherOutputsTooWhichNeedNotExist) {
    const std::string out = folder.Path("out.json");
    EXPECT_EQ(std::nullopt, AllDistinct({{"the table", out, Use::kWritten}}));
    EXPECT_TRUE(AllDistinct({{"the recording", files.model, Use::kWritten}}));
    EXPECT_TRUE(AllDistinct({{"the recording", files.log, Use::kWritten}}));
    EXPECT_TRUE(AllDistinct({{"the recording", files.results, Use::kWritten}}));
    EXPECT_TRUE(AllDistinct({{"the recording", files.input, Use::kWritten}}));
    EXPECT_THAT(AllDistinct({{"the table", out, Use::kWritten},
                             {"the page", folder.Path("./out.json"), Use::kWritten}}),
                Optional("the table " + out + " and the page " + folder.Path("./out.json") +
                         " are the same file: one would overwrite the other"));
}

TEST_F(FilesOfARun, CountOtherSourcesToo) {
    const std::vector<NamedFile> others = {{"the base", files.results, Use::kRead}};
    EXPECT_THAT(AllDistinct(others),
                Optional("the results file " + files.results + " is the same file as the base " +
                         files.results + ": the base would be overwritten"));
}

TEST_F(FilesOfARun, AreNotChangedByTheLook) {
    folder.Write("tower.aijR2Log.txt", "earlier");
    AllDistinct();
    EXPECT_EQ("earlier", folder.Read("tower.aijR2Log.txt"));
    EXPECT_FALSE(folder.Has("tower.aijR2Result.csv"));
}

TEST(NamesOfReports, InAnotherFolderHoldModelAndInputWithoutTheirExtensions) {
    EXPECT_EQ("out/tower.variant2.qhm", NameOfReportsIn("out", "/a/tower.qhm", "b/variant2.csv"));
    EXPECT_EQ("out/t.2.v.qhm", NameOfReportsIn("out/", "t.2.ext", "v"));
}

TEST(NamesOfReports, KeepAHiddenFilesName) {
    EXPECT_EQ("out/.tower.i.qhm", NameOfReportsIn("out", ".tower", "i.csv"));
}
