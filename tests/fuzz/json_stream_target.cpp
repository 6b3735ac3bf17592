// The stream of JSON tokens. However small the blocks in which a file is read, the tokens and the
// text of a fault are the same; another parser takes the same texts and reads the same from them.

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "host/json_stream.h"
#include "platform/stdio_file.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/test_folder.h"

namespace {

using Json = nlohmann::json;

std::string TextOfNumber(double number) {
    char text[64];
    std::snprintf(text, sizeof text, "%a", number);
    return text;
}

// What has been read, a line per token, and the text of the fault that ended it.
struct Reading {
    std::string tokens;
    std::string fault;
};

std::string TextOf(const JsonToken& token) {
    using Kind = JsonToken::Kind;
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
            return "key " + std::string(token.text);
        case Kind::kString:
            return "string " + std::string(token.text);
        case Kind::kInteger:
            return "integer " + TextOfNumber(token.number);
        case Kind::kNumber:
            return "number " + TextOfNumber(token.number);
        case Kind::kBoolean:
            return token.number == 0.0 ? "false" : "true";
        case Kind::kNull:
            return "null";
        case Kind::kEnd:
            break;
    }
    return "end";
}

Reading Read(const std::string& path, std::size_t blockSize) {
    Reading reading;
    const StdioFile file = OpenStdioFile(path, "rb");
    JsonStream stream(file.get(), blockSize);
    try {
        for (JsonToken token = stream.Take(); token.kind != JsonToken::Kind::kEnd;
             token = stream.Take())
            reading.tokens += TextOf(token) + "\n";
    } catch (const JsonError& error) {
        reading.fault = error.what();
    }
    return reading;
}

// The other parser's calls in the form of `Reading`.
class OtherReading : public nlohmann::json_sax<Json> {
public:
    bool null() override { return Add("null"); }
    bool boolean(bool value) override { return Add(value ? "true" : "false"); }
    // It makes whole numbers of what this project reads as doubles; minus zero loses its sign.
    bool number_integer(std::int64_t value) override {
        return AddInteger(static_cast<double>(value));
    }
    bool number_unsigned(std::uint64_t value) override {
        return AddInteger(static_cast<double>(value));
    }
    bool number_float(double value, const std::string&) override {
        return Add("number " + TextOfNumber(value));
    }
    bool string(std::string& value) override { return Add("string " + value); }
    bool binary(Json::binary_t&) override { return false; }
    bool start_object(std::size_t) override { return Add("{"); }
    bool key(std::string& value) override { return Add("key " + value); }
    bool end_object() override { return Add("}"); }
    bool start_array(std::size_t) override { return Add("["); }
    bool end_array() override { return Add("]"); }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) override {
        isFaulty = true;
        return false;
    }

    std::string tokens;
    bool isFaulty = false;

private:
    bool Add(const std::string& token) {
        tokens += token + "\n";
        return true;
    }
    bool AddInteger(double value) { return Add("integer " + TextOfNumber(value)); }
};

std::string WithoutSignsOfZero(std::string tokens) {
    const std::string minusZero = "integer -0x0p+0\n";
    for (std::size_t at = 0; (at = tokens.find(minusZero, at)) != std::string::npos;)
        tokens.replace(at, minusZero.size(), "integer 0x0p+0\n");
    return tokens;
}

// What this project refuses on purpose although it is JSON.
bool IsBeyondLimits(const std::string& fault) {
    return fault.find("objects and arrays in each other") != std::string::npos ||
           fault.find("beyond the range") != std::string::npos;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string path = folder.Write("text.json", text);
    const Reading whole = Read(path, 65536);
    for (const std::size_t blockSize : {1U, 2U, 3U, 7U, 16U}) {
        const Reading inBlocks = Read(path, blockSize);
        CheckSameText(whole.tokens, inBlocks.tokens, "blocks make no other tokens");
        CheckSameText(whole.fault, inBlocks.fault, "blocks make no other fault");
    }

    OtherReading other;
    // The other one takes a NUL for the end of the text.
    if (IsBeyondLimits(whole.fault) || text.find('\0') != std::string::npos) return 0;
    Json::sax_parse(text, &other);
    Check(other.isFaulty == !whole.fault.empty(), "both take the text or refuse it");
    if (!other.isFaulty)
        CheckSameText(WithoutSignsOfZero(whole.tokens), other.tokens, "both read the same");
    return 0;
}
