#include "app/quarnel_app.h"

#include "app/quarnel_dlg.h"

bool CQuarnelApp::InitInstance() {
    CQuarnelDlg dialog;
    dialog.DoModal(nullptr);
    return false;
}
