#include "sheetapp/taken_files.h"

#include <algorithm>

namespace {

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool EndsWith(const std::string& path, const std::string& end) {
    return path.size() >= end.size() &&
           std::equal(end.begin(), end.end(), path.end() - static_cast<std::ptrdiff_t>(end.size()),
                      [](char ours, char theirs) { return ours == Lower(theirs); });
}

}  // namespace

TakenFiles TakeFiles(const std::vector<std::string>& paths) {
    TakenFiles taken;
    for (const std::string& path : paths) {
        const bool isInput = EndsWith(path, ".csv");
        if (!isInput && !EndsWith(path, ".qhm")) {
            if (taken.stranger.empty()) taken.stranger = path;
            continue;
        }
        std::string& place = isInput ? taken.request.input : taken.request.recording;
        taken.hasTwoOfAKind = taken.hasTwoOfAKind || !place.empty();
        place = path;
    }
    return taken;
}
