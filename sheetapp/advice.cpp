#include "sheetapp/advice.h"

#include <algorithm>

#include "platform/native_path.h"
#include "sheetapp/filled_text.h"

namespace {

enum class Trouble {
    kCancelled,
    kRecording,
    kNoInput,
    kNoHost,
    kHostBusy,
    kHostGone,
    kHostDenies,
    kHostFails,
    kRecordingFails,
    kNoResults,
    kRecordingWithoutResults,
    kLogHeld,
    kLogNotWritten,
    kInputWithoutEnd,
    kMissingAnswer,
    kFilesCollide,
    kOther,
    kResultsNotWritten,
    kIncomplete,
    kSheetNotWritten,
};

struct Words {
    Trouble trouble;
    const char* whatEn;
    const char* whatJa;
    const char* todoEn;
    const char* todoJa;
};

// {1} is what the run itself has to say, or the file it is about; {2} another file.
constexpr Words kWords[] = {
    {Trouble::kCancelled, "Cancelled. No sheet was made; the log ends where the run was.",
     "中止しました。計算書は作成していません。処理記録は中止した所までです。",
     "Again starts the run anew.", "「再実行」で最初から計算します。"},
    {Trouble::kRecording, "The recorded building cannot be read: {1}.",
     "建物の記録を読めません: {1}", "Record the building again, or choose another file.",
     "もう一度記録するか、別のファイルを選択してください。"},
    {Trouble::kNoInput, "The input file {1} does not exist.", "入力ファイル {1} がありません。",
     "Choose another one.", "別のファイルを選択してください。"},
    {Trouble::kNoHost, "No running host was found.", "実行中のホストが見つかりません。",
     "Start the host, open the model and analyse it, then press Again. If it is running: start it "
     "and this program with the same rights, both as administrator or neither.",
     "ホストを起動し、モデルを開いて解析した後、「再実行」を押してください。起動している場合は、"
     "ホストとこのプログラムを同じ権限で(両方とも管理者として、または両方とも通常どおり)"
     "起動してください。"},
    {Trouble::kHostBusy, "The host was busy for a minute and took no calls.",
     "ホストが1分間応答できませんでした。",
     "Close the dialog that it shows, or wait until it has recalculated, then press Again.",
     "ホストのダイアログを閉じるか、再計算の終了を待って、「再実行」を押してください。"},
    {Trouble::kHostGone, "The host has ended during the run.", "計算中にホストが終了しました。",
     "Start it again, open the analysed model, then press Again.",
     "ホストを起動し、解析済みのモデルを開いて、「再実行」を押してください。"},
    {Trouble::kHostDenies, "The host does not let this program in.",
     "ホストがこのプログラムの接続を許可しません。",
     "Start the host and this program with the same rights, both as administrator or neither.",
     "ホストとこのプログラムを同じ権限で(両方とも管理者として、または両方とも通常どおり)"
     "起動してください。"},
    {Trouble::kHostFails, "A call to the host failed: {1}.", "ホストの呼出しが失敗しました: {1}",
     "See whether the host shows a message, then press Again.",
     "ホストにメッセージが出ていないか確認し、「再実行」を押してください。"},
    {Trouble::kRecordingFails, "The recorded building has no such answer: {1}.",
     "建物の記録に答えがありません: {1}",
     "The input file may be another building's: choose the one of this building, or record it "
     "again.",
     "入力ファイルが別の建物のものかもしれません。この建物の入力ファイルを選択するか、建物を記録し"
     "直して"
     "ください。"},
    {Trouble::kNoResults, "The model has no analysis results.", "モデルに解析結果がありません。",
     "Run the analysis in the host, then press Again.",
     "ホストで解析を実行し、「再実行」を押してください。"},
    {Trouble::kRecordingWithoutResults, "The recorded building has no analysis results.",
     "建物の記録に解析結果がありません。",
     "Run the analysis in the host, record the building again, then press Again.",
     "ホストで解析を実行して建物を記録し直し、「再実行」を押してください。"},
    {Trouble::kLogHeld, "The log {1} is in use by another run or program.",
     "処理記録 {1} を別の計算かプログラムが使用中です。", "Close it there, then press Again.",
     "そちらを閉じて、「再実行」を押してください。"},
    {Trouble::kLogNotWritten, "The log {1} cannot be written.", "処理記録 {1} を書き込めません。",
     "Log, results and sheet go beside the model. Put it in a folder where you may write, and see "
     "that none of these files there is read-only; then press Again.",
     "処理記録・結果・計算書はモデルと同じフォルダに作成します。書込みのできるフォルダにモデルを"
     "置き、これらのファイルが読取り専用でないことを確認して、「再実行」を押してください。"},
    {Trouble::kInputWithoutEnd, "The input file cannot be read to a line that begins with FIN.",
     "入力ファイルを FIN で始まる行まで読めません。", "Write FIN as its last line.",
     "最終行に FIN を書いてください。"},
    {Trouble::kMissingAnswer, "The recording has no answer to {1}; it was made for {2}.",
     "記録に {1} の答えがありません。この記録は {2} のためのものです。",
     "Choose that input file, or record the building again with all its answers.",
     "その入力ファイルを選択するか、すべての答えを記録し直してください。"},
    {Trouble::kFilesCollide, "Nothing was written: {1}.", "何も書き込んでいません: {1}",
     "Give the files different names.", "ファイルの名前を変えてください。"},
    {Trouble::kOther, "The run ended early: {1}.", "計算は途中で終了しました: {1}",
     "See the log, then press Again.", "処理記録を確認し、「再実行」を押してください。"},
    {Trouble::kResultsNotWritten, "The results {1} could not be written.",
     "結果 {1} を書き込めませんでした。",
     "Close the file in the spreadsheet, or take its write protection off, then press Again. What "
     "stands there is of an earlier run.",
     "表計算ソフトでファイルを閉じるか、読取り専用を解除して、「再実行」を押してください。今あるも"
     "のは"
     "以前の結果です。"},
    {Trouble::kIncomplete, "{1} is incomplete.", "{1} が最後まで書かれていません。",
     "See that the disk has room, then press Again.",
     "ディスクの空きを確認し、「再実行」を押してください。"},
    {Trouble::kSheetNotWritten, "The sheet could not be written. {1}.",
     "計算書を書き込めませんでした。{1}",
     "Close it where it is open, see that the folder can be written to, then press Again.",
     "開いている場合は閉じ、フォルダに書き込めることを確認して、「再実行」を押してください。"},
};

Advice AdviceOn(Trouble trouble, Language language, const std::string& first = {},
                const std::string& second = {}) {
    const bool ja = language == Language::kJapanese;
    for (const Words& words : kWords)
        if (words.trouble == trouble)
            return {FilledText(ja ? words.whatJa : words.whatEn, Utf8Text(first), Utf8Text(second)),
                    ja ? words.todoJa : words.todoEn};
    return {};
}

constexpr std::int32_t Status(std::uint32_t code) {
    return static_cast<std::int32_t>(code);
}

// Calls that a busy host rejected to the end.
constexpr std::int32_t kRejected[] = {Status(0x80010001), Status(0x8001010A)};

// What a call answers when the other process has gone, before the call or during it.
constexpr std::int32_t kGone[] = {Status(0x800706BA), Status(0x800706BE), Status(0x800706BF),
                                  Status(0x80010007), Status(0x80010012), Status(0x80010108),
                                  Status(0x800401FD)};

constexpr std::int32_t kDenied = Status(0x80070005);

Trouble TroubleOfHost(std::int32_t status) {
    if (std::ranges::find(kRejected, status) != std::end(kRejected)) return Trouble::kHostBusy;
    if (std::ranges::find(kGone, status) != std::end(kGone)) return Trouble::kHostGone;
    return status == kDenied ? Trouble::kHostDenies : Trouble::kHostFails;
}

Trouble TroubleOfStart(const RunOutcome& outcome) {
    if (outcome.logWritten) return Trouble::kInputWithoutEnd;
    return outcome.logIsHeld ? Trouble::kLogHeld : Trouble::kLogNotWritten;
}

Trouble TroubleOf(const RunResult& result, bool isRecorded) {
    const RunOutcome& outcome = result.outcome;
    const auto shows = [&result](StatusText line) {
        return std::ranges::find(result.lines, line) != result.lines.end();
    };
    if (result.cancelled) return Trouble::kCancelled;
    if (!result.recordingFailure.empty()) return Trouble::kRecording;
    if (shows(StatusText::kInputDoesNotExist)) return Trouble::kNoInput;
    if (shows(StatusText::kNoConnection))
        return result.hostWasBusy ? Trouble::kHostBusy : Trouble::kNoHost;
    if (!outcome.missingAnswer.empty()) return Trouble::kMissingAnswer;
    if (outcome.hostFailed)
        return isRecorded ? Trouble::kRecordingFails : TroubleOfHost(outcome.hostStatus);
    if (outcome.filesCollide) return Trouble::kFilesCollide;
    if (shows(StatusText::kResultsNotAvailable))
        return isRecorded ? Trouble::kRecordingWithoutResults : Trouble::kNoResults;
    if (shows(StatusText::kInitializeFailed)) return TroubleOfStart(outcome);
    return Trouble::kOther;
}

}  // namespace

Advice AdviceOnFailure(const RunRequest& request, const RunResult& result, Language language) {
    const Trouble trouble = TroubleOf(result, !request.recording.empty());
    switch (trouble) {
        case Trouble::kRecording:
            return AdviceOn(trouble, language, result.recordingFailure);
        case Trouble::kNoInput:
            return AdviceOn(trouble, language, request.input);
        case Trouble::kLogHeld:
        case Trouble::kLogNotWritten:
            return AdviceOn(trouble, language, result.reports.logFile);
        case Trouble::kMissingAnswer:
            return AdviceOn(trouble, language, result.outcome.missingAnswer,
                            result.outcome.recordedFor);
        default:
            return AdviceOn(trouble, language, result.outcome.failure);
    }
}

Advice AdviceOnFiles(const RunResult& result, Language language) {
    const RunOutcome& outcome = result.outcome;
    if (outcome.resultsNotOpened)
        return AdviceOn(Trouble::kResultsNotWritten, language, result.reports.resultFile);
    if (!outcome.incompleteReports.empty())
        return AdviceOn(Trouble::kIncomplete, language, outcome.incompleteReports.front());
    if (!result.sheetFailure.empty())
        return AdviceOn(Trouble::kSheetNotWritten, language, result.sheetFailure);
    return {};
}
