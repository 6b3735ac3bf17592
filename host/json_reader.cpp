#include "host/json_reader.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "platform/one_line.h"

namespace {

using Kind = JsonToken::Kind;

}  // namespace

JsonReader::JsonReader(std::FILE* file) : stream_(file) {
    levels_.reserve(JsonStream::kDeepest + 1);
}

bool JsonReader::SeenKeys::Add(const std::string& key) {
    const std::span<const std::string> few(few_.data(), count_);
    if (std::ranges::find(few, key) != few.end()) return false;
    if (count_ == few_.size()) return more_.insert(key).second;
    few_[count_++] = key;
    return true;
}

double JsonReader::ReadNumber() {
    const JsonToken& token = stream_.Peek();
    if (token.kind != Kind::kNumber && token.kind != Kind::kInteger) Fail("expected a number");
    return stream_.Take().number;
}

std::int32_t JsonReader::ReadInteger() {
    constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
    const JsonToken& token = stream_.Peek();
    if (token.kind != Kind::kInteger || token.number < kLowest || token.number > kHighest)
        Fail("expected a whole number of 32 bits");
    return static_cast<std::int32_t>(stream_.Take().number);
}

bool JsonReader::ReadBoolean() {
    if (!IsNext(Kind::kBoolean)) Fail("expected true or false");
    return stream_.Take().number != 0.0;
}

std::string JsonReader::ReadString(const char* expected) {
    if (!IsNext(Kind::kString)) Fail(expected);
    return std::string(stream_.Take().text);
}

bool JsonReader::ReadNull() {
    if (!IsNext(Kind::kNull)) return false;
    stream_.Take();
    return true;
}

void JsonReader::ReadNumbers(std::span<double> numbers, const char* expected) {
    if (!IsNext(Kind::kArray)) Fail(expected);
    Begin();
    for (double& number : numbers) {
        if (!NextElement()) Fail(expected);
        number = ReadNumber();
    }
    if (!IsNext(Kind::kEndOfArray)) FailAround(expected);
    NextElement();
}

void JsonReader::Skip() {
    if (IsNext(Kind::kObject))
        ReadObject("", [this](const std::string&) { Skip(); });
    else if (IsNext(Kind::kArray))
        ReadArray("", [this](std::size_t) { Skip(); });
    else
        stream_.Take();
}

void JsonReader::Begin() {
    levels_.emplace_back();
    levels_.back().isArray = stream_.Take().kind == Kind::kArray;
}

bool JsonReader::NextKey() {
    const JsonToken token = stream_.Take();
    if (token.kind == Kind::kKey) {
        levels_.back().key = token.text;
        return true;
    }
    levels_.pop_back();
    return false;
}

bool JsonReader::NextElement() {
    if (!IsNext(Kind::kEndOfArray)) {
        ++levels_.back().index;
        return true;
    }
    stream_.Take();
    levels_.pop_back();
    return false;
}

std::int32_t JsonReader::KeyAsNumber(const std::string& what) const {
    const std::string& key = levels_.back().key;
    std::int32_t number = 0;
    const char* const end = key.data() + key.size();
    const auto [stop, error] = std::from_chars(key.data(), end, number);
    if (error != std::errc() || stop != end)
        Fail("expected a " + what + " number (32 bits) as key");
    return number;
}

std::string JsonReader::Path() const {
    std::string path;
    for (const Level& level : levels_) {
        if (level.isArray) {
            path.append("[").append(std::to_string(level.index)).append("]");
        } else {
            if (!path.empty()) path += '.';
            path += OneLine(level.key, kLongestShownKey);
        }
    }
    return path;
}

void JsonReader::Fail(const std::string& expected) const {
    const std::string path = Path();
    throw JsonError((path.empty() ? "" : path + ": ") + expected);
}

void JsonReader::FailAround(const std::string& expected) {
    levels_.pop_back();
    Fail(expected);
}

void JsonReader::FailTwice() const {
    Fail("this key stands twice in its object, where each was expected once");
}
