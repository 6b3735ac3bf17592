#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// How the bytes of a table stand for characters.
enum class TableEncoding { kUtf8, kShiftJis };

/// Follows the bytes of UTF-8 text: no longer form than needed, no surrogates, nothing beyond
/// U+10FFFF.
class Utf8Bytes {
public:
    /// False when the byte cannot stand here; the next one may begin a character again.
    bool Take(unsigned char byte);

    /// Whether the character that was begun needs more bytes.
    bool IsInside() const { return left_ > 0; }

private:
    unsigned left_ = 0;
    unsigned char lowest_ = 0x80, highest_ = 0xBF;  ///< what the next byte may be
};

/// Tells how a table is written down, from all of its bytes, which come piece by piece. Takes no
/// memory.
class EncodingScan {
public:
    void Take(std::string_view bytes);

    /// Why a table is no text.
    enum class Fault {
        kNone,
        kZeroByte,     ///< a text holds none; one at the start is that of another encoding
        kUtf16,        ///< begins with the mark of UTF-16
        kNoCharacter,  ///< fits neither UTF-8 nor Shift_JIS
        kMixed,        ///< one line is UTF-8, another one Shift_JIS
    };
    struct Found {
        Fault fault = Fault::kNone;
        std::uint64_t faultAt = 0;  ///< bytes from the beginning
        TableEncoding encoding = TableEncoding::kUtf8;
    };

    /// True as soon as there is a fault that no further byte can mend.
    bool HasFault() const { return hasFault_; }

    /// To be asked at the end. UTF-8 where both would fit.
    Found Finish() const;

private:
    void TakeByte(unsigned char byte);
    void TakeInLine(unsigned char byte);
    void EndLine();
    void TakeShiftJis(unsigned char byte);
    bool IsInsideCharacter() const { return utf8_.IsInside() || shiftJisLeft_; }
    void Fail(Fault fault);

    std::uint64_t at_ = 0;
    bool hasFault_ = false;
    Found found_;
    Utf8Bytes utf8_;
    std::optional<std::uint64_t> utf8Fault_;
    bool shiftJisLeft_ = false;
    std::optional<std::uint64_t> shiftJisFault_;
    bool beginsLikeUtf16_ = false;

    /// The line so far, by itself. Characters of three bytes or more tell that it is UTF-8: text in
    /// Shift_JIS hardly ever looks like a whole line of them.
    struct Line {
        Utf8Bytes utf8;
        bool isUtf8 = true;
        bool hasOtherThanAscii = false;
        std::optional<std::uint64_t> longCharacterAt;

        bool IsSurelyUtf8() const { return isUtf8 && !utf8.IsInside() && longCharacterAt; }
    };
    Line line_;
    std::optional<std::uint64_t> utf8LineAt_;  ///< in the first line that is surely UTF-8
};

/// Number of characters in a piece of a table.
std::size_t CharacterCount(std::string_view bytes, TableEncoding encoding);

/// A piece of a table in UTF-8.
std::string Utf8Of(std::string_view bytes, TableEncoding encoding);
