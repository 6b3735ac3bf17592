#include "host/json_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/stdio_file.h"
#include "tests/support/test_folder.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Kind = JsonToken::Kind;

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

class JsonStreamTest : public testing::Test {
protected:
    /// Everything of a text, as "{", "key:", "\"text\"", a number, "true", "null", "end"; an error
    /// as its text.
    std::vector<std::string> TokensOf(const std::string& text, std::size_t blockSize = 65536) {
        std::vector<std::string> tokens;
        const StdioFile file = OpenStdioFile(folder.Write("text.json", text), "rb");
        JsonStream stream(file.get(), blockSize);
        try {
            do
                tokens.push_back(TextOf(stream.Take()));
            while (tokens.back() != "end");
        } catch (const JsonError& error) {
            tokens.emplace_back(error.what());
        }
        return tokens;
    }

    std::string ErrorOf(const std::string& text) {
        const std::string last = TokensOf(text).back();
        return last == "end" ? "" : last;
    }

    double NumberOf(const std::string& text) {
        const StdioFile file = OpenStdioFile(folder.Write("number.json", text), "rb");
        return JsonStream(file.get()).Take().number;
    }

    Kind KindOf(const std::string& text) {
        const StdioFile file = OpenStdioFile(folder.Write("value.json", text), "rb");
        return JsonStream(file.get()).Take().kind;
    }

    static std::string TextOf(const JsonToken& token) {
        switch (token.kind) {
            case Kind::kObject:
                return "{";
            case Kind::kEndOfObject:
                return "}";
            case Kind::kArray:
                return "[";
            case Kind::kEndOfArray:
                return "]";
            case Kind::kKey:
                return std::string(token.text) + ":";
            case Kind::kString:
                return "\"" + std::string(token.text) + "\"";
            case Kind::kInteger:
            case Kind::kNumber:
                return std::to_string(token.number);
            case Kind::kBoolean:
                return token.number == 0.0 ? "false" : "true";
            case Kind::kNull:
                return "null";
            case Kind::kEnd:
                return "end";
        }
        return "?";
    }

    TestFolder folder;
};

}  // namespace

TEST_F(JsonStreamTest, GivesEveryPieceOfATextInItsOrder) {
    EXPECT_THAT(TokensOf(R"({"a": [1, 2.5], "b": {"c": "d"}, "e": true, "f": false, "g": null})"),
                ElementsAre("{", "a:", "[", "1.000000", "2.500000", "]", "b:", "{", "c:", "\"d\"",
                            "}", "e:", "true", "f:", "false", "g:", "null", "}", "end"));
}

TEST_F(JsonStreamTest, AMarkAtTheBeginningIsPassedOver) {
    EXPECT_THAT(TokensOf("\xEF\xBB\xBF[]"), ElementsAre("[", "]", "end"));
    EXPECT_THAT(ErrorOf("[\xEF\xBB\xBF]"), HasSubstr("line 1, column 2"));
}

TEST_F(JsonStreamTest, EscapesInStringsAreCharacters) {
    EXPECT_THAT(
        TokensOf(R"(["\"\\\/\b\f\n\r\t", "\u65e5\ud842\udfb7"])"),
        ElementsAre("[", "\"\"\\/\b\f\n\r\t\"", "\"\xE6\x97\xA5\xF0\xA0\xAE\xB7\"", "]", "end"));
}

// The file is read block by block; whatever stands across the end of one is whole all the same.
TEST_F(JsonStreamTest, PiecesThatReachAcrossBlocksAreWhole) {
    const std::string text =
        "\xEF\xBB\xBF[ {\"key\": \"some\\u0020t\xC3\xA9xt\", \"n\": -12.25e1}, true]";
    for (std::size_t blockSize = 1; blockSize <= text.size(); ++blockSize)
        ASSERT_THAT(TokensOf(text, blockSize),
                    ElementsAre("[", "{", "key:", "\"some t\xC3\xA9xt\"", "n:", "-122.500000", "}",
                                "true", "]", "end"))
            << blockSize;
}

TEST_F(JsonStreamTest, AFaultHasTheSamePlaceWhereverBlocksEnd) {
    for (const char* text :
         {"[1,\n 2,\n tru]", "[1,\n 2,\n \"\xC3\xA9\", 1e999]", "[1,\n 2]\n  ]", "{\"a\":\n"})
        for (std::size_t blockSize = 1; blockSize <= 20; ++blockSize)
            ASSERT_EQ(TokensOf(text), TokensOf(text, blockSize)) << text << blockSize;
}

TEST_F(JsonStreamTest, AStringMayBeLongerThanABlock) {
    const std::string text(200000, 'x');
    EXPECT_THAT(TokensOf("[\"" + text + "\"]"), ElementsAre("[", "\"" + text + "\"", "]", "end"));
}

TEST_F(JsonStreamTest, WholeNumbersAreToldFromOthersByTheirText) {
    for (const char* text : {"0", "-0", "1", "-2147483649", "9223372036854775807",
                             "-9223372036854775808", "18446744073709551615"})
        EXPECT_EQ(Kind::kInteger, KindOf(text)) << text;
    for (const char* text : {"1.0", "1e3", "1E0", "0.5", "18446744073709551616"})
        EXPECT_EQ(Kind::kNumber, KindOf(text)) << text;
}

// The first is the nearest double of a number that is often rounded wrongly; the next ones lie half
// way between two doubles (2^53 + 1, to the even one), and a hair above that; then the ends of the
// range, from both sides.
TEST_F(JsonStreamTest, NumbersAreTheNearestDouble) {
    const struct {
        std::string text;
        double number;
    } numbers[] = {
        {"3.1415926535897932384626433832795", 0x1.921fb54442d18p+1},
        {"9007199254740993", 9007199254740992.0},
        {"9007199254740993.00000000000000000000000000000000000001", 9007199254740994.0},
        {"9007199254740995", 9007199254740996.0},
        {"0.1", 0x1.999999999999ap-4},
        {"123456789012345678", 123456789012345680.0},
        {"1.7976931348623157e308", kLargest},
        {"1.7976931348623158e308", kLargest},
        {"4.9e-324", kSmallest},
        {"2.4703282292062327e-324", 0.0},
        {"2.4703282292062328e-324", kSmallest},
        {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},
    };
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(number, NumberOf(text)) << text;
}

TEST_F(JsonStreamTest, ZeroKeepsItsSign) {
    for (const char* text : {"-0", "-0.0", "-0e5", "-1e-999"}) {
        EXPECT_EQ(0.0, NumberOf(text)) << text;
        EXPECT_TRUE(std::signbit(NumberOf(text))) << text;
    }
    EXPECT_FALSE(std::signbit(NumberOf("1e-999")));
}

TEST_F(JsonStreamTest, ANumberBeyondTheRangeIsAnErrorWithItsPlace) {
    for (const char* text : {"1e309", "-1e999", "1.7976931348623159e308", "1e99999999999"})
        EXPECT_THAT(ErrorOf("[1,\n " + std::string(text) + "]"),
                    AllOf(HasSubstr("number beyond the range"), HasSubstr("line 2, column")))
            << text;
    EXPECT_THAT(ErrorOf(std::string(400, '9')), HasSubstr("number beyond the range"));
}

// Three million digits: in whole numbers, before an exponent that takes them back, and behind the
// place where 1 + 2^-53, half way between two doubles, ends. Only a digit behind all of them says
// where to round to.
TEST_F(JsonStreamTest, ANumberOfThreeMillionDigitsIsReadToItsLastDigit) {
    const std::string many(3000000, '0');
    EXPECT_EQ(1.0, NumberOf("1" + many + "e-3000000"));
    EXPECT_EQ(1e-300, NumberOf("0." + many + "1e2999701"));
    const std::string half = "1.00000000000000011102230246251565404236316680908203125";
    EXPECT_EQ(1.0, NumberOf(half + many));
    EXPECT_EQ(1.0 + 0x1p-52, NumberOf(half + many + "1"));
}

TEST_F(JsonStreamTest, AFaultHasItsLineAndItsColumnInCharacters) {
    EXPECT_EQ("expected JSON: syntax error in line 1, column 1", ErrorOf("FIN\n"));
    EXPECT_EQ("expected JSON: syntax error in line 3, column 2", ErrorOf("{\n\"a\": 1,\n ,"));
    EXPECT_EQ("expected JSON: syntax error in line 2, column 6",
              ErrorOf("[\n\"\xE6\x97\xA5\xE6\x9C\xAC\",x"));
    EXPECT_EQ("expected JSON: the text ends too early, in line 2", ErrorOf("[1,\n2"));
    EXPECT_EQ("expected JSON: text behind the end of the JSON text, in line 2, column 1",
              ErrorOf("[1]\n]"));
}

TEST_F(JsonStreamTest, AFaultInALaterBlockHasItsLine) {
    std::string lines = "[\n";
    for (int i = 2; i < 100000; ++i)
        lines += "1,\n";
    EXPECT_THAT(ErrorOf(lines + "nil"), HasSubstr("line 100000, column 2"));
}

// Everything before the fault is handed out, wherever a block of the file ends.
TEST_F(JsonStreamTest, WhatStandsBeforeAFaultComesFirst) {
    EXPECT_THAT(TokensOf("[1, 2, x"),
                ElementsAre("[", "1.000000", "2.000000", HasSubstr("column 8")));
}

TEST_F(JsonStreamTest, NothingButBlanksMayFollowTheText) {
    EXPECT_EQ("", ErrorOf("[] \n\t\r "));
    for (const std::string& text : {std::string("[]x"), std::string("[]") + '\0',
                                    "[]" + std::string(200000, ' ') + "]", std::string("[][]")})
        EXPECT_THAT(ErrorOf(text), HasSubstr("text behind the end")) << text.substr(0, 10);
}

TEST_F(JsonStreamTest, TextThatIsNotUtf8IsAnError) {
    for (const char* text : {"[\"\xFF\"]", "[\"\xE6\x97\"]", "[\"\xED\xA0\x80\"]", "[\"\\ud800\"]",
                             "[\"\\udc00x\"]", "[\"\x01\"]"})
        EXPECT_THAT(ErrorOf(text), HasSubstr("expected JSON: ")) << text;
}

TEST_F(JsonStreamTest, AnEmptyFileEndsTooEarly) {
    for (const char* text : {"", " \n ", "\xEF\xBB\xBF"})
        EXPECT_THAT(ErrorOf(text), HasSubstr("the text ends too early")) << text;
}
