#include "input/line_meaning.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <numeric>
#include <vector>

#include "input/line_text.h"
#include "platform/utf8_character.h"

namespace {

constexpr std::string_view kOtherSeparators = ";\t";
constexpr std::size_t kMostSlippedLetters = 2;

// The lines of the calculation sheet, which the readers pass over.
constexpr std::string_view kSheetPrefix = "Sheet";
constexpr std::string_view kSheetKeywords[] = {
    "SheetProject", "SheetDesigner", "SheetStoryName", "SheetFloorName", "SheetCaseName",
    "SheetGridX",   "SheetGridZ",    "SheetNote",      "SheetGround",
};

struct UsualSlip {
    std::string_view word;  // in small letters
    Keyword keyword;
};

constexpr UsualSlip kUsualSlips[] = {
    {"allowstorydeformationangle", Keyword::kAllowStoryDeformAngle},
    {"allowstorystiffnessratio", Keyword::kAllowStoryStiffRatio},
    {"allowstoryeccentricityratio", Keyword::kAllowStoryEccentricityModulus},
};

std::string InSmallLetters(std::string_view word) {
    std::string small(word);
    for (char& letter : small)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return small;
}

// How many letters must be changed, added or taken away to make one word of the other.
std::size_t LettersBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

bool IsNearly(std::string_view word, std::string_view name) {
    const std::size_t longer = std::max(word.size(), name.size());
    const std::size_t shorter = std::min(word.size(), name.size());
    return longer - shorter <= kMostSlippedLetters &&
           LettersBetween(word, InSmallLetters(name)) <= kMostSlippedLetters;
}

std::string_view WithoutByteOrderMark(const InputLine& line) {
    std::string_view text = line.text;
    if (line.number == 1 && !line.IsRest() && text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    return text;
}

std::string_view UpTo(std::string_view text, std::string_view separators) {
    return text.substr(0, text.find_first_of(separators));
}

LineMeaning SlippedKeyword(Keyword keyword, FileRule slip) {
    return {LineKind::kSlippedKeyword, keyword, slip, 0};
}

// A line whose first word is a keyword in full-width characters or in quotes, or followed by some.
std::optional<LineMeaning> FindDressedKeyword(std::string_view text, const InputText& all) {
    const TextEncoding encoding = all.Encoding().encoding;
    if (HasFullWidth(text, encoding)) {
        const std::string half = ToHalfWidth(text, encoding).text;
        const std::string_view written = UpTo(text, ",");
        const std::string_view word = Trimmed(UpTo(half, ",;\t"));
        // Full-width characters further on do not touch the keyword.
        if (HasFullWidth(written, encoding))
            if (const auto keyword = FindMeantKeyword(word))
                return SlippedKeyword(*keyword, FileRule::kF09);
    }
    const std::string_view first = UpTo(text, ",;\t");
    if (first.find('"') != std::string_view::npos)
        if (const auto keyword = FindMeantKeyword(WithoutQuotes(first)))
            return SlippedKeyword(*keyword, FileRule::kF11);
    return std::nullopt;
}

// Without blanks at both ends, and without the characters of UTF-8 that look like one or like
// nothing at all.
std::string_view WithoutInvisibleEnds(std::string_view text) {
    constexpr std::string_view kInvisible[] = {
        "\xC2\xA0",      // U+00A0, a blank that does not break a line
        "\xE2\x80\x8B",  // U+200B, a blank of no width
        kByteOrderMark,
    };
    for (std::size_t before = text.size() + 1; text.size() < before;) {
        before = text.size();
        text = Trimmed(text);
        for (const std::string_view character : kInvisible) {
            if (text.starts_with(character)) text.remove_prefix(character.size());
            if (text.ends_with(character)) text.remove_suffix(character.size());
        }
    }
    return text;
}

std::optional<LineMeaning> FindSlippedKeyword(std::string_view text, const InputText& all) {
    if (const auto dressed = FindDressedKeyword(text, all)) return dressed;
    const bool hasComma = text.find(',') != std::string_view::npos;
    const std::string_view first = WithoutInvisibleEnds(UpTo(text, ","));
    if (const auto keyword = FindKeyword(first))
        return SlippedKeyword(*keyword, hasComma ? FileRule::kK02 : FileRule::kK03);
    if (const auto keyword = FindKeyword(Trimmed(UpTo(first, kOtherSeparators))))
        return SlippedKeyword(*keyword, FileRule::kF10);
    const std::string_view word = hasComma ? first : UpTo(first, " ;\t");
    if (const auto keyword = FindKeyword(word)) return SlippedKeyword(*keyword, FileRule::kK03);
    // Two words without a comma are a heading.
    if (!hasComma && first.find(' ') != std::string_view::npos) return std::nullopt;
    if (const auto keyword = FindMeantKeyword(word))
        return SlippedKeyword(*keyword, FileRule::kK01);
    return std::nullopt;
}

std::optional<LineMeaning> FindSheetLine(std::string_view text) {
    const std::string_view first = UpTo(text, ",");
    if (first.size() == text.size() || !first.starts_with(kSheetPrefix)) return std::nullopt;
    LineMeaning meaning;
    meaning.kind = LineKind::kSheet;
    if (std::ranges::find(kSheetKeywords, first) == std::end(kSheetKeywords))
        meaning.slip = FileRule::kK09Unknown;
    return meaning;
}

LineMeaning MeaningOfNumber(const InputLine& line, const InputText& all) {
    LineMeaning meaning;
    meaning.kind = line.HasComma() ? LineKind::kStoryLine : LineKind::kBareNumber;
    meaning.story = ConvertWholeNumber(line.text).value;
    if (line.HasComma()) return meaning;
    if (HasFullWidth(line.text, all.Encoding().encoding))
        meaning.slip = FileRule::kF09;
    else if (Trimmed(line.text).find_first_of(" \t;") != std::string_view::npos)
        meaning.slip = FileRule::kF10;
    return meaning;
}

// The story number that a word was meant to be: digits, behind blanks, zeros or a plus, and before
// a letter or two, as in 1F.
std::optional<std::int32_t> FindMeantStory(std::string_view word) {
    constexpr std::size_t kLongestSuffix = 3;  // bytes: FL, or one Japanese character
    const WholeNumber number = ConvertWholeNumber(word);
    const std::string_view trimmed = Trimmed(word);
    const std::size_t digits = trimmed.find_first_not_of("+0123456789");
    const bool beginsWithDigits = !trimmed.empty() && digits != 0 && trimmed != "+";
    const std::size_t suffix = digits == std::string_view::npos ? 0 : trimmed.size() - digits;
    if (!beginsWithDigits || suffix > kLongestSuffix) return std::nullopt;
    return number.value;
}

// "Story1,101,102," or "0.005,": a word where the story number belongs, then numbers.
bool IsWordWithNumbers(const InputLine& line) {
    constexpr std::size_t kLongestWord = 12;  // bytes
    const std::vector<InputField> fields = FieldsOf(line);
    bool hasNumber = ConvertRealNumber(fields[0].text).isClean;
    for (std::size_t k = 1; k < fields.size(); ++k) {
        const bool isNumber = ConvertRealNumber(fields[k].text).isClean;
        if (!isNumber && !IsBlank(fields[k].text)) return false;
        hasNumber = hasNumber || isNumber;
    }
    return line.HasComma() && hasNumber && fields[0].text.size() <= kLongestWord;
}

std::optional<LineMeaning> FindSlippedStoryLine(std::string_view text, const InputText& all) {
    const TextEncoding encoding = all.Encoding().encoding;
    const std::string_view written = UpTo(text, ",");
    const bool hasFullWidth = HasFullWidth(written, encoding);
    const std::string half =
        hasFullWidth ? ToHalfWidth(written, encoding).text : std::string(written);
    const std::string first(UpTo(half, ","));
    if (written.size() == text.size() && first.size() == half.size()) return std::nullopt;
    const auto story = FindMeantStory(WithoutQuotes(first));
    if (!story) return std::nullopt;
    LineMeaning meaning;
    meaning.kind = LineKind::kSlippedStoryLine;
    meaning.story = *story;
    meaning.slip = hasFullWidth                           ? FileRule::kF09
                   : first.find('"') != std::string::npos ? FileRule::kF11
                                                          : FileRule::kS10NoStoryLine;
    return meaning;
}

bool IsMeantAsFin(const InputLine& line, const InputText& text) {
    const std::string half = ToHalfWidth(WithoutByteOrderMark(line), text.Encoding().encoding).text;
    const std::string word = InSmallLetters(WithoutQuotes(UpTo(half, ",;")));
    return word == "fin" || word == "end";
}

// The first field that is written in full width.
InputPlace PlaceOfFullWidth(const InputLine& line, const InputText& text) {
    for (const InputField& field : FieldsOf(line))
        if (HasFullWidth(field.text, text.Encoding().encoding)) return field.place;
    return line.Place();
}

InputPlace PlaceOfQuotes(const InputLine& line) {
    for (const InputField& field : FieldsOf(line))
        if (field.text.find('"') != std::string_view::npos) return field.place;
    return line.Place();
}

// What follows the keyword, with the comma between them; a colon or an equals sign stands for it.
std::string RestBehindKeyword(std::string_view line) {
    const std::size_t end = line.find_first_of(",:=");
    return end == std::string_view::npos ? "," : ',' + std::string(line.substr(end + 1));
}

// What stands between the quotes of one field is one number.
std::string WithoutQuotesAndTheirCommas(std::string_view line) {
    std::string bare;
    bool isQuoted = false;
    for (const char c : line) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (c != ',' || !isQuoted)
            bare += c;
    }
    return bare;
}

}  // namespace

std::optional<Keyword> FindMeantKeyword(std::string_view word) {
    const std::string small = InSmallLetters(Trimmed(word));
    for (const Keyword keyword : kAllKeywords)
        if (IsNearly(small, NameOf(keyword))) return keyword;
    for (const UsualSlip& slip : kUsualSlips)
        if (IsNearly(small, slip.word)) return slip.keyword;
    return std::nullopt;
}

LineMeaning MeaningOf(const InputLine& line, const InputText& text) {
    const std::string_view words = WithoutByteOrderMark(line);
    const bool hasMark = words.size() != line.text.size();
    if (IsBlankRow(words)) return {LineKind::kBlank, {}, {}, 0};
    if (line.HasComma())
        if (const auto keyword = FindKeyword(FirstFieldOf(line)))
            return {LineKind::kKeyword, keyword, {}, 0};
    if (hasMark && words.find(',') != std::string_view::npos)
        if (const auto keyword = FindKeyword(UpTo(words, ",")))
            return SlippedKeyword(*keyword, FileRule::kF07AtKeyword);
    if (const auto slipped = FindSlippedKeyword(words, text)) return *slipped;
    if (line.StartsWithStoryNumber()) return MeaningOfNumber(line, text);
    if (const auto sheet = FindSheetLine(line.text)) return *sheet;
    if (const auto slipped = FindSlippedStoryLine(words, text)) return *slipped;
    if (IsWordWithNumbers(line))
        return {LineKind::kSlippedStoryLine, {}, FileRule::kS10NoStoryLine, 0};
    return {};
}

std::optional<std::size_t> FindMeantFin(const InputLines& read, const InputText& text) {
    for (std::size_t i = read.lines.size(); i > 0; --i)
        if (IsMeantAsFin(read.lines[i - 1], text)) return i - 1;
    return std::nullopt;
}

LintFinding FindingOfSlip(const LineMeaning& meaning, const InputLine& line,
                          const InputText& text) {
    const FileRule slip = *meaning.slip;
    const std::string_view first = Trimmed(UpTo(WithoutByteOrderMark(line), ","));
    const std::string keyword(meaning.keyword ? NameOf(*meaning.keyword) : std::string_view());
    switch (slip) {
        case FileRule::kF07AtKeyword:
            return FindingOf(slip, line.Place()).With("keyword", keyword);
        case FileRule::kF09: {
            const auto half = ToHalfWidth(line.text, text.Encoding().encoding);
            return FindingOf(slip, PlaceOfFullWidth(line, text))
                .With("c", half.firstFullWidth)
                .Write(Repaired(line.text, text));
        }
        case FileRule::kF10:
            return FindingOf(slip, line.Place()).Write(Repaired(line.text, text));
        case FileRule::kF11:
            return FindingOf(slip, PlaceOfQuotes(line)).Write(Repaired(line.text, text));
        case FileRule::kK01:
            return FindingOf(slip, line.PlaceOf(UpTo(line.text, ",")))
                .With("w", text.Display(first))
                .Write(text.Display(keyword + RestBehindKeyword(line.text)));
        case FileRule::kK02:
            return FindingOf(slip, line.PlaceOf(UpTo(line.text, ",")))
                .Write(text.Display(keyword + RestBehindKeyword(line.text)));
        case FileRule::kK03:
            return FindingOf(slip, line.Place()).Write(Repaired(line.text, text));
        case FileRule::kK09Unknown:
            return FindingOf(slip, line.PlaceOf(UpTo(line.text, ",")))
                .With("w", text.Display(first));
        default:
            return FindingOf(slip, line.PlaceOf(UpTo(line.text, ",")));
    }
}

std::string Repaired(std::string_view line, const InputText& text) {
    std::string half = ToHalfWidth(line, text.Encoding().encoding).text;
    half = WithoutQuotesAndTheirCommas(half);
    std::ranges::replace_if(
        half, [](char c) { return c == ';' || c == '\t'; }, ',');
    std::string repaired;
    for (std::string_view rest = half;; rest.remove_prefix(UpTo(rest, ",").size() + 1)) {
        const std::string_view field = Trimmed(UpTo(rest, ","));
        repaired += field;
        if (UpTo(rest, ",").size() == rest.size()) break;
        repaired += ',';
    }
    std::ranges::replace(repaired, ' ', ',');
    return WithFinalComma(repaired);
}

std::string WithFinalComma(const std::string& line) {
    return line.ends_with(',') ? line : line + ',';
}

std::optional<LintFinding> FindSlipOfValue(const InputText& text, const InputLine& line,
                                           const InputField& field) {
    if (HasFullWidth(field.text, text.Encoding().encoding)) {
        const auto half = ToHalfWidth(field.text, text.Encoding().encoding);
        return FindingOf(FileRule::kF09, field.place)
            .With("c", half.firstFullWidth)
            .Write(Repaired(line.text, text));
    }
    if (field.text.find('"') == std::string_view::npos) return std::nullopt;
    return FindingOf(FileRule::kF11, field.place).Write(Repaired(line.text, text));
}

InputPlace PlaceToMark(const InputField& field) {
    InputPlace place = field.place;
    if (place.length == 0) place.length = 1;
    return place;
}
