#include "platform/whole_file.h"

void WriteWholeFile(const std::string& path, std::string_view bytes) {
    WholeFile file(path);
    std::fwrite(bytes.data(), 1, bytes.size(), file.Stream());
    file.Finish();
}

// The passing file is made and removed.
void RequireWholeFileCanBeWritten(const std::string& path) {
    const WholeFile trial(path);
}
