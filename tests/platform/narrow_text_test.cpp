// The tool's paths between the wide Windows API and the engine. This program has the tool's
// manifest.

#include "platform/narrow_text.h"

#include <gtest/gtest.h>

TEST(NarrowTextOfTheTool, IsUtf8) {
    EXPECT_EQ("D:\\\xE5\xBB\xBA\xE7\x89\xA9\\a.csv", NarrowText(L"D:\\\u5EFA\u7269\\a.csv"));
}

TEST(NarrowTextOfTheTool, GivesEveryCharacterBack) {
    const std::wstring path = L"\u65E5\u672C\u8A9E \u00E9\u0142\u03A9 \U0001F3E2 & 100%.csv";
    EXPECT_EQ(path, WideText(NarrowText(path.c_str())));
}
