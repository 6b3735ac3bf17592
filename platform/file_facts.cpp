#include "platform/file_facts.h"

#include <chrono>
#include <ctime>
#include <filesystem>

#include "platform/native_path.h"

namespace {

// The clock of files and that of the system count from different moments.
std::time_t TimeOf(std::filesystem::file_time_type time) {
    using std::chrono::seconds;
    using std::chrono::system_clock;
    const auto age = std::filesystem::file_time_type::clock::now() - time;
    const auto moment =
        system_clock::now() - std::chrono::duration_cast<system_clock::duration>(age);
    return system_clock::to_time_t(std::chrono::round<seconds>(moment));
}

std::string LocalText(std::time_t time) {
    char text[40] = "";
    if (const std::tm* const local = std::localtime(&time); local != nullptr)
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", local);
    return text;
}

}  // namespace

FileFacts FactsOfFile(const std::string& path) {
    FileFacts facts;
    std::error_code unknown;
    const auto size = std::filesystem::file_size(NativePath(path), unknown);
    if (!unknown) facts.size = size;
    const auto time = std::filesystem::last_write_time(NativePath(path), unknown);
    if (!unknown) facts.modified = LocalText(TimeOf(time));
    return facts;
}
