#include <cstdlib>
#include <string_view>

#include "platform/user_language.h"

Language UserLanguage() {
    // The first that is set and not empty counts, as for the messages of other programs.
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        return std::string_view(value).starts_with("ja") ? Language::kJapanese : Language::kEnglish;
    }
    return Language::kEnglish;
}
