// Runs in a hostile environment: files that others hold, folders that vanish, full disks, input
// files that change while they are read. A run ends as every run ends, and never breaks.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>

#include "tests/support/file_size_limit.h"
#endif

#include "platform/report_file.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"
#include "tests/support/two_story_building.h"
#include "tests/support/watched_host.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* kLog = "model.aijR2Log.txt";
constexpr const char* kResults = "model.aijR2Result.csv";

class Environment : public testing::Test {
protected:
    Environment() {
        host_.modelPath = folder_.Path("model.ext");
        BuildTwoStories(host_);
        folder_.Write("input.csv", kTwoStoryInput);
    }

    void Run() { RunOn(host_); }

    void RunOn(HostQueries& host) {
        outcome_ = RunCompute(
            folder_.Path("input.csv"), [&host] { return &host; }, status_, reports_);
    }

    // A run that calls `change` before the host's answer number `call`.
    void RunWithChange(std::size_t call, const std::function<void()>& change) {
        WatchedHost watched(host_, [&](std::size_t now) {
            if (now == call) change();
        });
        RunOn(watched);
    }

    // Number of the first call of a run with this text.
    std::size_t CallNumber(const std::string& text) {
        Run();
        const auto found = std::find(host_.calls.begin(), host_.calls.end(), text);
        EXPECT_NE(host_.calls.end(), found) << text;
        return static_cast<std::size_t>(found - host_.calls.begin()) + 1;
    }

    void ExpectWholeRun() const {
        EXPECT_TRUE(outcome_.complete);
        const std::vector<std::string> last(status_.lines.end() - 4, status_.lines.end());
        EXPECT_THAT(last, ElementsAre("Saving output...", "Calculation Complete",
                                      "Finishes process...", "Closing error log file..."));
    }

    void ExpectInitializeFailed() const {
        EXPECT_FALSE(outcome_.complete);
        EXPECT_THAT(status_.lines, ElementsAre("Failed to initialize AijCodeRoute2...",
                                               "Finishes process...", "Closing error log file..."));
    }

    TestFolder folder_;
    FakeHost host_;
    StatusLines status_;
    ReportPaths reports_;
    RunOutcome outcome_;
};

// Reports that cannot be opened.

TEST_F(Environment, AFolderInPlaceOfTheResultsIsNamedInTheLog) {
    std::filesystem::create_directory(folder_.Path(kResults));
    Run();
    ExpectWholeRun();
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("*** WARNING *** : Cannot open result file " +
                                              folder_.Path(kResults) + ".\n"));
    EXPECT_THAT(folder_.Read(kLog), EndsWith("csv.\n"));
}

TEST_F(Environment, AFolderInPlaceOfTheLogEndsTheRunAtItsStart) {
    std::filesystem::create_directory(folder_.Path(kLog));
    Run();
    ExpectInitializeFailed();
    EXPECT_THAT(outcome_.failure, HasSubstr(folder_.Path(kLog)));
    EXPECT_FALSE(folder_.Has(kResults));
}

TEST_F(Environment, AModelFolderThatIsNotThereEndsTheRunAtItsStart) {
    host_.modelPath = folder_.Path("gone") + "/model.ext";
    Run();
    ExpectInitializeFailed();
}

TEST_F(Environment, ANetworkPathThatCannotBeReachedEndsTheRunAtItsStart) {
    host_.modelPath = "\\\\quarnel-no-such-server\\share\\model.ext";
#ifndef _WIN32
    host_.modelPath = "//quarnel-no-such-server/share/model.ext";
#endif
    Run();
    ExpectInitializeFailed();
}

// More than 260 characters: no trouble where the system takes them, else the system's own refusal.
TEST_F(Environment, AVeryLongModelPathIsUsedOrRefusedAsAWhole) {
    std::filesystem::path deep = folder_.Path("");
    for (int i = 0; i < 4; ++i)
        deep /= std::string(80, static_cast<char>('a' + i));
    std::error_code refused;
    std::filesystem::create_directories(deep, refused);
    host_.modelPath = (deep / "model.ext").string();
    ASSERT_GT(host_.modelPath.size(), 260U);
    Run();
    if (refused)
        ExpectInitializeFailed();
    else
        ExpectWholeRun();
#ifndef _WIN32
    EXPECT_FALSE(refused);
    EXPECT_TRUE(std::filesystem::exists(deep / kResults));
#endif
}

#ifdef _WIN32

// What a spreadsheet does with a file that it shows: nobody else may write.
class LockedFile {
public:
    explicit LockedFile(const std::string& path)
        : file_(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~LockedFile() { CloseHandle(file_); }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

private:
    HANDLE file_;
};

TEST_F(Environment, ResultsOpenInAnotherProgramAreNamedInTheLogAndStay) {
    folder_.Write(kResults, "results of last week");
    {
        const LockedFile spreadsheet(folder_.Path(kResults));
        Run();
    }
    ExpectWholeRun();
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open result file " + folder_.Path(kResults)));
    EXPECT_EQ("results of last week", folder_.Read(kResults));
}

TEST_F(Environment, ALogOpenInAnotherProgramEndsTheRunAtItsStart) {
    const LockedFile editor(folder_.Path(kLog));
    Run();
    ExpectInitializeFailed();
}

TEST_F(Environment, AnInputFileOpenInAnotherProgramEndsTheRunWithAWarning) {
    const LockedFile editor(folder_.Path("input.csv"));
    Run();
    ExpectInitializeFailed();
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open data file"));
}

TEST_F(Environment, AReadOnlyResultsFileIsNamedInTheLogAndStays) {
    folder_.Write(kResults, "results of last week");
    SetFileAttributesA(folder_.Path(kResults).c_str(), FILE_ATTRIBUTE_READONLY);
    if (std::FILE* file = std::fopen(folder_.Path(kResults).c_str(), "r+")) {
        std::fclose(file);
        GTEST_SKIP() << "this user may write to read-only files";
    }
    Run();
    SetFileAttributesA(folder_.Path(kResults).c_str(), FILE_ATTRIBUTE_NORMAL);
    ExpectWholeRun();
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open result file"));
    EXPECT_EQ("results of last week", folder_.Read(kResults));
}

#else

// A folder in which nobody can create a file, not even root.
TEST_F(Environment, AFolderWithoutTheRightToWriteEndsTheRunAtItsStart) {
    host_.modelPath = "/proc/model.ext";
    Run();
    ExpectInitializeFailed();
}

// What a run may write before the disk is full: the log, of 2 kB or so, but not the results, of 6.
constexpr std::uintmax_t kRoomForTheLog = 4000;

TEST_F(Environment, AFullDiskLeavesTheStatusListAndTheLogAsTheyAre) {
    Run();
    const std::vector<std::string> status = status_.lines;
    const std::string log = folder_.Read(kLog);
    ASSERT_LT(log.size(), kRoomForTheLog);
    ASSERT_GT(folder_.Read(kResults).size(), kRoomForTheLog);
    {
        const FileSizeLimit fullDisk(kRoomForTheLog);
        Run();
    }
    EXPECT_EQ(status, status_.lines);
    EXPECT_EQ(log, folder_.Read(kLog));
}

TEST_F(Environment, ResultsLostOnAFullDiskAreInTheOutcome) {
    {
        const FileSizeLimit fullDisk(kRoomForTheLog);
        Run();
    }
    EXPECT_TRUE(outcome_.complete);
    EXPECT_FALSE(outcome_.resultsWritten);
    EXPECT_THAT(outcome_.incompleteReports, ElementsAre(folder_.Path(kResults)));
}

// One remark says that the file is not whole; that its rows are missing goes without saying.
TEST_F(Environment, ResultsLostOnAFullDiskAreNotMissedRowByRow) {
    RunOutcome outcome;
    {
        const FileSizeLimit fullDisk(kRoomForTheLog);
        outcome = RunCompute(folder_.Path("input.csv"), [this] { return &host_; }, status_,
                             reports_, {.wantsFindings = WantsFindings::kYes});
    }
    const Findings& findings = outcome.findings.value();
    EXPECT_THAT(findings.end.missingRows, IsEmpty());
    EXPECT_EQ(1, std::ranges::count_if(findings.remarks,
                                       [](const Remark& remark) { return remark.id == "R26"; }));
}

// Few enough rows to stay in the stream's buffer until the file is closed; so has the log.
TEST_F(Environment, ReportsLostAtTheLastMomentAreInTheOutcome) {
    FakeHost small;
    small.modelPath = host_.modelPath;
    {
        const FileSizeLimit fullDisk(100);
        RunOn(small);
    }
    ExpectWholeRun();
    EXPECT_FALSE(outcome_.resultsWritten);
    EXPECT_THAT(outcome_.incompleteReports,
                ElementsAre(folder_.Path(kResults), folder_.Path(kLog)));
}

// What is not a regular file is not opened: nobody waits at a pipe, no device is written to.

TEST_F(Environment, APipeInPlaceOfTheLogEndsTheRunAtItsStart) {
    ASSERT_EQ(0, mkfifo(folder_.Path(kLog).c_str(), 0600));
    Run();
    ExpectInitializeFailed();
    EXPECT_THAT(outcome_.failure, HasSubstr("not a regular file"));
    EXPECT_FALSE(outcome_.logIsHeld);
}

TEST_F(Environment, ADeviceInPlaceOfTheResultsIsNamedInTheLog) {
    std::filesystem::create_symlink("/dev/full", folder_.Path(kResults));
    Run();
    ExpectWholeRun();
    EXPECT_TRUE(outcome_.resultsNotOpened);
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open result file"));
}

TEST_F(Environment, APipeInPlaceOfTheInputEndsTheRunWithAWarning) {
    std::filesystem::remove(folder_.Path("input.csv"));
    ASSERT_EQ(0, mkfifo(folder_.Path("input.csv").c_str(), 0600));
    Run();
    ExpectInitializeFailed();
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open data file"));
    EXPECT_THAT(outcome_.failure, HasSubstr("is not a regular file"));
}

TEST_F(Environment, AModelFolderThatVanishesTakesTheReportsWithIt) {
    std::filesystem::create_directory(folder_.Path("job"));
    host_.modelPath = folder_.Path("job/model.ext");
    RunWithChange(CallNumber("GetNodeCount()"),
                  [this] { std::filesystem::remove_all(folder_.Path("job")); });
    ExpectWholeRun();
    EXPECT_FALSE(folder_.Has("job"));
}

#endif

TEST_F(Environment, WholeReportsAreNotCalledIncomplete) {
    Run();
    EXPECT_TRUE(outcome_.resultsWritten);
    EXPECT_THAT(outcome_.incompleteReports, IsEmpty());
}

TEST_F(Environment, ResultsThatCouldNotBeOpenedAreNotCalledIncomplete) {
    std::filesystem::create_directory(folder_.Path(kResults));
    Run();
    EXPECT_FALSE(outcome_.resultsWritten);
    EXPECT_TRUE(outcome_.resultsNotOpened);
    EXPECT_THAT(outcome_.incompleteReports, IsEmpty());
}

// A second run while the first one writes.

TEST_F(Environment, ALogThatAnotherRunWritesEndsTheRunAtItsStartAndStays) {
    const OpenedReport other = OpenReport(folder_.Path(kLog));
    std::fputs("half a log", other.stream);
    std::fflush(other.stream);
    Run();
    ExpectInitializeFailed();
    EXPECT_TRUE(outcome_.logIsHeld);
    EXPECT_THAT(outcome_.failure, HasSubstr("another run is writing it"));
    EXPECT_EQ("half a log", folder_.Read(kLog));
    std::fclose(other.stream);
    Run();
    ExpectWholeRun();
}

TEST_F(Environment, ResultsThatAnotherRunWritesAreNamedInTheLogAndStay) {
    const OpenedReport other = OpenReport(folder_.Path(kResults));
    std::fputs("half of the results", other.stream);
    std::fflush(other.stream);
    Run();
    ExpectWholeRun();
    EXPECT_TRUE(outcome_.resultsNotOpened);
    EXPECT_TRUE(outcome_.resultsAreHeld);
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open result file"));
    EXPECT_EQ("half of the results", folder_.Read(kResults));
    std::fclose(other.stream);
}

TEST_F(Environment, ARunHoldsItsLogFromItsFirstQuestionOnAndReadersMayLook) {
    bool isHeld = false;
    RunWithChange(CallNumber("AreResultsAvailable()"), [&] {
        isHeld = OpenReport(folder_.Path(kLog)).opening == ReportOpening::kHeld;
        EXPECT_NO_THROW(folder_.Read(kLog));
    });
    EXPECT_TRUE(isHeld);
    ExpectWholeRun();
}

// Without a guard of its own, a run that mixes up its two reports has no results.
TEST_F(Environment, AResultsFileThatIsTheLogIsNamedInTheLog) {
    folder_.Write(kLog, "");
    std::filesystem::create_hard_link(folder_.Path(kLog), folder_.Path(kResults));
    Run();
    ExpectWholeRun();
    EXPECT_TRUE(outcome_.resultsNotOpened);
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Cannot open result file"));
    EXPECT_THAT(folder_.Read(kLog), Not(HasSubstr("-----")));
}

// An input file that changes while the run reads it: each reader opens it anew.

TEST_F(Environment, AnInputFileRemovedAfterItsFirstReaderLeavesTheGeometryInCharge) {
    RunWithChange(CallNumber("AreResultsAvailable()"),
                  [this] { std::filesystem::remove(folder_.Path("input.csv")); });
    ExpectWholeRun();
    const std::string log = folder_.Read(kLog);
    EXPECT_THAT(log, HasSubstr("Cannot open data file " + folder_.Path("input.csv") + ".\n"));
    EXPECT_THAT(log, HasSubstr("3-th floor level(mm) = 7000.00\n"));
}

TEST_F(Environment, AnInputFileEmptiedAfterItsFirstReaderRunsIntoTheLineLimits) {
    RunWithChange(CallNumber("AreResultsAvailable()"), [this] { folder_.Write("input.csv", ""); });
    ExpectWholeRun();
    const std::string log = folder_.Read(kLog);
    EXPECT_THAT(log, HasSubstr("line number is too large as setting floor info"));
    EXPECT_THAT(log, HasSubstr("nData file line number is too large"));
    EXPECT_THAT(log, HasSubstr("line number is too large as setting story members' output flag"));
    EXPECT_THAT(log, HasSubstr("line number is too large as setting story allowable values"));
}

TEST_F(Environment, AnInputFileReplacedBetweenReadersIsReadAsItThenStands) {
    RunWithChange(CallNumber("AreResultsAvailable()"), [this] {
        folder_.Write("input.csv", "DeadLoadCaseNumber,9,\nFloorLevel,0,7000,\nFIN\n");
    });
    ExpectWholeRun();
    const std::string log = folder_.Read(kLog);
    EXPECT_THAT(log, HasSubstr("Dead load case number : 1\n"));  // the first reader has been there
    EXPECT_THAT(log, HasSubstr("2-th floor level(mm) = 7000.00\n"));
    EXPECT_THAT(log, Not(HasSubstr("3-th floor level")));
}

// The file is cut off while the members of the story lines are asked about. For the readers after
// that the last line counts again up to the line limit: the run goes on without them, and ends.
TEST_F(Environment, AnInputFileCutOffBetweenItsReadersEndsAtTheLineLimit) {
    host_.loadCombinations.clear();
    host_.primaryLoadCases = {1};
    std::string input = "StoryMember,\n";
    for (int i = 0; i < 2000; ++i)
        input += "1,101,\n";
    folder_.Write("input.csv", input + "FIN\n");
    bool isCut = false;
    std::size_t asked = 0;
    WatchedHost watched(host_, [&](std::size_t) {
        const bool isReading =
            !host_.calls.empty() && host_.calls.back() == "GetMemberIncidence(101)";
        asked = isReading ? asked + 1 : 0;
        if (asked < 100 || isCut) return;
        isCut = true;
        std::filesystem::resize_file(folder_.Path("input.csv"), 20);
        host_.calls.clear();
    });
    RunOn(watched);
    EXPECT_TRUE(isCut);
    EXPECT_THAT(status_.lines.back(), "Closing error log file...");
    EXPECT_THAT(folder_.Read(kLog), HasSubstr("Data file line number is too large as setting story "
                                              "members' output flag."));
}

// Whatever the file turns into, at whatever question of the run.
TEST_F(Environment, AnInputFileThatChangesAtAnyMomentNeverBreaksTheRun) {
    Run();
    const std::size_t calls = host_.calls.size();
    const std::string contents[] = {"", std::string("\0\xff\r\r\n,,,FIN", 12),
                                    "StoryMember,\n1,101,9999,\n2,1,\nFIN\n",
                                    "FloorLevel,nan,inf,-inf,1e999,\nStoryMember,\n1,101,\nFIN\n"};
    for (std::size_t call = 3; call <= calls; call += 11) {
        for (const std::string& content : contents) {
            SCOPED_TRACE("call " + std::to_string(call) + ", " + content);
            folder_.Write("input.csv", kTwoStoryInput);
            RunWithChange(call, [&] { folder_.Write("input.csv", content); });
            ASSERT_GE(status_.lines.size(), 3U);
            ASSERT_EQ("Closing error log file...", status_.lines.back());
            ASSERT_EQ("Finishes process...", status_.lines[status_.lines.size() - 2]);
        }
    }
}

}  // namespace
