#include "host/remembering_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What a run over the small building leaves.
struct RunResult {
    std::vector<std::string> status;
    std::string log;
    std::string csv;
};

RunResult RunOn(HostQueries& host, const TestFolder& folder) {
    StatusLines status;
    ReportPaths reports;
    RunCompute(
        folder.Write("input.csv", kSmallBuildingInput), [&host] { return &host; }, status, reports);
    return {status.lines, folder.Read("tower.aijR2Log.txt"), folder.Read("tower.aijR2Result.csv")};
}

/// Each call once, where it first stands.
std::vector<std::string> WithoutRepeats(const std::vector<std::string>& calls) {
    std::vector<std::string> once;
    for (const std::string& call : calls)
        if (std::find(once.begin(), once.end(), call) == once.end()) once.push_back(call);
    return once;
}

class RememberingHostTest : public testing::Test {
protected:
    RememberingHostTest() {
        AddSmallBuilding(host);
        host.modelPath = folder.Path("tower.ext");
    }

    TestFolder folder;
    FakeHost host;
    RememberingHost remembering{host};
};

}  // namespace

TEST_F(RememberingHostTest, AWholeRunAsksEveryDistinctQuestionOnceInFirstAskingOrder) {
    RunOn(host, folder);
    const std::vector<std::string> direct = host.calls;
    host.calls.clear();
    RunOn(remembering, folder);
    EXPECT_EQ(WithoutRepeats(direct), host.calls);
    EXPECT_LT(2 * host.calls.size(), direct.size());
}

TEST_F(RememberingHostTest, ARunHasTheSameStatusAndReportsWithAndWithout) {
    const RunResult direct = RunOn(host, folder);
    const RunResult remembered = RunOn(remembering, folder);
    EXPECT_EQ(direct.status, remembered.status);
    EXPECT_EQ("Calculation Complete", direct.status.at(14));
    EXPECT_EQ(direct.log, remembered.log);
    EXPECT_EQ(direct.csv, remembered.csv);
}

TEST_F(RememberingHostTest, AFailingRunHasTheSameStatusWithAndWithout) {
    host.Member(20, 1, 99);
    const RunResult direct = [&] {
        folder.Write("tower.aijR2Result.csv", "");
        return RunOn(host, folder);
    }();
    const RunResult remembered = RunOn(remembering, folder);
    EXPECT_THAT(direct.status, testing::Contains("Exception was thrown..."));
    EXPECT_EQ(direct.status, remembered.status);
    EXPECT_EQ(direct.log, remembered.log);
}

TEST_F(RememberingHostTest, AnswersTheRepeatFromMemory) {
    std::int32_t start = 0, end = 0;
    SixDoubles six{};
    for (int i = 0; i < 3; ++i) {
        remembering.GetMemberIncidence(3, start, end);
        EXPECT_EQ(3, start);
        EXPECT_EQ(13, end);
        remembering.GetMemberEndForces(3, 0, 2, six);
        EXPECT_EQ((SixDoubles{0, 14, 0, 0, 0, 0}), six);
        remembering.GetNodeDisplacements(13, 2, six);
        EXPECT_EQ((SixDoubles{0.007, 0, 0, 0, 0, 0}), six);
    }
    EXPECT_THAT(host.calls, ElementsAre("GetMemberIncidence(3)", "GetMemberEndForces(3, 0, 2)",
                                        "GetNodeDisplacements(13, 2)"));
}

TEST_F(RememberingHostTest, QuestionsThatDifferInOneNumberAreDistinct) {
    SixDoubles six{};
    remembering.GetMemberEndForces(3, 0, 2, six);
    remembering.GetMemberEndForces(3, 1, 2, six);
    remembering.GetMemberEndForces(3, 0, 3, six);
    remembering.GetMemberEndForces(4, 0, 2, six);
    EXPECT_EQ(4u, host.calls.size());
}

// A member has end 0 and end 1; what another number means is the host's affair.
TEST_F(RememberingHostTest, AQuestionAboutAThirdEndGoesToTheHostEveryTime) {
    SixDoubles six{};
    remembering.GetMemberEndForces(3, 2, 1, six);
    remembering.GetMemberEndForces(3, 2, 1, six);
    EXPECT_THAT(host.calls,
                ElementsAre("GetMemberEndForces(3, 2, 1)", "GetMemberEndForces(3, 2, 1)"));
}

TEST_F(RememberingHostTest, AListOfAnotherLengthIsAskedForAgain) {
    std::vector<std::int32_t> two(2), three(3);
    remembering.GetNodeList(two);
    remembering.GetNodeList(three);
    EXPECT_THAT(host.calls, ElementsAre("GetNodeList()", "GetNodeList()"));
}

TEST_F(RememberingHostTest, RemembersListsTheirCountsAndTheModelsProperties) {
    std::array<std::int32_t, 3> primary{};
    for (int i = 0; i < 2; ++i) {
        remembering.GetPrimaryLoadCaseCount();
        remembering.GetPrimaryLoadCaseNumbers(primary);
        EXPECT_THAT(primary, ElementsAre(1, 2, 3));
        EXPECT_EQ(2, remembering.GetBaseUnitSystem());
        EXPECT_FALSE(remembering.IsZUp());
        EXPECT_TRUE(remembering.AreResultsAvailable());
        EXPECT_EQ(host.modelPath, remembering.GetModelFilePath());
        primary = {};
    }
    EXPECT_THAT(host.calls, ElementsAre("GetPrimaryLoadCaseCount()", "GetPrimaryLoadCaseNumbers()",
                                        "GetBaseUnitSystem()", "IsZUp()", "AreResultsAvailable()",
                                        "GetModelFilePath()"));
}

TEST_F(RememberingHostTest, AnEmptyListIsRememberedToo) {
    FakeHost empty;
    RememberingHost remembersEmpty(empty);
    for (int i = 0; i < 2; ++i) {
        remembersEmpty.GetNodeList({});
        remembersEmpty.GetLoadCombinationNumbers({});
    }
    EXPECT_THAT(empty.calls, ElementsAre("GetNodeList()", "GetLoadCombinationNumbers()"));
}

TEST_F(RememberingHostTest, SupportIsRememberedAsANumber) {
    SixIntegers codes{7, 7, 7, 7, 7, 7};
    SixDoubles values{7, 7, 7, 7, 7, 7};
    EXPECT_EQ(1, remembering.GetSupportInfo(1, codes, values));
    EXPECT_EQ(1, remembering.GetSupportInfo(1, codes, values));
    EXPECT_EQ(0, remembering.GetSupportInfo(11, codes, values));
    EXPECT_EQ(SixIntegers{}, codes);
    EXPECT_EQ(2u, host.calls.size());
}

TEST_F(RememberingHostTest, ZeroIsAnAnswerLikeAnyOther) {
    SixDoubles six{};
    remembering.GetNodeDisplacements(1, 1, six);
    remembering.GetNodeDisplacements(1, 1, six);
    EXPECT_EQ(0.0, remembering.GetMemberRotationAngle(1));
    EXPECT_EQ(0.0, remembering.GetMemberRotationAngle(1));
    EXPECT_EQ(2u, host.calls.size());
}

// Every question fails once, is asked again, and then is remembered.
TEST_F(RememberingHostTest, AFailedCallIsNotRemembered) {
    std::int32_t start = 0, end = 0;
    double x = 0, y = 0, z = 0;
    SixDoubles six{};
    SixIntegers codes{};
    std::array<std::int32_t, 5> members{};
    const std::function<void()> questions[] = {
        [&] { remembering.GetModelFilePath(); },
        [&] { remembering.GetBaseUnitSystem(); },
        [&] { remembering.GetNodeCount(); },
        [&] { remembering.GetMemberList(members); },
        [&] { remembering.GetNodeCoordinates(1, x, y, z); },
        [&] { remembering.GetMemberIncidence(1, start, end); },
        [&] { remembering.GetMemberRotationAngle(1); },
        [&] { remembering.GetSupportInfo(1, codes, six); },
        [&] { remembering.GetNodeDisplacements(11, 2, six); },
        [&] { remembering.GetMemberEndForces(1, 0, 2, six); },
        [&] { remembering.AreResultsAvailable(); },
    };
    for (const auto& ask : questions) {
        host.calls.clear();
        host.FailFromNowOn();
        EXPECT_THROW(ask(), HostCallError);
        host.failAtCall.reset();
        EXPECT_NO_THROW(ask());
        EXPECT_NO_THROW(ask());
        EXPECT_EQ(2u, host.calls.size()) << host.calls.front();
    }
    EXPECT_EQ((SixDoubles{0, 14, 0, 0, 0, 0}), six);
}

// What the host refused to answer about is refused by a replay, too, not answered with zeros.
TEST_F(RememberingHostTest, AReplayOfAFailedQuestionFails) {
    SixDoubles six{};
    EXPECT_THROW(remembering.GetNodeDisplacements(99, 2, six), HostCallError);
    EXPECT_THROW(remembering.GetMemberEndForces(99, 0, 2, six), HostCallError);
    RecordedHost replay(remembering.Memory(), "");
    EXPECT_THROW(replay.GetNodeDisplacements(99, 2, six), HostCallError);
    EXPECT_THROW(replay.GetMemberEndForces(99, 0, 2, six), HostCallError);
}

TEST_F(RememberingHostTest, PassesThePostConnectCallOnEveryTime) {
    remembering.PostConnectCall();
    remembering.PostConnectCall();
    EXPECT_THAT(host.calls, ElementsAre("PostConnectCall()", "PostConnectCall()"));
}

TEST_F(RememberingHostTest, AsksNothingByItself) {
    EXPECT_THAT(host.calls, IsEmpty());
}

// Remembered, replayed from memory, written to a file and replayed from there.
TEST_F(RememberingHostTest, AReplayGivesTheSameReports) {
    const RunResult direct = RunOn(remembering, folder);
    RecordedHost fromMemory(remembering.Memory(), host.modelPath);
    const RunResult replayed = RunOn(fromMemory, folder);
    EXPECT_EQ(direct.status, replayed.status);
    EXPECT_EQ(direct.log, replayed.log);
    EXPECT_EQ(direct.csv, replayed.csv);

    WriteQhmFile(remembering.Memory(), folder.Path("tower.qhm"));
    const RecordedModel model = ReadQhmFile(folder.Path("tower.qhm"));
    RecordedHost fromFile(model, host.modelPath);
    EXPECT_EQ(direct.log, RunOn(fromFile, folder).log);
    EXPECT_EQ(direct.csv, folder.Read("tower.aijR2Result.csv"));
}
