#include <windows.h>

#include "platform/narrow_text.h"
#include "platform/shift_jis.h"

namespace {

constexpr UINT kShiftJis = 932;

}  // namespace

std::string Utf8OfShiftJis(std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(kShiftJis, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(kShiftJis, 0, bytes.data(), length, wide.data(), size);
    return Utf8OfWideText(wide);
}
