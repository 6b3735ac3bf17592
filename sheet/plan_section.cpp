// S6: plans.

#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/plan.h"
#include "sheet/sheet_parts.h"
#include "sheet/texts.h"

std::string PlanSection(const Sheet& sheet) {
    std::string html = OpenTag("section", {{"id", "S6"}, {"class", "own-page"}});
    html += Heading("6", Text("S6"));
    if (sheet.findings.stories.empty())
        return html + SmallPrint(Text("no stories")) + "</section>\n";
    return html + Plans(sheet) + "</section>\n";
}
