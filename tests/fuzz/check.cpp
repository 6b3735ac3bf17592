#include "tests/fuzz/check.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

void Check(bool holds, const std::string& what) {
    if (holds) return;
    std::cerr << "CHECK FAILED: " << what << std::endl;
    std::abort();
}

void CheckSameText(const std::string& a, const std::string& b, const std::string& what) {
    if (a == b) return;
    const auto parted = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    const auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, parted - 60));
    std::cerr << "one:   " << a.substr(from, 120) << "\nother: " << b.substr(from, 120) << "\n";
    Check(false, what);
}
