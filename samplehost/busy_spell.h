#pragma once

#include <objidl.h>

#include <chrono>
#include <optional>

/// COM's message filter of a host that is busy: from the first call on it rejects every call for a
/// while, as a host XX
class BusySpell : public IMessageFilter {
public:
    using Duration = std::chrono::duration<double>;

    explicit BusySpell(Duration duration) : duration_(duration) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD callType, HTASK caller, DWORD elapsedMs,
                                               LPINTERFACEINFO call) override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK host, DWORD elapsedMs,
                                              DWORD rejection) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK host, DWORD elapsedMs, DWORD pending) override;

private:
    virtual ~BusySpell() = default;

    using Clock = std::chrono::steady_clock;

    LONG references_ = 1;
    Duration duration_;
    std::optional<Clock::time_point> begin_;
};

/// Lets the calls to objects of this thread be rejected for `duration`, from the first one on. For
/// the rest of the process.
void BeBusyFor(BusySpell::Duration duration);
