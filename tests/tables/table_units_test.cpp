#include "tables/table_units.h"

#include <gtest/gtest.h>

TEST(TableUnit, TurnsRoundNumbersIntoTheNearestOnes) {
    EXPECT_EQ(3.5, FindUnit(LengthUnits(), "mm")->toMetric(3500.0));
    EXPECT_EQ(0.12, FindUnit(LengthUnits(), "cm")->toMetric(12.0));
    EXPECT_EQ(0.3048, FindUnit(LengthUnits(), "ft")->toMetric(1.0));
    EXPECT_EQ(0.0254, FindUnit(LengthUnits(), "in")->toMetric(1.0));
    EXPECT_EQ(12.0, FindUnit(LengthUnits(), "ft")->toEnglish(1.0));
    EXPECT_EQ(100.0, FindUnit(LengthUnits(), "mm")->toEnglish(2540.0));
    EXPECT_EQ(9.80665, FindUnit(ForceUnits(), "tf")->toMetric(1.0));
    EXPECT_EQ(9.80665, FindUnit(ForceUnits(), "kgf")->toMetric(1000.0));
    EXPECT_EQ(4.4482216152605, FindUnit(ForceUnits(), "kip")->toMetric(1.0));
    EXPECT_EQ(4.4482216152605, FindUnit(ForceUnits(), "lbf")->toMetric(1000.0));
    EXPECT_EQ(0.001, FindUnit(ForceUnits(), "N")->toMetric(1.0));
}

TEST(TableUnit, IsNoneByAnotherName) {
    for (const char* name : {"", "M", "meter", "KN", "ton"}) {
        EXPECT_EQ(nullptr, FindUnit(LengthUnits(), name)) << name;
        EXPECT_EQ(nullptr, FindUnit(ForceUnits(), name)) << name;
    }
}
