#pragma once

#include <comdef.h>
#include <wrl/client.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>

#include "host/host_queries.h"

/// A method or property of an automation object. The host knows the identifier alone; the name is
/// for error texts.
struct HostOperation {
    const char* name;
    DISPID id;
};

/// What a host says about an exception of its own: the texts of its EXCEPINFO in the process's
/// narrow code page, empty where the host left them out.
struct HostException {
    std::uint16_t code = 0;   ///< the host's own error number, 0 when it gives `status` instead
    std::int32_t status = 0;  ///< the host's own status code (an HRESULT)
    std::string source;       ///< the program that failed
    std::string description;  ///< what went wrong, for people
    std::string helpFile;
    std::uint32_t helpContext = 0;
};

/// A failed automation call: Status() is what the call returned; when that was "exception
/// occurred", the host's own account comes with it.
class AutomationError : public HostCallError {
public:
    AutomationError(HRESULT status, const std::string& text,
                    std::optional<HostException> hostException = std::nullopt)
        : HostCallError(static_cast<std::int32_t>(status), text),
          hostException_(std::move(hostException)) {}

    const std::optional<HostException>& Exception() const noexcept { return hostException_; }

private:
    std::optional<HostException> hostException_;
};

// Arguments of a call. Outputs are passed by reference: the host writes straight into `value`,
// which must outlive the call.

VARIANT NumberArgument(std::int32_t value) noexcept;
VARIANT OutputArgument(LONG& value) noexcept;
VARIANT OutputArgument(double& value) noexcept;

/// A flag with exactly this 16-bit value; automation's own "true" would be -1.
VARIANT FlagArgument(std::int16_t value) noexcept;

/// A string for the host to replace. Owns whatever string is in it after the call.
class HostString {
public:
    /// Starts as an empty string. Throws std::bad_alloc when there is no memory for it.
    HostString();
    ~HostString();
    HostString(const HostString&) = delete;
    HostString& operator=(const HostString&) = delete;

    VARIANT ByReference() noexcept;

    /// The text in the process's narrow code page; empty when the host took the string away.
    std::string NarrowText() const;

private:
    BSTR text_;
};

/// A one-dimensional, zero-based SAFEARRAY for the host to fill or replace.
class HostArray {
public:
    /// Throws std::bad_alloc when the array cannot be created; it can have some ten million
    /// elements.
    HostArray(VARTYPE elementType, std::size_t count);
    ~HostArray();
    HostArray(const HostArray&) = delete;
    HostArray& operator=(const HostArray&) = delete;

    /// Destroys the array still held, then creates another one. Throws AutomationError when the
    /// old array cannot be destroyed (the host has locked it): it is then still held.
    void Create(VARTYPE elementType, std::size_t count);

    /// Forgets the array only when its destruction succeeds.
    HRESULT Destroy() noexcept;

    /// Lets the array live on without an owner.
    void Abandon() noexcept { array_ = nullptr; }

    /// Argument for AutomationDriver. By reference, because the host may put another array in
    /// place of this one; that one is then destroyed instead.
    VARIANT ByReference() noexcept;

    /// Copies all of `values` into the array as one block. Throws AutomationError when the
    /// array's memory cannot be reached.
    void CopyIn(std::span<const std::int32_t> values);

    /// Fetches the first elements, one by one, until `values` is full. Throws AutomationError on
    /// the first that cannot be fetched, or when the host has put in elements of another size.
    void CopyOut(std::span<std::int32_t> values) const;
    void CopyOut(std::span<double> values) const;

private:
    SAFEARRAY* array_ = nullptr;
};

/// The result of a call. Hosts are known to answer each query with a value of one width, so it is
/// read by width, without a look at its type.
class HostResult {
public:
    HostResult() noexcept = default;
    ~HostResult() { VariantClear(&value_); }
    HostResult(HostResult&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    HostResult(const HostResult&) = delete;
    HostResult& operator=(const HostResult&) = delete;

    std::int32_t Integer() const noexcept { return V_I4(&value_); }
    std::int16_t Short() const noexcept { return V_I2(&value_); }
    bool Truth() const noexcept { return V_BOOL(&value_) != 0; }
    float Single() const noexcept { return V_R4(&value_); }

    VARIANT* Receive() noexcept { return &value_; }

private:
    // All zeros, of type VT_EMPTY: a host that answers nothing has answered 0.
    VARIANT value_{};
};

/// One automation object of the host, called by dispatch identifier.
///
/// Owns one reference while attached. Use it only on the thread that initialised COM. Every call
/// is a synchronous cross-process call without time-out and throws AutomationError when the host
/// reports a failure, or when the driver is detached.
class AutomationDriver {
public:
    AutomationDriver() = default;
    AutomationDriver(const AutomationDriver&) = delete;
    AutomationDriver& operator=(const AutomationDriver&) = delete;

    /// Takes over the caller's reference to `dispatch` (null detaches) and lets go of the object
    /// held so far.
    void Attach(IDispatch* dispatch) noexcept;

    bool IsAttached() const noexcept { return dispatch_ != nullptr; }
    void Release() noexcept { dispatch_.Reset(); }

    /// Calls a method and asks for its result; `arguments` stand in the order of the host's
    /// declaration.
    HostResult Call(const HostOperation& method,
                    std::initializer_list<VARIANT> arguments = {}) const;

    /// Calls a method without asking for a result.
    void Run(const HostOperation& method, std::initializer_list<VARIANT> arguments) const;

    /// Reads a property that is an automation object. The caller owns the reference; null when
    /// the host has no such object at present.
    IDispatch* ReadObject(const HostOperation& property) const;

private:
    void Invoke(const HostOperation& member, WORD kind, std::initializer_list<VARIANT> arguments,
                VARIANT* result) const;

    Microsoft::WRL::ComPtr<IDispatch> dispatch_;
};
