#include "host/qhm_file.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>

#include "platform/native_path.h"

namespace {

using Json = nlohmann::json;
using OrderedJson = nlohmann::ordered_json;

constexpr const char* kFormat = "quarnel-host-model";
constexpr std::int32_t kVersion = 1;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// --- Reading -------------------------------------------------------------------------------------

// Text of the file for a message of one line: without line ends, and no longer than a line reads.
std::string OneLine(std::string text, std::size_t length) {
    if (text.size() > length) {
        text.resize(length);
        text += "...";
    }
    for (char& character : text)
        if (static_cast<unsigned char>(character) < ' ') character = ' ';
    return text;
}

// A value of the file and how to get there, for messages.
class Place {
public:
    Place(const std::string& file, const Json& value) : file_(file), value_(value) {}
    Place(const Place& parent, std::string key, const Json& value)
        : file_(parent.file_), parent_(&parent), key_(std::move(key)), value_(value) {}
    Place(const Place& parent, std::size_t index, const Json& value)
        : file_(parent.file_), parent_(&parent), index_(index), value_(value) {}

    const Json& value() const { return value_; }

    [[noreturn]] void Fail(const std::string& expected) const {
        const std::string path = KeyPath();
        throw QhmFileError(file_ + ": " + (path.empty() ? "" : path + ": ") + expected);
    }

    // Calls `read` with the value at `key`, where there is one.
    template <typename Read>
    void IfPresent(const char* key, const Read& read) const {
        const auto found = value_.find(key);
        if (found != value_.end()) read(Place(*this, std::string(key), *found));
    }

    template <typename Read>
    auto Required(const char* key, const char* expected, const Read& read) const {
        const auto found = value_.find(key);
        if (found == value_.end())
            Fail(std::string("expected the key \"") + key + "\", " + expected);
        return read(Place(*this, std::string(key), *found));
    }

    // Calls `read` with every element of an array.
    template <typename Read>
    void ForEachElement(const char* expected, const Read& read) const {
        if (!value_.is_array()) Fail(std::string("expected ") + expected);
        for (std::size_t i = 0; i < value_.size(); ++i)
            read(Place(*this, i, value_[i]));
    }

    // Calls `read` with every key, which must be a 32-bit number, and its value.
    template <typename Read>
    void ForEachNumberedKey(const char* meaning, const Read& read) const {
        if (!value_.is_object())
            Fail(std::string("expected an object with ") + meaning + " numbers as keys");
        for (const auto& [key, element] : value_.items()) {
            const Place place(*this, key, element);
            read(place.KeyAsNumber(meaning), place);
        }
    }

private:
    std::int32_t KeyAsNumber(const char* meaning) const {
        std::int32_t number = 0;
        const char* end = key_.data() + key_.size();
        const auto [stop, error] = std::from_chars(key_.data(), end, number);
        if (error != std::errc() || stop != end)
            Fail(std::string("expected a ") + meaning + " number (32 bits) as key");
        return number;
    }

    std::string KeyPath() const {
        if (parent_ == nullptr) return {};
        const std::string before = parent_->KeyPath();
        if (key_.empty() && index_ != kNoIndex) return before + "[" + std::to_string(index_) + "]";
        const std::string key = OneLine(key_, kLongestKey);
        return before.empty() ? key : before + "." + key;
    }

    static constexpr std::size_t kNoIndex = static_cast<std::size_t>(-1);
    static constexpr std::size_t kLongestKey = 40;

    const std::string& file_;
    const Place* parent_ = nullptr;
    std::string key_;
    std::size_t index_ = kNoIndex;
    const Json& value_;
};

std::int32_t ReadInteger(const Place& place) {
    constexpr const char* kExpected = "expected a whole number of 32 bits";
    const Json& value = place.value();
    if (!value.is_number_integer()) place.Fail(kExpected);
    constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > std::uint64_t{kHighest})
        place.Fail(kExpected);
    const auto number = value.get<std::int64_t>();
    if (number < kLowest || number > kHighest) place.Fail(kExpected);
    return static_cast<std::int32_t>(number);
}

double ReadNumber(const Place& place) {
    if (!place.value().is_number()) place.Fail("expected a number");
    return place.value().get<double>();
}

// The host answers the angle as a single-precision value.
double ReadBeta(const Place& place) {
    const double degrees = ReadNumber(place);
    if (std::abs(degrees) > std::numeric_limits<float>::max())
        place.Fail("expected a number of single precision");
    return static_cast<double>(static_cast<float>(degrees));
}

bool ReadBoolean(const Place& place) {
    if (!place.value().is_boolean()) place.Fail("expected true or false");
    return place.value().get<bool>();
}

template <std::size_t count>
std::array<double, count> ReadNumbers(const Place& place, const char* expected) {
    if (!place.value().is_array() || place.value().size() != count) place.Fail(expected);
    std::array<double, count> numbers{};
    for (std::size_t i = 0; i < count; ++i)
        numbers[i] = ReadNumber({place, i, place.value()[i]});
    return numbers;
}

SixDoubles ReadSix(const Place& place) {
    return ReadNumbers<6>(place, "expected an array of six numbers");
}

std::string ReadModelPath(const Place& place) {
    if (place.value().is_null()) return {};
    if (!place.value().is_string()) place.Fail("expected a string or null");
    return place.value().get<std::string>();
}

void RequireObject(const Place& place, const char* what) {
    if (!place.value().is_object()) place.Fail(std::string("expected ") + what);
}

void ReadHead(const Place& file) {
    RequireObject(file, "a JSON object");
    const std::string expectedFormat = std::string("\"") + kFormat + "\"";
    file.Required("format", expectedFormat.c_str(), [&](const Place& place) {
        if (place.value() != kFormat) place.Fail("expected " + expectedFormat);
    });
    file.Required("version", "the number 1", [](const Place& place) {
        if (!place.value().is_number_integer() || place.value() != kVersion)
            place.Fail("expected the number 1");
    });
}

std::int32_t ReadNumberOfEntry(const Place& entry) {
    return entry.Required("number", "a whole number of 32 bits", ReadInteger);
}

std::int32_t ReadNode(const Place& entry, RecordedModel& model) {
    RequireObject(entry, "an object: a node");
    const std::int32_t number = ReadNumberOfEntry(entry);
    const auto xyz = entry.Required("xyz", "an array of three numbers", [](const Place& place) {
        return ReadNumbers<3>(place, "expected an array of three numbers");
    });
    std::int32_t support = 0;
    entry.IfPresent("support", [&](const Place& place) { support = ReadBoolean(place) ? 1 : 0; });

    RecordedNode& node = model.nodes[model.AddNode(number)];
    if (!node.xyz) {  // of a number that stands twice, the first entry answers
        node.xyz = xyz;
        node.support = support;
    }
    return number;
}

std::int32_t ReadMember(const Place& entry, RecordedModel& model) {
    RequireObject(entry, "an object: a member");
    const std::int32_t number = ReadNumberOfEntry(entry);
    const auto start = entry.Required("start", "a node number", ReadInteger);
    const auto end = entry.Required("end", "a node number", ReadInteger);
    double beta = 0.0;
    entry.IfPresent("beta", [&](const Place& place) { beta = ReadBeta(place); });

    RecordedMember& member = model.members[model.AddMember(number)];
    if (!member.endNodes) {  // of a number that stands twice, the first entry answers
        member.endNodes = RecordedMember::EndNodes{start, end};
        member.beta = beta;
    }
    return number;
}

void ReadNodesAndMembers(const Place& file, RecordedModel& model) {
    model.nodeList.emplace();
    file.IfPresent("nodes", [&](const Place& nodes) {
        nodes.ForEachElement("an array of nodes", [&](const Place& entry) {
            model.nodeList->push_back(ReadNode(entry, model));
        });
    });
    model.memberList.emplace();
    file.IfPresent("members", [&](const Place& members) {
        members.ForEachElement("an array of members", [&](const Place& entry) {
            model.memberList->push_back(ReadMember(entry, model));
        });
    });
    file.IfPresent("unlistedMembers", [&](const Place& members) {
        members.ForEachElement("an array of members",
                               [&](const Place& entry) { ReadMember(entry, model); });
    });
    model.nodeCount = static_cast<std::int32_t>(model.nodeList->size());
    model.memberCount = static_cast<std::int32_t>(model.memberList->size());
}

std::vector<std::int32_t> ReadLoadCases(const Place& file, const char* key) {
    std::vector<std::int32_t> numbers;
    file.IfPresent(key, [&](const Place& list) {
        list.ForEachElement("an array of load case numbers",
                            [&](const Place& element) { numbers.push_back(ReadInteger(element)); });
    });
    return numbers;
}

void ReadDisplacements(const Place& loadCases, RecordedModel& model) {
    loadCases.ForEachNumberedKey("load case", [&](std::int32_t loadCase, const Place& nodes) {
        nodes.ForEachNumberedKey("node", [&](std::int32_t node, const Place& values) {
            const SixDoubles six = ReadSix(values);
            if (const auto position = model.FindNode(node))
                model.displacements.Store(*position, loadCase, six);
        });
    });
}

void ReadEndForces(const Place& loadCases, RecordedModel& model) {
    loadCases.ForEachNumberedKey("load case", [&](std::int32_t loadCase, const Place& members) {
        members.ForEachNumberedKey("member", [&](std::int32_t member, const Place& ends) {
            if (!ends.value().is_array() || ends.value().size() != 2)
                ends.Fail("expected two arrays of six numbers, for start and end");
            for (std::size_t end = 0; end < 2; ++end) {
                const SixDoubles six = ReadSix({ends, end, ends.value()[end]});
                if (const auto position = model.FindMember(member))
                    model.endForces[end].Store(*position, loadCase, six);
            }
        });
    });
}

RecordedModel ReadModel(const Place& file) {
    ReadHead(file);
    RecordedModel model;
    model.baseUnitSystem = 2;
    model.zUp = false;
    model.resultsAvailable = true;
    file.IfPresent("modelPath", [&](const Place& p) { model.modelPath = ReadModelPath(p); });
    file.IfPresent("baseUnitSystem",
                   [&](const Place& p) { model.baseUnitSystem = ReadInteger(p); });
    file.IfPresent("zUp", [&](const Place& p) { model.zUp = ReadBoolean(p); });
    file.IfPresent("resultsAvailable",
                   [&](const Place& p) { model.resultsAvailable = ReadBoolean(p); });
    ReadNodesAndMembers(file, model);
    model.primaryLoadCases = ReadLoadCases(file, "primaryLoadCases");
    model.loadCombinations = ReadLoadCases(file, "loadCombinations");
    model.primaryLoadCaseCount = static_cast<std::int32_t>(model.primaryLoadCases->size());
    model.loadCombinationCount = static_cast<std::int32_t>(model.loadCombinations->size());
    file.IfPresent("displacements", [&](const Place& p) { ReadDisplacements(p, model); });
    file.IfPresent("endForces", [&](const Place& p) { ReadEndForces(p, model); });
    return model;
}

// What the library says, less its own name and error number: "[json.exception.x.101] text". It
// quotes what it has read last, which can be as long as the file.
std::string TextOfJsonError(const std::string& what) {
    constexpr std::size_t kLongestText = 240;
    const std::size_t end = what.find("] ");
    return OneLine(end == std::string::npos ? what : what.substr(end + 2), kLongestText);
}

// --- Writing -------------------------------------------------------------------------------------

[[noreturn]] void FailToWrite(const std::string& path, const std::string& why) {
    throw QhmFileError(path + ": not written: " + why);
}

// Numbers of one answer; JSON has no way to write one that is not finite.
template <typename Numbers>
OrderedJson FiniteNumbers(const Numbers& numbers, const std::string& path, const std::string& of) {
    for (const double number : numbers)
        if (!std::isfinite(number))
            FailToWrite(path, "the host answered a value that is not a finite number for " + of);
    return numbers;
}

// Adds a key that the object does not have yet, without looking through all its keys: large
// models have tens of thousands.
void AppendKey(OrderedJson& object, std::string key, OrderedJson value) {
    object.get_ref<OrderedJson::object_t&>().emplace_back(std::move(key), std::move(value));
}

template <typename Value>
const Value& Asked(const std::optional<Value>& answer, const std::string& path,
                   const std::string& of) {
    if (!answer) FailToWrite(path, "the run ended before the host was asked about " + of);
    return *answer;
}

OrderedJson NodeEntry(const RecordedNode& node, const std::string& path) {
    const std::string name = "node " + std::to_string(node.number);
    OrderedJson entry;
    entry["number"] = node.number;
    entry["xyz"] = FiniteNumbers(Asked(node.xyz, path, name), path, name);
    if (node.support.value_or(0) != 0) entry["support"] = true;
    return entry;
}

OrderedJson MemberEntry(const RecordedMember& member, const std::string& path) {
    const std::string name = "member " + std::to_string(member.number);
    const auto& ends = Asked(member.endNodes, path, name);
    OrderedJson entry;
    entry["number"] = member.number;
    entry["start"] = ends.start;
    entry["end"] = ends.end;
    const double beta = member.beta.value_or(0.0);
    if (beta != 0.0)
        entry["beta"] = FiniteNumbers(std::array{beta}, path, "the rotation of " + name)[0];
    return entry;
}

OrderedJson NodeEntries(const RecordedModel& model, const std::string& path) {
    OrderedJson entries = OrderedJson::array();
    for (const std::int32_t number : model.nodeList.value_or(std::vector<std::int32_t>{})) {
        const auto position = model.FindNode(number);
        if (!position) FailToWrite(path, "the run ended before all nodes were read");
        entries.push_back(NodeEntry(model.nodes[*position], path));
    }
    return entries;
}

OrderedJson MemberEntries(const RecordedModel& model, const std::string& path) {
    OrderedJson entries = OrderedJson::array();
    for (const std::int32_t number : model.memberList.value_or(std::vector<std::int32_t>{})) {
        const auto position = model.FindMember(number);
        if (!position) FailToWrite(path, "the run ended before all members were read");
        entries.push_back(MemberEntry(model.members[*position], path));
    }
    return entries;
}

// Members that the host answered about although its list does not have them: an input file can
// name any number.
OrderedJson UnlistedMemberEntries(const RecordedModel& model, const std::string& path) {
    const auto list = model.memberList.value_or(std::vector<std::int32_t>{});
    const std::set<std::int32_t> listed(list.begin(), list.end());
    OrderedJson entries = OrderedJson::array();
    for (const RecordedMember& member : model.members)
        if (!listed.contains(member.number) && member.endNodes)
            entries.push_back(MemberEntry(member, path));
    return entries;
}

OrderedJson Displacements(const RecordedModel& model, const std::string& path) {
    OrderedJson byLoadCase = OrderedJson::object();
    for (const std::int32_t loadCase : model.displacements.LoadCases()) {
        OrderedJson byNode = OrderedJson::object();
        for (std::size_t i = 0; i < model.nodes.size(); ++i) {
            const SixDoubles* six = model.displacements.Find(i, loadCase);
            if (six == nullptr) continue;
            const std::string node = std::to_string(model.nodes[i].number);
            AppendKey(byNode, node,
                      FiniteNumbers(*six, path,
                                    "the displacements of node " + node + " under load case " +
                                        std::to_string(loadCase)));
        }
        AppendKey(byLoadCase, std::to_string(loadCase), std::move(byNode));
    }
    return byLoadCase;
}

OrderedJson EndForces(const RecordedModel& model, const std::string& path) {
    std::set<std::int32_t> loadCases;
    for (const AnswerTable& ofEnd : model.endForces)
        for (const std::int32_t loadCase : ofEnd.LoadCases())
            loadCases.insert(loadCase);

    OrderedJson byLoadCase = OrderedJson::object();
    for (const std::int32_t loadCase : loadCases) {
        OrderedJson byMember = OrderedJson::object();
        for (std::size_t i = 0; i < model.members.size(); ++i) {
            const SixDoubles* start = model.endForces[0].Find(i, loadCase);
            const SixDoubles* end = model.endForces[1].Find(i, loadCase);
            if (start == nullptr && end == nullptr) continue;
            // A run asks for one end only; the other is written as zeros.
            const std::string member = std::to_string(model.members[i].number);
            const std::string name = "the end forces of member " + member + " under load case " +
                                     std::to_string(loadCase);
            OrderedJson both = OrderedJson::array();
            for (const SixDoubles* six : {start, end})
                both.push_back(FiniteNumbers(six == nullptr ? SixDoubles{} : *six, path, name));
            AppendKey(byMember, member, std::move(both));
        }
        AppendKey(byLoadCase, std::to_string(loadCase), std::move(byMember));
    }
    return byLoadCase;
}

OrderedJson ToJson(const RecordedModel& model, const std::string& path) {
    OrderedJson file;
    file["format"] = kFormat;
    file["version"] = kVersion;
    // An empty path is what a host without a model file, or one that returns none, answers.
    file["modelPath"] = nullptr;
    if (model.modelPath && !model.modelPath->empty()) file["modelPath"] = *model.modelPath;
    file["baseUnitSystem"] = model.baseUnitSystem.value_or(2);
    file["zUp"] = model.zUp.value_or(false);
    file["resultsAvailable"] = model.resultsAvailable.value_or(true);
    file["nodes"] = NodeEntries(model, path);
    file["members"] = MemberEntries(model, path);
    OrderedJson unlisted = UnlistedMemberEntries(model, path);
    if (!unlisted.empty()) file["unlistedMembers"] = std::move(unlisted);
    file["primaryLoadCases"] = model.primaryLoadCases.value_or(std::vector<std::int32_t>{});
    file["loadCombinations"] = model.loadCombinations.value_or(std::vector<std::int32_t>{});
    file["displacements"] = Displacements(model, path);
    file["endForces"] = EndForces(model, path);
    return file;
}

// One line per entry of the large tables, so that two recordings can be compared by eye.
std::string ToText(const OrderedJson& file) {
    constexpr auto kReplace = OrderedJson::error_handler_t::replace;
    const auto dump = [](const OrderedJson& value) { return value.dump(-1, ' ', false, kReplace); };
    std::string text = "{";
    for (const auto& [key, value] : file.items()) {
        if (text.size() > 1) text += ',';
        text += "\n " + dump(key) + ": ";
        const bool isTable =
            value.is_structured() && !value.empty() && value.front().is_structured();
        if (!isTable) {
            text += dump(value);
            continue;
        }
        text += value.is_array() ? "[" : "{";
        bool isFirst = true;
        for (const auto& [entryKey, entry] : value.items()) {
            text += isFirst ? "\n  " : ",\n  ";
            isFirst = false;
            if (value.is_object()) text += dump(entryKey) + ": ";
            text += dump(entry);
        }
        text += value.is_array() ? "\n ]" : "\n }";
    }
    return text + "\n}\n";
}

}  // namespace

RecordedModel ReadQhmFile(const std::string& path) {
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) throw QhmFileError(path + ": cannot be opened; expected a host model file (.qhm)");
    try {
        const Json json = Json::parse(file.get());
        // The library takes a NUL for the end of the text.
        if (std::feof(file.get()) == 0)
            throw QhmFileError(path + ": expected JSON: text behind the end of the model");
        return ReadModel(Place(path, json));
    } catch (const Json::exception& error) {
        if (std::ferror(file.get()) != 0)
            throw QhmFileError(path + ": cannot be read; expected a host model file (.qhm)");
        throw QhmFileError(path + ": expected JSON: " + TextOfJsonError(error.what()));
    }
}

void WriteQhmFile(const RecordedModel& model, const std::string& path) {
    const std::string text = ToText(ToJson(model, path));
    const std::string temporary = path + ".part";
    {
        File file(std::fopen(temporary.c_str(), "wb"));
        if (!file) FailToWrite(path, "cannot create " + temporary);
        const bool isWritten = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
        const bool isClosed = std::fclose(file.release()) == 0;
        if (!isWritten || !isClosed) {
            std::remove(temporary.c_str());
            FailToWrite(path, "the disk is full or cannot be written to");
        }
    }
    std::error_code error;
    std::filesystem::rename(NativePath(temporary), NativePath(path), error);
    if (error) {
        std::remove(temporary.c_str());
        FailToWrite(path, "cannot put it in place: " + error.message());
    }
}
