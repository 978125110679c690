#include "calc/core/Constants.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "shell/core/Primitives.h"

namespace {

using Constants::Constant_Rows;
using Constants::ConstantTable;
using Constants::kConstantCount;
using Constants::Load_Constants;
using Constants::Parse_Constant;

std::vector<std::string> Split(std::string_view row) {
    std::vector<std::string> out;
    size_t start = 0;
    for (;;) {
        const size_t at = row.find("<+>", start);
        out.emplace_back(row.substr(start, at == std::string_view::npos ? std::string_view::npos : at - start));
        if (at == std::string_view::npos) return out;
        start = at + 3;
    }
}

ConstantTable Loaded() {
    ConstantTable t;
    Load_Constants(t);
    return t;
}

TEST(Constants, EveryRowHasFiveFieldsItsNumberAndSixDigitValue) {
    const std::regex sixDigits(R"(-?[1-9]\.\d{5}E[+-]\d{2})");
    ASSERT_EQ(Constant_Rows().size(), size_t(kConstantCount));
    for (int i = 0; i < kConstantCount; ++i) {
        SCOPED_TRACE("row " + std::to_string(i + 1));
        const std::string_view row = Constant_Rows()[i];
        const std::vector<std::string> f = Split(row);
        ASSERT_EQ(f.size(), 5u);
        EXPECT_EQ(f[0], std::to_string(i + 1));
        EXPECT_FALSE(prim::Trim(f[1]).empty());
        EXPECT_FALSE(prim::Trim(f[2]).empty());
        EXPECT_TRUE(prim::IsNumeric(f[3]));
        EXPECT_TRUE(std::regex_match(f[3], sixDigits)) << f[3];
        // Every text must survive the 8-bit code page the list is shown in.
        EXPECT_EQ(prim::FromCp1252(prim::ToCp1252(row)), row);
        EXPECT_EQ(prim::ToCp1252(row).find('?'), std::string::npos);
    }
}

TEST(Constants, QuotedRowsStandVerbatim) {
    const struct {
        int number;
        const char* text;
    } quoted[] = {
        {1, "1<+>°<+>degree (angle)<+>1.74533E-02<+>rad"},
        {5, "5<+>G (g)<+>accelaration of fall<+>9.80665E+00<+>m/s²"},
        {68, "68<+>0øC<+>zero Celcius<+>2.73150E+02<+>K"},
        {72, "72<+>°F<+>degree Fahrenheit<+>3.84810E+04<+>K(°C)"},
        {90, "90<+>C<+>speed of light<+>2.99792E+08<+>m/s"},
        {117, "117<+>h<+>Plank constant<+>6.62618E-34<+>J.s"},
        {124, "124<+>re<+>Electron radius<+>2.81794E-15<+>m"},
        {125, "125<+>u<+>Atomic mass unit<+>2.81794E-15<+>m"},
    };
    for (const auto& q : quoted) EXPECT_EQ(Constant_Rows()[q.number - 1], q.text) << "row " << q.number;
}

TEST(Constants, RepeatedEntriesOfTheTableAreKept) {
    const ConstantTable t = Loaded();
    auto rec = [&](int n) { return t.ConstantData[n - 1]; };
    EXPECT_EQ(rec(26).Description, "gallon (United Kingdom)");
    EXPECT_EQ(rec(27).Description, "gallon (United Kingdom)");
    EXPECT_EQ(rec(20).Description, rec(24).Description);
    EXPECT_EQ(rec(20).Value, rec(24).Value);
    EXPECT_EQ(rec(71).Symbol, "Calth");
    EXPECT_EQ(rec(74).Symbol, "Calth");
    EXPECT_EQ(rec(125).Value, rec(124).Value);
    EXPECT_EQ(rec(125).Unit, rec(124).Unit);
    EXPECT_EQ(rec(103).Symbol, rec(105).Symbol);
}

TEST(Constants, LoadStoresTextsThenRecords) {
    const ConstantTable t = Loaded();
    for (int i = 0; i < kConstantCount; ++i) {
        EXPECT_EQ(t.ConstantText[i], Constant_Rows()[i]);
        const auto& r = t.ConstantData[i];
        const std::vector<std::string> f = Split(Constant_Rows()[i]);
        EXPECT_EQ(r.Number, i + 1);
        EXPECT_EQ(r.Symbol, prim::Trim(f[1]));
        EXPECT_NE(r.Value, 0.0);
        EXPECT_EQ(r.Value, prim::Val(f[3]));
    }
    // Values the window shows as they were given.
    EXPECT_DOUBLE_EQ(t.ConstantData[72].Value, -17.7778);
    EXPECT_EQ(prim::PlainText(t.ConstantData[72].Value), "-17.7778");
    EXPECT_EQ(prim::PlainText(t.ConstantData[114].Value), "4.35981E-18");
    EXPECT_EQ(prim::PlainText(t.ConstantData[89].Value), "299792000");
    EXPECT_EQ(t.ConstantData[4].Unit, "m/s²");
}

TEST(Constants, ParserTrimsFieldsAndToleratesMissingOnes) {
    const auto r = Parse_Constant(" 7 <+>  kn <+> knot  <+> 5.14444E-01 <+> m/s ");
    EXPECT_EQ(r.Number, 7);
    EXPECT_EQ(r.Symbol, "kn");
    EXPECT_EQ(r.Description, "knot");
    EXPECT_DOUBLE_EQ(r.Value, 0.514444);
    EXPECT_EQ(r.Unit, "m/s");

    const auto shortRow = Parse_Constant("12<+>x");
    EXPECT_EQ(shortRow.Number, 12);
    EXPECT_EQ(shortRow.Symbol, "x");
    EXPECT_EQ(shortRow.Description, "");
    EXPECT_EQ(shortRow.Value, 0.0);
    EXPECT_EQ(shortRow.Unit, "");

    const auto empty = Parse_Constant("");
    EXPECT_EQ(empty.Number, 0);
    EXPECT_EQ(empty.Value, 0.0);
}

}  // namespace
