#include "log/warnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

namespace {

using testing::HasSubstr;

// The text of the log with N and PATH where the documents have them.
std::string AsDocumented(std::string_view text) {
    std::string documented(text);
    for (const auto& [placeholder, shown] : {std::pair{"{story}", "N"}, {"{path}", "PATH"}}) {
        const std::size_t place = documented.find(placeholder);
        if (place != std::string::npos)
            documented.replace(place, std::string(placeholder).size(), shown);
    }
    return documented;
}

// The first cell of every row whose first cell is quoted, in the page about the log.
std::set<std::string> ExplainedWarnings() {
    std::ifstream page(QUARNEL_SOURCE_DIR "/docs/processing-log.md");
    std::set<std::string> explained;
    for (std::string line; std::getline(page, line);) {
        if (!line.starts_with("| `")) continue;
        explained.insert(line.substr(3, line.find("` |") - 3));
    }
    return explained;
}

TEST(Warnings, AreExplainedInThePageAboutTheLogAndNoOthersAre) {
    std::set<std::string> written;
    for (const WarningTexts& texts : AllWarningTexts())
        written.insert(AsDocumented(texts.log));
    EXPECT_EQ(written, ExplainedWarnings());
}

TEST(Warnings, AreFoundByTheirKind) {
    for (const WarningTexts& texts : AllWarningTexts())
        EXPECT_EQ(&texts, &TextsOf(texts.kind));
}

TEST(Warnings, NameTheirStoryAndTheirFile) {
    EXPECT_EQ("Cannot open result file a.csv.",
              FillIn(TextsOf(WarningKind::kCannotOpenResults).log,
                     {WarningKind::kCannotOpenResults, 0, "a.csv"}));
    EXPECT_THAT(FillIn(TextsOf(WarningKind::kNoWeight).log, {WarningKind::kNoWeight, 12, {}}),
                HasSubstr("gravity center of 12-th story."));
}

TEST(Warnings, KeepAPathThatLooksLikeAPlaceholder) {
    EXPECT_EQ("Cannot open data file {story}{path}.csv.",
              FillIn(TextsOf(WarningKind::kCannotOpenInput).log,
                     {WarningKind::kCannotOpenInput, 0, "{story}{path}.csv"}));
}

TEST(Warnings, SayInPlainWordsOfBothLanguagesWhatTheyMean) {
    for (const WarningTexts& texts : AllWarningTexts()) {
        EXPECT_THAT(std::string(texts.en), testing::EndsWith(".")) << texts.log;
        EXPECT_THAT(std::string(texts.ja), testing::EndsWith("。")) << texts.log;
        EXPECT_EQ(texts.en.find("{story}") != std::string_view::npos,
                  texts.log.find("{story}") != std::string_view::npos)
            << texts.log;
    }
}

}  // namespace
