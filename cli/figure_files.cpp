#include "cli/figure_files.h"

#include "cli/messages.h"
#include "platform/local_time.h"
#include "platform/native_path.h"
#include "platform/sha256.h"
#include "platform/whole_file.h"
#include "report/figures_json.h"
#include "report/flat_table.h"
#include "version.h"

namespace {

bool Write(const std::string& path, const std::string& bytes) {
    try {
        WriteWholeFile(path, bytes);
        return true;
    } catch (const WholeFileError& error) {
        TellError(path + ": not written: " + error.what());
        return false;
    }
}

}  // namespace

RunDescription DescribeRun(const RunSource& source, const std::string& inputPath,
                           const std::string& date) {
    RunDescription run;
    run.toolVersion = QUARNEL_VERSION_TEXT;
    run.made = date.empty() ? LocalTimeText() : Utf8Text(date);
    run.modelPath = Utf8Text(source.modelPath);
    if (source.fromRecording) run.modelSha256 = Sha256OfFile(source.modelPath);
    run.inputPath = Utf8Text(inputPath);
    run.inputSha256 = Sha256OfFile(inputPath);
    run.fromRecording = source.fromRecording;
    return run;
}

bool WriteFigureFiles(const Findings& findings, const RunDescription& run,
                      const FigureFiles& files) {
    bool isWritten = true;
    if (!files.json.empty()) isWritten &= Write(files.json, FiguresJson(findings, run));
    if (!files.table.empty()) isWritten &= Write(files.table, FlatTable(findings));
    if (!files.memberTable.empty())
        isWritten &= Write(files.memberTable, FlatMemberTable(findings));
    return isWritten;
}
