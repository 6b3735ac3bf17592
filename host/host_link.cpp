#include "host/host_link.h"

#include "host/host_operations.h"
#include "host/rejected_call.h"

namespace {

// One call that fills one array of numbers and asks for no result.
void GetNumbers(const AutomationDriver& driver, const HostOperation& method,
                std::span<std::int32_t> numbers) {
    HostArray array(VT_I4, numbers.size());
    driver.Run(method, {array.ByReference()});
    array.CopyOut(numbers);
}

}  // namespace

int HostLink::Connect() {
    CLSID hostClass;
    if (FAILED(CLSIDFromProgID(kHostProgId, &hostClass))) return 0;
    Microsoft::WRL::ComPtr<IUnknown> running;
    const HRESULT found = CallUntilAccepted(
        [&] { return GetActiveObject(hostClass, nullptr, running.ReleaseAndGetAddressOf()); });
    if (FAILED(found)) running = nullptr;
    return ConnectTo(running.Get());
}

int HostLink::ConnectTo(IUnknown* runningHost) {
    bool attachedNow = false;
    if (runningHost != nullptr) {
        void* dispatch = nullptr;
        if (SUCCEEDED(CallUntilAccepted(
                [&] { return runningHost->QueryInterface(IID_IDispatch, &dispatch); }))) {
            drivers_[kRoot].Attach(static_cast<IDispatch*>(dispatch));
            attachedNow = true;
        }
    }
    if (!drivers_[kRoot].IsAttached()) return 0;
    // A root from an earlier connection already has its sub-objects.
    if (attachedNow) BindSubObjects();
    PostConnectCall();
    return 1;
}

void HostLink::BindSubObjects() {
    for (std::size_t slot = 1; slot < drivers_.size(); ++slot)
        drivers_[slot].Attach(drivers_[kRoot].ReadObject(kSubObjects[slot - 1]));
}

void HostLink::Release() {
    // The tenth sub-object is left alone on purpose: it goes with this object.
    for (std::size_t slot = 1; slot <= 9; ++slot)
        drivers_[slot].Release();
    drivers_[kRoot].Release();
}

std::string HostLink::GetModelFilePath() {
    HostString path;
    drivers_[kRoot].Run(kGetModelFilePath, {path.ByReference(), FlagArgument(1)});
    return path.NarrowText();
}

void HostLink::PostConnectCall() {
    drivers_[kRoot].Call(kPostConnectCall);
}

std::int32_t HostLink::GetBaseUnitSystem() {
    return drivers_[kRoot].Call(kGetBaseUnitSystem).Integer();
}

std::int32_t HostLink::GetNodeCount() {
    return drivers_[kGeometry].Call(kGetNodeCount).Integer();
}

void HostLink::GetNodeList(std::span<std::int32_t> numbers) {
    GetNumbers(drivers_[kGeometry], kGetNodeList, numbers);
}

void HostLink::GetNodeCoordinates(std::int32_t node, double& x, double& y, double& z) {
    drivers_[kGeometry].Run(kGetNodeCoordinates, {NumberArgument(node), OutputArgument(x),
                                                  OutputArgument(y), OutputArgument(z)});
}

std::int32_t HostLink::GetMemberCount() {
    return drivers_[kGeometry].Call(kGetMemberCount).Integer();
}

void HostLink::GetMemberList(std::span<std::int32_t> numbers) {
    GetNumbers(drivers_[kGeometry], kGetMemberList, numbers);
}

void HostLink::GetMemberIncidence(std::int32_t member, std::int32_t& startNode,
                                  std::int32_t& endNode) {
    LONG start = startNode;
    LONG end = endNode;
    drivers_[kGeometry].Call(kGetMemberIncidence,
                             {NumberArgument(member), OutputArgument(start), OutputArgument(end)});
    startNode = start;
    endNode = end;
}

bool HostLink::IsZUp() {
    return drivers_[kGeometry].Call(kIsZUp).Truth();
}

double HostLink::GetMemberRotationAngle(std::int32_t member) {
    const HostResult angle =
        drivers_[kMemberProperty].Call(kGetMemberRotationAngle, {NumberArgument(member)});
    return static_cast<double>(angle.Single());
}

std::int32_t HostLink::GetSupportInfo(std::int32_t node, SixIntegers& codes, SixDoubles& values) {
    HostArray codeArray(VT_I4, codes.size());
    HostArray valueArray(VT_R8, values.size());
    const HostResult supported = drivers_[kSupport].Call(
        kGetSupportInfo, {NumberArgument(node), codeArray.ByReference(), valueArray.ByReference()});
    codeArray.CopyOut(codes);
    valueArray.CopyOut(values);
    return supported.Integer();
}

std::int32_t HostLink::GetPrimaryLoadCaseCount() {
    return drivers_[kLoad].Call(kGetPrimaryLoadCaseCount).Integer();
}

std::int32_t HostLink::GetLoadCombinationCount() {
    return drivers_[kLoad].Call(kGetLoadCombinationCount).Integer();
}

std::int16_t HostLink::GetPrimaryLoadCaseNumbers(std::span<std::int32_t> numbers) {
    return GetLoadNumbers(kGetPrimaryLoadCaseNumbers, numbers);
}

std::int16_t HostLink::GetLoadCombinationNumbers(std::span<std::int32_t> numbers) {
    return GetLoadNumbers(kGetLoadCombinationNumbers, numbers);
}

std::int16_t HostLink::GetLoadNumbers(const HostOperation& method,
                                      std::span<std::int32_t> numbers) {
    HostArray array(VT_I4, numbers.size());
    array.CopyIn(numbers);
    const HostResult result = drivers_[kLoad].Call(method, {array.ByReference()});
    array.CopyOut(numbers);
    // Intended: these two arrays, once per run and a few bytes each, are left standing.
    array.Abandon();
    return result.Short();
}

std::int16_t HostLink::GetNodeDisplacements(std::int32_t node, std::int32_t loadCase,
                                            SixDoubles& displacements) {
    displacements.fill(0.0);
    HostArray array(VT_R8, displacements.size());
    const HostResult result = drivers_[kResults].Call(
        kGetNodeDisplacements,
        {NumberArgument(node), NumberArgument(loadCase), array.ByReference()});
    array.CopyOut(displacements);
    return result.Short();
}

std::int16_t HostLink::GetMemberEndForces(std::int32_t member, std::int32_t end,
                                          std::int32_t loadCase, SixDoubles& forces) {
    forces.fill(0.0);
    HostArray array(VT_R8, forces.size());
    const HostResult result = drivers_[kResults].Call(
        kGetMemberEndForces, {NumberArgument(member), NumberArgument(end), NumberArgument(loadCase),
                              array.ByReference(), NumberArgument(0)});
    array.CopyOut(forces);
    return result.Short();
}

bool HostLink::AreResultsAvailable() {
    return drivers_[kResults].Call(kAreResultsAvailable).Truth();
}
