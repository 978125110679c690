#include "units/core/ImperialText.h"

#include "shell/core/Primitives.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CaseTable.h"

using namespace Imperial;

namespace {

const std::string kCases = FERROLITH_TEST_DATA "/units_cases.table";

TEST(ImperialValue, ReadsAndRefuses) {
    for (const casetable::Row& c : casetable::Read(kCases, "values")) {
        SCOPED_TRACE("line " + std::to_string(c.line));
        const prim::Variant v = Imperial_Value(c[0], "IN");
        EXPECT_EQ(Imperial_InputOk(c[0]), c[1] != "refused");
        if (c[1] == "refused") {
            EXPECT_EQ(v.text, kError);
        } else {
            ASSERT_TRUE(v.IsNumber());
            EXPECT_NEAR(v.number, c.Num(1), 1e-12);
        }
    }
}

TEST(ImperialClassify, KindsAndOrderOfMarks) {
    for (const casetable::Row& c : casetable::Read(kCases, "kinds"))
        EXPECT_EQ(Imperial_Classify(c[0]), c[1] == "refused" ? kRefused : c.Num(1)) << "line " << c.line;
    for (int16_t k : {0, 1, 3, 4, 7}) EXPECT_TRUE(Imperial_KindIsValid(k));
    for (int16_t k : {2, 5, 6, 100}) EXPECT_FALSE(Imperial_KindIsValid(k));
}

TEST(ImperialText, DigitsToTheSixteenthAndWords) {
    for (const casetable::Row& c : casetable::Read(kCases, "texts"))
        EXPECT_EQ(Imperial_Text(c.Num(0), 16, static_cast<int16_t>(c.Num(1)), static_cast<int16_t>(c.Num(2))), c[3])
            << "line " << c.line;
    EXPECT_EQ(Imperial_Text(0, 0, 0, 0), "1\"") << "a zero denominator adds an inch";
}

TEST(ImperialText, ReadsBackWhatItWrites) {
    for (int sixteenths = -400; sixteenths <= 400; sixteenths += 7) {
        double inches = sixteenths / 16.0;
        std::string text = Imperial_Text(inches / 12.0, 16, 0, 0);
        prim::Variant v = Imperial_Value(text, "IN");
        ASSERT_TRUE(v.IsNumber()) << text;
        EXPECT_NEAR(v.number, inches, 1e-9) << text;
    }
}

TEST(NumberWords, GroupsScalesLabelsAndFractions) {
    for (const casetable::Row& c : casetable::Read(kCases, "number words"))
        EXPECT_EQ(Number_Words(c.Num(0), c[1], c[2]), c[3]) << "line " << c.line;
    for (const casetable::Row& c : casetable::Read(kCases, "fraction words"))
        EXPECT_EQ(Fraction_Word(c.Num(0), c.Num(1)), c[2]) << "line " << c.line;
}

}  // namespace
