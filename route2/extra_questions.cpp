#include "route2/extra_questions.h"

std::optional<SixDoubles> ExtraQuestions::EndForces(std::int32_t member, std::int32_t end,
                                                    std::int32_t loadCase) {
    if (!mayAsk_) return std::nullopt;
    try {
        SixDoubles forces{};
        host_.GetMemberEndForces(member, end, loadCase, forces);
        return forces;
    } catch (const HostCallError& error) {
        Note(error);
        return std::nullopt;
    }
}

std::optional<SixDoubles> ExtraQuestions::Displacements(std::int32_t node, std::int32_t loadCase) {
    if (!mayAsk_) return std::nullopt;
    try {
        SixDoubles displacements{};
        host_.GetNodeDisplacements(node, loadCase, displacements);
        return displacements;
    } catch (const HostCallError& error) {
        Note(error);
        return std::nullopt;
    }
}

void ExtraQuestions::Note(const HostCallError& error) {
    if (failures_ == 0) firstFailure_ = error.what();
    ++failures_;
}
