// Runs in which one host call fails, for every call of a whole run from the first to the last.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <set>

#include "host/remembering_host.h"
#include "tests/support/open_files.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"
#include "tests/support/two_story_building.h"
#include "tests/support/watched_host.h"

using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr const char* kLog = "model.aijR2Log.txt";
constexpr const char* kResults = "model.aijR2Result.csv";

using Fault = std::function<void()>;

// Line ends as they are in the file, so that positions in it can be compared.
std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void FailCall() {
    throw HostCallError(static_cast<std::int32_t>(0x800706BE), "the host has gone");
}

// One run over the two-story building, on its own or with a remembering host in front. The
// questions that count are those that reach the host.
class FaultInjection : public testing::TestWithParam<bool> {
protected:
    static constexpr std::size_t kNoCall = 0;

    // What was so when a question reached the host.
    struct Moment {
        std::size_t statusLines;
        std::uintmax_t logSize;
    };

    FaultInjection() {
        host_.modelPath = folder_.Path("model.ext");
        BuildTwoStories(host_);
        folder_.Write("input.csv", kTwoStoryInput);
    }

    // A run in which `fault` is thrown instead of the answer to question `failing`.
    void Run(std::size_t failing, const Fault& fault = FailCall) {
        RunBetween([&](std::size_t call) {
            if (call == failing) fault();
        });
    }

    // A run without a fault; gives what was so at each question.
    std::vector<Moment> RunAndNote() {
        std::vector<Moment> moments;
        RunBetween([&](std::size_t) {
            std::fflush(nullptr);  // what the log holds so far becomes visible
            std::error_code none;
            const std::uintmax_t size = std::filesystem::file_size(folder_.Path(kLog), none);
            moments.push_back({status_.lines.size(), none ? 0 : size});
        });
        return moments;
    }

    std::size_t CallsOfARun() {
        Run(kNoCall);
        return calls_;
    }

    void RunBetween(const WatchedHost::BeforeCall& beforeCall) {
        std::filesystem::remove(folder_.Path(kLog));
        std::filesystem::remove(folder_.Path(kResults));
        WatchedHost watched(host_, beforeCall);
        RememberingHost remembering(watched);
        HostQueries* const asked = GetParam() ? static_cast<HostQueries*>(&remembering) : &watched;
        ReportPaths reports;
        escaped_ = false;
        try {
            outcome_ = RunCompute(
                folder_.Path("input.csv"), [asked] { return asked; }, status_, reports);
        } catch (...) {
            escaped_ = true;
        }
        calls_ = watched.Calls();
    }

    // A run asks for the model's path and its units before its guarded part.
    static bool IsBeforeTheGuardedPart(std::size_t call) { return call <= 2; }

    TestFolder folder_;
    FakeHost host_;
    StatusLines status_;
    RunOutcome outcome_;
    bool escaped_ = false;
    std::size_t calls_ = 0;
};

// The status lines that a run shows before a call, then what an exception adds to them.
std::vector<std::string> EndedEarly(const std::vector<std::string>& wholeRun, std::size_t shown,
                                    StatusText why) {
    std::vector<std::string> lines(wholeRun.begin(),
                                   wholeRun.begin() + static_cast<std::ptrdiff_t>(shown));
    for (const StatusText line : {why, StatusText::kFinishes, StatusText::kClosingLog})
        lines.emplace_back(TextOf(line));
    return lines;
}

TEST_P(FaultInjection, EveryQueryIsAmongTheFailingCalls) {
    Run(kNoCall);
    ASSERT_TRUE(outcome_.complete);
    std::set<std::string> asked;
    for (const std::string& call : host_.calls)
        asked.insert(call.substr(0, call.find('(')));
    // All nineteen but PostConnectCall, which ends a connection and is no part of a run.
    EXPECT_EQ(18U, asked.size()) << testing::PrintToString(asked);
}

TEST_P(FaultInjection, TheStatusListEndsWithTheExceptionAndTheClosingLines) {
    const std::vector<Moment> moments = RunAndNote();
    const std::vector<std::string> wholeRun = status_.lines;
    for (std::size_t call = 3; call <= moments.size(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call) + ": " + host_.calls.at(call - 1));
        Run(call);
        ASSERT_FALSE(escaped_);
        ASSERT_FALSE(outcome_.complete);
        ASSERT_EQ(EndedEarly(wholeRun, moments[call - 1].statusLines, StatusText::kExceptionThrown),
                  status_.lines);
    }
}

TEST_P(FaultInjection, TheReasonOfTheHostReachesTheOutcome) {
    Run(5);
    EXPECT_EQ("the host has gone", outcome_.failure);
}

TEST_P(FaultInjection, ExhaustedMemoryInACallEndsTheRunTheSameWay) {
    const std::vector<Moment> moments = RunAndNote();
    const std::vector<std::string> wholeRun = status_.lines;
    for (std::size_t call = 3; call <= moments.size(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call, [] { throw std::bad_alloc(); });
        ASSERT_EQ(EndedEarly(wholeRun, moments[call - 1].statusLines, StatusText::kExceptionThrown),
                  status_.lines);
    }
}

TEST_P(FaultInjection, AnExceptionOfWholeNumberTypeSaysWrongFilePath) {
    const std::vector<Moment> moments = RunAndNote();
    const std::vector<std::string> wholeRun = status_.lines;
    for (std::size_t call = 3; call <= moments.size(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call, [] { throw 53; });
        ASSERT_EQ(EndedEarly(wholeRun, moments[call - 1].statusLines, StatusText::kWrongFilePath),
                  status_.lines);
    }
}

TEST_P(FaultInjection, ACallBeforeTheGuardedPartLeavesTheRunWithoutLinesOrFiles) {
    for (const std::size_t call : {1U, 2U}) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        EXPECT_TRUE(escaped_);
        EXPECT_THAT(status_.lines, IsEmpty());
        EXPECT_FALSE(folder_.Has(kLog));
    }
}

TEST_P(FaultInjection, TheLogHoldsEverythingUpToTheFailedCall) {
    const std::vector<Moment> moments = RunAndNote();
    const std::string wholeLog = ReadBytes(folder_.Path(kLog));
    for (std::size_t call = 3; call <= moments.size(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call) + ": " + host_.calls.at(call - 1));
        Run(call);
        ASSERT_EQ(wholeLog.substr(0, moments[call - 1].logSize), ReadBytes(folder_.Path(kLog)));
    }
}

TEST_P(FaultInjection, TheLogCanBeRenamedAndDeletedAtOnce) {
    const std::size_t calls = CallsOfARun();
    for (std::size_t call = 3; call <= calls; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        std::error_code error;
        std::filesystem::rename(folder_.Path(kLog), folder_.Path("renamed.txt"), error);
        ASSERT_FALSE(error) << error.message();
        ASSERT_TRUE(std::filesystem::remove(folder_.Path("renamed.txt"), error));
    }
}

TEST_P(FaultInjection, NoFileStaysOpen) {
    const std::size_t calls = CallsOfARun();
    Run(calls);
    const std::ptrdiff_t before = OpenFiles();
    for (std::size_t call = 1; call <= calls; ++call)
        Run(call);
    EXPECT_EQ(before, OpenFiles());
}

TEST_P(FaultInjection, TheNextRunInTheSameProcessWorks) {
    Run(kNoCall);
    const std::vector<std::string> wholeRun = status_.lines;
    const std::size_t calls = calls_;
    const std::string log = folder_.Read(kLog);
    const std::string results = folder_.Read(kResults);
    for (std::size_t call = 1; call <= calls; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        Run(call);
        Run(kNoCall);
        ASSERT_EQ(wholeRun, status_.lines);
        ASSERT_EQ(log, folder_.Read(kLog));
        ASSERT_EQ(results, folder_.Read(kResults));
    }
}

INSTANTIATE_TEST_SUITE_P(Host, FaultInjection, testing::Values(false, true),
                         [](const auto& host) { return host.param ? "Remembered" : "Asked"; });

// A member without its node stops the selection of story members half-way, and the writing of the
// results then runs beyond an empty vector.
class BrokenOffResults : public testing::Test {
protected:
    BrokenOffResults() {
        host_.modelPath = folder_.Path("model.ext");
        host_.primaryLoadCases = {1};
        host_.Node(1, 0, 0, 0, true).Node(2, 0, 3, 0).Member(1, 1, 2);
        folder_.Write("input.csv", "FloorLevel,0,3000,\nFIN\n");
    }

    void Run(HostQueries& host) {
        ReportPaths reports;
        RunCompute(
            folder_.Path("input.csv"), [&host] { return &host; }, status_, reports);
    }

    TestFolder folder_;
    FakeHost host_;
    StatusLines status_;
};

TEST_F(BrokenOffResults, AreCompleteUpToTheRowThatFailed) {
    host_.Member(2, 2, 99);
    Run(host_);
    EXPECT_THAT(status_.lines, testing::Contains(TextOf(StatusText::kExceptionThrown)));
    EXPECT_EQ(
        "\n -----  Story deformation angle  ----- \n"
        "\nDirection X\nDisp type : Average\n"
        "Story,Load,Floor level(L)(mm),Floor level(U)(mm),Story height(mm),"
        "Relative story disp.(mm),Story deform angle,Allowable story deform angle,Result\n",
        folder_.Read(kResults));
}

#ifndef _WIN32

// The stream is not closed by the run: one more file open. (Wine does not count them.)
TEST_F(BrokenOffResults, AreLeftOpen) {
    Run(host_);
    host_.Member(2, 2, 99);
    const std::ptrdiff_t before = OpenFiles();
    Run(host_);
    EXPECT_EQ(before + 1, OpenFiles());
}

#endif

// The model is corrected, and the same program runs again.
TEST_F(BrokenOffResults, AreReplacedByTheNextRun) {
    host_.Member(2, 2, 99);
    Run(host_);
    host_.Node(99, 3, 3, 0);
    Run(host_);
    EXPECT_THAT(status_.lines, testing::Contains(TextOf(StatusText::kCalculationComplete)));
    EXPECT_THAT(folder_.Read(kResults), testing::HasSubstr("Eccentricity modulus"));
    const std::string results = folder_.Read(kResults);
    std::fflush(nullptr);  // as at the end of the program
    EXPECT_EQ(results, folder_.Read(kResults));
}

TEST_F(BrokenOffResults, CanBeRenamedAndDeletedAtOnce) {
    host_.Member(2, 2, 99);
    Run(host_);
    std::error_code error;
    std::filesystem::rename(folder_.Path(kResults), folder_.Path("renamed.csv"), error);
    EXPECT_FALSE(error) << error.message();
    EXPECT_TRUE(std::filesystem::remove(folder_.Path("renamed.csv"), error));
}

}  // namespace
