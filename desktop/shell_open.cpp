#include "desktop/shell_open.h"

#include <shellapi.h>

#include "desktop/message_box.h"
#include "desktop/resource.h"
#include "desktop/resource_text.h"

namespace {

// Answers of the shell above this mean success.
constexpr std::int32_t kGreatestFailure = 32;

struct ShellFailure {
    std::int32_t result;
    int textId;
};

constexpr ShellFailure kShellFailures[] = {
    {0, IDS_OPEN_OUT_OF_MEMORY},
    {SE_ERR_OOM, IDS_OPEN_OUT_OF_MEMORY},
    {SE_ERR_FNF, IDS_OPEN_NOT_FOUND},
    {SE_ERR_PNF, IDS_OPEN_NOT_FOUND},
    {SE_ERR_ACCESSDENIED, IDS_OPEN_DENIED},
    {SE_ERR_SHARE, IDS_OPEN_SHARING},
    {SE_ERR_ASSOCINCOMPLETE, IDS_OPEN_NO_ASSOCIATION},
    {SE_ERR_NOASSOC, IDS_OPEN_NO_ASSOCIATION},
    {SE_ERR_DDETIMEOUT, IDS_OPEN_DDE},
    {SE_ERR_DDEFAIL, IDS_OPEN_DDE},
    {SE_ERR_DDEBUSY, IDS_OPEN_DDE},
};

}  // namespace

int ShellFailureText(std::intptr_t shellResult) {
    const auto result = static_cast<std::int32_t>(shellResult);
    if (result > kGreatestFailure) return 0;
    for (const ShellFailure& failure : kShellFailures) {
        if (failure.result == result) return failure.textId;
    }
    return IDS_OPEN_UNKNOWN;
}

void OpenInItsApplication(HWND owner, const std::wstring& path) {
    const HINSTANCE answer =
        ShellExecuteW(owner, L"open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    const int textId = ShellFailureText(reinterpret_cast<std::intptr_t>(answer));
    if (textId != 0) ShowMessageBox(owner, ResourceText(textId), MB_OK | MB_ICONEXCLAMATION);
}
