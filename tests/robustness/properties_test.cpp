// What must hold for any building at all, tried on thousands of random ones.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <set>

#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "host/remembering_host.h"
#include "tests/support/checked_building.h"
#include "tests/support/random_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::uint64_t kBuildings = 2000;

// Sums of some hundred values of either sign lose a few digits of the sixteen.
constexpr double kRounding = 1e-9;

void ExpectClose(double expected, double actual, double size, const char* what) {
    EXPECT_LE(std::abs(expected - actual), kRounding * size)
        << what << ": " << expected << " and " << actual;
}

class Properties : public testing::Test {
protected:
    // Hands every building to `check` until one fails.
    template <typename Check>
    void ForEachBuilding(const Check& check) {
        for (std::uint64_t seed = 1; seed <= kBuildings && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            check(RandomBuilding(seed));
        }
    }

    // A check whose judged values must be the same, but for rounding.
    void ExpectSameJudgement(const CheckedBuilding& a, const CheckedBuilding& b) {
        const std::vector<double> one = a.JudgedValues();
        const std::vector<double> other = b.JudgedValues();
        ASSERT_EQ(one.size(), other.size());
        for (std::size_t i = 0; i < one.size(); ++i)
            ExpectClose(one[i], other[i], 1.0 + std::abs(one[i]), "judged value");
    }

    TestFolder folder_;
};

// Every number moves on to the next of the list: same order of the lists, other numbers.
template <typename Records>
std::map<std::int32_t, std::int32_t> Rotation(const Records& records) {
    std::map<std::int32_t, std::int32_t> next;
    for (std::size_t i = 0; i < records.size(); ++i)
        next[records[i].number] = records[(i + 1) % records.size()].number;
    return next;
}

Building WithRotatedNumbers(const Building& building) {
    const auto nodes = Rotation(building.nodes);
    const auto members = Rotation(building.members);
    Building rotated = building;
    for (auto& node : rotated.nodes)
        node.number = nodes.at(node.number);
    for (auto& member : rotated.members)
        member = {members.at(member.number), nodes.at(member.start), nodes.at(member.end),
                  member.beta};
    rotated.displacements.clear();
    for (const auto& [key, value] : building.displacements)
        rotated.displacements[{key.first, nodes.at(key.second)}] = value;
    rotated.forces.clear();
    for (const auto& [key, value] : building.forces)
        rotated.forces[{std::get<0>(key), members.at(std::get<1>(key)), std::get<2>(key)}] = value;
    for (std::int32_t& member : rotated.reportedMembers)
        member = members.at(member);
    return rotated;
}

TEST_F(Properties, OtherNumbersOfNodesAndMembersChangeNoResult) {
    ForEachBuilding([this](const Building& building) {
        const CheckedBuilding original(building, folder_);
        const CheckedBuilding rotated(WithRotatedNumbers(building), folder_);
        EXPECT_EQ(original.AllResults(), rotated.AllResults());
    });
}

// Doubling is exact, so shear and stiffness double to the last bit.
TEST_F(Properties, ScaledForcesOfOneEarthquakeScaleItsShearAndStiffness) {
    constexpr double kFactor = 4.0;
    ForEachBuilding([this](const Building& building) {
        Building scaled = building;
        for (auto& [key, force] : scaled.forces)
            if (std::get<0>(key) == building.earthquakeX)
                force = {kFactor * force.x, kFactor * force.z, kFactor * force.up};
        const CheckedBuilding original(building, folder_);
        const CheckedBuilding changed(scaled, folder_);
        for (std::size_t i = 0; i < original.Stories().size(); ++i) {
            const StoryInfo& before = original.Stories()[i];
            const StoryInfo& after = changed.Stories()[i];
            for (std::size_t k = 0; k < before.members.size(); ++k) {
                const StoryMember& a = before.members[k];
                const StoryMember& b = after.members[k];
                ASSERT_EQ(kFactor * a.shearForce[kX], b.shearForce[kX]);
                ASSERT_EQ(a.shearForce[kZ], b.shearForce[kZ]);
                ASSERT_EQ(kFactor * a.horizontalStiffness[kX], b.horizontalStiffness[kX]);
                ASSERT_EQ(a.horizontalStiffness[kZ], b.horizontalStiffness[kZ]);
            }
        }
    });
}

TEST_F(Properties, ScaledForcesOfOneEarthquakeLeaveTheCenterOfRigidity) {
    constexpr double kFactor = 0.37;
    ForEachBuilding([this](const Building& building) {
        const CheckedBuilding original(building, folder_);
        for (const std::int32_t earthquake : {building.earthquakeX, building.earthquakeZ}) {
            Building scaled = building;
            for (auto& [key, force] : scaled.forces)
                if (std::get<0>(key) == earthquake)
                    force = {kFactor * force.x, kFactor * force.z, kFactor * force.up};
            const CheckedBuilding changed(scaled, folder_);
            for (std::size_t i = 0; i < original.Stories().size(); ++i)
                for (const std::size_t axis : {kX, kZ})
                    ExpectClose(original.Stories()[i].rigidityCenter[axis],
                                changed.Stories()[i].rigidityCenter[axis], 1e4, "center");
        }
    });
}

TEST_F(Properties, MetresAndInchesGiveTheSameAnglesRatiosAndModuli) {
    ForEachBuilding([this](Building building) {
        building.inch = false;
        const CheckedBuilding metric(building, folder_);
        building.inch = true;
        const CheckedBuilding english(building, folder_);
        ExpectSameJudgement(metric, english);
    });
}

TEST_F(Properties, YAndZVerticalGiveTheSameAnglesRatiosAndModuli) {
    ForEachBuilding([this](Building building) {
        building.zUp = false;
        const CheckedBuilding yVertical(building, folder_);
        building.zUp = true;
        const CheckedBuilding zVertical(building, folder_);
        ExpectSameJudgement(yVertical, zVertical);
    });
}

Building Mirrored(const Building& building, double PlanVector::*axis) {
    Building mirrored = building;
    for (auto& node : mirrored.nodes)
        node.at.*axis = -(node.at.*axis);
    for (auto& [key, displacement] : mirrored.displacements)
        displacement.*axis = -(displacement.*axis);
    for (auto& [key, force] : mirrored.forces)
        force.*axis = -(force.*axis);
    return mirrored;
}

TEST_F(Properties, AMirroredPlanMirrorsTheCenters) {
    ForEachBuilding([this](const Building& building) {
        const CheckedBuilding original(building, folder_);
        for (const std::size_t axis : {kX, kZ}) {
            const CheckedBuilding mirrored(
                Mirrored(building, axis == kX ? &PlanVector::x : &PlanVector::z), folder_);
            for (std::size_t i = 0; i < original.Stories().size(); ++i) {
                const StoryInfo& a = original.Stories()[i];
                const StoryInfo& b = mirrored.Stories()[i];
                const std::size_t other = 1 - axis;
                ExpectClose(-a.gravityCenter[axis], b.gravityCenter[axis], 1e4, "gravity");
                ExpectClose(a.gravityCenter[other], b.gravityCenter[other], 1e4, "gravity");
                ExpectClose(-a.rigidityCenter[axis], b.rigidityCenter[axis], 1e4, "rigidity");
                ExpectClose(a.rigidityCenter[other], b.rigidityCenter[other], 1e4, "rigidity");
                for (const std::size_t k : {kX, kZ})
                    ExpectClose(a.eccentricityModulus[k], b.eccentricityModulus[k], 1.0, "modulus");
            }
        }
    });
}

TEST_F(Properties, ASymmetricBuildingHasNoEccentricity) {
    for (std::uint64_t seed = 1; seed <= kBuildings && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const CheckedBuilding checked(RandomSymmetricBuilding(seed), folder_);
        ASSERT_FALSE(checked.Stories().empty());
        for (const StoryInfo& story : checked.Stories()) {
            ExpectClose(0.0, story.rigidityCenter[kX], 1e4, "rigidity");
            ExpectClose(0.0, story.rigidityCenter[kZ], 1e4, "rigidity");
            ExpectClose(0.0, story.eccentricityModulus[kX], 1.0, "modulus");
            ExpectClose(0.0, story.eccentricityModulus[kZ], 1.0, "modulus");
        }
    }
}

// Whole runs with their two files.
class RunProperties : public Properties {
protected:
    struct Reports {
        std::vector<std::string> status;
        std::string log;
        std::string results;
        bool operator==(const Reports&) const = default;
    };

    Reports Run(HostQueries& host) {
        StatusLines status;
        ReportPaths paths;
        const RunOutcome outcome = RunCompute(
            folder_.Path("input.csv"), [&host] { return &host; }, status, paths);
        EXPECT_TRUE(outcome.complete);
        Reports reports{status.lines, ReadText(paths.logFile), ReadText(paths.resultFile)};
        std::filesystem::remove(paths.logFile);
        std::filesystem::remove(paths.resultFile);
        return reports;
    }
};

TEST_F(RunProperties, RememberingGivesTheSameBytes) {
    ForEachBuilding([this](const Building& building) {
        std::filesystem::remove(folder_.Path("input.csv"));
        folder_.Write("input.csv", InputFileOf(building));
        const RecordedModel model = AsHostModel(building);
        RecordedHost host(model, folder_.Path("model.qhm"));
        RememberingHost remembering(host);
        EXPECT_EQ(Run(host), Run(remembering));
    });
}

TEST_F(RunProperties, RecordAndReplayGiveTheSameBytes) {
    ForEachBuilding([this](const Building& building) {
        std::filesystem::remove(folder_.Path("input.csv"));
        folder_.Write("input.csv", InputFileOf(building));
        const RecordedModel model = AsHostModel(building);
        RecordedHost host(model, folder_.Path("model.qhm"));
        RememberingHost recorder(host);
        const Reports live = Run(recorder);
        WriteQhmFile(recorder.Memory(), folder_.Path("model.qhm"));
        const RecordedModel read = ReadQhmFile(folder_.Path("model.qhm"));
        RecordedHost replayed(read, folder_.Path("model.qhm"));
        EXPECT_EQ(live, Run(replayed));
        std::filesystem::remove(folder_.Path("model.qhm"));
    });
}

TEST(RandomBuilding, IsTheSameForTheSameSeed) {
    const TestFolder folder;
    EXPECT_EQ(CheckedBuilding(RandomBuilding(7), folder).AllResults(),
              CheckedBuilding(RandomBuilding(7), folder).AllResults());
}

// Every kind of building is among the thousands, so that no property holds by their absence.
TEST(RandomBuilding, ComesInEveryKind) {
    std::set<std::string> kinds;
    for (std::uint64_t seed = 1; seed <= kBuildings; ++seed) {
        const Building building = RandomBuilding(seed);
        kinds.insert(building.zUp ? "Z vertical" : "Y vertical");
        kinds.insert(building.inch ? "inch" : "metre");
        if (!building.loadCombinations.empty()) kinds.insert("combinations");
        std::set<double> levels;
        for (const auto& node : building.nodes)
            levels.insert(node.at.up);
        kinds.insert(std::to_string(levels.size() - 1) + " stories");
        for (const auto& member : building.members) {
            const PlanVector& start = building.FindNode(member.start).at;
            const PlanVector& end = building.FindNode(member.end).at;
            if (start.up != end.up && start.x != end.x) kinds.insert("brace");
            if (start.up > end.up) kinds.insert("column from above");
            if (member.beta != 0.0) kinds.insert("rotated");
        }
    }
    const std::set<std::string> all{
        "Z vertical", "Y vertical", "inch",      "metre", "combinations",      "1 stories",
        "2 stories",  "3 stories",  "4 stories", "brace", "column from above", "rotated"};
    EXPECT_EQ(all, kinds);
}

}  // namespace
