#include "route2/why_undetermined.h"

BothLanguages ReasonOf(WhyUndetermined why) {
    switch (why) {
        case WhyUndetermined::kRunEndedEarly:
            return {"the run ended before", "計算が途中で終わった"};
        case WhyUndetermined::kNoStoryMembers:
            return {"no story members", "対象部材がない"};
        case WhyUndetermined::kCaseNotInModel:
            return {"the load case is not in the model", "荷重ケースがモデルにない"};
        case WhyUndetermined::kEqualCases:
            return {"both directions have the same case", "両方向が同じ荷重ケース"};
        case WhyUndetermined::kNoDrift:
            return {"the mean drift is 0", "平均変位が 0"};
        case WhyUndetermined::kNoWeight:
            return {"no weight", "重量がない"};
        case WhyUndetermined::kNoStiffness:
            return {"no stiffness in one direction", "一方向の水平剛性がない"};
        case WhyUndetermined::kNoTorsionalStiffness:
            return {"no torsional stiffness", "ねじり剛性が 0 以下"};
        case WhyUndetermined::kNotFinite:
            return {"not a number", "数値にならない"};
    }
    return {};
}
