#pragma once

#include <string>

/// `text` with {1} and {2} replaced by `first` and `second`.
std::string FilledText(std::string text, const std::string& first, const std::string& second = {});
