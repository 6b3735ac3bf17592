#include "samplehost/busy_spell.h"

HRESULT BusySpell::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IMessageFilter) return E_NOINTERFACE;
    *object = static_cast<IMessageFilter*>(this);
    AddRef();
    return S_OK;
}

ULONG BusySpell::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG BusySpell::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

DWORD BusySpell::HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) {
    const Clock::time_point now = Clock::now();
    if (!begin_) begin_ = now;
    // The other way to say it, "retry later", is taken for an acceptance by Wine.
    return now - *begin_ < duration_ ? SERVERCALL_REJECTED : SERVERCALL_ISHANDLED;
}

DWORD BusySpell::RetryRejectedCall(HTASK, DWORD, DWORD) {
    return static_cast<DWORD>(-1);
}

DWORD BusySpell::MessagePending(HTASK, DWORD, DWORD) {
    return PENDINGMSG_WAITDEFPROCESS;
}

void BeBusyFor(BusySpell::Duration duration) {
    auto* const spell = new BusySpell(duration);
    CoRegisterMessageFilter(spell, nullptr);
    spell->Release();  // COM holds it from here on
}
