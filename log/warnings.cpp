#include "log/warnings.h"

namespace {

using enum WarningKind;
using enum WarningWeight;

// Misspelt words in the texts of the log are the tool's own and stay.
constexpr WarningTexts kTexts[] = {
    {kResultsNotAvailable, kError, "ORVEK results are not available.",
     "The model is not analysed, or was changed since. Run the host's analysis.",
     "解析結果がない。ホストで解析を実行すること。"},
    {kCannotOpenInput, kError, "Cannot open data file {path}.",
     "The input file was removed or locked; what it says was not read. Close the program that "
     "holds it, and run again.",
     "入力ファイルを開けない。使用中のプログラムを閉じて再実行すること。"},
    {kCannotOpenResults, kError, "Cannot open result file {path}.",
     "No results of this run were written: another program holds the file, or the folder is "
     "read-only. Close the file there, and run again.",
     "結果ファイルを開けず、書き出していない。使用中のプログラムを閉じて再実行すること。"},

    {kTooManyLinesForLoadCases, kError, "Data file line number is too large.",
     "The input file has no FIN line within 100,001 lines. End it with a line FIN.",
     "入力ファイルに FIN の行がない。最後の行を FIN とすること。"},
    {kTooManyLinesForFloors, kError,
     "Data file line number is too large as setting floor info with data file.",
     "No FIN line was found when the floor levels were read.",
     "床レベルの読込みで FIN の行が見つからない。"},
    // The stray "n" is part of the text.
    {kTooManyLinesForStoryMembers, kError,
     "nData file line number is too large as setting story member with data file.",
     "No FIN line was found when the story members were read.",
     "階の部材の読込みで FIN の行が見つからない。"},
    {kTooManyLinesForReportedMembers, kError,
     "Data file line number is too large as setting story members' output flag.",
     "No FIN line was found when the members to report were read.",
     "出力する部材の読込みで FIN の行が見つからない。"},
    {kTooManyLinesForAllowableValues, kError,
     "Data file line number is too large as setting story allowable values.",
     "No FIN line was found when the allowable values were read.",
     "許容値の読込みで FIN の行が見つからない。"},

    {kNoSuchStoryForMembers, kError,
     "Story number for setting story members in data file is bigger than number of stories. Stops "
     "setting story members.",
     "A story line of StoryMember names a story that does not exist; it and the lines after it "
     "were not read. Look whether the last level is missing in FloorLevel.",
     "StoryMember に存在しない階がある。その行以降は読まれない。FloorLevel の最後のコンマを"
     "確認すること。"},
    {kNoSuchStoryForAngle, kError,
     "Story number for allowable story deformation angle in data file is bigger than number of "
     "stories. Stops setting allowable values.",
     "AllowStoryDeformAngle names a story that does not exist; all allowable values further down "
     "stay at their defaults.",
     "AllowStoryDeformAngle に存在しない階がある。以降の許容値はすべて既定値のままである。"},
    {kNoSuchStoryForRatio, kError,
     "Story number for allowable story stiff ratio in data file is bigger than number of stories. "
     "Stops setting allowable values.",
     "AllowStoryStiffRatio names a story that does not exist; all allowable values further down "
     "stay at their defaults.",
     "AllowStoryStiffRatio に存在しない階がある。以降の許容値はすべて既定値のままである。"},
    {kNoSuchStoryForModulus, kError,
     "Story number for allowable story eccentricity modulus in data file is bigger than number of "
     "stories. Stops setting allowable values.",
     "AllowStoryEccentricityModulus names a story that does not exist; all allowable values "
     "further down stay at their defaults.",
     "AllowStoryEccentricityModulus に存在しない階がある。以降の許容値はすべて既定値のままで"
     "ある。"},

    {kNodeMissingForMember, kError,
     "Node number is not set correctly. Stops setting member info...",
     "A member's end node is not in the model; it and the members after it have no axes. Repair "
     "the model and analyse it again.",
     "端部の節点がモデルにない部材がある。以降の部材に局所座標軸がない。モデルを修正して再解析"
     "すること。"},
    {kMemberWithoutLength, kError,
     "Difference of x coordinates between start and end nodes is equal zero. Stops setting member "
     "info...",
     "A member has no length; it and the members after it have no axes. Delete it or merge its "
     "nodes, and analyse again.",
     "長さ 0 の部材がある。以降の部材に局所座標軸がない。モデルを修正して再解析すること。"},
    {kNodeMissingForFloor, kError, "Node number is not set correctly as setting floor...",
     "A member's end node is not in the model, found while floor levels were derived. The run "
     "ended.",
     "床レベルを求める際、端部の節点がモデルにない部材があった。計算は中断した。"},
    {kNodeMissingForLowerNode, kError,
     "Node number is not set correctly as setting lower node number...",
     "A member's end node is not in the model. The run ended.",
     "部材の下端の節点がモデルにない。計算は中断した。"},
    {kNodeMissingForUpperNode, kError,
     "Node number is not set correctly as setting upper node number...",
     "A member's end node is not in the model. The run ended.",
     "部材の上端の節点がモデルにない。計算は中断した。"},
    {kNodeMissingForHeight, kError, "Node number is not set correctly as setting member height...",
     "A story member's end node is not in the model. The run ended.",
     "階の部材の端部の節点がモデルにない。計算は中断した。"},
    {kNodeMissingForNamedStoryMember, kError,
     "Node number is not set correctly. Stops setting story member with data file...",
     "An end node of a member named in StoryMember is not in the model.",
     "StoryMember の部材の節点がモデルにない。"},
    {kNodeMissingForStoryMember, kError,
     "Node number is not set correctly. Stops setting story member...",
     "A member's end node is not in the model, found while story members were searched for. No "
     "check can be made.",
     "階の部材を探す際、端部の節点がモデルにない部材があった。検定はできない。"},
    {kNodeMissingForGravityCenter, kError,
     "Node number is not set correctly. Stops setting gravity center...",
     "A member's end node is not in the model. Centres of gravity from this story on were not "
     "calculated.",
     "部材の節点がモデルにない。この階以上の重心は求められていない。"},

    {kNoNodesForGravityCenter, kError,
     "Node info. has not set yet. Stops setting gravity center...",
     "Centres of gravity were not calculated, because the nodes were not read.",
     "節点が読まれていないため、重心は求められていない。"},
    {kNoStoriesForAllowableValues, kError,
     "Story info. has not set yet. Stops setting story allowable values...",
     "Allowable values of the input file were not read, because the stories were not set.",
     "階が設定されていないため、許容値は読まれていない。"},
    {kNoStoriesForBaseVector, kError,
     "Story info. has not set yet. Stops setting member base vector...",
     "Story members have no axes, because the stories were not set.",
     "階が設定されていないため、階の部材に局所座標軸がない。"},
    {kNoStoriesForDrift, kError,
     "Story info. has not set yet. Stops setting relative story displacement...",
     "Displacements and angles were not calculated, because the stories were not set.",
     "階が設定されていないため、層間変位・層間変形角は求められていない。"},
    {kNoStoriesForRsBar, kError, "Story info. has not set yet. Stops setting Rs bar...",
     "Stiffness ratios were not calculated, because the stories were not set.",
     "階が設定されていないため、剛性率は求められていない。"},
    {kNoStoriesForGravityCenter, kError,
     "Story info. has not set yet. Stops setting gravity center...",
     "Centres of gravity were not calculated, because the stories were not set.",
     "階が設定されていないため、重心は求められていない。"},
    // The words of the base vector, in the step of the shears too.
    {kNoStoriesForShear, kError, "Story info. has not set yet. Stops setting member base vector...",
     "Story shears were not calculated, because the stories were not set.",
     "階が設定されていないため、層せん断力は求められていない。"},
    {kNoStoriesForStiffness, kError,
     "Story info. has not set yet. Stops setting story member horizontal stiffness...",
     "Horizontal stiffness was not calculated, because the stories were not set.",
     "階が設定されていないため、水平剛性は求められていない。"},
    {kNoStoriesForRigidityCenter, kError,
     "Story info. has not set yet. Stops setting center of rigidity...",
     "Centres of rigidity were not calculated, because the stories were not set.",
     "階が設定されていないため、剛心は求められていない。"},
    {kNoStoriesForModulus, kError,
     "Story info. has not set yet. Stops setting eccentricity modulus...",
     "Eccentricity moduli were not calculated, because the stories were not set.",
     "階が設定されていないため、偏心率は求められていない。"},

    {kNoWeight, kWarning,
     "Total weight is nearly equal to 0 as setting gravity center of {story}-th story. Gravity "
     "center is set as (0, 0).",
     "Story {story}: no member that crosses it carries vertical force under the dead load case; "
     "its centre of gravity was not calculated. Check DeadLoadCaseNumber.",
     "{story}階: 長期荷重ケースの軸力がなく、重心は求められない。DeadLoadCaseNumber を確認する"
     "こと。"},
    {kNoKzForRigidityCenter, kWarning,
     "Total stiffness(Kz) is nearly equal to 0 as setting rigidity center of {story}-th story. X "
     "coord. of rigidity center is set as 0.",
     "Story {story}: no stiffness in the second direction; the X coordinate of the centre of "
     "rigidity was not calculated. Check EarthquakeLoadCaseNumber.",
     "{story}階: 第2方向の水平剛性がなく、剛心の x 座標は求められない。"
     "EarthquakeLoadCaseNumber を確認すること。"},
    {kNoKxForRigidityCenter, kWarning,
     "Total stiffness(Kx) is nearly equal to 0 as setting rigidity center of {story}-th story. "
     "Z(or Y) coord. of rigidity center is set as 0.",
     "Story {story}: no stiffness in X; the second coordinate of the centre of rigidity was not "
     "calculated. Check EarthquakeLoadCaseNumber.",
     "{story}階: X方向の水平剛性がなく、剛心の第2座標は求められない。"
     "EarthquakeLoadCaseNumber を確認すること。"},
    {kNoTorsionalStiffness, kWarning,
     "Totional stiffness(KR) is less than or equal to 0 as setting eccentricity modulus of "
     "{story}-th story. Eccentricity modulus is set as 0.",
     "Story {story}: no torsional stiffness, or a negative one; both eccentricity moduli were not "
     "calculated. Look for members whose displacement has the wrong sign.",
     "{story}階: ねじり剛性が 0 以下で、偏心率は求められない。変位の符号が逆の部材を確認する"
     "こと。"},
    {kNoKxForModulus, kWarning,
     "Total stiffness(Kx) is nearly equal to 0 as setting eccentricity modulus of {story}-th "
     "story. Eccentricity modulus in X direc. is set as 0.",
     "Story {story}: no stiffness in X; the eccentricity modulus in X was not calculated.",
     "{story}階: X方向の水平剛性がなく、X方向の偏心率は求められない。"},
    {kNoKzForModulus, kWarning,
     "Total stiffness(Kz) is nearly equal to 0 as setting eccentricity modulus of {story}-th "
     "story. Eccentricity modulus in Z direc. is set as 0.",
     "Story {story}: no stiffness in the second direction; the eccentricity modulus in it was not "
     "calculated.",
     "{story}階: 第2方向の水平剛性がなく、第2方向の偏心率は求められない。"},
};

constexpr bool StandInTheOrderOfTheKinds() {
    int next = 0;
    for (const WarningTexts& texts : kTexts)
        if (static_cast<int>(texts.kind) != next++) return false;
    return next == static_cast<int>(kNoKzForModulus) + 1;
}
static_assert(StandInTheOrderOfTheKinds());

void Replace(std::string& text, std::string_view placeholder, const std::string& value) {
    const std::size_t place = text.find(placeholder);
    if (place != std::string::npos) text.replace(place, placeholder.size(), value);
}

}  // namespace

std::span<const WarningTexts> AllWarningTexts() {
    return kTexts;
}

const WarningTexts& TextsOf(WarningKind kind) {
    return kTexts[static_cast<std::size_t>(kind)];
}

std::string FillIn(std::string_view text, const Warning& warning) {
    std::string filled(text);
    Replace(filled, "{story}", std::to_string(warning.story));
    Replace(filled, "{path}", warning.path);
    return filled;
}
