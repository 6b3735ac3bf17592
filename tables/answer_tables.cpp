#include "tables/answer_tables.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>

#include "platform/regular_file.h"
#include "tables/end_force_signs.h"
#include "tables/table_reader.h"

namespace {

using ThreeColumns = std::array<std::size_t, 3>;

// The three numbers of a row, times a factor. False when one is no number or too large then.
bool ReadThree(TableReader& table, const ThreeColumns& columns, const UnitFactor& factor,
               double* values) {
    bool areNumbers = true;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto value = table.Number(columns[i]);
        values[i] = value ? factor(*value) : 0.0;
        if (!std::isfinite(values[i])) table.Fault(columns[i], "too large a number");
        areNumbers = areNumbers && value && std::isfinite(values[i]);
    }
    return areNumbers;
}

void Put(const Vec3& vector, double* values) {
    values[0] = vector.x;
    values[1] = vector.y;
    values[2] = vector.z;
}

// Three numbers of the tables' axes in those of the model.
void TurnIntoModel(const SourceAxes& axes, double* values) {
    Put(axes.InModel({values[0], values[1], values[2]}), values);
}

std::string CaseAnd(const TableSubjects& subjects, std::size_t casePlace, const char* what,
                    const std::string& name) {
    return "case " + std::to_string(subjects.cases.Rows()[casePlace].number) + ", " + what + " " +
           name;
}

constexpr const char* kTwice = " stands twice; one row is expected";

// Reads forces.csv row by row.
class EndForceReader {
public:
    EndForceReader(const TableSubjects& subjects, const std::vector<LocalFrame>& frames,
                   TableFaults& faults, std::array<AnswerTable, 2>& answers)
        : subjects_(subjects),
          frames_(frames),
          faults_(faults),
          answers_(answers),
          table_(subjects.folder, TableName::kForces, faults) {}

    bool Read() {
        FindColumns();
        while (table_.NextRow())
            ReadRow();
        if (!table_.IsReadToEnd()) return false;
        TellFaultsOfStations();
        return true;
    }

private:
    static constexpr const char* kHeading =
        "case,member,end,f1,f2,f3[,m1,m2,m3], or station in place of end";

    // The outermost positions along a member under a case that rows have told so far, and where a
    // second row told one of them again (line 0: nowhere).
    struct Stations {
        double first = 0.0;
        double last = 0.0;
        TablePlace firstAgain;
        TablePlace lastAgain;
    };

    void FindColumns() {
        end_ = table_.Find("end");
        if (!end_) station_ = table_.Find("station");
        const auto subject = table_.Require({"case", "member"}, kHeading);
        caseColumn_ = subject[0];
        memberColumn_ = subject[1];
        if (!end_ && !station_) table_.Require({"end"}, kHeading);
        forces_ = table_.Require({"f1", "f2", "f3"}, kHeading);
        moments_ = table_.FindAll({"m1", "m2", "m3"});
    }

    void ReadRow() {
        const auto casePlace = subjects_.cases.PlaceIn(table_, caseColumn_);
        const auto member = table_.Place(memberColumn_, subjects_.members.names, "member",
                                         TableName::kMembers, subjects_.members.isRead);
        if (member && !subjects_.members.rows[*member].isBar) return;
        const auto end = end_ ? EndOfRow() : std::nullopt;
        const auto station = station_ ? table_.Number(*station_) : std::nullopt;
        const bool areNumbers = ReadNumbers();
        if (!casePlace || !member || (!end && !station)) return;
        const std::size_t bar = subjects_.members.rows[*member].bar;
        if (end)
            StoreAtEnd(*casePlace, bar, *end, areNumbers);
        else
            StoreAtStation(*casePlace, bar, *station, areNumbers);
    }

    std::optional<std::size_t> EndOfRow() {
        const std::string_view text = table_.Bytes(*end_);
        if (text == "0" || text == "i" || text == "start") return 0;
        if (text == "1" || text == "j" || text == "end") return 1;
        table_.Fault(*end_, Quoted(table_.TextOrNothing(*end_)) +
                                " is no end of a member; start or end, i or j, 0 or 1 is expected");
        return std::nullopt;
    }

    bool ReadNumbers() {
        row_ = {};
        bool areNumbers = ReadThree(table_, forces_, subjects_.statement.Force(), row_.data());
        if (moments_ &&
            !ReadThree(table_, *moments_, subjects_.statement.Moment(), row_.data() + 3))
            areNumbers = false;
        return areNumbers;
    }

    std::int32_t CaseNumber(std::size_t casePlace) const {
        return subjects_.cases.Rows()[casePlace].number;
    }

    void StoreAtEnd(std::size_t casePlace, std::size_t bar, std::size_t end, bool areNumbers) {
        const std::int32_t number = CaseNumber(casePlace);
        if (answers_[end].Find(bar, number) != nullptr)
            return table_.Fault(memberColumn_, CaseAndMember(casePlace, bar) + ", " +
                                                   (end == 0 ? "start" : "end") + kTwice);
        Store(number, bar, end, areNumbers);
    }

    // Stations between the outermost are of no interest: two rows at one of them show a jump.
    void StoreAtStation(std::size_t casePlace, std::size_t bar, double station, bool areNumbers) {
        const std::uint64_t key = (std::uint64_t{casePlace} << 32U) | bar;
        const auto [found, isNew] = stations_.try_emplace(key, Stations{station, station, {}, {}});
        Stations& known = found->second;
        if (!isNew && station == known.first) known.firstAgain = table_.PlaceOf(*station_);
        if (!isNew && station == known.last) known.lastAgain = table_.PlaceOf(*station_);
        if (isNew || station < known.first) {
            known.first = station;
            known.firstAgain = {};
            Store(CaseNumber(casePlace), bar, 0, areNumbers);
        }
        if (isNew || station > known.last) {
            known.last = station;
            known.lastAgain = {};
            Store(CaseNumber(casePlace), bar, 1, areNumbers);
        }
    }

    // A row at one place only says nothing about the other end; of two rows at the same end nobody
    // can tell which counts.
    void TellFaultsOfStations() {
        std::vector<std::uint64_t> keys;
        for (const auto& [key, known] : stations_)
            if (known.first == known.last || known.firstAgain.line > 0 || known.lastAgain.line > 0)
                keys.push_back(key);
        std::ranges::sort(keys);
        for (const std::uint64_t key : keys) {
            const Stations& known = stations_.at(key);
            const std::string subject = CaseAndMember(key >> 32U, static_cast<std::uint32_t>(key));
            if (known.firstAgain.line > 0)
                faults_.Add(TableName::kForces, known.firstAgain,
                            subject + ": the station at the start" + kTwice);
            else if (known.lastAgain.line > 0)
                faults_.Add(TableName::kForces, known.lastAgain,
                            subject + ": the station at the end" + kTwice);
            else
                faults_.Add(TableName::kForces,
                            subject + ": forces at one station only; both ends are expected");
        }
    }

    // What the row says about the member's end, as what acts on it.
    void Store(std::int32_t number, std::size_t bar, std::size_t end, bool areNumbers) {
        const SixDoubles forces = areNumbers ? OnMember(bar, end) : SixDoubles{};
        if (!std::ranges::all_of(forces, [](double force) { return std::isfinite(force); }))
            table_.Fault(forces_[0], "too large a number");
        answers_[end].Store(bar, number, forces);
    }

    SixDoubles OnMember(std::size_t bar, std::size_t end) const {
        const EndForceSigns signs = SignsOf(subjects_.statement.endForceSense, end);
        SixDoubles forces = row_;
        // Taken from 0, so that no -0 comes out of a turned 0.
        if (signs.axial < 0.0) forces[0] = 0.0 - forces[0];
        for (std::size_t i = 1; i < forces.size(); ++i)
            if (signs.other < 0.0) forces[i] = 0.0 - forces[i];
        if (subjects_.statement.endForceAxes == EndForceAxes::kTool) return forces;
        for (const std::size_t i : {std::size_t{0}, std::size_t{3}}) {
            if (frames_.empty())
                TurnIntoModel(subjects_.statement.sourceAxes, forces.data() + i);
            else
                Put(Combine(frames_[bar], forces[i], forces[i + 1], forces[i + 2]),
                    forces.data() + i);
        }
        return forces;
    }

    std::string CaseAndMember(std::size_t casePlace, std::size_t bar) const {
        return CaseAnd(subjects_, casePlace, "member", subjects_.members.BarName(bar));
    }

    const TableSubjects& subjects_;
    const std::vector<LocalFrame>& frames_;
    TableFaults& faults_;
    std::array<AnswerTable, 2>& answers_;
    TableReader table_;
    TableReader::Column end_, station_;
    std::size_t caseColumn_ = 0, memberColumn_ = 0;
    ThreeColumns forces_{};
    std::optional<ThreeColumns> moments_;
    SixDoubles row_{};  ///< the numbers of the row, in the model's unit
    std::unordered_map<std::uint64_t, Stations> stations_;  ///< by case and bar
};

}  // namespace

bool ReadDisplacements(const TableSubjects& subjects, TableFaults& faults, AnswerTable& answers) {
    constexpr const char* kHeading = "case,node,ux,uy,uz[,rx,ry,rz]";
    TableReader table(subjects.folder, TableName::kDisplacements, faults);
    const auto [caseColumn, nodeColumn] = table.Require({"case", "node"}, kHeading);
    const auto translations = table.Require({"ux", "uy", "uz"}, kHeading);
    const auto rotations = table.FindAll({"rx", "ry", "rz"});
    const UnitFactor length = subjects.statement.Displacement();
    while (table.NextRow()) {
        const auto casePlace = subjects.cases.PlaceIn(table, caseColumn);
        const auto node = table.Place(nodeColumn, subjects.nodes.names, "node", TableName::kNodes,
                                      subjects.nodes.isRead);
        SixDoubles row{};
        ReadThree(table, translations, length, row.data());
        if (rotations) ReadThree(table, *rotations, UnitFactor{}, row.data() + 3);
        if (!casePlace || !node) continue;
        const std::int32_t number = subjects.cases.Rows()[*casePlace].number;
        if (answers.Find(*node, number) != nullptr) {
            table.Fault(
                nodeColumn,
                CaseAnd(subjects, *casePlace, "node", subjects.nodes.names.Name(*node)) + kTwice);
            continue;
        }
        TurnIntoModel(subjects.statement.sourceAxes, row.data());
        TurnIntoModel(subjects.statement.sourceAxes, row.data() + 3);
        answers.Store(*node, number, row);
    }
    return table.IsReadToEnd();
}

bool ReadEndForces(const TableSubjects& subjects, const std::vector<LocalFrame>& frames,
                   TableFaults& faults, std::array<AnswerTable, 2>& answers) {
    return EndForceReader(subjects, frames, faults, answers).Read();
}

Reactions ReadReactions(const TableSubjects& subjects, TableFaults& faults) {
    constexpr const char* kHeading = "case,node,fx,fy,fz";
    Reactions reactions;
    const std::string path = subjects.folder + "/" + FileNameOf(TableName::kReactions);
    if (FileKindOf(path) == FileKind::kNothing) return reactions;
    TableReader table(subjects.folder, TableName::kReactions, faults);
    const auto [caseColumn, nodeColumn] = table.Require({"case", "node"}, kHeading);
    const auto forces = table.Require({"fx", "fy", "fz"}, kHeading);
    while (table.NextRow()) {
        const auto casePlace = subjects.cases.PlaceIn(table, caseColumn);
        const auto node = table.Place(nodeColumn, subjects.nodes.names, "node", TableName::kNodes,
                                      subjects.nodes.isRead);
        std::array<double, 3> row{};
        ReadThree(table, forces, subjects.statement.Force(), row.data());
        if (!casePlace || !node) continue;
        const std::int32_t number = subjects.cases.Rows()[*casePlace].number;
        TurnIntoModel(subjects.statement.sourceAxes, row.data());
        if (!reactions[number].emplace(*node, Vec3{row[0], row[1], row[2]}).second)
            table.Fault(
                nodeColumn,
                CaseAnd(subjects, *casePlace, "node", subjects.nodes.names.Name(*node)) + kTwice);
    }
    return reactions;
}
