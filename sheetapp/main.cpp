#include <windows.h>

#include <commctrl.h>
#include <objbase.h>

#include "desktop/message_box.h"
#include "platform/dll_search.h"
#include "platform/standard_streams.h"
#include "platform/user_language.h"
#include "sheetapp/dropped_files.h"
#include "sheetapp/sheet_dlg.h"

namespace {

Language LanguageOf(const ProgramArguments& arguments) {
    if (arguments.language == L"ja") return Language::kJapanese;
    if (arguments.language == L"en") return Language::kEnglish;
    return UserLanguage();
}

void PrepareControls() {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
}

}  // namespace

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*showCommand*/) {
    RestrictDllSearch();
    PrepareStandardStreams();
    try {
        // For the shell, which opens files and shows the file dialog.
        static_cast<void>(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        PrepareControls();
        const ProgramArguments arguments = ArgumentsOfProcess();
        SheetDialog(arguments.files, LanguageOf(arguments)).DoModal(nullptr);
        return 0;
    } catch (...) {
        ReportCurrentException(nullptr);
        return 1;
    }
}
