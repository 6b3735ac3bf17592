#include "desktop/message_box.h"

#include <exception>
#include <new>

#include "desktop/resource.h"
#include "desktop/resource_text.h"
#include "platform/narrow_text.h"

namespace {

std::wstring TextOfCurrentException() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return ResourceText(IDS_OPEN_OUT_OF_MEMORY);
    } catch (const std::exception& failure) {
        return WideText(failure.what());
    } catch (...) {
        return L"The command failed for an unknown reason.";
    }
}

}  // namespace

int ShowMessageBox(HWND owner, const std::wstring& text, UINT style) {
    return MessageBoxW(owner, text.c_str(), L"Quarnel", style);
}

void ReportCurrentException(HWND owner) {
    ShowMessageBox(owner, TextOfCurrentException(), MB_OK | MB_ICONSTOP);
}
