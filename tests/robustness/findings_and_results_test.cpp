// The results file and the findings say the same: every row that stands for a figure, cell by cell,
// on random buildings.

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <sstream>

#include "compute/compute_run.h"
#include "host/recorded_host.h"
#include "route2/story_drift.h"
#include "tests/support/random_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::uint64_t kBuildings = 400;

using Cells = std::vector<std::string>;

// The rows of the results by section, direction and type: "ratio/X/Average" and so on.
class ResultRows {
public:
    explicit ResultRows(const std::string& text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (line.ends_with('\r')) line.pop_back();
            Read(line);
        }
    }

    // The row that begins with these cells; fails the test when there is none.
    Cells Row(const std::string& block, const std::string& story, const std::string& load) const {
        const auto rows = rows_.find(block);
        if (rows != rows_.end())
            for (const Cells& cells : rows->second)
                if (cells[0] == story && (load.empty() || cells[1] == load)) return cells;
        ADD_FAILURE() << "no row " << story << "," << load << " in " << block;
        return Cells(12);
    }

private:
    void Read(const std::string& line) {
        if (line.starts_with(" -----"))
            section_ = line, direction_.clear(), type_.clear();
        else if (line.starts_with("Direction "))
            direction_ = line.substr(10);
        else if (line.starts_with("Disp type : "))
            type_ = line.substr(12);
        else if (!line.empty() && line[0] >= '0' && line[0] <= '9') {
            Cells cells;
            std::istringstream fields(line);
            for (std::string cell; std::getline(fields, cell, ',');)
                cells.push_back(cell);
            rows_[section_.substr(8, 8) + "/" + direction_ + "/" + type_].push_back(cells);
        }
    }

    std::string section_, direction_, type_;
    std::map<std::string, std::vector<Cells>> rows_;
};

std::string Printed(double value) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.5e", value);
    return text;
}

std::string Printed(const Figure& figure) {
    return figure ? Printed(*figure) : "not formed";
}

std::string Text(const std::optional<ToolVerdict>& verdict) {
    return verdict ? TextOf(*verdict) : "no verdict";
}

void CompareDirection(const Findings& findings, const StoryFindings& story, std::size_t axis,
                      const ResultRows& rows) {
    const DirectionFindings& direction = story.directions[axis];
    const std::string number = std::to_string(story.number);
    const std::string load = std::to_string(findings.loadCases.earthquake[axis]);
    const std::string name = axis == kX ? "X" : "Z(or Y)";

    const Cells mean = rows.Row("Story de/" + name + "/Average", number, load);
    EXPECT_EQ(mean[5], Printed(direction.meanDrift));
    EXPECT_EQ(mean[6], Printed(direction.meanAngle));
    EXPECT_EQ(mean[7], Printed(story.allowableAngle));
    EXPECT_EQ(mean[8], Text(direction.toolMeanVerdict));

    const Cells max = rows.Row("Story de/" + name + "/Max", number, load);
    EXPECT_EQ(max[5], Printed(direction.toolMax.drift));
    EXPECT_EQ(max[6], Printed(DeformAngle(*direction.toolMax.drift, story.height)));
    if (axis != kX) {
        EXPECT_EQ(max[8], Text(direction.toolMax.verdict));
    }

    const Cells ratio = rows.Row("Story st/" + name + "/Average", number, load);
    if (direction.stiffnessRatio) {
        EXPECT_EQ(ratio[6], Printed(direction.stiffnessRatio));
    }
    EXPECT_EQ(ratio[7], Printed(story.allowableRatio));
    EXPECT_EQ(ratio[8], Text(direction.stiffnessRatioTool));
}

void CompareStory(const Findings& findings, const StoryFindings& story, const ResultRows& rows) {
    const std::string number = std::to_string(story.number);
    if (!story.members.empty())
        for (const std::size_t axis : {kX, kZ})
            CompareDirection(findings, story, axis, rows);
    const Cells gravity = rows.Row("Gravity //", number, "");
    const Cells rigidity = rows.Row("Center o//", number, "");
    const Cells modulus = rows.Row("Eccentri//", number, "");
    for (const std::size_t axis : {kX, kZ}) {
        const DirectionFindings& direction = story.directions[axis];
        if (story.gravityCenter[axis]) {
            EXPECT_EQ(gravity[4 + axis], Printed(story.gravityCenter[axis]));
        }
        if (story.rigidityCenter[axis]) {
            EXPECT_EQ(rigidity[4 + axis], Printed(story.rigidityCenter[axis]));
        }
        if (direction.eccentricityModulus) {
            EXPECT_EQ(modulus[4 + axis], Printed(direction.eccentricityModulus));
        }
        EXPECT_EQ(modulus[7 + axis], Text(direction.eccentricityTool));
    }
    EXPECT_EQ(modulus[6], Printed(story.allowableModulus));
}

TEST(FindingsAndResults, SayTheSameInEveryRow) {
    const TestFolder folder;
    for (std::uint64_t seed = 1; seed <= kBuildings && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Building building = RandomBuilding(seed);
        const RecordedModel model = AsHostModel(building);
        RecordedHost host(model, folder.Path("model.qhm"));
        StatusLines status;
        ReportPaths reports;
        const RunOutcome outcome =
            RunCompute(folder.Write("input.csv", InputFileOf(building)), [&host] { return &host; },
                       status, reports, {.wantsFindings = WantsFindings::kYes});
        ASSERT_TRUE(outcome.complete && outcome.findings);
        const ResultRows rows(folder.Read("model.aijR2Result.csv"));
        for (const StoryFindings& story : outcome.findings->stories)
            CompareStory(*outcome.findings, story, rows);
    }
}

}  // namespace
