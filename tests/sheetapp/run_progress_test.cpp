// What the window is told of a run.

#include "sheetapp/run_progress.h"

#include <gtest/gtest.h>

namespace {

QuestionProgress After(std::size_t answered) {
    return {.answered = answered, .counts = {.nodes = 20, .members = 30, .loadCases = 3}};
}

}  // namespace

TEST(RunProgress, ShowsLinesAnswersAndTheShareOfTheWork) {
    RunProgress progress;
    progress.Append(StatusText::kPreparing);
    progress.Answered(After(107));  // of 214 that are expected
    const RunProgress::View view = progress.Look();
    EXPECT_EQ(std::vector<StatusText>{StatusText::kPreparing}, view.lines);
    EXPECT_EQ(107u, view.answered);
    EXPECT_DOUBLE_EQ(0.5, view.share);
}

// More is expected once the members are counted than before: the bar waits.
TEST(RunProgress, TakesNoShareBack) {
    RunProgress progress;
    progress.Answered(After(107));
    progress.Answered({.answered = 108, .counts = {.nodes = 20, .members = 3000, .loadCases = 3}});
    EXPECT_DOUBLE_EQ(0.5, progress.Look().share);
}

TEST(RunProgress, EndsTheRunAtTheNextQuestionOnceItIsCancelled) {
    RunProgress progress;
    EXPECT_NO_THROW(progress.Answered(After(1)));
    progress.Cancel();
    EXPECT_THROW(progress.Answered(After(2)), RunCancelled);
}

TEST(RunProgress, SaysThatTheHostIsBusyUntilItAnswers) {
    RunProgress progress;
    EXPECT_TRUE(progress.RejectedByHost());
    EXPECT_TRUE(progress.Look().hostIsBusy);
    progress.Answered(After(1));
    EXPECT_FALSE(progress.Look().hostIsBusy);
}

TEST(RunProgress, GivesABusyHostUpOnceItIsCancelled) {
    RunProgress progress;
    progress.Cancel();
    EXPECT_FALSE(progress.RejectedByHost());
}

TEST(RunProgress, BeginsAnew) {
    RunProgress progress;
    progress.Append(StatusText::kPreparing);
    progress.Answered(After(107));
    progress.Cancel();
    progress.Begin();
    EXPECT_FALSE(progress.IsCancelled());
    EXPECT_TRUE(progress.Look().lines.empty());
    EXPECT_DOUBLE_EQ(0.0, progress.Look().share);
}
