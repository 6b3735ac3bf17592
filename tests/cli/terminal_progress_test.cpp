// How far the questions to the running host are, on a terminal.

#include "cli/terminal_progress.h"

#include <gtest/gtest.h>

#include <sstream>

using std::chrono::seconds;

TEST(ProgressText, HasAnswersTheirRateTheTimeAndThePart) {
    EXPECT_EQ("host: 4000 answers, 50 a second, 1:20, about 40 %",
              ProgressText(4000, 0.4, seconds(80)));
}

TEST(ProgressText, HasNoRateInTheFirstSecond) {
    EXPECT_EQ("host: 12 answers, 0:00, about 12 %", ProgressText(12, 0.129, seconds(0)));
}

TEST(ProgressText, HasNoPartBeforeItIsKnown) {
    EXPECT_EQ("host: 3 answers, 3 a second, 0:01", ProgressText(3, 0.0, seconds(1)));
}

TEST(TerminalProgress, IsALineThatIsTakenAwayAgain) {
    std::ostringstream out;
    TerminalProgress progress(out, true);
    progress.Show(5, 0);
    progress.Clear();
    const std::string line = "host: 5 answers, 0:00";
    EXPECT_EQ("\r" + line + "\r" + std::string(line.size(), ' ') + "\r", out.str());
}

TEST(TerminalProgress, PrintsNothingWhereThereIsNoTerminal) {
    std::ostringstream out;
    TerminalProgress progress(out, false);
    progress.Show(5, 10);
    progress.Clear();
    EXPECT_EQ("", out.str());
}

TEST(TerminalProgress, TakesNothingAwayThatIsNotThere) {
    std::ostringstream out;
    TerminalProgress progress(out, true);
    progress.Clear();
    EXPECT_EQ("", out.str());
}
