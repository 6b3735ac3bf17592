#include "tests/real_windows/desktop_probe.h"

#include <cwchar>
#include <string>

namespace {

constexpr int kStatusListId = 1002;
constexpr int kIconId = 128;

// The exchange with the driver, opened once in the tool's process.
class Shared {
public:
    Shared() {
        wchar_t name[64];
        ProbeSharedName(GetCurrentProcessId(), name);
        mapping_ = OpenFileMappingW(FILE_MAP_ALL_ACCESS, FALSE, name);
        exchange_ = static_cast<ProbeExchange*>(
            MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(ProbeExchange)));
        ProbeEventName(GetCurrentProcessId(), name);
        reached_ = OpenEventW(EVENT_MODIFY_STATE, FALSE, name);
    }
    ~Shared() {
        UnmapViewOfFile(exchange_);
        CloseHandle(mapping_);
        CloseHandle(reached_);
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    ProbeExchange* Exchange() const { return exchange_; }
    void SignalReached() const { SetEvent(reached_); }

private:
    HANDLE mapping_;
    ProbeExchange* exchange_;
    HANDLE reached_;
};

const Shared& TheShared() {
    static const Shared shared;
    return shared;
}

UINT ProbeMessage() {
    static const UINT message = RegisterWindowMessageW(kProbeMessage);
    return message;
}

void Note(const std::wstring& what) {
    ProbeExchange* const exchange = TheShared().Exchange();
    for (const wchar_t character : what) {
        if (exchange->noteCount + 1 >= static_cast<int>(std::size(exchange->notes))) return;
        exchange->notes[exchange->noteCount++] = character;
        exchange->notes[exchange->noteCount] = 0;
    }
}

std::wstring MenuLines(HMENU menu) {
    std::wstring lines;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[128] = L"";
        MENUITEMINFOW item{};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STRING;
        item.dwTypeData = text;
        item.cch = 128;
        GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &item);
        lines += (item.fType & MFT_SEPARATOR) != 0 ? L"-" : std::to_wstring(item.wID) + L" " + text;
        lines += L"\n";
    }
    return lines;
}

int ToolIconCount(HWND dialog) {
    const auto icon =
        reinterpret_cast<LRESULT>(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIconId)));
    return (SendMessageW(dialog, WM_GETICON, ICON_BIG, 0) == icon) +
           (SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0) == icon) +
           (SendMessageW(dialog, WM_QUERYDRAGICON, 0, 0) == icon);
}

long long StandardIconOf(HWND box) {
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const LRESULT shown = SendMessageW(child, STM_GETICON, 0, 0);
        for (const LPCWSTR icon : {IDI_HAND, IDI_QUESTION, IDI_EXCLAMATION, IDI_ASTERISK}) {
            if (shown != 0 && shown == reinterpret_cast<LRESULT>(LoadIconW(nullptr, icon))) {
                return static_cast<long long>(reinterpret_cast<ULONG_PTR>(icon));
            }
        }
    }
    return 0;
}

void Answer(HWND dialog, ProbeQuestion question, ProbeExchange& exchange) {
    const auto giveText = [&exchange](const std::wstring& text) {
        wcsncpy(exchange.text, text.c_str(), std::size(exchange.text) - 1);
    };
    switch (question) {
        case ProbeQuestion::kNone:
            break;
        case ProbeQuestion::kMapDialogRect:
            MapDialogRect(dialog, &exchange.rectangle);
            break;
        case ProbeQuestion::kMenu:
            giveText(MenuLines(GetSubMenu(GetMenu(dialog), 0)));
            break;
        case ProbeQuestion::kSystemMenu:
            giveText(MenuLines(GetSystemMenu(dialog, FALSE)));
            break;
        case ProbeQuestion::kIcons:
            exchange.number = ToolIconCount(dialog);
            break;
        case ProbeQuestion::kMessageBoxIcon:
            exchange.number = StandardIconOf(exchange.window);
            break;
        case ProbeQuestion::kClearNotes:
            exchange.noteCount = 0;
            exchange.notes[0] = 0;
            break;
    }
}

void NoteListMessage(UINT message, WPARAM wParam) {
    switch (message) {
        case LB_ADDSTRING:
            Note(L"A");
            break;
        case LB_SETTOPINDEX:
            Note(L"T");
            break;
        case LB_DELETESTRING:
            Note(L"D" + std::to_wstring(wParam));
            break;
        case WM_PAINT:
            Note(L"P");
            break;
        default:
            break;
    }
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    ProbeSentMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code >= 0 && sent.message == ProbeMessage()) {
        Answer(sent.hwnd, static_cast<ProbeQuestion>(sent.wParam), *TheShared().Exchange());
    } else if (code >= 0 && sent.message == WM_ICONERASEBKGND) {
        Note(L"I");
    } else if (code >= 0 && GetDlgCtrlID(sent.hwnd) == kStatusListId) {
        NoteListMessage(sent.message, sent.wParam);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

extern "C" __declspec(dllexport) LRESULT CALLBACK
    ProbeTakenMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto& taken = *reinterpret_cast<const MSG*>(lParam);
    if (code >= 0 && wParam == PM_REMOVE && taken.message == ProbeMessage()) {
        TheShared().SignalReached();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
