#pragma once

#include <map>
#include <tuple>

#include "bench/measured_run.h"
#include "bench/model_file.h"

/// How the runs of a building are made.
enum class Way { kProduct, kPlain };

/// The runs and model files measured so far: each building and way once, when first wanted.
class Measurements {
public:
    const RunUsage& Of(const BuildingSize& size, Way way);

    /// Null when it has not been measured.
    const RunUsage* Find(const BuildingSize& size, Way way) const;

    /// The same for a building's model file.
    const ModelFileUsage& ModelFileOf(const BuildingSize& size);
    const ModelFileUsage* FindModelFile(const BuildingSize& size) const;

private:
    using Key = std::tuple<Way, std::int32_t, std::int32_t, std::int32_t>;
    static Key KeyOf(const BuildingSize& size, Way way) {
        return {way, size.members, size.stories, size.loadCases};
    }

    std::map<Key, RunUsage> runs_;
    std::map<Key, ModelFileUsage> modelFiles_;
};
