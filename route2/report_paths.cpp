#include "route2/report_paths.h"

namespace {

constexpr std::size_t kExtensionLength = 3;

}  // namespace

std::string ReportStem(const std::string& modelPath) {
    if (modelPath.size() < kExtensionLength) return {};
    return modelPath.substr(0, modelPath.size() - kExtensionLength);
}

std::string LogPath(const std::string& modelPath) {
    return ReportStem(modelPath) + "aijR2Log.txt";
}

std::string ResultPath(const std::string& modelPath) {
    return ReportStem(modelPath) + "aijR2Result.csv";
}
