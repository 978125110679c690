// Memory: the M memory, the register keys (through the register window hook),
// the statistics data and its statistics, the constant key, and the value
// texts of the register and data lists.
#include <cmath>

#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

void detail::Data_Key(CalculatorState& s, const std::string&) {
    Prepare(s);
    s.KeyToken.clear();
    Commit_Fraction(s);
    if (s.DataValues.IsList()) {
        s.DataValues.Values.push_back(X(s));
    } else {
        s.DataValues.kind = CalculatorFiles::DataList::Kind::List;
        s.DataValues.Values.assign(1, X(s));
    }
    s.CarryText = !s.EntryText.empty() ? s.EntryText : PlainText(X(s));
    s.EntryText.clear();
}

void detail::Statistic_Key(CalculatorState& s, const std::string& t) {
    s.FractionMode = false;
    s.ExpMode = false;
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

namespace {

bool Open_Register_Window(CalculatorState& s, RegisterAction action) {
    s.MemoryAction = action;
    s.RegisterChoice = -1;
    s.RegisterText.clear();
    if (s.ShowRegisterWindow) s.ShowRegisterWindow(s);
    return s.RegisterChoice >= 0 && s.RegisterChoice < CalculatorFiles::kRegisterCount;
}

CalculatorFiles::RegisterRecord& Chosen_Register(CalculatorState& s) { return s.Registers[static_cast<size_t>(s.RegisterChoice)]; }

// M+ and M-: X added to or taken from the chosen register.
void Register_Add(CalculatorState& s, RegisterAction action, double sign) {
    if (s.ErrorLock) return;
    if (!Open_Register_Window(s, action)) return;
    Commit_Fraction(s);
    auto& reg = Chosen_Register(s);
    double v = reg.Value + sign * X(s);
    if (std::isfinite(v)) reg.Value = v;
    s.CarryText = !s.EntryText.empty() ? s.EntryText : PlainText(X(s));
    s.EntryText.clear();
}

}  // namespace

void detail::Register_Recall_Key(CalculatorState& s, const std::string&) {
    if (!Open_Register_Window(s, RegisterAction::Recall)) return;
    ClearEntryModes(s);
    s.FractionMode = false;
    Show_Result(s, Chosen_Register(s).Value);
    s.EntryText.clear();
}

void detail::Register_Swap_Key(CalculatorState& s, const std::string&) {
    if (!Open_Register_Window(s, RegisterAction::Swap)) return;
    ClearEntryModes(s);
    s.FractionMode = false;
    auto& reg = Chosen_Register(s);
    s.RegisterWork = reg.Value;
    Commit_Fraction(s);
    reg.Value = X(s);
    Show_Result(s, s.RegisterWork);
    s.EntryText.clear();
}

void detail::Constant_Key(CalculatorState& s, const std::string&) {
    s.ConstantChoice = Variant();
    if (s.ShowConstantWindow) s.ShowConstantWindow(s);
    if (Empty(s.ConstantChoice)) return;
    ClearEntryModes(s);
    s.FractionMode = false;
    Show_Result(s, Num(s.ConstantChoice));
    s.EntryText.clear();
}

void detail::Memory_Recall_Key(CalculatorState& s, const std::string&) {
    ClearEntryModes(s);
    s.FractionMode = false;
    Show_Result(s, s.MemoryValue);
    s.EntryText.clear();
}

void detail::Memory_In_Key(CalculatorState& s, const std::string&) {
    if (s.ErrorLock) return;
    Clock_Off(s);
    Commit_Fraction(s);
    s.MemoryValue = X(s);
    s.CarryText = PlainText(X(s));
    s.Shown.MemoryMark = s.MemoryValue != 0 ? "MEM" : "";
    Speak_Text(s, "memory in");
}

void detail::Register_In_Key(CalculatorState& s, const std::string&) {
    if (s.ErrorLock) return;
    Clock_Off(s);
    if (!Open_Register_Window(s, RegisterAction::In)) return;
    auto& reg = Chosen_Register(s);
    reg.Value = X(s);
    reg.Description = s.RegisterText;
}

void detail::Memory_Plus_Key(CalculatorState& s, const std::string&) { Register_Add(s, RegisterAction::Add, 1); }
void detail::Memory_Minus_Key(CalculatorState& s, const std::string&) { Register_Add(s, RegisterAction::Minus, -1); }
void detail::Register_Delete_Key(CalculatorState& s, const std::string&) {
    Open_Register_Window(s, RegisterAction::Delete);
}

void Delete_Registers(CalculatorState& s, const std::vector<int>& checked) {
    for (int i : checked)
        if (i >= 0 && i < CalculatorFiles::kRegisterCount) s.Registers[static_cast<size_t>(i)] = {};
}

namespace {

std::string ListValue(double v) {
    if (PlainText(Fix(v)).size() > 15) return Format(v, "0.0" + std::string(15, '#') + "E+00");
    return Format(v, "0.0" + kHashes100);
}

}  // namespace

std::string Register_Value_Text(double value) { return ListValue(value) + "   "; }

std::string Data_Value_Text(double value) { return PlainText(Val(ListValue(value))) + "   "; }

void Delete_Data(CalculatorState& s, const std::vector<bool>& checked) {
    if (!s.DataValues.IsList()) return;
    const auto& v = s.DataValues.Values;
    std::vector<double> kept;
    for (size_t i = 0; i < v.size(); ++i)
        if (i >= checked.size() || !checked[i]) kept.push_back(v[i]);
    if (kept.empty()) {
        s.DataValues.kind = CalculatorFiles::DataList::Kind::EmptyText;
        s.DataValues.Values.clear();
    } else {
        s.DataValues.Values = kept;
    }
}

}  // namespace Calculator
