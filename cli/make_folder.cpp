#include "cli/make_folder.h"

#include <filesystem>

#include "cli/messages.h"
#include "platform/native_path.h"

bool MakeFolder(const std::string& folder, std::string_view what) {
    std::error_code error;
    std::filesystem::create_directories(NativePath(folder), error);
    if (std::filesystem::is_directory(NativePath(folder), error)) return true;
    TellError(folder + ": the folder for " + std::string(what) + " cannot be made");
    return false;
}
