#pragma once

#include <oaidl.h>
#include <wrl/client.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "host/automation.h"
#include "samplehost/call_meter.h"

/// An argument that a served method does not take: the call fails with `status` and tells the
/// caller which argument it was.
struct RefusedArgument {
    UINT number;  ///< from 1, in the order of declaration
    HRESULT status;
};

/// A call while it is being answered. Arguments are counted from 1 in the order of declaration;
/// their types have been tested.
class ServedCall {
public:
    ServedCall(const DISPPARAMS& parameters, VARIANT* result)
        : parameters_(parameters), result_(result) {}

    std::int32_t Number(UINT argument) const { return V_I4(&Argument(argument)); }
    std::int16_t Flag(UINT argument) const { return V_BOOL(&Argument(argument)); }
    double& DoubleOutput(UINT argument) const { return *V_R8REF(&Argument(argument)); }
    LONG& IntegerOutput(UINT argument) const { return *V_I4REF(&Argument(argument)); }

    /// Replaces the string; null takes it away.
    void PutText(UINT argument, const wchar_t* text) const;

    /// Fills an array of exactly this many elements; refuses the argument when it has another
    /// size, lower bound or element type.
    void PutArray(UINT argument, std::span<const std::int32_t> values) const;
    void PutArray(UINT argument, std::span<const double> values) const;

    void AnswerInteger(std::int32_t value) const;
    void AnswerFlag(bool value) const;
    void AnswerSingle(float value) const;

private:
    VARIANT& Argument(UINT number) const { return parameters_.rgvarg[parameters_.cArgs - number]; }

    const DISPPARAMS& parameters_;
    VARIANT* result_;
};

/// An automation object that takes method calls and property reads by dispatch identifier, with
/// exactly the declared flags, number and types of arguments. Everything else fails: unknown
/// identifiers, a method read as a property, named arguments, other types.
///
/// Reference counted; starts with a count of 1. A HostCallError of an answer reaches the caller as
/// an exception with its text.
class AutomationObject : public IDispatch {
public:
    using Answer = std::function<void(const ServedCall&)>;

    explicit AutomationObject(std::shared_ptr<CallMeter> meter) : meter_(std::move(meter)) {}

    /// `arguments` are the types in the order of declaration.
    void AddMethod(const HostOperation& method, std::vector<VARTYPE> arguments, Answer answer);
    void AddProperty(const HostOperation& property, Microsoft::WRL::ComPtr<IDispatch> object);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

private:
    struct Method {
        const char* name = nullptr;
        std::vector<VARTYPE> arguments;
        Answer answer;
    };
    struct Property {
        const char* name = nullptr;
        Microsoft::WRL::ComPtr<IDispatch> object;
    };

    virtual ~AutomationObject() = default;

    HRESULT Refuse(HRESULT status) const;
    HRESULT CallMethod(const Method& method, const DISPPARAMS& parameters, VARIANT* result,
                       EXCEPINFO* exception, UINT* wrongArgument) const;
    HRESULT ReadProperty(const Property& property, const DISPPARAMS& parameters,
                         VARIANT* result) const;

    std::shared_ptr<CallMeter> meter_;
    std::map<DISPID, Method> methods_;
    std::map<DISPID, Property> properties_;
    LONG references_ = 1;
};
