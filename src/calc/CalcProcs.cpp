#include "calc/CalcProcs.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "calc/CalcFunctions.h"
#include "shell/Primitives.h"

namespace CalcProcs {

using prim::Variant;
using namespace prim;

namespace {

const std::string kHashes100(100, '#');
// Full-precision text of a value kept for later use as an operand.
const std::string kFullPicture = "0." + kHashes100 + "E+00";

bool Empty(const Variant& v) { return v.IsEmpty() || (v.IsText() && v.text.empty()); }

double Num(const Variant& v) {
    if (v.IsNumber()) return v.number;
    if (v.IsText()) return Val(v.text);
    return 0.0;
}

std::string Text(const Variant& v) {
    if (v.IsNumber()) return PlainText(v.number);
    if (v.IsText()) return v.text;
    return "";
}

bool IsErrorText(const Variant& v) { return v.IsText() && v.text == "Error"; }

bool Has(const std::string& s, char c) { return s.find(c) != std::string::npos; }

// Position (0-based) of an "E" or "e" in a number text, npos when none.
size_t EPos(const std::string& s) { return s.find_first_of("Ee"); }

// Characters, not bytes: texts such as 12°30'0" hold multi-byte characters.
size_t CharLen(const std::string& s) {
    size_t n = 0;
    for (unsigned char c : s)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}

double X(const CalcVariables& s) { return Num(s.DisplayValue); }

// The exponent written in the plain text of a number, 0 when there is none.
int TextExponent(double v) {
    std::string t = PlainText(v);
    size_t p = EPos(t);
    return p == std::string::npos ? 0 : static_cast<int>(Val(t.substr(p + 1)));
}

void ClearEntryModes(CalcVariables& s) {
    s.ExpMode = 0;
    s.SignPressed = 0;
    s.SexaCount = Variant();
}

// The "prepare" of Dispatch_Key: a fraction being typed becomes a value, and
// exponent entry, the sign flag and a sexagesimal series end.
void Prepare(CalcVariables& s) {
    if (s.FractionMode) Commit_Fraction(s);
    ClearEntryModes(s);
}

// Runtime-error guard for the handler paths: any non-finite step fails.
struct Guard {
    bool bad = false;
    double operator()(double v) {
        if (!std::isfinite(v)) bad = true;
        return v;
    }
};

// ---- Function keys ----------------------------------------------------------------

void Function_Key(CalcVariables& s, const std::string& token) {
    if (s.ErrorLock) return;  // a fraction that failed to commit already shows its error
    auto r = CalcFunctions::Evaluate_Function(s, token, X(s));
    switch (r.kind) {
        case CalcFunctions::FunctionResult::Kind::Value:
            Show_Result(s, r.value);
            break;
        case CalcFunctions::FunctionResult::Kind::Error:
            s.KeyToken = "Error";
            s.ErrorWord = r.word.empty() ? Variant() : Variant(r.word);
            break;
        case CalcFunctions::FunctionResult::Kind::NoChange:
            return;
    }
    s.EntryText.clear();
}

// ---- Sign, exponent and delete keys --------------------------------------------------

void Sign_Key(CalcVariables& s) {
    if (s.ExpMode) {
        s.ExpNegative = s.ExpNegative ? 0 : -1;
        s.KeyToken.clear();
        Enter_Exponent(s);
        return;
    }
    if (!s.EntryText.empty()) s.SignPressed = -1;
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

void Exponent_Key(CalcVariables& s) {
    s.SexaCount = Variant();
    if ((!s.EntryText.empty() || s.SignPressed) && !s.FractionMode) {
        s.ExpMode = -1;
        if (s.ExponentText.empty()) s.KeyToken = "00";
    }
}

void Delete_Fraction(CalcVariables& s) {
    std::string f = s.FractionText;
    bool neg = !f.empty() && f[0] == '-';
    std::string rest = neg ? f.substr(1) : f;
    s.SignPressed = 0;
    s.ExpMode = 0;
    if (rest.size() < 2) {
        Show_Fraction(s, "0");
        s.CarryText = "0.0";
        s.FractionText.clear();
        s.EntryText.clear();
        s.FractionMode = 0;
        return;
    }
    rest.pop_back();
    s.FractionText = (neg ? "-" : "") + rest;
    Show_Fraction(s, s.FractionText);
    if (!Has(s.FractionText, '/')) {
        s.EntryText = s.FractionText;
        s.FractionText.clear();
        s.FractionMode = 0;
    }
}

void Delete_Mantissa(CalcVariables& s) {
    s.ExpMode = 0;
    s.SignPressed = 0;
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

void Delete_Exponent(CalcVariables& s) {
    if (static_cast<long long>(Val(s.ExponentText)) == 0) {
        Show_Value(s, Variant(), s.MantissaText);
        s.EntryText = s.MantissaText;
        s.ExponentText.clear();
        s.ExpMode = 0;
        s.SignPressed = 0;
        s.KeyToken.clear();
        return;
    }
    if (!s.ExponentText.empty() && s.ExponentText.back() == '0') s.ExpNegative = 0;
    std::string d = Right(s.ExponentText, 2);
    if (!d.empty()) d.back() = '0';
    s.ExponentText = (s.ExpNegative ? "-" : "+") + d;
    std::string sign = LTrim(s.EntryText).rfind('-', 0) == 0 ? "-" : "";
    s.EntryText = sign + s.MantissaText + "E" + s.ExponentText;
    Show_Exponent(s, s.EntryText, Variant());
    s.KeyToken.clear();
}

void Delete_Key(CalcVariables& s) {
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

// ---- Swap, conversions, random, paste ---------------------------------------------------

void Swap_Key(CalcVariables& s) {
    if (Empty(s.SecondValue)) s.SecondValue = Variant(0.0);
    if (!s.PolarPending && !s.RectPending) s.RunningTotal = Variant(X(s));
    double former = X(s);
    Show_Result(s, Num(s.SecondValue));
    s.SecondValue = Variant(former);
    s.EntryText.clear();
}

void Finish_Polar(CalcVariables& s) {
    if (!s.PolarPending) return;
    double a = CalcFunctions::To_Degrees(s, X(s)) / (180 / CalcFunctions::kPi);
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
void Finish_Rect(CalcVariables& s) {
    if (!s.RectPending) return;
    double y = X(s), x = Num(s.RectX);
    if (!Empty(s.RunningTotal)) {
        s.SecondValue = Variant(0.0);
    } else {
        if (x == 0) {
            s.ErrorWord = Variant("Divide by Zero");
            s.EntryText.clear();
            s.RectPending = 0;
            Show_Error(s);
            return;
        }
        s.SecondValue = Variant(CalcFunctions::To_Unit(s, std::atan(y / x) * 180 / CalcFunctions::kPi));
    }
    s.RectX = Variant(std::pow(x * x + y * y, 0.5));
    s.EntryText = Text(s.RectX);
}

void key_PtoR_Click(CalcVariables& s) {
    if (s.ConversionArmed) return;
    Finish_Polar(s);
    if (Empty(s.PolarRadius)) s.PolarRadius = s.EntryText.empty() ? Variant(X(s)) : Variant(Val(s.EntryText));
    if (s.PolarPending) Show_Value(s, Variant(), s.EntryText);
    s.PolarPending = -1;
    s.ConversionArmed = -1;
    s.EntryText.clear();
}

void key_RtoP_Click(CalcVariables& s) {
    if (s.ConversionArmed) return;
    Finish_Rect(s);
    if (s.ErrorLock) return;
    if (Empty(s.RectX)) s.RectX = s.EntryText.empty() ? Variant(X(s)) : Variant(Val(s.EntryText));
    if (s.RectPending) Show_Value(s, Variant(), s.EntryText);
    s.RectPending = -1;
    s.ConversionArmed = -1;
    s.EntryText.clear();
}

// Day count from 30 Dec 1899 with the time of day as the fraction.
double SystemNow() {
    using namespace std::chrono;
    auto ms = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    return 25569.0 + static_cast<double>(ms) / 86400000.0;
}

void Random_Key(CalcVariables& s) {
    double now = s.Now ? s.Now() : SystemNow();
    std::string t = Format(now, "0.0" + kHashes100);
    Show_Result(s, Val(Right(t, 3)) / 1000);
    s.EntryText.clear();
}

void Paste_Key(CalcVariables& s) {
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

// ---- Engineering keys -------------------------------------------------------------------

// Shifts the exponent of the displayed text by three, `right` moving the point
// of the mantissa to the right (exponent down).
void Engineering_Key(CalcVariables& s, bool right) {
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

// ---- Sexagesimal ----------------------------------------------------------------------

void Sexa_Key(CalcVariables& s) {
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

void Asex_Key(CalcVariables& s) {
    double x = X(s);
    double d = Fix(x);
    double m = (x - d) * 60;
    double sec = Val(Format(std::fabs(m - Fix(m)) * 60, "0.000#"));
    std::string t = PlainText(d - 360 * Fix(d / 360)) + "\xC2\xB0" + PlainText(Fix(std::fabs(m))) + "'" +
                    PlainText(sec) + "\"";
    if (CharLen(t) <= 14) Show_Value(s, Variant(x), t);
}

// ---- Statistics ---------------------------------------------------------------------------

void Add_Data(CalcVariables& s) {
    Commit_Fraction(s);
    if (s.DataValues.IsList()) {
        s.DataValues.Values.push_back(X(s));
    } else {
        s.DataValues.kind = CalcFiles::DataList::Kind::List;
        s.DataValues.Values.assign(1, X(s));
    }
    s.CarryText = !s.EntryText.empty() ? s.EntryText : PlainText(X(s));
    s.EntryText.clear();
}

void Statistic(CalcVariables& s, const std::string& t) {
    s.ExpMode = 0;
    s.ExponentText.clear();
    if (!s.DataValues.IsList() || s.DataValues.Values.empty()) {
        s.KeyToken = "Error";
        s.ErrorWord = Variant("Empty Data");
        s.EntryText.clear();
        return;
    }
    const auto& v = s.DataValues.Values;
    double n = static_cast<double>(v.size()), s1 = 0, s2 = 0;
    for (double d : v) {
        s1 += d;
        s2 += d * d;
    }
    auto error = [&] {
        s.KeyToken = "Error";
        s.ErrorWord = Variant();
    };
    Guard g;
    double r = 0;
    if (t == "dtn") r = n;
    else if (t == "dts") r = s1;
    else if (t == "ave") r = g(s1 / n);
    else if (t == "sqr1") r = g(s1 * s1);
    else if (t == "sqr2") r = g(s2);
    else if (t == "strd0" || t == "strd1") {
        // A set whose values sum to zero has no deviation here; that limit is kept.
        if (s1 == 0 || (t == "strd1" && n == 1)) {
            error();
            s.EntryText.clear();
            return;
        }
        double q = (s2 - s1 * s1 / n) / (t == "strd0" ? n : n - 1);
        r = g(std::pow(q, 0.5));
    }
    if (g.bad)
        error();
    else
        Show_Result(s, r);
    s.EntryText.clear();
}

// ---- Registers ------------------------------------------------------------------------------

bool Open_Register_Window(CalcVariables& s, int16_t action) {
    s.MemoryAction = action;
    s.RegisterChoice = -1;
    s.RegisterText.clear();
    if (s.ShowRegisterWindow) s.ShowRegisterWindow(s);
    return s.RegisterChoice >= 0 && s.RegisterChoice < CalcFiles::kRegisterCount;
}

void Clock_Off(CalcVariables& s) {
    if (!s.TimeShown) return;
    s.TimeShown = 0;
    s.ExpoBox.clear();
    s.DateBox.clear();
    Show_Value(s, s.DisplayValue, "");
}

void key_Kout(CalcVariables& s) {
    if (!Open_Register_Window(s, 1)) return;
    ClearEntryModes(s);
    s.FractionMode = 0;
    Show_Result(s, s.Registers[static_cast<size_t>(s.RegisterChoice)].Value);
    s.EntryText.clear();
}

void key_XtoK(CalcVariables& s) {
    if (!Open_Register_Window(s, 2)) return;
    ClearEntryModes(s);
    s.FractionMode = 0;
    auto& reg = s.Registers[static_cast<size_t>(s.RegisterChoice)];
    s.RegisterWork = reg.Value;
    Commit_Fraction(s);
    reg.Value = X(s);
    Show_Result(s, s.RegisterWork);
    s.EntryText.clear();
}

void Register_Add(CalcVariables& s, int16_t action, double sign) {
    if (s.ErrorLock) return;
    if (!Open_Register_Window(s, action)) return;
    Commit_Fraction(s);
    auto& reg = s.Registers[static_cast<size_t>(s.RegisterChoice)];
    double v = reg.Value + sign * X(s);
    if (std::isfinite(v)) reg.Value = v;
    s.CarryText = !s.EntryText.empty() ? s.EntryText : PlainText(X(s));
    s.EntryText.clear();
}

void Constant_Key(CalcVariables& s) {
    s.ConstantChoice = Variant();
    if (s.ShowConstantWindow) s.ShowConstantWindow(s);
    if (Empty(s.ConstantChoice)) return;
    ClearEntryModes(s);
    s.FractionMode = 0;
    Show_Result(s, Num(s.ConstantChoice));
    s.EntryText.clear();
}

// ---- Speech -----------------------------------------------------------------------------------

void Say(CalcVariables& s, const std::string& text) {
    if (s.Speak) s.Speak(text);
}

// The result at "=": the number as the voice reads it.
void Speak_Result(CalcVariables& s) {
    if (!s.ReadOutOn || !IsNumeric(Trim(s.DisplayBox))) return;
    std::string t;
    if (Val(s.ExpoBox) == 0) {
        t = PlainText(Val(s.DisplayBox));
    } else {
        t = PlainText(Val(s.DisplayBox)) + "E" + PlainText(Val(s.ExpoBox));
        t = Replace(t, "E-", "times 10 to the power negative");
        t = Replace(t, "E+", "times 10 to the power");
        t = Replace(t, "E", "times 10 to the power");
    }
    std::string tt = Trim(t);
    if (!tt.empty() && tt[0] == '-') t = "negative " + tt.substr(1);
    Say(s, "= " + t);
}

struct KeyWord {
    const char* token;
    const char* word;
};

const KeyWord kKeyWords[] = {
    {"dot", "."},
    {"+", "+"},
    {"-", "minus"},
    {"*", "times"},
    {"/", "divided by"},
    {"exp", "exponent"},
    {"PI", "pi"},
    {"AC", ""},
    {"C", ""},
    {"sqrt", "square root"},
    {"cubt", "cube root"},
    {"cube", "cube"},
    {"sqr", "squared"},
    {"log", "log"},
    {"alog", "anti log"},
    {"ln", "ln"},
    {"aln", "anti ln"},
    {"tan", "tangent"},
    {"sin", "sine"},
    {"cos", "cosine"},
    {"iTan", "inverse tangent"},
    {"iSin", "inverse sine"},
    {"iCos", "inverse cosine"},
    {"tanh", "hyperbolic tangent"},
    {"sinh", "hyperbolic sine"},
    {"cosh", "hyperbolic cosine"},
    {"itanh", "inverse hyperbolic tangent"},
    {"isinh", "inverse hyperbolic sine"},
    {"icosh", "inverse hyperbolic cosine"},
    {"rcp", "reciprocal"},
    {"xy", "to the power"},
    {"root", "root"},
    {"fact", "factorial"},
    {"mo", "memory recall"},
};

// Tokens that go through Dispatch_Key.
const char* const kDispatchTokens[] = {
    "0",    "1",     "2",    "3",     "4",     "5",    "6",     "7",    "8",     "9",    "dot",   "+",
    "-",    "*",     "/",    "=",     "xy",    "root", "pm",    "exp",  "frc",   "C",    "AC",    "ers",
    "x-y",  "PI",    "rand", "mo",    "xtract", "ko",  "xk",    "cnst", "sexa",  "asex", "data",  "dtn",
    "dts",  "ave",   "sqr1", "sqr2",  "strd0", "strd1"};
// Keys with actions of their own.
const char* const kDirectTokens[] = {"min", "mplus", "mminus", "kin", "kac", "dc", "engl", "engr", "ptor", "rtop"};

bool IsStatistic(const std::string& t) {
    return t == "sqr1" || t == "sqr2" || t == "dts" || t == "dtn" || t == "ave" || t == "strd0" || t == "strd1";
}

// The operator mark beside the display, written only while it holds a number.
void Set_Operator_Mark(CalcVariables& s, const std::string& mark) {
    if (IsNumeric(Trim(s.DisplayBox))) s.OperatorIndicator = mark;
}

}  // namespace

// =====================================================================================
// Key engine
// =====================================================================================

void Dispatch_Key(CalcVariables& s, std::string& token) {
    if (s.TimeShown) {
        Clock_Off(s);  // the key press only ends the clock
        return;
    }
    s.TimeShown = 0;
    s.KeyToken.clear();
    const std::string t = token;
    if (!s.ErrorLock) {
        if (t.size() == 1 && t[0] >= '0' && t[0] <= '9') {
            s.KeyToken = t;
        } else if (t == "+" || t == "-" || t == "*" || t == "/" || t == "=") {
            Prepare(s);
            s.ExpNegative = 0;
            s.KeyToken = t;
        } else if (t == "dot") {
            s.KeyToken = s.FractionMode ? "" : "dot";
        } else if (t == "C") {
            if (s.FractionMode) {
                s.FractionText.clear();
                s.FractionMode = 0;
            }
            ClearEntryModes(s);
            s.KeyToken.clear();
            Clear_Entry(s);
        } else if (t == "data") {
            Prepare(s);
            s.KeyToken.clear();
            Add_Data(s);
        } else if (CalcFunctions::Is_Function_Token(t)) {
            Prepare(s);
            Function_Key(s, t);
        } else if (t == "xy" || t == "root") {
            Prepare(s);
            s.ExpNegative = 0;
            s.KeyToken = t == "xy" ? "expt" : "invexpt";
        } else if (t == "frc") {
            s.FractionMode = -1;
            s.KeyToken = "/";
            Enter_Fraction(s);
            s.KeyToken.clear();
        } else if (t == "x-y") {
            Swap_Key(s);
            ClearEntryModes(s);
            s.FractionMode = 0;
        } else if (t == "pm") {
            Sign_Key(s);
        } else if (t == "exp") {
            Exponent_Key(s);
        } else if (t == "PI") {
            if (!s.ExpMode) {
                Show_Result(s, CalcFunctions::kPi);
                s.EntryText.clear();
            }
        } else if (t == "mo") {
            ClearEntryModes(s);
            s.FractionMode = 0;
            Show_Result(s, s.MemoryValue);
            s.EntryText.clear();
        } else if (t == "xtract") {
            ClearEntryModes(s);
            s.FractionMode = 0;
            Paste_Key(s);
        } else if (t == "ko") {
            key_Kout(s);
        } else if (t == "xk") {
            key_XtoK(s);
        } else if (t == "cnst") {
            Constant_Key(s);
        } else if (t == "ers") {
            s.SexaCount = Variant();
            Delete_Key(s);
        } else if (t == "sexa") {
            Sexa_Key(s);
        } else if (t == "asex") {
            Asex_Key(s);
        } else if (t == "rand") {
            s.RandomShown = -1;
            Random_Key(s);
            ClearEntryModes(s);
            s.FractionMode = 0;
        } else if (IsStatistic(t)) {
            s.FractionMode = 0;
            Statistic(s, t);
        }
    }
    if (t == "AC") Clear_All(s);
    if (!s.FractionMode) s.FractionText.clear();
    Process_Key(s);
    s.TimeShown = 0;
}

void Process_Key(CalcVariables& s) {
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
    s.NumberEntered = -1;
    if (!s.ErrorLock) Enter_Digit(s);
}

void Enter_Digit(CalcVariables& s) {
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
        s.ResultPending = 0;
    }
}

void Enter_Exponent(CalcVariables& s) {
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

void Enter_Fraction(CalcVariables& s) {
    size_t seps = static_cast<size_t>(std::count(s.FractionText.begin(), s.FractionText.end(), '/'));
    if (seps >= 2 && s.KeyToken == "/") s.KeyToken.clear();
    if (s.FractionText.empty() && !s.EntryText.empty() && !Has(s.EntryText, '.') && IsNumeric(s.EntryText) &&
        Val(s.EntryText) != 0 && Val(s.EntryText) == Fix(Val(s.EntryText)) && !Has(UCase(s.EntryText), 'E')) {
        s.FractionText = s.EntryText;
        s.SexaCount = Variant();
    }
    if (s.FractionText.empty()) {
        s.FractionMode = 0;
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

void Clear_All(CalcVariables& s) {
    s.KeyToken.clear();
    s.PendingOp.clear();
    s.PriorOp.clear();
    s.Operands.clear();
    s.OldestOp.clear();
    s.ErrorLock = 0;
    s.EntryText.clear();
    s.RegisterWork = 0;
    s.NumberEntered = 0;
    s.SignPressed = 0;
    s.DisplayText = Variant();
    s.RunningTotal = Variant();
    s.ErrorWord = Variant();
    s.ExpMode = 0;
    s.ExponentText.clear();
    s.MantissaText.clear();
    s.ResultPending = 0;
    s.ResultFullText.clear();
    s.ExpNegative = 0;
    s.FractionText.clear();
    s.SexaCount = Variant();
    s.FractionMode = 0;
    s.KOperator.clear();
    s.PolarRadius = Variant();
    s.PolarPending = 0;
    s.KValue = Variant();
    s.RectX = Variant();
    s.RectPending = 0;
    s.SecondValue = Variant();
    s.RepeatOps.clear();
    s.ConversionArmed = 0;
    s.CCalc_Indicator.clear();
    Show_Result(s, 0);
    s.EntryText.clear();
}

void Clear_Entry(CalcVariables& s) {
    Show_Result(s, 0);
    s.EntryText.clear();
    s.ExponentText.clear();
}

// =====================================================================================
// Operators
// =====================================================================================

void Operator_Step(CalcVariables& s) {
    std::string k = LCase(Trim(s.KeyToken));
    if (k == "+" || k == "-" || k == "/" || k == "*" || k == "expt" || k == "invexpt") {
        if (!s.EntryText.empty()) Finish_Polar(s);
        if (!s.EntryText.empty()) Finish_Rect(s);
        if (s.ErrorLock) return;
        Press_Operator(s);
    } else if (k == "=") {
        Finish_Polar(s);
        Finish_Rect(s);
        if (s.ErrorLock) return;
        Press_Equal(s);
    } else {
        s.ConversionArmed = 0;
        return;
    }
    if (!s.PolarPending && !s.RectPending) s.SecondValue = s.RunningTotal;
    // A finished conversion has handed its x on as the operand; the next
    // conversion starts from its own radius or x.
    if (s.PolarPending) s.PolarRadius = Variant();
    if (s.RectPending) s.RectX = Variant();
    s.PolarPending = 0;
    s.RectPending = 0;
    s.ConversionArmed = 0;
}

void Press_Operator(CalcVariables& s) {
    std::string& e = s.EntryText;
    if (e.empty() && !s.CarryText.empty()) {
        e = s.CarryText;
        s.CarryText.clear();
    }
    if (!e.empty()) {
        s.Operands.push_back(Val(e));
        s.RepeatOps.clear();
    }
    if (s.RepeatOps.empty()) s.RepeatOps.push_back(s.KeyToken);
    if (s.PendingOp != s.KeyToken || !e.empty())
        s.RepeatOps.assign(1, s.KeyToken);
    else
        s.RepeatOps.push_back(s.KeyToken);
    if (s.RepeatOps.size() % 2 == 0) {
        s.KValue = Variant(X(s));
        s.KOperator = s.RepeatOps.front();
        s.CCalc_Indicator = "K";
    } else {
        s.KValue = Variant();
        s.KOperator.clear();
        s.CCalc_Indicator.clear();
    }
    Evaluate_Pending(s);
    if (!s.PriorOp.empty()) s.OldestOp = s.PriorOp;
    if (!s.PendingOp.empty() && !e.empty()) s.PriorOp = s.PendingOp;
    if (!s.KeyToken.empty()) s.PendingOp = s.KeyToken;
    e.clear();
}

void Press_Equal(CalcVariables& s) {
    std::string& e = s.EntryText;
    if (e.empty() && !s.CarryText.empty()) {
        e = s.CarryText;
        s.CarryText.clear();
    }
    // An armed constant applies again at every "=".
    if (e.empty() && !Empty(s.KValue) && !s.KOperator.empty()) e = Text(s.RunningTotal);
    if (!e.empty()) s.Operands.push_back(Val(e));
    Evaluate_Pending(s);
    s.PendingOp.clear();
    s.PriorOp.clear();
    s.OldestOp.clear();
    s.Operands.clear();
    if (!Empty(s.RunningTotal) && s.RunningTotal.IsNumber()) s.Operands.push_back(s.RunningTotal.number);
    e.clear();
}

namespace {

void SetError(CalcVariables& s, const char* word) {
    s.RunningTotal = Variant("Error");
    s.ErrorWord = Variant(word);
}

void Add(CalcVariables& s, double sign) {
    Reduce_Operands(s);
    s.RunningTotal = Variant(Num(s.RunningTotal) + sign * s.Operand0);
}

void Multiply(CalcVariables& s) {
    Reduce_Operands(s);
    double t = Num(s.RunningTotal), x0 = s.Operand0, x1 = s.Operand1;
    Guard g;
    double r;
    if (s.PriorOp == "+")
        r = g(g(t - x1) + g(x1 * x0));
    else if (s.PriorOp == "-")
        r = g(g(t + x1) - g(x1 * x0));
    else
        r = g(t * x0);
    if (g.bad)
        SetError(s, "Infinity");
    else
        s.RunningTotal = Variant(r);
}

void Divide(CalcVariables& s) {
    Reduce_Operands(s);
    double t = Num(s.RunningTotal), x0 = s.Operand0, x1 = s.Operand1;
    if (x0 == 0) {
        SetError(s, "Divide by Zero");
        return;
    }
    double r;
    if (s.PriorOp == "+")
        r = (t - x1) + x1 / x0;
    else if (s.PriorOp == "-")
        r = (t + x1) - x1 / x0;
    else
        r = t / x0;
    if (!std::isfinite(r))
        SetError(s, "Infinity");
    else
        s.RunningTotal = Variant(r);
}

// Power and root share the undo table; `root` puts 1 / x0 where the exponent
// stands. The two plain-chain rows of the root are not mirrors of the power
// rows; they are kept the way the key has always worked.
void PowerOrRoot(CalcVariables& s, bool root) {
    Reduce_Operands(s);
    double t = Num(s.RunningTotal), x0 = s.Operand0, x1 = s.Operand1, x2 = s.Operand2;
    if (x0 == 0 && t == 0) {
        SetError(s, "Divide by Zero");  // 0 to the 0
        return;
    }
    Guard g;
    bool invalid = false;
    auto P = [&](double a, double b) {
        double r = 0;
        if (!std::isfinite(a) || !std::isfinite(b) || !CalcFunctions::Safe_Power(a, b, r)) invalid = true;
        return r;
    };
    double ex = root ? g(1 / x0) : x0;  // the exponent where x0 stands
    const std::string& prior = s.PriorOp;
    const std::string& oldest = s.OldestOp;
    bool oldestPlain = oldest.empty() || oldest == "/" || oldest == "*";
    bool oldestPow = oldest == "expt" || oldest == "invexpt";
    double r = t;
    if (prior == "+") {
        r = g(g(t - x1) + P(x1, ex));
    } else if (prior == "-") {
        r = g(g(t + x1) - P(x1, ex));
    } else if (prior == "*" && oldest == "+") {
        double a = g(t - g(x1 * x2));
        r = g(a + g(x2 * P(x1, ex)));
    } else if (prior == "*" && oldest == "-") {
        double a = g(t + g(x1 * x2));
        r = g(a - g(x2 * P(x1, ex)));
    } else if (prior == "*" && oldestPlain) {
        r = root ? g(t * P(x1, g(1 - g(1 / x0)))) : g(t * P(x1, x0 - 1));
    } else if (prior == "*" && oldestPow) {
        double inner = oldest == "expt" ? x2 : g(1 / x2);
        double a = g(std::exp(g(g(std::log(g(t / x1))) / inner)));
        if (!(t / x1 > 0)) g.bad = true;
        r = g(P(a, inner) * P(x1, ex));
    } else if (prior == "/" && oldest == "+") {
        double a = g(t - g(x2 / x1));
        r = g(a + g(x2 / P(x1, ex)));
    } else if (prior == "/" && oldest == "-") {
        double a = g(t + g(x2 / x1));
        r = g(a - g(x2 / P(x1, ex)));
    } else if (prior == "/" && oldestPlain) {
        r = root ? g(t * P(x1, 1 - (1 - x0))) : g(t * P(x1, 1 - x0));
    } else if (prior == "/" && oldestPow) {
        double inner = oldest == "expt" ? x2 : g(1 / x2);
        double a = g(std::exp(g(g(std::log(g(t * x1))) / inner)));
        if (!(t * x1 > 0)) g.bad = true;
        r = g(P(a, inner) / P(x1, ex));
    } else if (prior.empty() || prior == "expt" || prior == "invexpt") {
        // A power of a power is worked left to right.
        r = P(t, ex);
    }
    if (invalid || g.bad) {
        SetError(s, "Invalid Power");
        return;
    }
    s.RunningTotal = Variant(r);
}

}  // namespace

void Evaluate_Pending(CalcVariables& s) {
    const std::string& p = s.PendingOp;
    if (s.KOperator.empty() && !s.EntryText.empty() && p == "+")
        Add(s, 1);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "-")
        Add(s, -1);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "/")
        Divide(s);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "*")
        Multiply(s);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "expt")
        PowerOrRoot(s, false);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "invexpt")
        PowerOrRoot(s, true);
    else
        Apply_Constant(s);

    if (IsErrorText(s.RunningTotal)) {
        Show_Error(s);
        return;
    }
    double t = Num(s.RunningTotal);
    if (!std::isfinite(t)) {
        s.ErrorWord = Variant("Infinity");
        s.RunningTotal = Variant("Error");
        Show_Error(s);
        return;
    }
    int e = TextExponent(t);
    if (t != 0 && e > 99) {
        s.ErrorWord = Variant("Infinity");
        Show_Error(s);
        return;
    }
    if (e < -99) s.RunningTotal = Variant(0.0);
    // Only "=" or a repeat of the same operator shows the total: after
    // "2", "*", "3", "+" the display keeps 3 although the total is 6.
    if (s.KeyToken == "=" || s.PendingOp == s.KeyToken) Show_Value(s, s.RunningTotal, "");
}

void Reduce_Operands(CalcVariables& s) {
    std::vector<double> w(s.Operands.rbegin(), s.Operands.rend());
    auto at = [&](size_t i) { return i < w.size() ? w[i] : 0.0; };
    const std::string &p = s.PendingOp, &q = s.PriorOp;
    bool reduce = true;
    double c = 0;
    auto keep = [&](double v) {
        if (std::isfinite(v)) c = v;  // a failing statement leaves its target as it was
    };
    if ((p == "*" && q == "*") || (p == "/" && q == "*")) {
        keep(at(2) * at(1));
    } else if ((p == "/" && q == "/") || (p == "*" && q == "/")) {
        if (at(1) != 0) keep(at(2) / at(1));
    } else if ((p == "expt" && q == "expt") || (p == "invexpt" && q == "expt")) {
        double r = 0;
        if (CalcFunctions::Safe_Power(at(2), at(1), r)) keep(r);
    } else if ((p == "invexpt" && q == "invexpt") || (p == "expt" && q == "invexpt")) {
        double r = 0;
        if (at(1) != 0 && CalcFunctions::Safe_Power(at(2), 1 / at(1), r)) keep(r);
    } else {
        reduce = false;
    }
    if (reduce) {
        s.Operands = {at(3), c, at(0)};
        s.PriorOp = s.OldestOp;
    }
    w.assign(s.Operands.rbegin(), s.Operands.rend());
    if (w.size() > 2) s.Operand2 = w[2];
    if (w.size() > 1) s.Operand1 = w[1];
    if (w.size() > 0) s.Operand0 = w[0];
}

void Apply_Constant(CalcVariables& s) {
    double t = !s.EntryText.empty() ? Val(s.EntryText) : X(s);
    s.RunningTotal = Variant(t);
    if (Empty(s.KValue) || s.KOperator.empty() || s.KeyToken != "=") return;
    double k = Num(s.KValue);
    const std::string& op = s.KOperator;
    double r = t;
    bool error = false;
    if (op == "expt") {
        if (k == 0 && t == 0) error = true;
        else if (!CalcFunctions::Safe_Power(t, k, r)) {
            SetError(s, "Invalid Power");
            return;
        }
    } else if (op == "invexpt") {
        if (k == 0) error = true;
        else if (!CalcFunctions::Safe_Power(t, 1 / k, r)) {
            SetError(s, "Invalid Power");
            return;
        }
    } else if (op == "/") {
        if (k == 0) error = true;
        else r = t / k;
    } else if (op == "*") {
        r = t * k;
    } else if (op == "+") {
        r = t + k;
    } else if (op == "-") {
        r = t - k;
    }
    if (error) {
        SetError(s, "Divide by Zero");
        return;
    }
    s.RunningTotal = Variant(r);
}

// =====================================================================================
// Display
// =====================================================================================

void Show_Result(CalcVariables& s, double x) {
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
    s.ResultPending = -1;
    s.RandomShown = 0;
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
void Show_Split(CalcVariables& s, const std::string& t, bool removeBlanks) {
    size_t p = EPos(t);
    std::string m = t.substr(0, p);
    if (removeBlanks) m = Replace(m, " ", "");
    std::string mark = Has(t, '+') ? " " : "-";
    std::string d = Right(t, 2);
    if (!Has(m, '.')) m += ".";
    s.DisplayBox = m;
    s.ExpoBox = mark + d;
}

}  // namespace

void Show_Value(CalcVariables& s, const Variant& valueArg, const std::string& textArg) {
    s.DateBox.clear();
    s.TimeShown = 0;
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
    s.ExpoBox.clear();
    s.DisplayValue = Variant(!Empty(valueArg) ? Num(valueArg) : Val(textArg));
    s.DisplayText = !textArg.empty() ? Variant(textArg) : valueArg;
    if (EPos(t) != std::string::npos) {
        Show_Split(s, t, false);
        return;
    }
    if (!Has(t, '.')) t += ".";
    s.DisplayBox = t;
}

void Show_Exponent(CalcVariables& s, const std::string& text, const Variant& valueArg) {
    s.ExpoBox.clear();
    s.DisplayValue = Variant(!Empty(valueArg) ? Num(valueArg) : Val(text));
    s.DisplayText = !text.empty() ? Variant(text) : valueArg;
    if (EPos(text) != std::string::npos) Show_Split(s, text, true);
}

void Show_Error(CalcVariables& s) {
    std::string word = Text(s.ErrorWord);
    std::string t = word.empty() ? "*Error*" : "*" + word + "*";
    Speak_Text(s, "Error :::: " + word);
    s.ErrorLock = -1;
    s.ErrorWord = Variant();
    s.ExpoBox.clear();
    s.DisplayBox = t;
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
// Fractions
// =====================================================================================

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

void Show_Fraction(CalcVariables& s, const std::string& t) {
    auto parts = SplitSlash(t);
    if (parts.size() == 3)
        s.DisplayBox = Trim(parts[0]) + " " + Trim(parts[1]) + "/" + Trim(parts[2]) + ".";
    else
        s.DisplayBox = t + ".";
    s.ExpoBox.clear();
}

Variant Fraction_Value(CalcVariables& s, const std::string& t) {
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

void Commit_Fraction(CalcVariables& s) {
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
    s.FractionMode = 0;
}

namespace {

// Shows the fraction text of the decimal/fraction key and, at the second step,
// its improper form.
void Fraction_Finish(CalcVariables& s, std::string text, bool neg) {
    if (neg) text = "-" + text;
    if (CharLen(text) > 15) return;
    Show_Fraction(s, text);
    s.FractionStep = static_cast<int16_t>(s.FractionStep + 1);
    if (s.FractionStep > 2) s.FractionStep = 1;
    if (s.FractionStep == 2) {
        Fraction_Value(s, text);
        auto parts = SplitSlash(s.ImproperText);
        if (parts.size() != 2) return;
        double a = Val(parts[0]), b = Val(parts[1]);
        double g = CalcFunctions::Greatest_Divisor(std::fabs(a), b);
        if (g == 0) return;
        std::string t = WholeText(a / g);
        if (b / g != 1) t += "/" + WholeText(std::fabs(b / g));
        Show_Fraction(s, t);
    }
}

}  // namespace

void Fraction_Toggle(CalcVariables& s) {
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
            double g = CalcFunctions::Greatest_Divisor(n[0], n[1]);
            if (g == 0) return;
            std::string t = WholeText(n[0] / g) + "/" + WholeText(n[1] / g);
            s.FractionStep = std::min<int16_t>(s.FractionStep, 2);
            Fraction_Finish(s, t, neg);
        } else if (parts.size() == 3) {
            if (n[1] == n[2]) {
                Show_Fraction(s, sign + WholeText(n[0] + 1));
                return;
            }
            double g = CalcFunctions::Greatest_Divisor(n[1], n[2]);
            if (g == 0) return;
            std::string t = WholeText(n[0]) + "/" + WholeText(n[1] / g) + "/" + WholeText(n[2] / g);
            s.FractionStep = std::min<int16_t>(s.FractionStep, 2);
            Fraction_Finish(s, t, neg);
        }
        return;
    }
    double v = X(s);
    s.DisplayText = Variant(v);
    bool neg = v < 0;
    double snapped = CalcFunctions::Near_Whole_Short(v);
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
    CalcFunctions::Find_Repeat(v, k, pattern);
    if (k > 0) {
        N = Val(pattern);
        D = std::pow(10.0, k) - 1;  // k nines
    }
    double g = CalcFunctions::Greatest_Divisor(N, D);
    if (g != 0) {
        N /= g;
        D /= g;
    }
    std::string whole = w.substr(0, p);
    std::string t = WholeText(N) + "/" + WholeText(D);
    if (Val(whole) != 0) t = whole + "/" + t;
    Fraction_Finish(s, t, neg);
}

// =====================================================================================
// Speech
// =====================================================================================

void Speak_Text(CalcVariables& s, const std::string& word) {
    if (!s.ReadOutOn) return;
    if (!IsNumeric(Trim(s.DisplayBox))) return;
    Say(s, word);
}

// =====================================================================================
// Memory
// =====================================================================================

void key_Min_Click(CalcVariables& s) {
    if (s.ErrorLock) return;
    Clock_Off(s);
    Commit_Fraction(s);
    s.MemoryValue = X(s);
    s.CarryText = PlainText(X(s));
    s.Mem_Indicator = s.MemoryValue != 0 ? "MEM" : "";
    Speak_Text(s, "memory in");
}

void key_Kin_Click(CalcVariables& s) {
    if (s.ErrorLock) return;
    Clock_Off(s);
    if (!Open_Register_Window(s, 0)) return;
    auto& reg = s.Registers[static_cast<size_t>(s.RegisterChoice)];
    reg.Value = X(s);
    reg.Description = s.RegisterText;
}

void key_Mplus_Click(CalcVariables& s) { Register_Add(s, 3, 1); }
void key_Mminus_Click(CalcVariables& s) { Register_Add(s, 4, -1); }

void key_KAC_Click(CalcVariables& s) { Open_Register_Window(s, 5); }

void Delete_Registers(CalcVariables& s, const std::vector<int>& checked) {
    for (int i : checked)
        if (i >= 0 && i < CalcFiles::kRegisterCount) s.Registers[static_cast<size_t>(i)] = {};
}

namespace {

std::string ListValue(double v) {
    if (PlainText(Fix(v)).size() > 15) return Format(v, "0.0" + std::string(15, '#') + "E+00");
    return Format(v, "0.0" + kHashes100);
}

}  // namespace

std::string Register_Value_Text(double value) { return ListValue(value) + "   "; }

std::string Data_Value_Text(double value) { return PlainText(Val(ListValue(value))) + "   "; }

void Delete_Data(CalcVariables& s, const std::vector<bool>& checked) {
    if (!s.DataValues.IsList()) return;
    const auto& v = s.DataValues.Values;
    std::vector<double> kept;
    for (size_t i = 0; i < v.size(); ++i)
        if (i >= checked.size() || !checked[i]) kept.push_back(v[i]);
    if (kept.empty()) {
        s.DataValues.kind = CalcFiles::DataList::Kind::EmptyText;
        s.DataValues.Values.clear();
    } else {
        s.DataValues.Values = kept;
    }
}

std::string Copy_Text(const CalcVariables& s) { return PlainText(X(s)); }

// =====================================================================================
// Window level
// =====================================================================================

bool Is_Key_Token(const std::string& t) {
    for (const char* k : kDispatchTokens)
        if (t == k) return true;
    for (const char* k : kDirectTokens)
        if (t == k) return true;
    return CalcFunctions::Is_Function_Token(t);
}

bool Press_Key(CalcVariables& s, const std::string& token) {
    if (!Is_Key_Token(token)) return false;
    if (token == "min") {
        key_Min_Click(s);
    } else if (token == "mplus") {
        key_Mplus_Click(s);
    } else if (token == "mminus") {
        key_Mminus_Click(s);
    } else if (token == "kin") {
        key_Kin_Click(s);
    } else if (token == "kac") {
        key_KAC_Click(s);
    } else if (token == "dc") {
        Fraction_Toggle(s);
    } else if (token == "engl") {
        Engineering_Key(s, false);
    } else if (token == "engr") {
        Engineering_Key(s, true);
    } else if (token == "ptor") {
        if (!s.ErrorLock) key_PtoR_Click(s);
    } else if (token == "rtop") {
        if (!s.ErrorLock) key_RtoP_Click(s);
    } else {
        if (token == "+" || token == "-") Set_Operator_Mark(s, token);
        else if (token == "/") Set_Operator_Mark(s, "\xC3\xB7");
        else if (token == "*") Set_Operator_Mark(s, "x");
        else if (token == "xy") Set_Operator_Mark(s, "^");
        else if (token == "AC" || token == "=") s.OperatorIndicator.clear();
        std::string t = token;
        Dispatch_Key(s, t);
        if (token == "=") {
            Speak_Result(s);
        } else if (token == "pm") {
            if (LTrim(s.DisplayBox).rfind('-', 0) == 0) Speak_Text(s, "negative");
        } else if (token.size() == 1 && token[0] >= '0' && token[0] <= '9') {
            Speak_Text(s, token);
        } else {
            for (const auto& kw : kKeyWords)
                if (token == kw.token) Speak_Text(s, kw.word);
        }
    }
    return true;
}

std::string Keyboard_Token(int code, int shift) {
    if (code >= 48 && code <= 57) {
        int d = code - 48;
        if (d == 6) return shift == 1 ? "exp" : "6";
        if (d == 8) return shift == 1 ? "*" : "8";
        if (d == 3 || d == 4) return std::to_string(d);
        return shift == 0 ? std::to_string(d) : "";
    }
    if (code >= 96 && code <= 105) return std::to_string(code - 96);
    switch (code) {
        case 110:
        case 190: return "dot";
        case 46: return "AC";
        case 8: return "ers";
        case 27: return "C";
        case 13:
        case 108: return "=";
        case 187: return shift == 1 ? "+" : "=";
        case 43:
        case 107: return "+";
        case 191:
        case 111: return "/";
        case 106: return "*";
        case 109: return "-";
        case 189: return shift == 0 ? "-" : "";
        case 119: return "exp";
        case 120: return "PI";
        case 112:
        case 113:
        case 114:
        case 115: return "tab" + std::to_string(code - 112);
        case 38: return "xy";
        default: return "";
    }
}

bool key_Time_Click(CalcVariables& s) {
    if (s.ErrorLock) return false;
    s.TimeShown = s.TimeShown ? 0 : -1;
    s.ExpoBox.clear();
    s.DateBox.clear();
    if (!s.TimeShown) Show_Value(s, s.DisplayValue, "");
    return s.TimeShown != 0;
}

void Show_Clock(CalcVariables& s, int year, int month, int day, int weekday, int hour, int minute, int second) {
    static const char* const kDays[] = {"SUNDAY", "MONDAY", "TUESDAY", "WEDNESDAY", "THURSDAY", "FRIDAY", "SATURDAY"};
    static const char* const kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                          "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    s.DateBox = std::string(kDays[std::clamp(weekday, 0, 6)]) + " " + kMonths[std::clamp(month, 1, 12) - 1] + " " +
                std::to_string(day) + ", " + std::to_string(year);
    int h12 = hour % 12 == 0 ? 12 : hour % 12;
    auto two = [](int v) { return Format(v, "00"); };
    s.DisplayBox = two(h12) + ":" + two(minute) + ":" + two(second) + (hour < 12 ? " AM" : " PM");
}

void Set_Angle_Mode(CalcVariables& s, char mode) {
    s.IsRadian = mode == 'R' ? -1 : 0;
    s.IsGradian = mode == 'G' ? -1 : 0;
    s.IsDegree = (mode != 'R' && mode != 'G') ? -1 : 0;
    s.Mode_Indicator = s.IsRadian ? "RADIAN" : s.IsGradian ? "GRADIAN" : "DEGREE";
}

void PrecBox_Change(CalcVariables& s) {
    Variant chosen = s.PrecBoxIndex < 0 ? Variant() : Variant(static_cast<double>(s.PrecBoxIndex));
    if (s.FxnButton) {
        s.FixDigits = chosen;
        s.SavedFixDigits = s.FixDigits;
        s.SciDigits = Variant();
    } else if (s.ScnButton) {
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

void PrecBox_Click(CalcVariables& s, int index) {
    s.PrecBoxIndex = static_cast<int16_t>(std::clamp(index, -1, 14));
    PrecBox_Change(s);
}

void FxnButton_Click(CalcVariables& s) {
    s.FxnButton = -1;
    s.ScnButton = 0;
    s.StdButton = 0;
    s.PrecBoxEnabled = -1;
    s.PrecBoxIndex = Empty(s.SavedFixDigits) ? 0 : static_cast<int16_t>(std::min(Num(s.SavedFixDigits), 14.0));
    s.DispMode_Indicator = "FIX";
    PrecBox_Change(s);
}

void ScnButton_Click(CalcVariables& s) {
    s.FxnButton = 0;
    s.ScnButton = -1;
    s.StdButton = 0;
    s.PrecBoxEnabled = -1;
    s.PrecBoxIndex = Empty(s.SavedSciDigits) ? 0 : static_cast<int16_t>(std::min(Num(s.SavedSciDigits), 14.0));
    s.DispMode_Indicator = "SCI";
    PrecBox_Change(s);
}

void StdButton_Click(CalcVariables& s) {
    s.FxnButton = 0;
    s.ScnButton = 0;
    s.StdButton = -1;
    s.PrecBoxEnabled = 0;
    s.PrecBoxIndex = -1;
    s.DispMode_Indicator = "NORM";
    PrecBox_Change(s);
}

void Initial_Routine(CalcVariables& s) {
    s.CCalc_Indicator = (!s.RepeatOps.empty() && s.RepeatOps.size() % 2 == 0) ? "K" : "";
    if (!Empty(s.DisplayValue) && !Empty(s.DisplayText) && !s.ErrorLock) {
        if (s.ExpMode)
            Show_Exponent(s, s.MantissaText + "E" + s.ExponentText, Variant());
        else
            Show_Value(s, s.DisplayValue, "");
    } else {
        std::string t = "AC";
        Dispatch_Key(s, t);
    }
    Set_Angle_Mode(s, s.IsRadian ? 'R' : s.IsGradian ? 'G' : 'D');
    s.Mem_Indicator = s.MemoryValue != 0 ? "MEM" : "";
    if (!Empty(s.FixDigits)) {
        s.PrecBoxIndex = static_cast<int16_t>(std::min(Num(s.FixDigits), 14.0));
        s.FxnButton = -1, s.ScnButton = 0, s.StdButton = 0, s.PrecBoxEnabled = -1;
        s.DispMode_Indicator = "FIX";
    } else if (!Empty(s.SciDigits)) {
        s.PrecBoxIndex = static_cast<int16_t>(std::min(Num(s.SciDigits), 14.0));
        s.FxnButton = 0, s.ScnButton = -1, s.StdButton = 0, s.PrecBoxEnabled = -1;
        s.DispMode_Indicator = "SCI";
    } else {
        s.FxnButton = 0, s.ScnButton = 0, s.StdButton = -1, s.PrecBoxEnabled = 0;
        s.DispMode_Indicator = "NORM";
    }
}

}  // namespace CalcProcs
