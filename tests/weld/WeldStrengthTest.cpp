#include "weld/WeldStrength.h"

#include <gtest/gtest.h>

using namespace WeldStrength;

TEST(WeldStrength, ListsMapToTheirNumbers) {
    int16_t spi = 0;
    ASSERT_TRUE(SegmentsPerInchOf(3, spi));
    EXPECT_EQ(spi, 32);
    EXPECT_FALSE(SegmentsPerInchOf(5, spi));
    EXPECT_EQ(spi, 32);
    EXPECT_EQ(WeldStripIndexOf(64), 4);
    EXPECT_EQ(WeldStripIndexOf(12), -1);
    EXPECT_EQ(kWeldStripItems[2], "  1/16\"");

    double fexx = 0;
    ASSERT_TRUE(ElectrodeStrengthOf(4, fexx));
    EXPECT_EQ(fexx, 100);
    EXPECT_EQ(kElectrodeItems[4], "  E100XX");
    EXPECT_FALSE(ElectrodeStrengthOf(6, fexx));

    double d = 0;
    ASSERT_TRUE(WeldSizeInchesOf(3, d));
    EXPECT_EQ(d, 0.25);
    ASSERT_TRUE(WeldSizeInchesOf(15, d));
    EXPECT_EQ(d, 1.0);
    EXPECT_EQ(kSizeItems[10], "  11/16\"");
    EXPECT_FALSE(WeldSizeInchesOf(-1, d));
}

TEST(WeldStrength, DesignMethods) {
    struct Case {
        int index;
        double factor;
        const char* caption;
    };
    const Case cases[] = {{0, 1.0, "Weld Group Nominal Strength, KIPS"},
                          {1, 0.5, "Weld Group Allowable Strength, KIPS"},
                          {2, 0.75, "Weld Group Design Strength, KIPS"}};
    for (const Case& c : cases) {
        double f = 0;
        std::string caption;
        ASSERT_TRUE(MethodOf(c.index, f, caption));
        EXPECT_EQ(f, c.factor);
        EXPECT_EQ(caption, c.caption);
    }
    // Outside the table neither changes.
    double f = 9;
    std::string caption = "x";
    EXPECT_FALSE(MethodOf(3, f, caption));
    EXPECT_EQ(f, 9);
    EXPECT_EQ(caption, "x");
}

TEST(WeldStrength, CapacityArithmeticAndText) {
    // E70XX, 1/4", LRFD on a unit capacity of 1.23456.
    const double v = DisplayedCapacity(70, 1.23456, 0.25, 0.75);
    EXPECT_EQ(CapacityText(v), "16.20360  ");
    // Doubling the weld size doubles the number.
    EXPECT_DOUBLE_EQ(DisplayedCapacity(70, 1.23456, 0.5, 1.0), 2 * DisplayedCapacity(70, 1.23456, 0.25, 1.0));
    EXPECT_EQ(CapacityText(0), "0.00000  ");
}

TEST(WeldStrength, SavedIndicesAreClampedFromAbove) {
    EXPECT_EQ(ClampSaved(kWeldClassSetting, 9), 5);
    EXPECT_EQ(ClampSaved(kWeldClassSetting, 2), 2);
    EXPECT_EQ(ClampSaved(kWeldClassSetting, -3), -3);
    EXPECT_EQ(kWeldStripSetting.defaultValue, 3);
    EXPECT_EQ(kDesignMethodSetting.defaultValue, 0);
}
