#include "tests/app/template_reader.h"

#include <cstring>
#include <stdexcept>

namespace {

class TemplateBytes {
public:
    explicit TemplateBytes(const std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    template <typename T>
    T Take() {
        if (at_ + sizeof(T) > bytes_.size()) throw std::runtime_error("the template ends early");
        T value;
        std::memcpy(&value, &bytes_[at_], sizeof(T));
        at_ += sizeof(T);
        return value;
    }

    // A zero-terminated text, or a number behind 0xFFFF as "#number".
    std::wstring TakeText() {
        const auto first = Take<std::uint16_t>();
        if (first == 0xFFFF) return L"#" + std::to_wstring(Take<std::uint16_t>());
        std::wstring text;
        for (auto unit = first; unit != 0; unit = Take<std::uint16_t>()) {
            text += static_cast<wchar_t>(unit);
        }
        return text;
    }

    void Align() { at_ = (at_ + 3) / 4 * 4; }

private:
    const std::vector<std::uint8_t>& bytes_;
    std::size_t at_ = 0;
};

std::wstring ClassName(const std::wstring& inTemplate) {
    if (inTemplate == L"#128") return L"button";
    if (inTemplate == L"#130") return L"static";
    if (inTemplate == L"#131") return L"listbox";
    return inTemplate;
}

TemplateControl TakeControl(TemplateBytes& bytes) {
    bytes.Align();
    TemplateControl control;
    bytes.Take<std::uint32_t>();  // help identifier
    control.extendedStyle = bytes.Take<std::uint32_t>();
    control.style = bytes.Take<std::uint32_t>();
    control.x = bytes.Take<short>();
    control.y = bytes.Take<short>();
    control.width = bytes.Take<short>();
    control.height = bytes.Take<short>();
    control.id = bytes.Take<std::uint32_t>();
    control.windowClass = ClassName(bytes.TakeText());
    control.text = bytes.TakeText();
    bytes.Take<std::uint16_t>();  // length of creation data
    return control;
}

}  // namespace

DialogTemplate ReadDialogTemplate(const std::vector<std::uint8_t>& resource) {
    TemplateBytes bytes(resource);
    DialogTemplate dialog;
    if (bytes.Take<std::uint16_t>() != 1 || bytes.Take<std::uint16_t>() != 0xFFFF) {
        throw std::runtime_error("not an extended template");
    }
    bytes.Take<std::uint32_t>();  // help identifier
    dialog.extendedStyle = bytes.Take<std::uint32_t>();
    dialog.style = bytes.Take<std::uint32_t>();
    const auto controls = bytes.Take<std::uint16_t>();
    dialog.x = bytes.Take<short>();
    dialog.y = bytes.Take<short>();
    dialog.width = bytes.Take<short>();
    dialog.height = bytes.Take<short>();
    dialog.menu = bytes.TakeText();
    dialog.windowClass = bytes.TakeText();
    dialog.caption = bytes.TakeText();
    dialog.fontPoints = bytes.Take<std::uint16_t>();
    bytes.Take<std::uint16_t>();  // weight
    bytes.Take<std::uint16_t>();  // italic, character set
    dialog.fontName = bytes.TakeText();
    for (int i = 0; i < controls; ++i)
        dialog.controls.push_back(TakeControl(bytes));
    return dialog;
}
