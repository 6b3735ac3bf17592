#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

/// SampleHost.exe in a process of its own, serving one model from construction to destruction.
class SampleHostProcess {
public:
    /// `options` as on its command line.
    explicit SampleHostProcess(const std::filesystem::path& model,
                               const std::wstring& options = L"");
    ~SampleHostProcess();

    /// Ends the process as a crash would: at once, in the middle of a call.
    void Kill();

    SampleHostProcess(const SampleHostProcess&) = delete;
    SampleHostProcess& operator=(const SampleHostProcess&) = delete;

private:
    PROCESS_INFORMATION process_{};
    bool isKilled_ = false;
};
