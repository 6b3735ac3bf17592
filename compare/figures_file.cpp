#include "compare/figures_file.h"

#include <functional>
#include <limits>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "host/json_reader.h"
#include "platform/regular_file.h"

namespace {

constexpr const char* kFormat = "quarnel-route2-result";
constexpr std::size_t kMostStories = 10000;

// What the keys of one object are read with. Every one of them must be there.
using Readers = std::map<std::string, std::function<void()>, std::less<>>;

void ReadKeys(JsonReader& reader, const char* expected, const Readers& readers) {
    std::set<std::string, std::less<>> missing;
    for (const auto& [key, read] : readers)
        missing.insert(key);
    reader.ReadObject(expected, [&](const std::string& key) {
        const auto known = readers.find(key);
        if (known == readers.end()) return reader.Skip();
        missing.erase(key);
        known->second();
    });
    if (!missing.empty()) reader.Fail(std::string(expected) + " with the key " + *missing.begin());
}

FigureRead ReadFigure(JsonReader& reader) {
    if (reader.ReadNull()) return std::nullopt;
    return reader.ReadNumber();
}

// A value of the input file need not be a number.
double ReadValue(JsonReader& reader) {
    return ReadFigure(reader).value_or(std::numeric_limits<double>::quiet_NaN());
}

std::string ReadText(JsonReader& reader) {
    if (reader.ReadNull()) return {};
    return reader.ReadString("expected a text or null");
}

std::optional<std::int32_t> ReadIdentifier(JsonReader& reader) {
    if (reader.ReadNull()) return std::nullopt;
    return reader.ReadInteger();
}

CodeVerdict ReadCode(JsonReader& reader) {
    const std::string text = reader.ReadString("expected a verdict");
    for (const CodeVerdict verdict :
         {CodeVerdict::kOk, CodeVerdict::kNg, CodeVerdict::kUndetermined})
        if (text == TextOf(verdict)) return verdict;
    reader.Fail("expected OK, NG or undetermined");
}

std::optional<ToolVerdict> ReadTool(JsonReader& reader) {
    if (reader.ReadNull()) return std::nullopt;
    const std::string text = reader.ReadString("expected a verdict or null");
    for (const ToolVerdict verdict : {ToolVerdict::kPass, ToolVerdict::kFail})
        if (text == TextOf(verdict)) return verdict;
    reader.Fail("expected PASS, FAIL or null");
}

std::array<FigureRead, 2> ReadPair(JsonReader& reader) {
    std::array<FigureRead, 2> pair;
    reader.ReadArray("expected two numbers", [&](std::size_t i) {
        if (i >= pair.size()) reader.Fail("expected two numbers");
        pair.at(i) = ReadFigure(reader);
    });
    return pair;
}

DirectionRead ReadDirection(JsonReader& reader) {
    DirectionRead read;
    const Readers worst{{"member", [&] { read.worstMember = ReadIdentifier(reader); }},
                        {"drift_mm", [&] { read.worstDrift = ReadFigure(reader); }},
                        {"angle", [&] { read.angle = ReadFigure(reader); }},
                        {"allowable", [&] { read.angleLimit = ReadValue(reader); }},
                        {"code", [&] { read.angleCode = ReadCode(reader); }}};
    ReadKeys(
        reader, "expected the figures of a direction",
        {{"storyShear_kN", [&] { read.shear = ReadFigure(reader); }},
         {"worstUpright", [&] { ReadKeys(reader, "expected the worst upright member", worst); }},
         {"meanAngle", [&] { read.meanAngle = ReadFigure(reader); }},
         {"toolMeanVerdict", [&] { read.angleTool = ReadTool(reader); }},
         {"stiffnessRatio", [&] { read.ratio = ReadFigure(reader); }},
         {"stiffnessRatioCode", [&] { read.ratioCode = ReadCode(reader); }},
         {"stiffnessRatioTool", [&] { read.ratioTool = ReadTool(reader); }},
         {"eccentricityModulus", [&] { read.modulus = ReadFigure(reader); }},
         {"eccentricityCode", [&] { read.modulusCode = ReadCode(reader); }},
         {"eccentricityTool", [&] { read.modulusTool = ReadTool(reader); }}});
    // The tool judges the values that stand for what it did not calculate, too.
    if (!read.meanAngle) read.angleTool.reset();
    if (!read.ratio) read.ratioTool.reset();
    if (!read.modulus) read.modulusTool.reset();
    return read;
}

MemberRead ReadMember(JsonReader& reader) {
    MemberRead member;
    ReadKeys(reader, "expected a member",
             {{"number", [&] { member.number = reader.ReadInteger(); }},
              {"x_mm", [&] { member.x = ReadValue(reader); }},
              {"v_mm", [&] { member.v = ReadValue(reader); }}});
    return member;
}

StoryRead ReadStory(JsonReader& reader) {
    StoryRead story;
    const Readers allowable{{"angle", [&] { story.allowableAngle = ReadValue(reader); }},
                            {"ratio", [&] { story.allowableRatio = ReadValue(reader); }},
                            {"modulus", [&] { story.allowableModulus = ReadValue(reader); }}};
    const auto readMembers = [&] {
        reader.ReadArray("expected a list of members",
                         [&](std::size_t) { story.members.push_back(ReadMember(reader)); });
    };
    ReadKeys(reader, "expected a story",
             {{"number", [&] { story.number = reader.ReadInteger(); }},
              {"lowerLevel_mm", [&] { story.lowerLevel = ReadValue(reader); }},
              {"upperLevel_mm", [&] { story.upperLevel = ReadValue(reader); }},
              {"height_mm", [&] { story.height = ReadValue(reader); }},
              {"storyMembers", [&] { story.storyMembers = reader.ReadInteger(); }},
              {"weightAbove_kN", [&] { story.weight = ReadFigure(reader); }},
              {"gravityCenter_mm", [&] { story.gravityCenter = ReadPair(reader); }},
              {"rigidityCenter_mm", [&] { story.rigidityCenter = ReadPair(reader); }},
              {"allowable", [&] { ReadKeys(reader, "expected allowable values", allowable); }},
              {"x", [&] { story.directions[0] = ReadDirection(reader); }},
              {"second", [&] { story.directions[1] = ReadDirection(reader); }},
              {"members", readMembers}});
    return story;
}

RemarkRead ReadRemark(JsonReader& reader) {
    RemarkRead remark;
    const auto readStories = [&] {
        reader.ReadArray("expected a list of stories",
                         [&](std::size_t) { remark.stories.push_back(reader.ReadInteger()); });
    };
    ReadKeys(reader, "expected a remark",
             {{"id", [&] { remark.id = reader.ReadString("expected an id"); }},
              {"kind", [&] { remark.kind = reader.ReadString("expected a kind"); }},
              {"stories", readStories},
              {"en", [&] { remark.en = reader.ReadString("expected a text"); }},
              {"ja", [&] { remark.ja = reader.ReadString("expected a text"); }}});
    return remark;
}

void ReadFormat(JsonReader& reader) {
    if (reader.ReadString("expected the name of the format") != kFormat)
        reader.Fail(std::string("expected ") + kFormat);
}

void ReadVersion(JsonReader& reader) {
    if (reader.ReadInteger() != 1) reader.Fail("expected version 1, which this program knows");
}

void ReadModel(JsonReader& reader, RunRead& run) {
    ReadKeys(reader, "expected the model",
             {{"path", [&] { run.modelPath = ReadText(reader); }},
              {"sha256", [&] { run.modelSha256 = ReadText(reader); }},
              {"verticalAxis", [&] { run.verticalAxis = ReadText(reader); }},
              {"hostUnits", [&] { run.hostUnits = ReadText(reader); }},
              {"nodes", [&] { run.nodes = ReadValue(reader); }},
              {"members", [&] { run.members = ReadValue(reader); }}});
}

void ReadRest(JsonReader& reader, RunRead& run) {
    const Readers input{{"path", [&] { run.inputPath = ReadText(reader); }},
                        {"sha256", [&] { run.inputSha256 = ReadText(reader); }}};
    const Readers end{{"complete", [&] { run.complete = reader.ReadBoolean(); }},
                      {"failure", [&] { run.failure = ReadText(reader); }}};
    const Readers cases{{"dead", [&] { run.loadCases[0] = ReadIdentifier(reader); }},
                        {"x", [&] { run.loadCases[1] = ReadIdentifier(reader); }},
                        {"second", [&] { run.loadCases[2] = ReadIdentifier(reader); }},
                        {"secondDirection", [&] { run.secondDirection = ReadText(reader); }}};
    const Readers verdict{{"code", [&] { run.code = ReadCode(reader); }},
                          {"tool", [&] { run.tool = ReadTool(reader); }}};
    const auto readStories = [&] {
        reader.ReadArray("expected a list of stories", [&](std::size_t i) {
            if (i >= kMostStories) reader.Fail("expected no more stories");
            run.stories.push_back(ReadStory(reader));
        });
    };
    const auto readRemarks = [&] {
        reader.ReadArray("expected a list of remarks",
                         [&](std::size_t) { run.remarks.push_back(ReadRemark(reader)); });
    };
    ReadKeys(reader, "expected the figures of a run",
             {{"format", [&] { ReadFormat(reader); }},
              {"version", [&] { ReadVersion(reader); }},
              {"made", [&] { run.made = ReadText(reader); }},
              {"model", [&] { ReadModel(reader, run); }},
              {"input", [&] { ReadKeys(reader, "expected the input file", input); }},
              {"run", [&] { ReadKeys(reader, "expected how the run ended", end); }},
              {"loadCases", [&] { ReadKeys(reader, "expected load cases", cases); }},
              {"verdict", [&] { ReadKeys(reader, "expected the verdict", verdict); }},
              {"stories", readStories},
              {"remarks", readRemarks}});
    reader.ReadEnd();
}

}  // namespace

RunRead ReadFiguresFile(const std::string& path) {
    const StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    if (!file) throw FiguresFileError(path + ": this file cannot be opened");
    RunRead run;
    run.path = path;
    try {
        JsonReader reader(file.get());
        ReadRest(reader, run);
    } catch (const JsonError& error) {
        throw FiguresFileError(path + ": no figures of a run: " + error.what());
    }
    return run;
}
