#include "cli/figure_files.h"

#include "cli/messages.h"
#include "platform/whole_file.h"
#include "report/figures_json.h"
#include "report/flat_table.h"

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

bool WriteFigureFiles(const Findings& findings, const RunDescription& run,
                      const FigureFiles& files) {
    bool isWritten = true;
    if (!files.json.empty()) isWritten &= Write(files.json, FiguresJson(findings, run));
    if (!files.table.empty()) isWritten &= Write(files.table, FlatTable(findings));
    if (!files.memberTable.empty())
        isWritten &= Write(files.memberTable, FlatMemberTable(findings));
    return isWritten;
}
