#include "host/busy_host_filter.h"

#include <utility>

#include "host/rejected_call.h"

namespace {

constexpr DWORD kLongestMs = 60000;
constexpr DWORD kPauseMs = 200;

}  // namespace

std::optional<DWORD> BusyHostPatience::PauseBeforeRetry(DWORD elapsedMs) {
    // Nobody says when a call begins: one that is younger than the one rejected last is another.
    // One that is taken for the same though it is another only waits a little at its first
    // rejection.
    const bool isFirst = !lastRejection_ || elapsedMs < *lastRejection_;
    lastRejection_ = elapsedMs;
    if (elapsedMs >= kLongestMs) return std::nullopt;
    return isFirst ? 0 : kPauseMs;
}

HRESULT BusyHostFilter::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IMessageFilter) return E_NOINTERFACE;
    *object = static_cast<IMessageFilter*>(this);
    AddRef();
    return S_OK;
}

ULONG BusyHostFilter::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG BusyHostFilter::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

DWORD BusyHostFilter::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) {
    return SERVERCALL_ISHANDLED;
}

DWORD BusyHostFilter::RetryRejectedCall(HTASK, DWORD elapsedMs, DWORD) {
    const std::optional<DWORD> pause = patience_.PauseBeforeRetry(elapsedMs);
    if (!pause) return kGiveUp;
    if (hook_ && !hook_()) return kGiveUp;
    return *pause;
}

DWORD BusyHostFilter::MessagePending(HTASK, DWORD, DWORD) {
    return PENDINGMSG_WAITDEFPROCESS;
}

RegisteredBusyHostFilter::RegisteredBusyHostFilter(BusyHook hook) {
    auto* const filter = new BusyHostFilter(std::move(hook));
    isRegistered_ = SUCCEEDED(CoRegisterMessageFilter(filter, &before_));
    filter->Release();  // COM holds it from here on
}

RegisteredBusyHostFilter::~RegisteredBusyHostFilter() {
    if (!isRegistered_) return;
    IMessageFilter* own = nullptr;
    CoRegisterMessageFilter(before_, &own);
    if (own != nullptr) own->Release();
    if (before_ != nullptr) before_->Release();
}
