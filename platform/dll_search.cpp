#include "platform/dll_search.h"

#ifdef _WIN32

#include <windows.h>

void RestrictDllSearch() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

#else

void RestrictDllSearch() {}

#endif
