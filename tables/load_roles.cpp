#include "tables/load_roles.h"

#include "input/input_file.h"
#include "input/input_readers.h"

std::optional<InputRoles> ReadInputRoles(const std::string& inputPath) {
    InputFile file(inputPath);
    const LoadCaseNumbers numbers = ReadLoadCaseNumbers(file);
    if (!EndsWell(numbers.end)) return std::nullopt;
    InputRoles roles;
    roles.inputPath = inputPath;
    if (numbers.dead) roles.dead = numbers.dead->value;
    if (!numbers.earthquake) return roles;
    const auto& [x, z] = *numbers.earthquake;
    roles.earthquake = {x.value};
    if (z.value != x.value) roles.earthquake.push_back(z.value);
    return roles;
}
