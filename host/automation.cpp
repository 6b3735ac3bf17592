#include "host/automation.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <new>
#include <utility>
#include <vector>

#include "host/rejected_call.h"
#include "platform/narrow_text.h"

namespace {

constexpr UINT kNoArgument = static_cast<UINT>(-1);

// An EXCEPINFO whose strings, allocated by the host, are freed here.
struct OwnedExceptionInfo {
    EXCEPINFO info{};

    OwnedExceptionInfo() = default;
    OwnedExceptionInfo(const OwnedExceptionInfo&) = delete;
    OwnedExceptionInfo& operator=(const OwnedExceptionInfo&) = delete;
    ~OwnedExceptionInfo() {
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        SysFreeString(info.bstrHelpFile);
    }
};

HostException ReadException(EXCEPINFO& info) {
    // A host may leave the texts out until somebody asks for them.
    if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
    return {.code = info.wCode,
            .status = static_cast<std::int32_t>(info.scode),
            .source = NarrowText(info.bstrSource),
            .description = NarrowText(info.bstrDescription),
            .helpFile = NarrowText(info.bstrHelpFile),
            .helpContext = info.dwHelpContext};
}

std::string StatusText(HRESULT status) {
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "%08lX", static_cast<unsigned long>(status));
    return "status " + std::string(code.data()) + ", " +
           NarrowText(_com_error(status).ErrorMessage());
}

// "GetNodeDisplacements(12, 3)": the numbers that went in say which of many calls it was.
std::string CallText(const HostOperation& member, std::initializer_list<VARIANT> arguments) {
    std::string numbers;
    for (const VARIANT& argument : arguments) {
        if (V_VT(&argument) != VT_I4) continue;
        if (!numbers.empty()) numbers += ", ";
        numbers += std::to_string(V_I4(&argument));
    }
    return std::string(member.name) + "(" + numbers + ")";
}

std::string ExceptionText(const HostException& exception) {
    std::string text = "the host reports: ";
    if (!exception.description.empty()) {
        text += exception.description;
    } else if (exception.code != 0) {
        text += "error " + std::to_string(exception.code);
    } else {
        text += StatusText(exception.status);
    }
    if (!exception.source.empty()) text += " (" + exception.source + ")";
    return text;
}

void ThrowIfFailed(HRESULT status, const char* what) {
    if (FAILED(status)) throw AutomationError(status, what + (": " + StatusText(status)));
}

// The element type that an array's feature flags tell.
VARTYPE ElementType(SAFEARRAY* array) {
    if ((array->fFeatures & FADF_BSTR) != 0) return VT_BSTR;
    if ((array->fFeatures & FADF_UNKNOWN) != 0) return VT_UNKNOWN;
    if ((array->fFeatures & FADF_DISPATCH) != 0) return VT_DISPATCH;
    if ((array->fFeatures & FADF_VARIANT) != 0) return VT_VARIANT;
    if ((array->fFeatures & FADF_RECORD) != 0) return VT_RECORD;
    VARTYPE type = VT_EMPTY;
    if ((array->fFeatures & FADF_HAVEVARTYPE) != 0) SafeArrayGetVartype(array, &type);
    return type;
}

// Whatever the host has put in place of our array, an element must fit where it is copied to, and
// must not be a copy that somebody has to free.
bool HoldsPlainElements(SAFEARRAY* array, std::size_t size) {
    constexpr USHORT kOwning =
        FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT | FADF_RECORD;
    return SafeArrayGetDim(array) == 1 && SafeArrayGetElemsize(array) == size &&
           (array->fFeatures & kOwning) == 0;
}

template <typename Value>
void CopyElements(SAFEARRAY* array, std::span<Value> values) {
    if (values.empty()) return;
    if (array != nullptr && !HoldsPlainElements(array, sizeof(Value)))
        ThrowIfFailed(DISP_E_TYPEMISMATCH, "an array of the host's has other elements");
    LONG index = 0;
    for (Value& value : values) {
        ThrowIfFailed(SafeArrayGetElement(array, &index, &value), "an element of the host's array");
        ++index;
    }
}

// Only these two say which argument they mean; what stands in its place after any other failure,
// and hosts in other processes always put a 0 there, means nothing.
bool NamesAnArgument(HRESULT status) {
    return status == DISP_E_TYPEMISMATCH || status == DISP_E_PARAMNOTFOUND;
}

}  // namespace

VARIANT NumberArgument(std::int32_t value) noexcept {
    VARIANT argument;
    VariantInit(&argument);
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = value;
    return argument;
}

VARIANT OutputArgument(LONG& value) noexcept {
    VARIANT argument;
    VariantInit(&argument);
    V_VT(&argument) = VT_BYREF | VT_I4;
    V_I4REF(&argument) = &value;
    return argument;
}

VARIANT OutputArgument(double& value) noexcept {
    VARIANT argument;
    VariantInit(&argument);
    V_VT(&argument) = VT_BYREF | VT_R8;
    V_R8REF(&argument) = &value;
    return argument;
}

VARIANT FlagArgument(std::int16_t value) noexcept {
    VARIANT argument;
    VariantInit(&argument);
    V_VT(&argument) = VT_BOOL;
    V_BOOL(&argument) = value;
    return argument;
}

HostString::HostString() : text_(SysAllocString(L"")) {
    if (text_ == nullptr) throw std::bad_alloc();
}

HostString::~HostString() {
    SysFreeString(text_);
}

VARIANT HostString::ByReference() noexcept {
    VARIANT argument;
    VariantInit(&argument);
    V_VT(&argument) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&argument) = &text_;
    return argument;
}

std::string HostString::NarrowText() const {
    return ::NarrowText(text_);
}

HostArray::HostArray(VARTYPE elementType, std::size_t count) {
    Create(elementType, count);
}

HostArray::~HostArray() {
    Destroy();
}

void HostArray::Create(VARTYPE elementType, std::size_t count) {
    ThrowIfFailed(Destroy(), "an array lent to the host cannot be taken back");
    // Larger ones are created too small: their bytes are counted in 32 bits. A VARIANT is the
    // largest element there is.
    constexpr std::size_t kMostElements = static_cast<std::size_t>(LONG_MAX) / sizeof(VARIANT);
    if (count > kMostElements) throw std::bad_alloc();
    array_ = SafeArrayCreateVector(elementType, 0, static_cast<ULONG>(count));
    if (array_ == nullptr) throw std::bad_alloc();
    array_->fFeatures |= FADF_HAVEVARTYPE;
}

HRESULT HostArray::Destroy() noexcept {
    if (array_ == nullptr) return S_OK;
    const HRESULT status = SafeArrayDestroy(array_);
    if (SUCCEEDED(status)) array_ = nullptr;
    return status;
}

VARIANT HostArray::ByReference() noexcept {
    VARIANT argument;
    VariantInit(&argument);
    V_VT(&argument) = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | ElementType(array_));
    V_ARRAYREF(&argument) = &array_;
    return argument;
}

void HostArray::CopyIn(std::span<const std::int32_t> values) {
    void* memory = nullptr;
    ThrowIfFailed(SafeArrayAccessData(array_, &memory), "an array for the host");
    if (!values.empty()) std::memcpy(memory, values.data(), values.size_bytes());
    ThrowIfFailed(SafeArrayUnaccessData(array_), "an array for the host");
}

void HostArray::CopyOut(std::span<std::int32_t> values) const {
    CopyElements(array_, values);
}

void HostArray::CopyOut(std::span<double> values) const {
    CopyElements(array_, values);
}

void AutomationDriver::Attach(IDispatch* dispatch) noexcept {
    // Unlike ComPtr::Attach of some headers, this adds no reference anywhere.
    *dispatch_.ReleaseAndGetAddressOf() = dispatch;
}

HostResult AutomationDriver::Call(const HostOperation& method,
                                  std::initializer_list<VARIANT> arguments) const {
    HostResult result;
    Invoke(method, DISPATCH_METHOD, arguments, result.Receive());
    return result;
}

void AutomationDriver::Run(const HostOperation& method,
                           std::initializer_list<VARIANT> arguments) const {
    Invoke(method, DISPATCH_METHOD, arguments, nullptr);
}

IDispatch* AutomationDriver::ReadObject(const HostOperation& property) const {
    HostResult value;
    Invoke(property, DISPATCH_PROPERTYGET, {}, value.Receive());
    VARIANT& object = *value.Receive();
    if (V_VT(&object) != VT_DISPATCH) {
        const HRESULT status = VariantChangeType(&object, &object, 0, VT_DISPATCH);
        if (FAILED(status)) {
            throw AutomationError(status, std::string(property.name) +
                                              ": the host answers with something that is no "
                                              "automation object: " +
                                              StatusText(status));
        }
    }
    return std::exchange(V_DISPATCH(&object), nullptr);
}

void AutomationDriver::Invoke(const HostOperation& member, WORD kind,
                              std::initializer_list<VARIANT> arguments, VARIANT* result) const {
    const auto what = [&] { return CallText(member, arguments) + ": "; };
    if (dispatch_ == nullptr) throw AutomationError(E_POINTER, what() + "no host object to ask");

    // Invoke takes the last argument first.
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    DISPPARAMS parameters{reversed.empty() ? nullptr : reversed.data(), nullptr,
                          static_cast<UINT>(reversed.size()), 0};
    OwnedExceptionInfo exception;
    UINT wrongArgument = kNoArgument;
    const HRESULT status = CallUntilAccepted([&] {
        return dispatch_->Invoke(member.id, IID_NULL, 0, kind, &parameters, result, &exception.info,
                                 &wrongArgument);
    });
    if (SUCCEEDED(status)) return;

    if (status == DISP_E_EXCEPTION) {
        HostException account = ReadException(exception.info);
        const std::string text = what() + ExceptionText(account);
        throw AutomationError(status, text, std::move(account));
    }
    std::string text = what() + StatusText(status);
    if (NamesAnArgument(status) && wrongArgument < reversed.size())
        text += " (argument " + std::to_string(reversed.size() - wrongArgument) + ")";
    throw AutomationError(status, text);
}
