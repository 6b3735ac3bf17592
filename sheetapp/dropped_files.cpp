#include "sheetapp/dropped_files.h"

std::vector<std::wstring> TakeDroppedFiles(HDROP drop) {
    std::vector<std::wstring> files;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
        files.push_back(path);
    }
    DragFinish(drop);
    return files;
}

ProgramArguments ArgumentsOfProcess() {
    ProgramArguments arguments;
    int count = 0;
    wchar_t** const list = CommandLineToArgvW(GetCommandLineW(), &count);
    if (list == nullptr) return arguments;
    for (int i = 1; i < count; ++i) {
        if (std::wstring(list[i]) == L"--lang" && i + 1 < count)
            arguments.language = list[++i];
        else
            arguments.files.emplace_back(list[i]);
    }
    LocalFree(list);
    return arguments;
}
