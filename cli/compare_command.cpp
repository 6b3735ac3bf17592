#include "cli/compare_command.h"

#include <iostream>

#include "cli/messages.h"
#include "compare/change_text.h"
#include "compare/changes.h"
#include "compare/comparison_page.h"
#include "platform/distinct_files.h"
#include "platform/whole_file.h"

namespace {

bool WritePage(const std::string& path, const std::string& page) {
    try {
        WriteWholeFile(path, page);
        return true;
    } catch (const WholeFileError& error) {
        TellError(path + ": not written: " + error.what());
        return false;
    }
}

}  // namespace

ExitCode CompareFigureFiles(const std::string& pathA, const std::string& pathB,
                            const std::string& pagePath, const CompareOptions& options) {
    using Use = NamedFile::Use;
    const auto collision = WhyFilesCollide({{"the first run", pathA, Use::kRead},
                                            {"the second run", pathB, Use::kRead},
                                            {"the page", pagePath, Use::kWritten}});
    if (collision) {
        TellError(*collision + "; nothing was written");
        return kExitUsage;
    }
    RunRead a, b;
    try {
        a = ReadFiguresFile(pathA);
        b = ReadFiguresFile(pathB);
    } catch (const FiguresFileError& error) {
        TellError(error.what());
        return kExitUsage;
    }
    const Comparison comparison = CompareRuns(a, b, options.tolerance);
    std::cout << ChangeText(a, b, comparison, options.onlyChanges) << std::flush;
    if (!pagePath.empty() && !WritePage(pagePath, ComparisonPage(a, b, comparison)))
        return kExitEndedEarly;
    return comparison.AnyVerdictChanged() ? kExitVerdict : kExitComplete;
}
