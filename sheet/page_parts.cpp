#include "sheet/page_parts.h"

#include "sheet/html.h"

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
