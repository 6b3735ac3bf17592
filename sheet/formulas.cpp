#include "sheet/formulas.h"

#include "sheet/words.h"

namespace {

// {2} is the second direction, {v} its coordinate.
std::string WithNames(const Sheet& sheet, std::string_view formulas) {
    return Filled({formulas, formulas},
                  {{"2", sheet.names.Direction(kZ)}, {"v", sheet.names.Coordinate(kZ)}})
        .ja;
}

}  // namespace

std::string RatioFormulas() {
    return "r_s = h / δ̄,  r̄_s = Σr_s / n,  R_s = r_s / r̄_s ≧ 0.6";
}

std::string GravityFormulas(const Sheet& sheet) {
    return WithNames(sheet, "x_G = ΣN·x / ΣN,  {v}_G = ΣN·{v} / ΣN");
}

std::string RigidityFormulas(const Sheet& sheet) {
    return WithNames(sheet, "x_R = ΣK_{{2}}·x / ΣK_{{2}},  {v}_R = ΣK_X·{v} / ΣK_X");
}

std::string TorsionFormulas(const Sheet& sheet) {
    return WithNames(sheet,
                     "K_R = ΣK_X({v}−{v}_R)² + ΣK_{{2}}(x−x_R)²,  r_{eX} = √(K_R/ΣK_X),  "
                     "r_{e{2}} = √(K_R/ΣK_{{2}})");
}

std::string ModulusFormulas(const Sheet& sheet) {
    return WithNames(sheet, "e_X = |{v}_R−{v}_G|,  e_{{2}} = |x_R−x_G|,  R_e = e / r_e ≦ 0.15");
}
