#include "sheet/table.h"

#include <array>
#include <charconv>
#include <numeric>
#include <utility>

#include "report/number_text.h"
#include "route2/records.h"
#include "sheet/html.h"
#include "sheet/length_text.h"

using std::string_view_literals::operator""sv;

namespace {

constexpr std::string_view kRows = "<tbody>\n";
constexpr std::string_view kRowsTogether = "<tbody class=\"together\">\n";

// `opening`: up to the number, as in ` rowspan="`.
void AppendNumber(std::string& html, std::string_view opening, std::int32_t value) {
    std::array<char, 16> digits{};
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    *end++ = '"';
    html += opening;
    html += std::string_view(digits.data(), end);
}

// The attributes of a place but for its key.
void AppendPlace(std::string& html, const FigurePlace& place) {
    if (place.story) AppendNumber(html, " data-story=\"", *place.story);
    if (place.axis)
        html += *place.axis == kX ? " data-direction=\"x\""sv : " data-direction=\"second\""sv;
    if (place.member) AppendNumber(html, " data-member=\"", *place.member);
}

// The same with the key, of which the quotation mark behind it is left to come.
void AppendFigureKey(std::string& html, std::string_view key) {
    html += " data-figure=\"";
    html += key;
}

void AppendFigureAttributes(std::string& html, const FigurePlace& place) {
    AppendFigureKey(html, place.key);
    html += '"';
    AppendPlace(html, place);
}

void OpenWithClass(std::string& html, std::string_view tag, std::string_view cssClass) {
    html += '<';
    html += tag;
    if (!cssClass.empty()) AppendAttribute(html, "class", cssClass);
}

void AppendSpan(std::string& html, std::string_view opening, int count) {
    if (count > 1) AppendNumber(html, opening, count);
}

std::string_view ClassOf(CodeVerdict verdict) {
    switch (verdict) {
        case CodeVerdict::kOk:
            return "verdict";
        case CodeVerdict::kNg:
            return "verdict ng";
        case CodeVerdict::kUndetermined:
            return "verdict open";
    }
    return {};
}

void AppendHeadCell(std::string& html, const HeadCell& cell) {
    html += "<th";
    AppendAttribute(html, "scope", cell.columns > 1 ? "colgroup" : "col");
    AppendSpan(html, " colspan=\"", cell.columns);
    AppendSpan(html, " rowspan=\"", cell.rows);
    html += '>';
    AppendInBoth(html, cell.words);
    html += cell.note;
    if (!cell.unit.empty()) html += Element("span", {{"class", "unit"}}, cell.unit);
    html += "</th>";
}

}  // namespace

std::string FigureAttributes(const FigurePlace& place) {
    std::string html;
    AppendFigureAttributes(html, place);
    return html;
}

Table::Table(std::string_view key, Words caption, std::vector<double> widths,
             std::string_view cssClass) {
    OpenWithClass(html_, "table", cssClass);
    AppendAttribute(html_, "data-table", key);
    html_ += '>';
    if (!caption.ja.empty()) html_ += Element("caption", {}, InBoth(caption));
    const double sum = std::accumulate(widths.begin(), widths.end(), 0.0);
    html_ += "<colgroup>";
    for (const double width : widths)
        html_ += "<col style=\"width:" + LengthText(100.0 * width / sum) + "%\">";
    html_ += "</colgroup>\n";
}

void Table::HeadRow(const std::vector<HeadCell>& cells) {
    Enter(Part::kHead, "<thead>\n");
    html_ += "<tr>";
    for (const HeadCell& cell : cells)
        AppendHeadCell(html_, cell);
    html_ += "</tr>\n";
}

std::string& Table::OpenRow(std::string_view attributes) {
    Enter(Part::kRows, kRows);
    lastRow_ = html_.size();
    for (const std::string_view part : {"<tr"sv, attributes, ">"sv})
        html_ += part;
    return html_;
}

void Table::CloseRow() {
    html_ += "</tr>\n";
}

void Table::Row(std::string_view cells, std::string_view attributes) {
    OpenRow(attributes) += cells;
    CloseRow();
}

void Table::Together(const std::vector<std::string>& rowsOfCells) {
    Leave();
    Enter(Part::kRows, kRowsTogether);
    for (const std::string& cells : rowsOfCells)
        Row(cells);
    Leave();
}

void Table::SumRow(std::string_view cells) {
    if (part_ == Part::kRows) {
        // The last row begins a group of its own.
        const std::string last = html_.substr(lastRow_);
        html_.resize(lastRow_);
        if (html_.ends_with(kRows)) {
            html_.resize(html_.size() - kRows.size());
            part_ = Part::kNone;
        }
        Leave();
        Enter(Part::kRows, kRowsTogether);
        html_ += last;
    } else {
        Enter(Part::kRows, kRowsTogether);
    }
    Row(cells, " class=\"sum\"");
    Leave();
}

std::string Table::TakeHtml() {
    Leave();
    html_ += "</table>\n";
    return std::move(html_);
}

void Table::Enter(Part part, std::string_view opening) {
    if (part_ == part) return;
    Leave();
    html_ += opening;
    part_ = part;
}

void Table::Leave() {
    if (part_ != Part::kNone) html_ += part_ == Part::kHead ? "</thead>\n" : "</tbody>\n";
    part_ = Part::kNone;
}

void AppendRowHead(std::string& cells, std::string_view html, int rows) {
    cells += "<th scope=\"row\"";
    AppendSpan(cells, " rowspan=\"", rows);
    cells += '>';
    cells += html;
    cells += "</th>";
}

std::string RowHead(std::string_view html, int rows) {
    std::string cell;
    AppendRowHead(cell, html, rows);
    return cell;
}

std::string StoryHead(const std::string& name, int rows) {
    return RowHead(HtmlText(name), rows);
}

std::string Cell(std::string_view html, std::string_view cssClass) {
    std::string cell;
    OpenWithClass(cell, "td", cssClass);
    cell += '>';
    cell += html;
    cell += "</td>";
    return cell;
}

void AppendNumberCell(std::string& html, std::string_view text, std::string_view cssClass) {
    OpenWithClass(html, "td", cssClass);
    html += '>';
    AppendHtmlText(html, text);
    html += "</td>";
}

std::string NumberCell(std::string_view text, std::string_view cssClass) {
    std::string cell;
    AppendNumberCell(cell, text, cssClass);
    return cell;
}

void FigureRow::MoveTo(const FigurePlace& place) {
    place_ = '"';
    AppendPlace(place_, place);
    place_ += '>';
}

void FigureRow::AppendCell(std::string& html, std::string_view key, std::string_view text,
                           std::string_view cssClass) const {
    OpenWithClass(html, "td", cssClass);
    AppendFigureKey(html, key);
    html += place_;
    AppendHtmlText(html, text);
    html += "</td>";
}

std::string FigureCell(const FigurePlace& place, std::string_view text, std::string_view cssClass,
                       std::string_view moreAttributes) {
    std::string cell;
    cell.reserve(160);  // most are shorter
    OpenWithClass(cell, "td", cssClass);
    AppendFigureAttributes(cell, place);
    cell += moreAttributes;
    cell += '>';
    AppendHtmlText(cell, text);
    cell += "</td>";
    return cell;
}

std::string_view TextInSheet(CodeVerdict verdict) {
    return verdict == CodeVerdict::kUndetermined ? "算定不可" : TextOf(verdict);
}

std::string TextInSheet(const std::optional<ToolVerdict>& verdict) {
    return verdict ? TextOf(*verdict) : kNoFigure;
}

std::string VerdictCell(const FigurePlace& place, CodeVerdict code, std::string_view toolKey,
                        const std::optional<ToolVerdict>& tool, std::string_view notes) {
    std::string cssClass(ClassOf(code));
    if (!notes.empty()) cssClass += " differs";
    FigurePlace toolPlace = place;
    toolPlace.key = toolKey;
    std::string cell;
    OpenWithClass(cell, "td", cssClass);
    AppendFigureAttributes(cell, place);
    cell += '>';
    cell += TextInSheet(code);
    cell += "<small";
    AppendFigureAttributes(cell, toolPlace);
    cell += '>';
    cell += TextInSheet(tool);
    cell += "</small>";
    cell += notes;
    cell += "</td>";
    return cell;
}
