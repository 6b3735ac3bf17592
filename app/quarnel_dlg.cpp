#include "app/quarnel_dlg.h"

#include "app/about_dlg.h"
#include "desktop/empty_file.h"
#include "desktop/input_file_dialog.h"
#include "desktop/message_box.h"
#include "desktop/minimised_icon.h"
#include "desktop/resource.h"
#include "desktop/resource_text.h"
#include "desktop/shell_open.h"
#include "platform/file_lookup.h"
#include "platform/narrow_text.h"

namespace {

// True from its making to its end.
class RaisedFlag {
public:
    explicit RaisedFlag(bool& flag) : flag_(flag) { flag = true; }
    ~RaisedFlag() { flag_ = false; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

private:
    bool& flag_;
};

bool IsRequestOfTheUser(UINT message) {
    return message == WM_COMMAND || message == WM_SYSCOMMAND || message == WM_CLOSE;
}

}  // namespace

CQuarnelDlg::CQuarnelDlg()
    : ModalDialog(IDD_MAIN),
      currentInput_(ResourceText(IDS_NONE_SELECTED)),
      icon_(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_MAIN))) {}

void CQuarnelDlg::OnInitDialog() {
    statusList_.Attach(GetDlgItem(Window(), IDC_STATUS_LIST));
    ShowCurrentInput();
    AddAboutToSystemMenu();
    SendMessageW(Window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon_));
    SendMessageW(Window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_));
}

bool CQuarnelDlg::OnCommand(int id) {
    switch (id) {
        case ID_FILE_LOAD_INPUT:
            OnLoadInput();
            return true;
        case ID_FILE_OPEN_INPUT:
            OnOpenInput();
            return true;
        case ID_FILE_CREATE_INPUT:
            OnCreateInput();
            return true;
        case IDOK:
            OnBnClickedCompute();
            return true;
        case ID_FILE_VIEW_LOG:
            OnViewLog();
            return true;
        case ID_FILE_VIEW_RESULTS:
            OnViewResults();
            return true;
        default:
            return false;
    }
}

std::optional<LRESULT> CQuarnelDlg::OnMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    // While a call waits for the host, messages that were sent to the dialog still come in. A run
    // is not to be entered twice, nor the dialog closed under it.
    if (computing_ && IsRequestOfTheUser(message)) return 0;
    switch (message) {
        case WM_SYSCOMMAND:
            return OnSysCommand(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
        case WM_PAINT:
            return OnPaint() ? std::optional<LRESULT>(0) : std::nullopt;
        case WM_QUERYDRAGICON:
            return reinterpret_cast<LRESULT>(icon_);
        default:
            return std::nullopt;
    }
}

void CQuarnelDlg::OnLoadInput() {
    const std::optional<std::wstring> path = AskForInputFile(Window());
    if (!path) return;
    inputFilePath_ = NarrowText(path->c_str());
    currentInput_ = *path;
    ShowCurrentInput();
    statusList_.Clear();
}

void CQuarnelDlg::OnOpenInput() {
    if (FileExists(inputFilePath_)) {
        OpenInItsApplication(Window(), WideText(inputFilePath_));
    } else {
        statusList_.AppendText(IDS_NO_INPUT_FILE);
    }
}

void CQuarnelDlg::OnCreateInput() {
    const std::optional<std::wstring> path = AskForInputFile(Window());
    if (!path || !MayReplace(*path)) return;
    CreateEmptyFile(*path);
    // The new file does not become the current input: it is still to be filled in.
    OpenInItsApplication(Window(), *path);
}

bool CQuarnelDlg::MayReplace(const std::wstring& path) {
    return !FileExists(NarrowText(path.c_str())) ||
           ShowMessageBox(Window(), ResourceText(IDS_OVERWRITE_INPUT),
                          MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void CQuarnelDlg::OnBnClickedCompute() {
    const RaisedFlag computing(computing_);
    RunCompute(
        inputFilePath_, [this] { return host_.Connect(); }, statusList_, reports_);
    host_.ForgetAnswers();
}

void CQuarnelDlg::OnViewLog() {
    if (FileExists(reports_.logFile)) {
        OpenInItsApplication(Window(), WideText(reports_.logFile));
    } else {
        // The same words as for a missing input: intended, though there is a text about the log.
        statusList_.AppendText(IDS_NO_INPUT_FILE);
    }
}

void CQuarnelDlg::OnViewResults() {
    // Intended: the log is looked for, not the results. Results of a run whose log is gone are
    // not shown, and results that could not be written are the shell's to complain about.
    if (FileExists(reports_.logFile)) {
        OpenInItsApplication(Window(), WideText(reports_.resultFile));
    } else {
        statusList_.AppendText(IDS_NO_RESULT_FILE);
    }
}

bool CQuarnelDlg::OnSysCommand(WPARAM command) {
    if ((command & 0xFFF0) != ID_ABOUT) return false;
    CAboutDlg().DoModal(Window());
    return true;
}

bool CQuarnelDlg::OnPaint() {
    if (IsIconic(Window()) == FALSE) return false;
    PaintMinimised(Window(), icon_);
    return true;
}

void CQuarnelDlg::AddAboutToSystemMenu() {
    const HMENU menu = GetSystemMenu(Window(), FALSE);
    const std::wstring text = ResourceText(IDS_ABOUT);
    if (menu == nullptr || text.empty()) return;
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, ID_ABOUT, text.c_str());
}

void CQuarnelDlg::ShowCurrentInput() {
    SetDlgItemTextW(Window(), IDC_CURRENT_INPUT, currentInput_.c_str());
}
