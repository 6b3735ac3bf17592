// Reads host model files, straight into the model.

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "host/json_reader.h"
#include "host/qhm_file.h"
#include "platform/one_line.h"
#include "platform/regular_file.h"
#include "platform/stdio_file.h"

namespace {

constexpr const char* kFormat = "quarnel-host-model";
constexpr const char* kExpectedFormat = "expected \"quarnel-host-model\"";
constexpr const char* kExpectedVersion = "expected the number 1 or 2";

constexpr std::size_t kMostCautions = 10;  // about unknown keys

// --- Entries of the lists ------------------------------------------------------------------------

template <typename Value>
const Value& Required(const std::optional<Value>& value, const JsonReader& json, const char* key,
                      const char* what) {
    if (!value) json.Fail(std::string("expected the key \"") + key + "\", " + what);
    return *value;
}

RecordedNode ReadNode(JsonReader& json) {
    std::optional<std::int32_t> number;
    RecordedNode node;
    node.support = 0;
    json.ReadObject("expected an object: a node", [&](const std::string& key) {
        if (key == "number")
            number = json.ReadInteger();
        else if (key == "xyz")
            json.ReadNumbers(node.xyz.emplace(), "expected an array of three numbers");
        else if (key == "support")
            node.support = json.ReadBoolean() ? 1 : 0;
        else
            json.Skip();
    });
    node.number = Required(number, json, "number", "a whole number of 32 bits");
    Required(node.xyz, json, "xyz", "an array of three numbers");
    return node;
}

// The host answers the angle as a single-precision value.
double ReadBeta(JsonReader& json) {
    const double degrees = json.ReadNumber();
    if (std::abs(degrees) > std::numeric_limits<float>::max())
        json.Fail("expected a number of single precision");
    return static_cast<double>(static_cast<float>(degrees));
}

RecordedMember ReadMember(JsonReader& json) {
    std::optional<std::int32_t> number, start, end;
    RecordedMember member;
    member.beta = 0.0;
    json.ReadObject("expected an object: a member", [&](const std::string& key) {
        if (key == "number")
            number = json.ReadInteger();
        else if (key == "start")
            start = json.ReadInteger();
        else if (key == "end")
            end = json.ReadInteger();
        else if (key == "beta")
            member.beta = ReadBeta(json);
        else
            json.Skip();
    });
    member.number = Required(number, json, "number", "a whole number of 32 bits");
    member.endNodes = RecordedMember::EndNodes{Required(start, json, "start", "a node number"),
                                               Required(end, json, "end", "a node number")};
    return member;
}

// Of a number that stands twice, the first entry answers.
void Admit(const RecordedNode& node, RecordedModel& model) {
    RecordedNode& first = model.nodes[model.AddNode(node.number)];
    if (!first.xyz) first = node;
}

void Admit(const RecordedMember& member, RecordedModel& model) {
    RecordedMember& first = model.members[model.AddMember(member.number)];
    if (!first.endNodes) first = member;
}

std::string ReadSha256(JsonReader& json) {
    constexpr const char* kExpected = "expected 64 lower-case hexadecimal digits";
    constexpr std::size_t kDigits = 64;
    std::string digest = json.ReadString(kExpected);
    const bool hasOnlyDigits = digest.find_first_not_of("0123456789abcdef") == std::string::npos;
    if (digest.size() != kDigits || !hasOnlyDigits) json.Fail(kExpected);
    return digest;
}

// --- Results -------------------------------------------------------------------------------------

// Answers of one kind as a file gives them, by number. Those about nodes or members that are not
// known yet wait until the file has been read: it may list them later. Then what is still unknown
// is left out.
class AnswersByNumber {
public:
    // Where a number stands in the model's nodes or members.
    using FindNumber = std::optional<std::size_t> (RecordedModel::*)(std::int32_t) const;

    AnswersByNumber(const RecordedModel& model, FindNumber find, AnswerTable& known)
        : model_(model), find_(find), known_(known) {}

    void Store(std::int32_t number, std::int32_t loadCase, const SixDoubles& answer) {
        if (const auto position = (model_.*find_)(number)) {
            known_.Store(*position, loadCase, answer);
            return;
        }
        const std::size_t position = waitingPositions_.Add(number, waitingNumbers_.size());
        if (position == waitingNumbers_.size()) waitingNumbers_.push_back(number);
        waiting_.Store(position, loadCase, answer);
    }

    void AdmitThoseWaiting() {
        waiting_.ForEach(
            [this](std::size_t waiting, std::int32_t loadCase, const SixDoubles& answer) {
                if (const auto position = (model_.*find_)(waitingNumbers_[waiting]))
                    known_.Store(*position, loadCase, answer);
            });
    }

private:
    const RecordedModel& model_;
    FindNumber find_;
    AnswerTable& known_;
    NumberPositions waitingPositions_;
    std::vector<std::int32_t> waitingNumbers_;
    AnswerTable waiting_;  // by position in waitingNumbers_
};

SixDoubles ReadSix(JsonReader& json) {
    SixDoubles six{};
    json.ReadNumbers(six, "expected an array of six numbers");
    return six;
}

std::array<SixDoubles, 2> ReadBothEnds(JsonReader& json) {
    constexpr const char* kExpected = "expected two arrays of six numbers, for start and end";
    std::array<SixDoubles, 2> ends{};
    std::size_t count = 0;
    json.ReadArray(kExpected, [&](std::size_t) {
        if (count == ends.size() || !json.IsNext(JsonToken::Kind::kArray))
            json.FailAround(kExpected);
        ends[count++] = ReadSix(json);
    });
    if (count < ends.size()) json.Fail(kExpected);
    return ends;
}

// --- The file ------------------------------------------------------------------------------------

class QhmReader {
public:
    explicit QhmReader(std::FILE* file) : json_(file) {}
    QhmReader(const QhmReader&) = delete;
    QhmReader& operator=(const QhmReader&) = delete;

    QhmContents Read();

private:
    struct Section {
        const char* key;
        void (*read)(QhmReader& reader);
    };
    static const Section kSections[];

    void ReadFormat();
    void ReadVersion();
    void ReadModelPath();
    void ReadRecordedFor();
    void ReadNodes();
    void ReadMembers();
    void ReadUnlistedMembers();
    std::vector<std::int32_t> ReadLoadCases();
    void ReadDisplacements();
    void ReadEndForces(std::array<AnswersByNumber, 2>& forces);
    void ReadNames();
    void PassOver(const std::string& key);
    void RequireHead() const;
    void Complete();

    JsonReader json_;
    bool hasFormat_ = false;
    std::optional<std::int32_t> version_;
    bool hasGlobalForces_ = false;
    std::size_t unknownKeys_ = 0;
    QhmContents contents_;
    RecordedModel& model_ = contents_.model;
    std::vector<RecordedMember> unlistedMembers_;
    AnswersByNumber displacements_{model_, &RecordedModel::FindNode, model_.displacements};
    std::array<AnswersByNumber, 2> endForces_{
        AnswersByNumber{model_, &RecordedModel::FindMember, model_.endForces[0]},
        AnswersByNumber{model_, &RecordedModel::FindMember, model_.endForces[1]}};
    std::array<AnswersByNumber, 2> endForcesGlobal_{
        AnswersByNumber{model_, &RecordedModel::FindMember, model_.endForcesGlobal[0]},
        AnswersByNumber{model_, &RecordedModel::FindMember, model_.endForcesGlobal[1]}};
};

constexpr QhmReader::Section QhmReader::kSections[] = {
    {"format", [](QhmReader& r) { r.ReadFormat(); }},
    {"version", [](QhmReader& r) { r.ReadVersion(); }},
    {"modelPath", [](QhmReader& r) { r.ReadModelPath(); }},
    {"recordedFor", [](QhmReader& r) { r.ReadRecordedFor(); }},
    {"baseUnitSystem", [](QhmReader& r) { r.model_.baseUnitSystem = r.json_.ReadInteger(); }},
    {"zUp", [](QhmReader& r) { r.model_.zUp = r.json_.ReadBoolean(); }},
    {"resultsAvailable", [](QhmReader& r) { r.model_.resultsAvailable = r.json_.ReadBoolean(); }},
    {"nodes", [](QhmReader& r) { r.ReadNodes(); }},
    {"members", [](QhmReader& r) { r.ReadMembers(); }},
    {"unlistedMembers", [](QhmReader& r) { r.ReadUnlistedMembers(); }},
    {"primaryLoadCases", [](QhmReader& r) { r.model_.primaryLoadCases = r.ReadLoadCases(); }},
    {"loadCombinations", [](QhmReader& r) { r.model_.loadCombinations = r.ReadLoadCases(); }},
    {"displacements", [](QhmReader& r) { r.ReadDisplacements(); }},
    {"endForces", [](QhmReader& r) { r.ReadEndForces(r.endForces_); }},
    {"endForcesGlobal",
     [](QhmReader& r) {
         r.hasGlobalForces_ = true;
         r.ReadEndForces(r.endForcesGlobal_);
     }},
    {"source",
     [](QhmReader& r) {
         r.model_.source = r.json_.ReadString(
             "expected a text that says where the "
             "model comes from");
     }},
    {"names", [](QhmReader& r) { r.ReadNames(); }},
};

QhmContents QhmReader::Read() {
    model_.baseUnitSystem = 2;
    model_.zUp = false;
    model_.resultsAvailable = true;
    model_.nodeList.emplace();
    model_.memberList.emplace();
    model_.primaryLoadCases.emplace();
    model_.loadCombinations.emplace();
    json_.ReadObject("expected a JSON object", [this](const std::string& key) {
        const auto* const section = std::ranges::find(kSections, key, &Section::key);
        if (section == std::end(kSections))
            PassOver(key);
        else
            section->read(*this);
    });
    RequireHead();
    json_.ReadEnd();
    Complete();
    return std::move(contents_);
}

void QhmReader::ReadFormat() {
    if (json_.ReadString(kExpectedFormat) != kFormat) json_.Fail(kExpectedFormat);
    hasFormat_ = true;
}

void QhmReader::ReadVersion() {
    if (!json_.IsNext(JsonToken::Kind::kInteger)) json_.Fail(kExpectedVersion);
    version_ = json_.ReadInteger();
    if (version_ != 1 && version_ != 2) json_.Fail(kExpectedVersion);
}

void QhmReader::ReadModelPath() {
    model_.modelPath =
        json_.ReadNull() ? std::string() : json_.ReadString("expected a string or null");
}

void QhmReader::ReadRecordedFor() {
    constexpr const char* kExpected =
        "expected {\"input\": NAME, \"sha256\": DIGEST} or {\"all\": true}";
    bool hasAll = false;
    RecordedFor& purpose = model_.recordedFor.emplace();
    json_.ReadObject(kExpected, [&](const std::string& key) {
        if (key == "all") {
            hasAll = true;
            purpose.everything = json_.ReadBoolean();
        } else if (key == "input") {
            purpose.inputName = json_.ReadString("expected the name of an input file");
        } else if (key == "sha256") {
            purpose.inputSha256 = ReadSha256(json_);
        } else {
            json_.Skip();
        }
    });
    const bool hasName = !purpose.inputName.empty(), hasDigest = !purpose.inputSha256.empty();
    const bool isForEverything = purpose.everything && !hasName && !hasDigest;
    const bool isForInput = !hasAll && hasName && hasDigest;
    if (!isForEverything && !isForInput) json_.Fail(kExpected);
}

void QhmReader::ReadNodes() {
    json_.ReadArray("expected an array of nodes", [this](std::size_t) {
        const RecordedNode node = ReadNode(json_);
        model_.nodeList->push_back(node.number);
        Admit(node, model_);
    });
}

void QhmReader::ReadMembers() {
    json_.ReadArray("expected an array of members", [this](std::size_t) {
        const RecordedMember member = ReadMember(json_);
        model_.memberList->push_back(member.number);
        Admit(member, model_);
    });
}

void QhmReader::ReadUnlistedMembers() {
    json_.ReadArray("expected an array of members",
                    [this](std::size_t) { unlistedMembers_.push_back(ReadMember(json_)); });
}

std::vector<std::int32_t> QhmReader::ReadLoadCases() {
    std::vector<std::int32_t> numbers;
    json_.ReadArray("expected an array of load case numbers",
                    [&](std::size_t) { numbers.push_back(json_.ReadInteger()); });
    return numbers;
}

void QhmReader::ReadDisplacements() {
    json_.ReadNumberedObject("load case", [this](std::int32_t loadCase) {
        json_.ReadNumberedObject("node", [this, loadCase](std::int32_t node) {
            displacements_.Store(node, loadCase, ReadSix(json_));
        });
    });
}

void QhmReader::ReadEndForces(std::array<AnswersByNumber, 2>& forces) {
    json_.ReadNumberedObject("load case", [&](std::int32_t loadCase) {
        json_.ReadNumberedObject("member", [&](std::int32_t member) {
            const auto ends = ReadBothEnds(json_);
            for (std::size_t end = 0; end < ends.size(); ++end)
                forces[end].Store(member, loadCase, ends[end]);
        });
    });
}

void QhmReader::ReadNames() {
    json_.ReadObject("expected an object with the names of nodes, members and loadCases",
                     [this](const std::string& key) {
                         const auto read = [this](const char* what, auto& names) {
                             json_.ReadNumberedObject(what, [&](std::int32_t number) {
                                 names[number] = json_.ReadString("expected a name");
                             });
                         };
                         if (key == "nodes")
                             read("node", model_.names.nodes);
                         else if (key == "members")
                             read("member", model_.names.members);
                         else if (key == "loadCases")
                             read("load case", model_.names.loadCases);
                         else
                             json_.Skip();
                     });
}

void QhmReader::PassOver(const std::string& key) {
    if (++unknownKeys_ <= kMostCautions)
        contents_.cautions.push_back("the unknown key \"" + OneLine(key, kLongestShownKey) +
                                     "\" is passed over; if it is a misspelt one, what it holds "
                                     "counts as not given");
    json_.Skip();
}

void QhmReader::RequireHead() const {
    if (!hasFormat_) json_.Fail(std::string("expected the key \"format\", \"") + kFormat + "\"");
    if (!version_) json_.Fail("expected the key \"version\", the number 1 or 2");
    // Readers that know version 1 only pass over this key, and would find no forces.
    if (hasGlobalForces_ && version_ == 1)
        json_.Fail("endForcesGlobal: expected in a file of \"version\" 2 only; this one says 1");
}

void QhmReader::Complete() {
    if (unknownKeys_ > kMostCautions)
        contents_.cautions.push_back(std::to_string(unknownKeys_ - kMostCautions) +
                                     " further unknown keys are passed over");
    for (const RecordedMember& member : unlistedMembers_)
        Admit(member, model_);
    displacements_.AdmitThoseWaiting();
    for (auto* const forces : {&endForces_, &endForcesGlobal_})
        for (AnswersByNumber& ofEnd : *forces)
            ofEnd.AdmitThoseWaiting();
    if (const auto member = model_.MemberWithBothKindsOfForces())
        json_.Fail("endForcesGlobal: member " + std::to_string(*member) +
                   " stands in \"endForces\", too; a member is expected in one of both only");
    const auto count = [](const auto& list) { return static_cast<std::int32_t>(list->size()); };
    model_.nodeCount = count(model_.nodeList);
    model_.memberCount = count(model_.memberList);
    model_.primaryLoadCaseCount = count(model_.primaryLoadCases);
    model_.loadCombinationCount = count(model_.loadCombinations);
}

// A device or a pipe may have no end.
StdioFile OpenModelFile(const std::string& path) {
    const FileKind kind = FileKindOf(path);
    if (kind == FileKind::kFolder || kind == FileKind::kOther)
        throw JsonError("is not a regular file; expected a host model file (.qhm)");
    StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    if (!file) throw JsonError("cannot be opened; expected a host model file (.qhm)");
    return file;
}

}  // namespace

QhmContents ReadQhmFileWithCautions(const std::string& path) {
    try {
        const StdioFile file = OpenModelFile(path);
        return QhmReader(file.get()).Read();
    } catch (const JsonError& error) {
        throw QhmFileError(path + ": " + error.what());
    }
}

RecordedModel ReadQhmFile(const std::string& path) {
    return ReadQhmFileWithCautions(path).model;
}
