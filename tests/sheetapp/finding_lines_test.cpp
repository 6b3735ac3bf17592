// What the check of the input file found, for reading in the window.

#include "sheetapp/finding_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_folder.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

InputCheck CheckOf(const std::string& text) {
    const TestFolder folder;
    return CheckInputFile(folder.Write("input.csv", text));
}

constexpr const char* kWithoutFin = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n";
constexpr const char* kSound = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFIN\n";

}  // namespace

TEST(FindingLines, AreNoneForASoundFile) {
    const InputCheck check = CheckOf(kSound);
    EXPECT_FALSE(HasErrors(check));
    EXPECT_EQ("", LinesOfInputCheck(check, Language::kEnglish));
}

TEST(FindingLines, TellAnErrorWithItsId) {
    const InputCheck check = CheckOf(kWithoutFin);
    EXPECT_TRUE(HasErrors(check));
    EXPECT_THAT(LinesOfInputCheck(check, Language::kEnglish), HasSubstr("error F"));
    EXPECT_THAT(LinesOfInputCheck(check, Language::kJapanese), HasSubstr("誤り F"));
}

// One case for both directions: the third line is empty, so that it repeats the one above.
TEST(FindingLines, BeginWithTheLineOfTheFile) {
    const InputCheck check =
        CheckOf("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\n\nFIN\n");
    EXPECT_THAT(LinesOfInputCheck(check, Language::kEnglish), HasSubstr("Line 3, "));
    EXPECT_THAT(LinesOfInputCheck(check, Language::kJapanese), HasSubstr("3 行目 "));
}

TEST(RemarkLines, TellErrorsAndWarningsButNotesAndTheInputFilesOwn) {
    Findings findings;
    findings.remarks = {
        {"R03", RemarkKind::kError, {1}, {}, "no members", "部材なし", "name some", "書く"},
        {"R31", RemarkKind::kError, {}, {}, "of the input", "入力", "", ""},
        {"R27", RemarkKind::kNote, {}, {}, "a note", "注記", "", ""}};
    EXPECT_EQ("error R03: no members\n    → name some\n",
              LinesOfRemarks(findings, Language::kEnglish));
    EXPECT_EQ("誤り R03: 部材なし\n    → 書く\n", LinesOfRemarks(findings, Language::kJapanese));
}
