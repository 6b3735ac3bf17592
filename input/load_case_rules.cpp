#include "input/load_case_rules.h"

#include <algorithm>
#include <vector>

#include "input/block_rules.h"
#include "input/input_readers.h"
#include "input/keywords.h"
#include "input/line_text.h"
#include "input/number_text.h"

namespace {

std::vector<const InputLine*> LinesOf(const InputView& view, Keyword keyword) {
    std::vector<const InputLine*> lines;
    for (std::size_t i = 0; i < view.meanings.size(); ++i)
        if (view.meanings[i].kind == LineKind::kKeyword && view.meanings[i].keyword == keyword)
            lines.push_back(&view.read.lines[i]);
    return lines;
}

bool HasLineOf(Keyword keyword, std::string_view text) {
    const std::string start = std::string(NameOf(keyword)) + ',';
    return text.starts_with(start) || text.find('\n' + start) != std::string_view::npos;
}

// Somebody wrote such a line: another finding says why it is not read.
bool IsMeant(const InputView& view, Keyword keyword) {
    const auto isMeant = [keyword](const LineMeaning& meaning) {
        return meaning.kind == LineKind::kSlippedKeyword && meaning.keyword == keyword;
    };
    return std::ranges::any_of(view.meanings, isMeant) || HasLineOf(keyword, view.read.afterFin);
}

// The last line of a keyword, which counts; those before it are told.
const InputLine* FindLineThatCounts(const InputView& view, Keyword keyword, FileRule whenMissing,
                                    LintFindingList& findings) {
    const std::vector<const InputLine*> lines = LinesOf(view, keyword);
    if (lines.empty()) {
        if (!IsMeant(view, keyword)) findings.Add(FindingOf(whenMissing, kWholeFile));
        return nullptr;
    }
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
        findings.Add(FindingOf(FileRule::kK07LastCounts, lines[i]->Place()));
    return lines.back();
}

bool IsCaseNumber(const InputField& field) {
    const WholeNumber number = ConvertWholeNumber(field.text);
    return number.isClean && number.value >= 1;
}

// Full-width characters or quotes in the values that are read: then nothing else is said.
bool AddSlipOfValues(const InputView& view, const InputLine& line, std::size_t values,
                     LintFindingList& findings) {
    const std::vector<InputField> fields = FieldsOf(line);
    for (std::size_t k = 1; k < std::min(fields.size(), values + 1); ++k) {
        if (const auto slip = FindSlipOfValue(view.text, line, fields[k])) {
            findings.Add(*slip);
            return true;
        }
    }
    return false;
}

// True when the field is a case number.
bool CheckCaseNumber(const InputView& view, const InputField& field, LintFindingList& findings) {
    if (IsCaseNumber(field)) return true;
    findings.Add(FindingOf(FileRule::kL04, PlaceToMark(field))
                     .With("t", view.text.Display(Trimmed(field.text)))
                     .With("n", std::to_string(ToInteger(std::string(field.text)))));
    return false;
}

void CheckFurtherValues(const InputLine& line, std::size_t values, LintFindingList& findings) {
    const std::vector<InputField> fields = FieldsOf(line);
    for (std::size_t k = values + 1; k < fields.size(); ++k) {
        if (IsBlank(fields[k].text)) continue;
        findings.Add(FindingOf(FileRule::kL07, fields[k].place).With("n", std::to_string(values)));
        return;
    }
}

// The field of the dead load case number, when it is one.
std::optional<InputField> CheckDeadLoadCase(const InputView& view, const InputLine& line,
                                            LintFindingList& findings) {
    if (AddSlipOfValues(view, line, 1, findings)) return std::nullopt;
    const InputField field = FieldsOf(line)[1];
    const bool isSound = CheckCaseNumber(view, field, findings);
    CheckFurtherValues(line, 1, findings);
    return isSound ? std::optional(field) : std::nullopt;
}

bool CheckSecondCase(const InputView& view, const std::vector<InputField>& fields,
                     LintFindingList& findings) {
    const std::string first = view.text.Display(Trimmed(fields[1].text));
    const std::string start = std::string(NameOf(Keyword::kEarthquakeLoadCaseNumber)) + ',';
    const bool hasSecond = fields.size() > 2;
    if (hasSecond && !IsBlank(fields[2].text)) return CheckCaseNumber(view, fields[2], findings);
    if (hasSecond)
        findings.Add(FindingOf(FileRule::kL03, PlaceToMark(fields[2])));
    else if (!IsBlank(fields[1].text))
        findings.Add(FindingOf(FileRule::kL02, fields[1].place).Write(start + first + ",?,"));
    return false;
}

// The fields of the two case numbers, when both are such.
std::optional<std::pair<InputField, InputField>> CheckEarthquakeLoadCases(
    const InputView& view, const InputLine& line, LintFindingList& findings) {
    if (AddSlipOfValues(view, line, 2, findings)) return std::nullopt;
    const std::vector<InputField> fields = FieldsOf(line);
    const bool isFirstSound = CheckCaseNumber(view, fields[1], findings);
    const bool isSecondSound = CheckSecondCase(view, fields, findings);
    CheckFurtherValues(line, 2, findings);
    if (!isFirstSound || !isSecondSound) return std::nullopt;
    return std::pair(fields[1], fields[2]);
}

std::int32_t NumberIn(const InputField& field) {
    return ToInteger(std::string(field.text));
}

}  // namespace

std::optional<CaseRepeat> FindCaseRepeat(const InputText& text) {
    InputFile file = InputFile::OfText(text.Text());
    std::size_t index = 0;
    std::pair<std::int32_t, std::int32_t> cases;
    std::optional<CaseRepeat> repeat;
    ReadLines(file, [&](InputFile& line) -> std::optional<ReadingEnd> {
        if (line.IsAtEnd()) return ReadingEnd::kDone;
        if (line.IsLineOf(Keyword::kEarthquakeLoadCaseNumber)) {
            if (line.HasComma()) repeat.reset();
            const auto before = cases;
            cases.first = ToInteger(line.Value(1));
            cases.second = ToInteger(line.Value(2));
            if (!line.HasComma() && cases != before) repeat = {index, cases.second};
        }
        ++index;
        return std::nullopt;
    });
    return repeat;
}

void CheckLoadCases(const InputView& view, LintFindingList& findings) {
    const InputLine* const deadLine =
        FindLineThatCounts(view, Keyword::kDeadLoadCaseNumber, FileRule::kK05, findings);
    const InputLine* const earthquakeLine =
        FindLineThatCounts(view, Keyword::kEarthquakeLoadCaseNumber, FileRule::kK06, findings);
    const auto dead = deadLine ? CheckDeadLoadCase(view, *deadLine, findings) : std::nullopt;
    const auto earthquake =
        earthquakeLine ? CheckEarthquakeLoadCases(view, *earthquakeLine, findings) : std::nullopt;
    if (!earthquake) return;
    const std::int32_t x = NumberIn(earthquake->first);
    const std::int32_t second = NumberIn(earthquake->second);
    if (x == second) findings.Add(FindingOf(FileRule::kL05, earthquake->second.place));
    if (dead && (NumberIn(*dead) == x || NumberIn(*dead) == second))
        findings.Add(FindingOf(FileRule::kL06, dead->place));
}
