#include "lint/model_rules.h"

#include <iterator>

namespace {

constexpr LintKind kNote = LintKind::kNote;
constexpr LintKind kWarning = LintKind::kWarning;
constexpr LintKind kError = LintKind::kError;

constexpr std::string_view kModel = "m-against-the-model";

// In the order of the enumeration; the columns are those of the rules on the file.
constexpr LintRule kRules[] = {
    {"M01", kError, "load case {n} is not in the model; it has {list}",
     "荷重ケース {n} はモデルにない(ある: {list})。", "", "", kModel},
    {"M02", kWarning, "case {n} is a combination: its drift contains the other loads",
     "ケース {n} は組合せケースである。変位に他の荷重が含まれる。", "the case of the seismic force",
     "地震力のみのケースを指定する", kModel},
    {"M03", kError, "the model has no results: run the host's analysis", "解析結果がない。",
     "run the host's analysis", "ホストで解析を実行する", kModel},
    {"M04", kError, "no node lies at {l} mm; the nearest: {near}",
     "{l} mm に節点がない(最も近いもの: {near})。", "", "", kModel},
    {"M05", kWarning,
     "beams at {l} mm are on no level of FloorLevel: their stories are counted as one",
     "{l} mm の梁が床になっていない。上下の階が 1 つとみなされる。", "", "", kModel},
    {"M05", kWarning, "the base, {l} mm, is on no level of FloorLevel",
     "基準レベル {l} mm が FloorLevel にない。", "", "", kModel},
    {"M06", kError, "derived levels {a}, {b}: beams of one floor differ by {d} mm",
     "レベル {a} と {b}: 梁の高さが {d} mm 異なり別の床とみなされる。", "", "", kModel},
    {"M07", kWarning, "{l} mm looks like a landing", "{l} mm は踊場・中間梁のようである。", "", "",
     kModel},
    {"M08", kWarning,
     "the base is {l} mm because node {n}, the first of the list, lies there without a support",
     "基準レベル {l} mm は支点のない節点 {n}(一覧の先頭)で決まっている。", "a FloorLevel line",
     "FloorLevel 行を書く", kModel},
    {"M08", kWarning, "the lowest level, {l} mm, is not the lowest support, {b} mm",
     "最下レベル {l} mm が最も低い支点 {b} mm と異なる。", "", "", kModel},
    {"M09", kError, "story {s} ({a} to {b} mm) has no members", "{s} 階({a}～{b} mm)に部材がない。",
     "", "", kModel},
    {"M10", kWarning, "{k} of {n} members that story {s} cuts are not counted: {list} ({why})",
     "{s} 階を切る {n} 本のうち {k} 本が対象外: {list}({why})。", "", "", kModel},
    {"M10", kError, "{k} of {n} members that story {s} cuts are not counted: {list} ({why})",
     "{s} 階を切る {n} 本のうち {k} 本が対象外: {list}({why})。", "", "", kModel},
    {"M11", kWarning,
     "the members of story {s} that are not counted carry {p} % of its shear in {d}",
     "{s} 階の対象外の部材が {d} 方向の層せん断力の {p}% を負担。", "", "", kModel},
    {"M11", kError, "the members of story {s} that are not counted carry {p} % of its shear in {d}",
     "{s} 階の対象外の部材が {d} 方向の層せん断力の {p}% を負担。", "", "", kModel},
    {"M12", kError, "member {m} is not in the model; the run ends with \"Exception was thrown...\"",
     "部材 {m} はモデルにない。計算が中断する。", "", "", kModel},
    {"M12", kWarning, "member {m} is not in the model; it is passed over",
     "部材 {m} はモデルにない。無視される。", "", "", kModel},
    {"M13", kError, "member {m} lies between {a} and {b} mm, story {s} between {c} and {d}",
     "部材 {m}({a}～{b} mm)は {s} 階({c}～{d} mm)にない。", "", "", kModel},
    {"M14", kError,
     "member {m} lies between {a} and {b} mm, story {s} between {c} and {d}: its displacement is "
     "multiplied by {f}: angle {g} times, stiffness 1/{g}",
     "部材 {m}({a}～{b} mm)は {s} 階({c}～{d} mm)と高さが異なる。変位に {f} "
     "が乗じられ、変形角は {g} 倍、剛性は 1/{g} になる。",
     "leave it out", "対象から外す", kModel},
    {"M15", kError,
     "member {m} is horizontal: a beam has no drift and no stiffness but lowers the mean",
     "部材 {m} は水平部材。平均値を下げる。", "", "", kModel},
    {"M16", kWarning, "{k} upright members of story {s} are not named: {list}",
     "{s} 階の鉛直部材 {k} 本が指定されていない: {list}。", "", "", kModel},
    {"M17", kWarning, "member {m} is in no story: no rows",
     "部材 {m} はどの階にもない。出力されない。", "", "", kModel},
    {"M18", kError,
     "member {m} has an end node that is not in the model; members after it have no axes, and the "
     "run ends at the first check that needs them",
     "部材 {m} の節点がない。以降の部材の座標軸が得られず、計算が中断する。", "", "", kModel},
    {"M18", kError,
     "member {m} has no length; members after it have no axes, and the run ends at the first check "
     "that needs them",
     "部材 {m} の長さが 0 である。以降の部材の座標軸が得られず、計算が中断する。", "", "", kModel},
    {"M19", kWarning, "node numbers that stand twice, the first counts: {list}",
     "節点番号の重複(最初のものが有効): {list}", "", "", kModel},
    {"M19", kWarning,
     "member numbers that stand twice, the first counts, for axes the last: {list}",
     "部材番号の重複(最初のもの、座標軸は最後のものが有効): {list}", "", "", kModel},
    {"M20", kWarning, "local axes not at right angles, members oblique to X and Y: {list}",
     "局所座標軸が直交しない部材(X・Y に斜め): {list}", "check their forces", "部材力を確認する",
     kModel},
    {"M21", kNote, "leaning members, their drift contains the turning of floors: {list}",
     "斜材の変位は床の回転を含む: {list}", "", "", kModel},
    {"M22", kError,
     "case {n} moves the building more in {e} than in {d} (story {s}, {p} %): numbers exchanged?",
     "ケース {n} は {d} 方向より {e} 方向に大きく働く({s} 階、{p}%)。番号が逆ではないか。", "", "",
     kModel},
    {"M22", kWarning, "case {n} acts in {e} too: {p} % of its shear in {d} (story {s})",
     "ケース {n} は {e} 方向にも働く({d} 方向の {p}%、{s} 階)。", "", "", kModel},
    {"M23", kWarning,
     "case {n} pushes to the negative side of {d}: Max shows the smallest displacement, and "
     "negative angles pass",
     "ケース {n} は {d} の負方向の荷重。Max は最小の変位となり、負の変形角は合格となる。",
     "the case of the positive direction", "正方向のケースを指定する", kModel},
    {"M23", kWarning,
     "case {n} pushes to the negative side of {d}: Max shows the smallest displacement, and "
     "negative angles pass; case {m} is the same to the positive side",
     "ケース {n} は {d} の負方向の荷重。Max "
     "は最小の変位となり、負の変形角は合格となる。正方向はケース "
     "{m}。",
     "the positive case", "正方向のケースを指定する", kModel},
    {"M24", kError, "earthquake case {n} gives no shear in {d}",
     "地震荷重ケース {n} の {d} 方向のせん断力が 0 である。", "", "", kModel},
    {"M24", kError, "dead load case {n} gives no vertical force",
     "長期荷重ケース {n} の鉛直力が 0 である。", "", "", kModel},
    {"M24", kError, "dead load case {n} gives a negative weight",
     "長期荷重ケース {n} の重量が負である。", "", "", kModel},
    {"M25", kError, "{k} answers are missing in {model}{input}: the run would end at {what}",
     "{model}{input}に {k} 個の値がない。計算は途中で終わる: {what}",
     "the recorded input, or record --all", "記録時の入力ファイルを使うか、record --all で記録する",
     kModel},
    {"M26", kWarning, "member {m} of story {s} has a negative stiffness in {d} ({p} %)",
     "{s} 階 部材 {m} の {d} 方向の剛性が負である({p}%)。", "", "", kModel},
    {"M26", kWarning,
     "member {m} of story {s} hardly moves in {d} ({v} mm) and makes {p} % of the stiffness",
     "{s} 階 部材 {m} は {d} 方向にほとんど動かず({v} mm)、剛性の {p}% を占める。", "", "", kModel},
    {"M27", kNote, "member {m} ends {d} mm beside the floor, so it is in no story",
     "部材 {m} は床から {d} mm ずれているため、どの階にも属さない。", "", "", kModel},
};

static_assert(std::size(kRules) == static_cast<std::size_t>(ModelRule::kM27) + 1);

}  // namespace

std::span<const LintRule> AllModelRules() {
    return kRules;
}

LintFinding FindingOf(ModelRule rule, const InputPlace& place) {
    LintFinding finding;
    finding.rule = &kRules[static_cast<std::size_t>(rule)];
    finding.place = place;
    return finding;
}
