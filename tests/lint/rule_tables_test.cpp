// The tables of rules, and the documents that show them.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "input/file_rules.h"
#include "input/lint_finding_text.h"
#include "lint/model_rules.h"
#include "tests/support/test_folder.h"

namespace {

std::vector<LintRule> AllRules() {
    std::vector<LintRule> rules(AllFileRules().begin(), AllFileRules().end());
    rules.insert(rules.end(), AllModelRules().begin(), AllModelRules().end());
    return rules;
}

std::string RowOf(const LintRule& rule) {
    std::ostringstream row;
    row << "| " << rule.id << " | " << NameOf(rule.kind) << " | " << rule.en << " | " << rule.ja
        << " |";
    return row.str();
}

// What stands in braces.
std::set<std::string> PlaceholdersIn(std::string_view text) {
    std::set<std::string> names;
    for (std::size_t open = text.find('{'); open != std::string_view::npos;
         open = text.find('{', open + 1))
        names.emplace(text.substr(open, text.find('}', open) + 1 - open));
    return names;
}

}  // namespace

TEST(RuleTables, StandInTheDocumentsRowByRow) {
    const std::string page = ReadText(QUARNEL_SOURCE_DIR "/docs/input-file.md");
    const std::string part = page.substr(page.find("\n## What the check says"));
    std::size_t rows = 0;
    std::istringstream lines(part);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("| ") && line.size() > 5 && std::isdigit(line[3]) != 0) ++rows;
    EXPECT_EQ(AllRules().size(), rows);
    for (const LintRule& rule : AllRules()) {
        const std::size_t section = part.find("\n### ");
        EXPECT_NE(std::string::npos, section);
        EXPECT_NE(std::string::npos, part.find(RowOf(rule))) << "missing: " << RowOf(rule);
    }
}

TEST(RuleTables, NameSectionsThatTheDocumentsHave) {
    const std::string page = ReadText(QUARNEL_SOURCE_DIR "/docs/input-file.md");
    std::set<std::string> anchors;
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("### ")) continue;
        std::string anchor;
        for (const char c : line.substr(4)) {
            if (std::isalnum(static_cast<unsigned char>(c)) != 0)
                anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            if (c == ' ') anchor += '-';
        }
        anchors.insert(anchor);
    }
    for (const LintRule& rule : AllRules())
        EXPECT_TRUE(anchors.contains(std::string(rule.anchor))) << rule.id << ' ' << rule.anchor;
}

TEST(RuleTables, HaveBothLanguagesWithTheSamePlaceholders) {
    for (const LintRule& rule : AllRules()) {
        EXPECT_FALSE(rule.en.empty()) << rule.id;
        EXPECT_FALSE(rule.ja.empty()) << rule.id;
        EXPECT_EQ(rule.adviceEn.empty(), rule.adviceJa.empty()) << rule.id;
        for (const std::string& name : PlaceholdersIn(rule.ja))
            EXPECT_TRUE(PlaceholdersIn(rule.en).contains(name)) << rule.id << ' ' << name;
    }
}
