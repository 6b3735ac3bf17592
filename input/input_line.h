#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "input/input_place.h"

/// One read of the engine's readers: a line of the file, or a part of a longer one.
struct InputLine {
    std::string_view text;     ///< without the line feed
    std::size_t number = 0;    ///< of the line, as an editor counts, from 1
    std::size_t offset = 0;    ///< where it begins within that line, bytes
    bool isContinued = false;  ///< the line goes on in the next read
    std::size_t commas = 0;

    bool IsRest() const { return offset != 0; }
    bool HasComma() const { return commas > 0; }

    /// A story line begins with a digit 1 to 9.
    bool StartsWithStoryNumber() const {
        return !text.empty() && text.front() >= '1' && text.front() <= '9';
    }

    InputPlace Place() const { return {number, offset, text.size()}; }
    InputPlace PlaceOf(std::string_view part) const;  ///< `part` is a view into `text`
};

/// A field of a line. Field 0 begins at the start; the last one stands behind the last comma.
struct InputField {
    std::string_view text;
    InputPlace place;
};

/// All fields, at least one.
std::vector<InputField> FieldsOf(const InputLine& line);

/// Field 0; the whole line when it has no comma.
std::string_view FirstFieldOf(const InputLine& line);

/// The lines before the one that begins with FIN, as every reader gets them.
struct InputLines {
    std::vector<InputLine> lines;
    bool hasFin = false;        ///< FIN stands within the limit of the readers
    bool isTooLong = false;     ///< more than 100,001 lines before FIN
    InputLine fin;              ///< with hasFin
    std::string_view afterFin;  ///< with hasFin: what no reader reads
};

/// Goes through the text with the readers' own class. The lines are views into `text`.
InputLines ReadInputLines(std::string_view text);
