#include "shell/core/KeyFilters.h"

#include <gtest/gtest.h>

using namespace KeyFilters;

namespace {

BoxState Box(std::string text, bool allSelected = false) { return {std::move(text), allSelected}; }

TEST(KeyFilters, WhichKeysPassEachFilter) {
    // Columns: Digit, PositiveDecimal, UnsignedDecimal, SignedDecimal, Architectural,
    // each on an empty box.
    const struct {
        char key;
        bool pass[5];
    } cases[] = {
        {'0', {1, 1, 1, 1, 1}},  {'9', {1, 1, 1, 1, 1}},  {'\b', {1, 1, 1, 1, 1}},
        {'\t', {1, 1, 1, 1, 1}}, {'\r', {1, 1, 1, 1, 1}}, {'.', {0, 1, 1, 1, 1}},
        {'-', {0, 0, 0, 1, 1}},  {' ', {0, 0, 0, 0, 1}},  {'/', {0, 0, 0, 0, 1}},
        {'"', {0, 0, 0, 0, 1}},  {'\'', {0, 0, 0, 0, 1}}, {'a', {0, 0, 0, 0, 0}},
        {'+', {0, 0, 0, 0, 0}},  {',', {0, 0, 0, 0, 0}},  {'\x1b', {0, 0, 0, 0, 0}},
    };
    const BoxState empty = Box("");
    for (const auto& c : cases) {
        const int16_t k = c.key;
        SCOPED_TRACE(static_cast<int>(k));
        EXPECT_EQ(Key_Digit(k), c.pass[0] ? k : 0);
        EXPECT_EQ(Key_PositiveDecimal(k), c.pass[1] ? k : 0);
        EXPECT_EQ(Key_UnsignedDecimal(k, empty), c.pass[2] ? k : 0);
        EXPECT_EQ(Key_SignedDecimal(k, empty), c.pass[3] ? k : 0);
        EXPECT_EQ(Key_Architectural(k, empty), c.pass[4] ? k : 0);
    }
}

TEST(KeyFilters, PointAndMinusDependOnTheText) {
    EXPECT_EQ(Key_PositiveDecimal('.'), '.');  // a second point is not its business
    EXPECT_EQ(Key_UnsignedDecimal('.', Box("3.5")), 0);
    EXPECT_EQ(Key_SignedDecimal('.', Box("3.5")), 0);
    EXPECT_EQ(Key_SignedDecimal('.', Box("3.5", true)), 0);  // only the minus looks at the selection
    EXPECT_EQ(Key_SignedDecimal('-', Box("-3")), 0);
    EXPECT_EQ(Key_SignedDecimal('-', Box("3-")), 0);
    EXPECT_EQ(Key_SignedDecimal('-', Box("35")), '-');  // not tied to the first place
    EXPECT_EQ(Key_SignedDecimal('-', Box("-3", true)), '-');
    EXPECT_EQ(Key_Architectural('.', Box("1.5")), '.');
}

TEST(KeyFilters, NormalizeAngle) {
    const struct {
        double in, out;
    } cases[] = {
        {0, 0},         {360, 0},     {725.25, 5.25}, {-90, 270},    {-10.5, 350.5},
        {45.5, 45.5},   {359.75, 359.75}, {-360, 0},  {-800, 280},   {-800.5, 281.5},
        {-0.5, 0.5},    {1080, 0},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(Normalize_Angle(c.in), c.out) << c.in;
}

}  // namespace
