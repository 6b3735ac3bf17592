#include "host/recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "tests/support/small_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace {

// Asks for the figures of load case 101 in the place of those of load case 3.
constexpr const char* kAnotherInput =
    "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,101,\nFIN\n";

class Recording : public testing::Test {
protected:
    Recording() {
        AddSmallBuilding(host);
        host.modelPath = folder.Path("tower.ext");
        input = folder.Write("tower.csv", kSmallBuildingInput);
    }

    static RunOutcome Run(HostQueries& on, const std::string& inputPath) {
        StatusLines status;
        ReportPaths reports;
        return RunCompute(
            inputPath, [&on] { return &on; }, status, reports);
    }

    /// The memory, with what it was recorded for, written and read back.
    RecordedModel WrittenAndReadBack(RecordedFor purpose) {
        RecordedModel model = memory.TakeMemory();
        model.recordedFor = std::move(purpose);
        WriteQhmFile(model, folder.Path("tower.qhm"));
        return ReadQhmFile(folder.Path("tower.qhm"));
    }

    RecordedModel RecordRun() {
        Run(memory, input);
        AskForOtherEnds(memory);
        return WrittenAndReadBack(RecordedForInput(input));
    }

    RecordedModel RecordEverything() {
        Run(memory, input);
        AskForEverything(memory);
        return WrittenAndReadBack(RecordedForEverything());
    }

    std::vector<std::string> CallsAfter(std::size_t first) const {
        return {host.calls.begin() + static_cast<std::ptrdiff_t>(first), host.calls.end()};
    }

    TestFolder folder;
    FakeHost host;
    RememberingHost memory{host};
    std::string input;
};

}  // namespace

// SHA-256 of the three lines of the small building's input file, as sha256sum prints it.
TEST_F(Recording, NamesItsInputFileWithoutFolderAndWithItsDigest) {
    const RecordedFor purpose = RecordedForInput(input);
    EXPECT_FALSE(purpose.everything);
    EXPECT_EQ("tower.csv", purpose.inputName);
    EXPECT_EQ("22ae3bfe6fb3dd7c67c98f005b57d0990b5ab500313c1b8a274af21f11371586",
              purpose.inputSha256);
}

TEST_F(Recording, OfAnInputFileThatIsGoneIsAnError) {
    EXPECT_THROW(RecordedForInput(folder.Path("gone.csv")), std::runtime_error);
}

// The run asks for the lower ends of the columns only: dead load and two earthquake cases.
TEST_F(Recording, AsksForTheOtherEndsOfWhatTheRunHasAskedFor) {
    Run(memory, input);
    const std::size_t before = host.calls.size();
    AskForOtherEnds(memory);
    EXPECT_THAT(CallsAfter(before), SizeIs(12));
    EXPECT_THAT(CallsAfter(before), Each(AllOf(StartsWith("GetMemberEndForces("),
                                               HasSubstr(", 1, "), Not(HasSubstr("(9,")))));
}

TEST_F(Recording, OfARunGivesTheRunOnceMore) {
    const RecordedModel model = RecordRun();
    RecordedHost recorded(model, folder.Path("tower.qhm"));
    EXPECT_TRUE(Run(recorded, input).complete);
    EXPECT_EQ(0u, recorded.UnlistedAnswers());
}

TEST_F(Recording, OfARunFailsWithAnotherInputFileAtTheFirstQuestionItWasNotAsked) {
    const RecordedModel model = RecordRun();
    RecordedHost recorded(model, folder.Path("tower.qhm"));
    const RunOutcome outcome = Run(recorded, folder.Write("other.csv", kAnotherInput));
    EXPECT_FALSE(outcome.complete);
    EXPECT_TRUE(outcome.hostFailed);
    EXPECT_EQ(
        "GetMemberEndForces: the recording does not hold the forces at the start (0) of member 1 "
        "under load case 101, because it was made for the input file tower.csv; record again with "
        "this run's input file, or with record --all for every input file",
        outcome.failure);
}

TEST_F(Recording, OfEverythingGivesARunWithAnyInputFile) {
    const RecordedModel model = RecordEverything();
    RecordedHost recorded(model, folder.Path("tower.qhm"));
    EXPECT_TRUE(Run(recorded, folder.Write("other.csv", kAnotherInput)).complete);
}

// Eight nodes and five members with two ends each, under four load cases.
TEST_F(Recording, OfEverythingAsksForAllNodesAndBothEndsUnderAllLoadCases) {
    const RecordedModel model = RecordEverything();
    EXPECT_EQ(4u * 8u, model.displacements.size());
    EXPECT_EQ(4u * 5u, model.endForces[0].size());
    EXPECT_EQ(4u * 5u, model.endForces[1].size());
}

// What the run has asked is not asked again.
TEST_F(Recording, OfEverythingAsksEveryQuestionOnce) {
    RecordEverything();
    std::vector<std::string> calls = host.calls;
    std::sort(calls.begin(), calls.end());
    EXPECT_EQ(calls.end(), std::adjacent_find(calls.begin(), calls.end()));
}

// A run that stops before it has read the members has asked for none of their angles.
TEST_F(Recording, OfEverythingNeedsNoRunBefore) {
    AskForEverything(memory);
    const RecordedModel model = WrittenAndReadBack(RecordedForEverything());
    RecordedHost recorded(model, folder.Path("tower.qhm"));
    EXPECT_TRUE(Run(recorded, input).complete);
}

// Member 77 is no entry of the host's list; an input file has named it.
TEST_F(Recording, OfEverythingHoldsMembersThatOnlyTheRunHasNamed) {
    class HostWithAHiddenMember : public FakeHost {
    public:
        std::int32_t GetMemberCount() override { return FakeHost::GetMemberCount() - 1; }
    };
    HostWithAHiddenMember hiding;
    AddSmallBuilding(hiding);
    hiding.Member(77, 1, 11);
    RememberingHost hidden(hiding);
    std::int32_t start = 0, end = 0;
    hidden.GetMemberIncidence(77, start, end);
    AskForEverything(hidden);
    RecordedModel model = hidden.TakeMemory();
    model.recordedFor = RecordedForEverything();
    WriteQhmFile(model, folder.Path("hidden.qhm"));
    EXPECT_THAT(folder.Read("hidden.qhm"), HasSubstr("\"unlistedMembers\""));
    const RecordedModel back = ReadQhmFile(folder.Path("hidden.qhm"));
    EXPECT_NE(nullptr, back.endForces[1].Find(*back.FindMember(77), 101));
}

TEST_F(Recording, EndsWithTheHostCallThatFails) {
    Run(memory, input);
    host.FailFromNowOn();
    EXPECT_THROW(AskForOtherEnds(memory), HostCallError);
    EXPECT_THROW(AskForEverything(memory), HostCallError);
}

// The end that nobody asked for must not become zeros.
TEST_F(Recording, OfOneEndOnlyIsNotWritten) {
    Run(memory, input);
    try {
        WrittenAndReadBack(RecordedForInput(input));
        FAIL();
    } catch (const QhmFileError& error) {
        EXPECT_THAT(error.what(), AllOf(StartsWith(folder.Path("tower.qhm") + ": not written: "),
                                        HasSubstr("member 1 under load case 1")));
    }
    EXPECT_FALSE(folder.Has("tower.qhm"));
}

TEST_F(Recording, AnswersOfZeroAreWritten) {
    const RecordedModel model = RecordRun();
    const std::size_t supported = *model.FindNode(1);
    ASSERT_NE(nullptr, model.displacements.Find(supported, 101));
    EXPECT_EQ(SixDoubles{}, *model.displacements.Find(supported, 101));
}
