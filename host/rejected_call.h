#pragma once

#include <windows.h>

#include <functional>

/// A message filter's answer to a rejected call that COM takes for "the call fails".
inline constexpr DWORD kGiveUp = static_cast<DWORD>(-1);

/// Makes a call to the host, again and again as the thread's message filter says while the host
/// answers that it rejects the call; without a filter once. The call's last answer.
///
/// COM asks the filter itself when the host's own filter rejects a call. Hosts also give the
/// rejection as the answer of a call that they have taken, and Wine asks no filter at all.
HRESULT CallUntilAccepted(const std::function<HRESULT()>& call);
