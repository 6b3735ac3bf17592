#include "input/whole_file_rules.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>

#include "input/block_rules.h"
#include "input/keywords.h"
#include "input/line_text.h"

namespace {

// --- Other kinds of files

bool IsUtf16(std::string_view text) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) return true;
    // ASCII in UTF-16 has a NUL in every second byte.
    constexpr std::size_t kLookedAt = 256;
    const std::string_view start =
        text.substr(0, std::min(text.size() & ~std::size_t{1}, kLookedAt));
    if (start.size() < 4) return false;
    const auto hasNulsFrom = [start](std::size_t first) {
        for (std::size_t i = first; i < start.size(); i += 2)
            if (start[i] != '\0') return false;
        return true;
    };
    return hasNulsFrom(0) != hasNulsFrom(1);
}

bool HasOnlyCarriageReturns(std::string_view text) {
    const std::size_t first = text.find('\r');
    return first != std::string_view::npos && first + 1 < text.size() &&
           text.find('\n') == std::string_view::npos;
}

// What a run or a recorder writes, given in place of an input file.
bool IsAnotherFile(std::string_view text) {
    const std::size_t first = text.find_first_not_of("\r\n");
    if (first == std::string_view::npos) return false;
    const std::string_view start = text.substr(first);
    for (const std::string_view report : {" -----", "ORVEK", "*** WARNING ***"})
        if (start.starts_with(report)) return true;
    const bool isJson = text.find_first_not_of(" \t\r\n\xEF\xBB\xBF") != std::string_view::npos &&
                        text[text.find_first_not_of(" \t\r\n\xEF\xBB\xBF")] == '{';
    return isJson && text.find("\"quarnel-host-model\"") != std::string_view::npos;
}

// --- The end of the data

bool HasFinLater(const InputView& view) {
    return view.text.Text().find("\nFIN") != std::string::npos ||
           view.text.Text().size() >= kMostInputBytes;
}

void CheckMissingFin(const InputView& view, LintFindingList& findings) {
    const auto meant = FindMeantFin(view.read, view.text);
    if (!meant) return findings.Add(FindingOf(FileRule::kF02, kWholeFile));
    const InputLine& line = view.read.lines[*meant];
    findings.Add(FindingOf(FileRule::kF03, line.Place())
                     .With("n", std::to_string(line.number))
                     .Write(std::string(kFin)));
}

// A longer word that begins like FIN.
bool IsLongerWord(const InputLine& fin) {
    if (fin.text.size() == kFin.size()) return false;
    const auto next = static_cast<unsigned char>(fin.text[kFin.size()]);
    return std::isalnum(next) != 0 || next == '_';
}

struct LinesAfterFin {
    std::size_t words = 0;  // lines that are not blank
    std::size_t keywords = 0;
    std::size_t firstLine = 0;  // counted from the one after FIN; 0: there is none
};

// The rest of a FIN line that was cut is no line of its own.
std::string_view WithoutRestOfFin(const InputLines& read) {
    if (!read.fin.isContinued) return read.afterFin;
    const std::size_t feed = read.afterFin.find('\n');
    return feed == std::string_view::npos ? std::string_view() : read.afterFin.substr(feed + 1);
}

LinesAfterFin CountLinesAfterFin(const InputLines& read) {
    LinesAfterFin count;
    std::string_view text = WithoutRestOfFin(read);
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (IsBlankRow(line)) continue;
        ++count.words;
        if (count.firstLine == 0) count.firstLine = number;
        const std::size_t comma = line.find(',');
        if (comma != std::string_view::npos && FindKeyword(line.substr(0, comma))) ++count.keywords;
    }
    return count;
}

void CheckTextAfterFin(const InputView& view, LintFindingList& findings) {
    const LinesAfterFin count = CountLinesAfterFin(view.read);
    if (count.words == 0) return;
    if (IsLongerWord(view.read.fin) && count.keywords > 0)
        return findings.Add(FindingOf(FileRule::kF04, view.read.fin.Place())
                                .With("k", std::to_string(count.keywords)));
    const std::size_t line = view.read.fin.number + count.firstLine;
    const FileRule rule = count.keywords > 0 ? FileRule::kF05WithKeywords : FileRule::kF05;
    findings.Add(FindingOf(rule, {line, 0, view.text.Line(line).size()})
                     .With("k", std::to_string(count.words)));
}

// --- The bytes

void CheckByteOrderMark(const InputView& view, LintFindingList& findings) {
    if (!view.text.HasByteOrderMark()) return;
    const bool isTold =
        !view.meanings.empty() && view.meanings.front().slip == FileRule::kF07AtKeyword;
    if (isTold) return;
    const std::string_view first = view.text.Line(1);
    const bool hidesFin = first.starts_with(kFin);
    if (hidesFin)
        findings.Add(FindingOf(FileRule::kF07AtKeyword, {1, 0, first.size()})
                         .With("keyword", std::string(kFin)));
    else
        findings.Add(FindingOf(FileRule::kF07, {1, 0, first.size()}));
}

InputPlace PlaceOfByte(const InputText& text, std::size_t position) {
    const std::string_view before = std::string_view(text.Text()).substr(0, position);
    const std::size_t feed = before.rfind('\n');
    const std::size_t start = feed == std::string_view::npos ? 0 : feed + 1;
    const auto number = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1;
    return {number, position - start, 1};
}

void CheckCharacters(const InputText& text, LintFindingList& findings) {
    std::size_t fault = text.Text().find('\0');
    if (text.Encoding().encoding == TextEncoding::kUnknown)
        fault = std::min(fault, text.Encoding().faultAt);
    if (fault == std::string::npos) return;
    findings.Add(FindingOf(FileRule::kF16, PlaceOfByte(text, fault)));
}

// --- The lines

void CheckSameCommas(const InputView& view, LintFindingList& findings) {
    const auto& lines = view.read.lines;
    if (!view.read.hasFin || lines.empty() || !view.read.fin.HasComma()) return;
    const bool isSame = std::ranges::all_of(
        lines, [&view](const InputLine& line) { return line.commas == view.read.fin.commas; });
    if (isSame) findings.Add(FindingOf(FileRule::kF14, kWholeFile));
}

}  // namespace

bool CheckKindOfFile(const InputText& text, LintFindingList& findings) {
    if (IsUtf16(text.Text()))
        findings.Add(FindingOf(FileRule::kF06, kWholeFile));
    else if (HasOnlyCarriageReturns(text.Text()))
        findings.Add(FindingOf(FileRule::kF08, kWholeFile));
    else if (IsAnotherFile(text.Text()))
        findings.Add(FindingOf(FileRule::kF15, kWholeFile));
    else
        return false;
    return true;
}

void CheckWholeFile(const InputView& view, LintFindingList& findings) {
    CheckByteOrderMark(view, findings);
    CheckCharacters(view.text, findings);
    if (view.read.hasFin) {
        CheckTextAfterFin(view, findings);
        CheckSameCommas(view, findings);
    } else if (!view.read.isTooLong) {
        const bool isHidden = view.text.HasByteOrderMark() && view.text.Line(1).starts_with(kFin);
        if (!isHidden) CheckMissingFin(view, findings);
    } else {
        const std::size_t line = view.read.lines.back().number;
        findings.Add(FindingOf(FileRule::kF13, {line, 0, view.text.Line(line).size()}));
        if (!HasFinLater(view)) CheckMissingFin(view, findings);
    }
}
