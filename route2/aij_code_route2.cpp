#include "route2/aij_code_route2.h"

#include <utility>

#include "host/units.h"
#include "log/processing_log.h"
#include "route2/report_paths.h"

namespace {

constexpr std::int32_t kEnglishUnitSystem = 1;

}  // namespace

AijCodeRoute2::AijCodeRoute2(HostQueries* host, ResultRowsWriter resultRowsWriter)
    : inchUnits(host->GetBaseUnitSystem() == kEnglishUnitSystem),
      hostLink(host),
      writeResultRows(resultRowsWriter) {}

bool AijCodeRoute2::Initialize(std::string modelPath, std::string dataPath, std::string& logPathOut,
                               std::string& resultPathOut) {
    const std::string& named = reportsNamedAfter.empty() ? modelPath : reportsNamedAfter;
    logFilePath = LogPath(named);
    logPathOut = logFilePath;
    dataFilePath = std::move(dataPath);
    resultFilePath = ResultPath(named);
    resultPathOut = resultFilePath;

    const OpenedReport log = OpenReport(logFilePath);
    logFile = log.stream;
    logOpening = log.opening;
    if (logFile == nullptr) return false;

    modelFilePath = std::move(modelPath);
    zIsVertical = hostLink->IsZUp();
    axisAsked = true;
    return SetLoadCaseNumbersWithDataFile();
}

void AijCodeRoute2::Warn(WarningKind kind, std::size_t story, const std::string& path) {
    warnings.push_back({kind, static_cast<int>(story), path});
    LogWarning(logFile, FillIn(TextsOf(kind).log, warnings.back()));
}

bool AijCodeRoute2::RequireStoryInfo(WarningKind whenMissing) {
    if (!storyInfoSet) Warn(whenMissing);
    return storyInfoSet;
}

double AijCodeRoute2::MillimetresPerHostLength() const {
    return inchUnits ? kMillimetresPerInch : kMillimetresPerMetre;
}
