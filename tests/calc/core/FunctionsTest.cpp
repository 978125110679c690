// Numeric helpers of the function keys: snapping, guarded powers, angle
// units, fractions, and the length rules of the display; the calls are in
// functions.golden.
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "CaseFile.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/Functions.h"

namespace {

using namespace Calculator::Functions;
using prim::PlainText;

// One call of a case line, its result as the file writes it.
std::string Call(const std::string& line) {
    std::istringstream in(line);
    std::string name;
    in >> name;
    CalculatorState s;
    if (name == "rad" || name == "grad") {
        s.Angle = name == "rad" ? AngleMode::Radian : AngleMode::Gradian;
        in >> name;
    }
    if (name == "Limit_Digits" || name == "Check_Length") {
        std::string text;
        in >> text;
        return name == "Limit_Digits" ? Calculator::Limit_Digits(text) : Calculator::Check_Length(text);
    }
    std::vector<double> a;
    for (double v; in >> v;) a.push_back(v);
    auto flag = [](bool b) { return std::string(b ? "true" : "false"); };
    if (name == "Near_Whole") return PlainText(Near_Whole(a[0]));
    if (name == "Near_Whole_Short") return PlainText(Near_Whole_Short(a[0]));
    if (name == "Clean_Value") return PlainText(Clean_Value(a[0]));
    if (name == "Near_Equal") return flag(Near_Equal(a[0], a[1], int(a[2])));
    if (name == "Is_Whole") return flag(Is_Whole(a[0]));
    if (name == "To_Unit") return PlainText(To_Unit(s, a[0]));
    if (name == "To_Degrees") return PlainText(To_Degrees(s, a[0]));
    if (name == "Greatest_Divisor") return PlainText(Greatest_Divisor(a[0], a[1]));
    if (name == "Safe_Power") {
        double r = 99;
        const bool ok = Safe_Power(a[0], a[1], r);
        EXPECT_TRUE(ok || r == 99) << "a refused power leaves its target alone";
        return ok ? PlainText(r) : "refused";
    }
    if (name == "Find_Repeat") {
        int k = 0;
        std::string pattern;
        Find_Repeat(a[0], k, pattern);
        return std::to_string(k) + (k > 0 ? " " + pattern : "");
    }
    const FunctionResult r = Evaluate_Function(s, name, a[0]);
    return r.kind == FunctionResult::Kind::Error ? "error " + r.word : PlainText(r.value);
}

TEST(CalcFunctions, EveryCallOfTheFile) {
    const int cases = calctest::ForEachCase(
        "functions.golden", [](const std::string& call, const std::string& want) { EXPECT_EQ(Call(call), want); });
    EXPECT_EQ(cases, 57);
}

}  // namespace
