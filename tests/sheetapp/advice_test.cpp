// What a person is told of a run that went wrong.

#include "sheetapp/advice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr std::int32_t Status(std::uint32_t code) {
    return static_cast<std::int32_t>(code);
}

std::string What(const RunResult& result, Language language = Language::kEnglish) {
    return AdviceOnFailure({"input.csv", ""}, result, language).what;
}

RunResult WithLine(StatusText line) {
    RunResult result;
    result.lines = {line};
    return result;
}

RunResult WithFailedCall(std::int32_t status) {
    RunResult result = WithLine(StatusText::kExceptionThrown);
    result.outcome.hostFailed = true;
    result.outcome.hostStatus = status;
    result.outcome.failure = "GetNodeCount(): status 80004005, Unspecified error";
    return result;
}

}  // namespace

TEST(Advice, SaysWhatHappenedAndWhatToDoWithoutAHost) {
    const Advice advice =
        AdviceOnFailure({}, WithLine(StatusText::kNoConnection), Language::kEnglish);
    EXPECT_EQ("No running host was found.", advice.what);
    EXPECT_THAT(advice.todo, HasSubstr("same rights"));
}

TEST(Advice, TellsABusyHostFromOneThatIsNotThere) {
    RunResult result = WithLine(StatusText::kNoConnection);
    result.hostWasBusy = true;
    EXPECT_EQ("The host was busy for a minute and took no calls.", What(result));
}

TEST(Advice, NamesTheTroubleOfAFailedCallByItsStatus) {
    const struct {
        std::uint32_t status;
        const char* what;
    } cases[] = {
        {0x80010001, "The host was busy for a minute and took no calls."},  // rejected
        {0x8001010A, "The host was busy for a minute and took no calls."},  // retry later
        {0x800706BE, "The host has ended during the run."},                 // call failed
        {0x800706BA, "The host has ended during the run."},                 // server unavailable
        {0x80010108, "The host has ended during the run."},                 // disconnected
        {0x80070005, "The host does not let this program in."},             // access denied
    };
    for (const auto& [status, what] : cases)
        EXPECT_EQ(what, What(WithFailedCall(Status(status)))) << std::hex << status;
}

TEST(Advice, GivesTheWordsOfAnyOtherFailedCall) {
    EXPECT_EQ("A call to the host failed: GetNodeCount(): status 80004005, Unspecified error.",
              What(WithFailedCall(Status(0x80004005))));
}

// Nobody is to look for a host that was never asked.
TEST(Advice, OnARecordingNamesTheRecording) {
    const RunRequest request{"input.csv", "tower.qhm"};
    EXPECT_EQ(
        "The recorded building has no such answer: GetNodeCount(): status 80004005, "
        "Unspecified error.",
        AdviceOnFailure(request, WithFailedCall(Status(0x80004005)), Language::kEnglish).what);
    const RunResult withoutResults = WithLine(StatusText::kResultsNotAvailable);
    EXPECT_EQ("The recorded building has no analysis results.",
              AdviceOnFailure(request, withoutResults, Language::kEnglish).what);
    EXPECT_EQ("The model has no analysis results.", What(withoutResults));
}

TEST(Advice, OfACancelledRunIsNoFailure) {
    RunResult result = WithFailedCall(Status(0x800704C7));
    result.cancelled = true;
    EXPECT_THAT(What(result), HasSubstr("Cancelled."));
}

TEST(Advice, NamesALogThatCannotBeWritten) {
    RunResult result = WithLine(StatusText::kInitializeFailed);
    result.reports.logFile = "tower.aijR2Log.txt";
    EXPECT_EQ("The log tower.aijR2Log.txt cannot be written.", What(result));
    result.outcome.logIsHeld = true;
    EXPECT_EQ("The log tower.aijR2Log.txt is in use by another run or program.", What(result));
}

TEST(Advice, SaysThatTheInputFileHasNoEnd) {
    RunResult result = WithLine(StatusText::kInitializeFailed);
    result.outcome.logWritten = true;
    EXPECT_THAT(What(result), HasSubstr("FIN"));
}

TEST(Advice, NamesTheInputFileOfARecordingThatLacksAnAnswer) {
    RunResult result = WithFailedCall(0);
    result.outcome.missingAnswer = "GetNodeDisplacements(5, 2)";
    result.outcome.recordedFor = "tower.csv";
    EXPECT_EQ(
        "The recording has no answer to GetNodeDisplacements(5, 2); it was made for tower.csv.",
        What(result));
}

TEST(Advice, IsInJapaneseToo) {
    EXPECT_EQ("モデルに解析結果がありません。",
              What(WithLine(StatusText::kResultsNotAvailable), Language::kJapanese));
}

TEST(AdviceOnFiles, IsNoneWhenAllAreWritten) {
    EXPECT_EQ("", AdviceOnFiles({}, Language::kEnglish).what);
}

TEST(AdviceOnFiles, SaysThatOldResultsAreNotOfThisRun) {
    RunResult result;
    result.outcome.resultsNotOpened = true;
    result.reports.resultFile = "tower.aijR2Result.csv";
    const Advice advice = AdviceOnFiles(result, Language::kEnglish);
    EXPECT_EQ("The results tower.aijR2Result.csv could not be written.", advice.what);
    EXPECT_THAT(advice.todo, HasSubstr("earlier run"));
}

TEST(AdviceOnFiles, SaysThatTheSheetCouldNotBeWritten) {
    RunResult result;
    result.sheetFailure = "tower.aijR2Sheet.html: the disk is full";
    EXPECT_THAT(AdviceOnFiles(result, Language::kEnglish).what,
                HasSubstr("tower.aijR2Sheet.html: the disk is full"));
}
