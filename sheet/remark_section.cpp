// S7: every remark, and what to do about it.

#include <algorithm>

#include "report/number_text.h"
#include "sheet/concat.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/remark_parts.h"
#include "sheet/table.h"
#include "sheet/texts.h"

namespace {

constexpr std::size_t kMostListed = 12;
constexpr std::size_t kLongestRemark = 2000;  // characters

// The first of them, then how many more there are.
template <typename Number, typename NameOf>
std::string Listed(const std::vector<Number>& numbers, const NameOf& nameOf) {
    std::string list;
    for (std::size_t i = 0; i < std::min(numbers.size(), kMostListed); ++i)
        list += (i == 0 ? "" : ", ") + nameOf(numbers[i]);
    if (numbers.size() > kMostListed) list += " … +" + CountText(numbers.size() - kMostListed);
    return HtmlText(list);
}

std::string ListedMembers(const Remark& remark) {
    return Listed(remark.members, [](std::int32_t member) { return IdentifierText(member); });
}

// Remarks are written for terminals, too; the page has its own minus sign. A hyphen within a name
// or a line to be written into the input file stays.
std::string WithMinus(std::string_view text) {
    std::string written;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isMinus = text[i] == '-' && i > 0 && i + 1 < text.size() &&
                             (text[i - 1] == ' ' || text[i - 1] == '(') && text[i + 1] >= '0' &&
                             text[i + 1] <= '9';
        if (isMinus)
            written += kPageNumbers.minus;
        else
            written += text[i];
    }
    return written;
}

std::string TextIn(std::string_view language, std::string_view cssClass, std::string_view text) {
    return Element("span", {{"class", cssClass}, {"lang", language}},
                   HtmlText(WithMinus(text), kLongestRemark));
}

std::string TextsInBoth(std::string_view ja, std::string_view en) {
    return TextIn("ja", "ja", ja) + TextIn("en", "en below", en);
}

std::string_view ClassOf(RemarkKind kind) {
    switch (kind) {
        case RemarkKind::kError:
            return "error";
        case RemarkKind::kWarning:
            return "warning";
        case RemarkKind::kNote:
            return "note";
    }
    return {};
}

}  // namespace

std::string PlacesOfRemark(const Sheet& sheet, const Remark& remark) {
    std::string html;
    if (!remark.stories.empty())
        html += InOne(Text("stories:")) + " " + Listed(remark.stories, [&sheet](int story) {
                    return sheet.names.StoryInTable(story);
                });
    if (remark.members.empty()) return html;
    if (!html.empty()) html += "<br>";
    return html + InOne(Text("members:")) + " " + ListedMembers(remark);
}

std::string RemarkInFull(const Remark& remark) {
    std::string html = "<b>" + HtmlText(remark.id) + "</b> " + TextsInBoth(remark.ja, remark.en);
    if (!remark.members.empty())
        html += Concat({" ", InOne(Text("members:")), " ", ListedMembers(remark)});
    if (!remark.doJa.empty() || !remark.doEn.empty())
        html += Element("span", {{"class", "todo"}},
                        Concat({"→ ", TextsInBoth(remark.doJa, remark.doEn)}));
    return html;
}

Words WordOf(RemarkKind kind) {
    switch (kind) {
        case RemarkKind::kError:
            return Text("error");
        case RemarkKind::kWarning:
            return Text("warning");
        case RemarkKind::kNote:
            return Text("note kind");
    }
    return {};
}

void RemarkSection(const Sheet& sheet, std::string& html) {
    html += OpenTag("section", {{"id", "S7"}}) + Heading("7", Text("S7"));
    const auto& remarks = sheet.findings.remarks;
    if (remarks.empty()) {
        html += SmallPrint(Text("no remarks")) + "</section>\n";
        return;
    }
    Table table("S7", Text("S7"), {12, 15, 30, 75, 46}, "quiet remarks text");
    table.HeadRow({{Text("number")},
                   {Text("kind")},
                   {Text("where")},
                   {Text("remark")},
                   {Text("what to do")}});
    for (const Remark& remark : remarks)
        table.Row(RowHead(HtmlText(remark.id)) + Cell(InBoth(WordOf(remark.kind)), "kind") +
                      Cell(PlacesOfRemark(sheet, remark)) +
                      Cell(TextsInBoth(remark.ja, remark.en)) +
                      Cell(TextsInBoth(remark.doJa, remark.doEn)),
                  " class=\"" + std::string(ClassOf(remark.kind)) + "\" data-remark=\"" +
                      HtmlText(remark.id) + "\"");
    html += table.TakeHtml() + "</section>\n";
}
