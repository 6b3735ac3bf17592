// story-values MODEL.qhm INPUT.csv: runs the checks on a recorded building and prints, as JSON with
// all digits, what the results file rounds and what it does not show (stiffness, shears, means).
// The run writes its log and results beside the model, as every run does.

#include <cmath>
#include <cstdio>
#include <exception>
#include <nlohmann/json.hpp>
#include <string>

#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "report/results_csv.h"
#include "route2/aij_code_route2.h"
#include "route2/eccentricity_modulus.h"
#include "route2/rigidity_center.h"

namespace {

using Json = nlohmann::ordered_json;

Json Pair(const PerDirection& pair) {
    return {{"x", pair[kX]}, {"z", pair[kZ]}};
}

// Position of the earthquake load case of a direction among all load cases; the first otherwise.
std::size_t EarthquakePosition(const AijCodeRoute2& engine, std::size_t axis) {
    for (std::size_t k = 0; k < engine.loadCaseNumbers.size(); ++k)
        if (engine.loadCaseNumbers[k] == engine.earthquakeLoadCaseNumber[axis]) return k;
    return 0;
}

// Every record of a member carries the same shears: one record per member counts.
PerDirection StoryShear(const AijCodeRoute2& engine, const StoryInfo& story) {
    PerDirection shear{};
    for (const StoryMember& record : story.members) {
        if (record.loadCaseNumber != engine.loadCaseNumbers.front()) continue;
        shear[kX] += record.shearForce[kX];
        shear[kZ] += record.shearForce[kZ];
    }
    return shear;
}

Json ValuesOf(const AijCodeRoute2& engine, const StoryInfo& story) {
    const StiffnessSums sums = SumStiffness(story.members, engine.earthquakeLoadCaseNumber);
    const double kr = SumTorsionalStiffness(story, engine.earthquakeLoadCaseNumber).kr;
    PerDirection mean{}, max{}, rsBar{};
    for (const std::size_t axis : {kX, kZ}) {
        const std::size_t k = EarthquakePosition(engine, axis);
        mean[axis] = story.meanRelativeDispByLoadCase[axis][k];
        max[axis] = story.maxRelativeDispByLoadCase[axis][k];
        rsBar[axis] = engine.rsBarOfMeanDispByLoadCase[axis][k];
    }
    return {{"height", story.upperLevel - story.lowerLevel},
            {"mean", Pair(mean)},
            {"max", Pair(max)},
            {"rsBar", Pair(rsBar)},
            {"gravityCenter", Pair(story.gravityCenter)},
            {"rigidityCenter", Pair(story.rigidityCenter)},
            {"eccentricityModulus", Pair(story.eccentricityModulus)},
            {"shear", Pair(StoryShear(engine, story))},
            {"stiffness", Pair({sums.kx, sums.kz})},
            {"stiffnessTimesArm", Pair({sums.kxTimesZ, sums.kzTimesX})},
            {"torsionalStiffness", kr},
            {"elasticRadius", Pair({std::sqrt(kr / sums.kx), std::sqrt(kr / sums.kz)})}};
}

void RunSteps(AijCodeRoute2& engine) {
    engine.SetLoadInfo();
    engine.SetNodeInfo();
    engine.SetMemberInfo();
    engine.SetFloorInfo();
    engine.SetStoryInfo();
    engine.SetRelativeStoryDisp();
    engine.SetRsBar();
    engine.SetGravityCenter();
    engine.SetStoryMemberShearForce();
    engine.SetStoryMemberHorizontalStiffness();
    engine.SetRigidityCenter();
    engine.SetEccentricityModulus();
}

int PrintValues(const std::string& modelPath, const std::string& inputPath) {
    const RecordedModel model = ReadQhmFile(modelPath);
    RecordedHost host(model, modelPath);
    AijCodeRoute2 engine(&host, WriteResultRows);
    std::string log, results;
    if (!engine.Initialize(modelPath, inputPath, log, results)) {
        std::fprintf(stderr, "story-values: %s cannot be read up to FIN\n", inputPath.c_str());
        return 1;
    }
    RunSteps(engine);
    std::fclose(engine.logFile);

    Json stories = Json::array();
    for (const StoryInfo& story : engine.stories)
        stories.push_back(ValuesOf(engine, story));
    std::puts(stories.dump(1).c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: story-values MODEL.qhm INPUT.csv\n", stderr);
        return 2;
    }
    try {
        return PrintValues(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "story-values: %s\n", error.what());
        return 1;
    }
}
