// The texts of the window, in both languages.

#include "sheetapp/window_texts.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <vector>

#include "sheetapp/filled_text.h"

namespace {

constexpr Language kLanguages[] = {Language::kEnglish, Language::kJapanese};

// The letter behind the ampersand; a zero without one.
char Mnemonic(const std::string& text) {
    const std::size_t at = text.find('&');
    return at == std::string::npos ? '\0' : static_cast<char>(std::tolower(text[at + 1]));
}

// Buttons that are seen together.
const std::vector<WindowText> kAtTheEnd = {WindowText::kChoose, WindowText::kOpenSheet,
                                           WindowText::kOpenResults, WindowText::kOpenLog,
                                           WindowText::kAgain};
const std::vector<WindowText> kAfterAFailure = {WindowText::kChoose, WindowText::kOpenInput,
                                                WindowText::kOpenLog, WindowText::kAgain};
const std::vector<WindowText> kWithInputErrors = {WindowText::kChoose, WindowText::kOpenInput,
                                                  WindowText::kRunAnyway, WindowText::kCheckAgain};

}  // namespace

TEST(WindowTexts, OfButtonsThatAreSeenTogetherHaveDifferentMnemonics) {
    for (const Language language : kLanguages)
        for (const auto& buttons : {kAtTheEnd, kAfterAFailure, kWithInputErrors}) {
            std::set<char> letters;
            for (const WindowText button : buttons) {
                const std::string text = TextOf(button, language);
                EXPECT_NE('\0', Mnemonic(text)) << text;
                EXPECT_TRUE(letters.insert(Mnemonic(text)).second) << text;
            }
        }
}

TEST(WindowTexts, AreThereInBothLanguages) {
    for (int text = 0; text <= static_cast<int>(WindowText::kRemarks); ++text)
        for (const Language language : kLanguages)
            EXPECT_NE("", TextOf(static_cast<WindowText>(text), language)) << text;
}

TEST(FilledText, HasItsPlacesFilled) {
    EXPECT_EQ("0:07   12 answers", FilledText("{1}   {2} answers", "0:07", "12"));
}

// A path may have braces.
TEST(FilledText, LeavesWhatIsFilledInAsItIs) {
    EXPECT_EQ("a{2}b and c", FilledText("{1} and {2}", "a{2}b", "c"));
}
