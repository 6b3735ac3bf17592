// Hands files to a fuzz target, for compilers without a fuzzer: every file of the folders and
// every file named on the command line, once each.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(path))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

void Replay(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
    std::cout << path.filename().string() << " (" << bytes.size() << " bytes)" << std::endl;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::size_t count = 0;
        for (int i = 1; i < argc; ++i) {
            for (const fs::path& file : FilesOf(argv[i])) {
                Replay(file);
                ++count;
            }
        }
        if (count == 0) throw std::runtime_error("no files to replay; name files or folders");
        std::cout << count << " files replayed" << std::endl;
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "replay: " << error.what() << std::endl;
        return 1;
    }
}
