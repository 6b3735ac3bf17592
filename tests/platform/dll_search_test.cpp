#include "platform/dll_search.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

bool CanBeLoaded(const wchar_t* library) {
    const HMODULE module = LoadLibraryW(library);
    if (module != nullptr) FreeLibrary(module);
    return module != nullptr;
}

}  // namespace

// planted_library.dll lies beside this program, where Windows looks first.
TEST(DllSearch, PassesOverALibraryBesideTheProgram) {
    ASSERT_TRUE(CanBeLoaded(L"planted_library.dll"));

    RestrictDllSearch();

    EXPECT_FALSE(CanBeLoaded(L"planted_library.dll"));
}

TEST(DllSearch, StillFindsWhatWindowsBrings) {
    RestrictDllSearch();

    EXPECT_TRUE(CanBeLoaded(L"version.dll"));
}
