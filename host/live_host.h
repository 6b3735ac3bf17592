#pragma once

#include <memory>
#include <vector>

#include "host/busy_host_filter.h"
#include "host/counting_host.h"
#include "host/host_link.h"
#include "host/host_queries.h"
#include "host/remembering_host.h"

/// What is told about the calls to the running host, on the thread that makes them.
struct LiveHostWatch {
    QuestionWatcher questions{};  ///< before each call that is made for the first time
    BusyHook busy{};              ///< at each call that the host rejects
};

/// The running host for one Compute run after another, on one thread: the one owner of connections
/// in every program.
///
/// A connection that was made is never released, neither by the next run nor when this object goes:
/// the host's objects stay referenced until the process ends. Calls that a busy host rejects are
/// made again for a while (host/busy_host_filter.h).
class LiveHost {
public:
    explicit LiveHost(LiveHostWatch watch = {});
    ~LiveHost();
    LiveHost(const LiveHost&) = delete;
    LiveHost& operator=(const LiveHost&) = delete;

    /// Connects anew, so that a model edited since the run before is read afresh. Initialises COM
    /// on this thread; it is never uninitialised.
    ///
    /// What it gives asks the host each distinct question once; it lives until the next Connect.
    /// Null when the host is not installed, not running or refuses automation. Throws
    /// HostCallError when a host that was found does not let itself be connected.
    HostQueries* Connect();

    /// What the last Connect gave, with all that the host has answered since; null when it gave
    /// none.
    RememberingHost* Remembered() const { return memory_.get(); }

    /// Drops the answers, of which a large building has many. What Connect gave is gone.
    void ForgetAnswers();

private:
    LiveHostWatch watch_;
    std::unique_ptr<RegisteredBusyHostFilter> filter_;
    std::vector<std::unique_ptr<HostLink>> links_;  ///< the last one is the run's
    std::unique_ptr<CountingHost> counting_;        ///< where somebody watches the questions
    std::unique_ptr<RememberingHost> memory_;
};
