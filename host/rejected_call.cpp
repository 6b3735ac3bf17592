#include "host/rejected_call.h"

#include <objidl.h>

namespace {

// From this answer of a message filter on, it is the pause in milliseconds before the call is made
// again; a smaller one means at once.
constexpr DWORD kShortestPauseMs = 100;

bool IsRejection(HRESULT status) {
    return status == RPC_E_CALL_REJECTED || status == RPC_E_SERVERCALL_RETRYLATER;
}

// What the thread's filter says to a call that was rejected `elapsedMs` after it was made first.
DWORD AskFilter(DWORD elapsedMs) {
    // There is no way to look at the filter but to take it away.
    IMessageFilter* filter = nullptr;
    if (FAILED(CoRegisterMessageFilter(nullptr, &filter)) || filter == nullptr) return kGiveUp;
    const DWORD answer = filter->RetryRejectedCall(nullptr, elapsedMs, SERVERCALL_RETRYLATER);
    CoRegisterMessageFilter(filter, nullptr);
    filter->Release();
    return answer;
}

// Waits as COM does: what is sent to the thread's windows is handled meanwhile.
void Wait(DWORD pauseMs) {
    HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD ignored = 0;
    CoWaitForMultipleHandles(0, pauseMs, 1, &never, &ignored);
    CloseHandle(never);
}

}  // namespace

HRESULT CallUntilAccepted(const std::function<HRESULT()>& call) {
    // The time that COM has spent on it already counts.
    const ULONGLONG begin = GetTickCount64();
    HRESULT status = call();
    while (IsRejection(status)) {
        const DWORD answer = AskFilter(static_cast<DWORD>(GetTickCount64() - begin));
        if (answer == kGiveUp) break;
        if (answer >= kShortestPauseMs) Wait(answer);
        status = call();
    }
    return status;
}
