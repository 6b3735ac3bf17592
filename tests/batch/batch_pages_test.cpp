#include "batch/batch_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using testing::HasSubstr;
using testing::Not;

namespace {

JobOutcome Outcome(const std::string& name, CodeVerdict code, double utilisation,
                   std::size_t line) {
    JobOutcome outcome;
    outcome.job.name = name;
    outcome.job.line = line;
    outcome.end = JobEnd::kComplete;
    outcome.code = code;
    outcome.tool = code == CodeVerdict::kNg ? ToolVerdict::kFail : ToolVerdict::kPass;
    outcome.governing[0] = GoverningValue{"1/300", 2, "Y", code, utilisation};
    outcome.hasSheet = true;
    return outcome;
}

}  // namespace

TEST(BatchPages, ShowTheWorstFirst) {
    std::vector<JobOutcome> outcomes = {Outcome("ok", CodeVerdict::kOk, 0.9, 2),
                                        Outcome("ng", CodeVerdict::kNg, 1.2, 3),
                                        Outcome("worse", CodeVerdict::kNg, 2.0, 4),
                                        Outcome("open", CodeVerdict::kUndetermined, 0.1, 5),
                                        Outcome("ended", CodeVerdict::kOk, 0, 6)};
    outcomes.back().end = JobEnd::kEndedEarly;
    std::ranges::stable_sort(outcomes, IsWorse);
    std::string order;
    for (const JobOutcome& outcome : outcomes)
        order += outcome.job.name + " ";
    EXPECT_EQ("ended worse ng open ok ", order);
}

TEST(BatchPages, LinkToTheSheetAndTheFigures) {
    JobOutcome outcome = Outcome("tower", CodeVerdict::kOk, 0.5, 2);
    const std::string page = BatchIndex({outcome});
    EXPECT_THAT(page, HasSubstr("<a href=\"tower/sheet.html\">tower</a>"));
    EXPECT_THAT(page, HasSubstr("tower/figures.json"));
    outcome.hasSheet = false;
    EXPECT_THAT(BatchIndex({outcome}), Not(HasSubstr("sheet.html")));
}

TEST(BatchPages, EscapeWhatComesFromOutside) {
    JobOutcome outcome = Outcome("a#b%校", CodeVerdict::kOk, 0.5, 2);
    outcome.job.title = "<script>";
    const std::string page = BatchIndex({outcome});
    EXPECT_THAT(page, HasSubstr("href=\"a%23b%25%E6%A0%A1/sheet.html\""));
    EXPECT_THAT(page, Not(HasSubstr("<script>")));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;"));
}

TEST(BatchPages, SummariseEachJobInARow) {
    JobOutcome outcome = Outcome("tower", CodeVerdict::kNg, 1.2, 2);
    outcome.job.title = "east, \"new\"";
    outcome.warnings = 3;
    EXPECT_EQ(
        "\xEF\xBB\xBFname,title,verdict,tool,angle,angle story,angle direction,ratio,ratio story,"
        "ratio direction,modulus,modulus story,modulus direction,errors,warnings,failure\r\n"
        "tower,\"east, \"\"new\"\"\",NG,FAIL,1/300,2,Y,,,,,,,0,3,\r\n",
        BatchSummary({outcome}));
}
