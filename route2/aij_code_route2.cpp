#include "route2/aij_code_route2.h"

#include <utility>

#include "report/processing_log.h"

namespace {

constexpr std::int32_t kEnglishUnitSystem = 1;

// Host models have a three-letter extension; the dot before it stays.
constexpr std::size_t kExtensionLength = 3;

std::string Stem(const std::string& modelPath) {
    if (modelPath.size() < kExtensionLength) return {};
    return modelPath.substr(0, modelPath.size() - kExtensionLength);
}

}  // namespace

AijCodeRoute2::AijCodeRoute2(HostQueries* host)
    : inchUnits(host->GetBaseUnitSystem() == kEnglishUnitSystem), hostLink(host) {}

bool AijCodeRoute2::Initialize(std::string modelPath, std::string dataPath, std::string& logPathOut,
                               std::string& resultPathOut) {
    const std::string stem = Stem(modelPath);
    logFilePath = stem + "aijR2Log.txt";
    logPathOut = logFilePath;
    dataFilePath = std::move(dataPath);
    resultFilePath = stem + "aijR2Result.csv";
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
