// The Compute button, with the sample host in a process of its own, or with a fake host that
// fails on demand.

#include <algorithm>
#include <optional>

#include "host/host_operations.h"
#include "samplehost/running_host.h"
#include "tests/real_windows/desktop_fixture.h"
#include "tests/real_windows/sample_host_process.h"
#include "tests/real_windows/waiting.h"
#include "tests/support/com_apartment.h"
#include "tests/support/fake_automation_host.h"

namespace {

constexpr wchar_t kLastLine[] = L"Closing error log file...";

const Lines kCompleteRun = {
    L"Preparing for calculation...",
    L"Setting load information...",
    L"Setting node information...",
    L"Setting member information...",
    L"Setting floor information...",
    L"Setting story information...",
    L"Calculating relative displacements...",
    L"Calculating story stiffness ratio...",
    L"Calculating ceter of gravity...",
    L"Calculating story shear...",
    L"Calculating horizontal story stiffness...",
    L"Calculating ceter of rigidity...",
    L"Calculating eccentricity modulus...",
    L"Saving output...",
    L"Calculation Complete",
    L"Finishes process...",
    L"Closing error log file...",
};

const Lines kFailedInitialize = {L"Failed to initialize AijCodeRoute2...", L"Finishes process...",
                                 L"Closing error log file..."};

std::filesystem::path Example(const char* name) {
    return std::filesystem::path(QUARNEL_SOURCE_DIR) / "examples" / name;
}

// The example building as a model file; `from` in it replaced by `to`.
std::string ModelWith(const std::string& from, const std::string& to) {
    std::string model = ContentOf(Example("two_story_y_up.qhm"));
    return model.replace(model.find(from), from.size(), to);
}

class Compute : public DesktopTest {
protected:
    // The model's name is Japanese; log and results stand beside it.
    std::filesystem::path Model(const std::string& content) const {
        return folder_.Write(L"\u4E8C\u968E\u5EFA.qhm", content);
    }
    std::filesystem::path ExampleModel() const {
        return Model(ContentOf(Example("two_story_y_up.qhm")));
    }
    std::filesystem::path Log() const {
        return folder_.Path() / L"\u4E8C\u968E\u5EFA.aijR2Log.txt";
    }
    std::filesystem::path Results() const {
        return folder_.Path() / L"\u4E8C\u968E\u5EFA.aijR2Result.csv";
    }

    const std::filesystem::path input_ =
        folder_.Write(L"\u5165\u529B.csv", ContentOf(Example("two_story_y_up.csv")));
};

// A run on the example building.
class CompleteRun : public Compute {
protected:
    CompleteRun() {
        tool_.LoadInput(input_);
        tool_.Ask(ProbeQuestion::kClearNotes);
        tool_.Compute(kLastLine);
    }

    SampleHostProcess host_{ExampleModel()};
};

// A host in this process, which answers nothing unless told.
class FailingHost : public Compute {
protected:
    FailingHost() { tool_.LoadInput(input_); }

    // The message of the box that Compute opens. It is closed.
    std::wstring MessageOfCompute() {
        tool_.Click(kCompute);
        const Popup box = tool_.WaitForPopup();
        EXPECT_EQ(L"Quarnel", box.Caption());
        EXPECT_EQ(reinterpret_cast<long long>(IDI_HAND),
                  tool_.Ask(ProbeQuestion::kMessageBoxIcon, RECT{}, box.Window()).number);
        const std::wstring message = box.Message();
        box.Press(IDOK);
        return message;
    }

    // Makes the root's method fail with the host's own words; others answer `modelPath_` or
    // nothing.
    void FailAtRoot(DISPID method) {
        host_.rootMethods = [this, method](FakeCall& call) {
            if (call.Id() == method) {
                return call.FailWithException(L"Host", L"The licence is gone.", E_FAIL);
            }
            return AnswerModelPath(call);
        };
    }

    // A run that were entered again would wait for this host, which waits for the answer.
    void IsAnsweredAtOnce(UINT message, WPARAM wParam) {
        EXPECT_NE(
            0, SendMessageTimeoutW(tool_.Dialog(), message, wParam, 0, SMTO_NORMAL, 20000, nullptr))
            << "message " << message << ", " << wParam;
    }

    HRESULT AnswerModelPath(FakeCall& call) {
        if (call.Id() == kGetModelFilePath.id && call.ArgumentCount() > 0) {
            BSTR& path = call.stringOutput(1);
            SysFreeString(path);
            path = SysAllocString((folder_.Path() / L"model.ext").c_str());
        }
        return S_OK;
    }

    ComApartment apartment_;
    FakeAutomationHost host_;
    RunningHost running_{Microsoft::WRL::ComPtr<IDispatch>(&host_.root)};
};

}  // namespace

TEST_F(Compute, WithoutAnInputSaysSo) {
    tool_.Click(kCompute);
    EXPECT_EQ(Lines{L"Input not specified!"}, tool_.StatusLines());
}

TEST_F(Compute, WithAMissingInputSaysSo) {
    tool_.LoadInput(input_);
    std::filesystem::remove(input_);
    tool_.Click(kCompute);
    EXPECT_EQ(Lines{L"Input does not exist"}, tool_.StatusLines());
}

TEST_F(Compute, WithoutAHostSaysSoAndWritesNothing) {
    tool_.LoadInput(input_);
    tool_.Click(kCompute);
    EXPECT_EQ(Lines{L"Unable to establish connection with ORVEK.Pro!"}, tool_.StatusLines());
    tool_.Command(kViewLog);
    tool_.Command(kViewResults);
    EXPECT_EQ((Lines{L"Unable to establish connection with ORVEK.Pro!", L"No input file exist!",
                     L"No result file exist!"}),
              tool_.StatusLines());
}

TEST_F(Compute, StartsWithAnEmptyList) {
    tool_.Command(kViewLog);
    tool_.Click(kCompute);
    tool_.Click(kCompute);
    EXPECT_EQ(Lines{L"Input not specified!"}, tool_.StatusLines());
}

TEST_F(Compute, FindsAHostThatIsStartedLater) {
    const std::filesystem::path model = ExampleModel();
    tool_.LoadInput(input_);
    tool_.Click(kCompute);
    ASSERT_EQ(Lines{L"Unable to establish connection with ORVEK.Pro!"}, tool_.StatusLines());
    const SampleHostProcess host(model);
    tool_.Compute(kLastLine);
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
}

TEST_F(Compute, WithoutResultsAsksForAnAnalysis) {
    const SampleHostProcess host(
        Model(ModelWith("\"resultsAvailable\":true", "\"resultsAvailable\":false")));
    tool_.LoadInput(input_);
    tool_.Compute(kLastLine);
    EXPECT_EQ((Lines{L"ORVEK analysis results are not available.", L"Please run analysis first.",
                     L"Finishes process...", L"Closing error log file..."}),
              tool_.StatusLines());
    EXPECT_EQ("\r\n*** WARNING *** : ORVEK results are not available.\r\n", ContentOf(Log()));
    EXPECT_FALSE(std::filesystem::exists(Results()));
}

// The file dialog leaves the folder of the chosen file as the current directory.
TEST_F(Compute, WithoutAModelPathWritesToTheCurrentDirectory) {
    const SampleHostProcess host(
        Model(ModelWith("\"version\":1,", "\"version\":1,\"modelPath\":null,")));
    tool_.LoadInput(input_);
    tool_.Compute(kLastLine);
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "aijR2Log.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "aijR2Result.csv"));
}

TEST_F(Compute, WithAModelPathOfThreeCharactersDoesTheSame) {
    const SampleHostProcess host(
        Model(ModelWith("\"version\":1,", "\"version\":1,\"modelPath\":\"abc\",")));
    tool_.LoadInput(input_);
    tool_.Compute(kLastLine);
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "aijR2Log.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "aijR2Result.csv"));
}

TEST_F(Compute, WhoseLogCannotBeWrittenFailsToInitialize) {
    const SampleHostProcess host(Model(
        ModelWith("\"version\":1,", "\"version\":1,\"modelPath\":\"C:\\\\no\\\\such\\\\a.ext\",")));
    tool_.LoadInput(input_);
    tool_.Compute(kLastLine);
    EXPECT_EQ(kFailedInitialize, tool_.StatusLines());
}

// The search for the input also sees a file that cannot be opened.
TEST_F(Compute, WhoseInputCannotBeOpenedFailsToInitializeAndLeavesALog) {
    const SampleHostProcess host(ExampleModel());
    tool_.LoadInput(input_);
    const HANDLE user =
        CreateFileW(input_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    tool_.Compute(kLastLine);
    CloseHandle(user);
    EXPECT_EQ(kFailedInitialize, tool_.StatusLines());
    EXPECT_THAT(ContentOf(Log()), testing::HasSubstr("*** WARNING *** : "));
}

// Member 999 is not in the model: the story step's question about it fails.
TEST_F(Compute, InWhichAStepFailsSaysSoAfterTheLineOfThatStep) {
    const SampleHostProcess host(ExampleModel());
    tool_.LoadInput(folder_.Write(L"unknown.csv",
                                  "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n"
                                  "FloorLevel,0,4000,7500,\nStoryMember,\n1,999,\n2,7,\nFIN\n"));
    tool_.Compute(kLastLine);
    EXPECT_EQ(
        (Lines{L"Preparing for calculation...", L"Setting load information...",
               L"Setting node information...", L"Setting member information...",
               L"Setting floor information...", L"Setting story information...",
               L"Exception was thrown...", L"Finishes process...", L"Closing error log file..."}),
        tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
    EXPECT_TRUE(DeleteFileW(Log().c_str())) << "the log is closed";
}

TEST_F(CompleteRun, ShowsEveryLineInOrder) {
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
}

// A line is added, scrolled to and painted before the next one comes.
TEST_F(CompleteRun, PaintsEachLineAsItComes) {
    std::wstring notes = tool_.Notes();
    notes.erase(0, notes.find(L'A'));
    std::size_t lines = 0;
    for (std::size_t at = 0; at != std::wstring::npos; ++lines) {
        const std::size_t next = notes.find(L'A', at + 1);
        const std::wstring line = notes.substr(at, next - at);
        EXPECT_THAT(line, testing::StartsWith(L"AT"));
        EXPECT_THAT(line, testing::HasSubstr(L"P"));
        at = next;
    }
    EXPECT_EQ(kCompleteRun.size(), lines);
}

TEST_F(CompleteRun, WritesLogAndResultsBesideTheModel) {
    EXPECT_THAT(ContentOf(Log()), testing::StartsWith("ORVEK results are available.\r\n"));
    EXPECT_THAT(ContentOf(Results()), testing::HasSubstr("PASS"));
}

TEST_F(CompleteRun, NamesTheModelInTheLog) {
    const std::string model = Utf8(folder_.Path() / L"\u4E8C\u968E\u5EFA.qhm");
    EXPECT_THAT(ContentOf(Log()), testing::HasSubstr("  File : " + model + "\r\n"));
}

TEST_F(CompleteRun, LogIsOpenedByViewErrorLog) {
    tool_.Command(kViewLog);
    EXPECT_EQ(Utf8(Log()), txt_.TakeOpenedPath());
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
}

TEST_F(CompleteRun, ResultsAreOpenedByViewResults) {
    tool_.Command(kViewResults);
    EXPECT_EQ(Utf8(Results()), csv_.TakeOpenedPath());
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
}

// Intended: it is the log that is looked for.
TEST_F(CompleteRun, ResultsAreNotOpenedWhenTheLogIsGone) {
    std::filesystem::remove(Log());
    tool_.Command(kViewResults);
    EXPECT_EQ(L"No result file exist!", tool_.StatusLines().back());
    EXPECT_FALSE(csv_.HasOpened());
}

TEST_F(CompleteRun, LogThatIsGoneIsMissing) {
    std::filesystem::remove(Log());
    tool_.Command(kViewLog);
    EXPECT_EQ(L"No input file exist!", tool_.StatusLines().back());
    EXPECT_FALSE(txt_.HasOpened());
}

TEST_F(CompleteRun, ResultsThatAreGoneAreTheShellsToReport) {
    std::filesystem::remove(Results());
    tool_.Command(kViewResults);
    const Popup box = tool_.WaitForPopup();
    EXPECT_EQ(L"The specified file/path  was not found.", box.Message());
    box.Press(IDOK);
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
}

TEST_F(CompleteRun, SecondOneShowsItsLinesOnly) {
    tool_.Compute(kLastLine);
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
}

TEST_F(CompleteRun, SecondOneWritesBothFilesAnew) {
    const std::string log = ContentOf(Log());
    const std::string results = ContentOf(Results());
    std::ofstream(Log(), std::ios::app) << "old\n";
    std::ofstream(Results(), std::ios::app) << "old\n";
    tool_.Compute(kLastLine);
    EXPECT_EQ(log, ContentOf(Log()));
    EXPECT_EQ(results, ContentOf(Results()));
}

TEST_F(CompleteRun, WithResultsOpenElsewhereWarnsInTheLogOnly) {
    const HANDLE user = CreateFileW(Results().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    tool_.Compute(kLastLine);
    CloseHandle(user);
    EXPECT_EQ(kCompleteRun, tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
    EXPECT_THAT(ContentOf(Log()),
                testing::EndsWith("Starts printing story info in csv style...\r\n\r\n"
                                  "*** WARNING *** : Cannot open result file " +
                                  Utf8(Results()) + ".\r\n"));
    tool_.Command(kViewLog);
    EXPECT_EQ(Utf8(Log()), txt_.TakeOpenedPath());
}

TEST_F(CompleteRun, LoadingAnInputClearsItsLinesButKeepsItsReports) {
    tool_.LoadInput(input_);
    EXPECT_TRUE(tool_.StatusLines().empty());
    tool_.Command(kViewLog);
    EXPECT_EQ(Utf8(Log()), txt_.TakeOpenedPath());
}

TEST_F(CompleteRun, DoneEndsTheProgram) {
    tool_.Click(kDone);
    EXPECT_EQ(0u, tool_.WaitForEnd());
}

TEST_F(FailingHost, WithoutItsModelPathIsReportedAndTheProgramGoesOn) {
    FailAtRoot(kGetModelFilePath.id);
    EXPECT_THAT(MessageOfCompute(), testing::HasSubstr(L"The licence is gone."));
    EXPECT_TRUE(tool_.StatusLines().empty());
    tool_.Command(kViewLog);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
}

TEST_F(FailingHost, WithoutItsUnitsIsReportedAndNoClosingLinesAreShown) {
    FailAtRoot(kGetBaseUnitSystem.id);
    EXPECT_THAT(MessageOfCompute(), testing::HasSubstr(L"The licence is gone."));
    EXPECT_TRUE(tool_.StatusLines().empty());
}

// By then the log's path is the provisional one.
TEST_F(FailingHost, WithoutItsUnitsLeavesTheProvisionalLogPath) {
    FileType provisional(L".log", folder_.Path());
    folder_.Write(L"model.Route2.log", "");
    FailAtRoot(kGetBaseUnitSystem.id);
    MessageOfCompute();
    tool_.Command(kViewLog);
    EXPECT_EQ(Utf8(folder_.Path() / "model.Route2.log"), provisional.TakeOpenedPath());
}

TEST_F(FailingHost, ThatRefusesTheLastCallOfTheConnectionIsReported) {
    FailAtRoot(kPostConnectCall.id);
    EXPECT_THAT(MessageOfCompute(), testing::HasSubstr(L"The licence is gone."));
    EXPECT_TRUE(tool_.StatusLines().empty());
}

TEST_F(FailingHost, CanBeTriedAgain) {
    FailAtRoot(kGetModelFilePath.id);
    MessageOfCompute();
    EXPECT_THAT(MessageOfCompute(), testing::HasSubstr(L"The licence is gone."));
}

TEST_F(FailingHost, InsideTheRunEndsItWithTheClosingLines) {
    host_.rootMethods = [this](FakeCall& call) { return AnswerModelPath(call); };
    host_.geometry.answer = [](FakeCall& call) {
        return call.FailWithException(L"Host", L"The model is gone.", E_FAIL);
    };
    tool_.Compute(kLastLine);
    EXPECT_EQ(
        (Lines{L"Exception was thrown...", L"Finishes process...", L"Closing error log file..."}),
        tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
}

// The host's objects stay referenced, and each run adds its own references.
TEST_F(FailingHost, IsKeptByEveryRunAndNeverReleased) {
    FailAtRoot(kGetModelFilePath.id);
    MessageOfCompute();
    const auto boundOf = [this] {
        return std::ranges::count_if(host_.subObjects,
                                     [](const auto& entry) { return entry.second.references > 0; });
    };
    EXPECT_EQ(10, boundOf());
    MessageOfCompute();
    EXPECT_EQ(10, boundOf());
}

// While the tool waits for the host's answer it takes messages that other programs send; none of
// them is obeyed.
TEST_F(FailingHost, InTheMiddleOfACallTheDialogObeysNothing) {
    int calls = 0;
    host_.rootMethods = [this, &calls](FakeCall& call) {
        if (call.Id() != kGetModelFilePath.id || ++calls > 1) return S_OK;
        for (const WPARAM command : {kExit, kCompute, kViewLog})
            IsAnsweredAtOnce(WM_COMMAND, command);
        IsAnsweredAtOnce(WM_SYSCOMMAND, SC_CLOSE);
        IsAnsweredAtOnce(WM_CLOSE, 0);
        return call.FailWithException(L"Host", L"Too busy.", E_FAIL);
    };
    EXPECT_THAT(MessageOfCompute(), testing::HasSubstr(L"Too busy."));
    tool_.Post(WM_NULL);
    EXPECT_EQ(1, calls);
    EXPECT_FALSE(tool_.HasPopup());
    EXPECT_FALSE(tool_.HasEnded());
    EXPECT_TRUE(tool_.StatusLines().empty());
}
