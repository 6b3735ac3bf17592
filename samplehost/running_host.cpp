#include "samplehost/running_host.h"

#include <objbase.h>
#include <oleauto.h>

#include <utility>

#include "host/host_operations.h"

namespace {

// The class of SampleHost's root objects; no program but this one has it.
constexpr CLSID kSampleHostClass = {
    0xbcdcedce, 0x04e4, 0x4d68, {0xab, 0x05, 0x98, 0x39, 0x13, 0x59, 0x35, 0xce}};

}  // namespace

RunningHost::RunningHost(Microsoft::WRL::ComPtr<IDispatch> root)
    : root_(std::move(root)), registration_(kHostProgId, kSampleHostClass) {
    const HRESULT status =
        RegisterActiveObject(root_.Get(), kSampleHostClass, ACTIVEOBJECT_STRONG, &cookie_);
    if (FAILED(status))
        throw RegistrationError("the host cannot be announced as running on this desktop");
}

RunningHost::~RunningHost() {
    RevokeActiveObject(cookie_, nullptr);
    // Clients that still hold the host get an error from their next call on.
    CoDisconnectObject(root_.Get(), 0);
}
