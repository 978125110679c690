#include "calc/core/Functions.h"

#include <algorithm>
#include <cmath>

#include "shell/core/Primitives.h"

namespace Calculator::Functions {

using prim::Fix;
using prim::Format;
using prim::Sgn;

namespace {

bool Finite(double v) { return std::isfinite(v); }

FunctionResult Value(double v) { return {FunctionResult::Kind::Value, v, ""}; }
FunctionResult Error(const std::string& word) { return {FunctionResult::Kind::Error, 0.0, word}; }

// A computed value, or the error word when the arithmetic left the finite range
// (the design's runtime error).
FunctionResult Checked(double v, const char* word) { return Finite(v) ? Value(v) : Error(word); }

FunctionResult Factorial(double x) {
    if (x - std::floor(x) != 0) return Error("");
    if (x == 0) return Value(1);
    if (x < 0) return Error("Out of Range");
    // Anything past 170! overflows a double: the overflow path at once.
    if (x > 170) return Error("Infinity");
    double r = 1;
    for (double n = 2; n <= x; n += 1) r *= n;
    return Checked(r, "Infinity");
}

FunctionResult Sine(const CalculatorState& s, double x) {
    if (Near_Equal(x, To_Unit(s, 180), 10) || Near_Equal(x, To_Unit(s, 360), 10)) return Value(0);
    return Value(Near_Whole(std::sin(To_Degrees(s, x) / (180 / kPi))));
}

FunctionResult Cosine(const CalculatorState& s, double x) {
    if (Near_Equal(x, To_Unit(s, 90), 10) || Near_Equal(x, To_Unit(s, 270), 10)) return Value(0);
    return Value(Near_Whole(std::cos(To_Degrees(s, x) / (180 / kPi))));
}

FunctionResult Tangent(const CalculatorState& s, double x) {
    double a = To_Degrees(s, x) / (180 / kPi);
    if (Near_Equal(x, To_Unit(s, 90), 15) || Near_Equal(x, To_Unit(s, 270), 15) || std::cos(a) == 0)
        return Error("Out of Range");
    if (Near_Equal(x, To_Unit(s, 180), 15) || Near_Equal(x, To_Unit(s, 360), 15)) return Value(0);
    return Checked(Near_Whole(std::sin(a) / std::cos(a)), "Out of Range");
}

FunctionResult ArcSine(const CalculatorState& s, double x) {
    if (x == 1) return Value(To_Unit(s, 90));
    if (x == -1) return Value(To_Unit(s, -90));
    if (std::fabs(x) > 1) return Error("Undefined");
    return Checked(To_Unit(s, std::atan(x / std::sqrt(1 - x * x)) * 180 / kPi), "Undefined");
}

FunctionResult ArcCosine(const CalculatorState& s, double x) {
    if (x == 1) return Value(0);
    if (x == -1) return Value(To_Unit(s, 180));
    if (std::fabs(x) > 1) return Error("Undefined");
    // arccos x = atn(-x / sqrt(1 - x^2)) + pi / 2, defined at x = 0 as well.
    double deg = (std::atan(-x / std::sqrt(1 - x * x)) + 2 * std::atan(1.0)) * 180 / kPi;
    return Checked(Near_Whole_Short(To_Unit(s, deg)), "Undefined");
}

FunctionResult HypTangent(double x) {
    double a = std::exp(x), b = std::exp(-x);
    if (!Finite(a) || !Finite(b)) return Value(Sgn(x));  // overflow: the limit, +1 or -1
    double r = (a - b) / (a + b);
    if (!Finite(r)) return {FunctionResult::Kind::NoChange, 0.0, ""};
    return Value(r);
}

}  // namespace

FunctionResult Evaluate_Function(const CalculatorState& s, const std::string& t, double x) {
    if (t == "sqr") return Checked(std::pow(x, 2), "Infinity");
    if (t == "sqrt") return Checked(std::pow(x, 0.5), "Undefined");
    if (t == "cube") return Checked(Sgn(x) * std::pow(std::fabs(x), 3), "Infinity");
    if (t == "cubt") return Value(Sgn(x) * std::pow(std::fabs(x), 1.0 / 3));
    if (t == "log") {
        if (x <= 0) return Error("Out of Range");
        return Value(Near_Whole(std::log(x) / std::log(10.0)));
    }
    if (t == "alog") return Checked(std::pow(10.0, x), "Undefined");
    if (t == "ln") {
        if (x <= 0) return Error("Out of Range");
        return Value(Near_Whole(std::log(x)));
    }
    if (t == "aln") return Checked(std::exp(x), "Undefined");
    if (t == "rcp") {
        if (x == 0) return Error("Divide by Zero");
        return Checked(Near_Whole(1 / x), "Divide by Zero");
    }
    if (t == "fact") return Factorial(x);
    if (t == "sin") return Sine(s, x);
    if (t == "cos") return Cosine(s, x);
    if (t == "tan") return Tangent(s, x);
    if (t == "iSin") return ArcSine(s, x);
    if (t == "iCos") return ArcCosine(s, x);
    if (t == "iTan") return Value(To_Unit(s, std::atan(x) * 180 / kPi));
    if (t == "sinh") {
        double a = std::exp(x), b = std::exp(-x);
        if (!Finite(a) || !Finite(b)) return Error("Undefined");
        return Checked((a - b) / 2, "Undefined");
    }
    if (t == "cosh") {
        double a = std::exp(x), b = std::exp(-x);
        if (!Finite(a) || !Finite(b)) return Error("Undefined");
        return Checked((a + b) / 2, "Undefined");
    }
    if (t == "tanh") return HypTangent(x);
    if (t == "isinh") {
        double q = x * x + 1;
        if (!Finite(q)) return Error("Undefined");
        double a = x + std::sqrt(q);
        if (a <= 0) return Error("Undefined");
        return Checked(std::log(a), "Undefined");
    }
    if (t == "icosh") {
        double q = x * x - 1;
        if (!Finite(q) || q < 0) return Error("Undefined");
        double a = x + std::sqrt(q);
        if (a <= 0) return Error("Undefined");
        return Checked(std::log(a), "Undefined");
    }
    if (t == "itanh") {
        // (x + 1) / (x - 1) as the key has always worked: |x| < 1 has no value here.
        if (x - 1 == 0) return Error("Undefined");
        double q = (x + 1) / (x - 1);
        if (!Finite(q) || q <= 0) return Error("Undefined");
        return Checked(std::log(q) / 2, "Undefined");
    }
    return {};
}

double To_Unit(const CalculatorState& s, double deg) {
    double f = deg - 360 * Fix(deg / 360);
    if (s.Angle == AngleMode::Radian) return f * kPi / 180;
    if (s.Angle == AngleMode::Gradian) return f * 200 / 180;
    return deg;
}

double To_Degrees(const CalculatorState& s, double x) {
    double f = x - 360 * Fix(x / 360);
    if (s.Angle == AngleMode::Radian) return f * 180 / kPi;
    if (s.Angle == AngleMode::Gradian) return f * 180 / 200;
    return x;
}

namespace {

// The fraction of |x| written with 15 places, cut to `keep` characters. A
// fraction so close to 1 that the writing rounds it up to "1.000..." (as the
// one of ln(1000) / ln(10) = 2.9999999999999996) counts as nines: log(1000)
// must give exactly 3.
double Snap(double x, size_t keep) {
    double a = std::fabs(x);
    std::string t = Format(a - Fix(a), "0.000000000000000");
    if (prim::Left(t, keep) == "0." + std::string(keep - 2, '9') || t[0] == '1') return (Fix(a) + 1) * Sgn(x);
    return x;
}

}  // namespace

double Near_Whole(double x) { return Snap(x, 16); }

double Near_Whole_Short(double x) { return Snap(x, 14); }

bool Near_Equal(double a, double b, int n) {
    std::string pic = "0." + std::string(static_cast<size_t>(n), '0');
    return prim::Val(Format(a, pic)) == prim::Val(Format(b, pic));
}

double Clean_One(double f, int n) {
    if (Near_Equal(f, 1, n)) return 1;
    if (Near_Equal(f, 0, n)) return 0;
    return f;
}

double Clean_Value(double x) {
    std::string t = prim::PlainText(x);
    if (t.find('E') != std::string::npos || t.find('.') == std::string::npos) return x;
    double i = Fix(std::fabs(x));
    // x itself, not |x|: negative values miss the snap and come back without
    // their sign. The powers rely on this as it is.
    double f = x - i;
    f = Clean_One(f, 13);
    return (f + i) * Sgn(x);
}

bool Is_Whole(double x) {
    std::string t = Format(Clean_Value(x), "0.#############");
    return !t.empty() && t.back() == '.';
}

bool Safe_Power(double base, double exponent, double& result) {
    if (!(base < 0)) {
        double r = std::pow(base, exponent);
        if (!Finite(r)) return false;
        result = r;
        return true;
    }
    double inv = 1 / exponent;
    double m = std::max(Clean_Value(exponent), Clean_Value(inv));
    double n = prim::RoundEven(m);
    double r;
    if (std::fmod(n, 2) != 0) {
        if (!Is_Whole(exponent) && !Is_Whole(inv)) return false;
        r = Sgn(base) * std::pow(std::fabs(base), exponent);
    } else {
        if (!Is_Whole(exponent)) return false;
        r = std::pow(base, exponent);
    }
    if (!Finite(r)) return false;
    result = r;
    return true;
}

double Greatest_Divisor(double a, double b) {
    if (b == 0) return 0;
    double r = a - b * Fix(a / b);
    int guard = 0;
    while (r != 0 && ++guard < 10000) {
        a = b;
        b = r;
        r = a - b * Fix(a / b);
    }
    return b;
}

void Find_Repeat(double x, int& k, std::string& pattern) {
    k = -1;
    std::string full = Format(std::fabs(x), "0.000000000000000");
    size_t p0 = full.find('.');
    std::string s = full.substr(p0 + 1);
    if (s.size() > 14) s = s.substr(0, 14);
    int n = static_cast<int>(s.size());
    for (int p = 1; p <= n; ++p) {
        int q = n / p;
        if (q <= 1) continue;
        bool all = true;
        for (int i = 1; i <= p * q - p; i += p) {
            if (s.compare(static_cast<size_t>(i - 1), static_cast<size_t>(p), s, static_cast<size_t>(i - 1 + p),
                          static_cast<size_t>(p)) != 0) {
                all = false;
                break;
            }
        }
        if (all) {
            k = p;
            pattern = s.substr(0, static_cast<size_t>(p));
            return;
        }
    }
}

}  // namespace Calculator::Functions
