#include "samplehost/host_registration.h"

#include <objbase.h>

#include <array>
#include <optional>

#include "platform/narrow_text.h"

namespace {

// Where an entry can stand: this user's classes, then the machine's.
const std::array<HKEY, 2> kHives = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};

constexpr const wchar_t* kDescription = L"Quarnel SampleHost";

std::wstring ToText(const CLSID& classId) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(classId, text.data(), static_cast<int>(text.size()));
    return text.data();
}

bool KeyExists(HKEY hive, const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(hive, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
    RegCloseKey(opened);
    return true;
}

// The unnamed value of a key.
std::optional<std::wstring> ReadText(HKEY hive, const std::wstring& key) {
    std::array<wchar_t, 64> text{};
    DWORD size = sizeof text;
    if (RegGetValueW(hive, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return std::nullopt;
    return text.data();
}

bool WriteText(HKEY hive, const std::wstring& key, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(hive, key.c_str(), nullptr, REG_SZ, text.c_str(), size) == ERROR_SUCCESS;
}

// The registry keeps identifiers as text, in either case.
bool IsSameClass(const std::optional<std::wstring>& text, const CLSID& classId) {
    CLSID read;
    return text && SUCCEEDED(CLSIDFromString(text->c_str(), &read)) && read == classId;
}

}  // namespace

HostRegistration::HostRegistration(const wchar_t* progId, const CLSID& classId)
    : progId_(progId),
      key_(L"Software\\Classes\\" + progId_),
      classText_(ToText(classId)),
      classId_(classId) {
    for (HKEY hive : kHives)
        RefuseForeignEntry(hive);
    for (HKEY hive : kHives) {
        if (WriteEntry(hive) && IsFound()) return;
        RemoveEntry(hive);
    }
    throw RegistrationError(NarrowText(progId) +
                            " cannot be registered: the registry refuses both this user's and the "
                            "machine's entry. Start SampleHost as administrator.");
}

HostRegistration::~HostRegistration() {
    for (HKEY hive : kHives)
        RemoveEntry(hive);
}

bool HostRegistration::IsFound() const {
    CLSID found;
    return SUCCEEDED(CLSIDFromProgID(progId_.c_str(), &found)) && found == classId_;
}

bool HostRegistration::WriteEntry(HKEY hive) const {
    // The class first: an entry without it would not be known as ours after a forced end.
    return WriteText(hive, key_ + L"\\CLSID", classText_) && WriteText(hive, key_, kDescription);
}

void HostRegistration::RemoveEntry(HKEY hive) const {
    if (IsSameClass(ReadText(hive, key_ + L"\\CLSID"), classId_))
        RegDeleteTreeW(hive, key_.c_str());
}

void HostRegistration::RefuseForeignEntry(HKEY hive) const {
    if (!KeyExists(hive, key_)) return;
    if (IsSameClass(ReadText(hive, key_ + L"\\CLSID"), classId_)) return;
    throw RegistrationError(
        NarrowText(progId_.c_str()) + " is registered to another program on this machine (key " +
        (hive == HKEY_CURRENT_USER ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\") +
        NarrowText(key_.c_str()) +
        "). SampleHost changes nothing there. Use that program, or start SampleHost on another "
        "machine.");
}
