// Runs over automation objects in which one call fails, for every call from the connection to the
// last question of a run.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "host/host_link.h"
#include "host/remembering_host.h"
#include "tests/support/automation_answers.h"
#include "tests/support/com_apartment.h"
#include "tests/support/com_memory.h"
#include "tests/support/open_files.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"
#include "tests/support/two_story_building.h"

namespace {

constexpr const char* kLog = "model.aijR2Log.txt";
constexpr const char* kResults = "model.aijR2Result.csv";
constexpr std::size_t kNoCall = 0;

class LiveFaultInjection : public testing::Test {
protected:
    LiveFaultInjection() {
        building_.modelPath = folder_.Path("model.ext");
        BuildTwoStories(building_);
        folder_.Write("input.csv", kTwoStoryInput);
    }

    // Connects, runs and lets go of the host; the call with number `failing` fails.
    void Run(std::size_t failing) {
        std::filesystem::remove(folder_.Path(kLog));
        failing_ = failing;
        calls_ = 0;
        escaped_ = false;
        linesAt_.clear();
        objects_.ForgetCalls();
        building_.calls.clear();
        HostLink link;
        ReportPaths reports;
        try {
            RunCompute(
                folder_.Path("input.csv"),
                [&]() -> HostQueries* {
                    return link.ConnectTo(&objects_.root) == 1 ? &link : nullptr;
                },
                status_, reports);
        } catch (const HostCallError&) {
            escaped_ = true;
        }
    }

    // Calls of a connection and of what stands before the guarded part of a run: PostConnectCall,
    // the model's path, the units.
    static constexpr std::size_t kUnguarded = 3;

    TestFolder folder_;
    FakeHost building_;
    ComApartment com_;
    FakeAutomationHost objects_;
    StatusLines status_;
    std::size_t failing_ = kNoCall;
    std::size_t calls_ = 0;
    bool escaped_ = false;
    std::vector<std::size_t> linesAt_;  // status lines shown before each call
    AutomationAnswers answers_{objects_, building_, [this] {
                                   linesAt_.push_back(status_.lines.size());
                                   return ++calls_ == failing_;
                               }};
};

TEST_F(LiveFaultInjection, TheRunWithoutAFaultIsComplete) {
    Run(kNoCall);
    EXPECT_THAT(status_.lines, testing::Contains(TextOf(StatusText::kCalculationComplete)));
    EXPECT_TRUE(folder_.Has(kResults));
}

TEST_F(LiveFaultInjection, TheStatusListEndsWithTheExceptionAndTheClosingLines) {
    Run(kNoCall);
    const std::vector<std::string> wholeRun = status_.lines;
    const std::vector<std::size_t> linesAt = linesAt_;
    for (std::size_t call = kUnguarded + 1; call <= linesAt.size(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        std::vector<std::string> expected(
            wholeRun.begin(), wholeRun.begin() + static_cast<std::ptrdiff_t>(linesAt[call - 1]));
        for (const StatusText line :
             {StatusText::kExceptionThrown, StatusText::kFinishes, StatusText::kClosingLog})
            expected.emplace_back(TextOf(line));
        ASSERT_FALSE(escaped_);
        ASSERT_EQ(expected, status_.lines);
    }
}

TEST_F(LiveFaultInjection, ACallBeforeTheGuardedPartLeavesTheRun) {
    for (std::size_t call = 1; call <= kUnguarded; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        EXPECT_TRUE(escaped_);
        EXPECT_THAT(status_.lines, testing::IsEmpty());
        EXPECT_FALSE(folder_.Has(kLog));
    }
}

TEST_F(LiveFaultInjection, TheLogHoldsTheBeginningOfAWholeRunsLog) {
    Run(kNoCall);
    const std::size_t calls = calls_;
    const std::string wholeLog = folder_.Read(kLog);
    std::size_t sizeBefore = 0;
    for (std::size_t call = kUnguarded + 1; call <= calls; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        const std::string log = folder_.Read(kLog);
        ASSERT_EQ(wholeLog.substr(0, log.size()), log);
        ASSERT_LE(sizeBefore, log.size());
        sizeBefore = log.size();
    }
}

TEST_F(LiveFaultInjection, TheLogCanBeRenamedAndDeletedAtOnce) {
    Run(kNoCall);
    const std::size_t calls = calls_;
    for (std::size_t call = kUnguarded + 1; call <= calls; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        std::error_code error;
        std::filesystem::rename(folder_.Path(kLog), folder_.Path("renamed.txt"), error);
        ASSERT_FALSE(error) << error.message();
        ASSERT_TRUE(std::filesystem::remove(folder_.Path("renamed.txt"), error));
    }
}

TEST_F(LiveFaultInjection, NoReferenceToTheHostIsLeft) {
    Run(kNoCall);
    const std::size_t calls = calls_;
    for (std::size_t call = 1; call <= calls; ++call) {
        Run(call);
        ASSERT_EQ(0, objects_.References()) << "call " << call;
    }
}

// The two load case lists are left standing on purpose, one array each; a list that failed is not.
TEST_F(LiveFaultInjection, NoArrayOrStringIsLeftButTheTwoLoadCaseLists) {
    Run(kNoCall);
    const std::size_t calls = calls_;
    for (std::size_t call = 1; call <= calls; ++call) {
        const ComMemoryCounter memory;
        Run(call);
        long lists = 0;
        for (const std::string& asked : building_.calls)
            if (asked == "GetPrimaryLoadCaseNumbers()" || asked == "GetLoadCombinationNumbers()")
                ++lists;
        ASSERT_EQ(lists, memory.BlocksInUse()) << "call " << call;
    }
}

TEST_F(LiveFaultInjection, NoFileOrHandleStaysOpen) {
    Run(kNoCall);
    const std::size_t calls = calls_;
    const std::ptrdiff_t before = OpenFiles();
    for (std::size_t call = 1; call <= calls; ++call)
        Run(call);
    EXPECT_EQ(before, OpenFiles());
}

TEST_F(LiveFaultInjection, TheNextRunInTheSameProcessWorks) {
    Run(kNoCall);
    const std::vector<std::string> wholeRun = status_.lines;
    const std::size_t calls = calls_;
    const std::string log = folder_.Read(kLog);
    const std::string results = folder_.Read(kResults);
    for (std::size_t call = 1; call <= calls; call += 7) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        Run(kNoCall);
        ASSERT_EQ(wholeRun, status_.lines);
        ASSERT_EQ(log, folder_.Read(kLog));
        ASSERT_EQ(results, folder_.Read(kResults));
    }
}

}  // namespace
