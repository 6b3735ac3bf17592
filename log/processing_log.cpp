#include "log/processing_log.h"

void LogStart(std::FILE* log, const char* subject) {
    Print(log, "\nStarts setting %s...\n", subject);
}

void LogEnd(std::FILE* log, const char* subject) {
    Print(log, "Ends setting %s...\n", subject);
}

void LogWarning(std::FILE* log, const std::string& text) {
    Print(log, "\n*** WARNING *** : %s\n", text.c_str());
}
