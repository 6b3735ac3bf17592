// The commands of the File menu.

#include "tests/real_windows/desktop_fixture.h"
#include "tests/real_windows/waiting.h"

namespace {

// Identifiers in the system's file dialog.
constexpr int kHelpButton = 0x40E;
constexpr int kReadOnlyBox = 0x410;
constexpr int kFilterList = 0x470;

class FileCommands : public DesktopTest {
protected:
    Popup OpenedBy(int command) {
        tool_.Command(command);
        return tool_.WaitForPopup();
    }

    long long IconOf(const Popup& box) {
        return tool_.Ask(ProbeQuestion::kMessageBoxIcon, RECT{}, box.Window()).number;
    }

    // A message box that names a failure, with one button.
    void ExpectFailureBox(const std::wstring& text) {
        const Popup box = tool_.WaitForPopup();
        EXPECT_EQ(L"Quarnel", box.Caption());
        EXPECT_EQ(text, box.Message());
        EXPECT_EQ(reinterpret_cast<long long>(IDI_EXCLAMATION), IconOf(box));
        EXPECT_EQ(nullptr, box.Button(IDYES));
        box.Press(IDOK);
    }

    const std::filesystem::path input_ = folder_.Write(L"\u5165\u529B & 1.csv", "FIN\n");
};

using LoadInput = FileCommands;
using OpenInput = FileCommands;
using CreateInput = FileCommands;
using ViewReports = FileCommands;

}  // namespace

TEST_F(LoadInput, ShowsAFileDialogWithHelpAndWithoutReadOnlyBox) {
    const Popup dialog = OpenedBy(kLoadInput);
    ASSERT_NE(nullptr, dialog.Button(kHelpButton));
    EXPECT_TRUE(IsWindowVisible(dialog.Button(kHelpButton)));
    EXPECT_FALSE(IsWindowVisible(dialog.Button(kReadOnlyBox)));
    EXPECT_FALSE(IsWindowEnabled(tool_.Dialog()));
}

TEST_F(LoadInput, OffersRouteTwoInputFilesOnly) {
    const Popup dialog = OpenedBy(kLoadInput);
    const HWND filters = dialog.Control(kFilterList, L"ComboBox");
    ASSERT_EQ(1, SendMessageW(filters, CB_GETCOUNT, 0, 0));
    wchar_t text[64] = L"";
    SendMessageW(filters, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(L"Route 2 Input (*.csv)", text);
}

TEST_F(LoadInput, HelpButtonDoesNoHarm) {
    const Popup dialog = OpenedBy(kLoadInput);
    PostMessageW(dialog.Button(kHelpButton), BM_CLICK, 0, 0);
    tool_.Post(WM_NULL);
    EXPECT_TRUE(IsWindowVisible(dialog.Window()));
    dialog.Press(IDCANCEL);
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(LoadInput, ShowsTheChosenPath) {
    tool_.LoadInput(input_);
    EXPECT_EQ(input_.wstring(), tool_.CurrentInput());
}

TEST_F(LoadInput, AddsTheExtensionOfAFileThatExists) {
    tool_.LoadInput(std::filesystem::path(input_).replace_extension());
    EXPECT_EQ(input_.wstring(), tool_.CurrentInput());
}

TEST_F(LoadInput, ClearsTheStatusList) {
    tool_.Command(kViewLog);
    ASSERT_EQ(1u, tool_.StatusLines().size());
    tool_.LoadInput(input_);
    EXPECT_TRUE(tool_.StatusLines().empty());
}

TEST_F(LoadInput, ClearsTheStatusListForTheSameFileToo) {
    tool_.LoadInput(input_);
    tool_.Command(kViewLog);
    ASSERT_EQ(1u, tool_.StatusLines().size());
    tool_.LoadInput(input_);
    EXPECT_TRUE(tool_.StatusLines().empty());
}

TEST_F(LoadInput, ClearsTheLastLineFirst) {
    tool_.Command(kViewLog);
    tool_.Command(kViewResults);
    tool_.Command(kOpenInput);
    tool_.Ask(ProbeQuestion::kClearNotes);
    tool_.LoadInput(input_);
    const std::wstring notes = tool_.Notes();
    const auto at = [&notes](const wchar_t* note) { return notes.find(note); };
    EXPECT_LT(at(L"D2"), at(L"D1")) << testing::PrintToString(notes);
    EXPECT_LT(at(L"D1"), at(L"D0")) << testing::PrintToString(notes);
    EXPECT_NE(std::wstring::npos, at(L"D0"));
}

TEST_F(LoadInput, CancelChangesNothing) {
    tool_.LoadInput(input_);
    tool_.Command(kViewLog);
    OpenedBy(kLoadInput).Press(IDCANCEL);
    EXPECT_EQ(input_.wstring(), tool_.CurrentInput());
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
    tool_.Command(kOpenInput);
    EXPECT_EQ(Utf8(input_), csv_.TakeOpenedPath());
}

TEST_F(LoadInput, CancelAtTheStartKeepsNoneSelected) {
    OpenedBy(kLoadInput).Press(IDCANCEL);
    EXPECT_EQ(L"- None Selected -", tool_.CurrentInput());
    tool_.Command(kOpenInput);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
}

TEST_F(OpenInput, WithoutAnInputSaysSo) {
    tool_.Command(kOpenInput);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(OpenInput, AsksTheShellToOpenTheInput) {
    tool_.LoadInput(input_);
    tool_.Command(kOpenInput);
    EXPECT_EQ(Utf8(input_), csv_.TakeOpenedPath());
    EXPECT_TRUE(tool_.StatusLines().empty());
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(OpenInput, OfADeletedFileSaysSo) {
    tool_.LoadInput(input_);
    std::filesystem::remove(input_);
    tool_.Command(kOpenInput);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(OpenInput, WithoutAnApplicationShowsTheShellsRefusal) {
    const NoFileType noApplication(L".csv");
    tool_.LoadInput(input_);
    tool_.Command(kOpenInput);
    ExpectFailureBox(L"The file name association is incomplete or invalid.");
    EXPECT_TRUE(tool_.StatusLines().empty());
}

TEST_F(OpenInput, AppendsALineEachTime) {
    tool_.Command(kOpenInput);
    tool_.Command(kOpenInput);
    EXPECT_EQ((Lines{L"No input file exist!", L"No input file exist!"}), tool_.StatusLines());
}

TEST_F(CreateInput, ShowsAFileDialogWithHelpAndWithoutReadOnlyBox) {
    const Popup dialog = OpenedBy(kCreateInput);
    ASSERT_NE(nullptr, dialog.Button(kHelpButton));
    EXPECT_TRUE(IsWindowVisible(dialog.Button(kHelpButton)));
    EXPECT_FALSE(IsWindowVisible(dialog.Button(kReadOnlyBox)));
}

TEST_F(CreateInput, MakesAnEmptyFileAndOpensIt) {
    const std::filesystem::path made = folder_.Path() / L"\u65B0\u898F.csv";
    OpenedBy(kCreateInput).Choose(made);
    EXPECT_EQ(Utf8(made), csv_.TakeOpenedPath());
    EXPECT_EQ(0u, std::filesystem::file_size(made));
}

TEST_F(CreateInput, DoesNotMakeItTheCurrentInput) {
    const std::filesystem::path made = folder_.Path() / "new.csv";
    OpenedBy(kCreateInput).Choose(made);
    csv_.TakeOpenedPath();
    EXPECT_EQ(L"- None Selected -", tool_.CurrentInput());
    tool_.Command(kOpenInput);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
}

TEST_F(CreateInput, KeepsTheStatusList) {
    tool_.Command(kViewResults);
    OpenedBy(kCreateInput).Choose(folder_.Path() / "new.csv");
    csv_.TakeOpenedPath();
    EXPECT_EQ(Lines{L"No result file exist!"}, tool_.StatusLines());
}

TEST_F(CreateInput, AsksBeforeItEmptiesAFile) {
    OpenedBy(kCreateInput).Choose(input_);
    const Popup question = tool_.WaitForPopup();
    EXPECT_EQ(L"Quarnel", question.Caption());
    EXPECT_EQ(L"File already exists and content will be deleted. Do you like to proceed?",
              question.Message());
    EXPECT_EQ(reinterpret_cast<long long>(IDI_QUESTION), IconOf(question));
    EXPECT_NE(nullptr, question.Button(IDNO));
    EXPECT_EQ("FIN\n", ContentOf(input_));
}

TEST_F(CreateInput, YesEmptiesTheFileAndOpensIt) {
    OpenedBy(kCreateInput).Choose(input_);
    tool_.WaitForPopup().Press(IDYES);
    EXPECT_EQ(Utf8(input_), csv_.TakeOpenedPath());
    EXPECT_EQ("", ContentOf(input_));
}

TEST_F(CreateInput, NoLeavesTheFileAndOpensNothing) {
    OpenedBy(kCreateInput).Choose(input_);
    tool_.WaitForPopup().Press(IDNO);
    tool_.Post(WM_NULL);
    EXPECT_EQ("FIN\n", ContentOf(input_));
    EXPECT_FALSE(csv_.HasOpened());
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(CreateInput, CancelChangesNothing) {
    tool_.LoadInput(input_);
    tool_.Command(kViewLog);
    OpenedBy(kCreateInput).Press(IDCANCEL);
    tool_.Post(WM_NULL);
    EXPECT_EQ(input_.wstring(), tool_.CurrentInput());
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
    EXPECT_EQ("FIN\n", ContentOf(input_));
    EXPECT_FALSE(csv_.HasOpened());
}

TEST_F(CreateInput, ShowsTheShellsRefusalAfterMakingTheFile) {
    const NoFileType noApplication(L".csv");
    const std::filesystem::path made = folder_.Path() / "new.csv";
    OpenedBy(kCreateInput).Choose(made);
    ExpectFailureBox(L"The file name association is incomplete or invalid.");
    EXPECT_TRUE(std::filesystem::exists(made));
}

// Held open by this test without sharing: after the Yes, the system refuses to empty it.
TEST_F(CreateInput, FailureIsToldWithFileAndReasonAndTheProgramGoesOn) {
    const HANDLE user =
        CreateFileW(input_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    OpenedBy(kCreateInput).Choose(input_);
    tool_.WaitForPopup().Press(IDYES);
    const Popup box = tool_.WaitForPopup();
    wchar_t reason[256];
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_SHARING_VIOLATION, 0, reason, 256,
                   nullptr);
    EXPECT_EQ(L"Quarnel", box.Caption());
    EXPECT_THAT(box.Message(), testing::HasSubstr(input_.wstring()));
    EXPECT_THAT(box.Message(), testing::HasSubstr(reason));
    EXPECT_EQ(reinterpret_cast<long long>(IDI_HAND), IconOf(box));
    box.Press(IDOK);
    CloseHandle(user);
    EXPECT_FALSE(csv_.HasOpened());
    EXPECT_EQ("FIN\n", ContentOf(input_));
    tool_.Command(kOpenInput);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
}

// The log has the words of the input: the tool means it so.
TEST_F(ViewReports, LogBeforeTheFirstRunIsMissing) {
    tool_.Command(kViewLog);
    EXPECT_EQ(Lines{L"No input file exist!"}, tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(ViewReports, ResultsBeforeTheFirstRunAreMissing) {
    tool_.Command(kViewResults);
    EXPECT_EQ(Lines{L"No result file exist!"}, tool_.StatusLines());
    EXPECT_FALSE(tool_.HasPopup());
}

TEST_F(ViewReports, StatusListKeepsItsNewestLineInView) {
    for (int i = 0; i < 60; ++i)
        tool_.Command(kViewLog);
    const HWND list = tool_.Control(kStatusList);
    RECT newest, client;
    SendMessageW(list, LB_GETITEMRECT, 59, reinterpret_cast<LPARAM>(&newest));
    GetClientRect(list, &client);
    EXPECT_LE(newest.bottom, client.bottom);
    EXPECT_GE(newest.top, 0);
}
