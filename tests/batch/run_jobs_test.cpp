// Jobs as real processes of quarnel-cli, on the small building.

#include "batch/run_jobs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/recorded_small_building.h"

using testing::HasSubstr;

namespace {

class Jobs : public testing::Test {
protected:
    Jobs() {
        input = folder.Write("tower.csv", kSmallBuildingInput);
        model = WriteRecordedSmallBuilding(folder, "tower.qhm");
    }

    Job JobOf(const std::string& name, const std::string& modelPath) const {
        return {name, "", modelPath, input, ++lines};
    }

    std::vector<JobOutcome> Run(const std::vector<Job>& jobs, unsigned atOnce = 2) const {
        BatchRun run;
        run.program = std::filesystem::absolute(QUARNEL_CLI).string();
        run.folder = folder.Path("out");
        run.atOnce = atOnce;
        return RunJobs(jobs, run);
    }

    TestFolder folder;
    std::string input;
    std::string model;
    mutable std::size_t lines = 1;
};

}  // namespace

TEST_F(Jobs, LeaveAFolderEach) {
    const auto outcomes = Run({JobOf("a", model), JobOf("b", model)});
    ASSERT_EQ(2u, outcomes.size());
    for (const JobOutcome& outcome : outcomes) {
        EXPECT_EQ(JobEnd::kComplete, outcome.end) << outcome.failure;
        EXPECT_EQ(CodeVerdict::kOk, outcome.code);
        EXPECT_TRUE(outcome.hasSheet);
    }
    for (const char* file : {"sheet.html", "figures.json", "run.txt", "tower.tower.aijR2Log.txt",
                             "tower.tower.aijR2Result.csv"}) {
        EXPECT_TRUE(folder.Has(std::string("out/a/") + file)) << file;
        EXPECT_TRUE(folder.Has(std::string("out/b/") + file)) << file;
    }
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
}

// 7 / 3500 against 1 / 200; a story that is its own mean; a symmetric plan.
TEST_F(Jobs, HaveTheirGoverningValues) {
    const JobOutcome outcome = Run({JobOf("a", model)}).at(0);
    EXPECT_EQ("1/500", outcome.governing[0]->value);
    EXPECT_EQ("X", outcome.governing[0]->direction);
    EXPECT_EQ(1, outcome.governing[0]->story);
    EXPECT_NEAR(0.4, outcome.governing[0]->utilisation, 1e-12);
    EXPECT_EQ("1.000", outcome.governing[1]->value);
    EXPECT_EQ("0.000", outcome.governing[2]->value);
    EXPECT_NEAR(0.6, outcome.Utilisation(), 1e-12);
}

TEST_F(Jobs, ThatFailHarmNoOther) {
    const auto outcomes = Run({JobOf("none", folder.Path("none.qhm")), JobOf("a", model)});
    EXPECT_EQ(JobEnd::kEndedEarly, outcomes[0].end);
    EXPECT_THAT(outcomes[0].failure, HasSubstr("none.qhm"));
    EXPECT_FALSE(outcomes[0].hasSheet);
    EXPECT_EQ(JobEnd::kComplete, outcomes[1].end);
}

TEST_F(Jobs, AreNotMistakenForThoseOfAnEarlierBatch) {
    Run({JobOf("a", model)});
    const JobOutcome outcome = Run({JobOf("a", folder.Path("none.qhm"))}).at(0);
    EXPECT_EQ(JobEnd::kEndedEarly, outcome.end);
    EXPECT_FALSE(outcome.hasSheet);
}

TEST_F(Jobs, CanBeMoreThanRunAtOnceAndKeepTheirOrder) {
    std::vector<Job> jobs;
    for (int i = 0; i < 7; ++i)
        jobs.push_back(JobOf("job" + std::to_string(i), model));
    const auto outcomes = Run(jobs, 3);
    for (std::size_t i = 0; i < jobs.size(); ++i)
        EXPECT_EQ(jobs[i].name, outcomes[i].job.name);
}

TEST_F(Jobs, OfAProgramThatIsNotThereSaySo) {
    BatchRun run;
    run.program = folder.Path("none");
    run.folder = folder.Path("out");
    const JobOutcome outcome = RunJobs({JobOf("a", model)}, run).at(0);
    EXPECT_EQ(JobEnd::kEndedEarly, outcome.end);
    EXPECT_THAT(outcome.failure, HasSubstr("cannot be started"));
}
