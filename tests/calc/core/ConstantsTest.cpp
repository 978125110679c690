// The constant table: every row well formed and parsed into its record.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "calc/core/Constants.h"
#include "shell/core/Primitives.h"

namespace {

using namespace Constants;

std::vector<std::string> Split(std::string_view row) {
    std::vector<std::string> out;
    for (size_t start = 0;;) {
        const size_t at = row.find(kFieldSeparator, start);
        out.emplace_back(row.substr(start, at == std::string_view::npos ? std::string_view::npos : at - start));
        if (at == std::string_view::npos) return out;
        start = at + kFieldSeparator.size();
    }
}

TEST(Constants, EveryRowHasFiveFieldsItsNumberAndASixDigitValue) {
    const std::regex sixDigits(R"(-?[1-9]\.\d{5}E[+-]\d{2})");
    ConstantTable t;
    Load_Constants(t);
    ASSERT_EQ(Constant_Rows().size(), size_t(kConstantCount));
    for (int i = 0; i < kConstantCount; ++i) {
        SCOPED_TRACE("row " + std::to_string(i + 1));
        const std::string_view row = Constant_Rows()[i];
        const std::vector<std::string> f = Split(row);
        ASSERT_EQ(f.size(), 5u);
        EXPECT_EQ(f[0], std::to_string(i + 1));
        EXPECT_FALSE(prim::Trim(f[1]).empty());
        EXPECT_FALSE(prim::Trim(f[2]).empty());
        EXPECT_TRUE(std::regex_match(f[3], sixDigits)) << f[3];
        // Every text must survive the 8-bit code page the list is shown in.
        EXPECT_EQ(prim::FromCp1252(prim::ToCp1252(row)), row);
        EXPECT_EQ(prim::ToCp1252(row).find('?'), std::string::npos);
        // Loading keeps the row text and parses it into its record.
        EXPECT_EQ(t.ConstantText[i], row);
        const ConstantRecord& r = t.ConstantData[i];
        EXPECT_EQ(r.Number, i + 1);
        EXPECT_EQ(r.Symbol, prim::Trim(f[1]));
        EXPECT_EQ(r.Unit, prim::Trim(f[4]));
        EXPECT_EQ(r.Value, prim::Val(f[3]));
    }
    EXPECT_EQ(prim::PlainText(t.ConstantData[72].Value), "-17.7778");  // as the window gives it
}

TEST(Constants, ParserTrimsFieldsAndToleratesMissingOnes) {
    auto fields = [](const ConstantRecord& r) {
        return std::to_string(r.Number) + "|" + r.Symbol + "|" + r.Description + "|" + prim::PlainText(r.Value) + "|" +
               r.Unit;
    };
    EXPECT_EQ(fields(Parse_Constant(" 7 <+>  kn <+> knot  <+> 5.14444E-01 <+> m/s ")), "7|kn|knot|0.514444|m/s");
    EXPECT_EQ(fields(Parse_Constant("12<+>x")), "12|x||0|");
    EXPECT_EQ(fields(Parse_Constant("")), "0|||0|");
}

}  // namespace
