// Shows the dialog and Quarnel Sheet at work: show_run MODEL INPUT serves the model, starts the
// tool, loads the input and presses Compute; then it starts Quarnel Sheet on the same input. It
// prints the status lines, the verdict and then "Shown."; it ends when a line or the end comes on
// its standard input. With a third argument, --until-closed, it ends when the user has closed both.

#include <windows.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "platform/narrow_text.h"
#include "sheetapp/resource.h"
#include "tests/real_windows/running_sheet.h"
#include "tests/real_windows/running_tool.h"
#include "tests/real_windows/sample_host_process.h"

namespace {

// Both are made in the middle of the screen.
void PlaceBeside(HWND left, HWND right) {
    constexpr int kMargin = 40;
    RECT place;
    GetWindowRect(left, &place);
    const UINT flags = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(left, nullptr, kMargin, kMargin, 0, 0, flags);
    SetWindowPos(right, nullptr, 2 * kMargin + place.right - place.left, kMargin, 0, 0, flags);
}

void ShowRun(const std::filesystem::path& model, const std::filesystem::path& input,
             bool untilClosed) {
    const SampleHostProcess host(model);
    RunningTool tool(model.parent_path());
    SetForegroundWindow(tool.Dialog());
    tool.LoadInput(input);
    tool.Compute(L"Closing error log file...");
    for (const std::wstring& line : tool.StatusLines())
        std::printf("%s\n", NarrowText(line.c_str()).c_str());
    const RunningSheet sheet(model.parent_path(), {input.wstring()});
    sheet.WaitForControl(IDC_AGAIN);
    PlaceBeside(tool.Dialog(), sheet.Window());
    std::printf("\n%s\n", NarrowText(sheet.Text(IDC_HEADLINE).c_str()).c_str());
    std::printf("Shown.\n");
    std::fflush(stdout);

    if (untilClosed) {
        while (!tool.HasEnded() || !sheet.HasEnded())
            Sleep(50);
    } else {
        std::getchar();
    }
}

std::filesystem::path FullPath(const char* argument) {
    // The file dialog knows backslashes only.
    return std::filesystem::absolute(WideText(argument)).make_preferred();
}

}  // namespace

int main(int argc, char** argv) {
    const bool untilClosed = argc == 4 && std::string(argv[3]) == "--until-closed";
    if (argc != 3 && !untilClosed) {
        std::fprintf(stderr, "Usage: show_run MODEL INPUT [--until-closed]\n");
        return 2;
    }
    try {
        ShowRun(FullPath(argv[1]), FullPath(argv[2]), untilClosed);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "show_run: %s\n", failure.what());
        return 1;
    }
}
