#include "sheet/sheet_file.h"

#include <cstdio>
#include <optional>
#include <utility>

#include "platform/file_facts.h"
#include "platform/native_path.h"
#include "platform/sha256.h"
#include "platform/system_name.h"
#include "platform/whole_file.h"
#include "route2/report_paths.h"
#include "sheet/input_as_read.h"
#include "sheet/sheet.h"

namespace {

// As pages have it.
std::string InUtf8(const std::string& path) {
    const std::u8string text = NativePath(path).u8string();
    return {text.begin(), text.end()};
}

// `sha256`: where it is known already, since a large file takes its time.
SheetFile Described(const std::string& path, bool tellsTime,
                    const std::optional<std::string>& sha256 = std::nullopt) {
    SheetFile file;
    file.path = InUtf8(path);
    const FileFacts facts = FactsOfFile(path);
    file.size = facts.size;
    if (tellsTime) file.modified = facts.modified;
    file.sha256 = sha256 ? sha256 : Sha256OfFile(path);
    return file;
}

// Of a report that this run has not written: its name alone.
SheetFile DescribedReport(const std::string& path, bool isWritten, bool tellsTime) {
    if (isWritten) return Described(path, tellsTime);
    SheetFile file;
    file.path = InUtf8(path);
    return file;
}

// "2026-11-21T20:24:05+09:00" as "2026-11-21 20:24:05 +09:00".
std::string SpacedTime(std::string time) {
    constexpr std::size_t kDate = 10;
    constexpr std::size_t kTime = 19;
    if (time.size() <= kTime || time[kDate] != 'T') return time;
    time[kDate] = ' ';
    return time.insert(kTime, " ");
}

}  // namespace

SheetContent FormSheetContent(Findings findings, const InputCheck& input,
                              const SheetSources& sources) {
    const bool tellsTime = !sources.dateIsGiven;
    const bool hasResults = findings.end.resultsWritten;
    SheetContent content;
    content.inputAsRead = FormInputAsRead(input, findings);
    content.findings = std::move(findings);
    content.run = sources.run;
    content.program = sources.program;
    if (tellsTime) content.platform = kSystemName;
    content.made = tellsTime ? SpacedTime(sources.run.made) : sources.run.made;
    content.hostModelPath = sources.hostModelPath;
    content.commandLine = sources.commandLine;
    content.model = Described(sources.run.modelPath, tellsTime, sources.run.modelSha256);
    content.input = Described(sources.run.inputPath, tellsTime, sources.run.inputSha256);
    content.results = DescribedReport(sources.resultsPath, hasResults, tellsTime);
    content.log = Described(sources.logPath, tellsTime);
    content.sheetLines = SheetLinesOf(input.text);
    content.options = sources.options;
    return content;
}

void WriteSheetFile(const SheetContent& content, const std::string& path) {
    WholeFile file(path);
    FormSheet(content, [&file](std::string_view piece) {
        std::fwrite(piece.data(), 1, piece.size(), file.Stream());
    });
    file.Finish();
}

std::string SheetPath(const std::string& modelPath) {
    return ReportStem(modelPath) + "aijR2Sheet.html";
}
