// The real quarnel-cli, started with standard handles that lead to nothing.

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "tests/support/run_program.h"

namespace {

// What a parent leaves to a program that shall have no standard streams: nothing, the mark of a
// failed call, and the number of a handle that is not there.
const HANDLE kNowhere[] = {nullptr, INVALID_HANDLE_VALUE, reinterpret_cast<HANDLE>(0x54),
                           reinterpret_cast<HANDLE>(0x7F4)};

DWORD RunWithHandles(const std::string& program, const std::string& arguments, HANDLE handle) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdOutput = start.hStdError = handle;
    PROCESS_INFORMATION process{};
    std::string command = "\"" + program + "\" " + arguments;
    if (!CreateProcessA(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &start, &process))
        return MAXDWORD;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = MAXDWORD;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

}  // namespace

TEST(StandardHandles, ThatLeadToNothingAreNotMistakenForTheLog) {
    const std::string program = std::filesystem::absolute(QUARNEL_CLI).make_preferred().string();
    const TestFolder folder;
    const std::string example = QUARNEL_SOURCE_DIR "/examples/two_story_y_up";
    const std::string model = folder.Write("tower.qhm", ReadText(example + ".qhm"));
    const std::string input = folder.Write("input.csv", ReadText(example + ".csv"));
    ASSERT_EQ(0, RunProgram(program, {"check", model, input}, folder).exitCode);
    const std::string log = folder.Read("tower.aijR2Log.txt");
    const std::string results = folder.Read("tower.aijR2Result.csv");
    for (const HANDLE handle : kNowhere) {
        EXPECT_EQ(0u, RunWithHandles(program, "check \"" + model + "\" \"" + input + "\"", handle));
        EXPECT_EQ(log, folder.Read("tower.aijR2Log.txt")) << handle;
        EXPECT_EQ(results, folder.Read("tower.aijR2Result.csv")) << handle;
    }
}
