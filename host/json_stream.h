#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// JSON text that is none, or that says something else than it should. The text is one line: where,
/// and what was expected.
class JsonError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One piece of a JSON text.
struct JsonToken {
    enum class Kind : std::uint8_t {
        kObject,
        kEndOfObject,
        kArray,
        kEndOfArray,
        kKey,
        kString,
        kInteger,  ///< a number written without fraction and exponent, of 64 bits at most
        kNumber,   ///< any other number
        kBoolean,
        kNull,
        kEnd,  ///< the end of the file
    };

    Kind kind = Kind::kEnd;
    double number = 0.0;  ///< of kInteger and kNumber, correctly rounded; 1 for true, 0 for false
    std::string_view
        text{};  ///< of kKey and kString, UTF-8; good until the next token is asked for
};

/// Reads a JSON text from a file token by token. Takes as much memory as its longest string or
/// number and is done with any text in a time in proportion to its length.
///
/// A mark at the beginning (U+FEFF) is passed over. Objects and arrays may stand kDeepest deep in
/// each other. Throws JsonError where the text is not JSON, holds a number beyond the range of
/// double or cannot be read; everything before that place has been handed out then.
class JsonStream {
public:
    static constexpr std::size_t kDeepest = 100;

    /// Borrows `file`, opened for binary reading, and reads it from its beginning in blocks of
    /// `blockSize` bytes.
    explicit JsonStream(std::FILE* file, std::size_t blockSize = 65536);
    ~JsonStream();
    JsonStream(const JsonStream&) = delete;
    JsonStream& operator=(const JsonStream&) = delete;

    /// The next token, which stays the next one.
    const JsonToken& Peek() {
        if (next_ == tokens_.size()) Fill();
        return tokens_[next_];
    }

    JsonToken Take() {
        const JsonToken token = Peek();
        ++next_;
        return token;
    }

private:
    struct Parser;

    /// Parses the next blocks of the file until there are tokens.
    void Fill();
    void ParseBlock();

    std::vector<JsonToken> tokens_;  ///< of one block of the file
    std::size_t next_ = 0;
    std::unique_ptr<Parser> parser_;
};
