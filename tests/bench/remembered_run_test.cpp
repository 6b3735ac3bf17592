// What a run asks, and what of it reaches the host. Questions are counted, never timed.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bench/question_counter.h"
#include "bench/regular_building.h"
#include "compute/compute_run.h"
#include "host/recorded_host.h"
#include "host/remembering_host.h"
#include "tests/support/test_folder.h"

namespace {

constexpr BuildingSize kSize{600, 6, 7};

class WrittenStatusList : public StatusList {
public:
    void Clear() override { lines.clear(); }
    void Append(StatusText line) override { lines.push_back(TextOf(line)); }

    std::vector<std::string> lines;
};

// A generated building in a folder of its own, and what a run on it leaves behind.
struct BuildingRun {
    RunOutcome Run(HostQueries& on) {
        const std::string input = folder.Write("input.csv", building.inputText);
        return RunCompute(
            input, [&on] { return &on; }, status, reports);
    }

    // Log and results, without the name of the folder, which differs from run to run.
    std::string Reports() const {
        std::string text = ReadText(reports.logFile) + ReadText(reports.resultFile);
        const std::string path = folder.Path("tower.qhm");
        for (std::size_t at = 0; (at = text.find(path, at)) != std::string::npos;)
            text.erase(at, path.size());
        return text;
    }

    TestFolder folder;
    RegularBuilding building = MakeRegularBuilding(kSize);
    RecordedHost host{building.model, folder.Path("tower.qhm")};
    WrittenStatusList status;
    ReportPaths reports;
};

}  // namespace

TEST(RememberedRun, AsksTheHostEachDistinctQuestionOnce) {
    BuildingRun run;
    QuestionCounter reached(run.host);
    RememberingHost remembering(reached);
    QuestionCounter asked(remembering);
    ASSERT_TRUE(run.Run(asked).complete);

    EXPECT_EQ(asked.Distinct(), reached.Asked());
    EXPECT_EQ(asked.Distinct(), reached.Distinct());
}

TEST(RememberedRun, ForgetsNothingAndAsksNothingInASecondRun) {
    BuildingRun run;
    QuestionCounter reached(run.host);
    RememberingHost remembering(reached);
    ASSERT_TRUE(run.Run(remembering).complete);
    const std::uint64_t afterFirst = reached.Asked();
    ASSERT_TRUE(run.Run(remembering).complete);

    EXPECT_EQ(afterFirst, reached.Asked());
}

TEST(RememberedRun, WritesTheSameBytesAsARunThatRemembersNothing) {
    BuildingRun plain;
    ASSERT_TRUE(plain.Run(plain.host).complete);
    BuildingRun remembered;
    RememberingHost remembering(remembered.host);
    ASSERT_TRUE(remembered.Run(remembering).complete);

    EXPECT_EQ(plain.status.lines, remembered.status.lines);
    EXPECT_EQ(plain.Reports(), remembered.Reports());
    EXPECT_NE(std::string::npos, plain.Reports().find("PASS"));
}

// Of N nodes, M members, S stories with C columns each, and L load cases a run asks:
//   4           path, units, vertical axis, results; 4 counts and numbers of load cases
//   2 + 3 N     nodes: each place twice, each support once
//   2 + 3 M     members: incidence, then incidence and rotation
//   M + S M     floors and story members: incidence
//   3 S C L     displacements: two of them and an incidence per record
//   3 S M + S C centre of gravity: three incidences, and the dead load of the columns it cuts
//   3 S C L     shear: incidence and two end forces per record
TEST(EngineQuestions, AreRepeatedStepAfterStep) {
    BuildingRun run;
    QuestionCounter asked(run.host);
    ASSERT_TRUE(run.Run(asked).complete);

    const auto n = static_cast<std::uint64_t>(*run.building.model.nodeCount);
    const auto c = static_cast<std::uint64_t>(run.building.columnsPerStory);
    const std::uint64_t m = 600, s = 6, l = 7;
    EXPECT_EQ(8 + (2 + 3 * n) + (2 + 3 * m) + (m + s * m) + 3 * s * c * l + (3 * s * m + s * c) +
                  3 * s * c * l,
              asked.Asked());
    // Distinct: place and support of a node, incidence and rotation of a member, every node under
    // every load case, three end forces per column.
    EXPECT_EQ(8 + (2 + 2 * n) + (2 + 2 * m) + n * l + 3 * s * c, asked.Distinct());
}
