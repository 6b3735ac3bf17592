#pragma once

#include <windows.h>

#include "compute/compute_run.h"

/// The status list of the main dialog: a list box, one line per entry in the order added.
class StatusListBox : public StatusList {
public:
    /// From here on `control`, a list box, shows the lines. It stays with its dialog.
    void Attach(HWND control) noexcept { control_ = control; }

    void Clear() override;
    void Append(StatusText line) override;

    /// Appends a text of the string table. It is painted before this returns, so that a run can
    /// be followed while the dialog handles no messages.
    void AppendText(int textId);

private:
    HWND control_ = nullptr;
};
