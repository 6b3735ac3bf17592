// Files that are as they should be have neither errors nor warnings.

#include <gtest/gtest.h>

#include <filesystem>

#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "lint/lint.h"
#include "tests/support/random_building.h"
#include "tests/support/small_building.h"
#include "tests/support/two_story_building.h"

namespace {

std::string ToldOf(const std::vector<LintFinding>& findings) {
    std::string told;
    for (const LintFinding& finding : findings)
        if (finding.rule->kind != LintKind::kNote) told += std::string(finding.rule->id) + ' ';
    return told;
}

// Whoever has tried an example has its results beside it.
bool IsInput(const std::filesystem::path& path) {
    return path.extension() == ".csv" && path.stem().extension() != ".aijR2Result";
}

std::vector<std::filesystem::path> InputsIn(const std::string& folder) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(QUARNEL_SOURCE_DIR + folder))
        if (IsInput(entry.path())) paths.push_back(entry.path());
    return paths;
}

std::string ToldAgainst(const std::string& input, const std::string& model) {
    const std::string path = QUARNEL_SOURCE_DIR "/examples/" + model;
    const RecordedModel recorded = ReadQhmFile(path);
    RecordedHost host(recorded, path);
    return ToldOf(
        LintAgainst(QUARNEL_SOURCE_DIR "/examples/" + input, {host, path, ""}, WantsSuggestion::kNo)
            .findings);
}

}  // namespace

TEST(FalseAlarms, DoNotComeOfTheExamples) {
    for (const char* folder :
         {"/examples", "/examples/published", "/tests/verification/closed_form"})
        for (const auto& path : InputsIn(folder))
            EXPECT_EQ("", ToldOf(CheckInputFile(path.string()).findings)) << path;
}

TEST(FalseAlarms, DoNotComeOfTheInputsOfTheWholeRuns) {
    for (const char* run : {"one_story_z_up_inch", "two_story_y_up_metric"})
        EXPECT_EQ("", ToldOf(CheckInputFile(QUARNEL_SOURCE_DIR "/tests/whole_run/" +
                                            std::string(run) + "/input.csv")
                                 .findings))
            << run;
}

TEST(FalseAlarms, DoNotComeOfTheSoundInputsOfTheTests) {
    EXPECT_EQ("", ToldOf(CheckInputText(InputText(kSmallBuildingInput)).findings));
    for (std::uint64_t seed = 1; seed <= 200; ++seed)
        EXPECT_EQ("", ToldOf(CheckInputText(InputText(InputFileOf(RandomBuilding(seed)))).findings))
            << seed;
}

TEST(FalseAlarms, DoNotComeOfTheExamplesWithTheirBuildings) {
    EXPECT_EQ("", ToldAgainst("two_story_y_up.csv", "two_story_y_up.qhm"));
    EXPECT_EQ("", ToldAgainst("two_story_y_up.derived.csv", "two_story_y_up.qhm"));
    EXPECT_EQ("", ToldAgainst("worked_example.csv", "worked_example.qhm"));
}

// The file names member 9999 on purpose. Braces 1099 and 1100 are oblique, and columns 1019 and
// 1034, braces 3030 and 3032 carry a little of their direction's shear backwards: the figures of
// the run say the same.
TEST(FalseAlarms, AreNotWhatTheFiveStoryOfficeGives) {
    EXPECT_EQ("M12 M20 M26 M26 M26 M26 ",
              ToldAgainst("five_story_office_z_up.csv", "five_story_office_z_up.qhm"));
}
