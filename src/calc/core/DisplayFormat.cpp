// Display: results and typed texts to DisplayBox and ExpoBox, the 15-digit
// limit, the error display, the engineering shifts, the display and angle
// modes, the clock and the first load of the window.
#include <algorithm>
#include <cmath>

#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

void Show_Result(CalculatorState& s, double x) {
    s.ResultValue = x;
    s.ResultFullText = Format(x, kFullPicture);
    if (s.RandomShown)
        s.KeyToken = Format(x, "0.000");
    else if (!Empty(s.FixDigits))
        s.KeyToken = Format(x, "0." + std::string(static_cast<size_t>(Num(s.FixDigits)), '0'));
    else if (!Empty(s.SciDigits))
        s.KeyToken = Format(x, "0." + std::string(static_cast<size_t>(Num(s.SciDigits)), '0') + "E+00");
    else
        s.KeyToken = PlainText(x);
    s.ResultPending = true;
    s.RandomShown = false;
    if (!std::isfinite(x)) {
        s.KeyToken = "Error";
        s.ErrorWord = Variant("Infinity");
        return;
    }
    int e = TextExponent(x);
    if (e > 99) {
        s.KeyToken = "Error";
        s.ErrorWord = Variant("Infinity");
    } else if (e < -99) {
        s.KeyToken = "0";
    }
}

namespace {

// Splits a number text at its exponent into DisplayBox and ExpoBox.
void Show_Split(CalculatorState& s, const std::string& t, bool removeBlanks) {
    size_t p = EPos(t);
    std::string m = t.substr(0, p);
    if (removeBlanks) m = Replace(m, " ", "");
    std::string mark = Has(t, '+') ? " " : "-";
    std::string d = Right(t, 2);
    if (!Has(m, '.')) m += ".";
    s.Shown.Number = m;
    s.Shown.Exponent = mark + d;
}

}  // namespace

void Show_Value(CalculatorState& s, const Variant& valueArg, const std::string& textArg) {
    s.Shown.Date.clear();
    s.TimeShown = false;
    std::string t;
    if (!textArg.empty()) {
        t = textArg;
    } else {
        double v = Num(valueArg);
        if (s.RandomShown)
            t = Format(v, "0.000");
        else if (!Empty(s.FixDigits))
            t = Format(v, "0." + std::string(static_cast<size_t>(Num(s.FixDigits)), '0'));
        else if (!Empty(s.SciDigits))
            t = Format(v, "0." + std::string(static_cast<size_t>(Num(s.SciDigits)), '0') + "E+00");
        else
            t = Limit_Digits(PlainText(v));
    }
    t = Check_Length(t);
    s.Shown.Exponent.clear();
    s.DisplayValue = Variant(!Empty(valueArg) ? Num(valueArg) : Val(textArg));
    s.DisplayText = !textArg.empty() ? Variant(textArg) : valueArg;
    if (EPos(t) != std::string::npos) {
        Show_Split(s, t, false);
        return;
    }
    if (!Has(t, '.')) t += ".";
    s.Shown.Number = t;
}

void Show_Exponent(CalculatorState& s, const std::string& text, const Variant& valueArg) {
    s.Shown.Exponent.clear();
    s.DisplayValue = Variant(!Empty(valueArg) ? Num(valueArg) : Val(text));
    s.DisplayText = !text.empty() ? Variant(text) : valueArg;
    if (EPos(text) != std::string::npos) Show_Split(s, text, true);
}

void Show_Error(CalculatorState& s) {
    std::string word = Text(s.ErrorWord);
    std::string t = word.empty() ? "*Error*" : "*" + word + "*";
    Speak_Text(s, "Error :::: " + word);
    s.ErrorLock = true;
    s.ErrorWord = Variant();
    s.Shown.Exponent.clear();
    s.Shown.Number = t;
}

std::string Limit_Digits(const std::string& s) {
    size_t p = EPos(s);
    if (p != std::string::npos) return Limit_Digits(s.substr(0, p)) + s.substr(p);
    double v = Val(s);
    long n = static_cast<long>(Format(v, "0").size()) - (v < 0 ? 1 : 0);
    n = std::max(1L, n);
    // The zero in front of the point of a value below 1 is no significant
    // digit: 1 / 3 keeps fifteen threes.
    if (Fix(std::fabs(v)) == 0) n = 0;
    long k = std::max(0L, 15 - n);
    return Format(v, "0." + std::string(static_cast<size_t>(k), '#'));
}

namespace {

// 1 when a number text starts with a lone zero before its point ("0.5",
// "-0.5"): that zero is not counted among the 15 digits of the display.
long LeadingZero(const std::string& m) {
    size_t i = (!m.empty() && m[0] == '-') ? 1 : 0;
    return (m.size() > i + 1 && m[i] == '0' && m[i + 1] == '.') ? 1 : 0;
}

}  // namespace

std::string Check_Length(const std::string& s) {
    size_t p = EPos(s);
    std::string m = p == std::string::npos ? s : s.substr(0, p);
    long n = static_cast<long>(CharLen(m)) - LeadingZero(m);
    if (Has(m, '-')) --n;
    if (Has(m, '.')) --n;
    return n > 15 ? Shorten_Number(s) : s;
}

std::string Shorten_Number(const std::string& s) {
    size_t ep = EPos(s);
    if (ep == std::string::npos) {
        std::string t = Has(s, '.') ? s : s + ".";
        double v = Val(t);
        size_t p = t.find('.');
        std::string I = t.substr(0, p), F = t.substr(p + 1);
        long n = static_cast<long>(I.size() + F.size()) - (v < 0 ? 1 : 0) - LeadingZero(t);
        if (n <= 15) return t;
        if (F.size() > 15) return Limit_Digits(Format(v, kFullPicture));
        if (I.size() < 15) {
            // The places follow the count of whole digits: 123.45600000000000 gives 123.456.
            std::string r = Format(v, "0." + std::string(I.size(), '#'));
            if (r.size() >= 16) r = Format(v, "0." + std::string(I.size() - 1, '#'));
            return r;
        }
        return Limit_Digits(Format(v, "0." + kHashes100));
    }
    std::string m = s.substr(0, ep), rest = s.substr(ep);
    std::string mm = Has(m, '.') ? m : m + ".";
    double v = Val(mm);
    size_t p = mm.find('.');
    long n = static_cast<long>(p + (mm.size() - p - 1)) - (v < 0 ? 1 : 0) - LeadingZero(mm);
    n = std::max(1L, n);
    if (n > 15) return Limit_Digits(Format(v, "0." + kHashes100)) + rest;
    return s;
}
// =====================================================================================
// Engineering keys
// =====================================================================================

namespace {

// Shifts the exponent of the displayed text by three, `right` moving the point
// of the mantissa to the right (exponent down).
void Engineering_Key(CalculatorState& s, bool right) {
    if (s.ErrorLock) return;
    double x = X(s);
    if (x == 0) return;
    bool neg = x < 0;
    std::string t = Text(s.DisplayText);
    if (!Has(UCase(t), 'E')) {
        Show_Exponent(s, (neg ? "-" : "") + PlainText(std::fabs(x)) + "E+00", Variant(x));
        return;
    }
    std::string m = Replace(t, "-", "");
    size_t ep = EPos(m);
    int oldExp = static_cast<int>(Val(Replace(t.substr(EPos(t) + 1), " ", "")));
    m = Left(m, ep);
    m = Replace(m, " ", "");
    if (!Has(m, '.')) m += ".";
    size_t p = m.find('.');
    if (right) {
        size_t d = m.size() - p - 1;
        if (d < 3) m += std::string(3 - d % 3, '0');
        std::string head = m.substr(0, p) + m.substr(p + 1, 3);
        m = head + "." + m.substr(p + 4);
    } else {
        size_t c = p;
        if (c < 3) {
            m = std::string(3 - c % 3, '0') + m;
            p = m.find('.');
        }
        m = m.substr(0, p - 3) + "." + m.substr(p - 3, 3) + m.substr(p + 1);
    }
    if (!m.empty() && m[0] == '.') m = "0" + m;
    m = Format(Val(m), "#0." + kHashes100);
    if (neg) m = "-" + m;
    int e = right ? oldExp - 3 : oldExp + 3;
    std::string et = std::string(e < 0 ? "E-" : "E+") + Format(std::abs(e), "00");
    size_t digits = 0;
    for (char c : m)
        if (c >= '0' && c <= '9') ++digits;
    if (std::abs(e) > 99 || digits > 15) return;
    Show_Exponent(s, m + " " + et, Variant(x));
}


}  // namespace

void detail::Engineering_Left_Key(CalculatorState& s, const std::string&) { Engineering_Key(s, false); }
void detail::Engineering_Right_Key(CalculatorState& s, const std::string&) { Engineering_Key(s, true); }

std::string Copy_Text(const CalculatorState& s) { return PlainText(X(s)); }

std::string Display_Digits(const CalculatorState& s) {
    if (s.ErrorLock || s.TimeShown) return "";
    std::string m = Trim(s.Shown.Number);
    if (!IsNumeric(m)) return Copy_Text(s);
    if (!m.empty() && m.back() == '.') m.pop_back();
    std::string e = Trim(s.Shown.Exponent);
    if (e.empty()) return m;
    return m + "E" + (e[0] == '-' ? e : "+" + e);
}

// =====================================================================================
// Clock
// =====================================================================================

void detail::Clock_Off(CalculatorState& s) {
    if (!s.TimeShown) return;
    s.TimeShown = false;
    s.Shown.Exponent.clear();
    s.Shown.Date.clear();
    Show_Value(s, s.DisplayValue, "");
}

bool Toggle_Clock(CalculatorState& s) {
    if (s.ErrorLock) return false;
    s.TimeShown = !s.TimeShown;
    s.Shown.Exponent.clear();
    s.Shown.Date.clear();
    if (!s.TimeShown) Show_Value(s, s.DisplayValue, "");
    return s.TimeShown;
}

void Show_Clock(CalculatorState& s, int year, int month, int day, int weekday, int hour, int minute, int second) {
    static const char* const kDays[] = {"SUNDAY", "MONDAY", "TUESDAY", "WEDNESDAY", "THURSDAY", "FRIDAY", "SATURDAY"};
    static const char* const kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                          "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    s.Shown.Date = std::string(kDays[std::clamp(weekday, 0, 6)]) + " " + kMonths[std::clamp(month, 1, 12) - 1] + " " +
                   std::to_string(day) + ", " + std::to_string(year);
    int h12 = hour % 12 == 0 ? 12 : hour % 12;
    auto two = [](int v) { return Format(v, "00"); };
    s.Shown.Number = two(h12) + ":" + two(minute) + ":" + two(second) + (hour < 12 ? " AM" : " PM");
}

// =====================================================================================
// Modes and the first load
// =====================================================================================

void Set_Angle_Mode(CalculatorState& s, AngleMode mode) {
    s.Angle = mode;
    s.Shown.AngleName = mode == AngleMode::Radian ? "RADIAN" : mode == AngleMode::Gradian ? "GRADIAN" : "DEGREE";
}

namespace {

const char* ModeWord(DisplayMode mode) {
    switch (mode) {
        case DisplayMode::Fixed: return "FIX";
        case DisplayMode::Scientific: return "SCI";
        case DisplayMode::Normal: break;
    }
    return "NORM";
}

// The places of a digit count kept as a variant, at most 14.
int PlacesOf(const Variant& digits) { return static_cast<int>(std::min(Num(digits), 14.0)); }

// The chosen places become the digits of the display mode, and the display is
// written anew with them.
void Apply_Places(CalculatorState& s) {
    Variant chosen = s.Places < 0 ? Variant() : Variant(static_cast<double>(s.Places));
    if (s.Mode == DisplayMode::Fixed) {
        s.FixDigits = chosen;
        s.SavedFixDigits = s.FixDigits;
        s.SciDigits = Variant();
    } else if (s.Mode == DisplayMode::Scientific) {
        s.SciDigits = chosen;
        s.SavedSciDigits = s.SciDigits;
        s.FixDigits = Variant();
    } else {
        s.FixDigits = Variant();
        s.SciDigits = Variant();
    }
    if (s.FractionMode)
        Show_Fraction(s, s.FractionText);
    else
        Show_Value(s, s.DisplayValue, "");
    s.KeyToken.clear();
}

}  // namespace

void Set_Places(CalculatorState& s, int places) {
    s.Places = std::clamp(places, -1, 14);
    Apply_Places(s);
}

// Fixed and scientific come back with the places they had last.
void Set_Display_Mode(CalculatorState& s, DisplayMode mode) {
    s.Mode = mode;
    switch (mode) {
        case DisplayMode::Fixed: s.Places = Empty(s.SavedFixDigits) ? 0 : PlacesOf(s.SavedFixDigits); break;
        case DisplayMode::Scientific: s.Places = Empty(s.SavedSciDigits) ? 0 : PlacesOf(s.SavedSciDigits); break;
        case DisplayMode::Normal: s.Places = -1; break;
    }
    s.Shown.ModeName = ModeWord(mode);
    Apply_Places(s);
}

void Initial_Routine(CalculatorState& s) {
    s.Shown.ConstantMark = (!s.RepeatOps.empty() && s.RepeatOps.size() % 2 == 0) ? "K" : "";
    if (!Empty(s.DisplayValue) && !Empty(s.DisplayText) && !s.ErrorLock) {
        if (s.ExpMode)
            Show_Exponent(s, s.MantissaText + "E" + s.ExponentText, Variant());
        else
            Show_Value(s, s.DisplayValue, "");
    } else {
        std::string t = "AC";
        Dispatch_Key(s, t);
    }
    Set_Angle_Mode(s, s.Angle);
    s.Shown.MemoryMark = s.MemoryValue != 0 ? "MEM" : "";
    // The option buttons follow the digits in use; the places list keeps its
    // item when the mode is normal.
    if (!Empty(s.FixDigits)) {
        s.Places = PlacesOf(s.FixDigits);
        s.Mode = DisplayMode::Fixed;
    } else if (!Empty(s.SciDigits)) {
        s.Places = PlacesOf(s.SciDigits);
        s.Mode = DisplayMode::Scientific;
    } else {
        s.Mode = DisplayMode::Normal;
    }
    s.Shown.ModeName = ModeWord(s.Mode);
}

}  // namespace Calculator
