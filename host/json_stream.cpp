#include "host/json_stream.h"

#include <array>
#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/src.hpp>
#include <charconv>
#include <cmath>
#include <deque>
#include <functional>
#include <limits>

#include "platform/utf8_character.h"

namespace {

using Kind = JsonToken::Kind;
using Failure = boost::json::error_code;
using Piece = boost::json::string_view;

// The exact value of a number's text; false when it is beyond the range of double. `about` is the
// value, right but for rounding.
bool ReadDouble(std::string_view text, double about, double& value) {
    if (text == "0.0") {  // by far the most frequent number
        value = 0.0;
        return true;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc()) return true;
    // Too small a number is out of range as well.
    value = std::copysign(0.0, about);
    return error == std::errc::result_out_of_range && std::abs(about) < 1.0;
}

// Makes tokens of the parser's calls, one for everything that it meets.
class Tokens {
public:
    static constexpr std::size_t max_object_size = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_array_size = max_object_size;
    static constexpr std::size_t max_key_size = max_object_size;
    static constexpr std::size_t max_string_size = max_object_size;

    explicit Tokens(std::vector<JsonToken>& tokens) : tokens_(tokens) {}

    // Tokens may keep views into this block until the next one begins.
    void BeginBlock(std::string_view block) {
        block_ = block;
        copies_.clear();
    }

    bool on_document_begin(Failure&) { return true; }
    bool on_document_end(Failure&) { return true; }
    bool on_object_begin(Failure&) { return Add({.kind = Kind::kObject}); }
    bool on_object_end(std::size_t, Failure&) { return Add({.kind = Kind::kEndOfObject}); }
    bool on_array_begin(Failure&) { return Add({.kind = Kind::kArray}); }
    bool on_array_end(std::size_t, Failure&) { return Add({.kind = Kind::kEndOfArray}); }
    bool on_key_part(Piece piece, std::size_t, Failure&) { return Collect(piece); }
    bool on_key(Piece piece, std::size_t, Failure&) {
        return Add({.kind = Kind::kKey, .text = LastingText(piece)});
    }
    bool on_string_part(Piece piece, std::size_t, Failure&) { return Collect(piece); }
    bool on_string(Piece piece, std::size_t, Failure&) {
        return Add({.kind = Kind::kString, .text = LastingText(piece)});
    }
    bool on_number_part(Piece piece, Failure&) { return Collect(piece); }
    bool on_int64(std::int64_t value, Piece piece, Failure& failure) {
        return AddNumber(Kind::kInteger, static_cast<double>(value), piece, failure);
    }
    bool on_uint64(std::uint64_t value, Piece piece, Failure& failure) {
        return AddNumber(Kind::kInteger, static_cast<double>(value), piece, failure);
    }
    bool on_double(double about, Piece piece, Failure& failure) {
        return AddNumber(Kind::kNumber, about, piece, failure);
    }
    bool on_bool(bool value, Failure&) {
        return Add({.kind = Kind::kBoolean, .number = value ? 1.0 : 0.0});
    }
    bool on_null(Failure&) { return Add({.kind = Kind::kNull}); }
    bool on_comment_part(Piece, Failure&) { return true; }
    bool on_comment(Piece, Failure&) { return true; }

private:
    bool Add(const JsonToken& token) {
        tokens_.push_back(token);
        return true;
    }

    bool Collect(Piece piece) {
        collected_.append(piece.data(), piece.size());
        return true;
    }

    // The parser rounds only nearly right; the text says what the number is.
    bool AddNumber(Kind kind, double about, Piece piece, Failure& failure) {
        std::string_view text(piece.data(), piece.size());
        if (!collected_.empty()) text = collected_.append(text);
        double value = 0.0;
        const bool isInRange = ReadDouble(text, about, value);
        collected_.clear();
        if (isInRange) return Add({.kind = kind, .number = value});
        failure = boost::json::error::exponent_overflow;
        return false;
    }

    // The text of a string whose last piece is this one, kept as long as the block's tokens.
    std::string_view LastingText(Piece piece) {
        const std::string_view text(piece.data(), piece.size());
        if (collected_.empty() && IsInBlock(text)) return text;
        copies_.push_back(std::move(collected_));
        collected_.clear();
        return copies_.back().append(text);
    }

    bool IsInBlock(std::string_view text) const {
        constexpr std::less_equal<const char*> isBefore;
        return isBefore(block_.data(), text.data()) &&
               isBefore(text.data() + text.size(), block_.data() + block_.size());
    }

    std::vector<JsonToken>& tokens_;
    std::string_view block_;
    std::string collected_;  // what came of a string or a number in the blocks before
    std::deque<std::string> copies_;
};

void PassOverMark(std::FILE* file) {
    std::array<char, kByteOrderMark.size()> start{};
    const std::size_t size = std::fread(start.data(), 1, start.size(), file);
    if (std::string_view(start.data(), size) != kByteOrderMark) std::rewind(file);
}

// The parser with its tokens, fed with a file block by block.
class BlockParser {
public:
    // Begins at the beginning of the file.
    BlockParser(std::FILE* file, std::size_t blockSize, std::vector<JsonToken>& tokens)
        : file_(file), json_({.max_depth = JsonStream::kDeepest}, tokens), buffer_(blockSize) {
        std::rewind(file);
        PassOverMark(file);
    }

    // The next bytes of the text; none at its end.
    std::string_view ReadBlock() {
        start_ += block_.size();
        block_ = {buffer_.data(), std::fread(buffer_.data(), 1, buffer_.size(), file_)};
        return block_;
    }

    // Where the block that was read last begins in the text.
    std::uint64_t start() const { return start_; }

    std::size_t blockSize() const { return buffer_.size(); }

    // Parses a piece of the text; the file's end is an empty one. Gives how much of the piece
    // belongs to the text.
    std::size_t Parse(std::string_view piece, Failure& failure) {
        json_.handler().BeginBlock(piece);
        return json_.write_some(!piece.empty(), piece.data(), piece.size(), failure);
    }

private:
    std::FILE* file_;
    boost::json::basic_parser<Tokens> json_;
    std::vector<char> buffer_;
    std::string_view block_;
    std::uint64_t start_ = 0;
};

struct LineAndColumn {
    std::uint64_t line = 1;
    std::uint64_t column = 0;  // in characters

    void Pass(std::string_view text) {
        for (const char byte : text) {
            const bool isPartOfCharacter = (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
            if (byte == '\n')
                *this = {line + 1, 0};
            else if (!isPartOfCharacter)
                ++column;
        }
    }
};

struct Fault {
    LineAndColumn place;
    Failure failure;  // none: the text has ended before
};

// Where and how a file that cannot be parsed goes wrong: the block with the fault is parsed once
// more, byte by byte. What the parser says of a fault may depend on how much of the text it sees.
Fault FindFault(std::FILE* file, const BlockParser& failed) {
    std::vector<JsonToken> tokens;
    BlockParser parser(file, failed.blockSize(), tokens);
    Fault fault;
    for (std::string_view block = parser.ReadBlock(); !block.empty(); block = parser.ReadBlock()) {
        const std::size_t step = parser.start() < failed.start() ? block.size() : 1;
        for (; !block.empty(); block.remove_prefix(step)) {
            tokens.clear();
            const std::string_view piece = block.substr(0, step);
            fault.place.Pass(piece);
            if (parser.Parse(piece, fault.failure) < piece.size() || fault.failure) return fault;
        }
    }
    parser.Parse({}, fault.failure);
    return fault;
}

std::string TextOf(const Fault& fault) {
    const std::string line = "line " + std::to_string(fault.place.line);
    const std::string at = line + ", column " + std::to_string(fault.place.column);
    if (!fault.failure) return "text behind the end of the JSON text, in " + at;
    if (fault.failure == boost::json::error::incomplete)
        return "the text ends too early, in " + line;
    if (fault.failure == boost::json::error::exponent_overflow)
        return "a number beyond the range of double precision, in " + at;
    if (fault.failure == boost::json::error::too_deep)
        return "more than " + std::to_string(JsonStream::kDeepest) +
               " objects and arrays in each other, in " + at;
    return fault.failure.message() + " in " + at;
}

}  // namespace

struct JsonStream::Parser {
    Parser(std::FILE* source, std::size_t blockSize, std::vector<JsonToken>& tokens)
        : file(source), blocks(source, blockSize, tokens) {}

    std::FILE* file;
    BlockParser blocks;
    bool isFaulty = false;  // behind the tokens that are there
    bool isAtEnd = false;
};

JsonStream::JsonStream(std::FILE* file, std::size_t blockSize)
    : parser_(std::make_unique<Parser>(file, blockSize, tokens_)) {}

JsonStream::~JsonStream() = default;

void JsonStream::ParseBlock() {
    const std::string_view block = parser_->blocks.ReadBlock();
    if (std::ferror(parser_->file) != 0) throw JsonError("expected JSON: cannot be read");
    parser_->isAtEnd = block.empty();
    Failure failure;
    const std::size_t parsed = parser_->blocks.Parse(block, failure);
    parser_->isFaulty = failure || parsed < block.size();
}

void JsonStream::Fill() {
    tokens_.clear();
    next_ = 0;
    while (tokens_.empty()) {
        if (parser_->isFaulty)
            throw JsonError("expected JSON: " + TextOf(FindFault(parser_->file, parser_->blocks)));
        if (parser_->isAtEnd)
            tokens_.push_back({.kind = Kind::kEnd});
        else
            ParseBlock();
    }
}
