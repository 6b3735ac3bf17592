#include "compute/run_files.h"

#include <string_view>
#include <utility>

#include "platform/native_path.h"
#include "route2/report_paths.h"

namespace {

std::vector<NamedFile> Named(const RunFiles& files) {
    using Use = NamedFile::Use;
    return {{"the input file", files.input, Use::kRead},
            {"the model", files.model, Use::kRead},
            {"the log file", files.log, Use::kWritten},
            {"the results file", files.results, Use::kWritten}};
}

// The name of a file, without its folder and its extension.
std::string BareName(const std::string& path) {
    std::string name = path.substr(path.find_last_of(kPathSeparators) + 1);
    const std::size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) name.resize(dot);
    return name;
}

}  // namespace

RunFiles FilesOfRun(const std::string& input, const std::string& model,
                    const std::string& reportFolder) {
    const std::string named =
        reportFolder.empty() ? model : NameOfReportsIn(reportFolder, model, input);
    return {input, model, LogPath(named), ResultPath(named)};
}

std::string NameOfReportsIn(const std::string& folder, const std::string& model,
                            const std::string& input) {
    const std::string name = BareName(model) + "." + BareName(input) + ".qhm";
    const bool endsWithSeparator =
        std::string_view(kPathSeparators).find(folder.back()) != std::string_view::npos;
    return folder + (endsWithSeparator ? "" : "/") + name;
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
