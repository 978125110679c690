// Helpers shared by the engine's source files (entry, operators, display,
// fractions, memory, keys). Not part of the engine's interface: windows and
// the command line include CalculatorEngine.h.
#pragma once

#include <cmath>
#include <string>

#include "calc/core/CalculatorEngine.h"
#include "shell/core/Primitives.h"

namespace Calculator::detail {

inline const std::string kHashes100(100, '#');
// Full-precision text of a value kept for later use as an operand.
inline const std::string kFullPicture = "0." + kHashes100 + "E+00";

inline bool Empty(const prim::Variant& v) { return v.IsEmpty() || (v.IsText() && v.text.empty()); }

inline double Num(const prim::Variant& v) {
    if (v.IsNumber()) return v.number;
    if (v.IsText()) return prim::Val(v.text);
    return 0.0;
}

inline std::string Text(const prim::Variant& v) {
    if (v.IsNumber()) return prim::PlainText(v.number);
    if (v.IsText()) return v.text;
    return "";
}

inline bool IsErrorText(const prim::Variant& v) { return v.IsText() && v.text == "Error"; }

inline bool Has(const std::string& s, char c) { return s.find(c) != std::string::npos; }

// Position (0-based) of an "E" or "e" in a number text, npos when none.
inline size_t EPos(const std::string& s) { return s.find_first_of("Ee"); }

// Characters, not bytes: texts such as 12°30'0" hold multi-byte characters.
inline size_t CharLen(const std::string& s) {
    size_t n = 0;
    for (unsigned char c : s)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}

// X, the number on the display.
inline double X(const CalculatorState& s) { return Num(s.DisplayValue); }

// The exponent written in the plain text of a number, 0 when there is none.
inline int TextExponent(double v) {
    std::string t = prim::PlainText(v);
    size_t p = EPos(t);
    return p == std::string::npos ? 0 : static_cast<int>(prim::Val(t.substr(p + 1)));
}

inline void ClearEntryModes(CalculatorState& s) {
    s.ExpMode = false;
    s.SignPressed = false;
    s.SexaCount = prim::Variant();
}

// Runtime-error guard for the handler paths: any non-finite step fails.
struct Guard {
    bool bad = false;
    double operator()(double v) {
        if (!std::isfinite(v)) bad = true;
        return v;
    }
};

// Dispatch_Key for a key already looked up (nullptr for a token of no key).
void Dispatch(CalculatorState& s, const KeyDef* key);

// The "prepare" of Dispatch_Key: a fraction being typed becomes a value, and
// exponent entry, the sign flag and a sexagesimal series end.
void Prepare(CalculatorState& s);
// Ends the clock display and shows X again.
void Clock_Off(CalculatorState& s);
// Hands the words to the speech hook, whatever the display shows.
void Say(CalculatorState& s, const std::string& text);

// ---- Actions of the keys (the key table points at these) ------------------------
// Dispatched keys: run by Dispatch_Key while no error is shown.
void Digit_Key(CalculatorState& s, const std::string& token);
void Operator_Key(CalculatorState& s, const std::string& token);
void Power_Key(CalculatorState& s, const std::string& token);
void Function_Key(CalculatorState& s, const std::string& token);
void Statistic_Key(CalculatorState& s, const std::string& token);
void Dot_Key(CalculatorState& s, const std::string& token);
void Clear_Key(CalculatorState& s, const std::string& token);
void Data_Key(CalculatorState& s, const std::string& token);
void Fraction_Key(CalculatorState& s, const std::string& token);
void Swap_Key(CalculatorState& s, const std::string& token);
void Sign_Key(CalculatorState& s, const std::string& token);
void Exponent_Key(CalculatorState& s, const std::string& token);
void Pi_Key(CalculatorState& s, const std::string& token);
void Memory_Recall_Key(CalculatorState& s, const std::string& token);
void Paste_Key(CalculatorState& s, const std::string& token);
void Register_Recall_Key(CalculatorState& s, const std::string& token);
void Register_Swap_Key(CalculatorState& s, const std::string& token);
void Constant_Key(CalculatorState& s, const std::string& token);
void Delete_Key(CalculatorState& s, const std::string& token);
void Sexa_Key(CalculatorState& s, const std::string& token);
void Asex_Key(CalculatorState& s, const std::string& token);
void Random_Key(CalculatorState& s, const std::string& token);
void All_Clear_Key(CalculatorState& s, const std::string& token);
// Keys with actions of their own, outside Dispatch_Key.
void Memory_In_Key(CalculatorState& s, const std::string& token);
void Memory_Plus_Key(CalculatorState& s, const std::string& token);
void Memory_Minus_Key(CalculatorState& s, const std::string& token);
void Register_In_Key(CalculatorState& s, const std::string& token);
void Register_Delete_Key(CalculatorState& s, const std::string& token);
void Fraction_Toggle_Key(CalculatorState& s, const std::string& token);
void Engineering_Left_Key(CalculatorState& s, const std::string& token);
void Engineering_Right_Key(CalculatorState& s, const std::string& token);
void Polar_Key(CalculatorState& s, const std::string& token);
void Rect_Key(CalculatorState& s, const std::string& token);

// Conversions left pending by the polar and rectangular keys, finished by the
// next operator.
void Finish_Polar(CalculatorState& s);
void Finish_Rect(CalculatorState& s);

}  // namespace Calculator::detail
