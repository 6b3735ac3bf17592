#include "tests/support/textbook_calculation.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

struct Ends {
    Building::Node lower, upper;
    std::int32_t lowerEnd;
};

Ends EndsOf(const Building& building, const Building::Member& member) {
    const Building::Node& start = building.FindNode(member.start);
    const Building::Node& end = building.FindNode(member.end);
    if (start.at.up <= end.at.up) return {start, end, 0};
    return {end, start, 1};
}

// The base, and every level of a horizontal member above it.
std::vector<double> FloorLevels(const Building& building) {
    double base = INFINITY;
    for (const Building::Node& node : building.nodes)
        if (node.supported) base = std::min(base, node.at.up);
    std::set<double> levels{base};
    for (const Building::Member& member : building.members) {
        const Ends ends = EndsOf(building, member);
        if (ends.lower.at.up == ends.upper.at.up && ends.lower.at.up > base)
            levels.insert(ends.lower.at.up);
    }
    return {levels.begin(), levels.end()};
}

PlanVector Displacement(const Building& building, std::int32_t loadCase, std::int32_t node) {
    const auto found = building.displacements.find({loadCase, node});
    return found == building.displacements.end() ? PlanVector{} : found->second;
}

PlanVector Force(const Building& building, std::int32_t loadCase, const Building::Member& member,
                 std::int32_t end) {
    const auto found = building.forces.find({loadCase, member.number, end});
    return found == building.forces.end() ? PlanVector{} : found->second;
}

void AddDrift(TextbookStory::Drift& drift, double ofMember, std::size_t members) {
    drift.mean += ofMember / static_cast<double>(members);
    drift.largest = std::max(drift.largest, std::abs(ofMember));
    drift.allForward = drift.allForward && ofMember >= 0.0;
}

// delta of a member = displacement of its head less that of its foot.
void CalculateDrifts(const Building& building, const std::vector<Building::Member>& members,
                     TextbookStory& story) {
    for (const auto* loadCases : {&building.primaryLoadCases, &building.loadCombinations}) {
        for (const std::int32_t loadCase : *loadCases) {
            for (const Building::Member& member : members) {
                const Ends ends = EndsOf(building, member);
                const PlanVector head = Displacement(building, loadCase, ends.upper.number);
                const PlanVector foot = Displacement(building, loadCase, ends.lower.number);
                AddDrift(story.driftX[loadCase], head.x - foot.x, members.size());
                AddDrift(story.driftZ[loadCase], head.z - foot.z, members.size());
            }
        }
    }
}

// rs = h / delta; Rs = rs / mean of rs over the stories.
void CalculateStiffnessRatios(std::vector<TextbookStory>& stories,
                              std::map<std::int32_t, TextbookStory::Drift> TextbookStory::*drift,
                              std::map<std::int32_t, double> TextbookStory::*ratio) {
    if (stories.empty()) return;
    for (const auto& [loadCase, unused] : stories.front().*drift) {
        double mean = 0.0;
        for (TextbookStory& story : stories)
            mean += (story.upperLevel - story.lowerLevel) / (story.*drift)[loadCase].mean /
                    static_cast<double>(stories.size());
        for (TextbookStory& story : stories)
            (story.*ratio)[loadCase] =
                (story.upperLevel - story.lowerLevel) / (story.*drift)[loadCase].mean / mean;
    }
}

// g = sum(N x) / sum(N) over the columns that stand in the story, N at their feet.
void CalculateGravityCenter(const Building& building, TextbookStory& story) {
    double sumX = 0.0, sumZ = 0.0;
    for (const Building::Member& member : building.members) {
        const Ends ends = EndsOf(building, member);
        const bool stands =
            ends.lower.at.up <= story.lowerLevel && ends.upper.at.up >= story.upperLevel;
        if (!stands || ends.lower.at.up == ends.upper.at.up) continue;
        const double axial = Force(building, building.deadLoadCase, member, ends.lowerEnd).up;
        story.weight += axial;
        sumX += axial * ends.lower.at.x;
        sumZ += axial * ends.lower.at.z;
    }
    story.gravityCenter = {sumX / story.weight, sumZ / story.weight, 0.0};
}

// K = Q / delta of each member; l = sum(K x) / sum(K); KR = sum(Kx z'^2) + sum(Kz x'^2);
// re = sqrt(KR / K); Re = e / re.
void CalculateEccentricity(const Building& building, const std::vector<Building::Member>& members,
                           TextbookStory& story) {
    std::vector<double> kx, kz, x, z;
    for (const Building::Member& member : members) {
        const Ends ends = EndsOf(building, member);
        const double qx = -Force(building, building.earthquakeX, member, ends.lowerEnd).x;
        const double qz = -Force(building, building.earthquakeZ, member, ends.lowerEnd).z;
        story.shearX[member.number] = qx;
        story.shearZ[member.number] = qz;
        kx.push_back(qx / (Displacement(building, building.earthquakeX, ends.upper.number).x -
                           Displacement(building, building.earthquakeX, ends.lower.number).x));
        kz.push_back(qz / (Displacement(building, building.earthquakeZ, ends.upper.number).z -
                           Displacement(building, building.earthquakeZ, ends.lower.number).z));
        x.push_back(ends.lower.at.x);
        z.push_back(ends.lower.at.z);
    }
    double sumKxZ = 0.0, sumKzX = 0.0;
    for (std::size_t i = 0; i < members.size(); ++i) {
        story.stiffnessX += kx[i];
        story.stiffnessZ += kz[i];
        sumKxZ += kx[i] * z[i];
        sumKzX += kz[i] * x[i];
    }
    story.rigidityCenter = {sumKzX / story.stiffnessZ, sumKxZ / story.stiffnessX, 0.0};
    for (std::size_t i = 0; i < members.size(); ++i) {
        const double fromX = x[i] - story.rigidityCenter.x;
        const double fromZ = z[i] - story.rigidityCenter.z;
        story.torsionalStiffness += kx[i] * fromZ * fromZ + kz[i] * fromX * fromX;
    }
    const double eccentricityX = std::abs(story.gravityCenter.x - story.rigidityCenter.x);
    const double eccentricityZ = std::abs(story.gravityCenter.z - story.rigidityCenter.z);
    const double radiusX = std::sqrt(story.torsionalStiffness / story.stiffnessX);
    const double radiusZ = std::sqrt(story.torsionalStiffness / story.stiffnessZ);
    story.eccentricityModulusX = eccentricityZ / radiusX;
    story.eccentricityModulusZ = eccentricityX / radiusZ;
}

}  // namespace

std::vector<TextbookStory> CalculateByTextbook(const Building& building) {
    const std::vector<double> levels = FloorLevels(building);
    std::vector<TextbookStory> stories;
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
        TextbookStory story;
        story.lowerLevel = levels[i];
        story.upperLevel = levels[i + 1];
        std::vector<Building::Member> members;
        for (const Building::Member& member : building.members) {
            const Ends ends = EndsOf(building, member);
            if (ends.lower.at.up == story.lowerLevel && ends.upper.at.up == story.upperLevel)
                members.push_back(member);
        }
        for (const Building::Member& member : members)
            story.members.push_back(member.number);
        CalculateDrifts(building, members, story);
        CalculateGravityCenter(building, story);
        CalculateEccentricity(building, members, story);
        stories.push_back(story);
    }
    CalculateStiffnessRatios(stories, &TextbookStory::driftX, &TextbookStory::stiffnessRatioX);
    CalculateStiffnessRatios(stories, &TextbookStory::driftZ, &TextbookStory::stiffnessRatioZ);
    return stories;
}
