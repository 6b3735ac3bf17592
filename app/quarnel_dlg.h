#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "compute/compute_run.h"
#include "desktop/modal_dialog.h"
#include "desktop/status_list_box.h"
#include "host/live_host.h"

/// The main dialog: the File menu, the current input, the status list, Compute and Done.
class CQuarnelDlg : public ModalDialog {
public:
    CQuarnelDlg();

protected:
    void OnInitDialog() override;
    bool OnCommand(int id) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnLoadInput();
    void OnOpenInput();
    void OnCreateInput();
    void OnBnClickedCompute();
    void OnViewLog();
    void OnViewResults();

    bool OnSysCommand(WPARAM command);
    bool OnPaint();

    void AddAboutToSystemMenu();
    void ShowCurrentInput();
    bool MayReplace(const std::wstring& path);

    StatusListBox statusList_;
    std::wstring currentInput_;  ///< what the "Current Input:" line shows
    HICON icon_;                 ///< shared, not to be destroyed
    std::string inputFilePath_;
    ReportPaths reports_;  ///< of the last run that reached the host
    LiveHost host_;
    bool computing_ = false;
};
