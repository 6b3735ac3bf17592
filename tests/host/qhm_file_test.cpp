#include "host/qhm_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>

#include "tests/support/file_size_limit.h"
#endif

#include <cmath>
#include <filesystem>
#include <limits>

#include "tests/support/test_folder.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;
using testing::StartsWith;

namespace {

constexpr const char* kHead = "\"format\": \"quarnel-host-model\", \"version\": 1";

/// A model file with the given text between its head and its end.
std::string Model(const std::string& more) {
    return std::string("{") + kHead + (more.empty() ? "" : ", ") + more + "}";
}

class QhmFile : public testing::Test {
protected:
    RecordedModel Read(const std::string& text) {
        return ReadQhmFile(folder.Write("tower.qhm", text));
    }

    /// The error of reading `text`; empty when it can be read.
    std::string Error(const std::string& text) { return ErrorOf(folder.Write("tower.qhm", text)); }

    static std::string ErrorOf(const std::string& path) {
        try {
            ReadQhmFile(path);
        } catch (const QhmFileError& error) {
            return error.what();
        }
        return {};
    }

    /// The error of writing `model` over `path`; empty when it can be written.
    static std::string WriteError(const RecordedModel& model, const std::string& path) {
        try {
            WriteQhmFile(model, path);
        } catch (const QhmFileError& error) {
            return error.what();
        }
        return {};
    }

    TestFolder folder;
};

/// One line that begins with the file and says what was expected, and where.
MATCHER_P2(IsOneLineAbout, file, place, "") {
    const std::string line = arg;
    *result_listener << "which is " << line.substr(0, 400);
    return line.starts_with(std::string(file) + ": ") && line.find(place) != std::string::npos &&
           line.find("expected") != std::string::npos &&
           line.find_first_of("\r\n") == std::string::npos && line.size() < 400;
}

// One node, one member, one load case and its results: the smallest model that has everything.
RecordedModel SmallModel() {
    RecordedModel model;
    model.modelPath = "D:\\jobs\\tower.ext";
    model.baseUnitSystem = 1;
    model.zUp = true;
    model.resultsAvailable = false;
    model.nodeList = {5, 6};
    model.nodeCount = 2;
    model.nodes.reserve(2);
    for (const std::int32_t number : {5, 6}) {
        RecordedNode& node = model.nodes[model.AddNode(number)];
        node.xyz = {0.1, -2.5e-300, number * 1e10};
        node.support = number == 5 ? 1 : 0;
    }
    model.memberList = {7};
    model.memberCount = 1;
    RecordedMember& member = model.members[model.AddMember(7)];
    member.endNodes = RecordedMember::EndNodes{6, 5};
    member.beta = static_cast<double>(22.7F);
    model.primaryLoadCases = {2, -3};
    model.primaryLoadCaseCount = 2;
    model.loadCombinations = {101};
    model.loadCombinationCount = 1;
    model.displacements.Store(1, 2, {0.012, 0, 1.0 / 3.0, 0, -0.0, 1e-17});
    model.endForces[0].Store(0, 101, {-12.5, 3, 0.25, 1, 2, 3});
    model.endForces[1].Store(0, 101, {12.5, -3, -0.25, 4, 5, 6});
    return model;
}

}  // namespace

TEST_F(QhmFile, WithoutAnythingButItsHeadHasTheDefaults) {
    const RecordedModel model = Read(Model(""));
    EXPECT_EQ(std::nullopt, model.modelPath);
    EXPECT_THAT(model.baseUnitSystem, Optional(2));
    EXPECT_THAT(model.zUp, Optional(false));
    EXPECT_THAT(model.resultsAvailable, Optional(true));
    EXPECT_THAT(model.nodeCount, Optional(0));
    EXPECT_THAT(model.memberCount, Optional(0));
    EXPECT_THAT(model.primaryLoadCaseCount, Optional(0));
    EXPECT_THAT(model.loadCombinationCount, Optional(0));
    EXPECT_THAT(model.nodeList, Optional(IsEmpty()));
    EXPECT_THAT(model.memberList, Optional(IsEmpty()));
    EXPECT_THAT(model.primaryLoadCases, Optional(IsEmpty()));
    EXPECT_THAT(model.loadCombinations, Optional(IsEmpty()));
}

TEST_F(QhmFile, NodesAndMembersHaveTheirDefaults) {
    const RecordedModel model = Read(Model(R"("nodes": [{"number": 1, "xyz": [1, 2, 3]}],
                      "members": [{"number": 4, "start": 1, "end": 2}])"));
    EXPECT_THAT(model.nodes.at(0).support, Optional(0));
    EXPECT_THAT(model.members.at(0).beta, Optional(0.0));
}

TEST_F(QhmFile, GivesEverythingItHolds) {
    const RecordedModel model = Read(Model(R"(
        "modelPath": "D:\\jobs\\tower.ext", "baseUnitSystem": 1, "zUp": true,
        "resultsAvailable": false,
        "nodes": [{"number": 2, "xyz": [0.5, -1, 1e3], "support": true},
                  {"number": 1, "xyz": [0, 3.5, 0], "support": false}],
        "members": [{"number": 9, "start": 2, "end": 1, "beta": 90.5}],
        "primaryLoadCases": [3, 1, 2], "loadCombinations": [101, 100],
        "displacements": {"3": {"1": [1, 2, 3, 4, 5, 6]}},
        "endForces": {"101": {"9": [[1, 2, 3, 4, 5, 6], [-1, -2, -3, -4, -5, -6]]}})"));
    EXPECT_THAT(model.modelPath, Optional(std::string("D:\\jobs\\tower.ext")));
    EXPECT_THAT(model.baseUnitSystem, Optional(1));
    EXPECT_THAT(model.zUp, Optional(true));
    EXPECT_THAT(model.resultsAvailable, Optional(false));
    EXPECT_THAT(model.nodeList, Optional(ElementsAre(2, 1)));
    EXPECT_THAT(model.nodes.at(0).xyz, Optional(ElementsAre(0.5, -1.0, 1000.0)));
    EXPECT_THAT(model.nodes.at(0).support, Optional(1));
    EXPECT_THAT(model.memberList, Optional(ElementsAre(9)));
    EXPECT_EQ(2, model.members.at(0).endNodes->start);
    EXPECT_EQ(1, model.members.at(0).endNodes->end);
    EXPECT_THAT(model.members.at(0).beta, Optional(90.5));
    EXPECT_THAT(model.primaryLoadCases, Optional(ElementsAre(3, 1, 2)));
    EXPECT_THAT(model.loadCombinations, Optional(ElementsAre(101, 100)));
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), *model.displacements.Find(1, 3));
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), *model.endForces[0].Find(0, 101));
    EXPECT_EQ((SixDoubles{-1, -2, -3, -4, -5, -6}), *model.endForces[1].Find(0, 101));
}

TEST_F(QhmFile, AModelPathOfNullIsAHostThatReturnsNone) {
    EXPECT_THAT(Read(Model(R"("modelPath": null)")).modelPath, Optional(std::string()));
}

// 22.7 is not a single-precision number; its nearest is.
TEST_F(QhmFile, AnglesAreSinglePrecisionNumbers) {
    const RecordedModel model =
        Read(Model(R"("members": [{"number": 1, "start": 1, "end": 2, "beta": 22.7}])"));
    EXPECT_THAT(model.members.at(0).beta, Optional(static_cast<double>(22.7F)));
    EXPECT_NE(22.7, *model.members.at(0).beta);
}

TEST_F(QhmFile, ANumberThatStandsTwiceIsListedTwiceAndAnsweredFromItsFirstEntry) {
    const RecordedModel model = Read(Model(R"(
        "nodes": [{"number": 1, "xyz": [1, 1, 1]}, {"number": 1, "xyz": [2, 2, 2], "support": true}],
        "members": [{"number": 5, "start": 1, "end": 2}, {"number": 5, "start": 3, "end": 4}])"));
    EXPECT_THAT(model.nodeList, Optional(ElementsAre(1, 1)));
    EXPECT_THAT(model.nodeCount, Optional(2));
    EXPECT_EQ(1u, model.nodes.size());
    EXPECT_THAT(model.nodes[0].xyz, Optional(ElementsAre(1.0, 1.0, 1.0)));
    EXPECT_THAT(model.nodes[0].support, Optional(0));
    EXPECT_THAT(model.memberList, Optional(ElementsAre(5, 5)));
    EXPECT_EQ(1, model.members.at(0).endNodes->start);
}

TEST_F(QhmFile, IgnoresUnknownKeys) {
    const RecordedModel model = Read(Model(R"("remark": {"a": [1, null]}, "zUp": true,
        "nodes": [{"number": 1, "xyz": [1, 2, 3], "name": "A"}])"));
    EXPECT_THAT(model.zUp, Optional(true));
    EXPECT_THAT(model.nodeList, Optional(ElementsAre(1)));
}

TEST_F(QhmFile, TakesThirtyTwoBitNumbersToTheirLimits) {
    const RecordedModel model = Read(Model(R"("primaryLoadCases": [2147483647, -2147483648])"));
    EXPECT_THAT(model.primaryLoadCases,
                Optional(ElementsAre(std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min())));
}

TEST_F(QhmFile, EveryFaultIsOneLineWithFilePlaceAndExpectation) {
    const struct {
        std::string text;
        const char* place;
    } faults[] = {
        {R"({"version": 1})", "format"},
        {R"({"format": "quarnel-host-model"})", "version"},
        {R"({"format": "another", "version": 1})", "format: "},
        {R"({"format": 1, "version": 1})", "format: "},
        {R"({"format": "quarnel-host-model", "version": 3})", "version: "},
        {R"({"format": "quarnel-host-model", "version": 0})", "version: "},
        {R"({"format": "quarnel-host-model", "version": "1"})", "version: "},
        {R"({"format": "quarnel-host-model", "version": 1.0})", "version: "},
        {R"([1, 2])", "object"},
        {R"("text")", "object"},
        {R"(17)", "object"},
        {Model(R"("modelPath": 5)"), "modelPath: "},
        {Model(R"("baseUnitSystem": "metric")"), "baseUnitSystem: "},
        {Model(R"("baseUnitSystem": 2.5)"), "baseUnitSystem: "},
        {Model(R"("zUp": 1)"), "zUp: "},
        {Model(R"("zUp": null)"), "zUp: "},
        {Model(R"("resultsAvailable": "yes")"), "resultsAvailable: "},
        {Model(R"("nodes": {})"), "nodes: "},
        {Model(R"("nodes": [5])"), "nodes[0]: "},
        {Model(R"("nodes": [{"xyz": [1, 2, 3]}])"), "nodes[0]: "},
        {Model(R"("nodes": [{"number": 1}])"), "nodes[0]: "},
        {Model(R"("nodes": [{"number": "1", "xyz": [1, 2, 3]}])"), "nodes[0].number: "},
        {Model(R"("nodes": [{"number": 1, "xyz": [1, 2]}])"), "nodes[0].xyz: "},
        {Model(R"("nodes": [{"number": 1, "xyz": [1, 2, 3, 4]}])"), "nodes[0].xyz: "},
        {Model(R"("nodes": [{"number": 1, "xyz": {"x": 1}}])"), "nodes[0].xyz: "},
        {Model(R"("nodes": [{"number": 1, "xyz": [1, 2, 3]}, {"number": 2, "xyz": [1, "2", 3]}])"),
         "nodes[1].xyz[1]: "},
        {Model(R"("nodes": [{"number": 1, "xyz": [1, 2, null]}])"), "nodes[0].xyz[2]: "},
        {Model(R"("nodes": [{"number": 1, "xyz": [1, 2, 3], "support": 1}])"),
         "nodes[0].support: "},
        {Model(R"("members": 1)"), "members: "},
        {Model(R"("members": [[]])"), "members[0]: "},
        {Model(R"("members": [{"start": 1, "end": 2}])"), "members[0]: "},
        {Model(R"("members": [{"number": 1, "end": 2}])"), "members[0]: "},
        {Model(R"("members": [{"number": 1, "start": 1}])"), "members[0]: "},
        {Model(R"("members": [{"number": 1, "start": 1, "end": true}])"), "members[0].end: "},
        {Model(R"("members": [{"number": 1, "start": 1, "end": 2, "beta": "0"}])"),
         "members[0].beta: "},
        {Model(R"("members": [{"number": 1, "start": 1, "end": 2, "beta": 1e300}])"),
         "members[0].beta: "},
        {Model(R"("primaryLoadCases": {"1": 1})"), "primaryLoadCases: "},
        {Model(R"("primaryLoadCases": [1, 2, "3"])"), "primaryLoadCases[2]: "},
        {Model(R"("loadCombinations": 101)"), "loadCombinations: "},
        {Model(R"("loadCombinations": [[]])"), "loadCombinations[0]: "},
        {Model(R"("displacements": [])"), "displacements: "},
        {Model(R"("displacements": {"2": []})"), "displacements.2: "},
        {Model(R"("displacements": {"2": {"5": [1, 2, 3, 4, 5]}})"), "displacements.2.5: "},
        {Model(R"("displacements": {"2": {"5": 7}})"), "displacements.2.5: "},
        {Model(R"("displacements": {"2": {"5": [1, 2, 3, 4, 5, "6"]}})"), "displacements.2.5[5]: "},
        {Model(R"("displacements": {"x": {}})"), "displacements.x: "},
        {Model(R"("displacements": {"": {}})"), "displacements.: "},
        {Model(R"("displacements": {"2": {"5a": [1, 2, 3, 4, 5, 6]}})"), "displacements.2.5a: "},
        {Model(R"("displacements": {"2": {" 5": [1, 2, 3, 4, 5, 6]}})"), "displacements.2. 5: "},
        {Model(R"("displacements": {"2": {"4294967297": [1, 2, 3, 4, 5, 6]}})"),
         "displacements.2.4294967297: "},
        {Model(R"("endForces": {"2": {"1": [1, 2, 3, 4, 5, 6]}})"), "endForces.2.1: "},
        {Model(R"("endForces": {"2": {"1": [[1, 2, 3, 4, 5, 6]]}})"), "endForces.2.1: "},
        {Model(R"("endForces": {"2": {"1": [[1, 2, 3, 4, 5, 6], [1, 2, 3]]}})"),
         "endForces.2.1[1]: "},
        {Model(R"("endForces": {"2": {"1": [[1, 2, {}, 4, 5, 6], [1, 2, 3, 4, 5, 6]]}})"),
         "endForces.2.1[0][2]: "},
        {Model(R"("endForces": {"2": 0})"), "endForces.2: "},
    };
    for (const auto& fault : faults)
        EXPECT_THAT(Error(fault.text), IsOneLineAbout(folder.Path("tower.qhm"), fault.place))
            << fault.text;
}

TEST_F(QhmFile, SaysWhatItWasRecordedFor) {
    const std::string digest(64, '7');
    const RecordedModel ofRun = Read(Model(R"("recordedFor": {"input": "tower.csv", "sha256": ")" +
                                           digest + R"(", "by": "somebody"})"));
    EXPECT_FALSE(ofRun.recordedFor->everything);
    EXPECT_EQ("tower.csv", ofRun.recordedFor->inputName);
    EXPECT_EQ(digest, ofRun.recordedFor->inputSha256);
    EXPECT_TRUE(Read(Model(R"("recordedFor": {"all": true})")).recordedFor->everything);
    EXPECT_FALSE(Read(Model("")).recordedFor.has_value());
}

TEST_F(QhmFile, ARecordingThatDoesNotSayWhatForIsRefusedWithItsPlace) {
    const std::string digest(64, 'f');
    const struct {
        std::string text;
        const char* place;
    } faults[] = {
        {"null", "recordedFor: "},
        {"\"tower.csv\"", "recordedFor: "},
        {"{}", "recordedFor: "},
        {R"({"all": false})", "recordedFor: "},
        {R"({"all": 1})", "recordedFor.all: "},
        {R"({"input": "tower.csv"})", "recordedFor: "},
        {R"({"input": "", "sha256": ")" + digest + "\"}", "recordedFor: "},
        {R"({"input": 5, "sha256": ")" + digest + "\"}", "recordedFor.input: "},
        {R"({"sha256": ")" + digest + "\"}", "recordedFor: "},
        {R"({"input": "tower.csv", "sha256": ")" + digest.substr(1) + "\"}",
         "recordedFor.sha256: "},
        {R"({"input": "tower.csv", "sha256": ")" + digest.substr(1) + "G\"}",
         "recordedFor.sha256: "},
        {R"({"input": "tower.csv", "sha256": 12})", "recordedFor.sha256: "},
        {R"({"all": true, "input": "tower.csv", "sha256": ")" + digest + "\"}", "recordedFor: "},
    };
    for (const auto& [text, place] : faults)
        EXPECT_THAT(Error(Model("\"recordedFor\": " + text)),
                    IsOneLineAbout(folder.Path("tower.qhm"), place))
            << text;
}

TEST_F(QhmFile, WhatItWasRecordedForIsReadBackTheSame) {
    RecordedModel model = SmallModel();
    model.endForces[1].Store(0, 101, {12.5, -3, -0.25, 4, 5, 6});
    for (const RecordedFor& purpose :
         {RecordedFor{true, {}, {}},
          RecordedFor{false, "\xE5\x85\xA5 \"a\\b\".csv", std::string(64, '0')}}) {
        model.recordedFor = purpose;
        WriteQhmFile(model, folder.Path("tower.qhm"));
        const RecordedModel back = ReadQhmFile(folder.Path("tower.qhm"));
        EXPECT_EQ(purpose.everything, back.recordedFor->everything);
        EXPECT_EQ(purpose.inputName, back.recordedFor->inputName);
        EXPECT_EQ(purpose.inputSha256, back.recordedFor->inputSha256);
    }
}

TEST_F(QhmFile, ForcesAlongTheGlobalAxesNeedVersionTwo) {
    const std::string forces =
        R"("members": [{"number": 7, "start": 1, "end": 2}],
           "endForcesGlobal": {"3": {"7": [[1,2,3,4,5,6], [6,5,4,3,2,1]]}})";
    const RecordedModel model =
        Read(R"({"format": "quarnel-host-model", )" + forces + R"(, "version": 2})");
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), *model.endForcesGlobal[0].Find(0, 3));
    EXPECT_EQ((SixDoubles{6, 5, 4, 3, 2, 1}), *model.endForcesGlobal[1].Find(0, 3));
    EXPECT_EQ(nullptr, model.endForces[0].Find(0, 3));
    EXPECT_THAT(Error(Model(forces)),
                IsOneLineAbout(folder.Path("tower.qhm"), "endForcesGlobal: "));
    EXPECT_THAT(Error(Model(forces)), HasSubstr("\"version\" 2 only; this one says 1"));
}

TEST_F(QhmFile, VersionTwoMayHoldForcesAlongOwnAxesOnly) {
    EXPECT_EQ("", Error(R"({"format": "quarnel-host-model", "version": 2})"));
}

TEST_F(QhmFile, FaultsOfForcesAlongTheGlobalAxesHaveTheirPlace) {
    EXPECT_THAT(Error(Model(R"("endForcesGlobal": {"3": {"7": [[1,2,3,4,5,6], [6,5,4,3,2]]}})")),
                IsOneLineAbout(folder.Path("tower.qhm"), "endForcesGlobal.3.7[1]: "));
}

// In different load cases, too: a member's forces are given along one kind of axes.
TEST_F(QhmFile, AMemberWithForcesAlongOwnAndAlongGlobalAxesIsRefused) {
    const std::string six = "[0,0,0,0,0,0]", ends = "[" + six + "," + six + "]";
    const auto text = [&](int other) {
        return R"({"format": "quarnel-host-model", "version": 2,
                   "members": [{"number": 7, "start": 1, "end": 2},
                               {"number": 8, "start": 1, "end": 2}],
                   "endForces": {"3": {"7": )" +
               ends + R"(}}, "endForcesGlobal": {"4": {")" + std::to_string(other) + "\": " + ends +
               "}}}";
    };
    EXPECT_THAT(Error(text(7)),
                IsOneLineAbout(folder.Path("tower.qhm"),
                               "endForcesGlobal: member 7 stands in \"endForces\""));
    EXPECT_EQ("", Error(text(8)));
}

TEST_F(QhmFile, ForcesAlongTheGlobalAxesMakeAFileOfVersionTwo) {
    RecordedModel model = SmallModel();
    WriteQhmFile(model, folder.Path("tower.qhm"));
    EXPECT_THAT(folder.Read("tower.qhm"),
                AllOf(HasSubstr("\"version\": 1,"), Not(HasSubstr("endForcesGlobal"))));
    model.endForcesGlobal = std::exchange(model.endForces, {});
    WriteQhmFile(model, folder.Path("tower.qhm"));
    EXPECT_THAT(folder.Read("tower.qhm"), HasSubstr("\"version\": 2,"));
    const RecordedModel back = ReadQhmFile(folder.Path("tower.qhm"));
    EXPECT_EQ((SixDoubles{-12.5, 3, 0.25, 1, 2, 3}), *back.endForcesGlobal[0].Find(0, 101));
    EXPECT_EQ((SixDoubles{12.5, -3, -0.25, 4, 5, 6}), *back.endForcesGlobal[1].Find(0, 101));
    EXPECT_EQ(0u, back.endForces[0].size());
}

TEST_F(QhmFile, AMemberWithBothKindsOfForcesIsNotWritten) {
    RecordedModel model = SmallModel();
    model.endForcesGlobal[0].Store(0, 2, {});
    EXPECT_THAT(WriteError(model, folder.Path("tower.qhm")), HasSubstr("member 7 has end forces"));
    EXPECT_FALSE(folder.Has("tower.qhm"));
}

TEST_F(QhmFile, NumbersBeyondThirtyTwoBitsAreRefusedWithTheirPlace) {
    for (const char* number : {"2147483648", "-2147483649", "4294967297", "18446744073709551615",
                               "99999999999999999999", "1e3", "1.5"})
        EXPECT_THAT(Error(Model("\"primaryLoadCases\": [1, " + std::string(number) + "]")),
                    IsOneLineAbout(folder.Path("tower.qhm"), "primaryLoadCases[1]: "))
            << number;
}

TEST_F(QhmFile, TextThatIsNotJsonIsOneLine) {
    const std::string bigString = "{\"format\": \"" + std::string(1000000, 'x');
    const std::string noise = "\x01\xff\xfe{[\"\n\r\x80";
    for (const std::string& text :
         {std::string(), std::string(" \n"), std::string("FIN\n"), std::string("{"),
          std::string("{\"format\": \"quarnel-host-model\",\n\n\"version\": 1,\n"), Model("") + "}",
          Model("") + Model(""), "/* remark */" + Model(""),
          Model(R"("nodes": [{"number": 1, "xyz": [1, 2, 3]})"), Model("\"zUp\": tru"),
          Model("\"modelPath\": \"\xff\xfe\""), Model("\"nodes\": NaN"),
          Model("\"displacements\": {\"1\": {\"1\": [1e999, 0, 0, 0, 0, 0]}}"), noise, bigString,
          std::string(3, '\0'), Model("") + '\0', Model("") + '\0' + Model("")})
        EXPECT_THAT(Error(text), IsOneLineAbout(folder.Path("tower.qhm"), "JSON"))
            << text.substr(0, 80);
}

TEST_F(QhmFile, AKeyWithLineEndsOrWithoutEndIsStillOneLine) {
    for (const std::string& key : {std::string("2\\n3\\r"), std::string(1000000, '7')})
        EXPECT_THAT(Error(Model("\"displacements\": {\"" + key + "\": {}}")),
                    IsOneLineAbout(folder.Path("tower.qhm"), "displacements."));
}

TEST_F(QhmFile, ATruncatedFileIsRefusedWhereverItEnds) {
    const std::string path = folder.Path("tower.qhm");
    WriteQhmFile(SmallModel(), path);
    std::string text = folder.Read("tower.qhm");
    for (text.erase(text.rfind('}')); text.size() > 10; text.resize(text.size() - 7))
        EXPECT_THAT(Error(text), IsOneLineAbout(path, "JSON"));
}

#ifndef _WIN32

// Far larger than memory, all zeros: it must not be read to its end first.
TEST_F(QhmFile, AnEnormousFileIsRefusedAtItsFirstFault) {
    const std::string path = folder.Write("enormous.qhm", "");
    std::filesystem::resize_file(path, std::uintmax_t{64} << 30);
    EXPECT_THAT(ErrorOf(path), IsOneLineAbout(path, "JSON"));
}

// Nobody writes to the pipe, and the device has no end: opening the one and reading the other would
// last for ever.
TEST_F(QhmFile, APipeOrADeviceIsRefusedUnread) {
    const std::string pipe = folder.Path("pipe.qhm");
    ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
    EXPECT_THAT(ErrorOf(pipe), IsOneLineAbout(pipe, "not a regular file"));
    EXPECT_THAT(ErrorOf("/dev/zero"), IsOneLineAbout("/dev/zero", "not a regular file"));
}

#endif

// Objects and arrays as deep as a stack would not hold.
TEST_F(QhmFile, DeepNestingIsRefusedLikeAnyOtherFault) {
    constexpr std::size_t kDepth = 100000;
    const std::string open(kDepth, '['), close(kDepth, ']');
    EXPECT_THAT(Error(open), IsOneLineAbout(folder.Path("tower.qhm"), "object"));
    EXPECT_THAT(Error(Model("\"nodes\": " + open + close)),
                IsOneLineAbout(folder.Path("tower.qhm"), "nodes[0]: "));
    std::string objects;
    for (std::size_t i = 0; i < kDepth; ++i)
        objects += "{\"1\":";
    for (const std::string& deep :
         {objects + "1" + std::string(kDepth, '}'), Model("\"remark\": " + open + close)})
        EXPECT_THAT(Error(deep), IsOneLineAbout(folder.Path("tower.qhm"),
                                                "JSON: more than 100 objects and arrays in each "
                                                "other"));
}

// The outermost object is the first of the hundred.
TEST_F(QhmFile, AHundredObjectsAndArraysMayStandInEachOther) {
    const auto nested = [](std::size_t depth) {
        return Model("\"remark\": " + std::string(depth - 1, '[') + std::string(depth - 1, ']'));
    };
    EXPECT_EQ("", Error(nested(100)));
    EXPECT_NE("", Error(nested(101)));
}

TEST_F(QhmFile, AFileThatIsNotThereOrIsAFolderIsOneLine) {
    EXPECT_THAT(ErrorOf(folder.Path("gone.qhm")), IsOneLineAbout(folder.Path("gone.qhm"), ""));
    std::filesystem::create_directory(folder.Path("folder.qhm"));
    EXPECT_THAT(ErrorOf(folder.Path("folder.qhm")), IsOneLineAbout(folder.Path("folder.qhm"), ""));
    EXPECT_NE("", ErrorOf(""));
}

// Displacements of a node and forces of a member that are not there are checked and left out.
TEST_F(QhmFile, ResultsOfUnknownNodesAndMembersAreLeftOut) {
    const RecordedModel model = Read(Model(R"(
        "displacements": {"1": {"5": [1, 2, 3, 4, 5, 6]}},
        "endForces": {"1": {"5": [[1, 2, 3, 4, 5, 6], [1, 2, 3, 4, 5, 6]]}})"));
    EXPECT_EQ(0u, model.displacements.size());
    EXPECT_EQ(0u, model.endForces[0].size());
    EXPECT_EQ(std::nullopt, model.FindNode(5));
}

TEST_F(QhmFile, WhatIsWrittenIsReadBackTheSame) {
    const RecordedModel model = SmallModel();
    WriteQhmFile(model, folder.Path("tower.qhm"));
    const RecordedModel back = ReadQhmFile(folder.Path("tower.qhm"));
    EXPECT_EQ(model.modelPath, back.modelPath);
    EXPECT_EQ(model.baseUnitSystem, back.baseUnitSystem);
    EXPECT_EQ(model.zUp, back.zUp);
    EXPECT_EQ(model.resultsAvailable, back.resultsAvailable);
    EXPECT_EQ(model.nodeList, back.nodeList);
    EXPECT_EQ(model.memberList, back.memberList);
    EXPECT_EQ(model.primaryLoadCases, back.primaryLoadCases);
    EXPECT_EQ(model.loadCombinations, back.loadCombinations);
    EXPECT_EQ(model.nodes.at(0).xyz, back.nodes.at(0).xyz);
    EXPECT_EQ(model.nodes.at(1).xyz, back.nodes.at(1).xyz);
    EXPECT_EQ(model.nodes.at(0).support, back.nodes.at(0).support);
    EXPECT_EQ(model.members.at(0).beta, back.members.at(0).beta);
    EXPECT_EQ(6, back.members.at(0).endNodes->start);
    EXPECT_EQ(*model.displacements.Find(1, 2), *back.displacements.Find(1, 2));
    EXPECT_TRUE(std::signbit((*back.displacements.Find(1, 2))[4]));
    EXPECT_EQ(*model.endForces[0].Find(0, 101), *back.endForces[0].Find(0, 101));
    EXPECT_EQ(*model.endForces[1].Find(0, 101), *back.endForces[1].Find(0, 101));
}

TEST_F(QhmFile, WhatWasReadIsWrittenTheSame) {
    WriteQhmFile(SmallModel(), folder.Path("first.qhm"));
    WriteQhmFile(ReadQhmFile(folder.Path("first.qhm")), folder.Path("second.qhm"));
    EXPECT_EQ(folder.Read("first.qhm"), folder.Read("second.qhm"));
}

TEST_F(QhmFile, AHostWithoutAModelPathIsWrittenAsNull) {
    RecordedModel model = SmallModel();
    model.modelPath = "";
    WriteQhmFile(model, folder.Path("tower.qhm"));
    EXPECT_THAT(folder.Read("tower.qhm"), HasSubstr("\"modelPath\": null"));
    EXPECT_THAT(ReadQhmFile(folder.Path("tower.qhm")).modelPath, Optional(std::string()));
}

TEST_F(QhmFile, WritingReplacesAnOlderFileAndLeavesNothingBeside) {
    folder.Write("tower.qhm", std::string(100000, 'x'));
    WriteQhmFile(SmallModel(), folder.Path("tower.qhm"));
    EXPECT_NO_THROW(ReadQhmFile(folder.Path("tower.qhm")));
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.Path("")))
        ++files;
    EXPECT_EQ(1u, files);
}

TEST_F(QhmFile, AValueThatIsNotFiniteIsRefusedAndTheOlderFileStays) {
    const std::string path = folder.Write("tower.qhm", "earlier\n");
    for (const double bad : {std::nan(""), std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()}) {
        RecordedModel coordinates = SmallModel(), displacements = SmallModel(),
                      forces = SmallModel(), angle = SmallModel();
        coordinates.nodes[0].xyz = {0, bad, 0};
        displacements.displacements.Store(0, 2, {0, 0, bad, 0, 0, 0});
        forces.endForces[1].Store(0, 2, {0, 0, 0, 0, 0, bad});
        angle.members[0].beta = bad;
        EXPECT_THAT(WriteError(coordinates, path), AllOf(StartsWith(path), HasSubstr("node 5")));
        EXPECT_THAT(WriteError(displacements, path),
                    AllOf(StartsWith(path), HasSubstr("node 5 under load case 2")));
        EXPECT_THAT(WriteError(forces, path),
                    AllOf(StartsWith(path), HasSubstr("member 7 under load case 2")));
        EXPECT_THAT(WriteError(angle, path), AllOf(StartsWith(path), HasSubstr("member 7")));
    }
    EXPECT_EQ("earlier\n", folder.Read("tower.qhm"));
    EXPECT_FALSE(folder.Has("tower.qhm.part"));
}

TEST_F(QhmFile, ANodeOrMemberThatWasNotAskedAboutIsRefused) {
    RecordedModel node = SmallModel(), member = SmallModel(), unknown = SmallModel();
    node.nodes[1].xyz.reset();
    member.members[0].endNodes.reset();
    unknown.nodeList->push_back(88);
    const std::string path = folder.Path("tower.qhm");
    EXPECT_THAT(WriteError(node, path), HasSubstr("node 6"));
    EXPECT_THAT(WriteError(member, path), HasSubstr("member 7"));
    EXPECT_NE("", WriteError(unknown, path));
    EXPECT_FALSE(folder.Has("tower.qhm"));
}

TEST_F(QhmFile, AFolderInPlaceOfTheFileIsAnErrorThatLeavesNothingBehind) {
    std::filesystem::create_directory(folder.Path("tower.qhm"));
    folder.Write("tower.qhm/inside", "kept");
    EXPECT_THAT(WriteError(SmallModel(), folder.Path("tower.qhm")),
                StartsWith(folder.Path("tower.qhm")));
    EXPECT_EQ("kept", folder.Read("tower.qhm/inside"));
    EXPECT_FALSE(folder.Has("tower.qhm.part"));
}

TEST_F(QhmFile, AFolderThatDoesNotExistIsAnErrorWithThePath) {
    const std::string path = folder.Path("gone/tower.qhm");
    EXPECT_THAT(WriteError(SmallModel(), path), AllOf(StartsWith(path), Not(HasSubstr("\n"))));
}

#ifndef _WIN32

TEST_F(QhmFile, AFullDiskIsAnErrorThatLeavesTheOlderFile) {
    const std::string path = folder.Write("tower.qhm", "earlier\n");
    std::string error;
    {
        const FileSizeLimit fullDisk(100);
        error = WriteError(SmallModel(), path);
    }
    EXPECT_THAT(error, AllOf(StartsWith(path), HasSubstr("disk is full")));
    EXPECT_EQ("earlier\n", folder.Read("tower.qhm"));
    EXPECT_EQ(1, std::distance(std::filesystem::directory_iterator(folder.Path("")), {}));
}

#endif
