#include "samplehost/automation_object.h"

#include <cstring>
#include <new>

#include "platform/narrow_text.h"

namespace {

template <typename Value>
void FillArray(SAFEARRAY* array, VARTYPE elementType, UINT argument,
               std::span<const Value> values) {
    VARTYPE type = VT_EMPTY;
    LONG first = -1;
    LONG last = -2;
    if (array == nullptr || SafeArrayGetDim(array) != 1)
        throw RefusedArgument{argument, E_INVALIDARG};
    SafeArrayGetVartype(array, &type);
    SafeArrayGetLBound(array, 1, &first);
    SafeArrayGetUBound(array, 1, &last);
    if (type != elementType) throw RefusedArgument{argument, DISP_E_TYPEMISMATCH};
    if (first != 0 || last + 1 != static_cast<LONG>(values.size()))
        throw RefusedArgument{argument, DISP_E_BADINDEX};

    void* memory = nullptr;
    const HRESULT status = SafeArrayAccessData(array, &memory);
    if (FAILED(status)) throw RefusedArgument{argument, status};
    if (!values.empty()) std::memcpy(memory, values.data(), values.size_bytes());
    SafeArrayUnaccessData(array);
}

// Fails a call with an exception of this program's own.
HRESULT ReportException(EXCEPINFO* exception, const HostCallError& error) {
    if (exception == nullptr) return error.Status();
    *exception = {};
    exception->scode = error.Status();
    exception->bstrSource = SysAllocString(L"SampleHost");
    exception->bstrDescription = SysAllocString(WideText(error.what()).c_str());
    return DISP_E_EXCEPTION;
}

// The number, from 1, of the first argument of another type than declared; 0 when all are right.
UINT FirstWrongArgument(const DISPPARAMS& parameters, const std::vector<VARTYPE>& declared) {
    for (UINT number = 1; number <= parameters.cArgs; ++number) {
        const VARIANT& argument = parameters.rgvarg[parameters.cArgs - number];
        if (V_VT(&argument) != declared[number - 1]) return number;
        if ((V_VT(&argument) & VT_BYREF) != 0 && V_BYREF(&argument) == nullptr) return number;
    }
    return 0;
}

HRESULT ReportArgument(const DISPPARAMS& parameters, const RefusedArgument& refused,
                       UINT* wrongArgument) {
    // Callers count from the last argument.
    if (wrongArgument != nullptr) *wrongArgument = parameters.cArgs - refused.number;
    return refused.status;
}

}  // namespace

void ServedCall::PutText(UINT argument, const wchar_t* text) const {
    BSTR& target = *V_BSTRREF(&Argument(argument));
    SysFreeString(target);
    target = SysAllocString(text);
    if (text != nullptr && target == nullptr) throw std::bad_alloc();
}

void ServedCall::PutArray(UINT argument, std::span<const std::int32_t> values) const {
    FillArray(*V_ARRAYREF(&Argument(argument)), VT_I4, argument, values);
}

void ServedCall::PutArray(UINT argument, std::span<const double> values) const {
    FillArray(*V_ARRAYREF(&Argument(argument)), VT_R8, argument, values);
}

void ServedCall::AnswerInteger(std::int32_t value) const {
    if (result_ == nullptr) return;
    V_VT(result_) = VT_I4;
    V_I4(result_) = value;
}

void ServedCall::AnswerFlag(bool value) const {
    if (result_ == nullptr) return;
    V_VT(result_) = VT_BOOL;
    V_BOOL(result_) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void ServedCall::AnswerSingle(float value) const {
    if (result_ == nullptr) return;
    V_VT(result_) = VT_R4;
    V_R4(result_) = value;
}

void AutomationObject::AddMethod(const HostOperation& method, std::vector<VARTYPE> arguments,
                                 Answer answer) {
    methods_[method.id] = {method.name, std::move(arguments), std::move(answer)};
}

void AutomationObject::AddProperty(const HostOperation& property,
                                   Microsoft::WRL::ComPtr<IDispatch> object) {
    properties_[property.id] = {property.name, std::move(object)};
}

HRESULT AutomationObject::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG AutomationObject::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG AutomationObject::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT AutomationObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT AutomationObject::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return DISP_E_BADINDEX;
}

HRESULT AutomationObject::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

HRESULT AutomationObject::Invoke(DISPID id, REFIID interfaceId, LCID, WORD flags,
                                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                 UINT* wrongArgument) {
    if (interfaceId != IID_NULL) return Refuse(DISP_E_UNKNOWNINTERFACE);
    if (parameters == nullptr) return Refuse(E_POINTER);
    if (parameters->cNamedArgs != 0) return Refuse(DISP_E_NONAMEDARGS);
    const auto method = methods_.find(id);
    if (flags == DISPATCH_METHOD && method != methods_.end())
        return CallMethod(method->second, *parameters, result, exception, wrongArgument);
    const auto property = properties_.find(id);
    if (flags == DISPATCH_PROPERTYGET && property != properties_.end())
        return ReadProperty(property->second, *parameters, result);
    return Refuse(DISP_E_MEMBERNOTFOUND);
}

HRESULT AutomationObject::Refuse(HRESULT status) const {
    meter_->Refused();
    return status;
}

HRESULT AutomationObject::CallMethod(const Method& method, const DISPPARAMS& parameters,
                                     VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) const {
    if (parameters.cArgs != method.arguments.size()) return Refuse(DISP_E_BADPARAMCOUNT);
    const UINT wrong = FirstWrongArgument(parameters, method.arguments);
    if (wrong != 0)
        return Refuse(ReportArgument(parameters, {wrong, DISP_E_TYPEMISMATCH}, wrongArgument));
    try {
        method.answer(ServedCall(parameters, result));
    } catch (const RefusedArgument& refused) {
        return Refuse(ReportArgument(parameters, refused, wrongArgument));
    } catch (const HostCallError& error) {
        meter_->Answered(method.name);
        return ReportException(exception, error);
    } catch (const std::bad_alloc&) {
        return Refuse(E_OUTOFMEMORY);
    }
    meter_->Answered(method.name);
    return S_OK;
}

HRESULT AutomationObject::ReadProperty(const Property& property, const DISPPARAMS& parameters,
                                       VARIANT* result) const {
    if (parameters.cArgs != 0) return Refuse(DISP_E_BADPARAMCOUNT);
    if (result == nullptr) return Refuse(E_POINTER);
    meter_->Answered(property.name);
    V_VT(result) = VT_DISPATCH;
    property.object.CopyTo(&V_DISPATCH(result));
    return S_OK;
}
