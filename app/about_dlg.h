#pragma once

#include "desktop/modal_dialog.h"
#include "desktop/resource.h"

/// The About box: everything it shows stands in its template.
class CAboutDlg : public ModalDialog {
public:
    CAboutDlg() : ModalDialog(IDD_ABOUT) {}
};
