#pragma once

#include <memory>

#include "host/host_link.h"
#include "host/host_queries.h"
#include "host/remembering_host.h"

/// The running host for one Compute run after another, on one thread.
class LiveHost {
public:
    /// Lets go of the host of the run before and connects anew, so that a model edited in between
    /// is read afresh. Initialises COM on this thread; it is never uninitialised.
    ///
    /// What it gives asks the host each distinct question once; it lives until the next Connect.
    /// Null when the host is not installed, not running or refuses automation. Throws
    /// HostCallError when a host that was found does not let itself be connected.
    HostQueries* Connect();

    /// What the last Connect gave, with all that the host has answered since; null when it gave
    /// none.
    RememberingHost* Remembered() const { return memory_.get(); }

private:
    std::unique_ptr<HostLink> link_;
    std::unique_ptr<RememberingHost> memory_;
};
