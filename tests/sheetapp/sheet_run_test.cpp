// A run with its calculation sheet, on a host in memory and on a recording.

#include "sheetapp/sheet_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qhm_file.h"
#include "host/recording.h"
#include "tests/support/fake_host.h"
#include "tests/support/small_building.h"
#include "tests/support/test_folder.h"
#include "tests/support/watched_host.h"

using testing::StartsWith;

namespace {

class SheetRun : public testing::Test {
protected:
    SheetRun() {
        AddSmallBuilding(host);
        host.modelPath = folder.Path("tower.ext");
        request.input = folder.Write("input.csv", kSmallBuildingInput);
    }

    RunResult Run(HostQueries& on) {
        return RunAndWriteSheet(
            request, [&on] { return &on; }, progress);
    }

    TestFolder folder;
    FakeHost host;
    RunRequest request;
    RunProgress progress;
};

}  // namespace

TEST_F(SheetRun, LeavesLogResultsAndTheSheetBesideTheModel) {
    const RunResult result = Run(host);
    EXPECT_TRUE(result.outcome.complete);
    EXPECT_EQ(folder.Path("tower.aijR2Sheet.html"), result.sheetPath);
    EXPECT_THAT(folder.Read("tower.aijR2Sheet.html"), StartsWith("<!DOCTYPE html>"));
    EXPECT_NE("", folder.Read("tower.aijR2Result.csv"));
    EXPECT_EQ(StatusText::kClosingLog, result.lines.back());
}

TEST_F(SheetRun, ThatIsCancelledLeavesTheLogAndNoSheet) {
    folder.Write("tower.aijR2Sheet.html", "of an earlier run");
    WatchedHost watched(host, [this](std::size_t call) {
        if (call == 20) progress.Cancel();
    });
    CountingHost counting(watched, [this](const QuestionProgress& now) { progress.Answered(now); });
    const RunResult result = Run(counting);
    EXPECT_TRUE(result.cancelled);
    EXPECT_FALSE(result.outcome.complete);
    EXPECT_EQ("", result.sheetPath);
    EXPECT_EQ("of an earlier run", folder.Read("tower.aijR2Sheet.html"));
    EXPECT_NE("", folder.Read("tower.aijR2Log.txt"));
    EXPECT_EQ(20u, watched.Calls());
}

TEST_F(SheetRun, WithoutAHostHasNothingToWrite) {
    const RunResult result = RunAndWriteSheet(
        request, [] { return nullptr; }, progress);
    EXPECT_EQ(std::vector<StatusText>{StatusText::kNoConnection}, result.lines);
    EXPECT_EQ("", result.sheetPath);
    EXPECT_EQ("", result.sheetFailure);
}

TEST_F(SheetRun, TellsWhatTheConnectionThrew) {
    const RunResult result = RunAndWriteSheet(
        request, []() -> HostQueries* { throw HostCallError(-5, "the host refuses"); }, progress);
    EXPECT_TRUE(result.outcome.hostFailed);
    EXPECT_EQ(-5, result.outcome.hostStatus);
    EXPECT_EQ("the host refuses", result.outcome.failure);
}

TEST_F(SheetRun, RefusesAnInputFileInTheSheetsPlace) {
    request.input = folder.Write("tower.aijR2Sheet.html", kSmallBuildingInput);
    const RunResult result = Run(host);
    EXPECT_TRUE(result.outcome.filesCollide);
    EXPECT_EQ(kSmallBuildingInput, folder.Read("tower.aijR2Sheet.html"));
}

TEST_F(SheetRun, OnARecordingNeedsNoHost) {
    RememberingHost memory(host);
    AskForEverything(memory);
    RecordedModel model = memory.TakeMemory();
    model.recordedFor = RecordedForEverything();
    WriteQhmFile(model, folder.Path("hall.qhm"));
    request.recording = folder.Path("hall.qhm");
    const RunResult result = RunAndWriteSheet(
        request, [] { return nullptr; }, progress);
    EXPECT_TRUE(result.outcome.complete);
    EXPECT_EQ(folder.Path("hall.aijR2Sheet.html"), result.sheetPath);
    EXPECT_GT(progress.Look().answered, 0u);
}

TEST_F(SheetRun, SaysWhyARecordingCannotBeRead) {
    request.recording = folder.Write("hall.qhm", "no JSON");
    const RunResult result = Run(host);
    EXPECT_NE(std::string::npos, result.recordingFailure.find("hall.qhm"));
    EXPECT_FALSE(result.outcome.complete);
}
