#include <gtest/gtest.h>

#include "support/BoardTestDoc.h"
#include "board/core/Dimensions.h"

using namespace Dimensions;
using namespace Layout;
using namespace boardtest;

TEST(Dims, ExtentsRunOverAllFourPointsOfExistingRows) {
    DimTable t = BlankDims();
    EXPECT_TRUE(Dims_Empty(t));
    bool found = true;
    EXPECT_EQ(Dims_MinX(t, found), 0.0f);
    EXPECT_FALSE(found);
    EXPECT_EQ(Dims_MaxY(t, found), 0.0f);
    EXPECT_FALSE(found);

    t = {Dim(1, 2, 3, 2, 2, 0.5f), Dim(-9, -9, 9, 9, 9, 9, false), Dim(4, 1, 4, 5, 6, 3)};
    EXPECT_FALSE(Dims_Empty(t));
    EXPECT_EQ(Dims_MinX(t, found), 1.0f);
    EXPECT_TRUE(found);
    EXPECT_EQ(Dims_MinY(t, found), 0.5f);  // DimPos counts
    EXPECT_EQ(Dims_MaxX(t, found), 6.0f);
    EXPECT_EQ(Dims_MaxY(t, found), 5.0f);
}

TEST(Dims, ShiftAndScaleTouchOnlyExistingRows) {
    DimTable t = {Dim(1, 1, 3, 1, 2, 0), Dim(1, 1, 1, 1, 1, 1, false)};
    bool ok = false;
    int yields = 0;
    Shift_Dims(t, 1.0, 2.0, ok, [&] { ++yields; });
    EXPECT_TRUE(ok);
    EXPECT_EQ(yields, 2);
    EXPECT_EQ(t[0].DimP1.X, 2.0f);
    EXPECT_EQ(t[0].DimPos.Y, 2.0f);
    EXPECT_EQ(t[0].DimMid.X, 3.0f);
    EXPECT_EQ(t[1].DimP1.X, 1.0f);
    ok = false;
    Scale_Dims(t, 0.5f, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(t[0].DimP2.X, 2.0f);
    EXPECT_EQ(t[0].DimMid.Y, 1.5f);
    EXPECT_EQ(t[1].DimP2.X, 1.0f);
}
