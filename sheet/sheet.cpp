#include "sheet/sheet.h"

#include "sheet/first_page.h"
#include "sheet/html.h"
#include "sheet/sheet_parts.h"
#include "sheet/style.h"
#include "sheet/texts.h"

namespace {

constexpr std::size_t kLeastPiece = 131072;  // bytes; many small writes take longer

// What stands at the foot of every page, within a string of the style sheet.
std::string PageFoot(const SheetContent& content) {
    std::string foot = "Quarnel " + content.run.toolVersion;
    if (content.input.sha256)
        foot += "  input SHA-256 " + content.input.sha256->substr(0, kShownDigestDigits);
    std::string safe;
    for (const char character : foot)
        if (character != '"' && character != '\\' && character != '<' && character >= ' ' &&
            character < 0x7F)
            safe += character;
    return safe;
}

// The names by which the style sheet knows the languages.
struct Choice {
    SheetLanguage language;
    const char* id;
    const char* label;
};
constexpr Choice kChoices[] = {
    {SheetLanguage::kBoth, "both", "日本語・English"},
    {SheetLanguage::kJapanese, "ja", "日本語"},
    {SheetLanguage::kEnglish, "en", "English"},
};

std::string LanguageChoice(SheetLanguage chosen) {
    std::string html;
    for (const auto& [language, id, label] : kChoices) {
        html += "<input type=\"radio\" class=\"choice\" name=\"language\" id=\"";
        html += id;
        html += language == chosen ? "\" checked=\"checked\"" : "\"";
        html += " aria-label=\"" + std::string(label) + "\">\n";
    }
    html += "<nav class=\"languages\">";
    for (const auto& [language, id, label] : kChoices)
        html += Element("label", {{"for", id}}, label);
    return html + "</nav>\n";
}

std::string Title(const SheetContent& content) {
    const Words words = Text("title");
    std::string title(content.options.language == SheetLanguage::kEnglish ? words.en : words.ja);
    const std::string& path = content.model.path;
    return HtmlText(path.substr(path.find_last_of("/\\") + 1) + " – " + title);
}

// What stands before the sections.
std::string Opening(const SheetContent& content, bool isFirstPageCrowded) {
    std::string html = "<!DOCTYPE html>\n<html lang=\"";
    html += content.options.language == SheetLanguage::kEnglish ? "en" : "ja";
    html +=
        "\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
        "'unsafe-inline'\">\n"
        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>";
    html += Title(content) + "</title>\n<style>" + StyleWithFoot(PageFoot(content));
    if (isFirstPageCrowded) html += kStyleOfCrowdedFirstPage;
    html += "</style>\n</head>\n<body>\n";
    return html + LanguageChoice(content.options.language);
}

}  // namespace

void FormSheet(const SheetContent& content, const std::function<void(std::string_view)>& take) {
    const Sheet sheet(content);
    const bool isCrowded = IsFirstPageCrowded(sheet);
    std::string html = Opening(content, isCrowded);
    html += isCrowded ? "<main class=\"crowded\">\n" : "<main>\n";
    const auto handOn = [&html, &take] {
        if (html.size() < kLeastPiece) return;
        take(html);
        html.clear();
    };
    for (const auto section :
         {HeadSection, SummarySection, StoriesSection, AngleSection, RatioSection,
          EccentricitySection, PlanSection, RemarkSection, MethodSection, InputSection}) {
        section(sheet, html);
        handOn();
    }
    MemberAppendix(sheet, html, handOn);
    for (const auto section : {ResultsAppendix, FilesAppendix})
        section(sheet, html);
    html += "</main>\n</body>\n</html>\n";
    take(html);
}

std::string SheetHtml(const SheetContent& content) {
    std::string html;
    FormSheet(content, [&html](std::string_view piece) { html += piece; });
    return html;
}
