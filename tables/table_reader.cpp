#include "tables/table_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include "platform/regular_file.h"
#include "tables/cell_values.h"
#include "tables/table_encoding.h"

namespace {

// A file that the system fails to read in the middle.
constexpr const char* kNotReadToItsEnd = "cannot be read to its end";

std::string NotOpened(const std::string& path) {
    switch (FileKindOf(path)) {
        case FileKind::kNothing:
            return "there is no such file in the folder";
        case FileKind::kFolder:
            return "this is a folder; a table is expected";
        case FileKind::kOther:
            return "this is no file with contents of its own; a table is expected";
        case FileKind::kRegular:
            break;
    }
    return "cannot be opened; may it be read?";
}

std::string TextOf(EncodingScan::Fault fault) {
    const std::string expected = "; UTF-8 or Shift_JIS is expected: save the table as one of them";
    switch (fault) {
        case EncodingScan::Fault::kUtf16:
            return "the table is in UTF-16" + expected;
        case EncodingScan::Fault::kZeroByte:
            return "a zero byte, which no text has" + expected;
        case EncodingScan::Fault::kMixed:
            return "this line is in UTF-8, another one in Shift_JIS; one of them is expected "
                   "throughout the table";
        default:
            return "a character that fits neither UTF-8 nor Shift_JIS" + expected;
    }
}

std::string TextOf(NumberFault fault, const std::string& text) {
    std::string mended = text;
    std::ranges::replace(mended, ',', '.');
    switch (fault) {
        case NumberFault::kEmpty:
            return "no value; a number is expected";
        case NumberFault::kDecimalComma:
            return Quoted(text) + " has a decimal comma; a decimal point is expected: " +
                   (std::ranges::count(mended, '.') == 1 ? mended : std::string("1234.5"));
        case NumberFault::kNotFinite:
            return Quoted(text) + " is not finite; a number up to 1e308 is expected";
        default:
            return Quoted(text) + " is no number; a number such as 12.5 is expected";
    }
}

}  // namespace

TableReader::TableReader(const std::string& folder, TableName table, TableFaults& faults)
    : table_(table), faults_(faults) {
    const std::string path = folder + "/" + FileNameOf(table);
    Open(path);
    if (IsOpen()) ReadHeading();
}

void TableReader::Close(TablePlace place, const std::string& text) {
    faults_.Add(table_, place, text);
    rows_.reset();
}

void TableReader::Open(const std::string& path) {
    TableEncoding encoding = TableEncoding::kUtf8;
    if (!FindEncoding(path, encoding)) return;
    file_ = OpenRegularFile(path, ReadMode::kBytes);
    if (file_)
        rows_.emplace(file_.get(), encoding);
    else
        faults_.Add(table_, NotOpened(path));
}

// Reads the whole table once: whether a name is to be read as UTF-8 may be told by its last line.
bool TableReader::FindEncoding(const std::string& path, TableEncoding& encoding) {
    const StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    if (!file) {
        faults_.Add(table_, NotOpened(path));
        return false;
    }
    constexpr std::size_t kBlock = std::size_t{1} << 18U;
    std::vector<char> block(kBlock);
    EncodingScan scan;
    std::size_t size = kBlock;
    while (size == kBlock && !scan.HasFault()) {
        size = std::fread(block.data(), 1, kBlock, file.get());
        scan.Take({block.data(), size});
    }
    const EncodingScan::Found found = scan.Finish();
    encoding = found.encoding;
    if (std::ferror(file.get()) != 0)
        faults_.Add(table_, kNotReadToItsEnd);
    else if (found.fault == EncodingScan::Fault::kNone)
        return true;
    else
        FaultAtByte(path, found.faultAt, TextOf(found.fault));
    return false;
}

// A fault in a table that cannot be told in rows.
void TableReader::FaultAtByte(const std::string& path, std::uint64_t at, const std::string& text) {
    TablePlace place{1, 1};
    const StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    int previous = 0;
    for (std::uint64_t i = 0; file && i < at; ++i) {
        const int byte = std::fgetc(file.get());
        const bool endsLine = byte == '\n' ? previous != '\r' : byte == '\r';
        if (endsLine) ++place.line;
        if (byte == '\n' || byte == '\r')
            place.column = 1;
        else
            ++place.column;
        previous = byte;
    }
    faults_.Add(table_, place, text);
}

void TableReader::ReadHeading() {
    const bool hasHeading = rows_->Next();
    if (rows_->Fault()) return Close(rows_->Fault()->place, rows_->Fault()->text);
    if (std::ferror(file_.get()) != 0) return Close({}, kNotReadToItsEnd);
    if (!hasHeading) return Close({}, "the table is empty; a heading row is expected");
    headingPlace_ = PlaceOfRow();
    for (const CsvField& field : rows_->Fields())
        heading_.push_back(Utf8Of(field.text, rows_->encoding()));
}

TableReader::Column TableReader::Find(std::string_view name) {
    if (!IsOpen()) return std::nullopt;
    const auto first = std::ranges::find(heading_, name);
    if (first == heading_.end()) return std::nullopt;
    const auto column = static_cast<std::size_t>(first - heading_.begin());
    if (std::find(first + 1, heading_.end(), name) != heading_.end())
        Close(headingPlace_,
              "two columns have the heading " + Quoted(std::string(name)) + "; one is expected");
    return column;
}

void TableReader::Require(const char* const* names, std::size_t count, const char* expected,
                          std::size_t* columns) {
    std::string missing;
    for (std::size_t i = 0; i < count && IsOpen(); ++i) {
        const Column column = Find(names[i]);
        if (column)
            columns[i] = *column;
        else
            missing += std::string(missing.empty() ? "" : ", ") + names[i];
    }
    if (IsOpen() && !missing.empty())
        Close(headingPlace_, "the heading row has no column " + missing + "; expected " + expected +
                                 ", in these letters and in any order");
}

bool TableReader::FindAll(const char* const* names, std::size_t count, std::size_t* columns) {
    std::string present, missing;
    for (std::size_t i = 0; i < count; ++i) {
        const Column column = Find(names[i]);
        if (column) columns[i] = *column;
        std::string& list = column ? present : missing;
        list += std::string(list.empty() ? "" : ", ") + names[i];
    }
    if (IsOpen() && !present.empty() && !missing.empty())
        Close(headingPlace_,
              "the heading row has " + present + ", but not " + missing + "; all or none expected");
    return IsOpen() && missing.empty();
}

bool TableReader::NextRow() {
    while (IsOpen()) {
        isGivenUp_ = faults_.HasTooMany(table_);
        if (isGivenUp_) return false;
        const bool hasRow = rows_->Next();
        if (rows_->Fault()) faults_.Add(table_, rows_->Fault()->place, rows_->Fault()->text);
        if (rows_->Fault()) ++rowCount_;
        isGivenUp_ = !hasRow && rows_->Fault();
        if (!hasRow) break;
        if (rows_->Fault() || HasTooManyFields()) continue;
        ++rowCount_;
        return true;
    }
    if (IsOpen() && std::ferror(file_.get()) != 0)
        GiveUp(kNotReadToItsEnd);
    else if (IsOpen() && rowCount_ == 0)
        faults_.Add(table_, "no rows at all below the heading");
    return false;
}

void TableReader::GiveUp(const std::string& text) {
    faults_.Add(table_, text);
    isGivenUp_ = true;
}

void TableReader::GiveUp(std::size_t column, const std::string& text) {
    Fault(column, text);
    isGivenUp_ = true;
}

bool TableReader::HasTooManyFields() {
    const auto& fields = rows_->Fields();
    for (std::size_t i = heading_.size(); i < fields.size(); ++i) {
        if (fields[i].text.empty()) continue;
        ++rowCount_;
        Fault(i, "field " + std::to_string(i + 1) + " of a row under a heading of " +
                     std::to_string(heading_.size()) +
                     "; a decimal comma, or a text with a comma that is not in quotation marks?");
        return true;
    }
    return false;
}

std::string_view TableReader::Bytes(std::size_t column) const {
    const auto& fields = rows_->Fields();
    return column < fields.size() ? fields[column].text : std::string_view();
}

std::string TableReader::TextOrNothing(std::size_t column) const {
    return Utf8Of(Bytes(column), rows_->encoding());
}

std::string TableReader::NameOf(std::size_t column) const {
    return column < heading_.size() ? heading_[column] : std::string();
}

std::optional<std::string> TableReader::Text(std::size_t column) {
    std::string text = TextOrNothing(column);
    if (!text.empty()) return text;
    Fault(column, "no value under " + NameOf(column));
    return std::nullopt;
}

std::optional<std::string> TableReader::Name(std::size_t column) {
    constexpr std::size_t kLongest = 200;
    auto name = Text(column);
    if (!name) return std::nullopt;
    if (LooksWhole(*name) && !WholeNumberOf(*name)) {
        Fault(column, Quoted(*name) + " is beyond the whole numbers of 32 bits");
        return std::nullopt;
    }
    if (name->size() > kLongest) {
        Fault(column, Quoted(*name) + " is longer than " + std::to_string(kLongest) + " bytes");
        return std::nullopt;
    }
    return name;
}

std::optional<std::size_t> TableReader::Place(std::size_t column, const NameNumbers& names,
                                              const char* what, TableName of, bool isRead) {
    const std::string_view bytes = Bytes(column);
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    const auto place =
        std::ranges::all_of(bytes, isAscii) ? names.Find(bytes) : names.Find(TextOrNothing(column));
    if (place) return place;
    if (bytes.empty())
        Fault(column, std::string("no value under ") + NameOf(column) + "; a " + what + " of " +
                          FileNameOf(of) + " is expected");
    else if (isRead)
        Fault(column, std::string("unknown ") + what + " " + Quoted(TextOrNothing(column)) +
                          "; one of " + FileNameOf(of) + " is expected");
    return std::nullopt;
}

std::optional<double> TableReader::Number(std::size_t column) {
    const CellNumber number = NumberOf(Bytes(column));
    if (number.fault == NumberFault::kNone) return number.value;
    Fault(column, NameOf(column) + ": " + TextOf(number.fault, TextOrNothing(column)));
    return std::nullopt;
}

std::optional<std::int32_t> TableReader::WholeNumber(std::size_t column) {
    const auto number = WholeNumberOf(Bytes(column));
    if (number) return number;
    const std::string text = TextOrNothing(column);
    Fault(column, NameOf(column) + ": " +
                      (text.empty() ? "no value" : Quoted(text) + " is no whole number") +
                      "; a whole number of 32 bits is expected");
    return std::nullopt;
}

TablePlace TableReader::PlaceOf(std::size_t column) const {
    const auto& fields = rows_->Fields();
    return column < fields.size() ? rows_->PlaceAt(fields[column].at) : rows_->PlaceOfEnd();
}

void TableReader::Fault(std::size_t column, const std::string& text) {
    faults_.Add(table_, PlaceOf(column), text);
}
