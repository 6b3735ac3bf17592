#include "tables/table_writer.h"

#include <charconv>
#include <stdexcept>

namespace {

constexpr std::size_t kBlock = 65536;

bool NeedsMarks(std::string_view text) {
    return text.find_first_of(",;\t\"\r\n") != std::string_view::npos || text.starts_with('#') ||
           text.starts_with(' ') || text.ends_with(' ');
}

template <typename Value>
void AppendNumber(std::string& text, Value value) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value);
    text.append(std::begin(digits), end.ptr);
}

}  // namespace

TableWriter::TableWriter(const std::string& path) : path_(path), file_(OpenStdioFile(path, "wb")) {
    if (!file_) throw std::runtime_error(path + ": cannot be written");
}

void TableWriter::BeginField() {
    if (!isRowEmpty_) row_ += ',';
    isRowEmpty_ = false;
}

void TableWriter::Text(std::string_view text) {
    BeginField();
    if (!NeedsMarks(text)) {
        row_ += text;
        return;
    }
    row_ += '"';
    for (const char c : text)
        row_.append(c == '"' ? 2 : 1, c);
    row_ += '"';
}

void TableWriter::WholeNumber(std::int32_t number) {
    BeginField();
    AppendNumber(row_, number);
}

void TableWriter::Number(double number) {
    BeginField();
    AppendNumber(row_, number);
}

void TableWriter::Numbers(std::span<const double> numbers) {
    for (const double number : numbers)
        Number(number);
}

void TableWriter::EndRow() {
    row_ += '\n';
    isRowEmpty_ = true;
    if (row_.size() > kBlock) Flush();
}

void TableWriter::Flush() {
    std::fwrite(row_.data(), 1, row_.size(), file_.get());
    row_.clear();
}

void TableWriter::Finish() {
    Flush();
    const bool isWritten = std::ferror(file_.get()) == 0;
    const bool isClosed = std::fclose(file_.release()) == 0;
    if (!isWritten || !isClosed)
        throw std::runtime_error(path_ + ": cannot be written to its end; has the disk room?");
}
