#include "input/input_file.h"

#include <algorithm>

#include "platform/regular_file.h"

namespace {

constexpr std::size_t kMostCharactersPerRead = 199;

}  // namespace

InputFile::InputFile(const std::string& path) : file_(OpenRegularFile(path, ReadMode::kText)) {}

InputFile InputFile::OfText(std::string_view text) {
    InputFile file;
    file.text_ = text;
    file.isInMemory_ = true;
    return file;
}

bool InputFile::ReadCharacter(char& character) {
    if (isInMemory_) {
        if (text_.empty()) return false;
        character = text_.front();
        text_.remove_prefix(1);
        return true;
    }
    const int read = ReadTextCharacter(file_.get());
    if (read == EOF) return false;
    character = static_cast<char>(read);
    return true;
}

void InputFile::ReadLine() {
    if (isAtEnd_) return;
    char character = '\0';
    if (!ReadCharacter(character)) {
        isAtEnd_ = true;
        return;
    }
    const bool isNewLine = lineNumber_ == 0 || line_.ends_with('\n');
    if (isNewLine) ++lineNumber_;
    offsetInLine_ = isNewLine ? 0 : offsetInLine_ + line_.size();

    line_.assign(1, character);
    while (character != '\n' && line_.size() < kMostCharactersPerRead && ReadCharacter(character))
        line_.push_back(character);

    commaCount_ = static_cast<std::size_t>(std::count(line_.begin(), line_.end(), ','));
    if (HasComma()) firstField_ = Field(0);
}

std::string_view InputFile::Field(std::size_t index) const {
    std::string_view rest = line_;
    for (std::size_t i = 0; i < index; ++i)
        rest.remove_prefix(rest.find(',') + 1);
    return rest.substr(0, rest.find_first_of(",\n"));
}

const std::string& InputFile::Value(std::size_t index) {
    if (!HasComma() || commaCount_ < index) return value_;
    const std::string_view field = Field(index);
    value_ = field;
    const auto start = static_cast<std::size_t>(field.data() - line_.data());
    valuePlace_ = {lineNumber_, offsetInLine_ + start, field.size()};
    return value_;
}
