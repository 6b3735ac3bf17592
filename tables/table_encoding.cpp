#include "tables/table_encoding.h"

#include <algorithm>
#include <cstring>

#include "platform/shift_jis.h"

namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

// Length of the ASCII characters other than zero at the start of `bytes`.
std::size_t PlainLength(std::string_view bytes) {
    if (bytes.empty()) return 0;
    const auto* const zero = std::memchr(bytes.data(), 0, bytes.size());
    const std::size_t end =
        zero == nullptr ? bytes.size()
                        : static_cast<std::size_t>(static_cast<const char*>(zero) - bytes.data());
    // Eight at once: most tables have no other bytes at all.
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::size_t i = 0;
    for (; i + sizeof(std::uint64_t) <= end; i += sizeof(std::uint64_t)) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data() + i, sizeof eight);
        if ((eight & kHighBits) != 0) break;
    }
    while (i < end && IsAscii(bytes[i]))
        ++i;
    return i;
}

bool IsBetween(unsigned char byte, int lowest, int highest) {
    return lowest <= byte && byte <= highest;
}

bool IsShiftJisLead(unsigned char byte) {
    return IsBetween(byte, 0x81, 0x9F) || IsBetween(byte, 0xE0, 0xFC);
}

bool IsShiftJisTrail(unsigned char byte) {
    return IsBetween(byte, 0x40, 0x7E) || IsBetween(byte, 0x80, 0xFC);
}

bool IsHalfWidthKatakana(unsigned char byte) {
    return IsBetween(byte, 0xA1, 0xDF);
}

}  // namespace

bool Utf8Bytes::Take(unsigned char byte) {
    if (left_ > 0) {
        if (!IsBetween(byte, lowest_, highest_)) {
            left_ = 0;
            return false;
        }
        --left_;
    } else if (IsBetween(byte, 0xC2, 0xDF)) {
        left_ = 1;
    } else if (IsBetween(byte, 0xE0, 0xEF)) {
        left_ = 2;
    } else if (IsBetween(byte, 0xF0, 0xF4)) {
        left_ = 3;
    } else if (byte >= 0x80) {
        return false;
    }
    lowest_ = byte == 0xE0 ? 0xA0 : byte == 0xF0 ? 0x90 : 0x80;
    highest_ = byte == 0xED ? 0x9F : byte == 0xF4 ? 0x8F : 0xBF;
    return true;
}

void EncodingScan::Fail(Fault fault) {
    hasFault_ = true;
    found_.fault = fault;
    found_.faultAt = at_;
}

void EncodingScan::Take(std::string_view bytes) {
    while (!bytes.empty() && !hasFault_) {
        if (!IsInsideCharacter()) {
            const std::size_t plain = PlainLength(bytes);
            if (line_.hasOtherThanAscii &&
                bytes.substr(0, plain).find_first_of("\r\n") != std::string_view::npos)
                EndLine();
            at_ += plain;
            bytes.remove_prefix(plain);
            if (bytes.empty()) return;
        }
        TakeByte(static_cast<unsigned char>(bytes.front()));
        bytes.remove_prefix(1);
        ++at_;
    }
}

void EncodingScan::TakeByte(unsigned char byte) {
    if (at_ == 0) beginsLikeUtf16_ = byte == 0xFF || byte == 0xFE;
    if (at_ == 1 && beginsLikeUtf16_ && (byte == 0xFE || byte == 0xFF)) {
        Fail(Fault::kUtf16);
        found_.faultAt = 0;
        return;
    }
    if (byte == 0) return Fail(Fault::kZeroByte);
    TakeInLine(byte);
    if (byte == '\n' || byte == '\r') EndLine();
    if (!utf8Fault_ && !utf8_.Take(byte)) utf8Fault_ = at_;
    if (!shiftJisFault_) TakeShiftJis(byte);
    const bool waitsForTheMark = at_ == 0 && beginsLikeUtf16_;
    if (!utf8Fault_ || !shiftJisFault_ || waitsForTheMark) return;
    Fail(Fault::kNoCharacter);
    found_.faultAt = std::max(*utf8Fault_, *shiftJisFault_);
}

void EncodingScan::TakeInLine(unsigned char byte) {
    constexpr unsigned char kThreeBytes = 0xE0;
    if (byte >= 0x80) line_.hasOtherThanAscii = true;
    if (!line_.utf8.IsInside() && byte >= kThreeBytes && !line_.longCharacterAt)
        line_.longCharacterAt = at_;
    if (!line_.utf8.Take(byte)) line_.isUtf8 = false;
}

void EncodingScan::EndLine() {
    if (line_.IsSurelyUtf8() && !utf8LineAt_) utf8LineAt_ = line_.longCharacterAt;
    line_ = {};
}

void EncodingScan::TakeShiftJis(unsigned char byte) {
    if (shiftJisLeft_) {
        shiftJisLeft_ = false;
        if (!IsShiftJisTrail(byte)) shiftJisFault_ = at_;
    } else if (IsShiftJisLead(byte)) {
        shiftJisLeft_ = true;
    } else if (byte >= 0x80 && !IsHalfWidthKatakana(byte)) {
        shiftJisFault_ = at_;
    }
}

EncodingScan::Found EncodingScan::Finish() const {
    Found found = found_;
    if (hasFault_) return found;
    const bool isUtf8 = !utf8Fault_ && !utf8_.IsInside();
    const bool isShiftJis = !shiftJisFault_ && !shiftJisLeft_;
    if (isUtf8) return found;
    found.encoding = TableEncoding::kShiftJis;
    const auto utf8LineAt =
        utf8LineAt_ || !line_.IsSurelyUtf8() ? utf8LineAt_ : line_.longCharacterAt;
    if (isShiftJis && utf8LineAt) {
        found.fault = Fault::kMixed;
        found.faultAt = *utf8LineAt;
    }
    if (isShiftJis) return found;
    found.fault = Fault::kNoCharacter;
    found.faultAt = std::max(utf8Fault_.value_or(at_), shiftJisFault_.value_or(at_));
    return found;
}

std::size_t CharacterCount(std::string_view bytes, TableEncoding encoding) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (encoding == TableEncoding::kUtf8) {
            if (!IsBetween(byte, 0x80, 0xBF)) ++count;
        } else {
            if (IsShiftJisLead(byte)) ++i;
            ++count;
        }
    }
    return count;
}

std::string Utf8Of(std::string_view bytes, TableEncoding encoding) {
    if (encoding == TableEncoding::kUtf8 || PlainLength(bytes) == bytes.size())
        return std::string(bytes);
    return Utf8OfShiftJis(bytes);
}
