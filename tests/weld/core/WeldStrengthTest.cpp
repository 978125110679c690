#include <gtest/gtest.h>

#include "weld/core/WeldStrength.h"

using namespace WeldStrength;

TEST(WeldStrength, ListIndicesMapAtTheirEndsAndOutsideChangeNothing) {
    int16_t spi = 0;
    double v = 0;
    std::string caption = "x";
    EXPECT_TRUE(SegmentsPerInchOf(4, spi) && !SegmentsPerInchOf(5, spi) && spi == 64);
    EXPECT_TRUE(WeldStripIndexOf(4) == 0 && WeldStripIndexOf(12) == -1);
    EXPECT_TRUE(ElectrodeStrengthOf(5, v) && !ElectrodeStrengthOf(6, v) && v == 110);
    EXPECT_TRUE(WeldSizeInchesOf(0, v) && v == 0.0625);
    EXPECT_TRUE(WeldSizeInchesOf(15, v) && !WeldSizeInchesOf(-1, v) && v == 1.0);
    EXPECT_TRUE(MethodOf(1, v, caption) && !MethodOf(3, v, caption) && v == 0.5);
    EXPECT_EQ(caption, "Weld Group Allowable Strength, KIPS");
}

TEST(WeldStrength, CapacityArithmeticTextAndSavedIndices) {
    // E70XX, 1/4", LRFD on a unit capacity of 1.23456.
    EXPECT_EQ(CapacityText(DisplayedCapacity(70, 1.23456, 0.25, 0.75)), "16.20360  ");
    EXPECT_EQ(CapacityText(0), "0.00000  ");
    // Saved indices are clamped from above only; the window leaves a negative one unselected.
    EXPECT_EQ(ClampSaved(kWeldClassSetting, 9), 5);
    EXPECT_EQ(ClampSaved(kWeldClassSetting, 2), 2);
    EXPECT_EQ(ClampSaved(kWeldClassSetting, -3), -3);
}
