#include "platform/native_path.h"

#ifdef _WIN32
#include "platform/narrow_text.h"
#endif

std::filesystem::path NativePath(const std::string& narrow) {
#ifdef _WIN32
    return WideText(narrow);
#else
    return narrow;
#endif
}

std::string Utf8Text(const std::string& narrow) {
#ifdef _WIN32
    const std::u8string text = NativePath(narrow).u8string();
    return {text.begin(), text.end()};
#else
    return narrow;
#endif
}

std::string NarrowOfUtf8(const std::string& utf8) {
#ifdef _WIN32
    return NarrowText(WideTextOfUtf8(utf8).c_str());
#else
    return utf8;
#endif
}
