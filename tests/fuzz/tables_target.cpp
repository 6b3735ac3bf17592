// The reader of tables. One text holds all tables of a folder, each behind a line "@NAME.csv". They
// are refused with lines that name their tables, or make a model; that one is written as a model
// file, and exported as tables from which the same model is imported again.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "host/qhm_file.h"
#include "tables/export_tables.h"
#include "tables/import_tables.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/same_model.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::size_t kLongestLine = 4000;

void WriteTables(const std::string& text, const TestFolder& folder) {
    std::filesystem::remove_all(folder.Path("tables"));
    std::filesystem::create_directory(folder.Path("tables"));
    std::size_t at = text.find('@');
    while (at != std::string::npos) {
        const std::size_t end = std::min(text.find("\n@", at), text.size());
        const std::size_t heading = std::min(text.find('\n', at), end);
        for (const char* table :
             {"model.csv", "nodes.csv", "supports.csv", "members.csv", "cases.csv",
              "displacements.csv", "forces.csv", "axes.csv", "reactions.csv"})
            if (text.compare(at + 1, heading - at - 1, table) == 0)
                folder.Write(std::string("tables/") + table,
                             text.substr(std::min(heading + 1, text.size()),
                                         end > heading ? end - heading : 0));
        at = end == text.size() ? std::string::npos : end + 1;
    }
}

void CheckLine(const std::string& line) {
    Check(line.find(".csv") != std::string::npos, "a line names its table: " + line);
    Check(line.size() < kLongestLine, "a line is short");
    for (const char c : line)
        Check(static_cast<unsigned char>(c) >= 0x20, "a line is one line of plain text: " + line);
}

void CheckLines(const TablesImport& import) {
    Check(import.faults.size() <= 50, "no more than 50 faults are told");
    Check(import.faults.size() == std::min<std::size_t>(50, import.faultCount), "all are counted");
    for (const auto* lines :
         {&import.faults, &import.cautions, &import.findings.wrong, &import.findings.unusual})
        for (const std::string& line : *lines)
            CheckLine(line);
}

// A model without level members at odd angles makes the round; of others some forces are lost.
void CheckRound(const RecordedModel& model, const TestFolder& folder) {
    std::filesystem::remove_all(folder.Path("exported"));
    std::vector<std::string> cautions;
    try {
        cautions = ExportTables(model, "fuzz", folder.Path("exported"));
    } catch (const TablesExportError&) {
        return;
    }
    const TablesImport again = ImportTables(folder.Path("exported"), std::nullopt);
    if (!cautions.empty()) return;
    Check(again.model.has_value(), again.faults.empty() ? "" : again.faults.front());
    const std::string difference = DifferenceOf(model, *again.model);
    Check(difference.empty(), "the same model comes back: " + difference);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    WriteTables(std::string(reinterpret_cast<const char*>(data), size), folder);
    const TablesImport forInput =
        ImportTables(folder.Path("tables"), InputRoles{"input.csv", 1, {2, 3}});
    CheckLines(forInput);
    const TablesImport import = ImportTables(folder.Path("tables"), std::nullopt);
    CheckLines(import);
    if (!import.model) return 0;
    const std::string path = folder.Path("model.qhm");
    WriteQhmFile(*import.model, path);
    const std::string difference = DifferenceOf(*import.model, ReadQhmFile(path));
    Check(difference.empty(), "the model file holds the same model: " + difference);
    CheckRound(*import.model, folder);
    return 0;
}
