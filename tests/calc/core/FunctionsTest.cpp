// Numeric helpers of the function keys: snapping, guarded powers, angle units.
#include <gtest/gtest.h>

#include <cmath>

#include "calc/core/Functions.h"

namespace {

using namespace Calculator::Functions;

TEST(CalcFunctions, SnapsOnlyNinesFractions) {
    // clang-format off
    const struct {
        double (*f)(double);
        double x, snapped;
    } cases[] = {
        {Near_Whole, 2.99999999999999, 3},        {Near_Whole, -2.99999999999999, -3},
        {Near_Whole, 2.9999999999999, 2.9999999999999}, {Near_Whole, 0.5, 0.5},
        {Near_Whole_Short, 59.9999999999995, 60}, {Near_Whole_Short, 59.99999999999, 59.99999999999},
        {Clean_Value, 2.99999999999999, 3},       {Clean_Value, 0.25, 0.25},
        {Clean_Value, -2.5, 2.5},  // negative values come back without their sign
        {Clean_Value, 7, 7}};
    // clang-format on
    for (const auto& c : cases) EXPECT_EQ(c.f(c.x), c.snapped) << c.x;
    EXPECT_TRUE(Near_Equal(3.14159265358979, 3.14159265359, 10));
    EXPECT_FALSE(Near_Equal(3.14159265358979, 3.1415926, 10));
    EXPECT_TRUE(Is_Whole(3));
    EXPECT_TRUE(Is_Whole(1 / (1.0 / 3)));
    EXPECT_FALSE(Is_Whole(0.5));
}

TEST(CalcFunctions, SafePower) {
    const struct {
        double base, exponent;
        bool ok;
        double result;
    } table[] = {{2, 10, true, 1024}, {-8, 1.0 / 3, true, -2}, {-8, 3, true, -512},  {-2, 2, true, 4},
                 {-8, 0.5, false, 0}, {-8, 2.5, false, 0},     {-32, 0.2, true, -2}, {0, -1, false, 0},
                 {10, 400, false, 0}, {9, 0.5, true, 3}};
    for (const auto& p : table) {
        double r = 99;
        EXPECT_EQ(Safe_Power(p.base, p.exponent, r), p.ok) << p.base << "^" << p.exponent;
        EXPECT_NEAR(r, p.ok ? p.result : 99, 1e-12) << p.base << "^" << p.exponent;  // untouched when refused
    }
}

TEST(CalcFunctions, AngleUnitsReduceBy360) {
    CalculatorState s;
    EXPECT_EQ(To_Unit(s, 400), 400);  // degrees are not reduced
    s.Angle = AngleMode::Radian;
    EXPECT_NEAR(To_Unit(s, 540), kPi, 1e-15);
    EXPECT_NEAR(To_Degrees(s, 360 + kPi), 180, 1e-12);  // 360 radians taken off, not 2 pi
    s.Angle = AngleMode::Gradian;
    EXPECT_NEAR(To_Unit(s, 90), 100, 1e-12);
    EXPECT_NEAR(To_Degrees(s, 460), 90, 1e-12);
}

TEST(CalcFunctions, DivisorAndRepeats) {
    EXPECT_EQ(Greatest_Divisor(75, 100), 25);
    EXPECT_EQ(Greatest_Divisor(7, 0), 0);
    const struct {
        double x;
        int period;
        const char* pattern;
    } repeats[] = {{1.0 / 3, 1, "3"},
                   {1.0 / 7, 6, "142857"},
                   {0.75, -1, ""},
                   {1.0 / 6, -1, ""}};  // repeating only from the second place: not found
    for (const auto& r : repeats) {
        int k = 0;
        std::string pattern;
        Find_Repeat(r.x, k, pattern);
        EXPECT_EQ(k, r.period) << r.x;
        EXPECT_EQ(k > 0 ? pattern : "", r.pattern);
    }
}

TEST(CalcFunctions, FunctionTable) {
    CalculatorState s;
    auto v = [&](const char* t, double x) { return Evaluate_Function(s, t, x); };
    EXPECT_EQ(v("ln", std::exp(1.0)).value, 1);
    EXPECT_EQ(v("fact", 170).kind, FunctionResult::Kind::Value);
    EXPECT_EQ(v("fact", 171).word, "Infinity");
    EXPECT_EQ(v("tanh", 800).value, 1);
    EXPECT_NEAR(v("itanh", -3).value, std::log(0.5) / 2, 1e-15);
    EXPECT_NEAR(v("iCos", 0).value, 90, 1e-12);
    EXPECT_NEAR(v("iCos", 0.5).value, 60, 1e-12);
    const std::pair<const char*, double> undefined[] = {{"itanh", -0.5}, {"sqrt", -1}, {"aln", 1000}};
    for (const auto& [f, x] : undefined) EXPECT_EQ(v(f, x).word, "Undefined") << f;
    EXPECT_EQ(v("sqr", 1e200).word, "Infinity");
    EXPECT_EQ(v("cubt", -27).value, -3);
}

}  // namespace
