// What other programs call nodes, members and load cases, and where a model comes from, is kept in
// its file.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qhm_file.h"
#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

namespace {

constexpr const char* kOpening = R"({"format": "quarnel-host-model", "version": 1, )";

class QhmNames : public testing::Test {
protected:
    QhmContents Read(const std::string& more) {
        return ReadQhmFileWithCautions(folder.Write("tower.qhm", kOpening + more + "}"));
    }

    TestFolder folder;
};

}  // namespace

TEST_F(QhmNames, AreReadByTheirNumbers) {
    const QhmContents contents = Read(
        R"("source": "by hand", "names": {"nodes": {"7": "A"}, "members": {"-1": "柱"},
           "loadCases": {"2": "EX"}})");
    EXPECT_EQ("by hand", contents.model.source);
    EXPECT_THAT(contents.model.names.nodes, ElementsAre(Pair(7, "A")));
    EXPECT_THAT(contents.model.names.members, ElementsAre(Pair(-1, "柱")));
    EXPECT_THAT(contents.model.names.loadCases, ElementsAre(Pair(2, "EX")));
    EXPECT_THAT(contents.cautions, IsEmpty());
}

TEST_F(QhmNames, AreWrittenAndReadBack) {
    RecordedModel model;
    model.source = "a \"quoted\" source";
    model.names.nodes[3] = "B\n";
    model.names.loadCases[1] = "固定荷重";
    WriteQhmFile(model, folder.Path("written.qhm"));
    const RecordedModel read = ReadQhmFile(folder.Path("written.qhm"));
    EXPECT_EQ(model.source, read.source);
    EXPECT_EQ(model.names.nodes, read.names.nodes);
    EXPECT_EQ(model.names.loadCases, read.names.loadCases);
    EXPECT_THAT(read.names.members, IsEmpty());
}

TEST_F(QhmNames, AreNotWrittenWhereThereAreNone) {
    WriteQhmFile(RecordedModel(), folder.Path("written.qhm"));
    EXPECT_THAT(folder.Read("written.qhm"), Not(HasSubstr("names")));
    EXPECT_THAT(folder.Read("written.qhm"), Not(HasSubstr("source")));
}

TEST_F(QhmNames, ThatAreNoTextsAreRefusedWithTheirPath) {
    try {
        Read(R"("names": {"nodes": {"7": 8}})");
        FAIL() << "a number was read as a name";
    } catch (const QhmFileError& error) {
        EXPECT_THAT(error.what(), HasSubstr("names.nodes.7: expected a name"));
    }
}
