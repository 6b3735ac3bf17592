#include <windows.h>

#include "platform/user_language.h"

Language UserLanguage() {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE ? Language::kJapanese
                                                                      : Language::kEnglish;
}
