// S6: plans.

#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/plan.h"
#include "sheet/sheet_parts.h"
#include "sheet/texts.h"

void PlanSection(const Sheet& sheet, std::string& html) {
    html += OpenTag("section", {{"id", "S6"}, {"class", "own-page"}});
    html += Heading("6", Text("S6"));
    if (sheet.findings.stories.empty()) {
        html += SmallPrint(Text("no stories")) + "</section>\n";
        return;
    }
    AppendPlans(html, sheet);
    html += "</section>\n";
}
