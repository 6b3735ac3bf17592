#include "sheet/page_parts.h"

#include "sheet/html.h"
#include "sheet/style.h"

std::string Heading(std::string_view number, Words words) {
    return Element("h2", {}, Element("span", {{"class", "no"}}, number) + InBoth(words)) + "\n";
}

std::string SubHeading(Words words) {
    return Element("h3", {}, InBoth(words)) + "\n";
}

std::string LabelledValues(const std::vector<LabelledValue>& values) {
    std::string html;
    for (const auto& [label, value] : values)
        html +=
            Element("span", {{"class", "labelled"}}, InBoth(label) + " " + HtmlText(value)) + " ";
    return html;
}

std::string FormulaLine(std::string_view formulas, Words meaning) {
    return Element("p", {{"class", "formula"}},
                   Element("span", {{"class", "formulas"}}, HtmlOfOwnText(formulas)) + " " +
                       InBoth(meaning)) +
           "\n";
}

std::string SmallPrint(Words words) {
    return Element("p", {{"class", "small"}}, InBoth(words)) + "\n";
}

std::string PlainPage(std::string_view title, std::string_view body) {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"ja\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
        "'unsafe-inline'\">\n<meta name=\"viewport\" content=\"width=device-width\">\n<title>";
    AppendHtmlText(html, title);
    html.append("</title>\n<style>").append(StyleWithFoot("Quarnel"));
    html.append("</style>\n</head>\n<body>\n<main>\n").append(body);
    return html.append("</main>\n</body>\n</html>\n");
}
