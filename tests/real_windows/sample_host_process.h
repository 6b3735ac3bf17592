#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

/// SampleHost.exe in a process of its own, serving one model from construction to destruction.
class SampleHostProcess {
public:
    explicit SampleHostProcess(const std::filesystem::path& model);
    ~SampleHostProcess();
    SampleHostProcess(const SampleHostProcess&) = delete;
    SampleHostProcess& operator=(const SampleHostProcess&) = delete;

private:
    PROCESS_INFORMATION process_{};
};
