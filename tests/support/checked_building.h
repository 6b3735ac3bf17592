#pragma once

#include <cstdio>
#include <filesystem>
#include <vector>

#include "host/recorded_host.h"
#include "report/results_csv.h"
#include "route2/aij_code_route2.h"
#include "route2/stiffness_ratio.h"
#include "route2/story_drift.h"
#include "tests/support/random_building.h"
#include "tests/support/test_folder.h"

/// A building with all checks done on it: the engine's steps up to the last check.
class CheckedBuilding {
public:
    /// The log and the input file go to `folder`.
    CheckedBuilding(const Building& building, const TestFolder& folder)
        : model_(AsHostModel(building)),
          host_(model_, folder.Path("model.qhm")),
          engine(&host_, WriteResultRows) {
        // New files are quicker than old ones that are cut to nothing: some file systems wait for
        // the disk there.
        std::filesystem::remove(folder.Path("input.csv"));
        std::filesystem::remove(folder.Path("model.aijR2Log.txt"));
        folder.Write("input.csv", InputFileOf(building));
        std::string log, results;
        engine.Initialize(folder.Path("model.qhm"), folder.Path("input.csv"), log, results);
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
        std::fclose(engine.logFile);
    }

private:
    RecordedModel model_;
    RecordedHost host_;

public:
    AijCodeRoute2 engine;

    const std::vector<StoryInfo>& Stories() const { return engine.stories; }

    /// Everything that the checks have found, in one row, for comparisons to the last bit.
    std::vector<double> AllResults() const {
        std::vector<double> all(engine.floorLevels);
        const auto add = [&all](const auto& values) {
            all.insert(all.end(), values.begin(), values.end());
        };
        for (const StoryInfo& story : engine.stories) {
            add(story.maxRelativeDisp);
            add(story.meanRelativeDisp);
            add(story.gravityCenter);
            add(story.rigidityCenter);
            add(story.eccentricityModulus);
            for (const std::size_t axis : {kX, kZ}) {
                add(story.maxRelativeDispByLoadCase[axis]);
                add(story.meanRelativeDispByLoadCase[axis]);
            }
            for (const StoryMember& record : story.members) {
                add(record.relativeDisp);
                add(record.shearForce);
                add(record.horizontalStiffness);
                all.push_back(record.outputDeformAngle ? 1.0 : 0.0);
            }
        }
        add(engine.rsBarOfMaxDisp);
        add(engine.rsBarOfMeanDisp);
        for (const std::size_t axis : {kX, kZ}) {
            add(engine.rsBarOfMaxDispByLoadCase[axis]);
            add(engine.rsBarOfMeanDispByLoadCase[axis]);
        }
        return all;
    }

    /// What is judged: angles, ratios and moduli, without units.
    std::vector<double> JudgedValues() const {
        std::vector<double> judged;
        for (const StoryInfo& story : engine.stories) {
            const double height = story.upperLevel - story.lowerLevel;
            for (std::size_t i = 0; i < engine.loadCaseNumbers.size(); ++i) {
                for (const std::size_t axis : {kX, kZ}) {
                    const double angle =
                        DeformAngle(story.meanRelativeDispByLoadCase[axis][i], height);
                    judged.push_back(angle);
                    judged.push_back(DeformAngle(story.maxRelativeDispByLoadCase[axis][i], height));
                    judged.push_back(
                        StiffnessRatioX(angle, engine.rsBarOfMeanDispByLoadCase[axis][i]));
                }
            }
            judged.push_back(story.eccentricityModulus[kX]);
            judged.push_back(story.eccentricityModulus[kZ]);
        }
        return judged;
    }
};
