#pragma once

#include <string>

/// Now, as the user's clock shows it, with its offset: "2026-11-21T20:24:05+09:00".
std::string LocalTimeText();
