#include "route2/remark_texts.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

namespace {

constexpr std::size_t kLongestList = 12;

constexpr RemarkTexts kTexts[] = {
    {"R01", "地震荷重ケースが両方向とも {n} である。{second}方向の剛性・偏心率は求められない。",
     "Both earthquake cases are {n}. There is no stiffness and no eccentricity modulus in "
     "{second}.",
     "EarthquakeLoadCaseNumber に2つのケースを書く。その行の次の空行に注意すること。",
     "Name two cases in EarthquakeLoadCaseNumber; look for an empty line after it."},
    {"R02", "{items}はモデルにない(ある: {list})。", "{items} not in the model (there are {list}).",
     "入力ファイルの荷重ケース番号を直すこと。", "Correct the load case number in the input file."},
    {"R03", "{items}に対象部材がない。床レベルと StoryMember を確認すること。",
     "No story members: {items}.", "FloorLevel(mm)と StoryMember を確認すること。",
     "Check FloorLevel (mm!) and StoryMember."},
    {"R04", "{items}。梁の高さのわずかな差が床とみなされている。",
     "{items}: beams of one floor differ slightly.", "FloorLevel 行を書くこと。",
     "Write a FloorLevel line."},
    {"R05", "{items}。踊場・中間梁が床とみなされていないか。",
     "{items}. Is a landing or a mezzanine taken for a floor?",
     "立面図で確認し、必要なら FloorLevel 行を書くこと。{suggestion}",
     "Compare with the elevation; write a FloorLevel line if so. {suggestion}"},
    {"R06", "{items}。対象外: {members}。その剛性は剛心・ねじり剛性・偏心率に含まれない。",
     "{items}. Not counted: {members}. Their stiffness is missing in R, K_R, R_e.",
     "踊場で分かれた柱・2階分の柱・床間で終わる部材を確認すること。",
     "Look for columns split at a landing, columns through two stories, members that end between "
     "floors."},
    {"R07", "{items}。階高と異なる高さの部材の変位には高さ比が乗じられ、変形角はその2乗倍になる。",
     "{items}. The displacement of a member that is not as high as its story is multiplied by the "
     "height ratio: its angle is wrong by the square of it, its stiffness by the reciprocal.",
     "階高と異なる高さの部材を StoryMember に書かないこと。",
     "Do not name members of another height."},
    {"R08", "剛性が負の部材: {items}。", "Members with negative stiffness: {items}.",
     "せん断力と変位の符号が逆である。荷重の方向と、対象部材であるかを確認すること。",
     "Shear and displacement have opposite signs. See whether the case loads this direction, and "
     "whether the member is a story member at all."},
    {"R09", "ほとんど動かない部材が剛性を占める: {items}。その剛性は丸め誤差による。",
     "Members that hardly move make much of the stiffness: {items}. Their K is made of rounding.",
     "その部材が対象部材であるかを確認すること。", "See whether they are story members at all."},
    {"R10", "{items}。斜材の変位は床の回転を含む。判定は鉛直材による。",
     "{items}. A leaning member's drift contains the turning of the floors; the verdict uses the "
     "upright ones.",
     "プログラムの平均値・最大値を使うときは斜材の影響を確認すること。",
     "Mind the leaning members when the tool's mean and largest values are used."},
    {"R11", "局所座標軸が直交しない部材: {members}。", "Local axes not at right angles: {members}.",
     "そのせん断力・軸力を確認すること。", "Check the shear and axial force of these members."},
    {"R12", "地震荷重ケース {items} は鉛直荷重を含む。層間変形は地震力のみによること。",
     "Earthquake case {items} contains vertical load.", "地震力のみのケースを指定すること。",
     "Use the case of the seismic force alone."},
    {"R13", "{items}。X と {second} が逆ではないか。",
     "{items}. Are the two case numbers exchanged?",
     "EarthquakeLoadCaseNumber の順序を確認すること。",
     "Check the order of the numbers in EarthquakeLoadCaseNumber."},
    {"R14", "長期荷重ケース {n} に水平力がある、または重量が負である({items})。",
     "Horizontal force in the dead load case {n}, or negative weight ({items}).",
     "荷重ケース番号と、部材端力の符号を確認すること。",
     "Check the case number, and the sense of the end forces."},
    {"R15",
     "地震力が負の向き: {items}。プログラムの Max は最小の変位で、変形角は常に PASS となる。",
     "The case pushes to the negative side: {items}. The tool's Max is then the smallest "
     "movement, and its angles always pass.",
     "正の向きのケースを指定すること。", "Take the positive case."},
    {"R16", "{items}。", "{items}.", "荷重ケースと荷重計算を確認すること。",
     "Which case is this? Compare with the load calculation."},
    {"R17", "長期で引抜きの部材: {members}。重心の計算では負の重量となる。",
     "Uplift under the dead load: {members}. It counts as negative weight in G.",
     "長期の軸力を確認すること。", "Check the axial forces under the dead load."},
    {"R18", "平面の外にある: {items}。", "Outside the plan: {items}.",
     "剛性が負・過大な部材(R08、R09)と荷重ケースを確認すること。",
     "Look at R08, R09 and at the load cases."},
    {"R19", "求められない項目: {items}。0 は計算値ではない。",
     "Not calculated: {items}. The 0 (PASS) of the results file is a fallback.",
     "理由を除いて再計算すること。", "Remove the reason, and run again."},
    {"R20", "剛床として動いていない: {items}。平均値・剛心の意味に注意。",
     "Floors that do not move as one piece: {items}.", "剛床の仮定と吹抜けを確認すること。",
     "Check the diaphragm and openings in the floor."},
    {"R21", "許容値 {items}: 緩和 1/120 の根拠を添付すること。",
     "Allowable values {items}: a relief to 1/120.", "緩和の根拠を添付すること。",
     "Enclose the proof of the relief (finish, cladding, equipment)."},
    {"R21W", "許容値 {items}: 規定と異なる。", "Allowable values {items}: not the code's.",
     "許容値を確認すること。", "Check the allowable values."},
    {"R22", "{items}はモデルから求めた。", "{items} derived from the model.",
     "立面図で階数を照合すること。", "Compare with the elevation."},
    {"R23", "最下床と異なる高さの支点 {n} 箇所。",
     "{n} supports at other levels than the lowest floor.", "基準レベルを確認すること。",
     "Check the base level."},
    {"R24", "{items}[{original}]", "{items} [{original}]", "処理記録を確認すること。",
     "See the processing log."},
    {"R25", "記録に {what} の答えがない。{input}", "The recording has no answer to {what}. {input}",
     "記録時の入力ファイルを使うか、record --all で記録し直すこと。",
     "Use that file, or record again with --all."},
    {"R25W", "モデルに書かれていない値 {n} 件を 0 として用いた。",
     "{n} answers that the model file does not list were taken as 0.",
     "モデルファイルの変位・部材端力を確認すること。",
     "Check displacements and end forces of the model file."},
    {"R25X", "結果の書出し後の問合せ {n} 件に答えがない({what})。",
     "{n} questions after the results had no answer ({what}).",
     "層せん断力の割合は求められていない。ホストを確認して再実行すること。",
     "Shares of the story shear were not formed. Check the host, and run again."},
    {"R26", "{items}が最後まで書かれていない。", "Incomplete: {items}.",
     "ディスクの空きとファイルの使用状況を確認し、再実行すること。",
     "See that the disk has room and that nobody holds the file, and run again."},
    {"R26D", "結果ファイルが計算結果と異なる: {items}。",
     "The results file differs from the figures: {items}.",
     "実行中に結果ファイルを変更するものがないか確認し、再実行すること。",
     "See that nothing changes the results file, and run again."},
    {"R27", "範囲外の事項は「計算方法」による。壁・床などの面材は含まれない。",
     "Plates (walls, slabs) are not seen; for what is not covered see Method.",
     "範囲外の事項は別途確認すること。", "Check by itself what is not covered."},
    {"R28", "{items}: ルート2は適用できない。", "{items}: Route 2 is not open.",
     "適用範囲を確認すること。", "Check whether Route 2 may be used."},
    {"R29", "変位が 0 の階: {items}。r_s=0 として平均に算入されている。",
     "No mean drift: {items}. It counts as 0 in the mean: all other ratios are too large.",
     "その階の部材と荷重を確認すること。", "Check the story's members and its load."},
    {"R30", "剛性率は定義により 0.6 をまたぐ: {items}。",
     "The ratio crosses 0.6 with the definition used: {items}.", "層間変位のとり方を検討すること。",
     "Decide on the definition of the story's drift."},
    {"R32", "{items}: 地下階・塔屋が r̄_s に算入されていないか。",
     "{items}: is a basement or a penthouse in the mean?",
     "該当するレベルを FloorLevel から除くこと。", "Leave its level out of FloorLevel."},
};

std::string Replaced(std::string_view text, const std::vector<RemarkValue>& values,
                     std::string BothLanguages::*language) {
    std::string filled;
    while (!text.empty()) {
        const std::size_t open = text.find('{');
        filled += text.substr(0, open);
        if (open == std::string_view::npos) break;
        const std::size_t close = text.find('}', open);
        const std::string_view word = text.substr(open + 1, close - open - 1);
        for (const RemarkValue& value : values)
            if (value.word == word) filled += value.text.*language;
        text.remove_prefix(close + 1);
    }
    return filled;
}

}  // namespace

const RemarkTexts& RemarkTextsOf(std::string_view key) {
    for (const RemarkTexts& texts : kTexts)
        if (texts.key == key) return texts;
    throw std::out_of_range("no remark " + std::string(key));
}

BothLanguages FillIn(std::string_view en, std::string_view ja,
                     const std::vector<RemarkValue>& values) {
    return {Replaced(en, values, &BothLanguages::en), Replaced(ja, values, &BothLanguages::ja)};
}

BothLanguages Listed(const std::vector<BothLanguages>& items) {
    BothLanguages list;
    for (std::size_t i = 0; i < items.size() && i < kLongestList; ++i) {
        list.en.append(i == 0 ? "" : ", ").append(items[i].en);
        list.ja.append(i == 0 ? "" : "、").append(items[i].ja);
    }
    if (items.size() > kLongestList) {
        const std::string more = std::to_string(items.size() - kLongestList);
        list.en += " and " + more + " more";
        list.ja += " ほか " + more + " 件";
    }
    return list;
}

std::string Fixed(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    double rounded = std::round(value * scale) / scale;
    if (!std::isfinite(rounded)) rounded = value;
    if (rounded == 0.0) rounded = 0.0;
    char text[400];
    const auto [end, error] =
        std::to_chars(text, text + sizeof(text), rounded, std::chars_format::fixed, decimals);
    return error == std::errc() ? std::string(text, end) : std::string("?");
}

BothLanguages PercentOf(double share) {
    constexpr double kGreatest = 9.99;
    if (share > kGreatest) return {"more than 999%", "999%超"};
    if (share < -kGreatest) return {"less than -999%", "-999%未満"};
    const std::string text = Fixed(100.0 * share, 1) + "%";
    return {text, text};
}

std::string Shortest(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof(text), value).ptr};
}
