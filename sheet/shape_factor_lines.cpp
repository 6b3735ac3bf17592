#include "sheet/shape_factor_lines.h"

#include "report/number_text.h"
#include "sheet/html.h"
#include "sheet/texts.h"

std::string ShapeFactorLines(const Sheet& sheet) {
    std::string items;
    for (std::size_t i = sheet.StoryCount(); i-- > 0;) {
        const StoryFindings& story = sheet.findings.stories[i];
        for (const std::size_t axis : {kX, kZ}) {
            const auto& factors = story.directions[axis].shapeFactors;
            if (!factors) continue;
            const FilledWords where = Filled(
                Text("story and direction"),
                {{"story", sheet.names.Story(story.number)}, {"d", sheet.names.Direction(axis)}});
            items += Element(
                "li", {},
                InBoth(where) + " " +
                    HtmlOfOwnText(
                        "F_s = " + NumberText(factors->stiffness, kFactorFormat) +
                        ",  F_e = " + NumberText(factors->eccentricity, kFactorFormat) +
                        ",  F_{es} = F_s·F_e = " + NumberText(factors->product, kFactorFormat)));
        }
    }
    if (items.empty()) return {};
    return Element("div", {{"class", "factors"}},
                   InBoth(Text("shape factors")) + Element("ul", {}, items)) +
           "\n";
}
