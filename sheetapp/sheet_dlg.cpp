#include "sheetapp/sheet_dlg.h"

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "desktop/input_file_dialog.h"
#include "platform/file_lookup.h"
#include "platform/full_path.h"
#include "platform/narrow_text.h"
#include "platform/native_path.h"
#include "platform/open_file.h"
#include "sheetapp/advice.h"
#include "sheetapp/dropped_files.h"
#include "sheetapp/filled_text.h"
#include "sheetapp/finding_lines.h"
#include "sheetapp/resource.h"
#include "sheetapp/taken_files.h"
#include "sheetapp/text_keys.h"
#include "sheetapp/verdict_line.h"

namespace {

constexpr UINT kBegin = WM_APP;         // the window is shown, the program's files may be taken
constexpr UINT kRunEnded = WM_APP + 1;  // from the thread of the run
constexpr UINT kFontChanged = WM_APP + 2;
constexpr UINT_PTR kTimer = 1;
constexpr UINT kTimerMs = 100;
constexpr int kWholeBar = 10000;

std::string TimeText(std::chrono::seconds elapsed) {
    char text[32];
    std::snprintf(text, sizeof text, "%lld:%02lld", static_cast<long long>(elapsed.count() / 60),
                  static_cast<long long>(elapsed.count() % 60));
    return text;
}

std::string NameOf(const std::string& path) {
    const std::u8string name = NativePath(path).filename().u8string();
    return {name.begin(), name.end()};
}

std::string StatusLines(const std::vector<StatusText>& lines) {
    std::string text;
    for (const StatusText line : lines)
        text += std::string(TextOf(line)) + "\n";
    return text;
}

// As an edit control wants its lines.
std::wstring WithCarriageReturns(const std::wstring& text) {
    std::wstring all;
    for (const wchar_t character : text) {
        if (character == L'\n') all += L'\r';
        all += character;
    }
    return all;
}

}  // namespace

SheetDialog::SheetDialog(std::vector<std::wstring> files, Language language)
    : ModalDialog(IDD_SHEET), firstFiles_(std::move(files)), language_(language) {}

SheetDialog::~SheetDialog() {
    if (headlineFont_ != nullptr) DeleteObject(headlineFont_);
}

void SheetDialog::OnInitDialog() {
    const HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_SHEET));
    SendMessageW(Window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessageW(Window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
    SetWindowTextW(Window(), WideTextOfUtf8(TextOf(WindowText::kTitle, language_)).c_str());
    const std::pair<int, WindowText> texts[] = {
        {IDC_INPUT_LABEL, WindowText::kInputLabel}, {IDC_CHOOSE, WindowText::kChoose},
        {IDC_OPEN_SHEET, WindowText::kOpenSheet},   {IDC_OPEN_RESULTS, WindowText::kOpenResults},
        {IDC_OPEN_LOG, WindowText::kOpenLog},       {IDC_AGAIN, WindowText::kAgain},
        {IDC_OPEN_INPUT, WindowText::kOpenInput},   {IDC_RUN_ANYWAY, WindowText::kRunAnyway}};
    for (const auto& [id, text] : texts)
        SetText(id, text);
    SendDlgItemMessageW(Window(), IDC_PROGRESS, PBM_SETRANGE32, 0, kWholeBar);
    LeaveDialogKeysToTheDialog(GetDlgItem(Window(), IDC_LINES));
    MakeHeadlineFont();
    ShowInput();
    Enter(Stage::kChoosing);
    SetText(IDC_HEADLINE, WindowText::kDropHere);
    PostMessageW(Window(), kBegin, 0, 0);
}

bool SheetDialog::OnCommand(int id) {
    switch (id) {
        case IDC_CHOOSE:
            ChooseInput();
            return true;
        case IDC_RUN_ANYWAY:
            StartRun();
            return true;
        case IDC_AGAIN:
            CheckInput();
            return true;
        case IDC_OPEN_INPUT:
            OpenFile(request_.input);
            return true;
        case IDC_OPEN_SHEET:
            OpenFile(result_.sheetPath);
            return true;
        case IDC_OPEN_RESULTS:
            OpenFile(result_.reports.resultFile);
            return true;
        case IDC_OPEN_LOG:
            OpenFile(result_.reports.logFile);
            return true;
        case IDOK:
            return true;  // Enter where no button is the default one
        case IDCANCEL:
            Cancel();
            return true;
        default:
            return false;
    }
}

std::optional<LRESULT> SheetDialog::OnMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    switch (message) {
        case kBegin:
            Begin();
            return 0;
        case kRunEnded:
            EndRun();
            return 0;
        case WM_TIMER:
            if (stage_ == Stage::kRunning) ShowRun();
            return 0;
        case WM_DROPFILES:
            ReceiveFiles(TakeDroppedFiles(reinterpret_cast<HDROP>(wParam)));
            return 0;
        case WM_CLOSE:
            Close();
            return 0;
        case WM_DPICHANGED:
            // The dialog has its own new font only after this message.
            PostMessageW(Window(), kFontChanged, 0, 0);
            return std::nullopt;
        case kFontChanged:
            MakeHeadlineFont();
            PlaceButtons();
            return 0;
        default:
            return std::nullopt;
    }
}

void SheetDialog::Begin() {
    if (firstFiles_.empty())
        ChooseInput();
    else
        ReceiveFiles(std::exchange(firstFiles_, {}));
}

// Nothing is taken while a window above this one waits for the user.
void SheetDialog::ReceiveFiles(const std::vector<std::wstring>& files) {
    if (stage_ == Stage::kRunning || IsWindowEnabled(Window()) == FALSE) return;
    SetForegroundWindow(Window());
    std::vector<std::string> paths;
    paths.reserve(files.size());
    for (const std::wstring& file : files)
        paths.push_back(NarrowText(FullPath(file).c_str()));
    const TakenFiles taken = TakeFiles(paths);
    if (!taken.stranger.empty())
        return SetText(IDC_HEADLINE, FilledText(TextOf(WindowText::kNotInputOrRecording, language_),
                                                NameOf(taken.stranger)));
    if (taken.hasTwoOfAKind) return SetText(IDC_HEADLINE, WindowText::kOneFileOfAKind);
    request_ = taken.request;
    if (!request_.input.empty()) return CheckInput();
    ShowInput();
    SetLines("");
    Enter(Stage::kChoosing);
    ChooseInput();
}

void SheetDialog::ChooseInput() {
    if (!request_.recording.empty())
        SetText(IDC_HEADLINE, FilledText(TextOf(WindowText::kRecordingNeedsInput, language_),
                                         NameOf(request_.recording)));
    const std::optional<std::wstring> path = AskForInputFile(Window());
    if (!path) return;
    request_.input = NarrowText(path->c_str());
    CheckInput();
}

void SheetDialog::CheckInput() {
    ShowInput();
    SetText(IDC_HEADLINE, WindowText::kChecking);
    // Seen at once: a huge file, or one far away, takes its time.
    UpdateWindow(Window());
    UpdateWindow(GetDlgItem(Window(), IDC_HEADLINE));
    const InputCheck check = CheckInputFile(request_.input);
    inputLines_ = LinesOfInputCheck(check, language_);
    if (!inputLines_.empty())
        inputLines_ = TextOf(WindowText::kInputFindings, language_) + "\n" + inputLines_ + "\n";
    if (HasErrors(check))
        ShowInputErrors(check.isRead);
    else
        StartRun();
}

void SheetDialog::ShowInputErrors(bool isRead) {
    SetLines(inputLines_);
    SetText(IDC_HEADLINE, isRead ? WindowText::kInputHasErrors : WindowText::kInputNotRead);
    Enter(isRead ? Stage::kInputErrors : Stage::kInputNotRead);
}

void SheetDialog::StartRun() {
    closes_ = false;
    Enter(Stage::kRunning);
    thread_.Start(request_, Window(), kRunEnded);
    SetTimer(Window(), kTimer, kTimerMs, nullptr);
    ShowRun();
}

void SheetDialog::ShowRun() {
    const RunProgress::View view = thread_.Progress().Look();
    SendDlgItemMessageW(Window(), IDC_PROGRESS, PBM_SETPOS,
                        static_cast<WPARAM>(view.share * kWholeBar), 0);
    SetText(IDC_ELAPSED, FilledText(TextOf(WindowText::kAnswers, language_), TimeText(view.elapsed),
                                    std::to_string(view.answered)));
    SetLines(inputLines_ + StatusLines(view.lines));
    if (closes_)
        SetText(IDC_HEADLINE, WindowText::kWaitingToClose);
    else if (thread_.Progress().IsCancelled())
        SetText(IDC_HEADLINE, WindowText::kCancelling);
    else if (view.hostIsBusy)
        SetText(IDC_HEADLINE, WindowText::kHostIsBusy);
    else if (request_.recording.empty())
        SetText(IDC_HEADLINE, WindowText::kRunning);
    else
        SetText(IDC_HEADLINE, FilledText(TextOf(WindowText::kRunningRecording, language_),
                                         NameOf(request_.recording)));
}

void SheetDialog::EndRun() {
    KillTimer(Window(), kTimer);
    ShowRun();
    result_ = thread_.TakeResult();
    if (closes_) {
        EndDialog(Window(), IDCANCEL);
        return;
    }
    ShowEnd();
    if (!result_.sheetPath.empty()) OpenFile(result_.sheetPath);
}

// The verdict, or what happened; in both cases what is to be done about it.
void SheetDialog::ShowEnd() {
    std::string headline;
    std::string lines;
    if (result_.outcome.complete) {
        SendDlgItemMessageW(Window(), IDC_PROGRESS, PBM_SETPOS, kWholeBar, 0);
        headline = VerdictLine(*result_.outcome.findings, language_);
        const Advice advice = AdviceOnFiles(result_, language_);
        if (!advice.what.empty()) headline += "\n" + advice.what;
        if (!advice.todo.empty()) lines = advice.todo + "\n\n";
        const std::string remarks = LinesOfRemarks(*result_.outcome.findings, language_);
        if (!remarks.empty())
            lines += TextOf(WindowText::kRemarks, language_) + "\n" + remarks + "\n";
    } else {
        const Advice advice = AdviceOnFailure(request_, result_, language_);
        headline = advice.what;
        lines = advice.todo + "\n\n";
    }
    SetText(IDC_HEADLINE, headline);
    if (!FitsHeadline(headline)) lines = headline + "\n" + lines;
    SetLines(lines + inputLines_ + StatusLines(result_.lines));
    SendDlgItemMessageW(Window(), IDC_LINES, EM_SETSEL, 0, 0);
    SendDlgItemMessageW(Window(), IDC_LINES, EM_SCROLLCARET, 0, 0);
    Enter(Stage::kEnded);
}

// The button and Escape: they end a run, or else the program.
void SheetDialog::Cancel() {
    if (stage_ != Stage::kRunning) return Close();
    thread_.Progress().Cancel();
    ShowRun();
}

// The window's cross too. A run is cancelled first; whoever closes twice does not wait for the
// host.
void SheetDialog::Close() {
    if (stage_ != Stage::kRunning || closes_) {
        EndDialog(Window(), IDCANCEL);
        return;
    }
    closes_ = true;
    Cancel();
}

void SheetDialog::Enter(Stage stage) {
    stage_ = stage;
    const bool hasErrors = stage == Stage::kInputErrors;
    SetText(IDCANCEL,
            stage == Stage::kRunning || hasErrors ? WindowText::kCancel : WindowText::kClose);
    SetText(IDC_AGAIN, hasErrors || stage == Stage::kInputNotRead ? WindowText::kCheckAgain
                                                                  : WindowText::kAgain);
    ShowButtons();
    PlaceButtons();
    // Explorer's pointer shows that a run takes no files.
    DragAcceptFiles(Window(), stage != Stage::kRunning ? TRUE : FALSE);
    switch (stage) {
        case Stage::kChoosing:
        case Stage::kInputNotRead:
            return FocusOn(IDC_CHOOSE);
        case Stage::kInputErrors:
            return FocusOn(IDC_OPEN_INPUT);
        case Stage::kRunning:
            // Enter is to do nothing to a run.
            return FocusOn(IDC_LINES);
        case Stage::kEnded:
            return FocusOn(!result_.sheetPath.empty() ? IDC_OPEN_SHEET : IDC_AGAIN);
    }
}

void SheetDialog::ShowButtons() {
    const bool ended = stage_ == Stage::kEnded;
    const bool complete = ended && result_.outcome.resultsWritten;
    ShowButton(IDC_OPEN_SHEET, ended && !result_.sheetPath.empty());
    ShowButton(IDC_OPEN_RESULTS, complete);
    ShowButton(IDC_OPEN_INPUT, stage_ == Stage::kInputErrors || (ended && !complete));
    ShowButton(IDC_OPEN_LOG, ended && result_.outcome.logWritten);
    ShowButton(IDC_RUN_ANYWAY, stage_ == Stage::kInputErrors);
    ShowButton(IDC_AGAIN, stage_ != Stage::kChoosing && stage_ != Stage::kRunning);
    ShowButton(IDC_PROGRESS, stage_ == Stage::kRunning || ended);
    ShowButton(IDC_ELAPSED, stage_ == Stage::kRunning || ended);
    EnableWindow(GetDlgItem(Window(), IDC_CHOOSE), stage_ != Stage::kRunning ? TRUE : FALSE);
}

// No gap between those that are seen.
void SheetDialog::PlaceButtons() {
    const bool hasErrors = stage_ == Stage::kInputErrors;
    const bool hasLog = stage_ == Stage::kEnded && result_.outcome.logWritten;
    PlaceAt(IDC_OPEN_INPUT, hasLog || hasErrors ? IDC_OPEN_RESULTS : IDC_OPEN_LOG);
    PlaceAt(IDC_AGAIN, hasErrors ? IDC_OPEN_LOG : IDC_RUN_ANYWAY);
}

void SheetDialog::ShowButton(int id, bool isShown) {
    ShowWindow(GetDlgItem(Window(), id), isShown ? SW_SHOWNA : SW_HIDE);
}

// The place is looked up each time: it moves with the resolution of the screen.
void SheetDialog::PlaceAt(int id, int other) {
    RECT place;
    GetWindowRect(GetDlgItem(Window(), other), &place);
    MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(GetDlgItem(Window(), id), nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The button with the focus is what Enter presses, too.
void SheetDialog::FocusOn(int id) {
    SendMessageW(Window(), DM_SETDEFID, static_cast<WPARAM>(id == IDC_LINES ? IDOK : id), 0);
    SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(Window(), id)), TRUE);
}

void SheetDialog::SetText(int id, const std::string& utf8) {
    // What is there already is not drawn anew.
    const std::wstring text = WideTextOfUtf8(utf8);
    std::wstring shown(text.size() + 2, L'\0');
    shown.resize(static_cast<std::size_t>(
        GetDlgItemTextW(Window(), id, shown.data(), static_cast<int>(shown.size()))));
    if (shown != text) SetDlgItemTextW(Window(), id, text.c_str());
}

void SheetDialog::SetLines(const std::string& utf8) {
    if (utf8 == shownLines_) return;
    shownLines_ = utf8;
    const std::wstring text = WithCarriageReturns(WideTextOfUtf8(utf8));
    const HWND lines = GetDlgItem(Window(), IDC_LINES);
    SetWindowTextW(lines, text.c_str());
    SendMessageW(lines, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
    SendMessageW(lines, EM_SCROLLCARET, 0, 0);
}

// The rest of a longer one is cut off, as of a text with long paths.
bool SheetDialog::FitsHeadline(const std::string& utf8) {
    const HWND headline = GetDlgItem(Window(), IDC_HEADLINE);
    RECT place;
    GetClientRect(headline, &place);
    RECT needed = place;
    const HDC paper = GetDC(headline);
    const HGDIOBJ before = SelectObject(paper, headlineFont_);
    DrawTextW(paper, WideTextOfUtf8(utf8).c_str(), -1, &needed,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
    SelectObject(paper, before);
    ReleaseDC(headline, paper);
    return needed.bottom <= place.bottom;
}

void SheetDialog::ShowInput() {
    if (request_.input.empty())
        SetText(IDC_INPUT, WindowText::kNoInput);
    else if (request_.recording.empty())
        SetText(IDC_INPUT, Utf8Text(request_.input));
    else
        SetText(IDC_INPUT, FilledText(TextOf(WindowText::kInputOnRecording, language_),
                                      Utf8Text(request_.input), NameOf(request_.recording)));
}

void SheetDialog::OpenFile(const std::string& path) {
    const bool isThere = FileExists(path);
    if (isThere && OpenOnDesktop(path)) return;
    const std::string text = FilledText(
        TextOf(isThere ? WindowText::kNoProgramOpens : WindowText::kFileIsGone, language_),
        Utf8Text(path));
    MessageBoxW(Window(), WideTextOfUtf8(text).c_str(),
                WideTextOfUtf8(TextOf(WindowText::kTitle, language_)).c_str(),
                MB_OK | MB_ICONEXCLAMATION);
}

// The dialog's own font, bold: it follows the screen's resolution.
void SheetDialog::MakeHeadlineFont() {
    LOGFONTW font{};
    auto* const own = reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0));
    if (own == nullptr || GetObjectW(own, sizeof font, &font) == 0) return;
    font.lfWeight = FW_BOLD;
    const HFONT bold = CreateFontIndirectW(&font);
    SendDlgItemMessageW(Window(), IDC_HEADLINE, WM_SETFONT, reinterpret_cast<WPARAM>(bold), TRUE);
    if (headlineFont_ != nullptr) DeleteObject(headlineFont_);
    headlineFont_ = bold;
}
