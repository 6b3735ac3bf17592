// Calls that a busy host rejects.

#include "host/busy_host_filter.h"

#include <gtest/gtest.h>

#include "host/automation.h"
#include "host/rejected_call.h"
#include "tests/support/com_apartment.h"
#include "tests/support/fake_dispatch.h"

namespace {

// A call that is rejected so many times and then answered.
class RejectedCalls {
public:
    explicit RejectedCalls(int rejections) : rejections_(rejections) {}

    HRESULT Call() { return ++calls <= rejections_ ? RPC_E_CALL_REJECTED : S_OK; }

    int calls = 0;

private:
    int rejections_;
};

constexpr DWORD kCallFails = static_cast<DWORD>(-1);

}  // namespace

TEST(BusyHostPatience, MakesTheCallAgainAtOnceAtItsFirstRejection) {
    BusyHostPatience patience;
    EXPECT_EQ(0u, patience.PauseBeforeRetry(0));
}

TEST(BusyHostPatience, ThenWaitsAFifthOfASecondEachTime) {
    BusyHostPatience patience;
    patience.PauseBeforeRetry(0);
    EXPECT_EQ(200u, patience.PauseBeforeRetry(1));
    EXPECT_EQ(200u, patience.PauseBeforeRetry(201));
    EXPECT_EQ(200u, patience.PauseBeforeRetry(59999));
}

TEST(BusyHostPatience, EndsAfterAMinute) {
    BusyHostPatience patience;
    patience.PauseBeforeRetry(59999);
    EXPECT_EQ(std::nullopt, patience.PauseBeforeRetry(60000));
}

TEST(BusyHostPatience, BeginsAnewWithTheNextCall) {
    BusyHostPatience patience;
    patience.PauseBeforeRetry(0);
    patience.PauseBeforeRetry(60000);
    EXPECT_EQ(0u, patience.PauseBeforeRetry(15));
    EXPECT_EQ(200u, patience.PauseBeforeRetry(16));
}

TEST(BusyHostFilter, TellsItsHookOfEachRejection) {
    int told = 0;
    Microsoft::WRL::ComPtr<BusyHostFilter> filter;
    *filter.GetAddressOf() = new BusyHostFilter([&told] { return ++told > 0; });
    EXPECT_EQ(0u, filter->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED));
    EXPECT_EQ(200u, filter->RetryRejectedCall(nullptr, 1, SERVERCALL_RETRYLATER));
    EXPECT_EQ(2, told);
}

TEST(BusyHostFilter, GivesUpWhenItsHookSaysSo) {
    Microsoft::WRL::ComPtr<BusyHostFilter> filter;
    *filter.GetAddressOf() = new BusyHostFilter([] { return false; });
    EXPECT_EQ(kCallFails, filter->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED));
}

TEST(BusyHostFilter, TakesCallsAndWaitsAsComDoesWithoutAFilter) {
    Microsoft::WRL::ComPtr<BusyHostFilter> filter;
    *filter.GetAddressOf() = new BusyHostFilter({});
    EXPECT_EQ(static_cast<DWORD>(SERVERCALL_ISHANDLED),
              filter->HandleInComingCall(CALLTYPE_TOPLEVEL, nullptr, 0, nullptr));
    EXPECT_EQ(static_cast<DWORD>(PENDINGMSG_WAITDEFPROCESS),
              filter->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL));
}

TEST(RejectedCall, FailsAtOnceWithoutAFilter) {
    const ComApartment com;
    RejectedCalls host(1);
    EXPECT_EQ(RPC_E_CALL_REJECTED, CallUntilAccepted([&] { return host.Call(); }));
    EXPECT_EQ(1, host.calls);
}

TEST(RejectedCall, IsMadeAgainUntilTheHostTakesIt) {
    const ComApartment com;
    const RegisteredBusyHostFilter filter({});
    RejectedCalls host(3);
    EXPECT_EQ(S_OK, CallUntilAccepted([&] { return host.Call(); }));
    EXPECT_EQ(4, host.calls);
}

TEST(RejectedCall, FailsAsBeforeWhenTheHookGivesUp) {
    const ComApartment com;
    int told = 0;
    const RegisteredBusyHostFilter filter([&told] { return ++told < 2; });
    RejectedCalls host(100);
    EXPECT_EQ(RPC_E_CALL_REJECTED, CallUntilAccepted([&] { return host.Call(); }));
    EXPECT_EQ(2, host.calls);
}

TEST(RejectedCall, FailsAtOnceAfterTheFilterHasGone) {
    const ComApartment com;
    { const RegisteredBusyHostFilter filter({}); }
    RejectedCalls host(1);
    EXPECT_EQ(RPC_E_CALL_REJECTED, CallUntilAccepted([&] { return host.Call(); }));
}

TEST(RejectedCall, ThatFailsForAnotherReasonIsNotMadeAgain) {
    const ComApartment com;
    const RegisteredBusyHostFilter filter({});
    int calls = 0;
    EXPECT_EQ(E_FAIL, CallUntilAccepted([&] { return ++calls, E_FAIL; }));
    EXPECT_EQ(1, calls);
}
