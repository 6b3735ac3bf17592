#pragma once

#include <memory>
#include <vector>

#include "host/host_link.h"
#include "host/host_queries.h"
#include "host/remembering_host.h"

/// The running host for one Compute run after another, on one thread: the one owner of connections
/// in every program.
///
/// A connection that was made is never released, neither by the next run nor when this object goes:
/// the host's objects stay referenced until the process ends.
class LiveHost {
public:
    LiveHost() = default;
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
    void ForgetAnswers() { memory_.reset(); }

private:
    std::vector<std::unique_ptr<HostLink>> links_;  ///< the last one is the run's
    std::unique_ptr<RememberingHost> memory_;
};
