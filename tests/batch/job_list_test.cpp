#include "batch/job_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_folder.h"

using testing::HasSubstr;

namespace {

class JobList : public testing::Test {
protected:
    std::vector<Job> Read(const std::string& text) {
        return ReadJobList(folder.Write("jobs.csv", text));
    }

    std::string Fault(const std::string& text) {
        try {
            Read(text);
        } catch (const JobListError& error) {
            return error.what();
        }
        return "";
    }

    TestFolder folder;
};

}  // namespace

TEST_F(JobList, HasAJobPerRowWithPathsFromItsFolder) {
    const std::vector<Job> jobs = Read(
        "name,model,input,title\n"
        "tower,a/tower.qhm,tower.csv,\"Tower, east\"\n"
        "annex,annex.qhm,annex.csv,\n");
    ASSERT_EQ(2u, jobs.size());
    EXPECT_EQ("tower", jobs[0].name);
    EXPECT_EQ("Tower, east", jobs[0].title);
    EXPECT_EQ(folder.Path("a/tower.qhm"), jobs[0].model);
    EXPECT_EQ(folder.Path("tower.csv"), jobs[0].input);
    EXPECT_EQ(3u, jobs[1].line);
}

TEST_F(JobList, TakesItsColumnsInAnyOrderAndDoesWithoutATitle) {
    const std::vector<Job> jobs = Read("input,name,model\ni.csv,a,m.qhm\n");
    EXPECT_EQ("a", jobs.at(0).name);
    EXPECT_EQ(folder.Path("i.csv"), jobs.at(0).input);
    EXPECT_EQ("", jobs.at(0).title);
}

TEST_F(JobList, MeansTheRunningHostWhereThereIsNoModel) {
    EXPECT_TRUE(Read("name,model,input\na,,i.csv\n").at(0).IsOnRunningHost());
}

TEST_F(JobList, KeepsWholePaths) {
#ifdef _WIN32
    const std::string whole = "C:\\jobs\\m.qhm";
#else
    const std::string whole = "/jobs/m.qhm";
#endif
    EXPECT_EQ(whole, Read("name,model,input\na," + whole + ",i.csv\n").at(0).model);
}

TEST_F(JobList, NamesTheLineOfAFault) {
    EXPECT_EQ(folder.Path("jobs.csv") + ":3: the name A stands twice",
              Fault("name,model,input\na,m,i\nA,m,i\n"));
    EXPECT_EQ(folder.Path("jobs.csv") + ":2: the input file is missing",
              Fault("name,model,input\na,m,\n"));
}

TEST_F(JobList, RefusesNamesThatAreNoFolders) {
    for (const char* name :
         {"a/b", "a\\b", "..", ".", "a:b", "nul", "COM1", "con.txt", "a.", "\"\""})
        EXPECT_THAT(Fault(std::string("name,model,input\n") + name + ",m,i\n"),
                    HasSubstr("jobs.csv:2: "))
            << name;
}

TEST_F(JobList, TakesJapaneseNamesInBothEncodings) {
    EXPECT_EQ("校舎", Read("name,model,input\n校舎,m,i\n").at(0).name);
    // 計画 in Shift_JIS
    EXPECT_EQ("計画", Read("name,model,input\n\x8C\x76\x89\xE6,m,i\n").at(0).name);
}

TEST_F(JobList, IsText) {
    EXPECT_THAT(Fault(std::string("name,model,input\none,\0,i.csv\n", 29)),
                HasSubstr("jobs.csv: this is no text in UTF-8 or Shift_JIS"));
    EXPECT_THAT(Fault("name,model,input\none,\xFF.qhm,i.csv\n"),
                HasSubstr("jobs.csv: this is no text in UTF-8 or Shift_JIS"));
}

TEST_F(JobList, NeedsItsHeadingAndARow) {
    EXPECT_THAT(Fault("name,input\na,i\n"), HasSubstr(":1: the heading must be name,model,input"));
    EXPECT_THAT(Fault("name,model,input\n"), HasSubstr("there are no jobs"));
    EXPECT_THAT(Fault(""), HasSubstr("the file is empty"));
}

TEST_F(JobList, ThatIsNoFileIsNamed) {
    EXPECT_THROW(ReadJobList(folder.Path("none.csv")), JobListError);
    EXPECT_THROW(ReadJobList(folder.Path("")), JobListError);
}
