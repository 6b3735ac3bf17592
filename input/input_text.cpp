#include "input/input_text.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "platform/regular_file.h"
#include "platform/utf8_character.h"

namespace {

constexpr std::size_t kMostIndexedLines = 100002;

std::vector<std::size_t> FindLineStarts(std::string_view text) {
    std::vector<std::size_t> starts{0};
    std::size_t feed = text.find('\n');
    while (feed != std::string_view::npos && starts.size() < kMostIndexedLines) {
        starts.push_back(feed + 1);
        feed = text.find('\n', feed + 1);
    }
    return starts;
}

InputTextFault WhyNotOpened(const std::string& path) {
    switch (FileKindOf(path)) {
        case FileKind::kNothing:
            return InputTextFault::kMissing;
        case FileKind::kFolder:
            return InputTextFault::kFolder;
        case FileKind::kOther:
            return InputTextFault::kNoRegularFile;
        case FileKind::kRegular:
            break;
    }
    return InputTextFault::kRefused;
}

}  // namespace

InputText::InputText(std::string text)
    : text_(std::move(text)), encoding_(FindEncoding(text_)), lineStarts_(FindLineStarts(text_)) {}

bool InputText::HasByteOrderMark() const {
    return text_.starts_with(kByteOrderMark);
}

std::string_view InputText::Line(std::size_t number) const {
    if (number == 0 || lineStarts_.empty()) return {};
    std::size_t start = lineStarts_[std::min(number, lineStarts_.size()) - 1];
    for (std::size_t i = lineStarts_.size(); i < number; ++i) {
        const std::size_t feed = text_.find('\n', start);
        if (feed == std::string::npos) return {};
        start = feed + 1;
    }
    const std::string_view rest = std::string_view(text_).substr(start);
    std::string_view line = rest.substr(0, rest.find('\n'));
    line.remove_prefix(HiddenBytes(number));
    return line;
}

std::size_t InputText::HiddenBytes(std::size_t lineNumber) const {
    return lineNumber == 1 && HasByteOrderMark() ? kByteOrderMark.size() : 0;
}

std::size_t InputText::Column(std::size_t lineNumber, std::size_t offset) const {
    offset -= std::min(offset, HiddenBytes(lineNumber));
    if (encoding_.encoding != TextEncoding::kUtf8) return offset + 1;
    const std::string_view line = Line(lineNumber);
    std::string_view before = line.substr(0, std::min(offset, line.size()));
    std::size_t column = 1;
    while (!before.empty()) {
        before.remove_prefix(FirstUtf8Character(before).size);
        ++column;
    }
    return column;
}

InputTextRead ReadInputText(const std::string& path) {
    const StdioFile file = OpenRegularFile(path, ReadMode::kText);
    if (!file) return {{}, WhyNotOpened(path)};
    std::string text;
    for (int read = ReadTextCharacter(file.get()); read != EOF && text.size() < kMostInputBytes;
         read = ReadTextCharacter(file.get()))
        text.push_back(static_cast<char>(read));
    if (std::ferror(file.get()) != 0) return {{}, InputTextFault::kRefused};
    return {InputText(std::move(text)), InputTextFault::kNone};
}
