#include "cli/tables_messages.h"

#include <iostream>

#include "cli/messages.h"

void TellCautions(const TablesImport& import) {
    for (const std::string& line : import.cautions)
        TellCaution(line);
    for (const std::string& line : import.findings.unusual)
        TellCaution(line);
}

// Lines that begin with a place, as an editor or a terminal makes it a link.
bool TellFaults(const std::string& folder, const TablesImport& import) {
    for (const std::string& line : import.faults)
        std::cerr << line << "\n";
    if (import.faultCount == 0) return false;
    std::string count = (import.areAllFaultsCounted ? "" : "more than ") +
                        std::to_string(import.faultCount) +
                        (import.faultCount == 1 ? " fault in the tables" : " faults in the tables");
    if (import.faultCount > import.faults.size())
        count += ", of which the first " + std::to_string(import.faults.size()) + " are shown";
    TellError(folder + ": " + count + "; nothing was written");
    return true;
}

bool TellWrongStatements(const TablesImport& import) {
    for (const std::string& line : import.findings.wrong)
        std::cerr << line << "\n";
    return !import.findings.wrong.empty();
}
