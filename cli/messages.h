#pragma once

#include <string>

// What quarnel-cli says on standard error: one line each, whatever the text contains.

void TellError(const std::string& text);
void TellCaution(const std::string& text);
