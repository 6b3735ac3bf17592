#include "tests/support/test_folder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

TestFolder::TestFolder() {
    std::random_device random;
    do {
        path_ =
            std::filesystem::temp_directory_path() / ("quarnel-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TestFolder::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream file(path_ / name, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + Path(name));
    return Path(name);
}

std::string TestFolder::Read(const std::string& name) const {
    return ReadText(path_ / name);
}

std::string ReadText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    std::string text(std::istreambuf_iterator<char>(file), {});
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
        text.erase(at, 1);
    return text;
}
