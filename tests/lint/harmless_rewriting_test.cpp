// A file without findings gives the same run however it is written, as long as it says the same.

#include <gtest/gtest.h>

#include <functional>

#include "compute/compute_run.h"
#include "host/recorded_host.h"
#include "lint/lint.h"
#include "tests/support/random_building.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::uint64_t kBuildings = 150;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
    return text;
}

// A blank in front of every number that stands behind a comma.
std::string WithBlanks(const std::string& text) {
    std::string blanked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        blanked += text[i];
        const bool isBeforeNumber = text[i] == ',' && i + 1 < text.size() && text[i + 1] != '\n';
        if (isBeforeNumber) blanked += ' ';
    }
    return blanked;
}

const std::function<std::string(const std::string&)> kRewritings[] = {
    WithBlanks,
    [](const std::string& text) { return Replaced(text, "\n", "\r\n"); },
    [](const std::string& text) { return "# a comment,\n" + text; },
    [](const std::string& text) { return text + "\n \n"; },
};

// What a search of the model finds, written into the file.
std::string ExplicitInput(const Building& building, const AsRead& asRead) {
    std::string text = InputFileOf(building);
    text.resize(text.rfind("FIN"));
    text += "FloorLevel,";
    for (const double level : *asRead.floorLevels)
        text += std::to_string(level) + ',';
    text += "\nStoryMember,\n";
    for (const auto& [story, members] : *asRead.storyMembers)
        for (const std::int32_t member : members)
            text += std::to_string(story) + ',' + std::to_string(member) + ",\n";
    text += "AllowStoryStiffRatio,\n1,0.6,\n";
    return text + "FIN\n";
}

struct Reports {
    std::vector<std::string> status;
    std::string log;
    std::string results;
    bool operator==(const Reports&) const = default;
};

Reports RunWith(const RecordedModel& model, const TestFolder& folder, const std::string& input) {
    RecordedHost host(model, folder.Path("model.qhm"));
    StatusLines status;
    ReportPaths reports;
    RunCompute(
        folder.Write("input.csv", input), [&host] { return &host; }, status, reports);
    return {status.lines, folder.Read("model.aijR2Log.txt"), folder.Read("model.aijR2Result.csv")};
}

}  // namespace

TEST(HarmlessRewriting, OfAFileWithoutFindingsChangesNoByteOfARun) {
    const TestFolder folder;
    std::size_t rewritten = 0;
    for (std::uint64_t seed = 1; seed <= kBuildings && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Building building = RandomBuilding(seed);
        const RecordedModel model = AsHostModel(building);
        RecordedHost host(model, "model.qhm");
        const LintReport derived = LintAgainst(folder.Write("input.csv", InputFileOf(building)),
                                               {host, "", ""}, WantsSuggestion::kNo);
        const std::string input = ExplicitInput(building, *derived.asRead);
        if (!CheckInputText(InputText(input)).findings.empty()) continue;
        ++rewritten;
        const Reports before = RunWith(model, folder, input);
        for (const auto& rewrite : kRewritings) {
            const std::string other = rewrite(input);
            EXPECT_EQ(before, RunWith(model, folder, other)) << other;
        }
    }
    EXPECT_GT(rewritten, kBuildings / 10);
}
