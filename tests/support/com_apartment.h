#pragma once

#include <objbase.h>

/// COM on the test's thread, as the programs initialise it, for the length of a test.
class ComApartment {
public:
    ComApartment() { CoInitialize(nullptr); }
    ~ComApartment() { CoUninitialize(); }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
};
