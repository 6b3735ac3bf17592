#include "route2/aij_code_route2.h"

#include <utility>

#include "log/processing_log.h"
#include "route2/report_paths.h"

namespace {

constexpr std::int32_t kEnglishUnitSystem = 1;

}  // namespace

AijCodeRoute2::AijCodeRoute2(HostQueries* host)
    : inchUnits(host->GetBaseUnitSystem() == kEnglishUnitSystem), hostLink(host) {}

bool AijCodeRoute2::Initialize(std::string modelPath, std::string dataPath, std::string& logPathOut,
                               std::string& resultPathOut) {
    logFilePath = LogPath(modelPath);
    logPathOut = logFilePath;
    dataFilePath = std::move(dataPath);
    resultFilePath = ResultPath(modelPath);
    resultPathOut = resultFilePath;

    logFile = std::fopen(logFilePath.c_str(), "w");
    if (logFile == nullptr) return false;

    modelFilePath = std::move(modelPath);
    zIsVertical = hostLink->IsZUp();
    return SetLoadCaseNumbersWithDataFile();
}

bool AijCodeRoute2::RequireStoryInfo(const char* subject) {
    if (storyInfoSet) return true;
    LogWarning(logFile,
               std::string("Story info. has not set yet. Stops setting ") + subject + "...");
    return false;
}
