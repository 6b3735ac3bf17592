#include "sheetapp/window_texts.h"

namespace {

struct Entry {
    WindowText text;
    const char* en;
    const char* ja;
};

// No letter twice among the buttons that can be seen together.
constexpr Entry kEntries[] = {
    {WindowText::kTitle, "Quarnel Sheet", "Quarnel 計算書"},
    {WindowText::kInputLabel, "Input file:", "入力ファイル:"},
    {WindowText::kNoInput, "(none yet)", "(未選択)"},
    {WindowText::kChoose, "&Choose...", "選択(&C)..."},
    {WindowText::kOpenInput, "Open &Input", "入力を開く(&I)"},
    {WindowText::kRunAnyway, "R&un Anyway", "このまま実行(&U)"},
    {WindowText::kOpenSheet, "Open &Sheet", "計算書(&S)"},
    {WindowText::kOpenResults, "Open &Results", "結果(&R)"},
    {WindowText::kOpenLog, "Open &Log", "処理記録(&L)"},
    {WindowText::kAgain, "&Again", "再実行(&A)"},
    {WindowText::kCheckAgain, "Check &Again", "再検査(&A)"},
    {WindowText::kCancel, "Cancel", "キャンセル"},
    {WindowText::kClose, "Close", "閉じる"},
    {WindowText::kDropHere,
     "Choose a Route 2 Input file, or drop one here. A recorded building (.qhm) can be dropped "
     "too.",
     "ルート2の入力ファイルを選択するか、ここにドロップしてください。建物の記録 (.qhm) "
     "もドロップできます。"},
    {WindowText::kChecking, "Checking the input file...", "入力ファイルを検査しています..."},
    {WindowText::kInputHasErrors, "The input file has errors. Mend them, or run anyway.",
     "入力ファイルに誤りがあります。修正するか、このまま実行してください。"},
    {WindowText::kInputNotRead, "The input file cannot be read. Choose another one.",
     "入力ファイルを読めません。別のファイルを選択してください。"},
    {WindowText::kInputOnRecording, "{1}, on {2}", "{1} (記録 {2})"},
    {WindowText::kRunning, "Running on the model of the running host...",
     "実行中のホストのモデルで計算しています..."},
    {WindowText::kRunningRecording, "Running on the recorded building {1}...",
     "建物の記録 {1} で計算しています..."},
    {WindowText::kHostIsBusy,
     "The host is busy: it shows a dialog or recalculates. Waiting for it, up to a minute...",
     "ホストは応答できません(ダイアログの表示中か再計算中)。最長1分間待ちます..."},
    {WindowText::kCancelling, "Cancelling, as soon as the host has answered...",
     "ホストの応答を待って中止します..."},
    {WindowText::kWaitingToClose,
     "Closing, as soon as the host has answered. Close once more to leave without waiting.",
     "ホストの応答を待って閉じます。待たずに終了するには、もう一度閉じてください。"},
    {WindowText::kRecordingNeedsInput,
     "Recorded building {1}: choose the Route 2 Input file for it.",
     "建物の記録 {1}: 対応するルート2の入力ファイルを選択してください。"},
    {WindowText::kAnswers, "{1}   Answers of the host: {2}", "{1}   ホストの応答: {2} 件"},
    {WindowText::kInputFindings, "What the input file shows by itself:", "入力ファイルの検査結果:"},
    {WindowText::kFileIsGone,
     "{1} is not there any more. If it was written by the run, Again makes it anew.",
     "{1} がありません。計算で作成したものであれば、「再実行」で作り直してください。"},
    {WindowText::kNoProgramOpens,
     "No program opens {1}. Set one in Windows for files of its kind, or open it from there.",
     "{1} を開くプログラムがありません。Windows でこの種類のファイルを開くプログラムを設定するか、"
     "プログラムの側から開いてください。"},
    {WindowText::kNotInputOrRecording,
     "{1} is neither a Route 2 Input file (.csv) nor a recorded building (.qhm).",
     "{1} は、ルート2の入力ファイル (.csv) でも建物の記録 (.qhm) でもありません。"},
    {WindowText::kOneFileOfAKind,
     "Drop one input file (.csv), one recorded building (.qhm), or one of each.",
     "入力ファイル (.csv) と建物の記録 (.qhm) は、それぞれ1つだけドロップしてください。"},
    {WindowText::kRemarks, "Remarks on the run:", "実行結果の指摘事項:"},
};

}  // namespace

std::string TextOf(WindowText text, Language language) {
    for (const Entry& entry : kEntries)
        if (entry.text == text) return language == Language::kJapanese ? entry.ja : entry.en;
    return {};
}
