// Shows the dialog at work: show_run MODEL INPUT serves the model, starts the tool, loads the
// input and presses Compute. It prints the status lines and then "Shown."; it ends when the dialog
// is closed, or when a line or the end comes on its standard input.

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <thread>

#include "host/narrow_text.h"
#include "tests/desktop/running_tool.h"
#include "tests/desktop/sample_host_process.h"

namespace {

void ShowRun(const std::filesystem::path& model, const std::filesystem::path& input) {
    const SampleHostProcess host(model);
    RunningTool tool(model.parent_path());
    SetForegroundWindow(tool.Dialog());
    tool.LoadInput(input);
    tool.Compute(L"Closing error log file...");
    for (const std::wstring& line : tool.StatusLines())
        std::printf("%s\n", NarrowText(line.c_str()).c_str());
    std::printf("Shown.\n");
    std::fflush(stdout);

    const auto told = std::make_shared<std::atomic<bool>>(false);
    std::thread([told] {
        std::getchar();
        *told = true;
    }).detach();
    while (!*told && !tool.HasEnded())
        Sleep(50);
}

std::filesystem::path FullPath(const char* argument) {
    // The file dialog knows backslashes only.
    return std::filesystem::absolute(WideText(argument)).make_preferred();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Usage: show_run MODEL INPUT\n");
        return 2;
    }
    try {
        ShowRun(FullPath(argv[1]), FullPath(argv[2]));
        // The reader of the standard input may still wait; it ends with the process.
        std::_Exit(0);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "show_run: %s\n", failure.what());
        std::_Exit(1);
    }
}
