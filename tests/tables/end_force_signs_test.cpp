#include "tables/end_force_signs.h"

#include <gtest/gtest.h>

// A column under 100 kN of compression: at its start the base pushes up, along local x; at its end
// the load pushes down, against it.
TEST(EndForceSigns, TurnWhatIsStatedIntoWhatActsOnTheMember) {
    constexpr double kAtStart = 100.0, kAtEnd = -100.0;
    const struct {
        EndForceSense sense;
        double statedAtStart, statedAtEnd;
    } statements[] = {
        {EndForceSense::kOnMember, 100.0, -100.0},
        {EndForceSense::kOnNode, -100.0, 100.0},
        {EndForceSense::kSection, -100.0, -100.0},
        {EndForceSense::kSectionCompression, 100.0, 100.0},
    };
    for (const auto& statement : statements) {
        EXPECT_EQ(kAtStart, statement.statedAtStart * SignsOf(statement.sense, 0).axial);
        EXPECT_EQ(kAtEnd, statement.statedAtEnd * SignsOf(statement.sense, 1).axial);
    }
}

TEST(EndForceSigns, OfCompressionDifferFromThoseOfTensionAlongTheMemberOnly) {
    for (const std::size_t end : {std::size_t{0}, std::size_t{1}}) {
        const EndForceSigns tension = SignsOf(EndForceSense::kSection, end);
        const EndForceSigns compression = SignsOf(EndForceSense::kSectionCompression, end);
        EXPECT_EQ(tension.other, compression.other);
        EXPECT_EQ(tension.axial, -compression.axial);
    }
}
