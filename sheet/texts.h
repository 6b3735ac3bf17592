#pragma once

#include <string_view>

#include "sheet/words.h"

// Every text of the sheet, in both languages. `_x` and `_{xyz}` are set lower; {name} is filled in.
// "2" stands for the second plan direction and v for its coordinate in formulas that are filled in.

struct TextRow {
    std::string_view key;
    Words words;
};

inline constexpr TextRow kTexts[] = {
    // Head.
    {"title",
     {"ルート2 層間変形角・剛性率・偏心率 計算書",
      "Route 2: story deformation angle, stiffness ratio, eccentricity modulus"}},
    {"project", {"工事名称", "Project"}},
    {"designer", {"設計者", "Engineer"}},
    {"model", {"モデル", "Model"}},
    {"input file", {"入力ファイル", "Input file"}},
    {"made", {"計算書作成日時", "Made"}},
    {"program", {"プログラム", "Program"}},
    {"source", {"情報源", "Source"}},
    {"units, vertical axis", {"単位・鉛直軸", "Units, axes"}},
    {"load cases row", {"荷重ケース", "Load cases"}},
    {"counts row", {"規模", "Counts"}},
    {"results, log", {"結果ファイル・処理記録", "Results, log"}},
    {"results file", {"結果ファイル", "Results file"}},
    {"log file", {"処理記録", "Log"}},
    {"command line", {"コマンド", "Command line"}},
    {"recording", {"記録", "recording"}},
    {"running host", {"実行中のホスト", "running host"}},
    {"live host", {"(実行中のホスト)", "(live host)"}},
    {"modified", {"更新", "modified"}},
    {"warnings", {"警告", "warnings"}},
    {"no results file", {"結果ファイルは書かれていない。", "No results file was written."}},
    {"this sheet", {"計算書", "sheet"}},
    {"vertical axis", {"鉛直軸", "vertical axis"}},
    {"second direction", {"第2方向(全体座標)", "second direction (global)"}},
    {"dead load", {"長期(重心)", "dead load"}},
    {"earthquake d", {"地震 {d}", "earthquake {d}"}},
    {"combination of n", {"{n} 組合せ", "{n} combination"}},
    {"nodes", {"節点", "nodes"}},
    {"members", {"部材", "members"}},
    {"primary cases", {"荷重ケース", "cases"}},
    {"combinations", {"組合せ", "combinations"}},
    {"floors", {"床", "floors"}},
    {"stories", {"階", "stories"}},

    // Names.
    {"story n", {"{n}階", "story {n}"}},
    {"direction d", {"{d}方向", "Direction {d}"}},
    {"direction and case", {"{d}方向(荷重ケース {case})", "Direction {d}, load case {case}"}},
    {"stories:", {"階", "stories"}},
    {"members:", {"部材", "members"}},

    // S1.
    {"S1", {"総括", "Summary"}},
    {"verdict:", {"判定:", "Verdict"}},
    {"tool:", {"プログラム:", "Tool"}},
    {"errors and warnings",
     {"(要修正 {errors} 件、要確認 {warnings} 件)",
      "{errors} to be mended, {warnings} to be looked at"}},
    {"warnings alone", {"(要確認 {warnings} 件)", "{warnings} to be looked at"}},
    {"run ended early", {"計算は途中で終わった。", "The run ended early:"}},
    {"to be mended", {"要修正", "To be mended"}},
    {"check", {"項目", "Check"}},
    {"rule", {"規定", "Rule"}},
    {"angle", {"層間変形角", "Deform. angle"}},
    {"ratio", {"剛性率", "Stiffness ratio"}},
    {"modulus", {"偏心率", "Eccentricity modulus"}},
    {"relieved", {"層間変形角の許容値の緩和: {stories}", "Relieved angles: {stories}"}},
    {"governing value", {"最も厳しい値", "Governing"}},
    {"story", {"階", "Story"}},
    {"member", {"部材", "Member"}},
    {"utilisation", {"検定値", "Utilisation"}},
    {"verdict", {"判定", "Verdict"}},
    {"height of the model", {"モデルの高さ", "Height, lowest to highest floor"}},
    {"plan widths",
     {"平面の幅(部材芯による参考値)", "Plan widths, from member axes, for reference"}},
    {"slenderness", {"塔状比(部材芯による参考値)", "Slenderness, from member axes, for reference"}},
    {"rounding",
     {"表示値は安全側に丸めている。判定は丸める前の値による。",
      "Printed figures are rounded on the safe side; verdicts use unrounded values."}},
    {"note:", {"注記:", "Note"}},

    // S2.
    {"S2", {"階と対象部材", "Stories and story members"}},
    {"no stories", {"階が設定されていない。", "No stories were set."}},
    {"T2a", {"階と部材", "Stories and members"}},
    {"T2b", {"重量とせん断力", "Weight and shear"}},
    {"lower level", {"下床レベル", "Lower level"}},
    {"upper level", {"上床レベル", "Upper level"}},
    {"story height h", {"階高 h", "Story height"}},
    {"story members", {"対象部材", "story members"}},
    {"upright", {"うち鉛直", "upright"}},
    {"leaning", {"うち斜", "leaning"}},
    {"cut, not counted", {"対象外", "Cut, not counted"}},
    {"how found", {"求め方", "How found"}},
    {"from input", {"入力", "file"}},
    {"from model", {"モデル", "model"}},
    {"floors and members from",
     {"床:{floors}　部材:{members}", "floors: {floors}; members: {members}"}},
    {"weight above", {"支える重量 ΣW", "Weight above"}},
    {"floor weight", {"階の重量 W_i", "Floor weight"}},
    {"story shear Q", {"層せん断力 Q (全部材)", "Story shear, all cut"}},
    {"of story members", {"対象部材の和 ΣQ", "Story members"}},
    {"share", {"割合", "Share"}},
    {"floor force", {"水平力 P_i", "Floor force"}},
    {"across", {"直交 方向", "Across"}},
    {"C", {"C = Q/ΣW", "C"}},
    {"compare C",
     {"C_1 は令88条の標準せん断力係数等と照合すること。", "Compare C with the load calculation."}},
    {"elevation title", {"立面図({d}方向)", "Elevation along {d}"}},
    {"elevation description",
     {"床レベル、階、対象部材、対象外の部材、支点を縮尺どおりに示す立面図。",
      "The building from the side, to scale: floor levels, stories, story members, members that "
      "are "
      "cut and not counted, supports."}},
    {"legend counted", {"対象部材", "story members"}},
    {"legend not counted", {"階を切るが対象外の部材", "cut, not counted"}},
    {"legend beams", {"水平部材", "level members"}},
    {"legend support", {"支点", "supports"}},

    // S3.
    {"S3", {"層間変形角", "Story deformation angle"}},
    {"angle formulas",
     {"δ: 部材の上端・下端の変位差 u_上 − u_下、h: 階高(令82条の2)",
      "δ: displacement of a member's upper end less that of its lower end, h: story height "
      "(Enforcement Order, article 82-2)"}},
    {"T3", {"{d}方向 (荷重ケース {case})", "Direction {d}, load case {case}"}},
    {"height h", {"階高 h", "Height"}},
    {"largest drift", {"最大 δ (鉛直材)", "Largest δ (upright)"}},
    {"largest angle", {"最大 γ", "Largest γ"}},
    {"allowable", {"許容値", "Allowable"}},
    {"verdict, tool max", {"判定 (小: プログラム最大)", "Verdict (small: tool, max)"}},
    {"mean drift", {"平均 δ (全部材)", "Mean δ (all)"}},
    {"mean angle", {"平均 γ", "Mean γ"}},
    {"tool, mean", {"プログラム(平均)", "Tool, mean"}},
    {"tool, max", {"プログラム(最大)", "Tool, max"}},
    {"max/mean", {"最大/ 平均", "max/ mean"}},
    {"leaning mark", {"斜", "lean."}},
    {"T3cut", {"対象外の鉛直材", "Upright members not counted"}},
    {"height of the member", {"部材高さ", "Member height"}},
    {"drift", {"δ (部材の両端)", "δ (own ends)"}},
    {"angle over own height", {"γ = δ / 部材高さ", "γ over own height"}},
    {"shear Q", {"Q", "Shear"}},
    {"for information, R06 and R07",
     {"参考。対象外の部材は判定・平均・剛心に含まれない(備考 R06、R07)。",
      "For information: these members are in no verdict, no mean and no centre of rigidity (R06, "
      "R07)."}},
    {"angle profile", {"層間変形角", "Story deformation angle"}},
    {"angle axis", {"層間変形角 γ", "angle γ"}},
    {"how to read angles",
     {"印は各階で最も大きく変位する鉛直材、×は全対象部材の平均。灰色の範囲にあれば許容値を超える。",
      "Marks: the upright member of each story that moves most; ×: the mean of all story members. "
      "What lies on grey is beyond the allowable value."}},
    {"profile description",
     {"階ごとの値を下階から上階へ並べ、限界値と比べた図。値は上の表にある。",
      "The values of the stories from the lowest up, beside their limit. The values stand in the "
      "table above."}},
    {"legend ng", {"黒塗: NG", "filled: NG"}},
    {"legend mean", {"平均", "mean"}},
    {"legend limit", {"限界値 {limit}(灰色側は不可)", "limit {limit}, grey side not allowed"}},
    {"legend story limits", {"階ごとの許容値(入力)", "allowable values by story (input)"}},

    // S4.
    {"S4", {"剛性率", "Story stiffness ratio"}},
    {"ratio formulas",
     {"δ̄: 対象部材すべての平均変位、n: 階数(令82条の6 二号イ)",
      "δ̄: mean drift of all story members, n: number of stories (Enforcement Order, article 82-6, "
      "item 2 (a))"}},
    {"rs", {"r_s = h/δ̄", "Index"}},
    {"Rs", {"R_s", "Ratio"}},
    {"reference upright", {"参考 R_s 鉛直材のみ", "Ref.: upright only"}},
    {"reference translational", {"参考 R_s ΣQ/ΣK", "Ref.: ΣQ/ΣK"}},
    {"mean rs", {"平均 r̄_s", "Mean"}},
    {"reference ratios",
     {"参考値: (鉛直材) 鉛直の対象部材の平均変位による。(ΣQ/ΣK) δ = ΣQ/ΣK "
      "とし、回転のない変位による。"
      "破線枠は 0.6 の反対側にあるもの(備考 R30)。",
      "References: from the mean drift of upright members only; from δ = ΣQ/ΣK, the story moving "
      "without turning. A broken frame marks one on the other side of 0.6 (R30)."}},
    {"ratio profile", {"剛性率", "Story stiffness ratio"}},
    {"ratio axis", {"剛性率 R_s", "ratio R_s"}},
    {"how to read ratios",
     {"0.6 より小さい階は、上下の階に比べて軟らかい。",
      "A story below 0.6 is soft beside the others."}},
    {"shape factors",
     {"参考: 形状係数(昭55建告1792号第7、ルート3の場合)",
      "For reference: shape factors, for the ultimate-capacity route"}},
    {"story and direction", {"{story} {d}方向", "{story}, direction {d}"}},

    // S5.
    {"S5", {"偏心率", "Eccentricity modulus"}},
    {"modulus formulas",
     {"G: 重心、R: 剛心、e: その方向と直交する両者の距離、r_e: 弾力半径(令82条の6 "
      "二号ロ、平19国交告594号)",
      "G: centre of gravity, R: centre of rigidity, e: their distance across the direction, r_e: "
      "elastic radius (Enforcement Order, article 82-6, item 2 (b); notification 594 of 2007)"}},
    {"direction", {"方向", "Direction"}},
    {"G", {"重心 G", "Centre of gravity"}},
    {"R", {"剛心 R", "Centre of rigidity"}},
    {"e", {"偏心距離 e", "Eccen- tricity"}},
    {"sum K", {"水平剛性 ΣK", "Stiffness"}},
    {"KR", {"ねじり剛性 K_R", "Torsional stiffness"}},
    {"re", {"弾力半径 r_e", "Elastic radius"}},
    {"Re", {"偏心率 R_e", "Modulus"}},
    {"to the limit", {"許容まで", "To the limit"}},
    {"modulus of a direction",
     {"方向Xの偏心率はX方向の地震に対するもので、これと直交する距離による。「許容まで」は重心と剛心"
      "が"
      "さらに離れてよい距離(+)、または近づくべき距離(−)。",
      "The modulus of direction X is for an earthquake along X and rests on the distance across "
      "it. "
      "To the limit: how far the centres may still part (+) or must come together (−)."}},
    {"modulus profile", {"偏心率", "Eccentricity modulus"}},
    {"modulus axis", {"偏心率 R_e", "modulus R_e"}},
    {"how to read moduli",
     {"0.15 を超える階は、地震時にねじれやすい。", "A story above 0.15 turns in an earthquake."}},

    // S6.
    {"S6", {"平面図", "Plans"}},
    {"plan title", {"平面図 {story}", "Plan, {story}"}},
    {"plan description",
     {"対象部材、剛性、重心 G、剛心 R "
      "と、偏心率が許容値以内となる重心の範囲を縮尺どおりに示す平面図。",
      "Plan to scale: story members, their stiffness, the centres of gravity G and of rigidity R, "
      "and "
      "the box in which G must lie."}},
    {"legend upright",
     {"鉛直材、緑: 剛性 K(右 X、上 第2方向)",
      "upright member; green: stiffness, to the right X, upwards second direction"}},
    {"legend leaning", {"斜材(●下端)", "leaning member (dot: lower end)"}},
    {"legend G", {"重心 G", "centre of gravity"}},
    {"legend R", {"剛心 R", "centre of rigidity"}},
    {"legend box", {"G がこの枠内にあれば R_e ≦ 0.15", "G in here: R_e ≦ 0.15"}},
    {"legend ellipse", {"弾力半径", "elastic radius"}},
    {"legend worst",
     {"変位最大の鉛直材(▲ X、► 第2方向)", "upright member that moves most (▲ X, ► second)"}},

    // S7.
    {"S7", {"備考", "Remarks"}},
    {"no remarks", {"備考はない。", "There are no remarks."}},
    {"number", {"番号", "No."}},
    {"kind", {"区分", "Kind"}},
    {"where", {"階・方向・部材", "Where"}},
    {"remark", {"内容", "Remark"}},
    {"what to do", {"処置", "What to do"}},
    {"error", {"要修正", "error"}},
    {"warning", {"要確認", "warning"}},
    {"note kind", {"注記", "note"}},

    // Notes on verdicts.
    {"notes on verdicts",
     {"規定の判定とプログラムの判定が異なる理由", "Why the code's verdict and the tool's differ"}},
    {"D1",
     {"許容値に等しい値は規定では可、プログラムでは FAIL となる。",
      "Equal to the limit: allowed by the order, FAIL in the tool."}},
    {"D2",
     {"負の値(荷重の向きによる)はプログラムでは大きさにかかわらず PASS "
      "となる。規定の判定は絶対値による。",
      "Negative by the sense of the load: the tool passes it whatever its amount; the code's "
      "verdict "
      "uses the amount."}},
    {"D3",
     {"X方向の最大値はプログラムでは判定されない(直前の判定を繰り返す)。",
      "The tool does not judge the largest value in X."}},
    {"D4",
     {"平均値では満足するが、最大の鉛直材では超える。",
      "The mean passes, the worst upright member does not."}},
    {"D5",
     {"入力の許容値が規定と異なる({limits})。",
      "The input's allowable value differs from the code's ({limits})."}},
    {"D6",
     {"求められない値が 0 とされ、プログラムでは PASS となっている。",
      "Not calculated; the fallback 0 passes in the tool."}},
    {"D7", {"数値にならない値(nan, inf)である。", "Not a number."}},
    {"D8",
     {"変位のない階は剛性率 0 とされ FAIL となる。規定上は別途判断する。",
      "A story without drift has ratio 0 and FAILs; judge it by itself."}},
    {"D9",
     {"プログラムの最大値は斜材のもので、床の回転を含む。",
      "The tool's Max is a leaning member's and contains the turning of the floor."}},
    {"D10",
     {"部材高さと階高が異なり、変位に高さ比が乗じられている。",
      "The member is not as high as its story; its displacement was multiplied by the height "
      "ratio."}},
    {"limits of a story",
     {"{story} 入力 {input}、規定 {code}", "{story}: input {input}, code {code}"}},
    {"some limits", {"入力 …、規定 …", "input …, code …"}},

    // S8.
    {"S8", {"計算方法", "Method"}},
    {"formulas", {"計算式", "Formulas"}},
    {"method angle",
     {"δ: 部材上端と下端の水平変位の差、h: 階高。各階で |δ| が最大の鉛直材により判定する。",
      "δ: difference of the horizontal displacements of a member's ends; h: story height. Judged "
      "by "
      "the upright member of each story with the largest |δ|."}},
    {"method ratio",
     {"δ̄: 対象部材すべての平均変位、r̄_s: 全階の平均。",
      "δ̄: mean drift of all story members; r̄_s: mean over all stories."}},
    {"method gravity",
     {"N: 切断面を横切る部材の、長期荷重による下端の鉛直力。",
      "N: vertical force at the lower end under the dead load, of every member that the plane "
      "cuts."}},
    {"method stiffness",
     {"Q: その方向の地震荷重による部材下端のせん断力。",
      "Q: shear at the member's lower end under the earthquake of that direction."}},
    {"method torsion", {"ねじり剛性と弾力半径。", "Torsional stiffness and elastic radii."}},
    {"method modulus",
     {"重心と剛心の、その方向と直交する距離による。",
      "From the distance of the centres across the direction."}},
    {"rules of the tool", {"本プログラムの規則", "Rules of the tool"}},
    {"rule cut",
     {"切断面は各階の下床から h/10 の高さ。これを横切る部材が重量と層せん断力に算入される。",
      "Each story is cut h/10 above its lower floor; the members cut there make weight and story "
      "shear."}},
    {"rule noise", {"0.01 mm 未満の層間変位は 0 とする。", "A drift below 0.01 mm counts as 0."}},
    {"rule height",
     {"部材高さが階高と 0.1 mm 以上異なるとき、変位に 部材高さ/階高 を乗じる。",
      "Where a member's height differs from the story's by 0.1 mm or more, its drift is multiplied "
      "by "
      "member height over story height."}},
    {"rule place",
     {"部材の平面位置は下端節点の座標とする。", "A member stands where its lower node stands."}},
    {"rule upright",
     {"両端の平面距離が高さの差の 5 % "
      "以下の部材を鉛直材、それ以外を斜材とする。斜材の変位は床の回転を含む。",
      "A member is upright when the plan distance of its ends is at most 5 % of their difference "
      "in "
      "height; all others lean, and their drift contains the turning of the floors."}},
    {"rule relief",
     {"許容値は 1/200。入力の許容値が 1/200 を超え 1/120 以下のときはその値(緩和)、1/120 "
      "を超えるときは 1/120。",
      "The limit is 1/200; the input's value where that is a relief of up to 1/120; 1/120 where "
      "the "
      "input allows more."}},
    {"rule verdicts",
     {"判定は2通り: 規定による判定(OK・NG・算定不可、等しい値は "
      "OK)と、結果ファイルにあるプログラムの判定"
      "(PASS・FAIL、等しい値は FAIL)。",
      "Two verdicts: the code's (OK, NG, 算定不可 not determinable; equal is OK) and the tool's as "
      "in "
      "the results file (PASS, FAIL; equal is FAIL)."}},
    {"not covered", {"本計算書の範囲外", "Not covered"}},
    {"no plates",
     {"壁・床などの面材(本プログラムではせん断力も剛性も持たない)。",
      "Plates such as walls and slabs: they have neither shear nor stiffness here."}},
    {"no stresses", {"令82条各号の許容応力度計算。", "Allowable stresses (article 82)."}},
    {"no heights",
     {"高さ 31 m、塔状比 4 は部材芯による参考値のみ。",
      "Height of 31 m and slenderness of 4: from member axes only, for reference."}},
    {"no structure rules",
     {"昭55建告1791号の構造種別ごとの規定(鉄骨造: 筋かいの負担率 β "
      "と応力の割増し、幅厚比、接合部、柱梁耐力比。"
      "RC造: ΣA_w・A_c、せん断設計)。",
      "Requirements of notification 1791 of 1980 for the type of structure (steel: brace ratio β "
      "and "
      "increase of forces, width-thickness ratios, connections, column-beam strength; RC: ΣA_w and "
      "A_c, shear)."}},
    {"no cladding", {"令82条の4(屋根ふき材等)。", "Roof cladding (article 82-4)."}},
    {"no accidental loads", {"偶発的な荷重・偏心。", "Accidental loads and eccentricities."}},
    {"no basement", {"地下階・塔屋。", "Basement and penthouse."}},
    {"no flexible floors", {"剛床でない床。", "Floors that are not rigid."}},
    {"no skew frames", {"斜め方向の骨組(X方向と{2}方向のみ)。", "Skew frames: X and {2} only."}},

    // S9.
    {"S9", {"入力", "Input"}},
    {"no input", {"入力ファイルを表示できない。", "The input file cannot be shown."}},
    {"line number", {"行", "Line"}},
    {"line of the input", {"入力ファイル", "Input file"}},
    {"what was taken", {"読み取った内容", "What the run took from it"}},
    {"dead case is", {"長期荷重ケース = {n}", "dead load case = {n}"}},
    {"earthquake cases are",
     {"地震荷重ケース X = {x}, {d} = {second}", "earthquake cases X = {x}, {d} = {second}"}},
    {"floors are", {"床 {levels}", "floors {levels}"}},
    {"floors of the model", {"床レベル: モデルから {levels}", "floor levels: model, {levels}"}},
    {"members of the model", {"対象部材: モデルから", "story members: model"}},
    {"block of story members", {"対象部材の始まり", "story members follow"}},
    {"members of a story", {"{story}階 対象部材 {n} 本", "story {story}: {n} members"}},
    {"allowable angle", {"層間変形角の許容値", "allowable angle"}},
    {"allowable ratio", {"剛性率の許容値", "allowable ratio"}},
    {"allowable modulus", {"偏心率の許容値", "allowable modulus"}},
    {"block of limits", {"許容値の始まり", "allowable values follow"}},
    {"limit of a story", {"{story}階 {limit} = {value}", "story {story}: {limit} = {value}"}},
    {"limit of all stories", {"{limit} = {value}(全階)", "{limit} = {value}, all stories"}},
    {"reported members", {"部材別変形角の出力 {n} 本", "{n} members reported by themselves"}},
    {"line of the sheet", {"計算書の行", "line of this sheet"}},
    {"end of the data", {"データの終わり", "end of the data"}},
    {"not read: overridden",
     {"読まれない: 同じキーワードの別の行が用いられるか、値がない",
      "not read: another line of this keyword counts, or it has no value"}},
    {"not read: no block",
     {"読まれない: どの項目にも属さない", "not read: it belongs to no keyword"}},
    {"not read: no keyword", {"読まれない: キーワードでない", "not read: no keyword"}},
    {"not read: after FIN", {"読まれない: FIN の後", "not read: after FIN"}},
    {"further lines", {"ほか {n} 行", "{n} further lines"}},
    {"defaults", {"入力にない項目(既定値)", "Not in the input (defaults)"}},
    {"allowable values", {"既定と異なる許容値", "Allowable values other than the usual ones"}},
    {"allowable values of a story",
     {"{story}: 変形角 {angle} ({angleValue})、判定に用いた値 {code}、剛性率 {ratio}、偏心率 "
      "{modulus}",
      "{story}: angle {angle} ({angleValue}), judged by {code}; ratio {ratio}; modulus {modulus}"}},

    // Appendices.
    {"A1", {"付録1 階ごとの内訳", "Details per story"}},
    {"A1 story", {"{story}", "{story}"}},
    {"A1 members", {"対象部材", "Story members"}},
    {"A1 axial forces", {"軸力と重心", "Axial forces and centre of gravity"}},
    {"A1 legend",
     {"│ 鉛直材、╱ 斜材(数値は両端の平面距離)。赤: 剛性が負の部材。斜体: ほとんど動かない部材(δ < "
      "0.1 mm)。",
      "│ upright, ╱ leaning, with the plan distance of the two ends. Red: negative stiffness. "
      "Italic: "
      "hardly moves (δ < 0.1 mm)."}},
    {"kind, plan distance", {"種別", "Kind"}},
    {"A1 Q", {"Q_{d}", "Shear"}},
    {"A1 drift", {"δ_{d}", "Drift"}},
    {"A1 K", {"K_{d}", "Stiffness"}},
    {"A1 Kc", {"K_{d}・{c}", "Moment"}},
    {"A1 torsion", {"K_{d}({c}−{c}_R)²", "Torsion"}},
    {"A1 Nc", {"N・{c}", "Moment"}},
    {"sum", {"計 Σ", "Sum"}},
    {"no story members", {"対象部材がない。", "No story members."}},
    {"further members", {"ほか {n} 本(計には含む)", "{n} further members, in the sums"}},
    {"dagger",
     {"† 重量には含まれるが、せん断力・剛性には含まれない部材(対象外)。",
      "† In the weight, but not in shear and stiffness: cut, not counted."}},
    {"A2", {"付録2 結果ファイルとの対応", "Correspondence with the results file"}},
    {"order of the results file",
     {"本計算書は上の階から、結果ファイルは下の階から並ぶ。",
      "This sheet begins with the top story, the results file with the lowest."}},
    {"section and row", {"結果ファイルの節と行", "Section and row"}},
    {"value there", {"そこでの値", "Value there"}},
    {"value here", {"本書の値", "Value here"}},
    {"verdict there", {"そこでの判定", "Verdict there"}},
    {"A3", {"付録3 ファイルと照合値", "Files and checksums"}},
};

/// The words of a key. A key that does not exist does not compile.
consteval Words Text(std::string_view key) {
    for (const TextRow& row : kTexts)
        if (row.key == key) return row.words;
    throw "there is no such text";
}
