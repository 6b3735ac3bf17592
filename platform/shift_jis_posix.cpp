#include <iconv.h>

#include <array>

#include "platform/shift_jis.h"
#include "platform/utf8_character.h"

namespace {

// A conversion of the C library; one that it does not have converts nothing.
class Converter {
public:
    Converter() : converter_(iconv_open("UTF-8", "CP932")) {}
    ~Converter() {
        if (IsOpen()) iconv_close(converter_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Appends what can be converted from the start of `rest` and takes it away.
    void Convert(std::string_view& rest, std::string& text) {
        if (!IsOpen()) return;
        std::array<char, 256> piece{};  // iconv wants bytes that it might change
        std::array<char, 4 * piece.size()> buffer{};
        const std::size_t size = rest.copy(piece.data(), piece.size());
        char* from = piece.data();
        std::size_t fromLeft = size;
        char* to = buffer.data();
        std::size_t toLeft = buffer.size();
        iconv(converter_, &from, &fromLeft, &to, &toLeft);
        text.append(buffer.data(), buffer.size() - toLeft);
        rest.remove_prefix(size - fromLeft);
    }

private:
    bool IsOpen() const { return converter_ != reinterpret_cast<iconv_t>(-1); }

    iconv_t converter_;
};

}  // namespace

std::string Utf8OfShiftJis(std::string_view bytes) {
    Converter converter;
    std::string text;
    while (!bytes.empty()) {
        const std::size_t before = bytes.size();
        converter.Convert(bytes, text);
        if (bytes.size() != before) continue;
        const bool isAscii = static_cast<unsigned char>(bytes.front()) < 0x80;
        text += isAscii ? bytes.substr(0, 1) : kReplacementCharacter;
        bytes.remove_prefix(1);
    }
    return text;
}
