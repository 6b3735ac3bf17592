#include "samplehost/hosts_place.h"

// Another user's SampleHost has a mutex that cannot be opened: taken as well.
HostsPlace::HostsPlace() : mutex_(CreateMutexW(nullptr, FALSE, L"Global\\Quarnel.SampleHost")) {
    if (mutex_ != nullptr && GetLastError() != ERROR_ALREADY_EXISTS) return;
    if (mutex_ != nullptr) CloseHandle(mutex_);
    throw PlaceTakenError("another SampleHost is running; SampleHost.exe --stop ends it");
}

HostsPlace::~HostsPlace() {
    CloseHandle(mutex_);
}
