// Key dispatch and operand entry: digits, the point, the sign, exponent
// digits, fraction typing, the delete key and the two clear keys.
#include <algorithm>
#include <string_view>

#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

void detail::Prepare(CalculatorState& s) {
    if (s.FractionMode) Commit_Fraction(s);
    ClearEntryModes(s);
}

// =====================================================================================
// Dispatch
// =====================================================================================

void detail::Dispatch(CalculatorState& s, const KeyDef* key) {
    if (s.TimeShown) {
        Clock_Off(s);  // the key press only ends the clock
        return;
    }
    s.TimeShown = false;
    s.KeyToken.clear();
    if (!s.ErrorLock && key && key->dispatched && key->action) key->action(s, key->token);
    if (key && std::string_view(key->token) == "AC") Clear_All(s);  // AC works through the error lock
    if (!s.FractionMode) s.FractionText.clear();
    Process_Key(s);
    s.TimeShown = false;
}

void Dispatch_Key(CalculatorState& s, std::string& token) { Dispatch(s, Find_Key(token)); }

void Process_Key(CalculatorState& s) {
    long n = static_cast<long>(s.EntryText.size());
    if (Has(s.EntryText, '-')) --n;
    if (Has(s.EntryText, '.')) --n;
    if (s.KeyToken.empty()) return;
    if (s.FractionMode) {
        Enter_Fraction(s);
        return;
    }
    if (s.ExpMode) {
        Enter_Exponent(s);
        return;
    }
    if (s.KeyToken != "dot" && !IsNumeric(s.KeyToken)) {
        if (s.KeyToken == "Error") {
            Show_Error(s);
            return;
        }
        // An operator as the very first key works on 0.
        if (!s.NumberEntered) s.EntryText = "0.0";
        if (!s.ErrorLock) Operator_Step(s);
        return;
    }
    if (n >= 15) return;  // the 16th digit is ignored
    s.NumberEntered = true;
    if (!s.ErrorLock) Enter_Digit(s);
}

// =====================================================================================
// Actions of the entry keys
// =====================================================================================

void detail::Digit_Key(CalculatorState& s, const std::string& token) { s.KeyToken = token; }

void detail::Operator_Key(CalculatorState& s, const std::string& token) {
    Prepare(s);
    s.ExpNegative = false;
    s.KeyToken = token;
}

void detail::Power_Key(CalculatorState& s, const std::string& token) {
    Prepare(s);
    s.ExpNegative = false;
    s.KeyToken = token == "xy" ? "expt" : "invexpt";
}

void detail::Dot_Key(CalculatorState& s, const std::string&) { s.KeyToken = s.FractionMode ? "" : "dot"; }

void detail::Clear_Key(CalculatorState& s, const std::string&) {
    if (s.FractionMode) {
        s.FractionText.clear();
        s.FractionMode = false;
    }
    ClearEntryModes(s);
    s.KeyToken.clear();
    Clear_Entry(s);
}

// AC does its work after the lock check of Dispatch_Key.
void detail::All_Clear_Key(CalculatorState&, const std::string&) {}

void detail::Fraction_Key(CalculatorState& s, const std::string&) {
    s.FractionMode = true;
    s.KeyToken = "/";
    Enter_Fraction(s);
    s.KeyToken.clear();
}

void detail::Sign_Key(CalculatorState& s, const std::string&) {
    if (s.ExpMode) {
        s.ExpNegative = !s.ExpNegative;
        s.KeyToken.clear();
        Enter_Exponent(s);
        return;
    }
    if (!s.EntryText.empty()) s.SignPressed = true;
    if (s.FractionMode) {
        s.KeyToken = "-";
        return;
    }
    if (!s.EntryText.empty()) {
        if (s.EntryText[0] == '-')
            s.EntryText = s.EntryText.substr(1);
        else if (Val(s.EntryText) != 0)
            s.EntryText = "-" + s.EntryText;
        Show_Value(s, Variant(), s.EntryText);
        s.KeyToken.clear();
    } else {
        Show_Result(s, -X(s));
        s.EntryText.clear();
    }
}

void detail::Exponent_Key(CalculatorState& s, const std::string&) {
    s.SexaCount = Variant();
    if ((!s.EntryText.empty() || s.SignPressed) && !s.FractionMode) {
        s.ExpMode = true;
        if (s.ExponentText.empty()) s.KeyToken = "00";
    }
}

// ---- Delete key ----------------------------------------------------------------------

namespace {

void Delete_Fraction(CalculatorState& s) {
    std::string f = s.FractionText;
    bool neg = !f.empty() && f[0] == '-';
    std::string rest = neg ? f.substr(1) : f;
    s.SignPressed = false;
    s.ExpMode = false;
    if (rest.size() < 2) {
        Show_Fraction(s, "0");
        s.CarryText = "0.0";
        s.FractionText.clear();
        s.EntryText.clear();
        s.FractionMode = false;
        return;
    }
    rest.pop_back();
    s.FractionText = (neg ? "-" : "") + rest;
    Show_Fraction(s, s.FractionText);
    if (!Has(s.FractionText, '/')) {
        s.EntryText = s.FractionText;
        s.FractionText.clear();
        s.FractionMode = false;
    }
}

void Delete_Mantissa(CalculatorState& s) {
    s.ExpMode = false;
    s.SignPressed = false;
    std::string& e = s.EntryText;
    if (e.size() == 1 || (e.size() == 2 && e[0] == '-')) {
        Show_Value(s, Variant(), "0.");
        e.clear();
        s.CarryText = "0.0";
        return;
    }
    if (e.size() >= 2 && e[e.size() - 2] == '.')
        e.erase(e.size() - 2);
    else
        e.pop_back();
    std::string shown = Has(e, '.') ? e : e + ".";
    Show_Value(s, Variant(), shown);
    s.MantissaText = e;
}

void Delete_Exponent(CalculatorState& s) {
    if (static_cast<long long>(Val(s.ExponentText)) == 0) {
        Show_Value(s, Variant(), s.MantissaText);
        s.EntryText = s.MantissaText;
        s.ExponentText.clear();
        s.ExpMode = false;
        s.SignPressed = false;
        s.KeyToken.clear();
        return;
    }
    if (!s.ExponentText.empty() && s.ExponentText.back() == '0') s.ExpNegative = false;
    std::string d = Right(s.ExponentText, 2);
    if (!d.empty()) d.back() = '0';
    s.ExponentText = (s.ExpNegative ? "-" : "+") + d;
    std::string sign = LTrim(s.EntryText).rfind('-', 0) == 0 ? "-" : "";
    s.EntryText = sign + s.MantissaText + "E" + s.ExponentText;
    Show_Exponent(s, s.EntryText, Variant());
    s.KeyToken.clear();
}

}  // namespace

void detail::Delete_Key(CalculatorState& s, const std::string&) {
    s.SexaCount = Variant();
    if (s.FractionMode) {
        Delete_Fraction(s);
    } else if (!s.EntryText.empty()) {
        if (Has(UCase(s.EntryText), 'E'))
            Delete_Exponent(s);
        else
            Delete_Mantissa(s);
    }
    s.KeyToken.clear();
}

// =====================================================================================
// Entry
// =====================================================================================

void Enter_Digit(CalculatorState& s) {
    const std::string& k = s.KeyToken;
    std::string& e = s.EntryText;
    auto z = [](const std::string& t) { return Val(t) == 0; };
    if (e.empty()) {
        e = k == "dot" ? "0." : k;
    } else if (k == "dot") {
        if (!Has(e, '.')) e += ".";
    } else if (!Has(e, '.') && z(e) && z(k)) {
        e = "0";
    } else if (!Has(e, '.') && z(e)) {
        e = k;
    } else {
        e += k;
    }
    if (!s.ResultPending)
        Show_Value(s, Variant(), e);
    else
        Show_Value(s, Variant(s.ResultValue), e);
    s.CarryText.clear();
    if (!e.empty()) s.MantissaText = e;
    if (s.ResultPending) {
        e.clear();
        s.CarryText = s.ResultFullText;
        s.ResultPending = false;
    }
}

void Enter_Exponent(CalculatorState& s) {
    std::string sign = LTrim(s.EntryText).rfind('-', 0) == 0 ? "-" : "";
    if (s.ExponentText.empty())
        s.ExponentText = s.KeyToken;
    else if (s.KeyToken != "dot" && !s.KeyToken.empty())
        s.ExponentText += s.KeyToken;
    if (s.ExponentText.size() > 2) s.ExponentText = Right(s.ExponentText, 2);
    s.ExponentText = (s.ExpNegative ? "-" : "+") + s.ExponentText;
    s.EntryText = sign + s.MantissaText + "E" + s.ExponentText;
    Show_Exponent(s, s.EntryText, Variant());
    s.KeyToken.clear();
}

void Enter_Fraction(CalculatorState& s) {
    size_t seps = static_cast<size_t>(std::count(s.FractionText.begin(), s.FractionText.end(), '/'));
    if (seps >= 2 && s.KeyToken == "/") s.KeyToken.clear();
    if (s.FractionText.empty() && !s.EntryText.empty() && !Has(s.EntryText, '.') && IsNumeric(s.EntryText) &&
        Val(s.EntryText) != 0 && Val(s.EntryText) == prim::Fix(Val(s.EntryText)) && !Has(UCase(s.EntryText), 'E')) {
        s.FractionText = s.EntryText;
        s.SexaCount = Variant();
    }
    if (s.FractionText.empty()) {
        s.FractionMode = false;
        return;
    }
    const std::string& k = s.KeyToken;
    if (k == "/") {
        if (s.FractionText.back() != '/' && seps < 2) s.FractionText += "/";
    } else if (k == "-") {
        if (s.FractionText[0] == '-')
            s.FractionText.erase(0, 1);
        else
            s.FractionText = "-" + s.FractionText;
    } else {
        s.FractionText += k;
    }
    Show_Fraction(s, s.FractionText);
}

void Clear_All(CalculatorState& s) {
    s.KeyToken.clear();
    s.PendingOp.clear();
    s.PriorOp.clear();
    s.Operands.clear();
    s.OldestOp.clear();
    s.ErrorLock = false;
    s.EntryText.clear();
    s.RegisterWork = 0;
    s.NumberEntered = false;
    s.SignPressed = false;
    s.DisplayText = Variant();
    s.RunningTotal = Variant();
    s.ErrorWord = Variant();
    s.ExpMode = false;
    s.ExponentText.clear();
    s.MantissaText.clear();
    s.ResultPending = false;
    s.ResultFullText.clear();
    s.ExpNegative = false;
    s.FractionText.clear();
    s.SexaCount = Variant();
    s.FractionMode = false;
    s.KOperator.clear();
    s.PolarRadius = Variant();
    s.PolarPending = false;
    s.KValue = Variant();
    s.RectX = Variant();
    s.RectPending = false;
    s.SecondValue = Variant();
    s.RepeatOps.clear();
    s.ConversionArmed = false;
    s.Shown.ConstantMark.clear();
    Show_Result(s, 0);
    s.EntryText.clear();
}

void Clear_Entry(CalculatorState& s) {
    Show_Result(s, 0);
    s.EntryText.clear();
    s.ExponentText.clear();
}

}  // namespace Calculator
