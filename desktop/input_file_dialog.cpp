#include "desktop/input_file_dialog.h"

#include <commdlg.h>

#include <algorithm>
#include <stdexcept>

#include "desktop/resource.h"
#include "desktop/resource_text.h"

namespace {

// The longest path that Windows knows, in characters, its zero included.
constexpr DWORD kLongestPath = 32768;

}  // namespace

std::wstring FileDialogFilter(std::wstring text) {
    std::ranges::replace(text, L'|', L'\0');
    return text;
}

std::optional<std::wstring> AskForInputFile(HWND owner) {
    const std::wstring filter = FileDialogFilter(ResourceText(IDS_INPUT_FILTER));
    std::wstring path(kLongestPath, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = kLongestPath;
    dialog.lpstrDefExt = L"csv";
    // The Help button is shown, but there is no help to open: the dialog's message about it is
    // left to the default processing.
    dialog.Flags = OFN_HIDEREADONLY | OFN_SHOWHELP;
    if (GetOpenFileNameW(&dialog) != FALSE) {
        path.resize(path.find(L'\0'));
        return path;
    }
    if (const DWORD error = CommDlgExtendedError(); error != 0) {
        throw std::runtime_error("The file dialog failed with error " + std::to_string(error) +
                                 ".");
    }
    return std::nullopt;
}
