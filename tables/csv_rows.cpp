#include "tables/csv_rows.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/utf8_character.h"

namespace {

std::string TooLong(const char* what) {
    return std::string(what) + " of more than " + std::to_string(CsvRows::kLongestRow) + " bytes";
}

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

// Position of `byte` in `text`, the length when it is not there.
std::size_t Find(std::string_view text, char byte) {
    const void* const found = text.empty() ? nullptr : std::memchr(text.data(), byte, text.size());
    if (found == nullptr) return text.size();
    return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

// Length of the line at the start of `text`. Goes on in small steps: of the two characters that
// may end a line, a table has one only.
std::size_t LineLength(std::string_view text) {
    constexpr std::size_t kStep = 256;
    for (std::size_t at = 0; at < text.size(); at += kStep) {
        const std::string_view step = text.substr(at, kStep);
        const std::size_t feed = Find(step, '\n');
        const std::size_t end = Find(step.substr(0, feed), '\r');
        if (end < step.size()) return at + end;
    }
    return text.size();
}

std::size_t LineEndLength(std::string_view text) {
    if (text.starts_with("\r\n")) return 2;
    return !text.empty() && IsLineEnd(text.front()) ? 1 : 0;
}

// Length of what stands before the next separator or line end.
std::size_t PlainLength(std::string_view text, char separator) {
    std::size_t length = 0;
    while (length < text.size() && text[length] != separator && !IsLineEnd(text[length]))
        ++length;
    return length;
}

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace

CsvRows::CsvRows(std::FILE* file, TableEncoding encoding)
    : file_(file), encoding_(encoding), buffer_(2 * kLongestRow) {
    FillBuffer();
    if (Rest().starts_with(kByteOrderMark)) rowStart_ = kByteOrderMark.size();
}

std::string_view CsvRows::Rest() const {
    return {buffer_.data() + rowStart_, filled_ - rowStart_};
}

// So that the longest row and its line end are in the buffer, as far as the file has them.
void CsvRows::FillBuffer() {
    if (isAllRead_ || Rest().size() >= kLongestRow + 2) return;
    const std::size_t left = Rest().size();
    std::memmove(buffer_.data(), buffer_.data() + rowStart_, left);
    rowStart_ = 0;
    filled_ = left + std::fread(buffer_.data() + left, 1, buffer_.size() - left, file_);
    isAllRead_ = filled_ < buffer_.size();
}

void CsvRows::GoBehindRow() {
    for (std::string_view row = Row(); !row.empty();) {
        const std::size_t length = LineLength(row);
        row.remove_prefix(length);
        if (!row.empty()) ++line_;  // a line end within quotation marks
        row.remove_prefix(LineEndLength(row));
    }
    const std::size_t end = LineEndLength(Rest().substr(rowLength_));
    if (end > 0) ++line_;
    rowStart_ += rowLength_ + end;
    rowLength_ = 0;
}

bool CsvRows::GiveUp(TablePlace place, std::string text) {
    fault_ = CsvFault{place, std::move(text)};
    rowStart_ = filled_;
    rowLength_ = 0;
    isAllRead_ = true;
    return false;
}

bool CsvRows::Next() {
    if (!Rest().empty()) fault_.reset();
    while (!Rest().empty()) {
        GoBehindRow();
        FillBuffer();
        fields_.clear();
        unquoted_.clear();
        if (Rest().empty()) return false;
        rowLength_ = LineLength(Rest());
        if (rowLength_ > kLongestRow)
            return GiveUp({line_, 1}, TooLong("a line") + "; a table has one row a line");
        const std::string_view text = WithoutBlanks(Row());
        if (text.empty() || text.front() == '#') continue;
        if (!SplitRow()) return false;
        const auto isEmpty = [](const CsvField& field) { return field.text.empty(); };
        if (fault_ || !std::ranges::all_of(fields_, isEmpty)) return true;
    }
    return false;
}

// False where no more of the table can be read.
bool CsvRows::SplitRow() {
    if (separator_ == 0) ChooseSeparator(Row());
    if (Find(Row(), '"') == rowLength_)
        SplitPlainLine(Row());
    else if (!SplitQuotedRow())
        return false;
    if (fields_.size() <= kMostFields) return true;
    return GiveUp({line_, 1}, "more than " + std::to_string(kMostFields) +
                                  " fields in a row; is this the right file?");
}

// Separators within quotation marks do not count. A comma where there is none of any.
void CsvRows::ChooseSeparator(std::string_view heading) {
    constexpr std::string_view kSeparators = ",;\t";
    std::size_t counts[kSeparators.size()] = {};
    bool isQuoted = false;
    for (const char byte : heading) {
        if (byte == '"') isQuoted = !isQuoted;
        const std::size_t i = kSeparators.find(byte);
        if (!isQuoted && i != std::string_view::npos) ++counts[i];
    }
    auto* const most = std::max_element(std::begin(counts), std::end(counts));
    separator_ = kSeparators[static_cast<std::size_t>(most - std::begin(counts))];
}

void CsvRows::AddField(std::string_view text, std::size_t at) {
    // One more than may be shows that there are too many.
    if (fields_.size() <= kMostFields) fields_.push_back({text, at});
}

void CsvRows::SplitPlainLine(std::string_view line) {
    std::size_t at = 0;
    while (true) {
        const std::size_t length = Find(line.substr(at), separator_);
        const std::string_view text = WithoutBlanks(line.substr(at, length));
        AddField(text,
                 text.empty() ? at + length : static_cast<std::size_t>(text.data() - line.data()));
        at += length;
        if (at == line.size()) return;
        ++at;
    }
}

// A row in which there is a quotation mark, and which may go on in the lines below. False when it
// does not end.
bool CsvRows::SplitQuotedRow() {
    const std::string_view rest = Rest();
    std::size_t at = 0;
    while (true) {
        while (at < rest.size() && IsBlank(rest[at]) && rest[at] != separator_)
            ++at;
        const bool isQuoted = at < rest.size() && rest[at] == '"';
        const std::size_t end = isQuoted ? TakeQuotedField(at) : TakePlainField(at);
        if (end > rest.size() || end > kLongestRow)
            return GiveUp(PlaceAt(at), end > rest.size() && isAllRead_
                                           ? "this quotation mark is not closed"
                                           : TooLong("a row") + "; is this quotation mark closed?");
        at = end;
        if (at == rest.size() || IsLineEnd(rest[at])) break;
        ++at;  // the separator
    }
    rowLength_ = at;
    return true;
}

// Returns where the field ends, at the separator or line end behind it.
std::size_t CsvRows::TakePlainField(std::size_t at) {
    const std::size_t length = PlainLength(Rest().substr(at), separator_);
    AddField(WithoutBlanks(Rest().substr(at, length)), at);
    return at + length;
}

// The same; beyond the end of all when the field does not end.
std::size_t CsvRows::TakeQuotedField(std::size_t at) {
    constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
    const std::string_view rest = Rest();
    const std::size_t begin = at + 1;
    bool hasDoubled = false;
    std::size_t end = begin;
    while (true) {
        end += Find(rest.substr(end), '"');
        if (end >= rest.size()) return kNowhere;
        if (!rest.substr(end + 1).starts_with('"')) break;
        hasDoubled = true;
        end += 2;
    }
    std::string_view text = rest.substr(begin, end - begin);
    if (hasDoubled) {
        std::string& single = unquoted_.emplace_back();
        for (std::size_t i = 0; i < text.size(); ++i) {
            single += text[i];
            if (text[i] == '"') ++i;
        }
        text = single;
    }
    AddField(WithoutBlanks(text), at);

    std::size_t next = end + 1;
    while (next < rest.size() && IsBlank(rest[next]) && rest[next] != separator_)
        ++next;
    if (next == rest.size() || IsLineEnd(rest[next]) || rest[next] == separator_) return next;
    if (!fault_)
        fault_ = CsvFault{PlaceAt(next),
                          "text behind a closing quotation mark; within quotation marks, write "
                          "each mark twice"};
    return next + PlainLength(rest.substr(next), separator_);
}

TablePlace CsvRows::PlaceAt(std::size_t at) const {
    std::string_view before = Rest().substr(0, at);
    TablePlace place{line_, 1};
    while (true) {
        const std::size_t length = LineLength(before);
        if (length == before.size()) break;
        before.remove_prefix(length);
        before.remove_prefix(LineEndLength(before));
        ++place.line;
    }
    place.column = 1 + CharacterCount(before, encoding_);
    return place;
}
