#include "tables/model_statement.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "tables/table_reader.h"

namespace {

constexpr std::array<std::pair<const char*, EndForceAxes>, 4> kEndForceAxes{
    {{"global", EndForceAxes::kGlobal},
     {"tool", EndForceAxes::kTool},
     {"localStandard", EndForceAxes::kLocalStandard},
     {"localTable", EndForceAxes::kLocalTable}}};

constexpr std::array<std::pair<const char*, EndForceSense>, 4> kEndForceSenses{
    {{"onMember", EndForceSense::kOnMember},
     {"onNode", EndForceSense::kOnNode},
     {"section", EndForceSense::kSection},
     {"sectionCompression", EndForceSense::kSectionCompression}}};

constexpr std::array<std::pair<const char*, bool>, 2> kVerticalAxes{{{"Y", false}, {"Z", true}}};

constexpr std::array<const char*, 3> kSourceAxes{"axisX", "axisY", "axisZ"};

// All keys; those that must be there first.
constexpr std::array<const char*, 11> kKeys{"verticalAxis", "lengthUnit",   "displacementUnit",
                                            "forceUnit",    "endForceAxes", "endForceSense",
                                            "source",       "axisX",        "axisY",
                                            "axisZ",        "modelPath"};
constexpr std::size_t kRequiredKeys = 7;

template <typename Value, std::size_t count>
const char* NameIn(const std::array<std::pair<const char*, Value>, count>& names, Value value) {
    const auto found =
        std::ranges::find_if(names, [value](const auto& entry) { return entry.second == value; });
    return found->first;
}

template <typename Names>
std::string ListOf(const Names& names) {
    std::string list;
    for (std::size_t i = 0; i < std::size(names); ++i)
        list += std::string(i == 0 ? "" : i + 1 == std::size(names) ? " or " : ", ") + names[i];
    return list;
}

bool IsSameButForCapitals(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

// Reads the rows, then takes each key as what it should be.
class StatementReader {
public:
    StatementReader(const std::string& folder, TableFaults& faults,
                    std::vector<std::string>& cautions)
        : table_(folder, TableName::kModel, faults), faults_(faults), cautions_(cautions) {}

    std::optional<ModelStatement> Read() {
        const std::size_t before = faults_.Count();
        ReadRows();
        if (!table_.IsReadToEnd()) return std::nullopt;
        TakeValues();
        if (faults_.Count() > before) return std::nullopt;
        return std::move(statement_);
    }

private:
    void ReadRows() {
        const auto [key, value] = table_.Require({"key", "value"}, "key,value");
        while (table_.NextRow()) {
            const auto name = table_.Text(key);
            if (!name) continue;
            if (std::ranges::find(kKeys, *name) == kKeys.end()) {
                CautionAbout(*name, key);
            } else if (statement_.places.contains(*name)) {
                table_.Fault(key, "the key " + *name + " stands twice; one row is expected");
            } else {
                values_[*name] = table_.TextOrNothing(value);
                statement_.places[*name] = table_.PlaceOf(value);
            }
        }
    }

    // A misspelt key that is not required would otherwise pass unseen.
    void CautionAbout(const std::string& name, std::size_t column) {
        const decltype(kKeys)::const_iterator meant = std::ranges::find_if(
            kKeys, [&name](const char* key) { return IsSameButForCapitals(key, name); });
        cautions_.push_back(TextOf(TableName::kModel, table_.PlaceOf(column)) + ": unknown key " +
                            Quoted(name) + " is passed over" +
                            (meant == kKeys.end() ? "" : "; write " + std::string(*meant)));
    }

    void TakeValues() {
        for (std::size_t i = 0; i < kRequiredKeys; ++i)
            if (!values_.contains(kKeys[i]))
                table_.Fault(std::string("no row with the key ") + kKeys[i] + "; " +
                             ExpectedOf(kKeys[i]) + " is expected");
        Take("verticalAxis", kVerticalAxes, statement_.zUp);
        TakeUnit("lengthUnit", LengthUnits(), statement_.lengthUnit);
        TakeUnit("displacementUnit", LengthUnits(), statement_.displacementUnit);
        TakeUnit("forceUnit", ForceUnits(), statement_.forceUnit);
        Take("endForceAxes", kEndForceAxes, statement_.endForceAxes);
        Take("endForceSense", kEndForceSenses, statement_.endForceSense);
        TakeSourceAxes();
        RefuseCompressionAlongGlobalAxes();
        statement_.source = values_["source"];
        if (values_.contains("modelPath")) statement_.modelPath = values_["modelPath"];
    }

    static std::string ExpectedOf(std::string_view key) {
        if (key == "verticalAxis") return ListOf(NamesOf(kVerticalAxes));
        if (key == "lengthUnit" || key == "displacementUnit") return ListOf(NamesOf(LengthUnits()));
        if (key == "forceUnit") return ListOf(NamesOf(ForceUnits()));
        if (key == "endForceAxes") return ListOf(NamesOf(kEndForceAxes));
        if (key == "endForceSense") return ListOf(NamesOf(kEndForceSenses));
        return "a text that says where the tables come from";
    }

    template <typename Value, std::size_t count>
    static std::vector<const char*> NamesOf(
        const std::array<std::pair<const char*, Value>, count>& values) {
        std::vector<const char*> names;
        names.reserve(count);
        for (const auto& value : values)
            names.push_back(value.first);
        return names;
    }

    static std::vector<const char*> NamesOf(std::span<const TableUnit> units) {
        std::vector<const char*> names;
        for (const TableUnit& unit : units)
            names.push_back(unit.name);
        return names;
    }

    void FaultAt(const std::string& key, const std::string& expected) {
        const std::string& value = values_[key];
        faults_.Add(TableName::kModel, statement_.places[key],
                    key + ": " + (value.empty() ? "no value" : Quoted(value)) + "; " + expected +
                        " is expected");
    }

    template <typename Value, std::size_t count>
    void Take(const std::string& key, const std::array<std::pair<const char*, Value>, count>& names,
              Value& value) {
        if (!values_.contains(key)) return;
        const auto found = std::ranges::find_if(
            names, [&](const auto& entry) { return values_[key] == entry.first; });
        if (found != names.end())
            value = found->second;
        else
            FaultAt(key, ExpectedOf(key));
    }

    void TakeUnit(const std::string& key, std::span<const TableUnit> units,
                  const TableUnit*& value) {
        if (!values_.contains(key)) return;
        value = FindUnit(units, values_[key]);
        if (value == nullptr) FaultAt(key, ExpectedOf(key));
    }

    void TakeSourceAxes() {
        const auto count = std::ranges::count_if(
            kSourceAxes, [this](const char* key) { return values_.contains(key); });
        std::array<SignedAxis, 3> axes;
        bool areAxes = count == 3;
        for (std::size_t i = 0; i < axes.size(); ++i) {
            const std::string key = kSourceAxes[i];
            if (count > 0 && !values_.contains(key))
                table_.Fault("no row with the key " + key +
                             "; axisX, axisY and axisZ are expected together, or none of them");
            if (!values_.contains(key)) continue;
            const auto axis = SignedAxisOf(values_[key]);
            if (axis)
                axes[i] = *axis;
            else
                FaultAt(key, "+X, -X, +Y, -Y, +Z or -Z");
            areAxes = areAxes && axis.has_value();
        }
        if (!areAxes) return;
        const auto turned = SourceAxes::Of(axes);
        if (turned)
            statement_.sourceAxes = *turned;
        else
            FaultAt("axisZ", "a right-handed system of axisX, axisY and axisZ, each axis once,");
    }

    void RefuseCompressionAlongGlobalAxes() {
        if (values_["endForceAxes"] == NameOf(EndForceAxes::kGlobal) &&
            values_["endForceSense"] == NameOf(EndForceSense::kSectionCompression))
            FaultAt("endForceSense",
                    "another one with endForceAxes global, where no force is the axial one,");
    }

    TableReader table_;
    TableFaults& faults_;
    std::vector<std::string>& cautions_;
    std::map<std::string, std::string> values_;
    ModelStatement statement_;
};

}  // namespace

const char* NameOf(EndForceAxes axes) {
    return NameIn(kEndForceAxes, axes);
}

const char* NameOf(EndForceSense sense) {
    return NameIn(kEndForceSenses, sense);
}

bool ModelStatement::IsEnglish() const {
    return std::string_view(lengthUnit->name) == "in" && std::string_view(forceUnit->name) == "kip";
}

UnitFactor ModelStatement::Length() const {
    return IsEnglish() ? lengthUnit->toEnglish : lengthUnit->toMetric;
}

UnitFactor ModelStatement::Displacement() const {
    return IsEnglish() ? displacementUnit->toEnglish : displacementUnit->toMetric;
}

UnitFactor ModelStatement::Force() const {
    return IsEnglish() ? forceUnit->toEnglish : forceUnit->toMetric;
}

TablePlace ModelStatement::PlaceOf(std::string_view key) const {
    const auto found = places.find(key);
    return found == places.end() ? TablePlace{} : found->second;
}

std::optional<ModelStatement> ReadModelStatement(const std::string& folder, TableFaults& faults,
                                                 std::vector<std::string>& cautions) {
    return StatementReader(folder, faults, cautions).Read();
}
