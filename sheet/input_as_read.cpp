#include "sheet/input_as_read.h"

#include <algorithm>
#include <map>
#include <set>

#include "input/input_line.h"
#include "input/input_readers.h"
#include "input/line_meaning.h"
#include "input/line_text.h"
#include "input/lint_finding_text.h"
#include "report/number_text.h"
#include "route2/code_verdict.h"
#include "sheet/texts.h"

namespace {

using Kind = InputLineNote::Kind;

class Reader {
public:
    Reader(const InputCheck& check, const Findings& findings)
        : check_(check), text_(check.text), findings_(findings) {}

    InputAsRead Read() {
        TakeLines();
        TakeLoadCases();
        TakeFloorLevels();
        TakeStoryMembers();
        TakeAllowables();
        TakeReportedMembers();
        TakeFindings();
        TakeOtherLines();
        std::ranges::stable_sort(input_.notes, {}, &InputLineNote::line);
        return std::move(input_);
    }

private:
    InputFile File() const { return InputFile::OfText(text_.Text()); }

    void Taken(std::size_t line, const FilledWords& words) {
        input_.notes.push_back({line, Kind::kTaken, {}, words.ja, words.en});
        told_.insert(line);
    }

    void Default(const FilledWords& words) {
        input_.defaults.push_back({0, Kind::kTaken, {}, words.ja, words.en});
    }

    // A text that ends with a line feed has no further line.
    void TakeLines() {
        const auto feeds = std::ranges::count(text_.Text(), '\n');
        const bool endsOpen = !text_.Text().empty() && text_.Text().back() != '\n';
        const std::size_t lines = static_cast<std::size_t>(feeds) + (endsOpen ? 1 : 0);
        for (std::size_t number = 1; number <= lines; ++number)
            input_.lines.push_back(text_.Display(text_.Line(number)));
    }

    void TakeLoadCases() {
        const LoadCaseFindings& cases = findings_.loadCases;
        if (!cases.inputRead) return;
        InputFile file = File();
        const LoadCaseNumbers read = ReadLoadCaseNumbers(file);
        const auto dead = Filled(Text("dead case is"), {{"n", std::to_string(cases.dead)}});
        const auto earthquake = Filled(Text("earthquake cases are"),
                                       {{"x", std::to_string(cases.earthquake[kX])},
                                        {"d", std::string(1, findings_.SecondDirection())},
                                        {"second", std::to_string(cases.earthquake[kZ])}});
        if (read.dead)
            Taken(read.dead->place.line, dead);
        else
            Default(dead);
        if (!read.earthquake) return Default(earthquake);
        std::set<std::size_t> lines;
        for (const auto& number : *read.earthquake)
            lines.insert(number.place.line);
        for (const std::size_t line : lines)
            Taken(line, earthquake);
    }

    std::string Levels() const {
        std::string levels;
        for (const double level : findings_.floorLevels)
            levels += (levels.empty() ? "" : ", ") + LevelText(level);
        return levels;
    }

    void TakeFloorLevels() {
        InputFile file = File();
        const FloorLevelList read = ReadFloorLevels(file);
        const std::string levels = Levels();
        if (levels.empty()) return;
        if (findings_.floorLevelsFromInput && !read.levels.empty())
            Taken(read.levels.front().place.line, Filled(Text("floors are"), {{"levels", levels}}));
        else
            Default(Filled(Text("floors of the model"), {{"levels", levels}}));
    }

    void TakeStoryMembers() {
        if (!findings_.storyMembersFromInput) {
            if (!findings_.stories.empty()) Default(Filled(Text("members of the model"), {}));
            return;
        }
        InputFile file = File();
        const StoryMemberBlock block = ReadStoryMembers(file, findings_.stories.size());
        if (block.line == 0) return;
        Taken(block.line, Filled(Text("block of story members"), {}));
        std::map<std::pair<std::size_t, std::int32_t>, std::size_t> counts;
        for (const StoryMemberBlock::Entry& entry : block.entries)
            ++counts[{entry.member.place.line, entry.story}];
        for (const auto& [where, count] : counts)
            Taken(where.first,
                  Filled(Text("members of a story"),
                         {{"story", std::to_string(where.second)}, {"n", CountText(count)}}));
    }

    static Words NameOfLimit(Keyword keyword) {
        if (keyword == Keyword::kAllowStoryDeformAngle) return Text("allowable angle");
        if (keyword == Keyword::kAllowStoryStiffRatio) return Text("allowable ratio");
        return Text("allowable modulus");
    }

    static std::string LimitText(Keyword keyword, double value) {
        if (keyword != Keyword::kAllowStoryDeformAngle) return InputValueText(value);
        return AllowableAngleText(value) + " (" + InputValueText(value) + ")";
    }

    void TakeAllowables() {
        InputFile file = File();
        const AllowableValueList read = ReadAllowableValues(file, findings_.stories.size());
        std::set<Keyword> keywords;
        for (const AllowableValueList::Entry& entry : read.entries) {
            keywords.insert(entry.keyword);
            Taken(entry.value.place.line,
                  Filled(Text("limit of a story"),
                         {{"story", std::to_string(entry.story)},
                          {"limit", NameOfLimit(entry.keyword)},
                          {"value", LimitText(entry.keyword, entry.value.value)}}));
        }
        const struct {
            Keyword keyword;
            double value;
        } defaults[] = {{Keyword::kAllowStoryDeformAngle, kCodeDeformAngle},
                        {Keyword::kAllowStoryStiffRatio, kCodeStiffnessRatio},
                        {Keyword::kAllowStoryEccentricityModulus, kCodeEccentricityModulus}};
        for (const auto& [keyword, value] : defaults)
            if (!keywords.contains(keyword))
                Default(Filled(
                    Text("limit of all stories"),
                    {{"limit", NameOfLimit(keyword)}, {"value", LimitText(keyword, value)}}));
    }

    void TakeReportedMembers() {
        InputFile file = File();
        const ReportedMemberList read = ReadReportedMembers(file);
        if (read.members.empty()) return;
        Taken(read.members.front().place.line,
              Filled(Text("reported members"), {{"n", CountText(read.members.size())}}));
    }

    static Kind KindOf(LintKind kind) {
        switch (kind) {
            case LintKind::kNote:
                return Kind::kNote;
            case LintKind::kWarning:
                return Kind::kWarning;
            case LintKind::kError:
                return Kind::kError;
        }
        return Kind::kNote;
    }

    void TakeFindings() {
        for (const LintFinding& finding : check_.findings) {
            const InputLineNote note{finding.place.line, KindOf(finding.rule->kind),
                                     std::string(finding.rule->id),
                                     MessageOf(finding, text_, Language::kJapanese),
                                     MessageOf(finding, text_, Language::kEnglish)};
            if (note.line == 0) continue;  // it stands among the remarks
            // That a line is passed over is said of it anyway.
            if (note.kind == Kind::kNote && !told_.contains(note.line)) continue;
            input_.notes.push_back(note);
            told_.insert(note.line);
        }
    }

    // Why a line sets nothing.
    Words WhyNotRead(const InputLine& line) const {
        switch (MeaningOf(line, text_).kind) {
            case LineKind::kBlank:
                return {};
            case LineKind::kSheet:
                return Text("line of the sheet");
            case LineKind::kKeyword:
                return IsAllowableKeyword(*MeaningOf(line, text_).keyword)
                           ? Text("block of limits")
                           : Text("not read: overridden");
            case LineKind::kStoryLine:
            case LineKind::kBareNumber:
                return Text("not read: no block");
            default:
                return Text("not read: no keyword");
        }
    }

    // The lines that the readers took nothing from, unless the check says why.
    void TakeOtherLines() {
        const InputLines read = ReadInputLines(text_.Text());
        for (const InputLine& line : read.lines) {
            if (line.IsRest() || told_.contains(line.number)) continue;
            const Words why = WhyNotRead(line);
            if (!why.ja.empty()) Taken(line.number, Filled(why, {}));
        }
        if (!read.hasFin) return;
        Taken(read.fin.number, Filled(Text("end of the data"), {}));
        for (std::size_t line = read.fin.number + 1; line <= input_.lines.size(); ++line)
            if (!told_.contains(line) && !IsBlankRow(input_.lines[line - 1]))
                Taken(line, Filled(Text("not read: after FIN"), {}));
    }

    const InputCheck& check_;
    const InputText& text_;
    const Findings& findings_;
    InputAsRead input_;
    std::set<std::size_t> told_;  ///< lines of which something is said already
};

}  // namespace

InputAsRead FormInputAsRead(const InputCheck& check, const Findings& findings) {
    if (!check.isRead) return {};
    return Reader(check, findings).Read();
}
