// Writes host model files.

#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <span>

#include "host/json_writer.h"
#include "host/qhm_file.h"
#include "platform/whole_file.h"

namespace {

// Why a model cannot be written.
class NotWritable : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

template <typename Value>
const Value& Asked(const std::optional<Value>& answer, const std::string& of) {
    if (!answer) throw NotWritable("the run ended before the host was asked about " + of);
    return *answer;
}

std::string NodeName(std::int32_t number) {
    return "node " + std::to_string(number);
}

std::string MemberName(std::int32_t number) {
    return "member " + std::to_string(number);
}

std::vector<std::int32_t> Listed(const std::optional<std::vector<std::int32_t>>& list) {
    return list.value_or(std::vector<std::int32_t>{});
}

// One line per entry of the large tables, so that two recordings can be compared by eye.
class QhmWriter {
public:
    QhmWriter(const RecordedModel& model, std::FILE* file) : model_(model), json_(file) {}

    void Write();

private:
    void WriteRecordedFor();
    void WriteModelPath();
    void WriteNodes();
    void WriteMembers();
    void WriteUnlistedMembers();
    void WriteMember(const RecordedMember& member);
    void WriteLoadCases(const char* key, const std::optional<std::vector<std::int32_t>>& list);
    void WriteDisplacements();
    void WriteEndForces(const char* key, const std::array<AnswerTable, 2>& forces);
    void WriteNames();
    void WriteBothEnds(std::int32_t member, std::int32_t loadCase, const SixDoubles* start,
                       const SixDoubles* end);

    void Key(const char* key);
    void NumberedKey(std::int32_t number);
    template <typename Describe>
    void Number(double number, const Describe& describe);
    template <typename Describe>
    void Numbers(std::span<const double> numbers, const Describe& describe);

    // Entries of a table, each on its own line between two brackets.
    template <typename Entries, typename WriteEntry>
    void Table(const char* brackets, const Entries& entries, const WriteEntry& writeEntry);

    const RecordedModel& model_;
    JsonWriter json_;
};

void QhmWriter::Write() {
    if (const auto member = model_.MemberWithBothKindsOfForces())
        throw NotWritable(MemberName(*member) +
                          " has end forces along its own and along the global axes");
    const bool hasGlobalForces =
        model_.endForcesGlobal[0].size() + model_.endForcesGlobal[1].size() > 0;
    json_.Put("{\n \"format\": \"quarnel-host-model\",\n \"version\": ");
    json_.PutInteger(hasGlobalForces ? 2 : 1);
    WriteRecordedFor();
    WriteModelPath();
    if (!model_.source.empty()) {
        Key("source");
        json_.PutString(model_.source);
    }
    Key("baseUnitSystem");
    json_.PutInteger(model_.baseUnitSystem.value_or(2));
    Key("zUp");
    json_.Put(model_.zUp.value_or(false) ? "true" : "false");
    Key("resultsAvailable");
    json_.Put(model_.resultsAvailable.value_or(true) ? "true" : "false");
    WriteNodes();
    WriteMembers();
    WriteUnlistedMembers();
    WriteLoadCases("primaryLoadCases", model_.primaryLoadCases);
    WriteLoadCases("loadCombinations", model_.loadCombinations);
    WriteDisplacements();
    WriteEndForces("endForces", model_.endForces);
    if (hasGlobalForces) WriteEndForces("endForcesGlobal", model_.endForcesGlobal);
    WriteNames();
    json_.Put("\n}\n");
    json_.Flush();
}

void QhmWriter::Key(const char* key) {
    json_.Put(",\n \"");
    json_.Put(key);
    json_.Put("\": ");
}

void QhmWriter::NumberedKey(std::int32_t number) {
    json_.Put("\"");
    json_.PutInteger(number);
    json_.Put("\":");
}

// JSON has no way to write a number that is not finite. `describe` says what the number is of.
template <typename Describe>
void QhmWriter::Number(double number, const Describe& describe) {
    if (!std::isfinite(number))
        throw NotWritable("the host answered a value that is not a finite number for " +
                          describe());
    json_.PutNumber(number);
}

template <typename Describe>
void QhmWriter::Numbers(std::span<const double> numbers, const Describe& describe) {
    const char* separator = "[";
    for (const double number : numbers) {
        json_.Put(separator);
        separator = ",";
        Number(number, describe);
    }
    json_.Put("]");
}

template <typename Entries, typename WriteEntry>
void QhmWriter::Table(const char* brackets, const Entries& entries, const WriteEntry& writeEntry) {
    json_.Put({brackets, 1});
    const char* separator = "\n  ";
    for (const auto& entry : entries) {
        json_.Put(separator);
        separator = ",\n  ";
        writeEntry(entry);
    }
    if (!std::empty(entries)) json_.Put("\n ");
    json_.Put({brackets + 1, 1});
}

void QhmWriter::WriteRecordedFor() {
    if (!model_.recordedFor) return;
    Key("recordedFor");
    if (model_.recordedFor->everything) return json_.Put("{\"all\":true}");
    json_.Put("{\"input\":");
    json_.PutString(model_.recordedFor->inputName);
    json_.Put(",\"sha256\":");
    json_.PutString(model_.recordedFor->inputSha256);
    json_.Put("}");
}

// An empty path is what a host without a model file, or one that returns none, answers. A model
// without a path has that of its file.
void QhmWriter::WriteModelPath() {
    if (!model_.modelPath) return;
    Key("modelPath");
    if (model_.modelPath->empty())
        json_.Put("null");
    else
        json_.PutString(*model_.modelPath);
}

void QhmWriter::WriteNodes() {
    Key("nodes");
    Table("[]", Listed(model_.nodeList), [this](std::int32_t number) {
        const auto position = model_.FindNode(number);
        if (!position) throw NotWritable("the run ended before all nodes were read");
        const RecordedNode& node = model_.nodes[*position];
        const auto name = [number] { return NodeName(number); };
        json_.Put("{\"number\":");
        json_.PutInteger(number);
        json_.Put(",\"xyz\":");
        Numbers(Asked(node.xyz, name()), name);
        json_.Put(node.support.value_or(0) != 0 ? ",\"support\":true}" : "}");
    });
}

void QhmWriter::WriteMembers() {
    Key("members");
    Table("[]", Listed(model_.memberList), [this](std::int32_t number) {
        const auto position = model_.FindMember(number);
        if (!position) throw NotWritable("the run ended before all members were read");
        WriteMember(model_.members[*position]);
    });
}

// Members that the host answered about although its list does not have them: an input file can
// name any number.
void QhmWriter::WriteUnlistedMembers() {
    const auto list = Listed(model_.memberList);
    const std::set<std::int32_t> listed(list.begin(), list.end());
    std::vector<RecordedMember> unlisted;
    for (const RecordedMember& member : model_.members)
        if (!listed.contains(member.number) && member.endNodes) unlisted.push_back(member);
    if (unlisted.empty()) return;
    Key("unlistedMembers");
    Table("[]", unlisted, [this](const RecordedMember& member) { WriteMember(member); });
}

void QhmWriter::WriteMember(const RecordedMember& member) {
    const auto& ends = Asked(member.endNodes, MemberName(member.number));
    json_.Put("{\"number\":");
    json_.PutInteger(member.number);
    json_.Put(",\"start\":");
    json_.PutInteger(ends.start);
    json_.Put(",\"end\":");
    json_.PutInteger(ends.end);
    const double beta = member.beta.value_or(0.0);
    if (beta != 0.0) {
        json_.Put(",\"beta\":");
        Number(beta, [&] { return "the rotation of " + MemberName(member.number); });
    }
    json_.Put("}");
}

void QhmWriter::WriteLoadCases(const char* key,
                               const std::optional<std::vector<std::int32_t>>& list) {
    Key(key);
    json_.Put("[");
    const char* separator = "";
    for (const std::int32_t number : Listed(list)) {
        json_.Put(separator);
        json_.PutInteger(number);
        separator = ",";
    }
    json_.Put("]");
}

void QhmWriter::WriteDisplacements() {
    Key("displacements");
    Table("{}", model_.displacements.LoadCases(), [this](std::int32_t loadCase) {
        NumberedKey(loadCase);
        const char* separator = " {";
        for (std::size_t i = 0; i < model_.nodes.size(); ++i) {
            const SixDoubles* const six = model_.displacements.Find(i, loadCase);
            if (six == nullptr) continue;
            json_.Put(separator);
            separator = ",";
            NumberedKey(model_.nodes[i].number);
            Numbers(*six, [&] {
                return "the displacements of " + NodeName(model_.nodes[i].number) +
                       " under load case " + std::to_string(loadCase);
            });
        }
        json_.Put("}");
    });
}

void QhmWriter::WriteEndForces(const char* key, const std::array<AnswerTable, 2>& forces) {
    std::set<std::int32_t> loadCases;
    for (const AnswerTable& ofEnd : forces)
        for (const std::int32_t loadCase : ofEnd.LoadCases())
            loadCases.insert(loadCase);

    Key(key);
    Table("{}", loadCases, [&](std::int32_t loadCase) {
        NumberedKey(loadCase);
        const char* separator = " {";
        for (std::size_t i = 0; i < model_.members.size(); ++i) {
            const SixDoubles* const start = forces[0].Find(i, loadCase);
            const SixDoubles* const end = forces[1].Find(i, loadCase);
            if (start == nullptr && end == nullptr) continue;
            json_.Put(separator);
            separator = ",";
            WriteBothEnds(model_.members[i].number, loadCase, start, end);
        }
        json_.Put("}");
    });
}

// A run may ask for one end only. The other one is written as zeros, but not into a recording that
// must not answer what it was not asked.
void QhmWriter::WriteBothEnds(std::int32_t member, std::int32_t loadCase, const SixDoubles* start,
                              const SixDoubles* end) {
    constexpr SixDoubles kZeros{};
    const auto name = [&] {
        return "the end forces of " + MemberName(member) + " under load case " +
               std::to_string(loadCase);
    };
    if (model_.recordedFor && (start == nullptr || end == nullptr))
        throw NotWritable("the host was asked about one end only for " + name());
    NumberedKey(member);
    json_.Put("[");
    Numbers(start == nullptr ? kZeros : *start, name);
    json_.Put(",");
    Numbers(end == nullptr ? kZeros : *end, name);
    json_.Put("]");
}

void QhmWriter::WriteNames() {
    if (!model_.names.Any()) return;
    Key("names");
    const char* separator = "{";
    const auto write = [&](const char* key, const std::map<std::int32_t, std::string>& names) {
        if (names.empty()) return;
        json_.Put(separator);
        separator = ",";
        json_.PutString(key);
        json_.Put(": ");
        Table("{}", names, [this](const auto& name) {
            NumberedKey(name.first);
            json_.PutString(name.second);
        });
    };
    write("nodes", model_.names.nodes);
    write("members", model_.names.members);
    write("loadCases", model_.names.loadCases);
    json_.Put("}");
}

}  // namespace

void WriteQhmFile(const RecordedModel& model, const std::string& path) {
    try {
        WholeFile file(path);
        QhmWriter(model, file.Stream()).Write();
        file.Finish();
    } catch (const NotWritable& reason) {
        throw QhmFileError(path + ": not written: " + reason.what());
    } catch (const WholeFileError& reason) {
        throw QhmFileError(path + ": not written: " + reason.what());
    }
}
