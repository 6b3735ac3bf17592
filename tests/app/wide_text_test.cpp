#include "app/wide_text.h"

#include <gtest/gtest.h>

TEST(WideText, NarrowTextIsUtf8) {
    EXPECT_EQ("D:\\\xE5\xBB\xBA\xE7\x89\xA9\\a.csv", Narrow(L"D:\\\u5EFA\u7269\\a.csv"));
}

TEST(WideText, EveryCharacterComesBack) {
    const std::wstring path = L"\u65E5\u672C\u8A9E \u00E9\u0142\u03A9 \U0001F3E2 & 100%.csv";
    EXPECT_EQ(path, Widen(Narrow(path)));
}

TEST(WideText, EmptyStaysEmpty) {
    EXPECT_EQ(L"", Widen(""));
    EXPECT_EQ("", Narrow(L""));
}
