#include "sheet/table.h"

#include <array>
#include <charconv>
#include <numeric>

#include "report/number_text.h"
#include "route2/records.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/length_text.h"

namespace {

void AppendAttribute(std::string& html, std::string_view name, std::string_view value) {
    html += ' ';
    html += name;
    html += "=\"";
    html += value;
    html += '"';
}

void AppendNumber(std::string& html, std::string_view name, std::int32_t value) {
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    AppendAttribute(html, name, {digits.data(), end});
}

void AppendFigureAttributes(std::string& html, const FigurePlace& place) {
    AppendAttribute(html, "data-figure", place.key);
    if (place.story) AppendNumber(html, "data-story", *place.story);
    if (place.axis) AppendAttribute(html, "data-direction", *place.axis == kX ? "x" : "second");
    if (place.member) AppendNumber(html, "data-member", *place.member);
}

std::string OpenCell(std::string_view tag, std::string_view cssClass) {
    std::string html;
    html.reserve(160);  // most cells are shorter
    html += '<';
    html += tag;
    if (!cssClass.empty()) AppendAttribute(html, "class", cssClass);
    return html;
}

std::string Attribute(std::string_view name, std::string_view value) {
    std::string html;
    AppendAttribute(html, name, value);
    return html;
}

std::string Span(std::string_view name, int count) {
    return count > 1 ? Attribute(name, std::to_string(count)) : std::string();
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

std::string HeadCellHtml(const HeadCell& cell) {
    std::string html = "<th";
    html += Attribute("scope", cell.columns > 1 ? "colgroup" : "col");
    html += Span("colspan", cell.columns) + Span("rowspan", cell.rows) + ">";
    html += InBoth(cell.words) + cell.note;
    if (!cell.unit.empty()) html += Element("span", {{"class", "unit"}}, cell.unit);
    return html + "</th>";
}

}  // namespace

std::string FigureAttributes(const FigurePlace& place) {
    std::string html;
    AppendFigureAttributes(html, place);
    return html;
}

Table::Table(std::string_view key, Words caption, std::vector<double> widths,
             std::string_view cssClass) {
    open_ = OpenCell("table", cssClass) + Attribute("data-table", key) + ">";
    if (!caption.ja.empty()) open_ += Element("caption", {}, InBoth(caption));
    const double sum = std::accumulate(widths.begin(), widths.end(), 0.0);
    open_ += "<colgroup>";
    for (const double width : widths)
        open_ += "<col style=\"width:" + LengthText(100.0 * width / sum) + "%\">";
    open_ += "</colgroup>";
}

void Table::HeadRow(const std::vector<HeadCell>& cells) {
    head_ += "<tr>";
    for (const HeadCell& cell : cells)
        head_ += HeadCellHtml(cell);
    head_ += "</tr>\n";
}

void Table::Row(std::string_view cells, std::string_view attributes) {
    rows_.push_back(Concat({"<tr", attributes, ">", cells, "</tr>\n"}));
}

void Table::Together(const std::vector<std::string>& rowsOfCells) {
    CloseRows();
    for (const std::string& cells : rowsOfCells)
        Row(cells);
    CloseRows("<tbody class=\"together\">\n");
}

void Table::SumRow(std::string_view cells) {
    std::string last;
    if (!rows_.empty()) {
        last = std::move(rows_.back());
        rows_.pop_back();
    }
    CloseRows();
    if (!last.empty()) rows_.push_back(std::move(last));
    Row(cells, " class=\"sum\"");
    CloseRows("<tbody class=\"together\">\n");
}

void Table::CloseRows(std::string_view open) {
    if (rows_.empty()) return;
    groups_ += open;
    for (const std::string& row : rows_)
        groups_ += row;
    groups_ += "</tbody>\n";
    rows_.clear();
}

std::string Table::Html() {
    CloseRows();
    std::string html = open_ + "\n";
    if (!head_.empty()) html += "<thead>\n" + head_ + "</thead>\n";
    return html + groups_ + "</table>\n";
}

std::string RowHead(std::string_view html, int rows) {
    std::string cell = "<th scope=\"row\"" + Span("rowspan", rows) + ">";
    cell += html;
    return cell + "</th>";
}

std::string StoryHead(const std::string& name, int rows) {
    return RowHead(HtmlText(name), rows);
}

std::string Cell(std::string_view html, std::string_view cssClass) {
    std::string cell = OpenCell("td", cssClass) + ">";
    cell += html;
    return cell + "</td>";
}

std::string NumberCell(std::string_view text, std::string_view cssClass) {
    std::string cell = OpenCell("td", cssClass);
    cell += '>';
    AppendHtmlText(cell, text);
    cell += "</td>";
    return cell;
}

std::string FigureCell(const FigurePlace& place, std::string_view text, std::string_view cssClass,
                       std::string_view moreAttributes) {
    std::string cell = OpenCell("td", cssClass);
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
    std::string cell = OpenCell("td", cssClass) + FigureAttributes(place) + ">";
    cell += TextInSheet(code);
    FigurePlace toolPlace = place;
    toolPlace.key = toolKey;
    cell += "<small" + FigureAttributes(toolPlace) + ">" + TextInSheet(tool) + "</small>";
    cell += notes;
    return cell + "</td>";
}
