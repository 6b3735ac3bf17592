#include "host/json_writer.h"

#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <system_error>

namespace {

constexpr std::size_t kBlock = 65536;
constexpr std::size_t kLongestNumber = 32;  // -1.2345678901234567e-308 has 24 characters

}  // namespace

JsonWriter::JsonWriter(std::FILE* file) : file_(file) {
    text_.reserve(kBlock + kLongestNumber);
}

void JsonWriter::Put(std::string_view text) {
    text_ += text;
    if (text_.size() >= kBlock) Flush();
}

void JsonWriter::PutInteger(std::int32_t number) {
    char digits[kLongestNumber];
    const auto [end, error] = std::to_chars(digits, digits + kLongestNumber, number);
    Put({digits, end});
}

// Whole numbers keep a point, so that a reader takes them for what they are.
void JsonWriter::PutNumber(double number) {
    if (number == 0.0) return Put(std::signbit(number) ? "-0.0" : "0.0");
    constexpr double kSmallestPlain = 1e-4;
    constexpr double kPlainBelow = 1e15;
    const double size = std::abs(number);
    const bool isPlain = size >= kSmallestPlain && size < kPlainBelow;
    char digits[kLongestNumber];
    const auto [end, error] =
        std::to_chars(digits, digits + kLongestNumber, number,
                      isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    const std::string_view text(digits, end);
    Put(text);
    if (isPlain && text.find('.') == std::string_view::npos) Put(".0");
}

void JsonWriter::PutString(const std::string& text) {
    constexpr auto kReplace = nlohmann::json::error_handler_t::replace;
    Put(nlohmann::json(text).dump(-1, ' ', false, kReplace));
}

void JsonWriter::Flush() {
    std::fwrite(text_.data(), 1, text_.size(), file_);
    text_.clear();
}
