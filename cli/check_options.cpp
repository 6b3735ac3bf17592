#include "cli/check_options.h"

std::vector<NamedFile> OutputsOf(const CheckOptions& options) {
    using Use = NamedFile::Use;
    const FigureFiles& files = options.figureFiles;
    return {{"the JSON file", files.json, Use::kWritten},
            {"the table", files.table, Use::kWritten},
            {"the table of members", files.memberTable, Use::kWritten}};
}
