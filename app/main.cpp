#include <windows.h>

#include "app/quarnel_app.h"
#include "desktop/message_box.h"
#include "platform/dll_search.h"
#include "platform/standard_streams.h"

// The dialog is the whole program: when it has closed there is no message loop to enter.
int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*commandLine*/,
                   int /*showCommand*/) {
    RestrictDllSearch();
    PrepareStandardStreams();
    try {
        CQuarnelApp application;
        application.InitInstance();
        return 0;
    } catch (...) {
        ReportCurrentException(nullptr);
        return 1;
    }
}
