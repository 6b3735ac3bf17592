#include "host/recorded_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qhm_file.h"
#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr const char* kModel = R"({"format": "quarnel-host-model", "version": 1,
    "modelPath": "D:\\jobs\\tower.ext", "baseUnitSystem": 1, "zUp": true,
    "nodes": [{"number": 2, "xyz": [1.5, 2.5, 3.5], "support": true},
              {"number": 1, "xyz": [4, 5, 6]}, {"number": 2, "xyz": [9, 9, 9]}],
    "members": [{"number": 7, "start": 2, "end": 1, "beta": 22.7}],
    "primaryLoadCases": [3, 1], "loadCombinations": [101],
    "displacements": {"3": {"1": [1, 2, 3, 4, 5, 6]}},
    "endForces": {"3": {"7": [[1, 2, 3, 4, 5, 6], [-1, -2, -3, -4, -5, -6]]}}})";

class RecordedHostTest : public testing::Test {
protected:
    /// The text of the HostCallError that `ask` throws.
    template <typename Ask>
    std::string Failure(const Ask& ask) {
        try {
            ask();
        } catch (const HostCallError& error) {
            EXPECT_LT(error.Status(), 0);
            return error.what();
        }
        return {};
    }

    TestFolder folder;
    RecordedModel model = ReadQhmFile(folder.Write("tower.qhm", kModel));
    RecordedHost host{model, "here/tower.qhm"};
};

constexpr SixDoubles kUntouched{9, 9, 9, 9, 9, 9};

}  // namespace

TEST_F(RecordedHostTest, AnswersThePathItWasGiven) {
    EXPECT_EQ("here/tower.qhm", host.GetModelFilePath());
}

TEST_F(RecordedHostTest, AnswersUnitsAxisAndResults) {
    EXPECT_EQ(1, host.GetBaseUnitSystem());
    EXPECT_TRUE(host.IsZUp());
    EXPECT_TRUE(host.AreResultsAvailable());
    EXPECT_NO_THROW(host.PostConnectCall());
}

TEST_F(RecordedHostTest, AnswersListsInTheOrderOfTheFile) {
    std::array<std::int32_t, 3> nodes{};
    host.GetNodeList(nodes);
    EXPECT_EQ(3, host.GetNodeCount());
    EXPECT_THAT(nodes, ElementsAre(2, 1, 2));
    std::array<std::int32_t, 1> members{};
    host.GetMemberList(members);
    EXPECT_EQ(1, host.GetMemberCount());
    EXPECT_THAT(members, ElementsAre(7));
}

TEST_F(RecordedHostTest, AnswersLoadCasesInTheOrderOfTheFile) {
    std::array<std::int32_t, 2> primary{};
    host.GetPrimaryLoadCaseNumbers(primary);
    EXPECT_EQ(2, host.GetPrimaryLoadCaseCount());
    EXPECT_THAT(primary, ElementsAre(3, 1));
    std::array<std::int32_t, 1> combinations{};
    host.GetLoadCombinationNumbers(combinations);
    EXPECT_EQ(1, host.GetLoadCombinationCount());
    EXPECT_THAT(combinations, ElementsAre(101));
}

TEST_F(RecordedHostTest, AnswersANodeFromItsFirstEntry) {
    double x = 0, y = 0, z = 0;
    host.GetNodeCoordinates(2, x, y, z);
    EXPECT_THAT((std::array{x, y, z}), ElementsAre(1.5, 2.5, 3.5));
}

TEST_F(RecordedHostTest, SupportIsNonZeroForASupportedNodeOnly) {
    SixIntegers codes{1, 1, 1, 1, 1, 1};
    SixDoubles values = kUntouched;
    EXPECT_NE(0, host.GetSupportInfo(2, codes, values));
    EXPECT_EQ(0, host.GetSupportInfo(1, codes, values));
}

TEST_F(RecordedHostTest, AnswersAMembersEndsAndItsSinglePrecisionAngle) {
    std::int32_t start = 0, end = 0;
    host.GetMemberIncidence(7, start, end);
    EXPECT_EQ(2, start);
    EXPECT_EQ(1, end);
    EXPECT_EQ(static_cast<double>(22.7F), host.GetMemberRotationAngle(7));
}

TEST_F(RecordedHostTest, AnswersRecordedDisplacementsAndEndForces) {
    SixDoubles six = kUntouched;
    host.GetNodeDisplacements(1, 3, six);
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), six);
    host.GetMemberEndForces(7, 1, 3, six);
    EXPECT_EQ((SixDoubles{-1, -2, -3, -4, -5, -6}), six);
    host.GetMemberEndForces(7, 0, 3, six);
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), six);
}

TEST_F(RecordedHostTest, AnswersZerosForWhatIsNotListed) {
    const auto zerosAfter = [](const auto& ask) {
        SixDoubles six = kUntouched;
        ask(six);
        EXPECT_EQ(SixDoubles{}, six);
    };
    zerosAfter([&](SixDoubles& six) { host.GetNodeDisplacements(2, 3, six); });
    zerosAfter([&](SixDoubles& six) { host.GetNodeDisplacements(1, 77, six); });
    zerosAfter([&](SixDoubles& six) { host.GetMemberEndForces(7, 0, 101, six); });
}

// Node 1 and both ends of member 7 under load case 1 are not listed; node 2 is supported.
TEST_F(RecordedHostTest, CountsTheQuestionsThatWereAnsweredWithUnlistedZeros) {
    SixDoubles six;
    host.GetNodeDisplacements(1, 3, six);
    host.GetMemberEndForces(7, 0, 3, six);
    EXPECT_EQ(0u, host.UnlistedAnswers());
    host.GetNodeDisplacements(1, 1, six);
    EXPECT_EQ(1u, host.UnlistedAnswers());
    host.GetMemberEndForces(7, 0, 1, six);
    host.GetMemberEndForces(7, 1, 1, six);
    host.GetMemberEndForces(7, 1, 101, six);
    EXPECT_EQ(4u, host.UnlistedAnswers());
}

TEST_F(RecordedHostTest, CountsAQuestionOnce) {
    SixDoubles six;
    for (int i = 0; i < 3; ++i)
        host.GetNodeDisplacements(1, 1, six);
    EXPECT_EQ(1u, host.UnlistedAnswers());
}

TEST_F(RecordedHostTest, DoesNotCountSupportedNodesAndLoadCasesThatTheModelDoesNotHave) {
    SixDoubles six;
    host.GetNodeDisplacements(2, 1, six);
    host.GetNodeDisplacements(1, 77, six);
    host.GetMemberEndForces(7, 0, 77, six);
    EXPECT_EQ(0u, host.UnlistedAnswers());
}

TEST_F(RecordedHostTest, ARecordingDoesNotAnswerWhatItWasNotAsked) {
    model.recordedFor = RecordedFor{false, "tower.csv", std::string(64, 'a')};
    SixDoubles six;
    EXPECT_EQ(
        "GetNodeDisplacements: the recording does not hold the displacements of node 2 under load "
        "case 101, because it was made for the input file tower.csv; record again with this run's "
        "input file, or with record --all for every input file",
        Failure([&] { host.GetNodeDisplacements(2, 101, six); }));
    EXPECT_THAT(Failure([&] { host.GetMemberEndForces(7, 1, 1, six); }),
                StartsWith("GetMemberEndForces: the recording does not hold the forces at the end "
                           "(1) of member 7 under load case 1, because"));
    EXPECT_EQ("", Failure([&] { host.GetNodeDisplacements(1, 3, six); }));
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), six);
    EXPECT_EQ(0u, host.UnlistedAnswers());
}

// The host that was recorded had no such results either.
TEST_F(RecordedHostTest, ARecordingAnswersZerosUnderALoadCaseThatTheModelDoesNotHave) {
    model.recordedFor = RecordedFor{false, "tower.csv", std::string(64, 'a')};
    SixDoubles six = kUntouched;
    host.GetNodeDisplacements(1, 2, six);
    EXPECT_EQ(SixDoubles{}, six);
}

TEST_F(RecordedHostTest, ARecordingOfEverythingThatLacksAnAnswerHasBeenChanged) {
    model.recordedFor = RecordedFor{true, {}, {}};
    SixDoubles six;
    EXPECT_THAT(Failure([&] { host.GetNodeDisplacements(2, 101, six); }),
                HasSubstr("the file has been changed; record again with record --all"));
}

TEST_F(RecordedHostTest, ANameWithLineEndsMakesNoLinesInTheText) {
    model.recordedFor = RecordedFor{false, "a\nb", std::string(64, 'a')};
    SixDoubles six;
    EXPECT_THAT(Failure([&] { host.GetNodeDisplacements(2, 101, six); }),
                HasSubstr(R"(file a\nb;)"));
}

TEST_F(RecordedHostTest, AnUnknownNodeIsAFailedCallThatNamesIt) {
    double x, y, z;
    SixIntegers codes;
    SixDoubles six;
    EXPECT_THAT(Failure([&] { host.GetNodeCoordinates(5, x, y, z); }), HasSubstr("node 5"));
    EXPECT_THAT(Failure([&] { host.GetSupportInfo(5, codes, six); }), HasSubstr("node 5"));
    EXPECT_THAT(Failure([&] { host.GetNodeDisplacements(5, 3, six); }), HasSubstr("node 5"));
}

TEST_F(RecordedHostTest, AnUnknownMemberIsAFailedCallThatNamesIt) {
    std::int32_t start, end;
    SixDoubles six;
    EXPECT_THAT(Failure([&] { host.GetMemberIncidence(2, start, end); }), HasSubstr("member 2"));
    EXPECT_THAT(Failure([&] { host.GetMemberRotationAngle(2); }), HasSubstr("member 2"));
    EXPECT_THAT(Failure([&] { host.GetMemberEndForces(2, 0, 3, six); }), HasSubstr("member 2"));
}

TEST_F(RecordedHostTest, AnEndThatIsNeitherStartNorEndIsAFailedCall) {
    SixDoubles six;
    EXPECT_THAT(Failure([&] { host.GetMemberEndForces(7, 2, 3, six); }), HasSubstr("end 2"));
    EXPECT_NE("", Failure([&] { host.GetMemberEndForces(7, -1, 3, six); }));
}

TEST_F(RecordedHostTest, AQuestionThatWasNeverAnsweredIsAFailedCall) {
    const RecordedModel nothing;
    RecordedHost silent(nothing, "");
    EXPECT_EQ("", silent.GetModelFilePath());
    EXPECT_THAT(Failure([&] { silent.GetBaseUnitSystem(); }), HasSubstr("GetBaseUnitSystem"));
    EXPECT_THAT(Failure([&] { silent.IsZUp(); }), HasSubstr("IsZUp"));
    EXPECT_THAT(Failure([&] { silent.AreResultsAvailable(); }), HasSubstr("AreResultsAvailable"));
    EXPECT_THAT(Failure([&] { silent.GetNodeCount(); }), HasSubstr("GetNodeCount"));
    EXPECT_THAT(Failure([&] { silent.GetNodeList({}); }), HasSubstr("GetNodeList"));
    EXPECT_THAT(Failure([&] { silent.GetMemberCount(); }), HasSubstr("GetMemberCount"));
    EXPECT_THAT(Failure([&] { silent.GetMemberList({}); }), HasSubstr("GetMemberList"));
}

// A run that broke off may have asked for one thing of a node or member and not for the next.
TEST_F(RecordedHostTest, WhatIsMissingOfANodeOrMemberIsAFailedCall) {
    RecordedModel numbersOnly;
    numbersOnly.AddNode(1);
    numbersOnly.AddMember(7);
    RecordedHost silent(numbersOnly, "");
    double x = 0.0, y = 0.0, z = 0.0;
    std::int32_t start = 0, end = 0;
    SixIntegers codes{};
    SixDoubles values{};
    EXPECT_THAT(Failure([&] { silent.GetNodeCoordinates(1, x, y, z); }),
                HasSubstr("GetNodeCoordinates"));
    EXPECT_THAT(Failure([&] { silent.GetSupportInfo(1, codes, values); }),
                HasSubstr("GetSupportInfo"));
    EXPECT_THAT(Failure([&] { silent.GetMemberIncidence(7, start, end); }),
                HasSubstr("GetMemberIncidence"));
    EXPECT_THAT(Failure([&] { silent.GetMemberRotationAngle(7); }),
                HasSubstr("GetMemberRotationAngle"));
}
