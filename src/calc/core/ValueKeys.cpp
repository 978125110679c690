// Keys that put a value on the display: functions, swap, the polar and
// rectangular conversions, pi, random and paste.
#include <chrono>
#include <cmath>

#include "calc/core/Functions.h"
#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

void detail::Function_Key(CalculatorState& s, const std::string& token) {
    Prepare(s);
    if (s.ErrorLock) return;  // a fraction that failed to commit already shows its error
    auto r = Functions::Evaluate_Function(s, token, X(s));
    switch (r.kind) {
        case Functions::FunctionResult::Kind::Value:
            Show_Result(s, r.value);
            break;
        case Functions::FunctionResult::Kind::Error:
            s.KeyToken = "Error";
            s.ErrorWord = r.word.empty() ? Variant() : Variant(r.word);
            break;
        case Functions::FunctionResult::Kind::NoChange:
            return;
    }
    s.EntryText.clear();
}

void detail::Swap_Key(CalculatorState& s, const std::string&) {
    if (Empty(s.SecondValue)) s.SecondValue = Variant(0.0);
    if (!s.PolarPending && !s.RectPending) s.RunningTotal = Variant(X(s));
    double former = X(s);
    Show_Result(s, Num(s.SecondValue));
    s.SecondValue = Variant(former);
    s.EntryText.clear();
    ClearEntryModes(s);
    s.FractionMode = false;
}

void detail::Finish_Polar(CalculatorState& s) {
    if (!s.PolarPending) return;
    double a = Functions::To_Degrees(s, X(s)) / (180 / Functions::kPi);
    double r = Num(s.PolarRadius);
    if (!Empty(s.RunningTotal))
        s.SecondValue = Variant(0.0);
    else
        s.SecondValue = Variant(r * std::sin(a));
    s.PolarRadius = Variant(r * std::cos(a));
    s.EntryText = Text(s.PolarRadius);
}

// The angle of the rectangular-to-polar conversion is a plain arc tangent of
// y / x; x = 0 ends in "*Divide by Zero*" like every other division by zero.
void detail::Finish_Rect(CalculatorState& s) {
    if (!s.RectPending) return;
    double y = X(s), x = Num(s.RectX);
    if (!Empty(s.RunningTotal)) {
        s.SecondValue = Variant(0.0);
    } else {
        if (x == 0) {
            s.ErrorWord = Variant("Divide by Zero");
            s.EntryText.clear();
            s.RectPending = false;
            Show_Error(s);
            return;
        }
        s.SecondValue = Variant(Functions::To_Unit(s, std::atan(y / x) * 180 / Functions::kPi));
    }
    s.RectX = Variant(std::pow(x * x + y * y, 0.5));
    s.EntryText = Text(s.RectX);
}

namespace {

// The polar and rectangular keys: a conversion pending is finished, the first
// value (radius or x) is kept, and the conversion waits for the next operator.
void Conversion_Key(CalculatorState& s, void (*finish)(CalculatorState&), Variant& first, bool& pending) {
    if (s.ErrorLock || s.ConversionArmed) return;
    finish(s);
    if (s.ErrorLock) return;
    if (Empty(first)) first = s.EntryText.empty() ? Variant(X(s)) : Variant(Val(s.EntryText));
    if (pending) Show_Value(s, Variant(), s.EntryText);
    pending = true;
    s.ConversionArmed = true;
    s.EntryText.clear();
}

}  // namespace

void detail::Polar_Key(CalculatorState& s, const std::string&) {
    Conversion_Key(s, Finish_Polar, s.PolarRadius, s.PolarPending);
}

void detail::Rect_Key(CalculatorState& s, const std::string&) {
    Conversion_Key(s, Finish_Rect, s.RectX, s.RectPending);
}

void detail::Pi_Key(CalculatorState& s, const std::string&) {
    if (s.ExpMode) return;
    Show_Result(s, Functions::kPi);
    s.EntryText.clear();
}

namespace {

// Day count from 30 Dec 1899 with the time of day as the fraction.
double SystemNow() {
    using namespace std::chrono;
    auto ms = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    return 25569.0 + static_cast<double>(ms) / 86400000.0;
}

}  // namespace

void detail::Random_Key(CalculatorState& s, const std::string&) {
    s.RandomShown = true;
    double now = s.Now ? s.Now() : SystemNow();
    std::string t = Format(now, "0.0" + kHashes100);
    Show_Result(s, Val(Right(t, 3)) / 1000);
    s.EntryText.clear();
    ClearEntryModes(s);
    s.FractionMode = false;
}

void detail::Paste_Key(CalculatorState& s, const std::string&) {
    ClearEntryModes(s);
    s.FractionMode = false;
    std::string clip = s.ClipboardText ? s.ClipboardText() : std::string();
    if (Trim(clip).empty()) {
        const std::string msg = "Nothing to paste. Clipboard is EMPTY !";
        Speak_Text(s, msg);
        if (s.ShowMessage) s.ShowMessage(msg, "Warning");
        return;
    }
    Show_Result(s, Val(clip));
    s.EntryText.clear();
}

}  // namespace Calculator
