// The key table and the window-level key procedures that read it: Press_Key
// (operator mark, dispatch, spoken word), the keyboard and the key speech.
#include "calc/core/KeyTable.h"

#include <array>

#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

namespace {

using K = KeyKind;
using S = KeySpeech;
using R = ShiftRule;
using A = RegisterAction;
using B = Keyboard;
constexpr std::array<KeyBinding, 3> kNoKeys{};

constexpr std::array<KeyBinding, 3> Keys(B a, R ra = R::Any, B b = B::None, R rb = R::Any, B c = B::None,
                                         R rc = R::Any) {
    return {KeyBinding{a, ra}, KeyBinding{b, rb}, KeyBinding{c, rc}};
}

// A digit key: the row of digits (with the Shift rule of that digit) and the keypad.
constexpr KeyDef DigitKey(const char* token, const char* control, int digit, R rule) {
    const auto keys = Keys(Row_Digit(digit), rule, Keypad_Digit(digit));
    return {token, K::Digit, control, token, true, nullptr, S::Word, token, keys, std::nullopt, Digit_Key};
}

// A function key: dispatched, spoken by its word.
constexpr KeyDef FunctionKey(const char* token, const char* control, const char* caption, const char* word) {
    return {token, K::Function, control, caption, true, nullptr, S::Word, word, kNoKeys, std::nullopt, Function_Key};
}

constexpr KeyDef StatisticKey(const char* token, const char* control, const char* caption) {
    return {token, K::Statistic, control, caption, true, nullptr, S::Silent, nullptr, kNoKeys, std::nullopt,
            Statistic_Key};
}

// A key with no word, no mark and no keyboard key.
constexpr KeyDef PlainKey(const char* token, K kind, const char* control, const char* caption, bool dispatched,
                          KeyAction action, std::optional<A> reg = std::nullopt) {
    return {token, kind, control, caption, dispatched, nullptr, S::Silent, nullptr, kNoKeys, reg, action};
}

const KeyDef kKeys[] = {
    DigitKey("0", "key_0", 0, R::None),
    DigitKey("1", "key_1", 1, R::None),
    DigitKey("2", "key_2", 2, R::None),
    DigitKey("3", "key_3", 3, R::Any),
    DigitKey("4", "key_4", 4, R::Any),
    DigitKey("5", "key_5", 5, R::None),
    DigitKey("6", "key_6", 6, R::NotShift),
    DigitKey("7", "key_7", 7, R::None),
    DigitKey("8", "key_8", 8, R::NotShift),
    DigitKey("9", "key_9", 9, R::None),
    {"dot", K::Entry, "key_dot", ".", true, nullptr, S::Word, ".", Keys(B::Point), std::nullopt, Dot_Key},
    {"+", K::Operator, "key_plus", "+", true, "+", S::Word, "+", Keys(B::Equal, R::Shift, B::Plus), std::nullopt,
     Operator_Key},
    {"-", K::Operator, "key_minus", "\xE2\x88\x92", true, "-", S::Word, "minus",
     Keys(B::KeypadMinus, R::Any, B::Minus, R::None), std::nullopt, Operator_Key},
    {"*", K::Operator, "key_multiply", "\xC3\x97", true, "x", S::Word, "times",
     Keys(B::Asterisk, R::Any, B::Digit8, R::Shift), std::nullopt, Operator_Key},
    {"/", K::Operator, "key_divide", "\xC3\xB7", true, "\xC3\xB7", S::Word, "divided by", Keys(B::Slash), std::nullopt,
     Operator_Key},
    {"=", K::Operator, "key_equal", "=", true, "", S::Result, nullptr, Keys(B::Enter, R::Any, B::Equal, R::NotShift),
     std::nullopt, Operator_Key},
    {"xy", K::Operator, "key_Xy", "x\xCA\xB8", true, "^", S::Word, "to the power", Keys(B::Up), std::nullopt,
     Power_Key},
    {"root", K::Operator, "key_Root", "\xCA\xB8\xE2\x88\x9Ax", true, nullptr, S::Word, "root", kNoKeys, std::nullopt,
     Power_Key},
    {"pm", K::Entry, "key_PM", "\xC2\xB1", true, nullptr, S::Sign, nullptr, kNoKeys, std::nullopt, Sign_Key},
    {"exp", K::Entry, "key_exp", "EXP", true, nullptr, S::Word, "exponent", Keys(B::F8, R::Any, B::Digit6, R::Shift),
     std::nullopt, Exponent_Key},
    PlainKey("frc", K::Entry, "key_Frc", "a b/c", true, Fraction_Key),
    {"C", K::Entry, "key_C", "C", true, nullptr, S::Word, "", Keys(B::Escape), std::nullopt, Clear_Key},
    {"AC", K::Entry, "key_AC", "AC", true, "", S::Word, "", Keys(B::Delete), std::nullopt, All_Clear_Key},
    {"ers", K::Entry, "key_Ers", "\xE2\x8C\xAB", true, nullptr, S::Silent, nullptr, Keys(B::Backspace), std::nullopt,
     Delete_Key},
    PlainKey("x-y", K::Value, "key_XtoY", "x\xE2\x86\x94y", true, Swap_Key),
    {"PI", K::Value, "key_PI", "\xCF\x80", true, nullptr, S::Word, "pi", Keys(B::F9), std::nullopt, Pi_Key},
    PlainKey("rand", K::Value, "com_Random", "RND", true, Random_Key),
    {"mo", K::Memory, "key_Mr", "MR", true, nullptr, S::Word, "memory recall", kNoKeys, std::nullopt,
     Memory_Recall_Key},
    PlainKey("xtract", K::Value, "mnuPaste", "&Paste", true, Paste_Key),
    PlainKey("ko", K::Memory, "key_Kout", "K OUT", true, Register_Recall_Key, A::Recall),
    PlainKey("xk", K::Memory, "key_XtoK", "X\xE2\x86\x94K", true, Register_Swap_Key, A::Swap),
    PlainKey("cnst", K::Value, "key_Cnst", "CONST", true, Constant_Key),
    PlainKey("sexa", K::Value, "key_Sexa", "\xC2\xB0 ' \"", true, Sexa_Key),
    PlainKey("asex", K::Value, "key_Asex", "\xE2\x86\x90\xC2\xB0 ' \"", true, Asex_Key),
    PlainKey("data", K::Memory, "key_Data", "DATA IN", true, Data_Key),
    FunctionKey("sqr", "key_Sqr", "x\xC2\xB2", "squared"),
    FunctionKey("sqrt", "key_Sqrt", "\xE2\x88\x9Ax", "square root"),
    FunctionKey("cube", "key_Cube", "x\xC2\xB3", "cube"),
    FunctionKey("cubt", "key_Cubt", "\xE2\x88\x9Bx", "cube root"),
    FunctionKey("log", "key_Log", "log", "log"),
    FunctionKey("alog", "key_aLog", "10\xCB\xA3", "anti log"),
    FunctionKey("ln", "key_Ln", "ln", "ln"),
    FunctionKey("aln", "key_aLn", "e\xCB\xA3", "anti ln"),
    FunctionKey("rcp", "key_Rcp", "1/x", "reciprocal"),
    FunctionKey("fact", "key_Fact", "n!", "factorial"),
    FunctionKey("sin", "key_Sin", "sin", "sine"),
    FunctionKey("cos", "key_Cos", "cos", "cosine"),
    FunctionKey("tan", "key_Tan", "tan", "tangent"),
    FunctionKey("iSin", "key_iSin", "sin\xE2\x81\xBB\xC2\xB9", "inverse sine"),
    FunctionKey("iCos", "key_iCos", "cos\xE2\x81\xBB\xC2\xB9", "inverse cosine"),
    FunctionKey("iTan", "key_iTan", "tan\xE2\x81\xBB\xC2\xB9", "inverse tangent"),
    FunctionKey("sinh", "key_Sinh", "sinh", "hyperbolic sine"),
    FunctionKey("cosh", "key_Cosh", "cosh", "hyperbolic cosine"),
    FunctionKey("tanh", "key_Tanh", "tanh", "hyperbolic tangent"),
    FunctionKey("isinh", "key_ArcSinh", "sinh\xE2\x81\xBB\xC2\xB9", "inverse hyperbolic sine"),
    FunctionKey("icosh", "key_ArcCosh", "cosh\xE2\x81\xBB\xC2\xB9", "inverse hyperbolic cosine"),
    FunctionKey("itanh", "key_ArcTanh", "tanh\xE2\x81\xBB\xC2\xB9", "inverse hyperbolic tangent"),
    StatisticKey("dtn", "key_Dtn", "n"),
    StatisticKey("dts", "key_Dts", "\xCE\xA3x"),
    StatisticKey("ave", "key_Ave", "x\xCC\x84"),
    StatisticKey("sqr1", "key_Sqr1", "(\xCE\xA3x)\xC2\xB2"),
    StatisticKey("sqr2", "key_Sqr2", "\xCE\xA3x\xC2\xB2"),
    StatisticKey("strd0", "key_Strd0", "\xCF\x83n"),
    StatisticKey("strd1", "key_Strd1", "\xCF\x83n-1"),
    PlainKey("min", K::Memory, "key_Min", "M IN", false, Memory_In_Key),
    PlainKey("mplus", K::Memory, "key_Mplus", "M+", false, Memory_Plus_Key, A::Add),
    PlainKey("mminus", K::Memory, "key_Mminus", "M\xE2\x88\x92", false, Memory_Minus_Key, A::Minus),
    PlainKey("kin", K::Memory, "key_Kin", "K IN", false, Register_In_Key, A::In),
    PlainKey("kac", K::Memory, "key_KAC", "K AC", false, Register_Delete_Key, A::Delete),
    PlainKey("dc", K::Direct, "key_Dc", "d/c", false, Fraction_Toggle_Key),
    PlainKey("engl", K::Direct, "key_EngL", "\xE2\x86\x90" "ENG", false, Engineering_Left_Key),
    PlainKey("engr", K::Direct, "key_EngR", "ENG\xE2\x86\x92", false, Engineering_Right_Key),
    PlainKey("ptor", K::Direct, "key_PtoR", "P\xE2\x86\x92R", false, Polar_Key),
    PlainKey("rtop", K::Direct, "key_RtoP", "R\xE2\x86\x92P", false, Rect_Key),
    PlainKey("time", K::Window, "key_Time", "TIME", false, nullptr),
    PlainKey("del", K::Window, "key_Del", "DATA\xE2\x80\xA6", false, nullptr),
};

bool Accepts(ShiftRule rule, Modifiers held) {
    switch (rule) {
        case ShiftRule::Any: return true;
        case ShiftRule::None: return held == Modifiers::None;
        case ShiftRule::Shift: return held == Modifiers::Shift;
        case ShiftRule::NotShift: return held != Modifiers::Shift;
    }
    return false;
}

// The operator mark beside the display, written only while it holds a number.
void Set_Operator_Mark(CalculatorState& s, const std::string& mark) {
    if (IsNumeric(Trim(s.Shown.Number))) s.Shown.OperatorMark = mark;
}

// The result at "=": the number as the voice reads it.
void Speak_Result(CalculatorState& s) {
    if (!s.ReadOutOn || !IsNumeric(Trim(s.Shown.Number))) return;
    std::string t;
    if (Val(s.Shown.Exponent) == 0) {
        t = prim::PlainText(Val(s.Shown.Number));
    } else {
        t = prim::PlainText(Val(s.Shown.Number)) + "E" + prim::PlainText(Val(s.Shown.Exponent));
        t = prim::Replace(t, "E-", "times 10 to the power negative");
        t = prim::Replace(t, "E+", "times 10 to the power");
        t = prim::Replace(t, "E", "times 10 to the power");
    }
    std::string tt = Trim(t);
    if (!tt.empty() && tt[0] == '-') t = "negative " + tt.substr(1);
    Say(s, "= " + t);
}

void Speak_Key(CalculatorState& s, const KeyDef& key) {
    switch (key.speech) {
        case KeySpeech::Silent: break;
        case KeySpeech::Word: Speak_Text(s, key.word); break;
        case KeySpeech::Result: Speak_Result(s); break;
        case KeySpeech::Sign:
            if (LTrim(s.Shown.Number).rfind('-', 0) == 0) Speak_Text(s, "negative");
            break;
    }
}

}  // namespace

std::span<const KeyDef> Key_Table() { return kKeys; }

const KeyDef* Find_Key(const std::string& token) {
    for (const KeyDef& k : kKeys)
        if (token == k.token) return &k;
    return nullptr;
}

const KeyDef* Find_Key_By_Control(const std::string& control) {
    for (const KeyDef& k : kKeys)
        if (control == k.control) return &k;
    return nullptr;
}

bool Is_Key_Token(const std::string& token) {
    const KeyDef* k = Find_Key(token);
    return k && k->action;
}

bool Press_Key(CalculatorState& s, const std::string& token) {
    const KeyDef* key = Find_Key(token);
    if (!key || !key->action) return false;
    if (!key->dispatched) {
        key->action(s, token);
        return true;
    }
    if (key->mark) {
        if (*key->mark)
            Set_Operator_Mark(s, key->mark);
        else
            s.Shown.OperatorMark.clear();
    }
    detail::Dispatch(s, key);
    Speak_Key(s, *key);
    return true;
}

const KeyDef* Keyboard_Key(Keyboard key, Modifiers modifiers) {
    if (key == Keyboard::None) return nullptr;
    for (const KeyDef& k : kKeys)
        for (const KeyBinding& b : k.keyboard)
            if (b.key == key && Accepts(b.shift, modifiers)) return &k;
    return nullptr;
}

int Keyboard_Page(Keyboard key) {
    switch (key) {
        case Keyboard::F1: return 0;
        case Keyboard::F2: return 1;
        case Keyboard::F3: return 2;
        case Keyboard::F4: return 3;
        default: return -1;
    }
}

void Speak_Text(CalculatorState& s, const std::string& word) {
    if (!s.ReadOutOn) return;
    if (!IsNumeric(Trim(s.Shown.Number))) return;
    Say(s, word);
}

void detail::Say(CalculatorState& s, const std::string& text) {
    if (s.Speak) s.Speak(text);
}

}  // namespace Calculator
