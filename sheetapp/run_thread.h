#pragma once

#include <windows.h>

#include <memory>

#include "sheetapp/run_progress.h"
#include "sheetapp/run_request.h"

/// The thread on which runs are made, one after another: it owns the connection to the host, whose
/// calls have no time-out, so that the window answers whatever the host does.
class RunThread {
public:
    RunThread();

    /// Does not wait for a run: the process is about to end.
    ~RunThread();
    RunThread(const RunThread&) = delete;
    RunThread& operator=(const RunThread&) = delete;

    /// Starts a run; none may be going on. `window` gets `endedMessage` when it has ended.
    void Start(const RunRequest& request, HWND window, UINT endedMessage);

    RunProgress& Progress();

    /// The result of the run that has ended last; to be taken once.
    RunResult TakeResult();

private:
    struct Shared;

    std::shared_ptr<Shared> shared_;  ///< the thread holds it too
    DWORD threadId_ = 0;
};
