// How far the questions of a run are, and how many there will be.

#include "host/counting_host.h"

#include <gtest/gtest.h>

#include <vector>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "host/recording.h"
#include "tests/support/fake_host.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

namespace {

// 20 nodes, 30 members, 3 load cases.
ModelCounts SomeCounts() {
    return {.nodes = 20, .members = 30, .loadCases = 3};
}

class CountedRun : public testing::Test {
protected:
    CountedRun() {
        AddSmallBuilding(host);
        host.modelPath = folder.Path("tower.ext");
    }

    RunOutcome Run(HostQueries& on) {
        StatusLines status;
        ReportPaths reports;
        return RunCompute(
            folder.Write("tower.csv", kSmallBuildingInput), [&on] { return &on; }, status, reports);
    }

    TestFolder folder;
    FakeHost host;
};

}  // namespace

TEST_F(CountedRun, IsToldBeforeEachQuestionWhatHasBeenAnswered) {
    std::vector<std::size_t> told;
    CountingHost counting(host, [&](const QuestionProgress& now) { told.push_back(now.answered); });
    counting.IsZUp();
    counting.GetBaseUnitSystem();
    counting.GetNodeCount();
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 2}), told);
}

// 8 nodes, 5 members, 3 primary cases and a combination.
TEST_F(CountedRun, KnowsTheCountsOnceTheHostHasToldThem) {
    CountingHost counting(host, [](const QuestionProgress&) {});
    RememberingHost memory(counting);
    AskForEverything(memory);
    const ModelCounts& counts = counting.Progress().counts;
    EXPECT_EQ(8u, counts.nodes);
    EXPECT_EQ(5u, counts.members);
    EXPECT_EQ(4u, counts.loadCases);
}

TEST_F(CountedRun, ExpectsWhatEverythingTakesToWithinAHandful) {
    CountingHost counting(host, [](const QuestionProgress&) {});
    RememberingHost memory(counting);
    AskForEverything(memory);
    EXPECT_NEAR(static_cast<double>(host.calls.size()),
                static_cast<double>(ExpectedQuestionsOfEverything(counting.Progress().counts)), 2);
}

TEST_F(CountedRun, ThatIsEndedByItsWatcherEndsAsAtAFailedQuestion) {
    CountingHost counting(host, [](const QuestionProgress& now) {
        if (now.answered == 20) throw HostCallError(0, "cancelled");
    });
    const RunOutcome outcome = Run(counting);
    EXPECT_FALSE(outcome.complete);
    EXPECT_TRUE(outcome.hostFailed);
    EXPECT_EQ("cancelled", outcome.failure);
    EXPECT_EQ(20u, host.calls.size());
    EXPECT_NE(std::string::npos, folder.Read("tower.aijR2Log.txt").find("Start"));
}

TEST(ExpectedQuestions, AreNotKnownBeforeTheCounts) {
    EXPECT_EQ(0u, ExpectedQuestionsOfRun({}));
    EXPECT_EQ(0u, ExpectedQuestionsOfEverything({}));
}

// 12 about the model, 2 for each of 20 nodes and of 30 members, 20 displacements in each of 3
// cases, 42 end forces: 12 + 40 + 60 + 60 + 42.
TEST(ExpectedQuestions, OfARunAreOfGeometryDisplacementsAndCutMembers) {
    EXPECT_EQ(214u, ExpectedQuestionsOfRun(SomeCounts()));
}

// Nodes come before members: 40 of these for 20 nodes, so 12 + 40 + 80 + 60 + 56.
TEST(ExpectedQuestions, CountTwoMembersForEachNodeUntilTheMembersAreCounted) {
    EXPECT_EQ(248u, ExpectedQuestionsOfRun({.nodes = 20, .members = {}, .loadCases = 3}));
}

// 12 + 40 + 60, then 20 displacements and 60 end forces in each of 3 cases.
TEST(ExpectedQuestions, OfEverythingAreOfAllResultsToo) {
    EXPECT_EQ(352u, ExpectedQuestionsOfEverything(SomeCounts()));
}

// The examples are buildings as people have them; the estimate is to be within a tenth.
TEST(ExpectedQuestions, OfTheExamplesAreNearWhatTheyTake) {
    for (const char* name : {"two_story_y_up", "five_story_office_z_up"}) {
        SCOPED_TRACE(name);
        const TestFolder folder;
        const std::string example = std::string(QUARNEL_SOURCE_DIR "/examples/") + name;
        const RecordedModel model = ReadQhmFile(example + ".qhm");
        RecordedHost recorded(model, folder.Path("model.qhm"));
        CountingHost counting(recorded, [](const QuestionProgress&) {});
        RememberingHost memory(counting);
        StatusLines status;
        ReportPaths reports;
        RunOptions options;
        options.wantsFindings = WantsFindings::kYes;
        ASSERT_TRUE(RunCompute(
                        example + ".csv", [&] { return &memory; }, status, reports, options)
                        .complete);
        const auto answered = static_cast<double>(counting.Progress().answered);
        EXPECT_NEAR(answered,
                    static_cast<double>(ExpectedQuestionsOfRun(counting.Progress().counts)),
                    answered / 10);
    }
}

TEST(ShareDone, IsWhatIsAnsweredOfWhatIsExpected) {
    EXPECT_DOUBLE_EQ(0.0, ShareDone(0, 200));
    EXPECT_DOUBLE_EQ(0.5, ShareDone(100, 200));
}

TEST(ShareDone, IsNothingWhileNothingIsExpected) {
    EXPECT_DOUBLE_EQ(0.0, ShareDone(100, 0));
}

TEST(ShareDone, GoesOnAndStaysBelowTheWholeWhenMoreIsAnsweredThanExpected) {
    double before = 0.0;
    for (std::size_t answered = 1; answered < 1000; ++answered) {
        const double share = ShareDone(answered, 100);
        EXPECT_GT(share, before) << answered;
        EXPECT_LT(share, 1.0) << answered;
        before = share;
    }
}
