// quarnel-bench-building MEMBERS STORIES LOADCASES FILE.qhm: writes a generated building as a host
// model file, with its Route 2 Input file beside it (FILE.csv).

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>

#include "bench/regular_building.h"
#include "host/qhm_file.h"
#include "input/number_text.h"

namespace {

BuildingSize ReadSize(std::span<char*, 3> numbers) {
    const BuildingSize size{ToInteger(numbers[0]), ToInteger(numbers[1]), ToInteger(numbers[2])};
    if (size.stories < 1 || size.members / size.stories < 2 || size.loadCases < 3)
        throw std::invalid_argument(
            "a building has a story, two members per story and three load cases at least");
    return size;
}

void WriteBuilding(const BuildingSize& size, const std::string& modelPath) {
    const RegularBuilding building = MakeRegularBuilding(size);
    WriteQhmFile(building.model, modelPath);
    std::ofstream input(std::filesystem::path(modelPath).replace_extension("csv"),
                        std::ios::binary);
    input << building.inputText;
    if (!input.flush()) throw std::runtime_error("the input file cannot be written");
}

}  // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 5) {
        std::cerr << "usage: quarnel-bench-building MEMBERS STORIES LOADCASES FILE.qhm\n";
        return 2;
    }
    try {
        WriteBuilding(ReadSize(arguments.subspan<1, 3>()), arguments[4]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "quarnel-bench-building: " << error.what() << "\n";
        return 1;
    }
}
