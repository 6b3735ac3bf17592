#include <objbase.h>

#include <CLI/CLI.hpp>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "host/qhm_file.h"
#include "platform/dll_search.h"
#include "platform/narrow_text.h"
#include "samplehost/call_meter.h"
#include "samplehost/running_host.h"
#include "samplehost/sample_host.h"
#include "samplehost/stop_signals.h"
#include "samplehost/stop_window.h"

namespace {

enum ExitCode : int {
    kExitStopped = 0,  ///< served until it was told to end
    kExitRefused = 1,  ///< the host's place is taken, or there was nothing to stop
    kExitUsage = 2,    ///< wrong usage, or a model file that cannot be read
};

constexpr const char* kFooter = R"(
The clients find it as they find the analysis host, and get the answers of the model file.
It refuses to start where the real host is installed, and leaves nothing behind when it ends.

Examples:
  SampleHost.exe two_story_y_up.qhm
      serves the building until Enter or Ctrl+C is pressed
  SampleHost.exe --stop
      ends the one that is running

Exit codes:
  0  served until it was told to end
  1  another program has the host's place, or there was nothing to stop
  2  wrong usage, or a model file that cannot be read)";

struct Options {
    std::string model;
    double delayMs = 0.0;
    std::string callCountFile;
    bool stop = false;
};

int Fail(ExitCode code, const std::string& text) {
    std::cerr << "SampleHost: " << text << "\n";
    return code;
}

// Full path, so that clients with another current directory find the model's folder.
std::wstring FullPath(const std::string& path) {
    const std::wstring wide = WideText(path);
    std::wstring full(32768, L'\0');
    const DWORD length =
        GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    full.resize(length);
    return length == 0 ? wide : full;
}

// What clients get as the path of the model; no value when the file says that the host has none.
std::optional<std::wstring> ModelPathOf(const RecordedModel& model, const std::string& qhmPath) {
    if (!model.modelPath) return FullPath(qhmPath);
    if (model.modelPath->empty()) return std::nullopt;
    return WideTextOfUtf8(*model.modelPath);
}

std::string Counted(std::int32_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void Introduce(const RecordedModel& model, const std::optional<std::wstring>& modelPath,
               const Options& options) {
    std::cout << "SampleHost plays the analysis host with the building in " << options.model
              << ":\n  " << Counted(*model.nodeCount, "node") << ", "
              << Counted(*model.memberCount, "member") << ", "
              << Counted(*model.primaryLoadCaseCount, "load case") << ", "
              << Counted(*model.loadCombinationCount, "load combination") << "; "
              << (*model.zUp ? "Z" : "Y") << " is vertical; "
              << (*model.baseUnitSystem == 1 ? "English" : "metric") << " units; "
              << (*model.resultsAvailable ? "with" : "without") << " analysis results\n"
              << "  model path: " << (modelPath ? NarrowText(modelPath->c_str()) : "none") << "\n";
    if (options.delayMs > 0)
        std::cout << "  every call takes at least " << options.delayMs << " ms\n";
    std::cout << "To stop it, press Enter or Ctrl+C here, close this window, or start\n"
                 "SampleHost.exe --stop.\n";
}

void WriteCallCounts(const CallMeter& meter, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << meter.Report();
    if (!file.flush()) Fail(kExitStopped, path + ": the call counts cannot be written");
}

int Serve(const Options& options) {
    if (StopWindow::FindRunning() != nullptr)
        return Fail(kExitRefused, "another SampleHost is running; SampleHost.exe --stop ends it");
    auto [model, cautions] = ReadQhmFileWithCautions(options.model);
    for (const std::string& caution : cautions)
        std::cerr << "SampleHost: caution: " << options.model << ": " << caution << "\n";
    const auto modelPath = ModelPathOf(model, options.model);
    Introduce(model, modelPath, options);

    const auto meter = std::make_shared<CallMeter>(CallMeter::Delay(options.delayMs));
    std::unique_ptr<RunningHost> running;
    StopWindow stopWindow([&running] { running.reset(); });
    running = std::make_unique<RunningHost>(MakeSampleHost(std::move(model), modelPath, meter));
    ListenForStopSignals();
    std::cout << "Ready: process " << GetCurrentProcessId() << "." << std::endl;
    stopWindow.RunUntilStopped();

    std::cout << "Stopped after " << meter->total() << " calls, " << meter->refused()
              << " of them refused." << std::endl;
    if (!options.callCountFile.empty()) WriteCallCounts(*meter, options.callCountFile);
    return kExitStopped;
}

int StopOther() {
    if (StopWindow::FindRunning() == nullptr) return Fail(kExitRefused, "no SampleHost is running");
    if (!StopRunningSampleHost()) return Fail(kExitRefused, "the running SampleHost does not end");
    std::cout << "SampleHost has been stopped.\n";
    return kExitStopped;
}

int RunCommand(int argc, char** argv) {
    CLI::App app("Plays the analysis host for one building, for trying and testing its clients.",
                 "SampleHost");
    app.footer(kFooter);
    Options options;
    CLI::Option* model = app.add_option("MODEL.qhm", options.model, "the building to serve");
    app.add_option("--delay", options.delayMs, "let every call take this much longer, milliseconds")
        ->check(CLI::Range(0.0, 3600000.0));
    app.add_option("--count-calls", options.callCountFile,
                   "at the end, write the number of calls of every kind to this file");
    app.add_flag("--stop", options.stop, "end the SampleHost that is running")->excludes(model);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return Fail(kExitUsage, std::string(error.what()) + " (--help shows the usage)");
    }
    if (options.stop) return StopOther();
    if (options.model.empty())
        return Fail(kExitUsage, "name a model file (.qhm) to serve (--help shows the usage)");
    return Serve(options);
}

}  // namespace

int main(int argc, char** argv) {
    RestrictDllSearch();
    CoInitialize(nullptr);
    try {
        return RunCommand(argc, argv);
    } catch (const QhmFileError& error) {
        return Fail(kExitUsage, error.what());
    } catch (const std::exception& error) {
        return Fail(kExitRefused, error.what());
    }
}
