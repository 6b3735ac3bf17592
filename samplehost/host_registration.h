#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

/// The host's ProgID cannot be had: it belongs to another program, or the registry refuses. The
/// text says what to do.
class RegistrationError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Entry of a ProgID in the registry, so that clients find a class by its name: for this user
/// where Windows looks there, else for the whole machine. Nothing else is written.
///
/// A ProgID that names another class is never touched. An entry of the same class, left behind by
/// a process that was ended by force, is taken over.
class HostRegistration {
public:
    /// Throws RegistrationError when the ProgID belongs to another class or when no entry of ours
    /// is found by it.
    HostRegistration(const wchar_t* progId, const CLSID& classId);

    /// Removes the entry, unless another program has made it its own in the meantime.
    ~HostRegistration();

    HostRegistration(const HostRegistration&) = delete;
    HostRegistration& operator=(const HostRegistration&) = delete;

private:
    bool IsFound() const;
    bool WriteEntry(HKEY hive) const;
    void RemoveEntry(HKEY hive) const;
    void RefuseForeignEntry(HKEY hive) const;

    std::wstring progId_;
    std::wstring key_;        ///< below a hive
    std::wstring classText_;  ///< the class identifier in braces
    CLSID classId_;
};
