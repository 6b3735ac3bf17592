#pragma once

#include <string>

/// Aborts with `what` on standard error unless `holds`: the fuzzer then keeps the bytes that led
/// here.
void Check(bool holds, const std::string& what);

/// Aborts, showing both texts where they part, unless they are equal.
void CheckSameText(const std::string& a, const std::string& b, const std::string& what);
