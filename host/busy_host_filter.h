#pragma once

#include <objidl.h>

#include <functional>
#include <optional>

/// How long calls that the host rejects are made again: at once, then every 200 ms, until 60 s
/// after the call was made first.
class BusyHostPatience {
public:
    /// The pause before a call is made again that was rejected `elapsedMs` after it was made first;
    /// nothing when it is not to be made again.
    std::optional<DWORD> PauseBeforeRetry(DWORD elapsedMs);

private:
    std::optional<DWORD> lastRejection_;  ///< elapsed time of the call rejected last
};

/// Is told that the host has rejected a call which is to be made again. False gives the call up: it
/// fails as rejected. Called on the thread of the call.
using BusyHook = std::function<bool()>;

/// COM's message filter for a thread that calls the host. A host that shows a dialog or
/// recalculates rejects calls; without a filter the first rejection fails the call.
///
/// Everything else stays as COM does it without a filter.
class BusyHostFilter : public IMessageFilter {
public:
    /// `hook` may be empty.
    explicit BusyHostFilter(BusyHook hook) : hook_(std::move(hook)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD callType, HTASK caller, DWORD elapsedMs,
                                               LPINTERFACEINFO call) override;

    /// Milliseconds until the call is made again, below 100 at once; -1 when it fails.
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK host, DWORD elapsedMs,
                                              DWORD rejection) override;

    DWORD STDMETHODCALLTYPE MessagePending(HTASK host, DWORD elapsedMs, DWORD pending) override;

private:
    virtual ~BusyHostFilter() = default;

    LONG references_ = 1;
    BusyHook hook_;
    BusyHostPatience patience_;
};

/// A filter as the one of the thread that makes this; the one before comes back when it goes, which
/// must be on the same thread. COM must be initialised as a single-threaded apartment; where it is
/// not, calls that are rejected fail as without a filter.
class RegisteredBusyHostFilter {
public:
    explicit RegisteredBusyHostFilter(BusyHook hook);
    ~RegisteredBusyHostFilter();
    RegisteredBusyHostFilter(const RegisteredBusyHostFilter&) = delete;
    RegisteredBusyHostFilter& operator=(const RegisteredBusyHostFilter&) = delete;

private:
    bool isRegistered_ = false;
    IMessageFilter* before_ = nullptr;
};
