#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "tests/support/test_folder.h"

namespace {

class ShownLines : public StatusList {
public:
    void Clear() override { text.clear(); }
    void Append(StatusText line) override { text += TextOf(line) + std::string("\n"); }

    std::string text;
};

std::filesystem::path CaseFolder(const std::string& name) {
    return std::filesystem::path(QUARNEL_SOURCE_DIR) / "tests" / "whole_run" / name;
}

std::string Expected(const std::string& name, const std::string& file) {
    return ReadText(CaseFolder(name) / file);
}

// The expected log with the path of the model where the log shows it.
std::string ExpectedLog(const std::string& name, const std::string& modelPath) {
    const std::string placeholder = "@MODEL@";
    std::string log = Expected(name, "expected.log");
    const std::size_t at = log.find(placeholder);
    if (at != std::string::npos) log.replace(at, placeholder.size(), modelPath);
    return log;
}

// Runs a building worked out by hand in a folder of the test's own; each README holds the numbers.
class WholeRun : public testing::TestWithParam<const char*> {
protected:
    WholeRun() {
        for (const char* file : {"model.qhm", "input.csv"})
            std::filesystem::copy_file(CaseFolder(GetParam()) / file, folder.Path(file));
        const std::string modelPath = folder.Path("model.qhm");
        const RecordedModel model = ReadQhmFile(modelPath);
        RecordedHost host(model, modelPath);
        RunCompute(
            folder.Path("input.csv"), [&host] { return &host; }, status, reports);
        // Results that were open when an exception ended the run reach the disk when the program
        // ends; this one goes on.
        std::fflush(nullptr);
    }

    TestFolder folder;
    ShownLines status;
    ReportPaths reports;
};

TEST_P(WholeRun, ShowsTheStatusLinesWorkedOutByHand) {
    EXPECT_EQ(Expected(GetParam(), "expected.status"), status.text);
}

TEST_P(WholeRun, WritesTheLogWorkedOutByHand) {
    EXPECT_EQ(ExpectedLog(GetParam(), folder.Path("model.qhm")), folder.Read("model.aijR2Log.txt"));
}

TEST_P(WholeRun, WritesTheResultsWorkedOutByHand) {
    if (std::filesystem::exists(CaseFolder(GetParam()) / "expected.csv")) {
        EXPECT_EQ(Expected(GetParam(), "expected.csv"), folder.Read("model.aijR2Result.csv"));
    } else {
        EXPECT_FALSE(folder.Has("model.aijR2Result.csv"));
    }
}

INSTANTIATE_TEST_SUITE_P(ByHand, WholeRun,
                         testing::Values("two_story_y_up_metric", "one_story_z_up_inch",
                                         "not_a_number", "ends_while_saving", "no_fin_line"),
                         [](const auto& building) { return std::string(building.param); });

}  // namespace
