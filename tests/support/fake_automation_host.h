#pragma once

#include <map>

#include "tests/support/fake_dispatch.h"

/// A host of eleven fake objects: the root hands out the ten others, by the identifiers of its
/// properties, and leaves its methods to `rootMethods`.
struct FakeAutomationHost {
    FakeDispatch root;
    std::map<DISPID, FakeDispatch> subObjects;  ///< by property of the root

    FakeDispatch& geometry = subObjects[1];
    FakeDispatch& memberProperty = subObjects[6];
    FakeDispatch& support = subObjects[9];
    FakeDispatch& load = subObjects[7];
    FakeDispatch& results = subObjects[5];

    /// Handed out last; the only one that HostLink::Release leaves bound.
    FakeDispatch& tenth = subObjects[41];

    FakeDispatch::Answer rootMethods;

    FakeAutomationHost() {
        for (const DISPID unused : {3, 4, 26, 8})
            subObjects[unused];
        root.answer = [this](FakeCall& call) { return AnswerAtRoot(call); };
    }
    FakeAutomationHost(const FakeAutomationHost&) = delete;
    FakeAutomationHost& operator=(const FakeAutomationHost&) = delete;

    /// References held to any of the eleven objects.
    long References() const {
        long sum = root.references;
        for (const auto& [property, object] : subObjects)
            sum += object.references;
        return sum;
    }

    /// Calls that reached any of the eleven objects.
    std::size_t Calls() const {
        std::size_t sum = root.calls.size();
        for (const auto& [property, object] : subObjects)
            sum += object.calls.size();
        return sum;
    }

    void ForgetCalls() {
        root.calls.clear();
        for (auto& [property, object] : subObjects)
            object.calls.clear();
    }

private:
    HRESULT AnswerAtRoot(FakeCall& call) {
        if (root.calls.back().kind != DISPATCH_PROPERTYGET)
            return rootMethods ? rootMethods(call) : S_OK;
        FakeDispatch& object = subObjects.at(call.Id());
        object.AddRef();
        V_VT(call.result()) = VT_DISPATCH;
        V_DISPATCH(call.result()) = &object;
        return S_OK;
    }
};
