#include "input/input_line.h"

#include <algorithm>

#include "input/input_file.h"
#include "input/input_readers.h"

InputPlace InputLine::PlaceOf(std::string_view part) const {
    const auto start = static_cast<std::size_t>(part.data() - text.data());
    return {number, offset + start, part.size()};
}

std::vector<InputField> FieldsOf(const InputLine& line) {
    std::vector<InputField> fields;
    fields.reserve(line.commas + 1);
    std::size_t start = 0;
    while (true) {
        const std::size_t comma = line.text.find(',', start);
        const std::string_view field = line.text.substr(start, comma - start);
        fields.push_back({field, line.PlaceOf(field)});
        if (comma == std::string_view::npos) return fields;
        start = comma + 1;
    }
}

std::string_view FirstFieldOf(const InputLine& line) {
    return line.text.substr(0, line.text.find(','));
}

InputLines ReadInputLines(std::string_view text) {
    InputLines read;
    InputFile file = InputFile::OfText(text);
    std::size_t position = 0;
    const auto takeLine = [&] {
        InputLine line;
        const std::size_t length = file.Line().size();
        const bool hasFeed = file.Line().ends_with('\n');
        line.text = text.substr(position, length - (hasFeed ? 1 : 0));
        position += length;
        line.number = file.LineNumber();
        line.offset = file.OffsetInLine();
        line.isContinued = !hasFeed && position < text.size();
        line.commas = file.CommaCount();
        return line;
    };
    const ReadingEnd end = ReadLines(file, [&](InputFile&) -> std::optional<ReadingEnd> {
        if (file.IsAtEnd()) return ReadingEnd::kDone;
        read.lines.push_back(takeLine());
        return std::nullopt;
    });
    read.hasFin = end == ReadingEnd::kAtFin && !file.IsAtEnd();
    read.isTooLong = end == ReadingEnd::kLineLimit;
    if (read.hasFin) {
        read.fin = takeLine();
        read.afterFin = text.substr(position);
    }
    return read;
}
