#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// A call while it is being answered. Arguments are counted from 1 in the order of the host's
/// declaration.
class FakeCall {
public:
    FakeCall(DISPID id, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
             UINT* wrongArgument)
        : id_(id),
          parameters_(parameters),
          result_(result),
          exception_(exception),
          wrongArgument_(wrongArgument) {}

    DISPID Id() const { return id_; }
    UINT ArgumentCount() const { return parameters_.cArgs; }
    VARIANT& argument(UINT number) { return parameters_.rgvarg[parameters_.cArgs - number]; }

    double& doubleOutput(UINT number) { return *V_R8REF(&argument(number)); }
    LONG& integerOutput(UINT number) { return *V_I4REF(&argument(number)); }
    BSTR& stringOutput(UINT number) { return *V_BSTRREF(&argument(number)); }
    SAFEARRAY*& arrayOutput(UINT number) { return *V_ARRAYREF(&argument(number)); }

    /// Null when the caller asks for no result.
    VARIANT* result() { return result_; }

    HRESULT AnswerInteger(std::int32_t value) {
        V_VT(result_) = VT_I4;
        V_I4(result_) = value;
        return S_OK;
    }

    HRESULT AnswerFlag(std::int16_t value) {
        V_VT(result_) = VT_BOOL;
        V_BOOL(result_) = value;
        return S_OK;
    }

    HRESULT AnswerSingle(float value) {
        V_VT(result_) = VT_R4;
        V_R4(result_) = value;
        return S_OK;
    }

    /// The host's own exception; the caller gets the strings and frees them.
    HRESULT FailWithException(const wchar_t* source, const wchar_t* description, SCODE status) {
        exception_->bstrSource = SysAllocString(source);
        exception_->bstrDescription = SysAllocString(description);
        exception_->scode = status;
        return DISP_E_EXCEPTION;
    }

    EXCEPINFO& exception() { return *exception_; }

    /// Refuses the type of one argument.
    HRESULT RefuseArgument(UINT number) {
        *wrongArgument_ = parameters_.cArgs - number;
        return DISP_E_TYPEMISMATCH;
    }

private:
    DISPID id_;
    DISPPARAMS& parameters_;
    VARIANT* result_;
    EXCEPINFO* exception_;
    UINT* wrongArgument_;
};

/// What arrived with one call: everything a host could look at.
struct ArrivedCall {
    DISPID id = 0;
    WORD kind = 0;
    bool nullInterfaceId = false;
    LCID locale = 0;
    UINT namedArguments = 0;
    bool resultAsked = false;
    std::vector<VARTYPE> types{};  ///< of the arguments, in the order of the host's declaration
    std::vector<std::int32_t> numbers{};  ///< of the VT_I4 and VT_BOOL arguments, in order
    std::vector<std::wstring> texts{};    ///< of the strings by reference, in order
    std::vector<std::vector<std::int32_t>> integerArrays{};  ///< contents at the call
    std::vector<std::vector<double>> doubleArrays{};         ///< contents at the call
    std::vector<USHORT> arrayFeatures{};
};

/// An automation object of a test: counts references, records every call and answers as told.
/// Lives on the test's stack; its count starts at 0.
class FakeDispatch : public IDispatch {
public:
    using Answer = std::function<HRESULT(FakeCall&)>;

    /// Answers every call; without it every call succeeds and leaves the result empty.
    Answer answer;

    /// False: the object has no automation interface.
    bool offersAutomation = true;

    long references = 0;
    int releasesSeen = 0;
    std::vector<ArrivedCall> calls;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != IID_IUnknown && !(id == IID_IDispatch && offersAutomation)) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override {
        ++releasesSeen;
        if (onRelease) onRelease();
        return static_cast<ULONG>(--references);
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override {
        ArrivedCall arrived{.id = id,
                            .kind = kind,
                            .nullInterfaceId = interfaceId == IID_NULL,
                            .locale = locale,
                            .namedArguments = parameters->cNamedArgs,
                            .resultAsked = result != nullptr};
        for (UINT i = parameters->cArgs; i > 0; --i)
            Record(parameters->rgvarg[i - 1], arrived);
        calls.push_back(arrived);
        FakeCall call(id, *parameters, result, exception, wrongArgument);
        return answer ? answer(call) : S_OK;
    }

    /// Called at every release, before the count goes down.
    std::function<void()> onRelease;

private:
    template <typename Value>
    static std::vector<Value> Contents(SAFEARRAY* array) {
        LONG last = -1;
        SafeArrayGetUBound(array, 1, &last);
        std::vector<Value> values(static_cast<std::size_t>(last + 1));
        for (LONG i = 0; i <= last; ++i)
            SafeArrayGetElement(array, &i, &values[static_cast<std::size_t>(i)]);
        return values;
    }

    static void Record(VARIANT& argument, ArrivedCall& arrived) {
        arrived.types.push_back(V_VT(&argument));
        switch (V_VT(&argument)) {
            case VT_I4:
                arrived.numbers.push_back(V_I4(&argument));
                break;
            case VT_BOOL:
                arrived.numbers.push_back(V_BOOL(&argument));
                break;
            case VT_BYREF | VT_BSTR:
                RecordText(*V_BSTRREF(&argument), arrived);
                break;
            case VT_BYREF | VT_ARRAY | VT_I4:
                arrived.arrayFeatures.push_back((*V_ARRAYREF(&argument))->fFeatures);
                arrived.integerArrays.push_back(Contents<std::int32_t>(*V_ARRAYREF(&argument)));
                break;
            case VT_BYREF | VT_ARRAY | VT_R8:
                arrived.arrayFeatures.push_back((*V_ARRAYREF(&argument))->fFeatures);
                arrived.doubleArrays.push_back(Contents<double>(*V_ARRAYREF(&argument)));
                break;
            default:
                break;
        }
    }

    static void RecordText(BSTR text, ArrivedCall& arrived) {
        arrived.texts.emplace_back(text == nullptr ? L"(null)" : text);
    }
};
