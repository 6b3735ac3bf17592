// What a file says and what a run takes: where they differ, the check has something to say.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include "host/recorded_host.h"
#include "input/input_readers.h"
#include "lint/lint.h"
#include "tests/support/random_building.h"
#include "tests/support/random_input.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::uint64_t kNoisyFiles = 20000;
constexpr std::size_t kStories = 3;  // of the model, when the file has no levels

constexpr const char* kSound =
    "DeadLoadCaseNumber,1,\n"
    "EarthquakeLoadCaseNumber,2,3,\n"
    "FloorLevel,0,4500,8100,11700,\n"
    "StoryMember,\n"
    "1,101,102,103,\n"
    "2,201,202,203,\n"
    "3,301,302,303,\n"
    "AllowStoryDeformAngle,\n"
    "1,0.004,\n"
    "2,0.0045,\n"
    "AllowStoryStiffRatio,\n"
    "3,0.6\n"
    "AllowStoryEccentricityModulus,\n"
    "1,0.15,\n"
    "MemberDeformAngle,101,203,\n"
    "FIN\n";

// One slip of a hand: a character lost, doubled or struck instead of another, a line lost, doubled
// or moved, an empty line.
class Slips {
public:
    explicit Slips(std::uint64_t seed) : random_(seed) {}

    std::string In(std::string text) {
        const std::size_t count = 1 + Below(2);
        for (std::size_t i = 0; i < count; ++i)
            text = Once(2) ? InACharacter(std::move(text)) : InALine(std::move(text));
        return text;
    }

private:
    std::size_t Below(std::size_t bound) { return random_() % bound; }
    bool Once(std::size_t in) { return Below(in) == 0; }

    std::string InACharacter(std::string text) {
        constexpr std::string_view kStruck = ",,,,. ;\t\n0123459-#FINa/%\"";
        const std::size_t at = Below(text.size());
        const char struck = kStruck[Below(kStruck.size())];
        if (Once(3)) return text.erase(at, 1);
        if (Once(2)) return text.insert(at, 1, struck);
        text[at] = struck;
        return text;
    }

    std::string InALine(std::string text) {
        const std::size_t at = StartOfALine(text);
        const std::string line = text.substr(at, text.find('\n', at) + 1 - at);
        if (Once(4)) return text.insert(at, "\n");
        if (Once(3)) return text.insert(at, line);
        text.erase(at, line.size());
        if (Once(2)) text.insert(StartOfALine(text), line);
        return text;
    }

    std::size_t StartOfALine(const std::string& text) {
        if (text.empty()) return 0;
        const std::size_t feed = text.rfind('\n', Below(text.size()));
        return feed == std::string::npos ? 0 : feed + 1;
    }

    std::mt19937_64 random_;
};

// How many values somebody wrote: all fields behind a keyword or a story number that begin like a
// number. Words there are remarks.
std::size_t ValuesWritten(std::string_view text) {
    std::size_t values = 0;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (line == "FIN") return values;
        for (std::size_t comma = line.find(','); comma != std::string_view::npos;
             comma = line.find(',')) {
            line.remove_prefix(comma + 1);
            const std::string_view field = line.substr(0, line.find(','));
            const std::size_t first = field.find_first_not_of(" \t");
            const bool isANumber =
                first != std::string_view::npos &&
                std::string_view("0123456789+-.").find(field[first]) != std::string_view::npos;
            if (isANumber) ++values;
        }
    }
    return values;
}

// How many values the readers of a run take. Of the first StoryMember block and the first lists.
std::size_t ValuesTaken(const std::string& text) {
    const auto open = [&text] { return InputFile::OfText(text); };
    InputFile cases = open(), levels = open(), members = open(), reported = open(), values = open();
    const LoadCaseNumbers numbers = ReadLoadCaseNumbers(cases);
    return (numbers.dead ? 1u : 0u) + (numbers.earthquake ? 2u : 0u) +
           ReadFloorLevels(levels).levels.size() +
           ReadStoryMembers(members, kStories).entries.size() +
           ReadReportedMembers(reported).members.size() +
           ReadAllowableValues(values, kStories).entries.size();
}

// Everything in a folder with what it holds.
std::map<std::string, std::string> Contents(const TestFolder& folder) {
    std::map<std::string, std::string> contents;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path("")))
        contents[entry.path().filename().string()] = folder.Read(entry.path().filename().string());
    return contents;
}

}  // namespace

TEST(ReadCompletely, IsEveryFileOfWhichTheCheckSaysNothing) {
    std::size_t silent = 0, told = 0;
    for (std::uint64_t seed = 1; seed <= kNoisyFiles && !testing::Test::HasFailure(); ++seed) {
        const std::string text = Slips(seed).In(kSound);
        const InputCheck check = CheckInputText(InputText(text), kStories);
        ++(check.findings.empty() ? silent : told);
        if (!check.findings.empty()) continue;
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + text);
        EXPECT_TRUE(check.hasFin);
        EXPECT_EQ(ValuesWritten(text), ValuesTaken(text));
    }
    EXPECT_GT(silent, kNoisyFiles / 20);
    EXPECT_GT(told, kNoisyFiles / 2);
}

TEST(TheCheck, ChangesNoFileAndWritesNone) {
    const TestFolder folder;
    const Building building = RandomBuilding(1);
    const RecordedModel model = AsHostModel(building);
    for (std::uint64_t seed = 1; seed <= 100; ++seed) {
        const std::string path = folder.Write("input.csv", RandomInput(seed));
        const auto before = Contents(folder);
        LintFile(path, WantsSuggestion::kYes);
        RecordedHost host(model, folder.Path("model.qhm"));
        LintAgainst(path, {host, "model.qhm", ""}, WantsSuggestion::kYes);
        EXPECT_EQ(before, Contents(folder)) << "seed " << seed;
    }
}
