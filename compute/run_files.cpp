#include "compute/run_files.h"

#include <utility>

#include "route2/report_paths.h"

namespace {

std::vector<NamedFile> Named(const RunFiles& files) {
    using Use = NamedFile::Use;
    return {{"the input file", files.input, Use::kRead},
            {"the model", files.model, Use::kRead},
            {"the log file", files.log, Use::kWritten},
            {"the results file", files.results, Use::kWritten}};
}

}  // namespace

RunFiles FilesOfRun(const std::string& input, const std::string& model) {
    return {input, model, LogPath(model), ResultPath(model)};
}

std::optional<std::string> RequireSourcesKept(const RunFiles& files) {
    // Each report by itself: the two may be one file.
    RunFiles logOnly = files;
    logOnly.results.clear();
    if (auto why = WhyFilesCollide(Named(logOnly))) return why;
    RunFiles resultsOnly = files;
    resultsOnly.log.clear();
    return WhyFilesCollide(Named(resultsOnly));
}

FileGuard RequireAllDistinct(std::vector<NamedFile> others) {
    return [others = std::move(others)](const RunFiles& files) {
        std::vector<NamedFile> named = Named(files);
        named.insert(named.end(), others.begin(), others.end());
        for (NamedFile& stream : StandardOutputFiles())
            named.push_back(std::move(stream));
        return WhyFilesCollide(named);
    };
}
