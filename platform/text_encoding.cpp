#include "platform/text_encoding.h"

#include <algorithm>

#include "platform/shift_jis.h"
#include "platform/utf8_character.h"

namespace {

bool IsBetween(char byte, int lowest, int highest) {
    const int value = static_cast<unsigned char>(byte);
    return lowest <= value && value <= highest;
}

bool IsLead(char byte) {
    return IsBetween(byte, 0x81, 0x9F) || IsBetween(byte, 0xE0, 0xFC);
}

bool IsTrail(char byte) {
    return IsBetween(byte, 0x40, 0x7E) || IsBetween(byte, 0x80, 0xFC);
}

// ASCII and the half-width katakana.
bool IsSingle(char byte) {
    return IsBetween(byte, 0x00, 0x7F) || IsBetween(byte, 0xA1, 0xDF);
}

// Where the first byte stands that is no part of a Shift_JIS character; the size when there is
// none.
std::size_t ShiftJisFault(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        if (IsSingle(bytes[i]))
            ++i;
        else if (IsLead(bytes[i]) && (i + 1 == bytes.size() || IsTrail(bytes[i + 1])))
            i += 2;
        else
            return i;
    }
    return bytes.size();
}

bool IsCutUtf8(std::string_view bytes) {
    const bool goesOn =
        std::ranges::all_of(bytes.substr(1), [](char next) { return IsBetween(next, 0x80, 0xBF); });
    return bytes.size() < Utf8SizeByFirstByte(bytes.front()) && goesOn;
}

// Where the first byte stands that is no part of a UTF-8 character; the size when there is none.
std::size_t Utf8Fault(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        const std::string_view rest = bytes.substr(i);
        const Utf8Character character = FirstUtf8Character(rest);
        if (character.code == kNoUtf8Character) return IsCutUtf8(rest) ? bytes.size() : i;
        i += character.size;
    }
    return bytes.size();
}

}  // namespace

EncodingFound FindEncoding(std::string_view bytes) {
    const std::size_t utf8Fault = Utf8Fault(bytes);
    if (utf8Fault == bytes.size()) return {TextEncoding::kUtf8, 0};
    const std::size_t shiftJisFault = ShiftJisFault(bytes);
    if (shiftJisFault == bytes.size()) return {TextEncoding::kShiftJis, 0};
    return {TextEncoding::kUnknown, std::max(utf8Fault, shiftJisFault)};
}

std::string ToUtf8(std::string_view bytes, TextEncoding encoding) {
    if (encoding == TextEncoding::kShiftJis) return Utf8OfShiftJis(bytes);
    std::string text;
    for (std::string_view rest = bytes; !rest.empty();) {
        const Utf8Character character = FirstUtf8Character(rest);
        text += character.code == kNoUtf8Character ? kReplacementCharacter
                                                   : rest.substr(0, character.size);
        rest.remove_prefix(character.size);
    }
    return text;
}
