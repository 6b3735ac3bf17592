#include "tables/export_tables.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <set>

#include "host/recorded_host.h"
#include "platform/native_path.h"
#include "platform/unused_name.h"
#include "tables/name_numbers.h"
#include "tables/table_faults.h"
#include "tables/table_writer.h"

namespace {

using Numbers = std::vector<std::int32_t>;

Numbers Listed(const std::optional<Numbers>& list) {
    return list.value_or(Numbers{});
}

Numbers LoadCasesOf(const RecordedModel& model) {
    Numbers cases = Listed(model.primaryLoadCases);
    const Numbers combinations = Listed(model.loadCombinations);
    cases.insert(cases.end(), combinations.begin(), combinations.end());
    return cases;
}

// A number that stands twice would be a second row about one thing.
void RequireEachOnce(const Numbers& numbers, const std::string& what) {
    if (numbers.empty())
        throw TablesExportError("the model has no " + what +
                                ", and tables without rows say nothing");
    std::set<std::int32_t> seen;
    for (const std::int32_t number : numbers)
        if (!seen.insert(number).second)
            throw TablesExportError(what + " " + std::to_string(number) +
                                    " stands twice in the model; tables have one row for each");
}

void RequireTablesCanHold(const RecordedModel& model) {
    RequireEachOnce(Listed(model.nodeList), "node");
    RequireEachOnce(Listed(model.memberList), "member");
    RequireEachOnce(LoadCasesOf(model), "load case");
    if (!model.resultsAvailable.value_or(true))
        throw TablesExportError("the model is not analysed; there are no results to export");
}

// Names by number, when reading them gives the same numbers again; else the numbers themselves.
class TableNames {
public:
    TableNames(const Numbers& numbers, const std::map<std::int32_t, std::string>& names) {
        if (AreReadBack(numbers, names)) names_ = names;
        areLost_ = names_.size() != names.size();
    }

    void Write(TableWriter& table, std::int32_t number) const {
        const auto name = names_.find(number);
        if (name == names_.end())
            table.WholeNumber(number);
        else
            table.Text(name->second);
    }

    bool AreLost() const { return areLost_; }

private:
    static bool AreReadBack(const Numbers& numbers,
                            const std::map<std::int32_t, std::string>& names) {
        constexpr std::size_t kLongest = 200;
        NameNumbers read;
        for (const std::int32_t number : numbers) {
            const auto named = names.find(number);
            const std::string name = named == names.end() ? std::to_string(number) : named->second;
            const bool hasBlanks = name.find_first_not_of(" \t") != 0 ||
                                   name.find_last_not_of(" \t") + 1 != name.size();
            if (name.empty() || name.size() > kLongest || hasBlanks || read.Find(name))
                return false;
            read.Add(name);
        }
        return read.Numbers() == numbers;
    }

    std::map<std::int32_t, std::string> names_;
    bool areLost_ = false;
};

class Exporter {
public:
    Exporter(const RecordedModel& model, std::string origin, std::string folder)
        : model_(model),
          origin_(std::move(origin)),
          folder_(std::move(folder)),
          host_(model, std::string()),
          nodes_(Listed(model.nodeList)),
          members_(Listed(model.memberList)),
          cases_(LoadCasesOf(model)),
          nodeNames_(nodes_, model.names.nodes),
          memberNames_(members_, model.names.members) {}

    std::vector<std::string> Write() {
        CountUnknownCases();
        WriteModel();
        WriteNodes();
        WriteSupports();
        WriteMembers();
        WriteCases();
        WriteDisplacements();
        WriteForces();
        return Cautions();
    }

private:
    TableWriter Table(TableName name, const std::vector<const char*>& heading) const {
        TableWriter table(folder_ + "/" + FileNameOf(name));
        for (const char* column : heading)
            table.Text(column);
        table.EndRow();
        return table;
    }

    void CountUnknownCases() {
        std::set<std::int32_t> answered;
        for (const AnswerTable* table :
             {&model_.displacements, &model_.endForces.front(), &model_.endForces.back(),
              &model_.endForcesGlobal.front(), &model_.endForcesGlobal.back()})
            for (const std::int32_t loadCase : table->LoadCases())
                answered.insert(loadCase);
        for (const std::int32_t loadCase : cases_)
            answered.erase(loadCase);
        unknownCases_ = answered.size();
    }

    void WriteModel() const {
        const bool isEnglish = model_.baseUnitSystem == 1;
        const char* const length = isEnglish ? "in" : "m";
        TableWriter table = Table(TableName::kModel, {"key", "value"});
        const auto write = [&table](const char* key, const std::string& value) {
            table.Text(key);
            table.Text(value);
            table.EndRow();
        };
        write("verticalAxis", model_.zUp.value_or(false) ? "Z" : "Y");
        write("lengthUnit", length);
        write("displacementUnit", length);
        write("forceUnit", isEnglish ? "kip" : "kN");
        write("endForceAxes", "tool");
        write("endForceSense", "onMember");
        write("source", model_.source.empty() ? origin_ : model_.source);
        if (model_.modelPath) write("modelPath", *model_.modelPath);
        table.Finish();
    }

    void WriteNodes() const {
        TableWriter table = Table(TableName::kNodes, {"node", "x", "y", "z"});
        for (const std::int32_t number : nodes_) {
            nodeNames_.Write(table, number);
            table.Numbers(model_.nodes[*model_.FindNode(number)].xyz.value());
            table.EndRow();
        }
        table.Finish();
    }

    bool IsHeld(std::int32_t node) const {
        return model_.nodes[*model_.FindNode(node)].support.value_or(0) != 0;
    }

    // Of a model that is held nowhere, a row that says so of one node: a table needs a row.
    void WriteSupports() const {
        const bool isHeld =
            std::ranges::any_of(nodes_, [this](std::int32_t node) { return IsHeld(node); });
        TableWriter table =
            isHeld ? Table(TableName::kSupports, {"node"})
                   : Table(TableName::kSupports, {"node", "ux", "uy", "uz", "rx", "ry", "rz"});
        for (const std::int32_t number : nodes_) {
            if (isHeld && !IsHeld(number)) continue;
            nodeNames_.Write(table, number);
            for (int i = 0; i < 6 && !isHeld; ++i)
                table.WholeNumber(0);
            table.EndRow();
            if (!isHeld) break;
        }
        table.Finish();
    }

    void WriteMembers() const {
        TableWriter table = Table(TableName::kMembers, {"member", "start", "end", "beta"});
        for (const std::int32_t number : members_) {
            const RecordedMember& member = model_.members[*model_.FindMember(number)];
            memberNames_.Write(table, number);
            nodeNames_.Write(table, member.endNodes.value().start);
            nodeNames_.Write(table, member.endNodes.value().end);
            table.Number(member.beta.value_or(0.0));
            table.EndRow();
        }
        table.Finish();
    }

    void WriteCases() const {
        TableWriter table = Table(TableName::kCases, {"case", "name", "kind"});
        const auto write = [&](const std::optional<Numbers>& cases, const char* kind) {
            for (const std::int32_t number : Listed(cases)) {
                const auto name = model_.names.loadCases.find(number);
                table.WholeNumber(number);
                table.Text(name == model_.names.loadCases.end() ? std::string() : name->second);
                table.Text(kind);
                table.EndRow();
            }
        };
        write(model_.primaryLoadCases, "primary");
        write(model_.loadCombinations, "combination");
        table.Finish();
    }

    void WriteDisplacements() {
        TableWriter table =
            Table(TableName::kDisplacements, {"case", "node", "ux", "uy", "uz", "rx", "ry", "rz"});
        for (const std::int32_t loadCase : cases_)
            for (const std::int32_t number : nodes_) {
                const SixDoubles* const answer =
                    model_.displacements.Find(*model_.FindNode(number), loadCase);
                if (answer == nullptr && !MayBeZero()) continue;
                table.WholeNumber(loadCase);
                nodeNames_.Write(table, number);
                table.Numbers(answer == nullptr ? kZeros : *answer);
                table.EndRow();
            }
        table.Finish();
    }

    void WriteForces() {
        TableWriter table = Table(TableName::kForces,
                                  {"case", "member", "end", "f1", "f2", "f3", "m1", "m2", "m3"});
        for (const std::int32_t loadCase : cases_)
            for (const std::int32_t number : members_)
                for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
                    const auto forces = EndForces(number, end, loadCase);
                    if (!forces) continue;
                    table.WholeNumber(loadCase);
                    memberNames_.Write(table, number);
                    table.Text(end == 0 ? "start" : "end");
                    table.Numbers(*forces);
                    table.EndRow();
                }
        table.Finish();
    }

    // Along the tool's axes; nothing where they cannot be told or a recording lacks them.
    std::optional<SixDoubles> EndForces(std::int32_t member, std::size_t end,
                                        std::int32_t loadCase) {
        const std::size_t place = *model_.FindMember(member);
        if (const SixDoubles* const own = model_.endForces[end].Find(place, loadCase)) return *own;
        if (model_.endForcesGlobal[end].Find(place, loadCase) == nullptr)
            return MayBeZero() ? std::optional(kZeros) : std::nullopt;
        SixDoubles forces{};
        try {
            host_.GetMemberEndForces(member, static_cast<std::int32_t>(end), loadCase, forces);
        } catch (const HostCallError&) {
            untold_.insert(member);
            return std::nullopt;
        }
        return forces;
    }

    // What a model does not list is zero for a run, but not what a recording was not asked.
    bool MayBeZero() {
        ++(model_.recordedFor ? missing_ : zeros_);
        return !model_.recordedFor;
    }

    std::vector<std::string> Cautions() const {
        std::vector<std::string> cautions;
        const auto add = [&cautions](std::size_t count, const std::string& text) {
            if (count > 0) cautions.push_back(text + ": " + std::to_string(count));
        };
        add(zeros_,
            "answers that the model does not list are written as zeros, as a run gets them");
        add(missing_,
            "answers that the recording does not hold are left out; record with --all "
            "for tables that can be imported");
        add(untold_.size(),
            "members without rows in forces.csv, because forces along the global "
            "axes cannot be told along their own, which lie in one plane");
        add(unknownCases_, "load cases that have answers and are none of the model's are left out");
        add(model_.members.size() - members_.size(),
            "members that the model does not list are left out");
        add((nodeNames_.AreLost() ? 1 : 0) + (memberNames_.AreLost() ? 1 : 0),
            "tables with numbers in place of names, which would be given other numbers when "
            "imported");
        return cautions;
    }

    static constexpr SixDoubles kZeros{};

    const RecordedModel& model_;
    std::string origin_;
    std::string folder_;
    RecordedHost host_;
    Numbers nodes_, members_, cases_;
    TableNames nodeNames_, memberNames_;
    std::size_t zeros_ = 0, missing_ = 0, unknownCases_ = 0;
    std::set<std::int32_t> untold_;
};

// A new folder beside the one to be written, gone again unless it becomes that one.
class PassingFolder {
public:
    explicit PassingFolder(const std::string& path)
        : path_(path), passing_(path.substr(0, path.find_last_of("/\\") + 1) + UnusedName()) {
        std::error_code error;
        if (std::filesystem::exists(std::filesystem::symlink_status(NativePath(path_), error)))
            throw TablesExportError(path_ + ": is there already; name a folder that is not");
        std::filesystem::create_directory(NativePath(passing_), error);
        if (error) throw TablesExportError(path_ + ": cannot be made: " + error.message());
    }

    ~PassingFolder() {
        std::error_code ignored;
        if (!isInPlace_) std::filesystem::remove_all(NativePath(passing_), ignored);
    }
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;

    const std::string& Path() const { return passing_; }

    void PutInPlace() {
        std::error_code error;
        std::filesystem::rename(NativePath(passing_), NativePath(path_), error);
        if (error) throw TablesExportError(path_ + ": cannot be made: " + error.message());
        isInPlace_ = true;
    }

private:
    std::string path_, passing_;
    bool isInPlace_ = false;
};

std::string WithoutSlash(std::string folder) {
    while (folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\'))
        folder.pop_back();
    return folder;
}

}  // namespace

std::vector<std::string> ExportTables(const RecordedModel& model, const std::string& origin,
                                      const std::string& folder) {
    RequireTablesCanHold(model);
    PassingFolder passing(WithoutSlash(folder));
    try {
        std::vector<std::string> cautions = Exporter(model, origin, passing.Path()).Write();
        passing.PutInPlace();
        return cautions;
    } catch (const std::runtime_error& error) {
        throw TablesExportError(error.what());
    }
}
