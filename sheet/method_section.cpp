// S8: formulas, rules that differ from a textbook's, and what is not covered.

#include "sheet/formulas.h"
#include "sheet/html.h"
#include "sheet/page_parts.h"
#include "sheet/sheet_parts.h"
#include "sheet/texts.h"
#include "sheet/verdict_notes.h"

namespace {

std::string List(const std::vector<std::string>& items) {
    std::string html;
    for (const std::string& item : items)
        html += Element("li", {}, item);
    return Element("ul", {{"class", "method"}}, html) + "\n";
}

}  // namespace

void MethodSection(const Sheet& sheet, std::string& html) {
    const auto formula = [](const std::string& formulas, Words meaning) {
        return Element("span", {{"class", "formulas"}}, HtmlOfOwnText(formulas)) + " " +
               InBoth(meaning);
    };
    html += OpenTag("section", {{"id", "S8"}, {"class", "own-page"}});
    html += Heading("8", Text("S8")) + "<div class=\"columns\">";
    html += SubHeading(Text("formulas"));
    html += List(
        {formula("γ = δ / h ≦ 1/200", Text("method angle")),
         formula(RatioFormulas(), Text("method ratio")),
         formula(GravityFormulas(sheet), Text("method gravity")),
         formula("K = Q / δ", Text("method stiffness")),
         formula(RigidityFormulas(sheet) + ",  " + TorsionFormulas(sheet), Text("method torsion")),
         formula(ModulusFormulas(sheet), Text("method modulus"))});
    html += SubHeading(Text("rules of the tool"));
    html += List({InBoth(Text("rule cut")), InBoth(Text("rule noise")), InBoth(Text("rule height")),
                  InBoth(Text("rule place")), InBoth(Text("rule upright")),
                  InBoth(Text("rule relief")), InBoth(Text("rule verdicts"))});
    html += AllNotesTable();
    html += SubHeading(Text("not covered"));
    html += List({InBoth(Text("no plates")), InBoth(Text("no stresses")),
                  InBoth(Text("no heights")), InBoth(Text("no structure rules")),
                  InBoth(Text("no cladding")), InBoth(Text("no accidental loads")),
                  InBoth(Text("no basement")), InBoth(Text("no flexible floors")),
                  InBoth(Filled(Text("no skew frames"), {{"2", sheet.names.Direction(kZ)}}))});
    html += "</div></section>\n";
}
