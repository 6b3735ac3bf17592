#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

/// A control as a dialog template has it; positions and sizes in dialog units.
struct TemplateControl {
    std::uint32_t id = 0;
    std::wstring windowClass;  ///< "button", "static", "listbox"
    std::wstring text;         ///< "#128" for a resource number
    short x = 0, y = 0, width = 0, height = 0;
    std::uint32_t style = 0, extendedStyle = 0;
};

/// A dialog template in the extended form.
struct DialogTemplate {
    std::wstring caption, menu, windowClass, fontName;
    short x = 0, y = 0, width = 0, height = 0;
    std::uint32_t style = 0, extendedStyle = 0;
    int fontPoints = 0;
    std::vector<TemplateControl> controls;
};

/// Reads an RT_DIALOG resource. Throws std::runtime_error on any other than the extended form.
DialogTemplate ReadDialogTemplate(const std::vector<std::uint8_t>& bytes);
