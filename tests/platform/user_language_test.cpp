// The language in which findings are told to whoever did not choose one.

#include "platform/user_language.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace {

class UserLanguageOf : public testing::Test {
protected:
    using Value = std::optional<std::string>;

    UserLanguageOf() {
        for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
            const char* const value = std::getenv(name);
            before_[name] = value == nullptr ? Value() : Value(value);
        }
    }
    ~UserLanguageOf() override {
        for (const auto& [name, value] : before_)
            Set(name, value);
    }

    static Language Under(const Value& all, const Value& messages, const Value& lang) {
        Set("LC_ALL", all);
        Set("LC_MESSAGES", messages);
        Set("LANG", lang);
        return UserLanguage();
    }

private:
    static void Set(const std::string& name, const Value& value) {
        if (value)
            setenv(name.c_str(), value->c_str(), 1);
        else
            unsetenv(name.c_str());
    }

    std::map<std::string, Value> before_;
};

constexpr std::nullopt_t kNotSet = std::nullopt;

}  // namespace

TEST_F(UserLanguageOf, AJapaneseSystemIsJapanese) {
    EXPECT_EQ(Language::kJapanese, Under(kNotSet, kNotSet, "ja_JP.UTF-8"));
    EXPECT_EQ(Language::kEnglish, Under(kNotSet, kNotSet, "de_DE.UTF-8"));
    EXPECT_EQ(Language::kEnglish, Under(kNotSet, kNotSet, kNotSet));
}

TEST_F(UserLanguageOf, SeveralVariablesIsThatOfTheFirstThatIsNotEmpty) {
    EXPECT_EQ(Language::kEnglish, Under("C.UTF-8", "ja_JP.UTF-8", "ja_JP.UTF-8"));
    EXPECT_EQ(Language::kJapanese, Under("", "ja_JP.UTF-8", "C"));
    EXPECT_EQ(Language::kJapanese, Under("", "", "ja"));
}
