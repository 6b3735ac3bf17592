// Every rule on files by its smallest file: one that gives exactly this finding, and one that just
// does not. Both lie in rules/, as bytes: NAME.csv and NAME.near.csv.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "input/file_rules.h"
#include "input/input_check.h"
#include "tests/support/test_folder.h"

namespace {

constexpr LintKind kNote = LintKind::kNote;
constexpr LintKind kWarning = LintKind::kWarning;
constexpr LintKind kError = LintKind::kError;

struct RuleFile {
    const char* name;
    const char* id;
    LintKind kind;
    std::size_t line;    // as an editor counts
    std::size_t column;  // of the first character of the field that is meant
};

constexpr RuleFile kRuleFiles[] = {
    {"F02", "F02", kError, 1, 1},
    {"F03", "F03", kError, 3, 1},
    {"F04", "F04", kError, 1, 1},
    {"F05", "F05", kWarning, 4, 1},
    {"F05keywords", "F05", kError, 3, 1},
    {"F06", "F06", kError, 1, 1},
    {"F06plain", "F06", kError, 1, 1},
    {"F07keyword", "F07", kError, 1, 1},
    {"F07", "F07", kNote, 1, 1},
    {"F08", "F08", kError, 1, 1},
    {"F09", "F09", kError, 3, 1},
    {"F09digits", "F09", kError, 3, 14},
    {"F09letters", "F09", kError, 3, 1},
    {"F09blank", "F09", kError, 3, 1},
    {"F09comma", "F09", kError, 3, 12},
    {"F09story", "F09", kError, 5, 1},
    {"F09shiftjis", "F09", kError, 3, 14},
    {"F10", "F10", kError, 3, 1},
    {"F10tab", "F10", kError, 3, 1},
    {"F11", "F11", kError, 3, 1},
    {"F11thousands", "F11", kError, 3, 14},
    {"F12story", "F12", kError, 5, 1},
    {"F12list", "F12", kError, 3, 1},
    {"F12", "F12", kNote, 1, 1},
    {"F14", "F14", kNote, 1, 1},
    {"F15results", "F15", kError, 1, 1},
    {"F15log", "F15", kError, 1, 1},
    {"F15model", "F15", kError, 1, 1},
    {"F16", "F16", kWarning, 1, 3},
    {"F16nul", "F16", kWarning, 1, 3},
    {"K01", "K01", kError, 2, 1},
    {"K01letters", "K01", kError, 3, 1},
    {"K01slip", "K01", kError, 3, 1},
    {"K02", "K02", kError, 3, 1},
    {"K02behind", "K02", kError, 3, 1},
    {"K03", "K03", kError, 4, 1},
    {"K03repeats", "K03", kError, 3, 1},
    {"K04", "K04", kNote, 1, 1},
    {"K05", "K05", kWarning, 1, 1},
    {"K06", "K06", kError, 1, 1},
    {"K07first", "K07", kError, 4, 1},
    {"K07block", "K07", kError, 9, 1},
    {"K07last", "K07", kWarning, 1, 1},
    {"K08", "K08", kError, 3, 1},
    {"K09unknown", "K09", kNote, 1, 1},
    {"K09block", "K09", kNote, 8, 1},
    {"L01", "L01", kError, 3, 1},
    {"L01remark", "L01", kError, 3, 1},
    {"L02", "L02", kError, 2, 26},
    {"L03", "L03", kError, 2, 28},
    {"L04", "L04", kError, 2, 26},
    {"L04real", "L04", kError, 2, 28},
    {"L04negative", "L04", kError, 1, 20},
    {"L05", "L05", kError, 2, 28},
    {"L06", "L06", kWarning, 1, 20},
    {"L07", "L07", kWarning, 2, 30},
    {"V01", "V01", kError, 3, 24},
    {"V02", "V02", kError, 3, 17},
    {"V02zero", "V02", kNote, 3, 24},
    {"V03", "V03", kError, 3, 19},
    {"V04", "V04", kError, 3, 1},
    {"V05", "V05", kError, 3, 1},
    {"V06", "V06", kNote, 3, 1},
    {"V07", "V07", kWarning, 3, 19},
    {"V08", "V08", kError, 3, 1},
    {"V08empty", "V08", kError, 3, 1},
    {"V09close", "V09", kError, 3, 19},
    {"V09low", "V09", kWarning, 3, 19},
    {"V09high", "V09", kNote, 3, 14},
    {"V10", "V10", kError, 3, 14},
    {"S01", "S01", kError, 5, 7},
    {"S01bare", "S01", kError, 6, 1},
    {"S02", "S02", kError, 5, 7},
    {"S03", "S03", kError, 5, 3},
    {"S03nomember", "S03", kWarning, 5, 3},
    {"S04", "S04", kError, 6, 1},
    {"S04keyword", "S04", kError, 4, 1},
    {"S05", "S05", kError, 4, 1},
    {"S06", "S06", kError, 8, 1},
    {"S07", "S07", kWarning, 4, 1},
    {"S08", "S08", kWarning, 5, 7},
    {"S09", "S09", kNote, 6, 3},
    {"S10", "S10", kError, 7, 1},
    {"S10zero", "S10", kError, 7, 1},
    {"S10floor", "S10", kError, 5, 1},
    {"S11", "S11", kNote, 5, 7},
    {"A01", "A01", kError, 5, 3},
    {"A01ratio", "A01", kError, 5, 3},
    {"A02", "A02", kError, 5, 3},
    {"A03", "A03", kError, 4, 23},
    {"A03members", "A03", kError, 4, 13},
    {"A04", "A04", kError, 6, 1},
    {"A05angle", "A05", kError, 5, 3},
    {"A05ratio", "A05", kError, 5, 3},
    {"A05modulus", "A05", kError, 5, 3},
    {"A06", "A06", kError, 5, 3},
    {"A06ratio", "A06", kError, 5, 3},
    {"A06modulus", "A06", kError, 5, 3},
    {"A07", "A07", kWarning, 5, 3},
    {"A08", "A08", kNote, 5, 3},
    {"A09", "A09", kError, 6, 1},
    {"A10", "A10", kError, 6, 1},
    {"A11", "A11", kNote, 5, 3},
    {"A12", "A12", kNote, 6, 1},
    {"A13", "A13", kNote, 5, 3},
    {"D01", "D01", kError, 3, 21},
    {"D01only", "D01", kError, 3, 19},
    {"D02", "D02", kWarning, 3, 19},
    {"D02empty", "D02", kWarning, 3, 21},
    {"D02nomember", "D02", kWarning, 3, 19},
};

std::string PathOf(const std::string& name) {
    return QUARNEL_SOURCE_DIR "/tests/lint/rules/" + name;
}

bool IsOf(const LintFinding& finding, const RuleFile& rule) {
    return finding.rule->id == rule.id && finding.rule->kind == rule.kind;
}

std::string ListOf(const std::vector<LintFinding>& findings) {
    std::ostringstream list;
    for (const LintFinding& finding : findings)
        list << finding.rule->id << " at line " << finding.place.line << "; ";
    return list.str();
}

class RuleFiles : public testing::TestWithParam<RuleFile> {};

}  // namespace

TEST_P(RuleFiles, GivesThisFindingAndNoOtherButNotes) {
    const RuleFile& rule = GetParam();
    const InputCheck check = CheckInputFile(PathOf(std::string(rule.name) + ".csv"));
    ASSERT_TRUE(check.isRead);
    int found = 0;
    for (const LintFinding& finding : check.findings) {
        if (!IsOf(finding, rule)) {
            EXPECT_EQ(kNote, finding.rule->kind) << ListOf(check.findings);
            continue;
        }
        ++found;
        EXPECT_EQ(rule.line, finding.place.line);
        EXPECT_EQ(rule.column, check.text.Column(finding.place.line, finding.place.offset));
    }
    EXPECT_EQ(1, found) << ListOf(check.findings);
}

TEST_P(RuleFiles, StandsBesideAFileThatJustDoesNotGiveIt) {
    const RuleFile& rule = GetParam();
    const InputCheck check = CheckInputFile(PathOf(std::string(rule.name) + ".near.csv"));
    ASSERT_TRUE(check.isRead);
    for (const LintFinding& finding : check.findings)
        EXPECT_FALSE(IsOf(finding, rule)) << ListOf(check.findings);
}

INSTANTIATE_TEST_SUITE_P(Rules, RuleFiles, testing::ValuesIn(kRuleFiles),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(RuleFilesFolder, HoldsTheFilesOfTheTableAndNoOthers) {
    std::set<std::string> expected, found;
    for (const RuleFile& rule : kRuleFiles) {
        expected.insert(std::string(rule.name) + ".csv");
        expected.insert(std::string(rule.name) + ".near.csv");
    }
    for (const auto& entry : std::filesystem::directory_iterator(PathOf("")))
        found.insert(entry.path().filename().string());
    EXPECT_EQ(expected, found);
}

// F01 has no file, F13 one of 100,002 lines; both are below. S09 against a model stands elsewhere.
TEST(RuleFilesFolder, HasAFileForEveryRule) {
    std::set<std::pair<std::string_view, LintKind>> shown{
        {"F01", kError}, {"F13", kError}, {"S09", kError}};
    for (const RuleFile& rule : kRuleFiles)
        shown.insert({rule.id, rule.kind});
    for (const LintRule& rule : AllFileRules())
        EXPECT_TRUE(shown.contains({rule.id, rule.kind})) << rule.id;
}

namespace {

std::string Lines(int count) {
    std::string text = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n";
    for (int i = 2; i < count; ++i)
        text += "#,\n";
    return text;
}

}  // namespace

TEST(LineLimit, Refuses100002LinesAtTheFirstThatIsTooMuch) {
    const InputCheck check = CheckInputText(InputText(Lines(100002) + "FIN\n"));
    ASSERT_TRUE(HasFinding(check.findings, "F13"));
    EXPECT_EQ("F13", check.findings.back().rule->id);
    EXPECT_EQ(100002u, check.findings.back().place.line);
    EXPECT_FALSE(HasFinding(check.findings, "F02"));
}

TEST(LineLimit, Accepts100001Lines) {
    const InputCheck check = CheckInputText(InputText(Lines(100001) + "FIN\n"));
    EXPECT_FALSE(HasFinding(check.findings, "F13"));
}

TEST(UnreadableFile, IsOneFindingWithTheReasonAndNoLine) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path("folder.csv"));
    const struct {
        std::string path;
        const char* reason;
    } cases[] = {{folder.Path("gone.csv"), "no such file"},
                 {folder.Path("folder.csv"), "a folder"}};
    for (const auto& [path, reason] : cases) {
        const InputCheck check = CheckInputFile(path);
        EXPECT_FALSE(check.isRead);
        ASSERT_EQ(1u, check.findings.size());
        EXPECT_EQ("F01", check.findings[0].rule->id);
        EXPECT_EQ(0u, check.findings[0].place.line);
        EXPECT_THAT(std::string(check.findings[0].rule->en), testing::HasSubstr(reason));
    }
}
