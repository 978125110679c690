#include "units/core/ImperialText.h"

#include "shell/core/Primitives.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

using namespace Imperial;

namespace {

// Typed feet-and-inch texts, read in inches; refused ones give the error text.
TEST(ImperialValue, ReadsAndRefuses) {
    const std::pair<const char*, double> read[] = {
        {"5'-3 1/2\"", 63.5}, {"5' - 3 1/2\"", 63.5}, {"5'", 60},    {"5'-3", 63},    {"3 1/2", 3.5},
        {"1/2\"", 0.5},       {"0.5", 0.5},           {"-5'-3\"", -63}, {"5'3", 60},  {"3 abc", 3},
        {"5'abc", 60},        {"--5", 5},             {"5 ", 5},     {"1E2", 100},    {" 5", 0},
        {"5'  -   3\"", 63},  {"12", 12},             {"3 1/2\"", 3.5}, {"-1/4", -0.25}, {"0'-0\"", 0},
        {"2'-1/2\"", 24.5}};
    for (const auto& [text, inches] : read) {
        const prim::Variant v = Imperial_Value(text, "IN");
        ASSERT_TRUE(v.IsNumber()) << text;
        EXPECT_NEAR(v.number, inches, 1e-12) << text;
        EXPECT_TRUE(Imperial_InputOk(text)) << text;
    }
    for (const char* text : {"", "5'3\"", "5-3", "3-1/2\"", "5-3'", "5'-3-1/2\"", "'5", "\"5", "1/2/3", "/2",
                             "1/ 2", "1/2 ", "1 /2", "1/0", "5'-", "5FT", "3IN", "1E-2", "5'-3\"x", "abc", "-"}) {
        EXPECT_EQ(Imperial_Value(text, "IN").text, kError) << text;
        EXPECT_FALSE(Imperial_InputOk(text)) << text;
    }
}

TEST(ImperialClassify, KindsAndOrderOfMarks) {
    const std::pair<const char*, int16_t> cases[] = {
        {"3 1/2", 0}, {"5'", 1}, {"5-3", 2}, {"5'-3 1/2", 3}, {"3 1/2\"", 4}, {"5'3\"", 5},
        {"5-3\"", 6}, {"5'-3 1/2\"", 7}, {"5\"-3'", kRefused}, {"'5", kRefused}, {"-5'", 1}};
    for (const auto& [text, kind] : cases) EXPECT_EQ(Imperial_Classify(text), kind) << text;
    for (int16_t k : {0, 1, 3, 4, 7}) EXPECT_TRUE(Imperial_KindIsValid(k));
    for (int16_t k : {2, 5, 6, 100}) EXPECT_FALSE(Imperial_KindIsValid(k));
}

struct TextCase {
    double feet;
    int16_t mode;
    const char* text;
};

TEST(ImperialText, DigitsToTheSixteenth) {
    // Half a sixteenth goes to the even sixteenth: 2.5 -> 2 (1/8), 3.5 -> 4 (1/4).
    const TextCase cases[] = {
        {2.5 / 16 / 12, 0, "1/8\""},      {3.5 / 16 / 12, 0, "1/4\""},     {1 + 1.0 / 192, 0, "1'-1/16\""},
        {1 + 1.0 / 192, 1, "12 1/16\""},  {2.5 / 12, 1, "2 1/2\""},        {10, 0, "10'-0\""},
        {0.5, 1, "6\""},                 {5.291666667, 0, "5'-3 1/2\""},  {5.291666667, 1, "63 1/2\""},
        {5, 0, "5'-0\""},                {5, 1, "60\""},                  {0.25, 0, "3\""},
        {0.03125, 0, "3/8\""},           {0.2552083333333333, 0, "3 1/16\""}, {0, 0, "0\""},
        {-5.25, 0, "-5'-3\""},
        {5.9999, 0, "5'-12\""},  // the inches round up to 12 without carrying into the feet
        {5.9999, 1, "72\""},     {-0.0001, 0, "-0\""}};
    for (const auto& c : cases) EXPECT_EQ(Imperial_Text(c.feet, 16, c.mode, 0), c.text) << c.feet << " mode " << c.mode;
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

TEST(ImperialText, ZeroDenominatorAddsAnInch) { EXPECT_EQ(Imperial_Text(0, 0, 0, 0), "1\""); }

TEST(NumberWords, GroupsAndScales) {
    const std::pair<double, const char*> cases[] = {
        {1, "One"},
        {12, "Twelve"},
        {21, "Twenty One"},
        {40, "Forty"},
        {100, "One Hundred"},
        {1001, "One Thousand One"},
        {1000000, "One Million"},
        {1e21, "One Infinitillion"},
        {115, "One Hundred Fifteen"},
        {2000300, "Two Million Three Hundred"},
        {1234567.89, "One Million Two Hundred Thirty Four Thousand Five Hundred Sixty Seven Point Eighty Nine"},
        {5.25, "Five Point Twenty Five"},
        {1e18, "One Quintillion"}};
    for (const auto& [v, text] : cases) EXPECT_EQ(Number_Words(v, "", ""), text) << v;
}

TEST(NumberWords, Labels) {
    EXPECT_EQ(Number_Words(5.25, "Dollar", "Cent"), "Five Dollars And Twenty Five Cents");
    EXPECT_EQ(Number_Words(1, "Dollar", "Cent"), "One Dollar");
    // Whole digits truncated, part digits rounded: a part that rounds up to a
    // whole carries nothing, as the procedure has it.
    EXPECT_EQ(Number_Words(1.995, "Dollar", "Cent"), "One Dollar");
    EXPECT_EQ(Number_Words(0.01, "Dollar", "Cent"), "One Cent");
    EXPECT_EQ(Number_Words(3, "Foot", ""), "Three Foots");
    EXPECT_EQ(Number_Words(5, "", "Cent"), "Five Hundred Cents");
}

TEST(FractionWord, OrdinalsAndPlurals) {
    const std::tuple<double, double, const char*> cases[] = {
        {2, 1, "Half"},        {2, 3, "Halves"},        {3, 1, "Third"},           {4, 3, "Fourths"},
        {8, 1, "Eight"},       {8, 3, "Eights"},        {9, 1, "Ninth"},           {10, 1, "Tenth"},
        {12, 1, "Twelfth"},    {16, 1, "Sixteenth"},    {16, 5, "Sixteenths"},     {20, 1, "Twentieth"},
        {25, 1, "Twenty Fifth"}, {32, 1, "Thirty Second"}, {28, 1, "Twenty Eighth"}, {29, 1, "Twenty Ninth"},
        {21, 1, "Twenty First"}, {64, 3, "Sixty Fourths"}, {100, 1, "One Hundredth"}};
    for (const auto& [d, n, text] : cases) EXPECT_EQ(Fraction_Word(d, n), text) << d << "," << n;
}

TEST(ImperialText, WordsForm) {
    EXPECT_EQ(Imperial_Text(5.291666667, 16, 1, -1), "Sixty Three and One Half Inches");
    EXPECT_EQ(Imperial_Text(1 + 1.0 / 12, 16, 0, -1), "One Foot-One Inch");
    EXPECT_EQ(Imperial_Text(0.03125, 16, 0, -1), "Three Eights Inch");
    EXPECT_EQ(Imperial_Text(0, 16, 0, -1), "0 Inch");
    EXPECT_EQ(Imperial_Text(-5, 16, 0, -1), "(Five Feet-0 Inch)");
    EXPECT_EQ(Imperial_Text(5, 16, 1, -1), "Sixty Inches");
}

}  // namespace
