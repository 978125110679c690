#include "units/core/ImperialText.h"

#include <cmath>
#include <cstdio>

#include "shell/core/Primitives.h"

namespace Imperial {

using prim::InStr;
using prim::IsNumeric;
using prim::Mid;
using prim::Trim;
using prim::Val;

namespace {

// The text less one final inch mark.
std::string DropInchMark(std::string_view s) {
    if (!s.empty() && s.back() == '"') return std::string(s.substr(0, s.size() - 1));
    return std::string(s);
}

// State of an inch text: 1 if it holds a blank, plus 2 if it holds a slash.
int InchState(std::string_view text, size_t& sp, size_t& sl) {
    sp = InStr(text, " ");
    sl = InStr(text, "/");
    return (sp >= 1 ? 1 : 0) + (sl >= 1 ? 2 : 0);
}

std::string Joined(const std::string& a, const std::string& b) {
    if (a.empty()) return b;
    if (b.empty()) return a;
    return a + " " + b;
}

// The whole digits of a non-negative whole number, however large.
std::string WholeDigits(double v) {
    char buf[400];
    std::snprintf(buf, sizeof buf, "%.0f", std::fabs(v));
    return buf;
}

}  // namespace

prim::Variant Imperial_Value(std::string_view text, std::string_view unit) {
    std::string t(text);
    while (t.find(" -") != std::string::npos) t = prim::Replace(t, " -", "-");
    while (t.find("- ") != std::string::npos) t = prim::Replace(t, "- ", "-");
    std::string u = prim::UCase(unit);
    if (u == "FT") return Imperial_Parse(t);
    if (u == "IN") {
        prim::Variant v = Imperial_Parse(t);
        if (!v.IsNumber()) return prim::Variant(kError);
        return prim::Variant(v.number * 12.0);
    }
    return prim::Variant();
}

prim::Variant Imperial_Parse(std::string_view text) {
    double sign = 1.0;
    std::string t(text);
    if (!t.empty() && t[0] == '-') {
        sign = -1.0;
        t.erase(0, 1);
    }
    int16_t kind = Imperial_Classify(t);
    if (!Imperial_KindIsValid(kind)) return prim::Variant(kError);
    std::optional<double> v;
    switch (kind) {
        case 0:
        case 4: v = Imperial_InchValue(t); break;
        case 1: v = Imperial_FeetValue(t); break;
        default: v = Imperial_FeetInchValue(t); break;
    }
    if (!v || !std::isfinite(*v)) return prim::Variant(kError);
    return prim::Variant(sign * *v);
}

int16_t Imperial_Classify(std::string_view text) {
    // Only leading blanks go: a blank behind the number is part of the inch form.
    std::string t = prim::LTrim(text);
    if (!t.empty() && t[0] == '-') t.erase(0, 1);
    size_t a = InStr(t, "'");
    size_t b = InStr(t, "-");
    size_t c = InStr(t, "\"");
    int16_t kind = static_cast<int16_t>((a >= 1 ? 1 : 0) + (b >= 1 ? 2 : 0) + (c >= 1 ? 4 : 0));
    if (a == 1 || c == 1) return kRefused;
    switch (kind) {
        case 0:
        case 4: Imperial_CheckInches(kind, t); return kind;
        case 1: Imperial_CheckFeet(kind, t, a); return kind;
        case 3:
            if (!(b > a)) kind = kRefused;
            break;
        case 7:
            if (!(c > b && b > a)) kind = kRefused;
            break;
        default: return kind;
    }
    if (kind == 3 || kind == 7) {
        Imperial_CheckFeet(kind, t, a);
        std::string rest = Mid(t, b + 1);
        if (InStr(rest, "-") >= 1) kind = kRefused;
        if (kind != kRefused) Imperial_CheckInches(kind, rest);
    }
    return kind;
}

bool Imperial_KindIsValid(int16_t kind) {
    return kind == 0 || kind == 1 || kind == 3 || kind == 4 || kind == 7;
}

void Imperial_CheckFeet(int16_t& kind, std::string_view text, size_t markPos) {
    std::string front = prim::Left(text, markPos >= 1 ? markPos - 1 : 0);
    if (!IsNumeric(Trim(front))) kind = kRefused;
}

void Imperial_CheckInches(int16_t& kind, std::string_view text) {
    size_t sp = 0, sl = 0;
    int state = InchState(text, sp, sl);
    auto bad = [&] { kind = kRefused; };
    switch (state) {
        case 0:
            if (!IsNumeric(Trim(DropInchMark(text)))) bad();
            break;
        case 1:
            if (!IsNumeric(Trim(prim::Left(text, sp - 1)))) bad();
            break;
        case 2: {
            std::string behind = Mid(text, sl + 1);
            if (sl == 1 || InStr(behind, "/") >= 1) { bad(); break; }
            if (!IsNumeric(Trim(DropInchMark(behind)))) { bad(); break; }
            if (!IsNumeric(Trim(prim::Left(text, sl - 1)))) bad();
            break;
        }
        default: {
            if (!(sl > sp)) { bad(); break; }
            if (!IsNumeric(Trim(prim::Left(text, sp - 1)))) { bad(); break; }
            std::string behind = Mid(text, sl + 1);
            if (sl == 1 || InStr(behind, "/") >= 1) { bad(); break; }
            if (!IsNumeric(Trim(DropInchMark(behind)))) { bad(); break; }
            if (!IsNumeric(Trim(Mid(text, sp + 1, sl - sp - 1)))) bad();
            break;
        }
    }
}

double Imperial_FeetValue(std::string_view text) { return Val(Trim(text)); }

std::optional<double> Imperial_InchValue(std::string_view text) {
    size_t sp = 0, sl = 0;
    int state = InchState(text, sp, sl);
    auto fraction = [&]() -> std::optional<double> {
        std::string behind = Trim(Mid(text, sl + 1));
        size_t len = behind.size();
        if (len > 0 && behind.back() == '"') --len;
        double den = Val(Mid(text, sl + 1, len));
        size_t numStart = state == 3 ? sp + 1 : 1;
        double num = Val(Mid(text, numStart, sl - numStart));
        if (den == 0.0) return std::nullopt;
        return num / den;
    };
    double inches = 0.0;
    switch (state) {
        case 0: inches = Val(Trim(text)); break;
        case 1: inches = Val(Trim(prim::Left(text, sp - 1))); break;
        case 2: {
            auto f = fraction();
            if (!f) return std::nullopt;
            inches = *f;
            break;
        }
        default: {
            auto f = fraction();
            if (!f) return std::nullopt;
            inches = Val(Trim(prim::Left(text, sp - 1))) + *f;
            break;
        }
    }
    return inches / 12.0;
}

std::optional<double> Imperial_FeetInchValue(std::string_view text) {
    double feet = Imperial_FeetValue(text);
    size_t dash = InStr(text, "-");
    auto inches = Imperial_InchValue(Mid(text, dash + 1));
    if (!inches) return std::nullopt;
    return feet + *inches;
}

bool Imperial_InputOk(std::string_view text) {
    prim::Variant v = Imperial_Value(text, "FT");
    return !(v.IsText() && Trim(v.text) == kError);
}

double Imperial_Mod(double a, double b) {
    if (b == 0.0) return std::nan("");
    return a - prim::Fix(a / b) * b;
}

double Imperial_Gcd(double a, double b) {
    if (b == 0.0) return 0.0;
    double r = Imperial_Mod(a, b);
    while (r != 0.0 && std::isfinite(r)) {
        a = b;
        b = r;
        r = Imperial_Mod(a, b);
    }
    return b;
}

std::string Imperial_Text(double value, int16_t denominator, int16_t mode, int16_t words) {
    int sign = prim::Sgn(value);
    double x = std::fabs(value);
    double feet = prim::Fix(x);
    double t = (x - feet) * 12.0;
    int16_t inches = 0;
    prim::ToInt16(prim::Fix(t), inches);
    double rest = t - inches;
    int16_t numerator = 0;
    prim::ToInt16(rest * denominator, numerator);
    double gcd = Imperial_Gcd(numerator, denominator);
    if (numerator == denominator) {
        // The fraction rounded up to a whole inch; the carry stops at the inches.
        inches = static_cast<int16_t>(inches + 1);
        numerator = 0;
        gcd = Imperial_Gcd(numerator, denominator);
    }
    if (words == 0) {
        std::string s = Imperial_TextDigits(mode, feet, inches, numerator, gcd, denominator);
        return sign == -1 ? "-" + s : s;
    }
    int16_t feet16 = 0;
    prim::ToInt16(feet, feet16);
    std::string s = Imperial_TextWords(mode, feet16, inches, numerator, gcd, denominator);
    return sign == -1 ? "(" + s + ")" : s;
}

std::string Imperial_TextDigits(int16_t mode, double feet, double inches, double numerator, double gcd,
                                double denominator) {
    using prim::PlainText;
    std::string frac;
    if (numerator != 0.0 && gcd != 0.0) frac = PlainText(numerator / gcd) + "/" + PlainText(denominator / gcd);
    const std::string F = PlainText(feet), I = PlainText(inches);
    const std::string T = PlainText(feet * 12.0 + inches), T0 = PlainText(feet * 12.0);
    const bool total = mode == 1;
    if (inches != 0.0) {
        if (numerator != 0.0) {
            if (feet == 0.0) return I + " " + frac + "\"";
            return total ? T + " " + frac + "\"" : F + "'-" + I + " " + frac + "\"";
        }
        if (feet == 0.0) return I + "\"";
        return total ? T + "\"" : F + "'-" + I + "\"";
    }
    if (numerator != 0.0) {
        if (feet == 0.0) return frac + "\"";
        return total ? T0 + " " + frac + "\"" : F + "'-" + frac + "\"";
    }
    if (feet == 0.0) return "0\"";
    return total ? T0 + "\"" : F + "'-0\"";
}

std::string Imperial_TextWords(int16_t mode, int16_t feet, int16_t inches, double numerator, double gcd,
                               double denominator) {
    std::string frac;
    if (numerator != 0.0 && gcd != 0.0) {
        double n = numerator / gcd, d = denominator / gcd;
        frac = Number_Words(n, "", "") + " " + Fraction_Word(d, n);
    }
    auto feetText = [&](double f) { return Number_Words(f, "", "") + (f == 1 ? " Foot" : " Feet"); };
    auto inchText = [&](double i) { return Number_Words(i, "", "") + (i == 1 ? " Inch" : " Inches"); };
    const bool total = mode == 1;
    const double T = feet * 12.0 + inches, T0 = feet * 12.0;
    if (inches != 0) {
        if (numerator != 0.0) {
            std::string whole = Number_Words(total && feet != 0 ? T : inches, "", "") + " and " + frac + " Inches";
            if (feet == 0 || total) return whole;
            return feetText(feet) + "-" + whole;
        }
        if (feet == 0) return inchText(inches);
        return total ? inchText(T) : feetText(feet) + "-" + inchText(inches);
    }
    if (numerator != 0.0) {
        if (feet == 0) return frac + " Inch";
        if (total) return Number_Words(T0, "", "") + " and " + frac + " Inches";
        return feetText(feet) + "-" + frac + " Inch";
    }
    if (feet == 0) return "0 Inch";
    return total ? inchText(T0) : feetText(feet) + "-0 Inch";
}

std::string Ones_Words(int digit) {
    static const char* const kOnes[] = {"", "One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight", "Nine"};
    if (digit < 0 || digit > 9) return "";
    return kOnes[digit];
}

std::string Teen_Words(int ones) {
    static const char* const kTeens[] = {"Ten",     "Eleven",  "Twelve",    "Thirteen", "Fourteen",
                                         "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};
    if (ones < 0 || ones > 9) return "";
    return kTeens[ones];
}

std::string Tens_Words(int tens, int ones) {
    static const char* const kTens[] = {"", "", "Twenty ", "Thirty ", "Forty ", "Fifty ",
                                        "Sixty ", "Seventy ", "Eighty ", "Ninety "};
    if (tens == 0) return Ones_Words(ones);
    if (tens == 1) return Teen_Words(ones);
    if (tens < 0 || tens > 9) return "";
    return std::string(kTens[tens]) + Trim(Ones_Words(ones));
}

std::string Hundred_Words(int digit) {
    if (digit > 0) return Ones_Words(digit) + " Hundred";
    return "";
}

std::string Pad_Groups(std::string_view digits) {
    return std::string(3 - digits.size() % 3, '0') + std::string(digits);
}

std::string Group_Words(std::string_view digits3, int groupIndex) {
    static const char* const kScale[] = {"", "", "Thousand", "Million", "Billion", "Trillion", "Quadrillion",
                                         "Quintillion"};
    if (digits3.size() != 3) return "";
    int h = digits3[0] - '0', t = digits3[1] - '0', o = digits3[2] - '0';
    if (h == 0 && t == 0 && o == 0) return "";
    std::string text = Joined(Trim(Hundred_Words(h)), Trim(Tens_Words(t, o)));
    std::string scale = groupIndex >= 2 && groupIndex <= 7 ? kScale[groupIndex] : groupIndex > 7 ? "Infinitillion" : "";
    return Joined(text, scale);
}

namespace {
std::string DigitsInWords(const std::string& digits) {
    std::string padded = Pad_Groups(digits);
    int groups = static_cast<int>(padded.size() / 3);
    std::string out;
    for (int g = 0; g < groups; ++g) out = Joined(out, Group_Words(padded.substr(static_cast<size_t>(g) * 3, 3), groups - g));
    return out;
}
}  // namespace

std::string Number_Words(double value, std::string_view wholeLabel, std::string_view partLabel) {
    std::string wl(wholeLabel), pl(partLabel);
    int kind = (Trim(wl).empty() ? 0 : 1) + (Trim(pl).empty() ? 0 : 2);
    double whole = prim::Fix(std::fabs(value));
    std::string wholeDigits = WholeDigits(whole);
    std::string partDigits = prim::Right(prim::Format(std::fabs(value), "#0.00"), 2);
    if (kind == 2) {
        wholeDigits = WholeDigits(whole * 100.0);
        partDigits = wholeDigits;
    }
    double wholeNum = Val(wholeDigits), partNum = Val(partDigits);
    if (wholeNum > 1 && !wl.empty()) wl += "s";
    if (partNum > 1 && !pl.empty()) pl += "s";
    std::string w = DigitsInWords(wholeDigits);
    std::string p = DigitsInWords(partDigits);
    std::string out;
    switch (kind) {
        case 0: out = partNum != 0 ? w + " Point " + p : w; break;
        case 1: out = Joined(w, wl); break;
        case 2: out = Joined(p, pl); break;
        default: {
            std::string a = wholeNum != 0 ? Joined(w, wl) : "";
            std::string b = partNum != 0 ? Joined(p, pl) : "";
            out = !a.empty() && !b.empty() ? a + " And " + b : a + b;
            break;
        }
    }
    return Trim(out);
}

std::string Fraction_Word(double denominator, double numerator) {
    static const char* const kFirst[] = {"Half", "Third", "Fourth", "Fifth", "Sixth", "Seventh", "Eight", "Ninth"};
    std::string word;
    if (denominator >= 2 && denominator <= 9 && denominator == prim::Fix(denominator)) {
        word = kFirst[static_cast<int>(denominator) - 2];
    } else {
        word = Trim(Number_Words(denominator, "", "")) + "th";
    }
    static const char* const kFix[][2] = {{"tyth", "tieth"},     {"iveth", "ifth"},   {"Twoth", "Second"},
                                          {"Threeth", "Third"},  {"Twelveth", "Twelfth"}, {"Oneth", "First"},
                                          {"tth", "th"},         {"Nineth", "Ninth"}};
    for (const auto& f : kFix) word = prim::Replace(word, f[0], f[1]);
    if (numerator > 1) return denominator == 2 ? std::string("Halves") : word + "s";
    return word;
}

}  // namespace Imperial
