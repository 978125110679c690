// Fractions (typing a/b/c, the decimal/fraction key) and sexagesimal angles
// (the degrees-minutes-seconds keys).
#include <algorithm>
#include <cmath>
#include <vector>

#include "calc/core/Functions.h"
#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

namespace {

std::vector<std::string> SplitSlash(const std::string& t) {
    std::vector<std::string> parts;
    std::string cur;
    for (char c : t) {
        if (c == '/') {
            parts.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    parts.push_back(cur);
    return parts;
}

std::string WholeText(double v) { return PlainText(v); }

}  // namespace

void Show_Fraction(CalculatorState& s, const std::string& t) {
    auto parts = SplitSlash(t);
    if (parts.size() == 3)
        s.Shown.Number = Trim(parts[0]) + " " + Trim(parts[1]) + "/" + Trim(parts[2]) + ".";
    else
        s.Shown.Number = t + ".";
    s.Shown.Exponent.clear();
}

Variant Fraction_Value(CalculatorState& s, const std::string& t) {
    auto parts = SplitSlash(t);
    if (parts.size() == 2) {
        double a = Val(parts[0]), b = Val(parts[1].empty() ? "0" : parts[1]);
        s.ImproperText = parts[0] + "/" + parts[1];
        double v = a / b;
        if (b == 0 || !std::isfinite(v)) return Variant("Error");
        return Variant(v);
    }
    if (parts.size() == 3) {
        double a = Val(parts[0]), b = Val(parts[1]), c = Val(parts[2].empty() ? "0" : parts[2]);
        if (c == 0) return Variant("Error");
        double v = (std::fabs(a) + b / c) * Sgn(a);
        std::string sign = a < 0 ? "-" : "";
        s.ImproperText = sign + WholeText(std::fabs(a) * std::fabs(c) + std::fabs(b)) + "/" + parts[2];
        if (!std::isfinite(v)) return Variant("Error");
        return Variant(v);
    }
    s.ImproperText = t;
    return Variant(t);
}

void Commit_Fraction(CalculatorState& s) {
    if (s.FractionMode) {
        Variant v = Fraction_Value(s, s.FractionText);
        if (v.IsNumber()) {
            s.DisplayValue = v;
            s.EntryText = PlainText(v.number);
            s.DisplayText = v;
        } else {
            s.DisplayValue = Variant(Val(v.text));
            s.EntryText = v.text;
            if (v.text == "Error" || v.text.empty()) {
                s.ErrorWord = Variant("Divide by Zero");
                Show_Error(s);
            } else {
                s.DisplayText = v;
            }
        }
    }
    s.FractionText.clear();
    s.FractionMode = false;
}

namespace {

// Shows the fraction text of the decimal/fraction key and, at the second step,
// its improper form.
void Fraction_Finish(CalculatorState& s, std::string text, bool neg) {
    if (neg) text = "-" + text;
    if (CharLen(text) > 15) return;
    Show_Fraction(s, text);
    ++s.FractionStep;
    if (s.FractionStep > 2) s.FractionStep = 1;
    if (s.FractionStep == 2) {
        Fraction_Value(s, text);
        auto parts = SplitSlash(s.ImproperText);
        if (parts.size() != 2) return;
        double a = Val(parts[0]), b = Val(parts[1]);
        double g = Functions::Greatest_Divisor(std::fabs(a), b);
        if (g == 0) return;
        std::string t = WholeText(a / g);
        if (b / g != 1) t += "/" + WholeText(std::fabs(b / g));
        Show_Fraction(s, t);
    }
}

}  // namespace

void Fraction_Toggle(CalculatorState& s) {
    if (s.ErrorLock) return;
    if (s.FractionMode) {
        auto parts = SplitSlash(s.FractionText);
        bool neg = !s.FractionText.empty() && s.FractionText[0] == '-';
        std::vector<double> n;
        for (auto& p : parts) n.push_back(std::fabs(Val(p)));
        std::string sign = neg ? "-" : "";
        if (parts.size() == 2) {
            if (n[0] == n[1]) {
                Show_Fraction(s, sign + "1");
                return;
            }
            double g = Functions::Greatest_Divisor(n[0], n[1]);
            if (g == 0) return;
            std::string t = WholeText(n[0] / g) + "/" + WholeText(n[1] / g);
            s.FractionStep = std::min(s.FractionStep, 2);
            Fraction_Finish(s, t, neg);
        } else if (parts.size() == 3) {
            if (n[1] == n[2]) {
                Show_Fraction(s, sign + WholeText(n[0] + 1));
                return;
            }
            double g = Functions::Greatest_Divisor(n[1], n[2]);
            if (g == 0) return;
            std::string t = WholeText(n[0]) + "/" + WholeText(n[1] / g) + "/" + WholeText(n[2] / g);
            s.FractionStep = std::min(s.FractionStep, 2);
            Fraction_Finish(s, t, neg);
        }
        return;
    }
    double v = X(s);
    s.DisplayText = Variant(v);
    bool neg = v < 0;
    double snapped = Functions::Near_Whole_Short(v);
    if (snapped == Fix(snapped)) {
        Show_Fraction(s, PlainText(snapped));
        return;
    }
    std::string w = PlainText(std::fabs(v));
    if (EPos(w) != std::string::npos) return;  // too small or large for a fraction text
    size_t p = w.find('.');
    std::string f = w.substr(p + 1);
    double N = Val(f), D = std::pow(10.0, static_cast<double>(f.size()));
    int k = -1;
    std::string pattern;
    Functions::Find_Repeat(v, k, pattern);
    if (k > 0) {
        N = Val(pattern);
        D = std::pow(10.0, k) - 1;  // k nines
    }
    double g = Functions::Greatest_Divisor(N, D);
    if (g != 0) {
        N /= g;
        D /= g;
    }
    std::string whole = w.substr(0, p);
    std::string t = WholeText(N) + "/" + WholeText(D);
    if (Val(whole) != 0) t = whole + "/" + t;
    Fraction_Finish(s, t, neg);
}

void detail::Fraction_Toggle_Key(CalculatorState& s, const std::string&) { Fraction_Toggle(s); }

// =====================================================================================
// Sexagesimal
// =====================================================================================

void detail::Sexa_Key(CalculatorState& s, const std::string&) {
    if (Empty(s.SexaCount)) s.SexaCount = Variant(3.0);
    long long c = static_cast<long long>(Num(s.SexaCount));
    switch (c % 3) {
        case 0: s.SexaAccumulator = X(s); break;
        case 1: s.SexaAccumulator = s.SexaAccumulator + X(s) / 60; break;
        default: s.SexaAccumulator = s.SexaAccumulator + X(s) / 3600; break;
    }
    s.SexaCount = Variant(static_cast<double>(c + 1));
    Show_Result(s, s.SexaAccumulator);
    s.EntryText.clear();
}

void detail::Asex_Key(CalculatorState& s, const std::string&) {
    double x = X(s);
    double d = Fix(x);
    double m = (x - d) * 60;
    double sec = Val(Format(std::fabs(m - Fix(m)) * 60, "0.000#"));
    std::string t = PlainText(d - 360 * Fix(d / 360)) + "\xC2\xB0" + PlainText(Fix(std::fabs(m))) + "'" +
                    PlainText(sec) + "\"";
    if (CharLen(t) <= 14) Show_Value(s, Variant(x), t);
}

}  // namespace Calculator
