#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "desktop/modal_dialog.h"
#include "input/input_check.h"
#include "platform/user_language.h"
#include "sheetapp/run_thread.h"
#include "sheetapp/window_texts.h"

/// The window of QuarnelSheet.exe: takes an input file, shows what its check finds, runs and opens
/// the calculation sheet.
class SheetDialog : public ModalDialog {
public:
    /// `files` are those that the program was started with.
    SheetDialog(std::vector<std::wstring> files, Language language);
    ~SheetDialog() override;

protected:
    void OnInitDialog() override;
    bool OnCommand(int id) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    /// What the window is at, which says what it shows and which buttons it has.
    enum class Stage { kChoosing, kInputNotRead, kInputErrors, kRunning, kEnded };

    void ReceiveFiles(const std::vector<std::wstring>& files);
    void Begin();
    void ChooseInput();
    void CheckInput();
    void ShowInputErrors(bool isRead);
    void StartRun();
    void ShowRun();
    void EndRun();
    void ShowEnd();
    void Cancel();
    void Close();

    void Enter(Stage stage);
    void ShowButtons();
    void PlaceButtons();
    void ShowButton(int id, bool isShown);
    void PlaceAt(int id, int other);
    void FocusOn(int id);
    void SetText(int id, const std::string& utf8);
    void SetText(int id, WindowText text) { SetText(id, TextOf(text, language_)); }
    void SetLines(const std::string& utf8);
    bool FitsHeadline(const std::string& utf8);
    void ShowInput();
    void OpenFile(const std::string& path);
    void MakeHeadlineFont();

    std::vector<std::wstring> firstFiles_;
    Language language_;
    Stage stage_ = Stage::kChoosing;
    RunRequest request_;
    RunResult result_;
    std::string inputLines_;  ///< what the check of the input file says
    std::string shownLines_;  ///< what the list of lines shows
    bool closes_ = false;     ///< the user has closed the window during a run
    HFONT headlineFont_ = nullptr;
    RunThread thread_;
};
