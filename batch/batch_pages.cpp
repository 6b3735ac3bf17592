#include "batch/batch_pages.h"

#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/table.h"

namespace {

constexpr const char* kNothing = "—";

std::string VerdictOf(const JobOutcome& outcome) {
    return outcome.end == JobEnd::kEndedEarly ? "ended early" : TextOf(outcome.code);
}

std::string ToolOf(const JobOutcome& outcome) {
    return outcome.tool ? TextOf(*outcome.tool) : "";
}

// "1/320 (story 1, Y)".
std::string GoverningText(const std::optional<GoverningValue>& governing) {
    if (!governing) return kNothing;
    return governing->value + " (" + std::to_string(governing->story) + "階 " +
           governing->direction + ")";
}

// A name of a folder as part of an address.
std::string AddressOf(const std::string& text) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string address;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= 'a' && byte <= 'z') || byte == '-' || byte == '_' ||
                             byte == '.';
        if (isPlain) {
            address += character;
            continue;
        }
        address += '%';
        address += kDigits[byte >> 4U];
        address += kDigits[byte & 0x0FU];
    }
    return address;
}

std::string Link(const std::string& address, const std::string& text) {
    return Element("a", {{"href", address}}, HtmlText(text));
}

std::string RowOf(const JobOutcome& outcome) {
    const std::string folder = AddressOf(outcome.job.name) + "/";
    std::string name =
        outcome.hasSheet ? Link(folder + kSheetName, outcome.job.name) : HtmlText(outcome.job.name);
    if (!outcome.job.title.empty()) name.append("<br>").append(HtmlText(outcome.job.title));
    std::string verdict = HtmlText(VerdictOf(outcome));
    if (outcome.end == JobEnd::kEndedEarly)
        verdict.append("<br>").append(HtmlText(outcome.failure));
    else if (outcome.tool)
        verdict.append(" (").append(HtmlText(ToolOf(outcome))).append(")");
    std::string row = RowHead(name) + Cell(verdict);
    for (const auto& governing : outcome.governing)
        row += Cell(HtmlText(GoverningText(governing)), "c");
    row += Cell(std::to_string(outcome.errors) + " / " + std::to_string(outcome.warnings), "c");
    return row +
           Cell(Link(folder + kFiguresName, "JSON") + " " + Link(folder + kOutputName, "run"), "c");
}

// A field of the summary: quoted where it must be.
std::string Field(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"') quoted += '"';
        quoted += character;
    }
    return quoted + "\"";
}

}  // namespace

std::string BatchIndex(const std::vector<JobOutcome>& outcomes) {
    Table table("jobs", {"計算の一覧(厳しい順)", "All jobs, worst first"},
                {2.6, 3.0, 1.8, 1.8, 1.8, 1.4, 1.4}, "text");
    table.HeadRow({{{"名称", "Name"}},
                   {{"判定(プログラム)", "Verdict (tool)"}},
                   {{"層間変形角", "Angle"}},
                   {{"剛性率", "Stiffness ratio"}},
                   {{"偏心率", "Eccentricity"}},
                   {{"要修正 / 要確認", "Errors / warnings"}},
                   {{"ファイル", "Files"}}});
    for (const JobOutcome& outcome : outcomes)
        table.Row(RowOf(outcome));
    return PlainPage("Quarnel",
                     Element("h1", {}, InBoth({"計算の一覧", "Batch of runs"})) + table.TakeHtml());
}

std::string BatchSummary(const std::vector<JobOutcome>& outcomes) {
    std::string text =
        "\xEF\xBB\xBFname,title,verdict,tool,angle,angle story,angle direction,"
        "ratio,ratio story,ratio direction,modulus,modulus story,"
        "modulus direction,errors,warnings,failure\r\n";
    for (const JobOutcome& outcome : outcomes) {
        std::string row = Field(outcome.job.name) + "," + Field(outcome.job.title) + "," +
                          VerdictOf(outcome) + "," + ToolOf(outcome);
        for (const auto& governing : outcome.governing) {
            row += ",";
            if (governing)
                row += governing->value + "," + std::to_string(governing->story) + "," +
                       governing->direction;
            else
                row += ",,";
        }
        for (const int count : {outcome.errors, outcome.warnings})
            row.append(",").append(std::to_string(count));
        row.append(",").append(Field(outcome.failure));
        text += row + "\r\n";
    }
    return text;
}
