#include "platform/unused_name.h"

#include <cstdio>
#include <random>

std::string UnusedName() {
    std::random_device random;
    char name[40];
    std::snprintf(name, sizeof name, "quarnel-%08x%08x.part", random(), random());
    return name;
}
