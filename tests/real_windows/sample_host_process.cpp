#include "tests/real_windows/sample_host_process.h"

#include <stdexcept>

#include "tests/real_windows/running_tool.h"

namespace {

// Starts SampleHost.exe; what it prints goes to `output` when there is one.
PROCESS_INFORMATION StartSampleHost(const std::wstring& argument, const std::wstring& options,
                                    HANDLE output) {
    const std::filesystem::path program =
        TestProgramFolder().parent_path() / "bin" / "SampleHost.exe";
    std::wstring commandLine = L"\"" + program.wstring() + L"\" \"" + argument + L"\" " + options;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = output;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, output != nullptr,
                        CREATE_NO_WINDOW, nullptr, nullptr, &startup, &process)) {
        throw std::runtime_error("cannot start SampleHost.exe");
    }
    return process;
}

void WaitForEnd(const PROCESS_INFORMATION& process) {
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

// Returns when the host has said that it can be called.
void ReadUntilReady(HANDLE output) {
    std::string said;
    while (said.find("Ready") == std::string::npos) {
        char bytes[256];
        DWORD count = 0;
        if (!ReadFile(output, bytes, sizeof(bytes), &count, nullptr) || count == 0) {
            throw std::runtime_error("SampleHost.exe ended and said: " + said);
        }
        said.append(bytes, count);
    }
}

}  // namespace

SampleHostProcess::SampleHostProcess(const std::filesystem::path& model,
                                     const std::wstring& options) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE read = nullptr, write = nullptr;
    if (!CreatePipe(&read, &write, &inheritable, 0)) throw std::runtime_error("no pipe");
    SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
    process_ = StartSampleHost(model.wstring(), options, write);
    CloseHandle(write);
    ReadUntilReady(read);
    CloseHandle(read);
}

SampleHostProcess::~SampleHostProcess() {
    if (!isKilled_) WaitForEnd(StartSampleHost(L"--stop", L"", nullptr));
    WaitForEnd(process_);
}

void SampleHostProcess::Kill() {
    TerminateProcess(process_.hProcess, 99);
    isKilled_ = true;
}
