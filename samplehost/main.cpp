#include <objbase.h>

#include <CLI/CLI.hpp>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "host/qhm_file.h"
#include "platform/distinct_files.h"
#include "platform/dll_search.h"
#include "platform/full_path.h"
#include "platform/held_file.h"
#include "platform/narrow_text.h"
#include "platform/one_line.h"
#include "platform/standard_streams.h"
#include "platform/whole_file.h"
#include "samplehost/busy_spell.h"
#include "samplehost/call_meter.h"
#include "samplehost/hosts_place.h"
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
    double busySeconds = 0.0;
    std::string callCountFile;
    bool stop = false;
};

int Fail(ExitCode code, const std::string& text) {
    std::cerr << "SampleHost: " + OneLine(text) + "\n";
    return code;
}

// What clients get as the path of the model, in full, for they have current folders of their own;
// no value when the file says that the host has none.
std::optional<std::wstring> ModelPathOf(const RecordedModel& model, const std::string& qhmPath) {
    if (!model.modelPath) return FullPath(WideText(qhmPath));
    if (model.modelPath->empty()) return std::nullopt;
    return WideTextOfUtf8(*model.modelPath);
}

std::string Counted(std::int32_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void Introduce(const RecordedModel& model, const std::optional<std::wstring>& modelPath,
               const Options& options) {
    std::cout << "SampleHost plays the analysis host with the building in "
              << OneLine(options.model) << ":\n  " << Counted(*model.nodeCount, "node") << ", "
              << Counted(*model.memberCount, "member") << ", "
              << Counted(*model.primaryLoadCaseCount, "load case") << ", "
              << Counted(*model.loadCombinationCount, "load combination") << "; "
              << (*model.zUp ? "Z" : "Y") << " is vertical; "
              << (*model.baseUnitSystem == 1 ? "English" : "metric") << " units; "
              << (*model.resultsAvailable ? "with" : "without") << " analysis results\n"
              << "  model path: " << (modelPath ? OneLine(NarrowText(modelPath->c_str())) : "none")
              << "\n";
    if (options.delayMs > 0)
        std::cout << "  every call takes at least " << options.delayMs << " ms\n";
    if (options.busySeconds > 0)
        std::cout << "  from the first call on, all calls are rejected for " << options.busySeconds
                  << " s\n";
    std::cout << "To stop it, press Enter or Ctrl+C here, close this window, or start\n"
                 "SampleHost.exe --stop.\n";
}

// Why the call counts cannot be written. Looked at before the host serves, which can take hours.
std::optional<std::string> WhyCallCountsAreRefused(const Options& options,
                                                   const std::string& modelPath) {
    if (options.callCountFile.empty()) return std::nullopt;
    using Use = NamedFile::Use;
    if (auto why =
            WhyFilesCollide({{"the model", options.model, Use::kRead},
                             {"the model that clients are told of", modelPath, Use::kRead},
                             {"the file of call counts", options.callCountFile, Use::kWritten}}))
        return why;
    try {
        RequireWholeFileCanBeWritten(options.callCountFile);
    } catch (const WholeFileError& error) {
        return options.callCountFile + ": the call counts cannot be written: " + error.what();
    }
    return std::nullopt;
}

void WriteCallCounts(const CallMeter& meter, const std::string& path) {
    try {
        WriteWholeFile(path, meter.Report());
    } catch (const WholeFileError& error) {
        Fail(kExitStopped, path + ": the call counts cannot be written: " + error.what());
    }
}

int Serve(const Options& options) {
    const HostsPlace place;
    std::unique_ptr<RunningHost> running;
    StopWindow stopWindow([&running] { running.reset(); });
    const HeldFile held(options.model);  // what is served stays what it is
    auto [model, cautions] = ReadQhmFileWithCautions(options.model);
    for (const std::string& caution : cautions)
        std::cerr << "SampleHost: caution: " + OneLine(options.model + ": " + caution) + "\n";
    const auto modelPath = ModelPathOf(model, options.model);
    const std::string toldPath = modelPath ? NarrowText(modelPath->c_str()) : std::string();
    if (const auto why = WhyCallCountsAreRefused(options, toldPath)) return Fail(kExitUsage, *why);
    Introduce(model, modelPath, options);

    const auto meter = std::make_shared<CallMeter>(CallMeter::Delay(options.delayMs));
    running = std::make_unique<RunningHost>(MakeSampleHost(std::move(model), modelPath, meter));
    if (options.busySeconds > 0) BeBusyFor(BusySpell::Duration(options.busySeconds));
    ListenForStopSignals();
    std::cout << "Ready: process " << GetCurrentProcessId() << "." << std::endl;
    stopWindow.RunUntilStopped();

    std::cout << "Stopped after " << meter->TotalCalls() << " calls, " << meter->RefusedCalls()
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
    app.add_option(
           "--busy", options.busySeconds,
           "reject all calls for so many seconds from the first one on, as a host does that "
           "shows a dialog or recalculates")
        ->check(CLI::Range(0.0, 3600.0));
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

int RunGuarded(int argc, char** argv) {
    try {
        return RunCommand(argc, argv);
    } catch (const QhmFileError& error) {
        return Fail(kExitUsage, error.what());
    } catch (const std::exception& error) {
        return Fail(kExitRefused, error.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    RestrictDllSearch();
    PrepareStandardStreams();
    StandardOutput output;
    CoInitialize(nullptr);
    const int code = RunGuarded(argc, argv);
    if (output.Finish() != Printed::kLost) return code;
    Fail(kExitRefused, "standard output cannot be written: the disk is full, or the like");
    return code == kExitStopped ? kExitRefused : code;
}
