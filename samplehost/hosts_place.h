#pragma once

#include <windows.h>

#include <stdexcept>

/// Another SampleHost runs, or is about to.
class PlaceTakenError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The place of the host on this machine, which one SampleHost can have at a time: its entry in
/// the registry is every session's. Taken before the model is read, which can take minutes, so
/// that a second one finds it taken and touches nothing. Given up when the process ends, however
/// it ends.
class HostsPlace {
public:
    /// Throws PlaceTakenError.
    HostsPlace();
    ~HostsPlace();
    HostsPlace(const HostsPlace&) = delete;
    HostsPlace& operator=(const HostsPlace&) = delete;

private:
    HANDLE mutex_;
};
