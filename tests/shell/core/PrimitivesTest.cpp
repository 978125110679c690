#include "shell/core/Primitives.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/CaseTable.h"

using namespace prim;

namespace {

const std::string kCases = FERROLITH_TEST_DATA "/shell_cases.table";

TEST(Format, WritesByPicture) {
    for (const casetable::Row& c : casetable::Read(kCases, "format"))
        EXPECT_EQ(Format(c.Num(0), c[1]), c[2]) << "line " << c.line;
}

TEST(Val, ReadsTheNumberAtTheStartAndIsNumericTakesOnlyOneWholeNumber) {
    for (const casetable::Row& c : casetable::Read(kCases, "val")) {
        SCOPED_TRACE("line " + std::to_string(c.line));
        if (c[1] != "-") {
            EXPECT_DOUBLE_EQ(Val(c[0]), c.Num(1));
        }
        if (c[2] != "-") {
            EXPECT_EQ(IsNumeric(c[0]), c[2] == "yes");
        }
    }
}

TEST(PlainText, FifteenDigitsAndExponentForms) {
    for (const casetable::Row& c : casetable::Read(kCases, "plain text"))
        EXPECT_EQ(PlainText(c.Num(0)), c[1]) << "line " << c.line;
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
