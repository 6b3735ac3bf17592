#include "cli/messages.h"

#include <iostream>

#include "platform/one_line.h"

void TellError(const std::string& text) {
    std::cerr << "quarnel-cli: " + OneLine(text) + "\n";
}

void TellCaution(const std::string& text) {
    TellError("caution: " + text);
}
