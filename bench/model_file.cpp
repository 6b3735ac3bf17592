#include "bench/model_file.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "bench/bench_folder.h"
#include "bench/process_usage.h"
#include "host/qhm_file.h"

namespace {

// Of several times the one that was disturbed least counts.
template <typename Work>
void Measure(int repetitions, double& seconds, double& peak, const Work& work) {
    for (int i = 0; i < repetitions; ++i) {
        ResetPeakMemory();
        const double start = ProcessorSeconds();
        work();
        const double used = ProcessorSeconds() - start;
        seconds = i == 0 ? used : std::min(seconds, used);
        peak = std::max(peak, PeakMegabytes());
    }
}

}  // namespace

ModelFileUsage MeasureModelFile(const BuildingSize& size, int repetitions) {
    const BenchFolder folder;
    const std::string path = folder.Path("tower.qhm");
    WriteQhmFile(MakeRegularBuilding(size).model, path);

    ModelFileUsage usage;
    usage.megabytes = 1e-6 * static_cast<double>(std::filesystem::file_size(path));
    Measure(repetitions, usage.secondsOfReading, usage.peakOfReading,
            [&path] { ReadQhmFile(path); });
    Measure(repetitions, usage.secondsOfTree, usage.peakOfTree, [&path] {
        std::ifstream file(path);
        const auto tree = nlohmann::json::parse(file);
    });
    const RecordedModel model = ReadQhmFile(path);
    const std::string copy = folder.Path("copy.qhm");
    Measure(repetitions, usage.secondsOfWriting, usage.peakOfWriting,
            [&] { WriteQhmFile(model, copy); });
    return usage;
}
