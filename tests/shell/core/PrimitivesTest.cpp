#include "shell/core/Primitives.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace prim;

namespace {

const std::string k100Hash(100, '#');

TEST(Format, WritesByPicture) {
    const struct {
        double value;
        std::string picture, expected;
    } cases[] = {
        // Fixed decimals with literal trailing blanks kept.
        {1.23456789, "0.00000  ", "1.23457  "}, {0, "0.00000  ", "0.00000  "},
        {123.456, "0.000     ", "123.456     "}, {0.000123, "0.000000000", "0.000123000"},
        {1.0 / 3.0, "0.000000000", "0.333333333"},
        // "#" after the point: shown only when significant; a bare trailing point stays.
        {30, "0.####", "30."}, {30.5, "0.####", "30.5"}, {12.345678, "0.####", "12.3457"},
        {30, "0.0####", "30.0"}, {0.125, "0.0####", "0.125"}, {-7.75, "0.0####", "-7.75"},
        {5, "0.000##  ", "5.000  "}, {2.123456, "0.000##  ", "2.12346  "},
        {1.5, "0.000#", "1.500"}, {1.23456, "0.000#", "1.2346"},
        {3.25, "#0.00", "3.25"}, {0.25, "#.##", ".25"}, {0, "#", ""},
        // Thousands separators.
        {1234567.891, "##,##0.000  ", "1,234,567.891  "}, {0.5, "##,##0.000  ", "0.500  "},
        {999.9996, "##,##0.000  ", "1,000.000  "}, {-1234.5, "##,##0.00####################", "-1,234.50"},
        {3.14159265358979, "##,##0.00####################", "3.14159265358979"},
        {6.02214e23, "##,##0.00####################", "602,214,000,000,000,000,000,000.00"},
        // Whole-number pictures.
        {5, "00", "05"}, {7, "000", "007"}, {123, "00", "123"}, {1234.4, "0", "1234"},
        // Ties go away from zero, after the value is taken to 15 digits.
        {2.5, "0", "3"}, {-2.5, "0", "-3"}, {0.5, "0", "1"}, {2.675, "0.00", "2.68"},
        {1.005, "0.00", "1.01"}, {0.125, "0.00", "0.13"}, {0.005, "0.0", "0.0"},
        {-0.001, "0.00", "-0.00"},
        // Many "#": at most 15 significant digits come out.
        {1.0 / 3.0, "0." + k100Hash, "0.333333333333333"}, {2.0 / 3.0, "#0." + k100Hash, "0.666666666666667"},
        {100, "0." + k100Hash, "100."}, {0.1 + 0.2, "0." + k100Hash, "0.3"},
        // Exponent forms.
        {1, "0." + k100Hash + "E+00", "1.E+00"}, {1.0 / 3.0, "0." + k100Hash + "E+00", "3.33333333333333E-01"},
        {-12345, "0." + k100Hash + "E+00", "-1.2345E+04"}, {0, "0.00E+00", "0.00E+00"},
        {12345, "0.00E+00", "1.23E+04"}, {99999, "0.00E+00", "1.00E+05"},
        {1.5e-300, "0.0E+00", "1.5E-300"}, {0.00012, "0.0E-00", "1.2E-04"},
        {12000, "0.0E-00", "1.2E04"}, {6.62607e-34, "0.000E+00", "6.626E-34"},
        // Literal text before the digits.
        {3, "Reg-000", "Reg-003"}};
    for (const auto& c : cases)
        EXPECT_EQ(Format(c.value, c.picture), c.expected) << "Format(" << c.value << ", \"" << c.picture << "\")";
}

TEST(Val, ReadsTheNumberAtTheStart) {
    const std::pair<const char*, double> cases[] = {
        {"5'-3", 5},     {"  12  34", 1234}, {"-  5", -5}, {"1E2", 100},  {"1.5.3", 1.5}, {"abc", 0},
        {"", 0},         {".5", 0.5},        {"&H1F", 31}, {"&O17", 15},  {"1e", 1},      {"1e+", 1},
        {"+3", 3},       {"1D2", 100},       {"- 3 . 5", -3.5}, {"3 1/2", 31}, {"2\"", 2}, {"--5", 0},
        {"1E-2", 0.01},  {"\t7", 7}};
    for (const auto& [text, expected] : cases) EXPECT_DOUBLE_EQ(Val(text), expected) << '"' << text << '"';
}

TEST(IsNumeric, WholeTextMustBeOneNumber) {
    const std::pair<const char*, bool> cases[] = {
        {"5", true},    {" 5 ", true}, {"-5.5", true}, {"1E2", true},  {"1E-2", true}, {"1,000", true},
        {"+.5", true},  {"5.", true},  {"&H10", true}, {"1d3", true},  {"", false},    {" ", false},
        {".", false},   {"-", false},  {"5FT", false}, {"1/2", false}, {"1E", false},  {",5", false},
        {"5'", false},  {"3 4", false}, {"--5", false}, {"1.2.3", false}};
    for (const auto& [text, expected] : cases) EXPECT_EQ(IsNumeric(text), expected) << '"' << text << '"';
}

TEST(PlainText, FifteenDigitsAndExponentForms) {
    const std::pair<double, const char*> cases[] = {
        {0, "0"},
        {1, "1"},
        {-63, "-63"},
        {63.5, "63.5"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {123456789012345, "123456789012345"},
        {1e15, "1E+15"},
        {1234567890123456, "1.23456789012346E+15"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {1.5e-10, "1.5E-10"},
        {-1e300, "-1E+300"},
        {3.14159265358979, "3.14159265358979"},
        {-0.0, "0"}};
    for (const auto& [v, expected] : cases) EXPECT_EQ(PlainText(v), expected) << v;
}

TEST(WholeNumbers, TiesToEvenAndRangeChecks) {
    EXPECT_EQ(RoundEven(2.5), 2);
    EXPECT_EQ(RoundEven(3.5), 4);
    EXPECT_EQ(RoundEven(-2.5), -2);
    EXPECT_EQ(RoundEven(2.51), 3);
    int16_t s = 7;
    EXPECT_TRUE(ToInt16(32767.4, s));
    EXPECT_EQ(s, 32767);
    EXPECT_FALSE(ToInt16(32767.5, s));  // rounds to 32768
    EXPECT_EQ(s, 32767) << "a failed conversion leaves the target alone";
    EXPECT_TRUE(ToInt16(-32768, s));
    EXPECT_FALSE(ToInt16(std::numeric_limits<double>::quiet_NaN(), s));
    int32_t l = 0;
    EXPECT_TRUE(ToInt32(1e9 + 0.5, l));
    EXPECT_EQ(l, 1000000000);
    EXPECT_FALSE(ToInt32(3e9, l));
}

TEST(CodePage, RoundTripsWindows1252) {
    const std::string utf8 = "Line \xC3\x98=30\xC2\xB0 \xE2\x82\xAC";  // "Line Ø=30° €"
    const std::string bytes = ToCp1252(utf8);
    EXPECT_EQ(bytes, std::string("Line \xD8=30\xB0 \x80"));
    EXPECT_EQ(FromCp1252(bytes), utf8);
    EXPECT_EQ(ToCp1252("\xE4\xB8\xAD"), "?") << "characters outside the code page become ?";
    EXPECT_EQ(ToCp1252("\xC3"), "?") << "a cut sequence does not read past the end";
    std::string every;
    for (int b = 1; b < 256; ++b) every += static_cast<char>(b);
    EXPECT_EQ(ToCp1252(FromCp1252(every)), every) << "every byte survives the way in and out";
}

}  // namespace
