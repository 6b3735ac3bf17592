// The keys of host model files: in any order, each once, none misspelt unnoticed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/qhm_file.h"
#include "tests/support/test_folder.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;
using testing::SizeIs;

namespace {

constexpr const char* kFormat = R"("format": "quarnel-host-model", "version": 1)";

class QhmKeys : public testing::Test {
protected:
    QhmContents Read(const std::string& more) {
        return ReadQhmFileWithCautions(
            folder.Write("tower.qhm", std::string("{") + kFormat + ", " + more + "}"));
    }

    std::string Error(const std::string& more) {
        try {
            Read(more);
        } catch (const QhmFileError& error) {
            return error.what();
        }
        return {};
    }

    TestFolder folder;
};

/// The refusal of a key that stands twice, with the way to it.
MATCHER_P2(RefusesTheSecond, file, path, "") {
    const std::string line = arg;
    return line == std::string(file) + ": " + path +
                       ": this key stands twice in its object, where each was expected once";
}

}  // namespace

TEST_F(QhmKeys, AKeyTwiceInOneObjectIsRefusedWithItsPath) {
    const struct {
        const char* text;
        const char* path;
    } faults[] = {
        {R"("version": 1)", "version"},
        {R"("zUp": true, "zUp": true)", "zUp"},
        {R"("nodes": [], "members": [], "nodes": [])", "nodes"},
        {R"("remark": 1, "remark": 2)", "remark"},
        {R"("nodes": [{"number": 1, "xyz": [1, 2, 3], "number": 1}])", "nodes[0].number"},
        {R"("nodes": [{"number": 1, "xyz": [1, 2, 3], "name": "A", "name": "A"}])",
         "nodes[0].name"},
        {R"("members": [{"number": 1, "start": 1, "end": 2, "beta": 0, "beta": 0}])",
         "members[0].beta"},
        {R"("displacements": {"2": {}, "3": {}, "2": {}})", "displacements.2"},
        {R"("displacements": {"2": {"5": [0,0,0,0,0,0], "5": [0,0,0,0,0,0]}})",
         "displacements.2.5"},
        {R"("endForces": {"2": {}, "2": {}})", "endForces.2"},
        {R"("remark": {"a": [{"b": 1, "c": 2, "b": 3}]})", "remark.a[0].b"},
    };
    for (const auto& [text, path] : faults)
        EXPECT_THAT(Error(text), RefusesTheSecond(folder.Path("tower.qhm"), path)) << text;
}

TEST_F(QhmKeys, OneNumberWrittenInTwoWaysIsTheSameKey) {
    const std::string six = "[0,0,0,0,0,0]", both = "[" + six + "," + six + "]";
    const struct {
        std::string text;
        const char* path;
    } faults[] = {
        {R"("displacements": {"2": {}, "02": {}})", "displacements.02"},
        {R"("displacements": {"2": {"0": )" + six + R"(, "-0": )" + six + "}}",
         "displacements.2.-0"},
        {R"("endForces": {"-2": {}, "-002": {}})", "endForces.-002"},
        {R"("endForces": {"2": {"7": )" + both + R"(, "07": )" + both + "}}", "endForces.2.07"},
    };
    for (const auto& [text, path] : faults)
        EXPECT_THAT(Error(text), RefusesTheSecond(folder.Path("tower.qhm"), path)) << text;
}

// A key as it is written and as an escape: the strings are the same.
TEST_F(QhmKeys, AnEscapeDoesNotMakeAnotherKey) {
    EXPECT_THAT(Error(R"("zUp": true, "z\u0055p": true)"),
                RefusesTheSecond(folder.Path("tower.qhm"), "zUp"));
}

// More keys than most objects have, the last two alike.
TEST_F(QhmKeys, AKeyTwiceAmongManyIsRefused) {
    std::string keys;
    for (int i = 0; i < 1000; ++i)
        keys += "\"key " + std::to_string(i) + "\": 0, ";
    EXPECT_EQ("", Error("\"remark\": {" + keys + "\"key\": 0}"));
    EXPECT_THAT(Error("\"remark\": {" + keys + "\"key 999\": 0}"),
                RefusesTheSecond(folder.Path("tower.qhm"), "remark.key 999"));
    EXPECT_THAT(Error("\"remark\": {" + keys + "\"key 3\": 0}"),
                RefusesTheSecond(folder.Path("tower.qhm"), "remark.key 3"));
}

TEST_F(QhmKeys, TheSameKeyInTwoObjectsIsNoFault) {
    EXPECT_EQ("", Error(R"("displacements": {"2": {"5": [0,0,0,0,0,0]}, "5": {"2": [0,0,0,0,0,0]}},
                            "endForces": {"2": {}, "5": {}}, "remark": {"a": {"a": {"a": 1}}})"));
}

TEST_F(QhmKeys, AnUnknownKeyOfTheOutermostObjectIsACautionThatNamesIt) {
    const QhmContents contents =
        Read(R"("displacement": {"2": {"1": [1,2,3,4,5,6]}}, "remark": null, "zUp": true)");
    EXPECT_THAT(contents.cautions,
                ElementsAre(HasSubstr("\"displacement\""), HasSubstr("\"remark\"")));
    EXPECT_THAT(contents.model.zUp, Optional(true));
}

TEST_F(QhmKeys, KnownKeysAreNoCaution) {
    EXPECT_THAT(Read(R"("modelPath": null, "baseUnitSystem": 2, "zUp": false,
                        "resultsAvailable": true, "nodes": [], "members": [],
                        "unlistedMembers": [], "names": {"1": "A", "1x": "B"},
                        "recordedFor": {"all": true},
                        "primaryLoadCases": [], "loadCombinations": [], "displacements": {},
                        "endForces": {})")
                    .cautions,
                IsEmpty());
}

// Further keys of a node or a member are for whom they are.
TEST_F(QhmKeys, UnknownKeysWithinAreNoCaution) {
    EXPECT_THAT(Read(R"("nodes": [{"number": 1, "xyz": [1, 2, 3], "name": "A"}])").cautions,
                IsEmpty());
}

TEST_F(QhmKeys, ACautionIsOneShortLine) {
    const auto cautions = Read("\"a\\nb" + std::string(100000, 'x') + "\": 1").cautions;
    ASSERT_THAT(cautions, SizeIs(1));
    EXPECT_LT(cautions[0].size(), 200u);
    EXPECT_THAT(cautions[0], AllOf(HasSubstr(R"(a\nbx)"), Not(HasSubstr("\n"))));
}

TEST_F(QhmKeys, ManyUnknownKeysAreTenCautionsAndACount) {
    std::string keys;
    for (int i = 0; i < 1000; ++i)
        keys += "\"key " + std::to_string(i) + "\": 0, ";
    const auto cautions = Read(keys + "\"zUp\": true").cautions;
    ASSERT_THAT(cautions, SizeIs(11));
    EXPECT_THAT(cautions[9], HasSubstr("\"key 9\""));
    EXPECT_EQ("990 further unknown keys are passed over", cautions[10]);
}

// Scripts put keys in any order: results before what they are of, the head last.
TEST_F(QhmKeys, MayStandInAnyOrder) {
    const RecordedModel model = ReadQhmFile(folder.Write("tower.qhm", R"({
        "endForces": {"2": {"9": [[1,2,3,4,5,6], [6,5,4,3,2,1]], "8": [[7,0,0,0,0,0],
                                                                       [0,0,0,0,0,0]]}},
        "displacements": {"2": {"6": [1,2,3,4,5,6], "55": [1,1,1,1,1,1]},
                          "3": {"5": [7,8,9,0,0,0]}},
        "unlistedMembers": [{"number": 8, "start": 6, "end": 5},
                            {"number": 9, "start": 6, "end": 6}],
        "members": [{"end": 6, "start": 5, "number": 9}],
        "nodes": [{"xyz": [1, 2, 3], "number": 5}, {"number": 6, "xyz": [4, 5, 6]}],
        "version": 1, "format": "quarnel-host-model"})"));
    EXPECT_THAT(model.nodeList, Optional(ElementsAre(5, 6)));
    EXPECT_THAT(model.memberList, Optional(ElementsAre(9)));
    EXPECT_EQ(5, model.members.at(0).endNodes->start);  // of the list, not of the other key
    EXPECT_EQ(8, model.members.at(1).number);
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), *model.displacements.Find(1, 2));
    EXPECT_EQ((SixDoubles{7, 8, 9, 0, 0, 0}), *model.displacements.Find(0, 3));
    EXPECT_EQ(2u, model.displacements.size());  // node 55 is not there
    EXPECT_EQ((SixDoubles{6, 5, 4, 3, 2, 1}), *model.endForces[1].Find(0, 2));
    EXPECT_EQ((SixDoubles{7, 0, 0, 0, 0, 0}), *model.endForces[0].Find(1, 2));
}
