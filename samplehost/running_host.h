#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>

#include "samplehost/host_registration.h"

/// A root object as the running instance of the host: registered under the host's ProgID and in
/// the table of running objects for as long as this lives. COM must be initialised.
class RunningHost {
public:
    /// Throws RegistrationError when the ProgID belongs to another program.
    explicit RunningHost(Microsoft::WRL::ComPtr<IDispatch> root);
    ~RunningHost();
    RunningHost(const RunningHost&) = delete;
    RunningHost& operator=(const RunningHost&) = delete;

private:
    Microsoft::WRL::ComPtr<IDispatch> root_;
    HostRegistration registration_;
    DWORD cookie_ = 0;
};
