#include "bench/measurements.h"

namespace {

constexpr int kRepetitions = 15;
constexpr int kPlainRepetitions = 3;  // slow, and the more even for it

}  // namespace

const RunUsage& Measurements::Of(const BuildingSize& size, Way way) {
    if (const RunUsage* known = Find(size, way)) return *known;
    return runs_[KeyOf(size, way)] = way == Way::kPlain ? MeasurePlainRun(size, kPlainRepetitions)
                                                        : MeasureRun(size, kRepetitions);
}

const RunUsage* Measurements::Find(const BuildingSize& size, Way way) const {
    const auto found = runs_.find(KeyOf(size, way));
    return found == runs_.end() ? nullptr : &found->second;
}

const ModelFileUsage& Measurements::ModelFileOf(const BuildingSize& size) {
    if (const ModelFileUsage* known = FindModelFile(size)) return *known;
    return modelFiles_[KeyOf(size, Way::kProduct)] = MeasureModelFile(size, kRepetitions);
}

const ModelFileUsage* Measurements::FindModelFile(const BuildingSize& size) const {
    const auto found = modelFiles_.find(KeyOf(size, Way::kProduct));
    return found == modelFiles_.end() ? nullptr : &found->second;
}
