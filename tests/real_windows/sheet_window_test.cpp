// The window of QuarnelSheet.exe, with the sample host in a process of its own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "sheetapp/resource.h"
#include "tests/real_windows/desktop_fixture.h"
#include "tests/real_windows/running_sheet.h"
#include "tests/real_windows/sample_host_process.h"
#include "tests/real_windows/waiting.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

std::filesystem::path Example(const char* name) {
    return std::filesystem::path(QUARNEL_SOURCE_DIR) / "examples" / name;
}

std::string ExampleModel() {
    return ContentOf(Example("two_story_y_up.qhm"));
}

// A file open in a program that lets nobody else read or write it.
class HeldFile {
public:
    explicit HeldFile(const std::filesystem::path& path)
        : handle_(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~HeldFile() { CloseHandle(handle_); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    HANDLE handle_;
};

class SheetWindow : public testing::Test {
protected:
    // The model's name is Japanese; log, results and sheet stand beside it.
    std::filesystem::path Model(const std::string& content = ExampleModel()) const {
        return folder_.Write(L"\u4E8C\u968E\u5EFA.qhm", content);
    }
    std::filesystem::path Beside(const wchar_t* end) const {
        return folder_.Path() / (L"\u4E8C\u968E\u5EFA." + std::wstring(end));
    }

    void StartHost(const std::wstring& options = L"") { host_.emplace(Model(), options); }
    void Start(const std::vector<std::wstring>& arguments) {
        sheet_.emplace(folder_.Path(), arguments);
    }

    // With the example's input file, in English whatever this machine speaks.
    void StartOnInput() { Start({L"--lang", L"en", input_.wstring()}); }

    // "Again" is seen when a run has ended, and with the errors of an input file.
    void WaitForTheEndOfTheRun() {
        sheet_->WaitUntil("the end of the run", [this] {
            return sheet_->IsShown(IDC_AGAIN) && !sheet_->IsShown(IDC_RUN_ANYWAY);
        });
    }

    UnicodeFolder folder_;
    FileType csv_{L".csv", folder_.Path()};
    FileType txt_{L".txt", folder_.Path()};
    FileType html_{L".html", folder_.Path()};
    const std::filesystem::path input_ =
        folder_.Write(L"\u5165\u529B.csv", ContentOf(Example("two_story_y_up.csv")));
    const std::filesystem::path inputWithoutEnd_ =
        folder_.Write(L"no fin.csv", "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n");
    std::optional<SampleHostProcess> host_;
    std::optional<RunningSheet> sheet_;
};

}  // namespace

TEST_F(SheetWindow, AsksForAnInputFileWhenItIsStartedWithoutOne) {
    StartHost();
    Start({L"--lang", L"en"});
    sheet_->WaitForPopup().Choose(input_);
    WaitForTheEndOfTheRun();
    EXPECT_EQ(input_.wstring(), sheet_->Text(IDC_INPUT));
}

TEST_F(SheetWindow, WaitsForADropWhenNoFileIsChosen) {
    Start({L"--lang", L"en"});
    sheet_->WaitForPopup().Press(IDCANCEL);
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"Choose a Route 2 Input file"));
    EXPECT_FALSE(sheet_->IsShown(IDC_AGAIN));
}

TEST_F(SheetWindow, OpensTheSheetOfACompleteRunInTheRegisteredProgram) {
    StartHost();
    StartOnInput();
    EXPECT_EQ(Utf8(Beside(L"aijR2Sheet.html")), html_.TakeOpenedPath());
    EXPECT_THAT(ContentOf(Beside(L"aijR2Sheet.html")), StartsWith("<!DOCTYPE html>"));
    EXPECT_TRUE(std::filesystem::exists(Beside(L"aijR2Result.csv")));
}

TEST_F(SheetWindow, TellsTheVerdictInOneLine) {
    StartHost();
    StartOnInput();
    WaitForTheEndOfTheRun();
    const std::wstring headline = sheet_->Text(IDC_HEADLINE);
    EXPECT_THAT(headline, StartsWith(L"NG: "));
    EXPECT_THAT(headline, HasSubstr(L", story "));
    EXPECT_THAT(headline, Not(HasSubstr(L"\n")));
}

TEST_F(SheetWindow, ShowsTheStatusLinesOfTheRun) {
    StartHost();
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_LINES),
                HasSubstr(L"Saving output...\r\nCalculation Complete\r\nFinishes process...\r\n"
                          L"Closing error log file...\r\n"));
}

TEST_F(SheetWindow, OpensSheetResultsAndLogByItsButtons) {
    StartHost();
    StartOnInput();
    html_.TakeOpenedPath();
    sheet_->WaitForControl(IDC_OPEN_SHEET);
    sheet_->Click(IDC_OPEN_SHEET);
    EXPECT_EQ(Utf8(Beside(L"aijR2Sheet.html")), html_.TakeOpenedPath());
    sheet_->Click(IDC_OPEN_RESULTS);
    EXPECT_EQ(Utf8(Beside(L"aijR2Result.csv")), csv_.TakeOpenedPath());
    sheet_->Click(IDC_OPEN_LOG);
    EXPECT_EQ(Utf8(Beside(L"aijR2Log.txt")), txt_.TakeOpenedPath());
}

TEST_F(SheetWindow, RunsAgain) {
    StartHost();
    StartOnInput();
    html_.TakeOpenedPath();
    sheet_->WaitForControl(IDC_AGAIN);
    sheet_->Click(IDC_AGAIN);
    EXPECT_EQ(Utf8(Beside(L"aijR2Sheet.html")), html_.TakeOpenedPath());
}

TEST_F(SheetWindow, TakesAnInputFileThatIsDroppedOnIt) {
    StartHost();
    Start({L"--lang", L"en"});
    sheet_->WaitForPopup().Press(IDCANCEL);
    sheet_->Drop({input_});
    WaitForTheEndOfTheRun();
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_SHEET));
}

TEST_F(SheetWindow, AsksForTheInputFileOfADroppedRecording) {
    Start({L"--lang", L"en"});
    sheet_->WaitForPopup().Press(IDCANCEL);
    sheet_->Drop({Model()});
    sheet_->WaitForPopup().Choose(input_);
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
    EXPECT_TRUE(std::filesystem::exists(Beside(L"aijR2Sheet.html")));
}

TEST_F(SheetWindow, TakesARecordingAndItsInputFileTogether) {
    Start({L"--lang", L"en", input_.wstring(), Model().wstring()});
    WaitForTheEndOfTheRun();
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_SHEET));
}

TEST_F(SheetWindow, SaysOfAnotherFileThatItIsNone) {
    Start({L"--lang", L"en", folder_.Write(L"notes.txt", "x").wstring()});
    sheet_->WaitForText(IDC_HEADLINE, L"notes.txt is neither a Route 2 Input file (.csv) nor");
}

// Which of them is meant, nobody knows.
TEST_F(SheetWindow, TakesNoneOfTwoInputFiles) {
    Start({L"--lang", L"en", input_.wstring(), inputWithoutEnd_.wstring()});
    sheet_->WaitForText(IDC_HEADLINE, L"Drop one input file");
    EXPECT_EQ(L"(none yet)", sheet_->Text(IDC_INPUT));
}

// The first window waits for the file dialog above it.
TEST_F(SheetWindow, TakesNoDropWhileItAsksForAFile) {
    Start({L"--lang", L"en"});
    const Popup dialog = sheet_->WaitForPopup();
    sheet_->Drop({inputWithoutEnd_});
    dialog.Press(IDCANCEL);
    EXPECT_EQ(L"(none yet)", sheet_->Text(IDC_INPUT));
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"Choose a Route 2 Input file"));
}

TEST_F(SheetWindow, TakesAFileWhosePathIsLongerThan260Characters) {
    StartHost();
    const std::wstring part(100, L'\u5EFA');
    const std::filesystem::path folder = folder_.Path() / part / part / part;
    std::filesystem::create_directories(folder);
    const std::filesystem::path input = folder / L"with blanks & more.csv";
    std::filesystem::copy_file(input_, input);
    Start({L"--lang", L"en", input.wstring()});
    WaitForTheEndOfTheRun();
    EXPECT_EQ(input.wstring(), sheet_->Text(IDC_INPUT));
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
}

TEST_F(SheetWindow, AsksForAnotherFileThanOneThatIsNotThere) {
    Start({L"--lang", L"en", (folder_.Path() / "gone.csv").wstring()});
    sheet_->WaitForText(IDC_HEADLINE, L"The input file cannot be read. Choose another one.");
    EXPECT_THAT(sheet_->Text(IDC_LINES), HasSubstr(L"there is no such file"));
    EXPECT_FALSE(sheet_->IsShown(IDC_RUN_ANYWAY));
    EXPECT_FALSE(sheet_->IsShown(IDC_OPEN_INPUT));
    WaitFor("the focus", [this] { return sheet_->Focus() == sheet_->Control(IDC_CHOOSE); });
}

TEST_F(SheetWindow, SaysThatARecordingIsNotTheInputFiles) {
    const std::filesystem::path recording =
        folder_.Write(L"office.qhm", ContentOf(Example("five_story_office_z_up.qhm")));
    Start({L"--lang", L"en", input_.wstring(), recording.wstring()});
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE),
                StartsWith(L"The recorded building has no such answer"));
    EXPECT_THAT(sheet_->Text(IDC_LINES), StartsWith(L"The input file may be another building's"));
    EXPECT_THAT(sheet_->Text(IDC_INPUT), HasSubstr(L", on office.qhm"));
}

TEST_F(SheetWindow, ShowsTheErrorsOfAnInputFileBeforeItRuns) {
    StartHost();
    Start({L"--lang", L"en", inputWithoutEnd_.wstring()});
    sheet_->WaitForControl(IDC_RUN_ANYWAY);
    EXPECT_EQ(L"The input file has errors. Mend them, or run anyway.", sheet_->Text(IDC_HEADLINE));
    EXPECT_THAT(sheet_->Text(IDC_LINES), HasSubstr(L"error "));
    EXPECT_EQ(L"Cancel", sheet_->Text(IDCANCEL));
    EXPECT_EQ(L"Check &Again", sheet_->Text(IDC_AGAIN));
    sheet_->Click(IDC_OPEN_INPUT);
    EXPECT_EQ(Utf8(inputWithoutEnd_), csv_.TakeOpenedPath());
    EXPECT_FALSE(std::filesystem::exists(Beside(L"aijR2Log.txt")));
}

TEST_F(SheetWindow, RunsAnInputFileWithErrorsWhenItIsTold) {
    StartHost();
    Start({L"--lang", L"en", inputWithoutEnd_.wstring()});
    sheet_->WaitForControl(IDC_RUN_ANYWAY);
    sheet_->Click(IDC_RUN_ANYWAY);
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE),
                StartsWith(L"The input file cannot be read to a line that begins with FIN."));
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_INPUT));
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_LOG));
    EXPECT_FALSE(sheet_->IsShown(IDC_OPEN_SHEET));
}

TEST_F(SheetWindow, ChecksAnInputFileAgainThatHasBeenMended) {
    StartHost();
    Start({L"--lang", L"en", inputWithoutEnd_.wstring()});
    sheet_->WaitForControl(IDC_RUN_ANYWAY);
    folder_.Write(L"no fin.csv", ContentOf(input_));
    sheet_->Click(IDC_AGAIN);
    sheet_->WaitForControl(IDC_OPEN_SHEET);
}

// The host takes a minute for each call.
TEST_F(SheetWindow, ThatIsClosedTwiceDoesNotWaitForTheHost) {
    StartHost(L"--delay 60000");
    StartOnInput();
    sheet_->WaitForText(IDC_HEADLINE, L"Running on the model");
    PostMessageW(sheet_->Window(), WM_CLOSE, 0, 0);
    sheet_->WaitForText(IDC_HEADLINE, L"Closing, as soon as");
    PostMessageW(sheet_->Window(), WM_CLOSE, 0, 0);
    sheet_->WaitForEnd();
    host_->Kill();
}

TEST_F(SheetWindow, ClosesAtTheEscapeKey) {
    StartHost();
    Start({L"--lang", L"en", inputWithoutEnd_.wstring()});
    sheet_->WaitForControl(IDC_RUN_ANYWAY);
    sheet_->Key(VK_ESCAPE);
    sheet_->WaitForEnd();
}

// The focus goes through the buttons that can be seen, in their order, and Enter presses one.
TEST_F(SheetWindow, CanBeWorkedByTheKeyboardAlone) {
    StartHost();
    StartOnInput();
    html_.TakeOpenedPath();
    WaitFor("the focus", [this] { return sheet_->Focus() == sheet_->Control(IDC_OPEN_SHEET); });
    for (const int next : {IDC_OPEN_RESULTS, IDC_OPEN_LOG, IDC_AGAIN, IDCANCEL, IDC_CHOOSE}) {
        sheet_->Key(VK_TAB);
        WaitFor("the next button", [&] { return sheet_->Focus() == sheet_->Control(next); });
    }
    PostMessageW(sheet_->Window(), WM_NEXTDLGCTL,
                 reinterpret_cast<WPARAM>(sheet_->Control(IDC_OPEN_RESULTS)), TRUE);
    WaitFor("the button", [&] { return sheet_->Focus() == sheet_->Control(IDC_OPEN_RESULTS); });
    sheet_->Key(VK_RETURN);
    EXPECT_EQ(Utf8(Beside(L"aijR2Result.csv")), csv_.TakeOpenedPath());
}

TEST_F(SheetWindow, SaysWhatToDoWithoutARunningHost) {
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_EQ(L"No running host was found.", sheet_->Text(IDC_HEADLINE));
    EXPECT_THAT(sheet_->Text(IDC_LINES), StartsWith(L"Start the host, open the model"));
    EXPECT_FALSE(sheet_->IsShown(IDC_OPEN_LOG));
}

TEST_F(SheetWindow, SaysWhatToDoWithoutAnalysisResults) {
    std::string model = ExampleModel();
    const std::string available = "\"resultsAvailable\":true";
    model.replace(model.find(available), available.size(), "\"resultsAvailable\":false");
    host_.emplace(Model(model));
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_EQ(L"The model has no analysis results.", sheet_->Text(IDC_HEADLINE));
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_LOG));
}

// A folder stands where the log is to go.
TEST_F(SheetWindow, SaysWhatToDoWhenNothingCanBeWrittenBesideTheModel) {
    StartHost();
    std::filesystem::create_directory(Beside(L"aijR2Log.txt"));
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), HasSubstr(L"aijR2Log.txt cannot be written."));
    EXPECT_FALSE(sheet_->IsShown(IDC_OPEN_SHEET));
}

TEST_F(SheetWindow, SaysThatASheetCannotBeWrittenAndShowsTheVerdict) {
    StartHost();
    std::filesystem::create_directory(Beside(L"aijR2Sheet.html"));
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), HasSubstr(L"The sheet could not be written."));
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_RESULTS));
    EXPECT_FALSE(sheet_->IsShown(IDC_OPEN_SHEET));
}

TEST_F(SheetWindow, SaysThatTheSheetIsOpenElsewhere) {
    StartHost();
    const HeldFile held(Beside(L"aijR2Sheet.html"));
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), HasSubstr(L"The sheet could not be written."));
    EXPECT_THAT(sheet_->Text(IDC_LINES), StartsWith(L"Close it where it is open"));
}

TEST_F(SheetWindow, SaysThatTheResultsAreOpenElsewhere) {
    StartHost();
    const HeldFile held(Beside(L"aijR2Result.csv"));
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), HasSubstr(L"aijR2Result.csv could not be written."));
    EXPECT_THAT(sheet_->Text(IDC_LINES), StartsWith(L"Close the file in the spreadsheet"));
}

// A headline has room for three lines; what it says is then read in the text below, too.
TEST_F(SheetWindow, TellsALongFailureInFull) {
    const std::wstring name = std::wstring(180, L'm') + L".qhm";
    host_.emplace(folder_.Write(name, ExampleModel()));
    std::filesystem::create_directory(folder_.Path() /
                                      (std::wstring(180, L'm') + L".aijR2Log.txt"));
    StartOnInput();
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_LINES), StartsWith(L"The log "));
    EXPECT_THAT(sheet_->Text(IDC_LINES),
                HasSubstr(L"aijR2Log.txt cannot be written.\r\nLog, results"));
}

TEST_F(SheetWindow, SaysThatNoProgramOpensTheSheet) {
    const NoFileType none(L".html");
    StartHost();
    StartOnInput();
    const Popup box = sheet_->WaitForPopup();
    EXPECT_THAT(box.Message(), StartsWith(L"No program opens "));
    box.Press(IDOK);
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
}

TEST_F(SheetWindow, SaysThatAFileIsNotThereAnyMore) {
    StartHost();
    StartOnInput();
    html_.TakeOpenedPath();
    std::filesystem::remove(Beside(L"aijR2Log.txt"));
    sheet_->WaitForControl(IDC_OPEN_LOG);
    sheet_->Click(IDC_OPEN_LOG);
    const Popup box = sheet_->WaitForPopup();
    EXPECT_THAT(box.Message(), HasSubstr(L"aijR2Log.txt is not there any more."));
    box.Press(IDOK);
}

// Each call takes a twentieth of a second: a run of ten seconds, cancelled when its first lines are
// there.
TEST_F(SheetWindow, CancelsARunBetweenTwoCalls) {
    StartHost(L"--delay 50");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Setting node information...");
    sheet_->Click(IDCANCEL);
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"Cancelled."));
    EXPECT_THAT(sheet_->Text(IDC_LINES), HasSubstr(L"Exception was thrown...\r\n"));
    EXPECT_THAT(sheet_->Text(IDC_LINES), Not(HasSubstr(L"Calculation Complete")));
    EXPECT_THAT(ContentOf(Beside(L"aijR2Log.txt")), HasSubstr("node info"));
    EXPECT_FALSE(std::filesystem::exists(Beside(L"aijR2Sheet.html")));
    EXPECT_FALSE(html_.HasOpened());
}

// The focus is in the text of the status lines, and again and again does no harm.
TEST_F(SheetWindow, CancelsARunAtTheEscapeKey) {
    StartHost(L"--delay 500");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Preparing for calculation...");
    EXPECT_EQ(sheet_->Control(IDC_LINES), sheet_->Focus());
    sheet_->Key(VK_ESCAPE);
    sheet_->Key(VK_ESCAPE);
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"Cancelled."));
}

TEST_F(SheetWindow, RunsOnAtTheEnterKey) {
    StartHost(L"--delay 5");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Preparing for calculation...");
    sheet_->Key(VK_RETURN);
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
}

TEST_F(SheetWindow, RunsAgainAfterItWasCancelled) {
    StartHost(L"--delay 50");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Setting load information...");
    sheet_->Click(IDCANCEL);
    WaitForTheEndOfTheRun();
    host_.reset();
    StartHost();
    sheet_->Click(IDC_AGAIN);
    sheet_->WaitForControl(IDC_OPEN_SHEET);
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
}

TEST_F(SheetWindow, RunsAgainOnAHostThatWasStartedMeanwhile) {
    StartOnInput();
    sheet_->WaitForText(IDC_HEADLINE, L"No running host was found.");
    StartHost();
    sheet_->Click(IDC_AGAIN);
    sheet_->WaitForControl(IDC_OPEN_SHEET);
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
}

TEST_F(SheetWindow, TakesNoDropDuringARun) {
    StartHost(L"--delay 5");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Preparing for calculation...");
    EXPECT_EQ(0, GetWindowLongW(sheet_->Window(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    sheet_->Drop({inputWithoutEnd_});
    WaitForTheEndOfTheRun();
    EXPECT_EQ(input_.wstring(), sheet_->Text(IDC_INPUT));
    EXPECT_NE(0, GetWindowLongW(sheet_->Window(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
}

TEST_F(SheetWindow, ClosesAfterTheCallWhenItIsClosedDuringARun) {
    StartHost(L"--delay 50");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Setting node information...");
    PostMessageW(sheet_->Window(), WM_CLOSE, 0, 0);
    sheet_->WaitForEnd();
}

// While a call waits for the host for two seconds, the window takes its messages.
TEST_F(SheetWindow, AnswersWhileTheHostTakesItsTime) {
    StartHost(L"--delay 2000");
    StartOnInput();
    sheet_->WaitForText(IDC_HEADLINE, L"Running on the model");
    ShowWindow(sheet_->Window(), SW_MINIMIZE);
    WaitFor("the window to be minimised", [this] { return IsIconic(sheet_->Window()) != FALSE; });
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"Running on the model"));
}

TEST_F(SheetWindow, ShowsProgressAsAnswersCome) {
    StartHost(L"--delay 20");
    StartOnInput();
    LRESULT before = 0;
    for (int moves = 0; moves < 5; ++moves) {
        WaitFor("the bar to move", [&] {
            return SendMessageW(sheet_->Control(IDC_PROGRESS), WM_USER + 8, 0, 0) > before;
        });
        before = SendMessageW(sheet_->Control(IDC_PROGRESS), WM_USER + 8, 0, 0);
    }
    EXPECT_THAT(sheet_->Text(IDC_ELAPSED), HasSubstr(L"Answers of the host: "));
}

TEST_F(SheetWindow, WaitsForABusyHostAndSaysSo) {
    StartHost(L"--busy 3");
    StartOnInput();
    sheet_->WaitForText(IDC_HEADLINE, L"The host is busy");
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"NG: "));
}

TEST_F(SheetWindow, GivesABusyHostUpWhenItIsCancelled) {
    StartHost(L"--busy 600");
    StartOnInput();
    sheet_->WaitForText(IDC_HEADLINE, L"The host is busy");
    sheet_->Click(IDCANCEL);
    WaitForTheEndOfTheRun();
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), StartsWith(L"Cancelled."));
}

TEST_F(SheetWindow, SaysThatTheHostHasEndedInTheMiddle) {
    StartHost(L"--delay 50");
    StartOnInput();
    sheet_->WaitForText(IDC_LINES, L"Setting node information...");
    host_->Kill();
    WaitForTheEndOfTheRun();
    EXPECT_EQ(L"The host has ended during the run.", sheet_->Text(IDC_HEADLINE));
    EXPECT_TRUE(sheet_->IsShown(IDC_OPEN_LOG));
}

TEST_F(SheetWindow, SpeaksJapanese) {
    StartHost();
    Start({L"--lang", L"ja", input_.wstring()});
    WaitForTheEndOfTheRun();
    EXPECT_EQ(L"Quarnel \u8A08\u7B97\u66F8", sheet_->Title());
    EXPECT_EQ(L"\u9589\u3058\u308B", sheet_->Text(IDCANCEL));
    EXPECT_THAT(sheet_->Text(IDC_HEADLINE), HasSubstr(L"\u65B9\u5411"));
}
